// The main view: its pages, the page bar and change notices.
#include "res/resource_ids.h"
#include "tests/support/folder_probe.h"
#include "tests/support/running_program.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tavo::test {
namespace {

class MainView : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(Program.Start()); }

    void TapBar(int x, int y) {
        Program.Device.Tap(x, y);
        ASSERT_TRUE(Program.Settle());
    }

    std::u16string Page() const { return Program.Device.See.Caption(); }

    void PostNotice() {
        Message notice;
        notice.Window = Program.State().MainView;
        notice.Number = WM_USER + 1000;
        Program.Device.Host().Queue().PostMessageW(notice);
    }

    int TimesPresented() const { return Program.Device.See.LastFrame()->Count; }

    RunningProgram Program;
};

TEST_F(MainView, ThePageBarIsFourCellsOfSixtyPixels) {
    TapBar(60, 242);
    EXPECT_EQ(Page(), u"Schedule");
    TapBar(59, 242);
    EXPECT_EQ(Page(), u"Clock");
    TapBar(120, 266);
    EXPECT_EQ(Page(), u"Calendar");
    TapBar(239, 250);
    EXPECT_EQ(Page(), u"Settings");
    EXPECT_EQ(Program.State().CurrentPage, PageNumber::Settings);
}

TEST_F(MainView, TheEdgesOfThePageBarAreNoPressOnIt) {
    TapBar(150, 241);
    EXPECT_EQ(Page(), u"Clock");
    TapBar(150, 267);
    EXPECT_EQ(Page(), u"Clock");
}

TEST_F(MainView, APressOnTheShownPagesCellDoesNothing) {
    for (int page = 0; page < 4; ++page) {
        Program.ShowPage(page);
        const std::u16string shown = Page();
        const int before = TimesPresented();
        TapBar(page * 60 + 30, 250);
        EXPECT_EQ(TimesPresented(), before) << page;
        EXPECT_EQ(Page(), shown);
        EXPECT_EQ(Program.State().CurrentPage, static_cast<PageNumber>(page));
    }
}

TEST_F(MainView, EachPageHighlightsItsOwnTab) {
    const std::vector<int> tabs{kBitmapTabClock, kBitmapTabSchedule, kBitmapTabCalendar, kBitmapTabSettings};
    for (int page = 0; page < 4; ++page) {
        Program.ShowPage(page);
        for (int other = 0; other < 4; ++other) {
            EXPECT_EQ(Program.Device.See.ShowsBitmap(tabs[static_cast<std::size_t>(other)]), other == page)
                << "page " << page << ", tab " << other;
        }
    }
}

TEST_F(MainView, TheHighlightedTabLiesInItsOwnCell) {
    for (int page = 0; page < 4; ++page) {
        Program.ShowPage(page);
        std::string bar;
        for (const headless::Placed& placed : Program.Device.See.Visible()) {
            if (placed.Area.Top == 241) {
                EXPECT_EQ(placed.Area.Bottom, 267) << page;
                bar += std::to_string(placed.Bitmap) + " at " + std::to_string(placed.Area.Left) + "; ";
            }
        }
        const std::vector<std::string> bars{"139 at 0; 144 at 0; ", "139 at 0; 140 at 60; ", "139 at 0; 141 at 120; ",
                                            "139 at 0; 142 at 180; "};
        EXPECT_EQ(bar, bars[static_cast<std::size_t>(page)]);
    }
}

TEST_F(MainView, ControlAndPageKeysGoFromPageToPage) {
    Program.Device.Key(VK_NEXT, kModifierControl);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Page(), u"Schedule");
    Program.Device.Key(VK_PRIOR, kModifierControl);
    Program.Device.Key(VK_PRIOR, kModifierControl);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Page(), u"Settings");
}

TEST_F(MainView, ControlAndTabGoToTheNextPageAndWithShiftToThePreviousOne) {
    const auto press = [&](int modifiers) {
        Program.Device.Key(VK_TAB, modifiers);
        EXPECT_TRUE(Program.Settle());
        return Page();
    };
    for (const std::u16string_view next : {u"Schedule", u"Calendar", u"Settings", u"Clock"}) {
        EXPECT_EQ(press(kModifierControl), next);
    }
    for (const std::u16string_view previous : {u"Settings", u"Calendar", u"Schedule", u"Clock"}) {
        EXPECT_EQ(press(kModifierControl | kModifierShift), previous);
    }
    EXPECT_EQ(press(kModifierShift), u"Clock");
}

