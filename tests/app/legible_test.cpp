// What is written can be read: the contrast of every text with the ground it was drawn on, by the calls that drew it.
#include "res/resource_ids.h"
#include "store/page_number.h"
#include "tests/schedule/schedule_desk.h"
#include "tests/support/contrast.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

namespace tavo::test {
namespace {

using headless::DrawCall;
using headless::DrawKind;
using testing::IsEmpty;
using testing::IsSubsetOf;

constexpr double kReadable = 4.5;

class Legible : public testing::Test {
  protected:
    Legible() { EXPECT_TRUE(Desk.Start()); }

    static std::string Hex(Color color) {
        DrawCall fill;
        fill.Ink = color;
        const std::string text = ToText(fill);
        return text.substr(text.find('#'));
    }

    // Everything that the window on top and its painted children drew since it was last presented: the pairs of ink and
    // ground that are hard to read.
    void LookAtTheScreen() {
        headless::HeadlessHost& host = Desk.Device.Host();
        const WindowHandle top = Desk.Device.See.Top();
        std::vector<WindowHandle> windows = host.State.Tree.ChildrenOf(top);
        windows.push_back(top);
        for (const WindowHandle window : windows) {
            if (host.State.Tree.IsVisible(window) && host.Drawn.LastFrame(window) != nullptr) {
                LookAt(host.Drawn.LastFrame(window)->Calls);
            }
        }
    }

    void LookAt(const headless::Transcript& calls) {
        for (std::size_t index = 0; index < calls.size(); ++index) {
            if (calls[index].Kind != DrawKind::Text || calls[index].Text.empty()) {
                continue;
            }
            const Point middle{(calls[index].Area.Left + calls[index].Area.Right) / 2,
                               (calls[index].Area.Top + calls[index].Area.Bottom) / 2};
            Color ground = Color::FromRgb(255, 255, 255);
            for (std::size_t before = 0; before < index; ++before) {
                if (calls[before].Kind == DrawKind::Fill && calls[before].Area.Contains(middle)) {
                    ground = calls[before].Ink;
                }
            }
            ++Texts;
            if (ContrastOf(calls[index].Ink, ground) < kReadable) {
                Hard.insert(Hex(calls[index].Ink) + " on " + Hex(ground));
            }
        }
    }

    // Of the Schedule page, each with its first row selected.
    void LookAtTheKinds() {
        for (int kind = 0; kind < 4; ++kind) {
            Desk.Device.Key(VK_DOWN);
            ASSERT_TRUE(Desk.Settle());
            LookAtTheScreen();
            Desk.Device.Key(VK_RIGHT);
            ASSERT_TRUE(Desk.Settle());
        }
    }

    ScheduleDesk Desk;
    std::set<std::string> Hard;
    int Texts = 0;
};

TEST_F(Legible, ContrastIsMeasuredFromOneToTwentyOne) {
    EXPECT_NEAR(ContrastOf(Color{0}, Color{0xFFFFFF}), 21.0, 0.01);
    EXPECT_NEAR(ContrastOf(Color{0xFFFFFF}, Color{0xFFFFFF}), 1.0, 0.01);
    EXPECT_NEAR(ContrastOf(Color::FromRgb(118, 118, 118), Color{0xFFFFFF}), 4.54, 0.01);
}

TEST_F(Legible, EveryTextOfEveryKindsEditor) {
    for (int key = '1'; key <= '4'; ++key) {
        Desk.Device.Key(key, kModifierControl);
        Desk.Device.Do([this] {
            ASSERT_TRUE(Desk.Device.See.IsDialogOpen());
            LookAtTheScreen(); // the greyed reminder too
        });
        Desk.Device.Key(VK_TAB); // a row that is shown
        Desk.Device.Do([this] { LookAtTheScreen(); });
        Desk.Device.Key(VK_ESCAPE);
        ASSERT_TRUE(Desk.Settle());
    }
    EXPECT_THAT(Hard, IsEmpty());
    EXPECT_GT(Texts, 80);
}

TEST_F(Legible, EveryTextOfTheListsButThatOfAnEmptyOne) {
    const std::set<std::string> fixed{"#CCCCCC on #FFFFFF"};
    Desk.Show(ItemKind::Alarm);
    LookAtTheKinds();
    EXPECT_EQ(Hard, fixed);
}

TEST_F(Legible, EveryTextOfListsWithRows) {
    for (const Oid oid : Desk.GivenAlarms(3)) {
        Desk.Tag(ItemKind::Holiday, oid);
        Desk.Tag(ItemKind::Anniversary, oid);
    }
    Desk.Show(ItemKind::Alarm);
    LookAtTheKinds();
    EXPECT_THAT(Hard, IsEmpty());
    EXPECT_GT(Texts, 35);
}

TEST_F(Legible, EveryTextOfTheOtherPagesAndOfAnItemsView) {
    Desk.GivenAppointment(u"Dentist", At(2004, 11, 3, 18), At(2004, 11, 3, 19));
    for (const PageNumber page : {PageNumber::Clock, PageNumber::Settings}) {
        Desk.ShowPage(page);
        LookAtTheScreen();
    }
    Desk.ShowPage(PageNumber::Clock);
    Desk.Device.Tap(215, 20); // digits
    ASSERT_TRUE(Desk.Settle());
    LookAtTheScreen();
    Desk.ShowPage(PageNumber::Calendar);
    Desk.Device.Key(VK_RETURN);
    Desk.Device.ChooseTracked(kCommandFirstSchedule);
    Desk.Device.Do([this] {
        ASSERT_TRUE(Desk.Device.See.IsDialogOpen());
        LookAtTheScreen();
    });
    Desk.Device.Key(VK_ESCAPE);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Hard, IsEmpty());
    EXPECT_GT(Texts, 5);
}

// The month's colours are the device's. These of them are hard to read, and no others may come to them; what a number's
// colour says is in its cell's name too.
TEST_F(Legible, OfTheMonthAllButTheColoursThatAreFixed) {
    const std::set<std::string> fixed{"#46A3FA on #FFFFFF", "#46A3FA on #CCCCCC",  // Saturdays
                                      "#969696 on #FFFFFF", "#969696 on #CCCCCC",  // days of other months
                                      "#FF0000 on #FFFFFF", "#FF0000 on #CCCCCC",  // Sundays and holidays
                                      "#FF0000 on #46A3FA", "#FFFFFF on #46A3FA"}; // the selected day
    Desk.Tag(ItemKind::Holiday, Desk.GivenAllDay(u"Feast", At(2004, 11, 3)));
    Desk.ShowPage(PageNumber::Calendar);
    Desk.TapAside(50, 100);
    ASSERT_TRUE(Desk.Settle());
    LookAtTheScreen();
    Desk.TapAside(110, 70); // the holiday
    ASSERT_TRUE(Desk.Settle());
    LookAtTheScreen();
    EXPECT_THAT(Hard, IsSubsetOf(fixed));
    EXPECT_EQ(Hard.count("#FF0000 on #46A3FA"), 1U);
    EXPECT_EQ(Desk.CellName(0, 3), u"2004-11-03: holiday");
}

} // namespace
} // namespace tavo::test
