// The fonts of the chrome, as a host's own kind of faces.
#pragma once

#include "host/shell/chrome/piece.h"
#include "platform/drawing.h"

#include <array>
#include <cstddef>
#include <utility>

namespace tavo::shell {

// A face is made from a LogFont.
template <class Face> class ChromeFaces final : public IChromeFonts {
  public:
    Face& Find(ChromeFont font) override { return Made[static_cast<std::size_t>(font)]; }

  private:
    template <std::size_t... Numbers>
    static std::array<Face, sizeof...(Numbers)> MakeAll(std::index_sequence<Numbers...> /*numbers*/) {
        return {Face(LogFont{kChromeFace, kChromeFontSizes[Numbers].Height, 0, kChromeFontSizes[Numbers].Weight})...};
    }

    std::array<Face, kChromeFontCount> Made = MakeAll(std::make_index_sequence<kChromeFontCount>());
};

} // namespace tavo::shell