TEST_F(MainView, TenNoticesWithinHalfASecondCauseOneRefresh) {
    Program.ShowPage(PageNumber::Calendar);
    const AskedRestrictions asked(Program.State().Store.CalendarFolder);
    const int before = TimesPresented();
    for (int i = 0; i < 10; ++i) {
        Program.Device.Do([this] { PostNotice(); });
        Program.Device.AdvanceClock(40);
    }
    Program.Device.AdvanceClock(459); // with the last 40: just short of half a second
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(TimesPresented(), before);
    Program.Device.AdvanceClock(1);
    Program.Device.AdvanceClock(2000);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(TimesPresented(), before + 2); // the bare grid, and the grid with its marks
    // The lists of the hidden Schedule page, the next reminder's sound and the month, each once.
    EXPECT_EQ(asked.Texts, (std::vector<std::u16string>{
                               u"[Start] >= 10/3/2004 and [Start] <= 12/3/2004 and [End] >= 11/3/2004",
                               u"[Start] >= 11/3/2004 and [Start] <= 11/4/2004\n",
                               u"[Start] >= 10/1/2004 and [Start] <= 12/12/2004 and [End] >= 10/31/2004\n"}));
}

TEST_F(MainView, ANoticeShowsWhatChangedInTheStore) {
    Program.ShowPage(PageNumber::Calendar);
    EXPECT_EQ(Program.CellName(0, 3), u"2004-11-03");
    Program.GivenAppointment(u"Dentist", At(2004, 11, 3, 9), At(2004, 11, 3, 10));
    Program.Device.Do([this] { PostNotice(); });
    Program.Device.AdvanceClock(500);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.CellName(0, 3), u"2004-11-03: appointment");
}

TEST_F(MainView, NoticesAreIgnoredWhileRefreshIsSuppressed) {
    Program.ShowPage(PageNumber::Calendar);
    Program.State().RefreshSuppressed = true;
    const int before = TimesPresented();
    Program.Device.Do([this] { PostNotice(); });
    Program.Device.AdvanceClock(5000);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(TimesPresented(), before);
}

TEST_F(MainView, ANoticeWhileRefreshIsSuppressedEndsTheWaitOfTheOneBefore) {
    Program.ShowPage(PageNumber::Calendar);
    const int before = TimesPresented();
    Program.Device.Do([this] { PostNotice(); });
    Program.Device.AdvanceClock(200);
    Program.Device.Do([this] {
        Program.State().RefreshSuppressed = true;
        PostNotice();
    });
    Program.Device.AdvanceClock(10);
    Program.Device.Do([this] { Program.State().RefreshSuppressed = false; });
    Program.Device.AdvanceClock(5000);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(TimesPresented(), before);
}

TEST_F(MainView, AChangeWithoutANoticeIsNotShownWhenThePageOpensAgain) {
    Program.ShowPage(PageNumber::Calendar);
    Program.ShowPage(PageNumber::Clock);
    Program.GivenAppointment(u"Dentist", At(2004, 11, 4, 9), At(2004, 11, 4, 10));
    Program.ShowPage(PageNumber::Calendar);
    EXPECT_EQ(Program.CellName(0, 4), u"2004-11-04");
}

TEST_F(MainView, TheCalendarOpensWithTheTodayOfThatMoment) {
    const Color today = Color::FromRgb(204, 204, 204);
    Program.ShowPage(PageNumber::Calendar);
    Program.TapAside(10, 200); // today's cell is the selected one no more
    Program.ShowPage(PageNumber::Clock);
    Program.Device.SetClock(At(2004, 11, 5, 9)); // sooner than any timer notices
    Program.ShowPage(PageNumber::Calendar);
    EXPECT_EQ(Program.Device.See.PixelAt(176, 64), today);
    EXPECT_NE(Program.Device.See.PixelAt(110, 64), today);
}

TEST_F(MainView, ANoticeWhileAnotherPageIsOnShowReachesTheCalendarWhenItOpens) {
    Program.ShowPage(PageNumber::Calendar);
    Program.ShowPage(PageNumber::Clock);
    Program.GivenAppointment(u"Dentist", At(2004, 11, 4, 9), At(2004, 11, 4, 10));
    Program.Device.Do([this] { PostNotice(); });
    Program.Device.AdvanceClock(500);
    ASSERT_TRUE(Program.Settle());
    Program.ShowPage(PageNumber::Calendar);
    EXPECT_EQ(Program.CellName(0, 4), u"2004-11-04: appointment");
}

TEST_F(MainView, AChangeByAnotherProcessReachesThePages) {
    Program.ShowPage(PageNumber::Calendar);
    Program.GivenAppointment(u"Dentist", At(2004, 11, 5, 9), At(2004, 11, 5, 10));
    Program.Device.ChangeStore();
    Program.Device.AdvanceClock(500);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.CellName(0, 5), u"2004-11-05: appointment");
}

