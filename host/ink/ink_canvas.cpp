// What a new sample of the pen changes is a few pixels, however many strokes the page holds.
#include "host/ink/ink_canvas.h"

#include <algorithm>
#include <cmath>

namespace tavo::ink {

void InkCanvas::Resize(int width, int height, double pixelsPerPixel) {
    if (width == Front.Width() && height == Front.Height() && pixelsPerPixel == PixelsPerPixel) {
        return;
    }
    PixelsPerPixel = pixelsPerPixel;
    Finished.Resize(width, height);
    Front.Resize(width, height);
    Painter.Resize(width, height);
    LiveMask.Resize(width, height);
    TailMask.Resize(width, height);
    LiveBox = {};
    ForgetLive();
    IsNew = true;
}

// True when nothing of the old picture is left.
bool InkCanvas::FollowView(const InkControl& control, bool mayShift) {
    PixelScale wanted;
    wanted.PixelsPerTick = PixelsPerPixel * control.View().Zoom() / (100.0 * kTicksPerPixel);
    // The corner lies on a whole real pixel, so that scrolling only shifts what is there.
    const Point offset = control.View().Offset();
    const double left = std::round(offset.X * wanted.PixelsPerTick);
    const double top = std::round(offset.Y * wanted.PixelsPerTick);
    wanted.Left = left / wanted.PixelsPerTick;
    wanted.Top = top / wanted.PixelsPerTick;
    const PixelScale before = std::exchange(OwnScale, wanted);
    const double rows = top - std::round(before.Top * wanted.PixelsPerTick);
    const bool shifts = mayShift && !IsNew && LivePoints == 0 && before.PixelsPerTick == wanted.PixelsPerTick &&
                        before.Left == wanted.Left && rows != 0 && std::abs(rows) < Front.Height();
    if (!shifts) {
        return true;
    }
    const int count = static_cast<int>(rows);
    Finished.ScrollUp(count);
    const int height = Front.Height();
    Repaint(control,
            count > 0 ? PixelBox{0, height - count, Front.Width(), height} : PixelBox{0, 0, Front.Width(), -count});
    Front.Copy(Finished, Front.Whole());
    return false;
}

void InkCanvas::Repaint(const InkControl& control, const PixelBox& area) {
    Painter.Paint(Finished, area, control.Ink().Strokes(), control.PageStyle(), OwnScale);
    Front.Copy(Finished, area);
}

void InkCanvas::ForgetLive() {
    LiveMask.Clear(LiveBox);
    LiveShape.reset();
    LivePoints = 0;
    LiveBox = {};
    TailBox = {};
}

PixelBox InkCanvas::CoverPieces(CoverageMask& mask) {
    PixelBox touched;
    Nib before = PiecesFrom;
    for (const Nib& nib : Pieces) {
        mask.AddLine(before, nib, Front.Whole());
        const float reach = std::max(before.Radius, nib.Radius) + 1;
        touched = touched.United({static_cast<int>(std::floor(std::min(before.X, nib.X) - reach)),
                                  static_cast<int>(std::floor(std::min(before.Y, nib.Y) - reach)),
                                  static_cast<int>(std::ceil(std::max(before.X, nib.X) + reach)),
                                  static_cast<int>(std::ceil(std::max(before.Y, nib.Y) + reach))});
        before = nib;
    }
    return touched.Cut(Front.Whole());
}

PixelBox InkCanvas::ExtendLive(const Stroke& stroke) {
    if (!LiveShape.has_value()) {
        LiveShape.emplace(stroke.Tool, OwnScale);
    }
    Pieces.clear();
    PiecesFrom = LiveShape->Reached();
    for (; LivePoints < stroke.Points.size(); ++LivePoints) {
        LiveShape->Add(stroke.Points[LivePoints], 0, 0, Pieces);
        if (LivePoints == 0) {
            PiecesFrom = LiveShape->Reached();
            Pieces.push_back(PiecesFrom);
        }
    }
    PixelBox changed = TailBox.United(CoverPieces(LiveMask));
    LiveBox = LiveBox.United(changed);
    Pieces.clear();
    PiecesFrom = LiveShape->Reached();
    LiveShape->Finish(Pieces);
    TailBox = CoverPieces(TailMask);
    changed = changed.United(TailBox);
    Front.Copy(Finished, changed);
    Front.Blend(changed, ToPixel(kPenColors[static_cast<std::size_t>(stroke.Tool.Color)]), LiveMask, &TailMask);
    TailMask.Clear(TailBox);
    return changed;
}

PixelBox InkCanvas::FinishLive(const Stroke& stroke) {
    const PixelBox changed = ExtendLive(stroke);
    Finished.Copy(Front, LiveBox.United(TailBox));
    ForgetLive();
    return changed;
}

PixelBox InkCanvas::Update(InkControl& control) {
    const Damage damage = control.TakeDamage();
    PixelBox changed;
    if (damage.All || damage.Scrolled || IsNew) {
        changed = Front.Whole();
        if (FollowView(control, !damage.All && damage.Ink.IsEmpty() && !damage.LiveFinished)) {
            ForgetLive();
            IsNew = false;
            Repaint(control, changed);
        }
    } else if (!damage.Ink.IsEmpty() || (damage.LiveFinished && LivePoints == 0)) {
        Box ink = damage.Ink;
        if (damage.LiveFinished) {
            ink = ink.United(control.Ink().IsEmpty() ? Box() : control.Ink().Strokes().back().Bounds);
        }
        changed = changed.United(LiveBox).United(TailBox);
        ForgetLive();
        changed = changed.United(PixelsOf(ink.Grown((kSelectionReach + 1) * kTicksPerPixel), OwnScale));
        changed = changed.Cut(Front.Whole());
        Repaint(control, changed);
    } else if (damage.LiveFinished) {
        changed = changed.United(FinishLive(*control.Ink().Strokes().back().Body));
    }
    if (const Stroke* live = control.LiveStroke(); live != nullptr && live->Points.size() > LivePoints) {
        changed = changed.United(ExtendLive(*live));
    }
    return changed;
}

} // namespace tavo::ink
