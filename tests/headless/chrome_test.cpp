// The device's own chrome on the scripted device: what it shows, and taps on it where it is.
#include "host/shell/chrome/chrome.h"
#include "tests/headless/device_page.h"

namespace tavo::headless {

namespace {

class HeadlessChromeTest : public DevicePageTest {
  protected:
    std::vector<std::u16string> Names(const shell::ChromePart& part) {
        std::vector<std::u16string> names;
        for (const PaintedItem& item : part.Items()) {
            names.push_back(item.Name);
        }
        return names;
    }

    shell::Chrome& Chrome() { return Own.Host().Chrome(); }
};

TEST_F(HeadlessChromeTest, TheNavigationBarShowsThePageAndTakesTapsWhereItsCrossIs) {
    EXPECT_EQ(Names(Chrome().Navigation), (std::vector<std::u16string>{u"Schedule", u"Close"}));
    Own.TapScreen({227, 13});
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Page.Count(WM_CLOSE), 1);
    EXPECT_EQ(Page.Count(WM_LBUTTONDOWN), 0);
}

TEST_F(HeadlessChromeTest, TheCaptionFollowsThePage) {
    Own.Host().Windows().SetWindowTextW(Page.Handle(), u"Month");
    EXPECT_EQ(Chrome().Navigation.Title(), u"Month");
}

TEST_F(HeadlessChromeTest, AStylusThatSlidesOffTheCrossClosesNothing) {
    Own.Press(227, 13 - kClientArea.Top);
    Own.Do([&] { EXPECT_EQ(Chrome().Navigation.Draw().size(), 5u); }); // one more piece: it looks pressed
    Own.MoveTo(100, 100);
    Own.Do([&] { EXPECT_EQ(Chrome().Navigation.Draw().size(), 4u); });
    Own.Release(100, 100);
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Page.Count(WM_CLOSE), 0);
    EXPECT_EQ(Page.Count(WM_LBUTTONUP), 0); // the page under the stylus never had it
}

TEST_F(HeadlessChromeTest, PressingCloseTapsTheCrossSoABoxKeepsItAway) {
    Page.Hook = [&](const Message& message) {
        if (message.Number == WM_LBUTTONDOWN) {
            Pump.ShowMessageBox(Page.Handle(), {u"Saved.", u"", {}, {}});
        }
    };
    Own.Tap(2, 70);
    Own.PressClose();
    Own.Do([&] { EXPECT_EQ(Own.Host().State.Menus.Boxes.size(), 1u); });
    Own.AnswerBox(IDOK);
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Page.Count(WM_CLOSE), 0);
}

TEST_F(HeadlessChromeTest, TheMenuStripOpensAMenuWhereItsTitleIs) {
    MenuItem entry;
    entry.Id = 33001;
    entry.Text = u"New";
    MenuItem menu;
    menu.Text = u"Tools";
    menu.IsPopup = true;
    menu.Children = {entry};
    Own.Host().Menus().SHCreateMenuBar(Page.Handle(), {menu});
    EXPECT_EQ(Names(Chrome().Menus), std::vector<std::u16string>{u"Tools"});
    Own.TapScreen({Chrome().Menus.MenuPlace(0).Right - 1, 300});
    Own.Do([&] { EXPECT_TRUE(Own.Host().State.Menus.BarMenu.has_value()); });
    Own.TapScreen({120, 100}); // beside it
    Own.Do([&] { EXPECT_FALSE(Own.Host().State.Menus.IsMenuOpen()); });
    Own.TapScreen({Chrome().Menus.MenuPlace(0).Right, 300}); // beside its title
    Own.Do([&] { EXPECT_FALSE(Own.Host().State.Menus.IsMenuOpen()); });
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Page.Count(WM_INITMENUPOPUP), 1);
    EXPECT_EQ(Page.Count(WM_LBUTTONDOWN), 0);
}

TEST_F(HeadlessChromeTest, ABoxIsAnsweredWhereItsButtonsAreAndCoversTheRest) {
    int answer = 0;
    Page.Hook = [&](const Message& message) {
        if (message.Number == WM_LBUTTONDOWN) {
            answer = Pump.ShowMessageBox(Page.Handle(), {u"Delete?", u"", MessageBoxButtons::YesNo, {}});
        }
    };
    Own.Tap(2, 70);
    Own.TapScreen({120, 300}); // the strip beneath
    Own.Tap(2, 70);
    Own.Do([&] {
        EXPECT_TRUE(Chrome().Box.IsOpen());
        EXPECT_EQ(Names(Chrome().Box), (std::vector<std::u16string>{u"Tavo Calendar", u"Delete?", u"Yes", u"No"}));
        const Rect no = Chrome().Box.ButtonPlace(IDNO);
        Own.TapScreen({no.Right - 1, no.Bottom - 1});
    });
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(answer, IDNO);
    EXPECT_EQ(Page.Count(WM_LBUTTONDOWN), 1);
}

} // namespace

} // namespace tavo::headless
