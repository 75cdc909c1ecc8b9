// Drawing for the program: fonts, surfaces at the screen's scale, and showing them.
#pragma once

#include "host/qt/window_views.h"
#include "platform/drawing.h"

namespace tavo::qt {

class Drawing final : public IDrawing {
  public:
    Drawing(Device& device, WindowViews& views) : Shared(device), Views(views) {}

    int LogicalPixelsPerInch() override;

    FontHandle CreateFontIndirectW(const LogFont& font) override { return Shared.Fonts.Make(font); }

    void DeleteObject(FontHandle font) override { Shared.Fonts.Delete(font); }

    void GetTextExtentExPointW(FontHandle font, std::u16string_view text, std::vector<int>& widths) override;
    std::unique_ptr<ISurface> CreateCompatibleSurface(Size size) override;
    void Present(WindowHandle window, const ISurface& surface, std::span<const PaintedItem> items) override;

    bool HasPresented() const { return Presented; }

  private:
    Device& Shared;
    WindowViews& Views;
    bool Presented = false;
};

} // namespace tavo::qt
