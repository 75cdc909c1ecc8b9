// The hidden day list of the month page and its scroll bar: always the selected day's.
#include "res/resource_ids.h"
#include "tests/support/folder_probe.h"
#include "tests/support/running_program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace tavo::test {
namespace {

constexpr int kScrollBar = 1021;

using BarState = std::array<int, 3>; // minimum, maximum and position

class CalendarPageList : public testing::Test {
  protected:
    void Open() {
        ASSERT_TRUE(Program.Start());
        Program.ShowPage(PageNumber::Calendar);
    }

    // Half an hour each. Four rows are seen at once, so the bar goes to four less than there are.
    void GivenItems(int count, int month, int day) {
        for (int index = 0; index < count; ++index) {
            Program.GivenAppointment(u"Item", At(2004, month, day, 8 + index), At(2004, month, day, 8 + index, 30));
        }
    }

    void Press(int key, int modifiers = 0) {
        Program.Device.Key(key, modifiers);
        ASSERT_TRUE(Program.Settle());
    }

    void Tap(int x, int y) {
        Program.TapAside(x, y);
        ASSERT_TRUE(Program.Settle());
    }

    shell::WindowTree& Tree() { return Program.Device.Host().State.Tree; }

    // As it stands when it is asked for anything: the day is not read before.
    BarState Bar() {
        Scroll(SB_ENDSCROLL);
        const ScrollInfo& info = Tree().FindControl(Program.Device.See.Control(kScrollBar))->Scroll;
        return {info.Minimum, info.Maximum, info.Position};
    }

    void SendToPage(MessageNumber number, int id, int code, int value = 0) {
        Program.Device.Host().Queue().PostMessageW({Program.Device.See.Top(), number, id, code, value, {}});
        ASSERT_TRUE(Program.Settle());
    }

    // As the bar would, were it on show.
    void Scroll(int request, int position = 0) { SendToPage(WM_VSCROLL, kScrollBar, request, position); }

    // The only window in the page that is no control.
    WindowHandle List() {
        WindowHandle list = WindowHandle::None;
        for (const WindowHandle child : Tree().ChildrenOf(Program.Device.See.Top())) {
            if (Tree().FindControl(child) == nullptr) {
                EXPECT_EQ(list, WindowHandle::None);
                list = child;
            }
        }
        return list;
    }

    RunningProgram Program{At(2004, 11, 3, 7, 0)};
};

TEST_F(CalendarPageList, ListAndBarLieHiddenInTheirPlaces) {
    Open();
    const shell::WindowRecord* list = Tree().Find(List());
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->Bounds, (Rect{0, 30, 240, 240}));
    EXPECT_FALSE(list->Visible);
    const shell::WindowRecord* bar = Tree().Find(Program.Device.See.Control(kScrollBar));
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->Bounds, (Rect{222, 31, 237, 238}));
    EXPECT_FALSE(bar->Visible);
}

TEST_F(CalendarPageList, NothingThatIsTappedShowsThem) {
    GivenItems(8, 11, 3);
    Open();
    Tap(110, 70);
    Press(VK_RIGHT);
    Tap(218, 18);
    SendToPage(WM_COMMAND, 1048, BN_CLICKED);
    EXPECT_FALSE(Tree().IsVisible(List()));
    EXPECT_FALSE(Program.Device.See.IsShown(kScrollBar));
}

TEST_F(CalendarPageList, TheListHoldsTodayAtFirst) {
    GivenItems(6, 11, 3);
    Open();
    EXPECT_EQ(Bar(), (BarState{0, 2, 0}));
}

TEST_F(CalendarPageList, ATapLoadsTheTappedDay) {
    GivenItems(9, 11, 8);
    Open();
    EXPECT_EQ(Bar(), (BarState{0, 0, 0}));
    Tap(50, 90);
    EXPECT_EQ(Bar(), (BarState{0, 5, 0}));
}

TEST_F(CalendarPageList, AnArrowKeyLoadsTheDayOfTheOtherMonth) {
    GivenItems(7, 12, 3);
    Open();
    Press(VK_RIGHT);
    EXPECT_EQ(Bar(), (BarState{0, 3, 0}));
}

TEST_F(CalendarPageList, ControlAndAnArrowLoadTheDayBeside) {
    GivenItems(7, 11, 4);
    Open();
    Press(VK_RIGHT, kModifierControl);
    EXPECT_EQ(Bar(), (BarState{0, 3, 0}));
}

