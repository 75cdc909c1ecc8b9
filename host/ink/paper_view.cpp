// Zooming and scrolling.
#include "host/ink/paper_view.h"

#include <algorithm>
#include <cmath>

namespace tavo::ink {
namespace {

// Kept free to the right of and below the ink, to go on writing.
constexpr int kMarginRight = 8 * kTicksPerPixel;

int ToTicks(int pixels, int percent) {
    return pixels * kTicksPerPixel * 100 / percent;
}

} // namespace

Size PaperView::Extent() const {
    return {ToTicks(Shown.Width(), Percent), ToTicks(Shown.Height(), Percent)};
}

Size PaperView::PaperSize() const {
    const Size seen = Extent();
    const int width = std::max({kPaperWidth, Ink.Right + kMarginRight, seen.Width});
    // Two thirds of a view stay free below the last stroke: the paper grows while one writes.
    const int height = std::max(Ink.Bottom + seen.Height * 2 / 3, seen.Height);
    return {std::min(width, std::max(kMaxX, seen.Width)), std::min(height, std::max(kMaxY, seen.Height))};
}

void PaperView::Arrange() {
    const int bars = Recorder ? std::min(kRecorderBarHeight, Control.Height) : 0;
    const int width = std::max(Control.Width - kScrollBarWidth, 1);
    const int height = std::max(Control.Height - bars, 1);
    Shown = {0, 0, width, height};
    SideBar = PaperSize().Width > Extent().Width + kTicksPerPixel;
    if (SideBar) {
        Shown.Bottom = std::max(height - kScrollBarWidth, 1);
    }
    ScrollTo(Corner);
}

bool PaperView::SetZoom(int percent, const Box& ink, bool aboutCentre) {
    if (std::find(kZooms.begin(), kZooms.end(), percent) == kZooms.end()) {
        return false;
    }
    const Size before = Extent();
    const Point centre{Corner.X + before.Width / 2, Corner.Y + before.Height / 2};
    Percent = percent;
    Ink = ink;
    Arrange();
    const Size now = Extent();
    ScrollTo(aboutCentre ? Point{centre.X - now.Width / 2, centre.Y - now.Height / 2} : Point{});
    return true;
}

void PaperView::Fit(Size control, bool recorderBar, const Box& ink) {
    Control = control;
    Recorder = recorderBar;
    Ink = ink;
    Arrange();
}

void PaperView::ScrollTo(Point offset) {
    const Size paper = PaperSize();
    const Size seen = Extent();
    Corner.X = std::clamp(offset.X, 0, std::max(paper.Width - seen.Width, 0));
    Corner.Y = std::clamp(offset.Y, 0, std::max(paper.Height - seen.Height, 0));
}

ViewPoint PaperView::ToPaper(ViewPoint inControl) const {
    const double ticks = kTicksPerPixel * 100.0 / Percent;
    return {Corner.X + (inControl.X - Shown.Left) * ticks, Corner.Y + (inControl.Y - Shown.Top) * ticks};
}

ViewPoint PaperView::ToControl(double x, double y) const {
    const double pixels = Percent / (100.0 * kTicksPerPixel);
    return {Shown.Left + (x - Corner.X) * pixels, Shown.Top + (y - Corner.Y) * pixels};
}

Box PaperView::VisibleBox() const {
    const Size seen = Extent();
    return {Corner.X, Corner.Y, Corner.X + seen.Width + 1, Corner.Y + seen.Height + 1};
}

} // namespace tavo::ink
