// All that a host without widgets has to bring along in order to be seen: something to paint on, and fonts.
#pragma once

#include "host/ink/picture.h"
#include "host/shell/chrome/piece.h"
#include "platform/drawing.h"

#include <memory>

namespace tavo::bare {

// A picture of logical size, white when it is made, at the resolution of the screen. The edges of what has no rounded
// corners are sharp: x lies at round(x * scale).
class ICanvas {
  public:
    virtual ~ICanvas() = default;
    virtual void Fill(const shell::RoundedFillPiece& piece) = 0;
    virtual void Frame(const shell::FramePiece& piece) = 0;
    virtual void Polygon(const shell::PolygonPiece& piece) = 0; // of two corners: a line
    virtual void Picture(const shell::PicturePiece& piece) = 0; // nothing when there is no such picture
    // The face is one that the same kit made. Cut at the area.
    virtual void Write(shell::ITextFace& face, const shell::PlacedLine& line, const Rect& area, shell::Argb ink) = 0;
    // What of a canvas of the same kit fits into the area, from its corner; and paper, which fills the area.
    virtual void Put(const ICanvas& other, const Rect& area) = 0;
    virtual void Put(const ink::Picture& paper, const Rect& area) = 0;
};

class IPaintKit {
  public:
    virtual ~IPaintKit() = default;
    virtual double PixelsPerPixel() = 0; // real ones for each logical one
    virtual std::unique_ptr<ICanvas> MakeCanvas(Size size) = 0;
    // Measured unhinted at scale 1.
    virtual std::unique_ptr<shell::ITextFace> MakeFace(const LogFont& font) = 0;
};

} // namespace tavo::bare