TEST_F(CalendarPageList, ADayThatWasReadIsNotReadAgain) {
    GivenItems(9, 11, 8);
    Open();
    const AskedRestrictions asked(Program.State().Store.CalendarFolder);
    Tap(50, 90);
    Scroll(SB_LINEDOWN);
    EXPECT_EQ(Bar(), (BarState{0, 5, 1}));
    const std::u16string day = u"[Start] <= 11/8/2004 and [End] >= 11/8/2004";
    EXPECT_EQ(std::count(asked.Texts.begin(), asked.Texts.end(), day), 1);
}

TEST_F(CalendarPageList, AnyOtherKeyLoadsTheDayAgainAndRepaints) {
    Open();
    GivenItems(6, 11, 3);
    const int before = Program.Device.See.LastFrame()->Count;
    Press(VK_HOME);
    EXPECT_EQ(Bar(), (BarState{0, 2, 0}));
    EXPECT_EQ(Program.Device.See.LastFrame()->Count, before + 1);
    EXPECT_EQ(Program.CellName(0, 3), u"2004-11-03"); // the month was not asked for again
}

TEST_F(CalendarPageList, TheTodayButtonLoadsToday) {
    GivenItems(6, 11, 3);
    Open();
    Tap(50, 90);
    EXPECT_EQ(Bar(), (BarState{0, 0, 0}));
    Tap(218, 18);
    EXPECT_EQ(Bar(), (BarState{0, 2, 0}));
}

TEST_F(CalendarPageList, AChangeNoticeLoadsTheDayAgain) {
    Open();
    EXPECT_EQ(Bar(), (BarState{0, 0, 0}));
    GivenItems(6, 11, 3);
    EXPECT_EQ(Bar(), (BarState{0, 0, 0}));
    Program.Device.ChangeStore();
    Program.Device.AdvanceClock(500);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Bar(), (BarState{0, 2, 0}));
}

TEST_F(CalendarPageList, TheScrollBarMovesByLinePageAndThumbWithinItsRange) {
    GivenItems(12, 11, 3);
    Open();
    ASSERT_EQ(Bar()[1], 8);

    struct Step {
        int Request;
        int Position; // of the thumb
        int Top;      // afterwards
    };

    const Step steps[] = {
        {SB_LINEUP, 0, 0},        {SB_PAGEUP, 0, 0},         {SB_LINEDOWN, 0, 1},    {SB_PAGEDOWN, 0, 6},
        {SB_PAGEDOWN, 0, 8},      {SB_LINEDOWN, 0, 8},       {SB_LINEUP, 0, 7},      {SB_PAGEUP, 0, 2},
        {SB_PAGEUP, 0, 0},        {SB_THUMBTRACK, 3, 3},     {SB_THUMBTRACK, 20, 8}, {SB_THUMBPOSITION, 4, 4},
        {SB_THUMBPOSITION, 9, 8}, {SB_THUMBPOSITION, -5, 0}, {SB_THUMBTRACK, 6, 6},  {SB_ENDSCROLL, 0, 6},
        {SB_THUMBTRACK, -1, 0},
    };
    int number = 0;
    for (const Step& step : steps) {
        Scroll(step.Request, step.Position);
        EXPECT_EQ(Bar(), (BarState{0, 8, step.Top})) << "step " << number;
        ++number;
    }
}

TEST_F(CalendarPageList, AScrolledListRepaintsFromItsNewFirstRow) {
    GivenItems(12, 11, 3);
    Open();
    Program.Device.Host().Windows().ShowWindow(List(), ShowCommand::Show);
    ASSERT_TRUE(Program.Settle());
    Scroll(SB_THUMBPOSITION, 2); // which reads the day, too
    Scroll(SB_THUMBPOSITION, 3);
    const headless::Frame* frame = Program.Device.Host().Drawn.LastFrame(List());
    ASSERT_NE(frame, nullptr);
    ASSERT_FALSE(frame->Items.empty());
    EXPECT_EQ(frame->Items[0].Role, PaintedRole::Row);
    EXPECT_EQ(frame->Items[0].Id, 3);
    const int before = frame->Count;
    Scroll(SB_THUMBPOSITION, 3);
    EXPECT_EQ(Program.Device.Host().Drawn.LastFrame(List())->Count, before); // nothing moved
}

TEST_F(CalendarPageList, ATapScrollsBackToTheFirstRow) {
    GivenItems(12, 11, 3);
    Open();
    Scroll(SB_PAGEDOWN);
    EXPECT_EQ(Bar()[2], 5);
    Tap(110, 70);
    EXPECT_EQ(Bar(), (BarState{0, 8, 0}));
}

} // namespace
} // namespace tavo::test
