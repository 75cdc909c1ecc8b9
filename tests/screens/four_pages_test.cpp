// The program itself on a screen in memory: all four pages, reached by taps on their tabs. With TAVO_SCREENS set to a
// folder the screens are written there, to be looked at.
#include "app/start.h"
#include "host/shell/chrome/chrome.h"
#include "res/resource_ids.h"
#include "tests/screens/memory_device.h"
#include "tests/support/test_device.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace tavo::memory {

namespace {

constexpr Color kWhite = Color::FromRgb(255, 255, 255);
constexpr Color kBlack = Color::FromRgb(0, 0, 0);
constexpr Color kBarBlue = Color::FromRgb(38, 100, 180);
constexpr Color kTodayBlue = Color::FromRgb(70, 163, 250);
constexpr Color kNumberBlue = Color::FromRgb(20, 51, 150);
constexpr Color kControlText = Color::FromRgb(30, 37, 44);

constexpr Rect kFirstBox{18, 60, 31, 73}; // of the settings page's check boxes

// Below the middle of the tabs' edge: white where the page of the tab is shown.
constexpr Point BelowTabEdge(int tab) {
    return {60 * tab + 6, 272};
}

std::u16string NameOf(int tab) {
    constexpr std::u16string_view names[] = {u"Clock", u"Schedule", u"Calendar", u"Settings"};
    return std::u16string(names[tab]);
}

// By the scale of the screen. Wednesday, 17 November 2004, 10:00.
class FourPages : public ::testing::TestWithParam<int> {
  protected:
    FourPages() {
        Device.Do([this] { Device.Host.SetScale(GetParam()); });
    }

    void Do(std::function<void()> step) { Device.Do(std::move(step)); }

    void ShowPage(int tab) {
        Do([this, tab] {
            const std::optional<PaintedItem> item = Device.FindItem(PaintedRole::Tab, NameOf(tab));
            ASSERT_TRUE(item);
            Device.Tap(item->Bounds);
        });
    }

    void TapButton(std::u16string name) {
        Do([this, name = std::move(name)] {
            const std::optional<PaintedItem> item = Device.FindItem(PaintedRole::Button, name);
            ASSERT_TRUE(item);
            Device.Tap(item->Bounds);
        });
    }

    // What is to be seen by then.
    void Look(std::string name, std::function<void(const Screenshot&)> judge) {
        Do([this, name = std::move(name), judge = std::move(judge)] {
            ++Looks;
            const char* folder = std::getenv("TAVO_SCREENS");
            const std::string file = name + '@' + std::to_string(GetParam()) + ".png";
            EXPECT_TRUE(folder == nullptr || Device.SaveScreen(std::string(folder) + '/' + file));
            judge(Device.Look());
        });
    }

    void Run(int looks) {
        EXPECT_EQ(RunTavoCalendar(Device.Host), kScriptEnded);
        EXPECT_EQ(Looks, looks);
    }

    std::u16string Caption() { return Device.Host.Chrome().Navigation.Title(); }

