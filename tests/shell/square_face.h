// A font whose characters are all equally wide, so that a test can say where each of them lies.
#pragma once

#include "host/shell/chrome/piece.h"

#include <algorithm>

namespace tavo::shell {

class SquareFace final : public ITextFace {
  public:
    static constexpr int kAdvance = 6;
    static constexpr int kAscent = 9;
    static constexpr int kLine = 12;

    int Ascent() override { return kAscent; }

    int LineHeight() override { return kLine; }

    const std::vector<double>& Ends(std::u16string_view text) override {
        Found.clear();
        for (std::size_t i = 0; i < text.size(); ++i) {
            Found.push_back(static_cast<double>((i + 1) * kAdvance));
        }
        return Found;
    }

  private:
    std::vector<double> Found;
};

// All fonts of the chrome are that one.
class SquareFonts final : public IChromeFonts {
  public:
    ITextFace& Find(ChromeFont) override { return Face; }

  private:
    SquareFace Face;
};

// The texts among the pieces, in the order of painting.
inline std::vector<std::u16string> TextsOf(const Pieces& pieces) {
    std::vector<std::u16string> texts;
    for (const Piece& piece : pieces) {
        if (const auto* text = std::get_if<TextPiece>(&piece)) {
            for (const PlacedLine& line : text->Lines) {
                texts.push_back(line.Text);
            }
        }
    }
    return texts;
}

template <class Kind> std::size_t CountKind(const Pieces& pieces) {
    return static_cast<std::size_t>(std::count_if(
        pieces.begin(), pieces.end(), [](const Piece& piece) { return std::holds_alternative<Kind>(piece); }));
}

// Whether the area is filled with this colour.
inline bool Fills(const Pieces& pieces, const Rect& area, Argb ink) {
    return std::find(pieces.begin(), pieces.end(), Piece(FillPiece{area, ink})) != pieces.end();
}

} // namespace tavo::shell