TEST_F(MainView, EveryPageHasTheToolsMenuAndTheSchedulePageItsOwnToo) {
    for (int page = 0; page < 4; ++page) {
        Program.ShowPage(page);
        const shell::MenuBarState* bar = Program.Device.See.MenuBar();
        ASSERT_NE(bar, nullptr) << page;
        const bool isSchedule = page == 1;
        ASSERT_EQ(bar->Menus.size(), isSchedule ? 2U : 1U) << page;
        EXPECT_EQ(bar->Menus.back().Text, u"Tools");
        EXPECT_EQ(bar->Menus.front().Text, isSchedule ? u"schedule" : u"Tools");
    }
}

TEST_F(MainView, RestoredFromTheBackgroundItShowsThePageItHad) {
    Program.ShowPage(PageNumber::Settings);
    Program.Device.PressClose();
    ASSERT_TRUE(Program.Settle());
    EXPECT_TRUE(Program.Device.Host().State.Minimized);
    Program.Device.Restore();
    ASSERT_TRUE(Program.Settle());
    EXPECT_FALSE(Program.Device.Host().State.Minimized);
    EXPECT_EQ(Page(), u"Settings");
}

TEST_F(MainView, EscapeOnAPageHidesNothing) {
    for (const int page : {0, 1, 2, 3}) {
        Program.ShowPage(page);
        Program.Device.Key(VK_ESCAPE);
        Program.Device.Key(VK_ESCAPE);
        ASSERT_TRUE(Program.Settle());
        EXPECT_FALSE(Program.Device.Host().State.Minimized) << page;
    }
}

class RemindersSound : public MainView {
  protected:
    void GivenReminder(const SYSTEMTIME& start, std::u16string_view sound) {
        SYSTEMTIME end = start;
        end.Minute += 5;
        Program.GivenAppointment(u"Item", start, end, [sound](IAppointment& item) {
            EXPECT_EQ(item.put_ReminderSet(true), Status::Ok);
            EXPECT_EQ(item.put_ReminderSoundFile(sound), Status::Ok);
        });
    }

    void Pass(shell::Milliseconds span) {
        Program.Device.AdvanceClock(span);
        ASSERT_TRUE(Program.Settle());
    }

    std::u16string Wave() {
        return Program.Device.Host()
            .RegistryCalls.TextValue(u"\\ControlPanel\\Notifications\\Reminders", u"Wave")
            .value_or(u"none");
    }
};

TEST_F(RemindersSound, IsLookedForEachMinute) {
    GivenReminder(At(2004, 11, 4, 9), u"\\Windows\\Late.wav");
    Pass(59999);
    EXPECT_EQ(Wave(), u"none");
    Pass(1);
    EXPECT_EQ(Wave(), u"\\Windows\\Late.wav");
    GivenReminder(At(2004, 11, 3, 20), u"\\Windows\\Early.wav");
    Pass(59999);
    EXPECT_EQ(Wave(), u"\\Windows\\Late.wav");
    Pass(1);
    EXPECT_EQ(Wave(), u"\\Windows\\Early.wav");
}

TEST_F(RemindersSound, IsLookedForInTheBackgroundToo) {
    Program.Device.PressClose();
    ASSERT_TRUE(Program.Settle());
    ASSERT_TRUE(Program.Device.Host().State.Minimized);
    GivenReminder(At(2004, 11, 4, 9), u"\\Windows\\Late.wav");
    Pass(60000);
    EXPECT_EQ(Wave(), u"\\Windows\\Late.wav");
}

TEST_F(RemindersSound, IsLookedForAtEachChange) {
    GivenReminder(At(2004, 11, 4, 9), u"\\Windows\\Late.wav");
    PostNotice();
    Pass(500);
    EXPECT_EQ(Wave(), u"\\Windows\\Late.wav");
    GivenReminder(At(2004, 11, 3, 20), u"\\Windows\\Early.wav");
    Program.Device.ChangeStore(); // the change of another process
    Pass(500);
    EXPECT_EQ(Wave(), u"\\Windows\\Early.wav");
}

TEST_F(RemindersSound, IsLookedForAtOnceWhenTheCompanionGoesOn) {
    Program.ShowPage(PageNumber::Calendar);
    GivenReminder(At(2004, 11, 4, 9), u"\\Windows\\Late.wav");
    const int before = TimesPresented();
    Program.Device.GoOnReminding();
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Wave(), u"\\Windows\\Late.wav");
    Pass(500);
    EXPECT_EQ(TimesPresented(), before); // nothing that is on show has changed
}

} // namespace
} // namespace tavo::test
