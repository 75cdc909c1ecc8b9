// Drawing that is written down instead of shown.
#pragma once

#include "host/headless/draw_call.h"
#include "host/headless/pixel_picture.h"

#include <map>
#include <memory>

namespace tavo::headless {

// What a window shows since it was last presented to.
struct Frame {
    Transcript Calls; // on its surface since that was presented before
    PixelPicture Picture{Size{}};
    std::vector<PaintedItem> Items;
    int Count = 0;                       // how often the window was presented to
    std::vector<std::size_t> ItemCounts; // how many items each of these times declared
};

class RecordedDrawing : public IDrawing {
  public:
    int LogicalPixelsPerInch() override;
    FontHandle CreateFontIndirectW(const LogFont& font) override;
    void DeleteObject(FontHandle font) override;
    void GetTextExtentExPointW(FontHandle font, std::u16string_view text, std::vector<int>& widths) override;
    std::unique_ptr<ISurface> CreateCompatibleSurface(Size size) override;
    void Present(WindowHandle window, const ISurface& surface, std::span<const PaintedItem> items) override;

    // Null before the first.
    const Frame* LastFrame(WindowHandle window) const;

    void Forget(WindowHandle window) { Frames.erase(window); }

    std::size_t FontCount() const { return Fonts.size(); }

    // "Arial -14 700"; empty for no font.
    std::string DescribeFont(FontHandle font) const;

    int SurfacesMade() const { return SurfaceCount; }

  private:
    struct Font {
        std::u16string FaceName;
        int Height = 0;
        int Width = 0;
        int Weight = 0;
    };

    std::map<FontHandle, Font> Fonts;
    std::map<WindowHandle, Frame> Frames;
    std::uint32_t LastFont = 0;
    int SurfaceCount = 0;
};

} // namespace tavo::headless
