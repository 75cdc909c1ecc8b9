// A picture in memory. Each logical pixel is a square of real ones, so all edges are sharp.
#pragma once

#include "host/bare/paint_kit.h"
#include "tests/memory_host/face.h"

namespace tavo::memory {

class Canvas final : public bare::ICanvas {
  public:
    Canvas(Size size, int scale);

    void Fill(const shell::RoundedFillPiece& piece) override;
    void Frame(const shell::FramePiece& piece) override;
    void Polygon(const shell::PolygonPiece& piece) override;
    void Picture(const shell::PicturePiece& piece) override;
    void Write(shell::ITextFace& face, const shell::PlacedLine& line, const Rect& area, shell::Argb ink) override;
    void Put(const ICanvas& other, const Rect& area) override;
    void Put(const ink::Picture& paper, const Rect& area) override;

    cairo_surface_t* Pixels() const { return cairo_get_target(Target.get()); }

  private:
    void Put(cairo_surface_t* picture, const Rect& area);

    int Scale;
    Context Target;
};

} // namespace tavo::memory
