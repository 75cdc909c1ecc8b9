// Menu bars and tracked menus.
#include "tests/conformance/conformance_test.h"

namespace tavo::conformance {

namespace {

constexpr int kAbout = 57664;
constexpr int kExit = 57665;
constexpr int kZoom = 32787;
constexpr int kToggle = 205;
constexpr int kPictures = 203;
constexpr int kFirstHoliday = 33201;
constexpr int kAddMemo = 32798;

MenuItem Entry(int id, std::u16string text) {
    MenuItem item;
    item.Id = id;
    item.Text = std::move(text);
    return item;
}

MenuItem Submenu(std::u16string text, std::vector<MenuItem> children) {
    MenuItem item;
    item.Text = std::move(text);
    item.IsPopup = true;
    item.Enabled = !children.empty();
    item.Children = std::move(children);
    return item;
}

MenuItem Separator() {
    MenuItem item;
    item.IsSeparator = true;
    return item;
}

std::vector<MenuItem> DayMenu() {
    return {Submenu(u"Alarm: 0", {}),
            Submenu(u"Holiday: 2", {Entry(kFirstHoliday, u"Easter"), Entry(kFirstHoliday + 1, u"Easter Monday")}),
            Separator(), Entry(kAddMemo, u"Add memo...")};
}

class MenuConformance : public ConformanceTest {
  protected:
    MenuConformance() {
        MenuItem zoom = Entry(kZoom, u"75%");
        zoom.Shortcut = u"Ctrl+7";
        Bar = Host.Menus().SHCreateMenuBar(
            Page.Handle(), {Submenu(u"Tools", {Entry(kAbout, u"About..."), Separator(), Entry(kExit, u"Exit")}),
                            Submenu(u"View", {Submenu(u"Zoom", {zoom})})});
        Host.Menus().AddButtons(Bar, {{kToggle, kPictures, 0, 16, u"Pen"}});
    }

    // A tap on the page tracks the day menu and keeps what came of it.
    void TrackOnTap() {
        Page.Log.Hook = [this](const Message& message) {
            if (message.Number == WM_LBUTTONDOWN) {
                Chosen.push_back(Pump.TrackPopupMenu(Page.Handle(), DayMenu(), {100, 150}, MenuAlign::Left));
            }
        };
        Steps.Tap(95, 121);
    }

    WindowHandle Bar = WindowHandle::None;
    std::vector<int> Chosen;
};

TEST_F(MenuConformance, ChoiceFromTheBarReachesThePage) {
    Steps.ChooseMenu(0, kAbout);
    ASSERT_TRUE(Steps.Finish(Pump));
    ASSERT_EQ(Page.Log.Count(WM_COMMAND), 1);
    EXPECT_EQ(Page.Log.All.back(), (Message{Page.Handle(), WM_COMMAND, kAbout, BN_CLICKED, 1, {}}));
}

TEST_F(MenuConformance, MenuOpensAsTheProgramLeftItAtItsNotice) {
    Page.Log.Hook = [&](const Message& message) {
        if (message.Number == WM_INITMENUPOPUP) {
            EXPECT_EQ(message.Id, 0);
            EXPECT_TRUE(Driver->OpenBarItems().empty());
            Host.Menus().SetMenuItem(Bar, kExit, false, true);
            Host.Menus().SetMenuItemText(Bar, kAbout, u"About Scratch...");
        }
    };
    Steps.Do([&] { Driver->OpenBarMenu(0); });
    Steps.Do([&] {
        const std::vector<MenuItem> items = Driver->OpenBarItems();
        ASSERT_EQ(items.size(), 3u);
        EXPECT_EQ(items[0].Text, u"About Scratch...");
        EXPECT_TRUE(items[0].Enabled);
        EXPECT_TRUE(items[1].IsSeparator);
        EXPECT_FALSE(items[2].Enabled);
        EXPECT_TRUE(items[2].Checked);
        Driver->ChooseCommand(kExit); // grey: nothing happens
    });
    Steps.Key(VK_ESCAPE);
    Steps.Do([&] { EXPECT_TRUE(Driver->OpenBarItems().empty()); });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Page.Log.Count(WM_COMMAND), 0);
    EXPECT_EQ(Page.Log.Count(WM_CLOSE), 0); // Escape closed the menu only
}

TEST_F(MenuConformance, SubmenusOfTheBarCanBeChosenFrom) {
    Steps.ChooseMenu(1, kZoom);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Page.Log.Count(WM_COMMAND, kZoom, BN_CLICKED), 1);
}

TEST_F(MenuConformance, ButtonOfTheBarReachesThePage) {
    Steps.Do([&] { Driver->ChooseCommand(kToggle); });
    Steps.Do([&] { Host.Menus().SetMenuItem(Bar, kToggle, false, true); });
    Steps.Do([&] { Driver->ChooseCommand(kToggle); });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Page.Log.Count(WM_COMMAND, kToggle, BN_CLICKED), 1);
}

