// How the lists of the Schedule page scroll, by bar, wheel and keys, and where the selection goes.
#include "tests/schedule/schedule_page_fixture.h"

#include <gmock/gmock.h>

namespace tavo::test {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(SchedulePage, PageDownStopsWhereTheLastFourRowsAreShown) {
    Desk.GivenAlarms(12);
    Desk.Show(ItemKind::Alarm);
    EXPECT_EQ(Desk.Bar(), (ScrollInfo{0, 8, 0}));
    Scroll(SB_PAGEDOWN);
    EXPECT_EQ(Desk.Bar().Position, 5);
    Scroll(SB_PAGEDOWN);
    EXPECT_EQ(Desk.Bar().Position, 8);
    EXPECT_THAT(Desk.Headings(),
                ElementsAre(u"(12:00) Alarm 9", u"(12:00) Alarm 10", u"(12:00) Alarm 11", u"(12:00) Alarm 12"));
    Scroll(SB_PAGEUP);
    EXPECT_EQ(Desk.Bar().Position, 3);
    Scroll(SB_PAGEUP);
    EXPECT_EQ(Desk.Bar().Position, 0);
}

TEST_F(SchedulePage, AListOfThreeRowsHasNothingToScroll) {
    Desk.GivenAlarms(3);
    Desk.Show(ItemKind::Alarm);
    EXPECT_EQ(Desk.Bar(), (ScrollInfo{0, 0, 0}));
    Scroll(SB_LINEDOWN);
    EXPECT_EQ(Desk.Bar().Position, 0);
}

TEST_F(SchedulePage, TheAppointmentsScrollByFiveRows) {
    GivenAppointmentsToday(12);
    Desk.Show(ItemKind::Appointment);
    EXPECT_EQ(Desk.Bar(), (ScrollInfo{0, 7, 0}));
    EXPECT_EQ(Desk.Rows().size(), 5U);
    const auto firstRow = [this] {
        int first = -1;
        for (const PaintedItem& item : Desk.Device.See.Items()) {
            first = first < 0 && item.Role == PaintedRole::Row ? item.Id : first;
        }
        return first;
    };
    for (const auto& [request, top] :
         {std::pair(SB_PAGEDOWN, 5), std::pair(SB_PAGEDOWN, 7), std::pair(SB_PAGEUP, 2), std::pair(SB_PAGEUP, 0)}) {
        Scroll(request);
        EXPECT_EQ(Desk.Bar().Position, top);
        EXPECT_EQ(firstRow(), top);
        EXPECT_EQ(Desk.Rows().size(), 5U);
    }
}

TEST_F(SchedulePage, LineAndThumbMoveTheTopWithinItsRange) {
    Desk.GivenAlarms(8);
    Desk.Show(ItemKind::Alarm);
    Scroll(SB_LINEUP);
    EXPECT_EQ(Desk.Bar().Position, 0);
    Scroll(SB_LINEDOWN);
    EXPECT_EQ(Desk.Bar().Position, 1);
    Scroll(SB_THUMBTRACK, 3);
    EXPECT_EQ(Desk.Bar().Position, 3);
    Scroll(SB_THUMBPOSITION, 99);
    EXPECT_EQ(Desk.Bar().Position, 4);
    Scroll(SB_LINEDOWN);
    EXPECT_EQ(Desk.Bar().Position, 4);
    Scroll(SB_ENDSCROLL);
    EXPECT_EQ(Desk.Bar().Position, 4);
}

TEST_F(SchedulePage, TheWheelScrollsRowByRow) {
    Desk.GivenAlarms(8);
    Desk.Show(ItemKind::Alarm);
    Desk.Device.Wheel(100, 100, -3);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.Bar().Position, 3);
    Desk.Device.Wheel(100, 100, 1);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.Bar().Position, 2);
    EXPECT_EQ(Desk.Headings().front(), u"(12:00) Alarm 3");
}

TEST_F(SchedulePage, TheSelectionKeepsItsDistanceToTheTop) {
    Desk.GivenAlarms(12);
    Desk.Show(ItemKind::Alarm);
    Select(2);
    Scroll(SB_PAGEDOWN);
    EXPECT_EQ(Desk.SelectedRow(), 7);
    Scroll(SB_LINEUP);
    EXPECT_EQ(Desk.SelectedRow(), 6);
}

