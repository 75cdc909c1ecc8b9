// What two rectangles have together, and around both.
#include "host/ink/pixel_box.h"

#include <algorithm>

namespace tavo::ink {

PixelBox PixelBox::United(const PixelBox& other) const {
    if (IsEmpty() || other.IsEmpty()) {
        return IsEmpty() ? other : *this;
    }
    return {std::min(Left, other.Left), std::min(Top, other.Top), std::max(Right, other.Right),
            std::max(Bottom, other.Bottom)};
}

PixelBox PixelBox::Cut(const PixelBox& other) const {
    return {std::max(Left, other.Left), std::max(Top, other.Top), std::min(Right, other.Right),
            std::min(Bottom, other.Bottom)};
}

} // namespace tavo::ink