TEST_F(MenuConformance, ShortcutAsksTheProgramFirst) {
    Steps.Key('7', kModifierControl);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Page.Log.Count(WM_INITMENUPOPUP, 1, 0), 1);
    EXPECT_EQ(Page.Log.Count(WM_COMMAND, kZoom, BN_CLICKED), 1);
    Page.Log.Hook = [&](const Message& message) {
        if (message.Number == WM_INITMENUPOPUP) {
            Host.Menus().SetMenuItem(Bar, kZoom, false, false);
        }
    };
    Steps.Key('7', kModifierControl);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Page.Log.Count(WM_COMMAND, kZoom, BN_CLICKED), 1);
}

TEST_F(MenuConformance, BarIsShownOnlyWhileItsPageIsOnTop) {
    OpenDialogOnTap();
    Steps.Do([&] { Driver->OpenBarMenu(0); });
    Steps.Do([&] {
        EXPECT_TRUE(Driver->OpenBarItems().empty());
        End(IDOK);
    });
    Steps.Do([&] { Driver->OpenBarMenu(0); });
    Steps.Do([&] { EXPECT_FALSE(Driver->OpenBarItems().empty()); });
    Steps.Key(VK_ESCAPE);
    ASSERT_TRUE(Steps.Finish(Pump));
}

TEST_F(MenuConformance, TrackedMenuShowsEverythingItWasGivenAndAnswers) {
    TrackOnTap();
    Steps.Do([&] {
        EXPECT_EQ(Driver->TrackedItems(), DayMenu());
        EXPECT_TRUE(Chosen.empty()); // the program waits in the menu
    });
    Steps.ChooseTracked(kFirstHoliday + 1);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Chosen, std::vector<int>{kFirstHoliday + 1});
    EXPECT_TRUE(Driver->TrackedItems().empty());
}

TEST_F(MenuConformance, EscapeAnswersNothing) {
    TrackOnTap();
    Steps.Key(VK_ESCAPE);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Chosen, std::vector<int>{0});
    EXPECT_EQ(Page.Log.Count(WM_CLOSE), 0);
}

TEST_F(MenuConformance, TapBesideTheMenuOnlyClosesIt) {
    TrackOnTap();
    Steps.Tap(2, 2);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Chosen, std::vector<int>{0});
    EXPECT_EQ(Page.Log.Count(WM_LBUTTONDOWN), 1); // the one that opened it
}

TEST_F(MenuConformance, ProgramCanCloseTheMenu) {
    TrackOnTap();
    Steps.Do([&] { Host.Menus().EndMenu(); });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Chosen, std::vector<int>{0});
}

TEST_F(MenuConformance, OnlyOneMenuAtATime) {
    TrackOnTap();
    Steps.Do([&] {
        EXPECT_FALSE(Host.Menus().TrackPopupMenu(Page.Handle(), DayMenu(), {0, 0}, MenuAlign::Left));
        EXPECT_EQ(Pump.TrackPopupMenu(Page.Handle(), DayMenu(), {0, 0}, MenuAlign::Left), 0);
    });
    Steps.ChooseTracked(kAddMemo);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Chosen, std::vector<int>{kAddMemo});
}

TEST_F(MenuConformance, MenuTrackedInsideADialogThatAMenuOpened) {
    // A menu's choice opens a dialog, whose button tracks a menu of its own.
    Page.Log.Hook = [this](const Message& message) {
        if (message.Number == WM_LBUTTONDOWN &&
            Pump.TrackPopupMenu(Page.Handle(), DayMenu(), {10, 40}, MenuAlign::Right) == kAddMemo) {
            ScratchDialog dialog(Pump);
            Dialog = &dialog;
            dialog.Log.Hook = [&](const Message& inner) {
                if (inner.Id == kPush) {
                    Chosen.push_back(Pump.TrackPopupMenu(dialog.Handle(), DayMenu(), {20, 60}, MenuAlign::Left));
                }
            };
            Results.push_back(dialog.DoModal());
            Dialog = nullptr;
        }
    };
    Steps.Tap(95, 121);
    Steps.ChooseTracked(kAddMemo);
    TapControl(kPush);
    Steps.Do([&] { EXPECT_EQ(Driver->TrackedItems(), DayMenu()); });
    Steps.ChooseTracked(kFirstHoliday);
    Steps.Do([&] { End(IDOK); });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Chosen, std::vector<int>{kFirstHoliday});
    EXPECT_EQ(Results, std::vector<int>{IDOK});
}

TEST_F(MenuConformance, PaintsAndTimersGoOnBehindAnOpenMenu) {
    constexpr int timer = 1003;
    TrackOnTap();
    int paints = 0;
    Steps.Do([&] {
        paints = Page.Log.Count(WM_PAINT);
        Host.Windows().SetTimer(View.Handle(), timer, 30);
        Page.Invalidate();
    });
    Steps.Wait(100);
    Steps.Do([&] {
        EXPECT_EQ(Page.Log.Count(WM_PAINT), paints + 1);
        EXPECT_GE(View.Log.Count(WM_TIMER), 1);
    });
    Steps.ChooseTracked(0);
    ASSERT_TRUE(Steps.Finish(Pump));
}

} // namespace

} // namespace tavo::conformance
