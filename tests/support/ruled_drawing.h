// A drawing board on which every character is equally wide and every font asked for is remembered.
#pragma once

#include "platform/drawing.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tavo::test {

struct KnownFont {
    std::u16string Face;
    int Height = 0;
    int Width = 0;
    int Weight = 0;
    bool Deleted = false;

    friend bool operator==(const KnownFont&, const KnownFont&) = default;
};

class RuledDrawing final : public IDrawing {
  public:
    explicit RuledDrawing(int characterWidth = 10, int pixelsPerInch = 96)
        : CharacterWidth(characterWidth), PixelsPerInch(pixelsPerInch) {}

    int LogicalPixelsPerInch() override { return PixelsPerInch; }

    FontHandle CreateFontIndirectW(const LogFont& font) override {
        Fonts.push_back({std::u16string(font.FaceName), font.Height, font.Width, font.Weight});
        return static_cast<FontHandle>(Fonts.size());
    }

    void DeleteObject(FontHandle font) override { Fonts[static_cast<std::size_t>(font) - 1].Deleted = true; }

    void GetTextExtentExPointW(FontHandle, std::u16string_view text, std::vector<int>& widths) override {
        ++Measurements;
        Measured += text.size();
        widths.clear();
        for (std::size_t count = 1; count <= text.size(); ++count) {
            widths.push_back(static_cast<int>(count) * CharacterWidth);
        }
    }

    std::unique_ptr<ISurface> CreateCompatibleSurface(Size) override { return nullptr; }

    void Present(WindowHandle, const ISurface&, std::span<const PaintedItem>) override {}

    const KnownFont& FontOf(FontHandle font) const { return Fonts[static_cast<std::size_t>(font) - 1]; }

    std::vector<KnownFont> Fonts; // in order of making; a handle counts from 1
    int Measurements = 0;
    std::size_t Measured = 0; // UTF-16 units, together

  private:
    int CharacterWidth;
    int PixelsPerInch;
};

} // namespace tavo::test
