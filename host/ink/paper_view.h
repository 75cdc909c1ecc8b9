// Which part of the paper is seen, and how large.
#pragma once

#include "host/ink/stroke.h"

#include <array>

namespace tavo::ink {

inline constexpr std::array kZooms{75, 100, 150, 200, 300}; // percent
constexpr int kScrollBarWidth = 13;
constexpr int kRecorderBarHeight = 24;
// The paper of a new memo is as wide as what the editor shows of it at zoom 100.
constexpr int kPaperWidth = (240 - kScrollBarWidth) * kTicksPerPixel;

// A place within the control, in its logical pixels; a pen tells parts of them.
struct ViewPoint {
    double X = 0;
    double Y = 0;
};

class PaperView {
  public:
    int Zoom() const { return Percent; }

    Point Offset() const { return Corner; } // of the view's corner; ticks

    // The part of the control that shows paper, in its pixels: all but the bars.
    Rect Area() const { return Shown; }

    // How much of the paper is seen, in ticks.
    Size Extent() const;

    // How far the paper reaches; at least the view.
    Size PaperSize() const;

    bool HasSideBar() const { return SideBar; } // the bar that scrolls sideways; only where there is something to see

    // False for a size that the paper is not shown in.
    bool SetZoom(int percent, const Box& ink, bool aboutCentre);
    // The control's size, and what ink there is.
    void Fit(Size control, bool recorderBar, const Box& ink);
    void ScrollTo(Point offset);

    ViewPoint ToPaper(ViewPoint inControl) const; // ticks, with parts
    ViewPoint ToControl(double x, double y) const;
    Box VisibleBox() const;

  private:
    void Arrange();

    int Percent = 100;
    Point Corner;
    Rect Shown;
    Size Control;
    bool Recorder = false;
    bool SideBar = false;
    Box Ink;
};

} // namespace tavo::ink
