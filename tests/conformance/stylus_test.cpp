// Stylus input: points, capture, children, disabled windows.
#include "tests/conformance/conformance_test.h"

namespace tavo::conformance {

namespace {

class StylusConformance : public ConformanceTest {
  protected:
    std::vector<Message> StylusMessages(const MessageLog& log) const {
        std::vector<Message> found;
        for (const Message& message : log.All) {
            if (message.Number >= WM_MOUSEMOVE && message.Number <= WM_LBUTTONUP) {
                found.push_back(message);
            }
        }
        return found;
    }
};

TEST_F(StylusConformance, TapReachesThePageInItsOwnPixels) {
    Steps.Tap(2, 70);
    ASSERT_TRUE(Steps.Finish(Pump));
    const std::vector<Message> messages = StylusMessages(Page.Log);
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0], (Message{Page.Handle(), WM_LBUTTONDOWN, 0, 0, 0, {2, 70}}));
    EXPECT_EQ(messages[1], (Message{Page.Handle(), WM_LBUTTONUP, 0, 0, 0, {2, 70}}));
}

TEST_F(StylusConformance, FirstAndLastPixelOfTheClientAreaAreThePages) {
    Steps.Tap(0, 0);
    Steps.Tap(239, 267);
    ASSERT_TRUE(Steps.Finish(Pump));
    const std::vector<Message> messages = StylusMessages(Page.Log);
    ASSERT_EQ(messages.size(), 4u);
    EXPECT_EQ(messages[0].Position, (Point{0, 0}));
    EXPECT_EQ(messages[2].Position, (Point{239, 267}));
}

TEST_F(StylusConformance, StylusStaysWithTheWindowUntilItIsLifted) {
    Steps.Press(100, 100);
    Steps.MoveTo(120, 130);
    Steps.Release(120, 130);
    Steps.MoveTo(10, 10);
    ASSERT_TRUE(Steps.Finish(Pump));
    const std::vector<Message> messages = StylusMessages(Page.Log);
    ASSERT_EQ(messages.size(), 3u);
    EXPECT_EQ(messages[1], (Message{Page.Handle(), WM_MOUSEMOVE, 0, 0, 0, {120, 130}}));
    EXPECT_EQ(messages[2], (Message{Page.Handle(), WM_LBUTTONUP, 0, 0, 0, {120, 130}}));
}

TEST_F(StylusConformance, PaintedChildTakesTheStylusInItsOwnPixels) {
    ScratchWindow child(Pump);
    WindowDescription description;
    description.Parent = Page.Handle();
    description.Bounds = Rect::FromSize(10, 30, 100, 50);
    description.Visible = true;
    ASSERT_TRUE(child.Make(description));
    Steps.Tap(15, 42);
    Steps.Tap(9, 42);
    ASSERT_TRUE(Steps.Finish(Pump));
    ASSERT_EQ(child.Log.Count(WM_LBUTTONDOWN), 1);
    EXPECT_EQ(StylusMessages(child.Log)[0].Position, (Point{5, 12}));
    EXPECT_EQ(Page.Log.Count(WM_LBUTTONDOWN), 1);
}

TEST_F(StylusConformance, LabelLetsTheStylusThroughToThePage) {
    ControlDescription label;
    label.Kind = ControlKind::Label;
    label.Text = u"Start :";
    label.Bounds = Rect::FromSize(10, 30, 100, 20);
    Page.AddControl(label);
    Steps.Tap(15, 35);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Page.Log.Count(WM_LBUTTONDOWN), 1);
}

TEST_F(StylusConformance, DisabledWindowTakesNoStylus) {
    Host.Windows().EnableWindow(Page.Handle(), false);
    Steps.Tap(50, 50);
    Steps.Do([&] { Host.Windows().EnableWindow(Page.Handle(), true); });
    Steps.Tap(60, 60);
    ASSERT_TRUE(Steps.Finish(Pump));
    const std::vector<Message> messages = StylusMessages(Page.Log);
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0].Position, (Point{60, 60}));
}

TEST_F(StylusConformance, TapThatWaitedWhileItsWindowWasDisabledIsDropped) {
    // Both taps are in the queue when the first one's handler disables the page.
    Page.Log.Hook = [&](const Message& message) {
        if (message.Number == WM_LBUTTONDOWN) {
            Host.Windows().EnableWindow(Page.Handle(), false);
        }
    };
    Steps.Do([&] {
        Driver->PressStylus({50, 76});
        Driver->ReleaseStylus({50, 76});
        Driver->PressStylus({51, 76});
        Driver->ReleaseStylus({51, 76});
    });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(StylusMessages(Page.Log).size(), 1u);
}

TEST_F(StylusConformance, HiddenPageTakesNothing) {
    Page.Show(ShowCommand::Hide);
    Steps.Tap(50, 50);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_TRUE(StylusMessages(Page.Log).empty());
}

} // namespace

} // namespace tavo::conformance
