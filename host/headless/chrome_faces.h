// The fonts of the device's own chrome, measured without a screen.
#pragma once

#include "host/shell/chrome/piece.h"

#include <array>

namespace tavo::headless {

// As wide as MeasureText says; as high as the face that the device's fonts are.
class MeasuredFace final : public shell::ITextFace {
  public:
    explicit MeasuredFace(const shell::ChromeFontSize& size) : Font(size) {}

    int Ascent() override;
    int LineHeight() override;
    const std::vector<double>& Ends(std::u16string_view text) override;

  private:
    shell::ChromeFontSize Font;
    std::vector<double> Found;
};

class ChromeFaces final : public shell::IChromeFonts {
  public:
    MeasuredFace& Find(shell::ChromeFont font) override { return Faces[static_cast<std::size_t>(font)]; }

  private:
    std::array<MeasuredFace, shell::kChromeFontCount> Faces{MeasuredFace(shell::kChromeFontSizes[0]),
                                                            MeasuredFace(shell::kChromeFontSizes[1]),
                                                            MeasuredFace(shell::kChromeFontSizes[2])};
};

} // namespace tavo::headless