TEST_F(SchedulePage, TheSelectionReachesTheLastRow) {
    Desk.GivenAlarms(12);
    Desk.Show(ItemKind::Alarm);
    Select(3);
    Scroll(SB_THUMBPOSITION, 8);
    EXPECT_EQ(Desk.SelectedRow(), 11);
}

TEST_F(SchedulePage, UpStopsAtTheFirstRow) {
    Desk.GivenAlarms(3);
    Desk.Show(ItemKind::Alarm);
    Select(1);
    Key(VK_UP);
    EXPECT_EQ(Desk.SelectedRow(), 0);
    Key(VK_UP);
    EXPECT_EQ(Desk.SelectedRow(), 0);
}

TEST_F(SchedulePage, ASelectionAtTheTopStaysThere) {
    Desk.GivenAlarms(12);
    Desk.Show(ItemKind::Alarm);
    Select(0);
    Scroll(SB_PAGEDOWN);
    EXPECT_EQ(Desk.SelectedRow(), 5);
}

TEST_F(SchedulePage, ASelectionAboveTheTopIsLeftWhereItIs) {
    Desk.GivenAlarms(12);
    Desk.Show(ItemKind::Alarm);
    Scroll(SB_PAGEDOWN);
    Key(VK_DOWN); // selects the first row, which is not to be seen
    EXPECT_EQ(Desk.SelectedRow(), kNoRow);
    Scroll(SB_LINEDOWN);
    Scroll(SB_THUMBPOSITION, 0);
    EXPECT_EQ(Desk.SelectedRow(), 0);
}

TEST_F(SchedulePage, WithNothingSelectedScrollingSelectsNothing) {
    Desk.GivenAlarms(12);
    Desk.Show(ItemKind::Alarm);
    Scroll(SB_PAGEDOWN);
    Scroll(SB_PAGEUP);
    EXPECT_EQ(Desk.SelectedRow(), kNoRow);
}

TEST_F(SchedulePage, DownSelectsTheFirstRowAndGoesOnScrollingAfterTheFourth) {
    Desk.GivenAlarms(6);
    Desk.Show(ItemKind::Alarm);
    Key(VK_UP);
    EXPECT_EQ(Desk.SelectedRow(), kNoRow);
    for (int row = 0; row < 4; ++row) {
        Key(VK_DOWN);
        EXPECT_EQ(Desk.SelectedRow(), row);
        EXPECT_EQ(Desk.Bar().Position, 0);
    }
    Key(VK_DOWN);
    EXPECT_EQ(Desk.SelectedRow(), 4);
    EXPECT_EQ(Desk.Bar().Position, 1);
    Key(VK_DOWN);
    Key(VK_DOWN); // the last row stays
    EXPECT_EQ(Desk.SelectedRow(), 5);
    EXPECT_EQ(Desk.Bar().Position, 2);
    for (int times = 0; times < 4; ++times) {
        Key(VK_UP);
    }
    EXPECT_EQ(Desk.SelectedRow(), 1);
    EXPECT_EQ(Desk.Bar().Position, 1); // up scrolls when the selection leaves at the top
}

TEST_F(SchedulePage, AmongTheAppointmentsTheKeysScrollAfterTheFifth) {
    GivenAppointmentsToday(7);
    Desk.Show(ItemKind::Appointment);
    for (int times = 0; times < 5; ++times) {
        Key(VK_DOWN);
    }
    EXPECT_EQ(Desk.SelectedRow(), 4);
    EXPECT_EQ(Desk.Bar().Position, 0);
    Key(VK_DOWN);
    EXPECT_EQ(Desk.Bar().Position, 1);
}

TEST_F(SchedulePage, OnAnEmptyListTheKeysDoNothing) {
    Desk.Show(ItemKind::Alarm);
    Key(VK_DOWN);
    Key(VK_UP);
    EXPECT_THAT(Desk.Rows(), IsEmpty());
    EXPECT_EQ(Desk.SelectedRow(), kNoRow);
    EXPECT_EQ(Desk.Bar(), (ScrollInfo{0, 0, 0}));
    EXPECT_THAT(Desk.ListTexts(), ElementsAre(u"No registered alarm"));
    EXPECT_THAT(Desk.Boxes(), IsEmpty());
}

} // namespace tavo::test
