// Zooming about what a person sees.
#include "tests/ink/control_desk.h"

#include <cmath>

namespace tavo::ink {
namespace {

class InkZoom : public ControlDesk {
  protected:
    ViewPoint Centre() const {
        const Rect area = Control.View().Area();
        return Control.View().ToPaper({area.Width() / 2.0, area.Height() / 2.0});
    }
};

TEST_F(InkZoom, FiveSizesAreTakenAndNoOther) {
    for (const int zoom : {75, 100, 150, 200, 300}) {
        Send(kInkSetZoom, 0, zoom);
        EXPECT_EQ(Control.View().Zoom(), zoom);
    }
    for (const int zoom : {0, -100, 99, 1000000}) {
        Send(kInkSetZoom, 0, zoom);
        EXPECT_EQ(Control.View().Zoom(), 300);
    }
}

TEST_F(InkZoom, TheMiddleOfWhatIsSeenStays) {
    Control.SetData(Encode(WriteByHand(400, 30)));
    Send(kInkSetZoom, 0, 200);
    Control.NoteShown();
    Control.ScrollTo({50 * kTicksPerPixel, 150 * kTicksPerPixel});
    const ViewPoint before = Centre();
    for (const int zoom : {300, 200, 300, 150}) {
        Send(kInkSetZoom, 0, zoom);
        EXPECT_NEAR(Centre().X, before.X, kTicksPerPixel) << zoom;
        EXPECT_NEAR(Centre().Y, before.Y, 14 * kTicksPerPixel) << zoom; // the bar below takes rows from some
    }
}

TEST_F(InkZoom, PaperThatNobodySawYetKeepsItsCorner) {
    Control.SetData(Encode(WriteByHand(400, 30)));
    Send(kInkSetZoom, 0, 100);
    Send(kInkSetZoom, 0, 150);
    EXPECT_EQ(Control.View().Offset(), (Point{0, 0}));
    Control.NoteShown();
    Send(kInkSetZoom, 0, 300);
    EXPECT_GT(Control.View().Offset().X, 0);
    EXPECT_GT(Control.View().Offset().Y, 0);
}

TEST_F(InkZoom, NewPaperIsAsWideAsTheViewAtFullSize) {
    EXPECT_EQ(Control.View().PaperSize().Width, 227 * kTicksPerPixel);
    EXPECT_FALSE(Control.View().HasSideBar());
    EXPECT_EQ(Control.View().Area(), (Rect{0, 0, 227, 244}));
}

TEST_F(InkZoom, EnlargedPaperScrollsSideways) {
    Send(kInkSetZoom, 0, 200);
    EXPECT_TRUE(Control.View().HasSideBar());
    EXPECT_EQ(Control.View().Area(), (Rect{0, 0, 227, 231}));
    Control.ScrollTo({1000000, 0});
    const ViewPoint corner = Control.View().ToPaper({227, 0});
    EXPECT_NEAR(corner.X, 227 * kTicksPerPixel, 2);
}

TEST_F(InkZoom, OnSmallPaperThereIsMoreToWriteOn) {
    Write(75);
    EXPECT_FALSE(Control.View().HasSideBar());
    Drag(220, 20, 225, 40); // beyond the paper's width at full size
    Send(kInkSetZoom, 0, 100);
    EXPECT_TRUE(Control.View().HasSideBar());
    EXPECT_GT(Control.View().PaperSize().Width, 300 * kTicksPerPixel);
}

TEST_F(InkZoom, PlacesGoThereAndBack) {
    for (const int zoom : {75, 100, 150, 200, 300}) {
        Send(kInkSetZoom, 0, zoom);
        const ViewPoint paper = Control.View().ToPaper({33.25, 71.5});
        const ViewPoint back = Control.View().ToControl(paper.X, paper.Y);
        EXPECT_NEAR(back.X, 33.25, 1e-9);
        EXPECT_NEAR(back.Y, 71.5, 1e-9);
    }
}

} // namespace
} // namespace tavo::ink
