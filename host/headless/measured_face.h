// The fonts of the device's own chrome, measured without a screen.
#pragma once

#include "host/shell/chrome/text_face.h"
#include "platform/drawing.h"

namespace tavo::headless {

// As wide as MeasureText says; as high as the face that the device's fonts are.
class MeasuredFace final : public shell::ITextFace {
  public:
    explicit MeasuredFace(const LogFont& font) : Height(font.Height), Weight(font.Weight) {}

    int Ascent() override;
    int LineHeight() override;
    const std::vector<double>& Ends(std::u16string_view text) override;

  private:
    int Height;
    int Weight;
    std::vector<double> Found;
};

} // namespace tavo::headless