    MemoryDevice Device;
    int Looks = 0;
};

TEST_P(FourPages, EachTabShowsItsPageInTheDevicesOwnFrame) {
    constexpr int tabs[] = {2, 0, 3, 1};
    for (const int tab : tabs) {
        ShowPage(tab);
        Look("tab" + std::to_string(tab), [this, tab](const Screenshot& shot) {
            EXPECT_EQ(Caption(), NameOf(tab));
            EXPECT_EQ(shot.At({120, 4}), kBarBlue);
            EXPECT_GT(shot.Count(kWhite, {8, 6, 90, 20}), 40);    // the caption's letters
            EXPECT_GT(shot.Count(kWhite, {220, 6, 234, 20}), 10); // ×
            EXPECT_NE(shot.At({120, 316}), kWhite);               // the menu strip
            for (int other = 0; other < 4; ++other) {
                const std::optional<PaintedItem> item = Device.FindItem(PaintedRole::Tab, NameOf(other));
                ASSERT_TRUE(item);
                EXPECT_EQ(item->Selected, other == tab);
                EXPECT_EQ(shot.At(BelowTabEdge(other)) == kWhite, other == tab) << other;
            }
        });
    }
    Run(4);
}

TEST_P(FourPages, NoTwoPagesLookAlike) {
    std::vector<Screenshot> shots;
    for (int tab = 0; tab < 4; ++tab) {
        ShowPage(tab);
        Look("page" + std::to_string(tab), [&shots](const Screenshot& shot) { shots.push_back(shot); });
    }
    Run(4);
    ASSERT_EQ(shots.size(), 4u);
    for (std::size_t one = 0; one < shots.size(); ++one) {
        for (std::size_t other = one + 1; other < shots.size(); ++other) {
            EXPECT_GT(shots[one].CountDifferences(shots[other]), 2000) << one << ", " << other;
        }
    }
}

TEST_P(FourPages, TheClockHasADialAndHands) {
    Look("clock", [this](const Screenshot& shot) {
        EXPECT_EQ(Caption(), u"Clock");
        EXPECT_TRUE(Device.FindItem(PaintedRole::Header, u"Wed, Nov, 17, 2004"));
        EXPECT_GT(shot.Count(kBlack, {20, 36, 190, 56}), 100);      // the date
        EXPECT_GT(shot.Count(kNumberBlue, {100, 65, 140, 95}), 10); // 12, at the top
        EXPECT_NE(shot.At({23, 161}), kWhite);                      // within the dial, at the left
        EXPECT_EQ(shot.At({23, 64}), kWhite);                       // beside it
        const auto countAt = [&](int hourX, int hourY) {            // what is neither the dial's own colour nor white
            const Rect around{hourX - 6, hourY - 6, hourX + 6, hourY + 6};
            return 144 - shot.Count(shot.At({120, 200}), around);
        };
        EXPECT_GT(countAt(100, 150), 20); // the hour hand points to ten
        EXPECT_EQ(countAt(142, 150), 0);  // and not to two
    });
    Run(1);
}

TEST_P(FourPages, ScheduleListsWhatIsInTheStore) {
    ASSERT_EQ(Device.Host.CoInitializeEx(), Status::Ok);
    test::StoreWords words(Device.Host);
    words.GivenAppointment(u"Dentist", test::At(2004, 11, 18, 9), test::At(2004, 11, 18, 10));
    ShowPage(1);
    TapButton(u"Previous kind"); // the last kind: appointments
    Look("schedule", [this](const Screenshot& shot) {
        EXPECT_TRUE(Device.FindItem(PaintedRole::Header, u"Appointment"));
        const std::optional<PaintedItem> row = Device.FindItem(PaintedRole::Row, u"Dentist");
        ASSERT_TRUE(row);
        EXPECT_EQ(row->Bounds.Left, 0);
        const Rect bounds = row->Bounds;
        EXPECT_GT(shot.Count(kBlack, bounds), 40); // its words
        EXPECT_GT(shot.Count(kWhite, bounds), bounds.Width() * bounds.Height() / 2);
        EXPECT_EQ(shot.Count(kBlack, {4, bounds.Bottom + 30, 200, 260}), 0); // there is no other
    });
    Run(1);
}

TEST_P(FourPages, TheCalendarMarksToday) {
    ShowPage(2);
    Look("calendar", [](const Screenshot& shot) {
        const auto cellOf = [](int row, int column) {
            return Rect::FromSize(4 + 33 * column, kClientArea.Top + 58 + 26 * row, 33, 26);
        };
        EXPECT_EQ(shot.Count(kBlack, Rect::FromSize(4, cellOf(3, 0).Top, 232, 1)), 232); // a line of the grid
        EXPECT_GT(shot.Count(kTodayBlue, cellOf(2, 3)), 400);                            // Wednesday the 17th
        EXPECT_EQ(shot.Count(kTodayBlue, cellOf(2, 2)), 0);
        EXPECT_GT(shot.Count(kWhite, cellOf(2, 2)), 600);
        EXPECT_GT(shot.Count(kBlack, cellOf(2, 2)), 60); // its edges and its number
    });
    Run(1);
}

TEST_P(FourPages, SettingsHasControlsThatTakeTaps) {
    ShowPage(3);
    Look("settings", [](const Screenshot& shot) {
        EXPECT_EQ(shot.Count(kControlText, kFirstBox), 0);
        EXPECT_GT(shot.Count(kControlText, {35, 58, 190, 75}), 50); // its text
    });
    Do([this] { Device.Tap(kFirstBox); });
    Look("checked", [](const Screenshot& shot) { EXPECT_GT(shot.Count(kControlText, kFirstBox), 30); });
    Run(2);
}

TEST_P(FourPages, AMenuOpensAboveItsNameAndItsRowsAreTapped) {
    Screenshot before;
    Rect menu;
    Do([&] {
        before = Device.Look();
        Device.Tap(Device.Host.Chrome().Menus.MenuPlace(0));
    });
    Look("menu", [&](const Screenshot& shot) {
        menu = Device.Host.Popup.Bounds();
        EXPECT_FALSE(menu.IsEmpty());
        EXPECT_EQ(menu.Bottom, kMenuBar.Top);
        EXPECT_GT(shot.CountDifferences(before), 500);
        EXPECT_GT(shot.Count(kControlText, menu), 100);
        Device.TapRow(kCommandGoToDate);
    });
    Look("date", [&](const Screenshot& shot) {
        EXPECT_TRUE(Device.Host.Popup.Bounds().IsEmpty());
        EXPECT_EQ(Caption(), u"Go to date");
        EXPECT_GT(shot.CountDifferences(before), 5000);
    });
    Run(2);
}

INSTANTIATE_TEST_SUITE_P(Scale, FourPages, ::testing::Values(1, 2));

} // namespace

} // namespace tavo::memory
