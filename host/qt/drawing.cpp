// The program's way to fonts, surfaces and the screen.
#include "host/qt/drawing.h"

#include <cmath>

namespace tavo::qt {

int Drawing::LogicalPixelsPerInch() {
    return 96;
}

void Drawing::GetTextExtentExPointW(FontHandle font, std::u16string_view text, std::vector<int>& widths) {
    widths.assign(text.size(), 0);
    Font* found = Shared.Fonts.Find(font);
    if (found == nullptr) {
        return;
    }
    const std::vector<double>& ends = found->Ends(text);
    for (std::size_t i = 0; i < text.size() && i < ends.size(); ++i) {
        widths[i] = static_cast<int>(std::lround(ends[i]));
    }
}

std::unique_ptr<ISurface> Drawing::CreateCompatibleSurface(Size size) {
    return std::make_unique<Surface>(size, Shared.PaintScale, Shared.Fonts, Shared.Pictures);
}

void Drawing::Present(WindowHandle window, const ISurface& surface, std::span<const PaintedItem> items) {
    const auto* made = dynamic_cast<const Surface*>(&surface);
    Views.Update();
    PaintedWidget* widget = Views.FindPainted(window);
    if (made != nullptr && widget != nullptr) {
        Presented = true;
        widget->Show(*made, items);
    }
}

} // namespace tavo::qt
