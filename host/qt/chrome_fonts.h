// The fonts of the device's own chrome.
#pragma once

#include "host/qt/font.h"
#include "host/shell/chrome/piece.h"

#include <array>

namespace tavo::qt {

class ChromeFonts final : public shell::IChromeFonts {
  public:
    Font& Find(shell::ChromeFont font) override { return Made[static_cast<std::size_t>(font)]; }

  private:
    static LogFont Describe(shell::ChromeFont font) {
        const shell::ChromeFontSize& size = shell::kChromeFontSizes[static_cast<std::size_t>(font)];
        return {shell::kChromeFace, size.Height, 0, size.Weight};
    }

    std::array<Font, shell::kChromeFontCount> Made{Font(Describe(shell::ChromeFont::Caption)),
                                                   Font(Describe(shell::ChromeFont::Button)),
                                                   Font(Describe(shell::ChromeFont::Plain))};
};

} // namespace tavo::qt
