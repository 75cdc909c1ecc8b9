// A font whose characters are all equally wide, so that a test can say where each of them lies.
#pragma once

#include "host/shell/chrome/text_face.h"

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

} // namespace tavo::shell
