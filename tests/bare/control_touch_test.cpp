// Taps and keys on controls without widgets.
#include "tests/headless/device_page.h"

namespace tavo::headless {

namespace {

class ControlTouchTest : public DevicePageTest {
  protected:
    std::vector<int> Requests() const {
        std::vector<int> requests;
        for (const Message& message : Page.Taken) {
            if (message.Number == WM_VSCROLL && message.Code != SB_ENDSCROLL) {
                requests.push_back(message.Code);
            }
        }
        return requests;
    }
};

TEST_F(ControlTouchTest, ScrollBarHasArrowsAndATrack) {
    const WindowHandle bar = Add(ControlKind::ScrollBar, 1021, Rect::FromSize(222, 31, 15, 207));
    Own.Host().Controls().SetScrollInfo(bar, {0, 10, 5});
    Own.Tap(225, 35);  // upper arrow
    Own.Tap(225, 60);  // above the thumb
    Own.Tap(225, 200); // below it
    Own.Tap(225, 237); // lower arrow
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Requests(), (std::vector<int>{SB_LINEUP, SB_PAGEUP, SB_PAGEDOWN, SB_LINEDOWN}));
}

TEST_F(ControlTouchTest, KeysMoveTheCaretAndDelete) {
    Add(ControlKind::Edit, 1028, Rect::FromSize(65, 15, 165, 20));
    Own.TypeInto(1028, u"abcd");
    Own.Key(VK_HOME);
    Own.Key(VK_DELETE);
    Own.Key(VK_RIGHT);
    Own.Type(u"X");
    Own.Key(VK_END);
    Own.Key(VK_BACK);
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Own.See.TextOf(1028), u"bXc");
    EXPECT_EQ(Page.Count(WM_KEYDOWN), 0); // the edit used them all
}

TEST_F(ControlTouchTest, BackspaceAtTheStartChangesNothing) {
    Add(ControlKind::Edit, 1028, Rect::FromSize(65, 15, 165, 20));
    Own.TypeInto(1028, u"a");
    Own.Key(VK_HOME);
    Own.Key(VK_BACK);
    Own.Key(VK_LEFT);
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Own.See.TextOf(1028), u"a");
}

TEST_F(ControlTouchTest, ArrowsChooseInAFocusedList) {
    const WindowHandle list = Add(ControlKind::FixedList, 1035, Rect::FromSize(65, 15, 50, 20));
    const std::vector<std::u16string> entries{u"Yes", u"No"};
    Own.Host().Controls().SetListItems(list, entries);
    Own.Host().Windows().SetFocus(list);
    Own.Key(VK_DOWN);
    Own.Key(VK_DOWN);
    Own.Key(VK_DOWN); // there is no further entry
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Own.See.SelectionOf(1035), 1);
    EXPECT_EQ(Page.Count(WM_COMMAND), 2);
}

TEST_F(ControlTouchTest, SpaceClicksAFocusedCheckBox) {
    const WindowHandle check = Add(ControlKind::CheckBox, 1032, Rect::FromSize(65, 15, 50, 20));
    Own.Host().Windows().SetFocus(check);
    Own.Key(VK_SPACE);
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_TRUE(Own.See.IsChecked(1032));
}

TEST_F(ControlTouchTest, TapLiftedBesideTheControlDoesNothing) {
    Add(ControlKind::PushButton, 1045, Rect::FromSize(65, 15, 50, 20));
    Own.Press(70, 20);
    Own.Release(70, 60);
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Page.Count(WM_COMMAND), 0);
    EXPECT_EQ(Page.Count(WM_LBUTTONUP), 0);
}

} // namespace

} // namespace tavo::headless
