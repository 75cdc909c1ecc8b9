// Drawing for the program on what a paint kit makes, and what each window was given to show.
#pragma once

#include "host/bare/paint_kit.h"
#include "host/ink/ink_canvas.h"

#include <array>
#include <map>

namespace tavo::bare {

// What a window shows: a copy of what was presented, and what the program said of it.
struct PaintedFrame {
    std::unique_ptr<ICanvas> Shown;
    std::vector<PaintedItem> Items;
};

class PaintedDrawing final : public IDrawing, public shell::IChromeFonts {
  public:
    explicit PaintedDrawing(IPaintKit& kit) : Kit(kit) {}

    int LogicalPixelsPerInch() override;
    FontHandle CreateFontIndirectW(const LogFont& font) override;

    void DeleteObject(FontHandle font) override { Faces.erase(font); }

    void GetTextExtentExPointW(FontHandle font, std::u16string_view text, std::vector<int>& widths) override;
    std::unique_ptr<ISurface> CreateCompatibleSurface(Size size) override;
    void Present(WindowHandle window, const ISurface& surface, std::span<const PaintedItem> items) override;

    shell::ITextFace& Find(shell::ChromeFont font) override;
    // Null for a handle that is none.
    shell::ITextFace* FindFace(FontHandle font) const;
    // Null before the first.
    const PaintedFrame* FindFrame(WindowHandle window) const;

    void PaintPieces(ICanvas& canvas, const shell::Pieces& pieces);
    // The ink of a paper, in the part of the screen that shows it.
    void PaintInk(ICanvas& canvas, WindowHandle paper, ink::InkControl& control, const Rect& area);

    // The window goes.
    void Forget(WindowHandle window);

  private:
    IPaintKit& Kit;
    std::map<FontHandle, std::unique_ptr<shell::ITextFace>> Faces;
    std::array<std::unique_ptr<shell::ITextFace>, shell::kChromeFontCount> ChromeFaces; // made when first used
    std::map<WindowHandle, PaintedFrame> Frames;
    std::map<WindowHandle, ink::InkCanvas> Papers;
    std::uint32_t LastFace = 0;
};

} // namespace tavo::bare
