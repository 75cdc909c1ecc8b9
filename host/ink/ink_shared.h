// What all ink controls of the device have in common.
#pragma once

#include "host/ink/stroke.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace tavo::ink {

struct InkShared {
    Pen Tool; // as last chosen on a recorder bar
    std::vector<PlacedStroke> Clipboard;
    std::function<void(const std::vector<PlacedStroke>&)> Copied = {}; // something came to the clipboard
    std::function<std::int64_t()> Now = {};                            // milliseconds since 1970, by the device's clock
};

} // namespace tavo::ink
