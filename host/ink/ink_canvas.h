// The picture of what a control shows of its paper, kept up to date by painting no more than what changed.
#pragma once

#include "host/ink/ink_control.h"
#include "host/ink/page_painter.h"

namespace tavo::ink {

class InkCanvas {
  public:
    // The size of the picture in real pixels, and how many of them a logical pixel of the control is wide.
    void Resize(int width, int height, double pixelsPerPixel);

    // Gives the part of the picture that is different now.
    PixelBox Update(InkControl& control);

    const Picture& Shown() const { return Front; }

    PixelScale Scale() const { return OwnScale; }

  private:
    bool FollowView(const InkControl& control, bool mayShift);
    void Repaint(const InkControl& control, const PixelBox& area);
    void ForgetLive();
    PixelBox ExtendLive(const Stroke& stroke);
    PixelBox FinishLive(const Stroke& stroke);
    PixelBox CoverPieces(CoverageMask& mask);

    PagePainter Painter;
    Picture Finished; // paper and finished strokes
    Picture Front;    // and the stroke that is being drawn
    PixelScale OwnScale;
    double PixelsPerPixel = 1;
    bool IsNew = true;

    // The stroke that is being drawn: its mask up to the last middle, and the rest of it, which the next point bends.
    CoverageMask LiveMask;
    CoverageMask TailMask; // empty between updates
    std::optional<StrokeShape> LiveShape;
    std::size_t LivePoints = 0;
    std::vector<Nib> Pieces;
    Nib PiecesFrom;
    PixelBox LiveBox;
    PixelBox TailBox;
};

} // namespace tavo::ink
