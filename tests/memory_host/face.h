// One font of the device, measured unhinted at scale 1. A character that its file lacks is shown as a box.
#pragma once

#include "host/shell/chrome/text_placement.h"
#include "platform/drawing.h"

#include <cairo.h>

#include <memory>

namespace tavo::memory {

template <auto Release> struct Releaser {
    template <class Kind> void operator()(Kind* made) const { Release(made); }
};

using Context = std::unique_ptr<cairo_t, Releaser<cairo_destroy>>;

// To draw, with text unhinted, on a new picture of this size in real pixels.
Context MakeContext(int width, int height);

class Face final : public shell::ITextFace {
  public:
    explicit Face(const LogFont& description);

    int Ascent() override { return static_cast<int>(std::lround(Heights.ascent)); }

    int LineHeight() override { return Ascent() + static_cast<int>(std::lround(Heights.descent)); }

    const std::vector<double>& Ends(std::u16string_view text) override;

    void Draw(cairo_t* on, const shell::PlacedLine& line) const;

  private:
    Context Measure = MakeContext(1, 1); // with this font chosen
    cairo_font_extents_t Heights{};
    std::vector<double> Found;
};

} // namespace tavo::memory
