// The reference period of the appointments: its limits, and what lies in it.
#include "tests/schedule/schedule_desk.h"
#include "tests/support/folder_probe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::At;
using test::ScheduleDesk;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char16_t* kTooLong = u"|reference period cannot exceed 1 month";

class SchedulePeriod : public testing::Test {
  protected:
    SchedulePeriod() { EXPECT_TRUE(Desk.Start()); }

    void PickStart(int year, int month, int day) { Desk.PickPeriodDate(kSchedulePeriodStart, year, month, day); }

    void PickEnd(int year, int month, int day) { Desk.PickPeriodDate(kSchedulePeriodEnd, year, month, day); }

    // 1 January to 31 January 2004.
    void ShowJanuary() {
        Desk.Show(ItemKind::Appointment);
        PickEnd(2004, 1, 1); // the start follows
        PickEnd(2004, 1, 31);
        ASSERT_TRUE(Desk.Settle());
        ASSERT_EQ(Dates(), "2004-1-1 to 2004-1-31");
        ASSERT_THAT(Desk.Boxes(), IsEmpty());
    }

    std::string Dates() {
        const auto text = [](const SYSTEMTIME& date) {
            return std::to_string(date.Year) + "-" + std::to_string(date.Month) + "-" + std::to_string(date.Day);
        };
        return text(Desk.Picked(kSchedulePeriodStart)) + " to " + text(Desk.Picked(kSchedulePeriodEnd));
    }

    // The time of day that a picker keeps and does not show.
    std::string TimeOf(int picker) {
        const SYSTEMTIME time = Desk.Picked(picker);
        return std::to_string(time.Hour) + ":" + std::to_string(time.Minute) + ":" + std::to_string(time.Second) + "." +
               std::to_string(time.Milliseconds);
    }

    Oid Given(std::u16string_view subject, const SYSTEMTIME& start, const SYSTEMTIME& end) {
        return Desk.GivenAppointment(subject, start, end);
    }

    ScheduleDesk Desk;
};

TEST_F(SchedulePeriod, BeginsTodayAndReachesThirtyDaysAhead) {
    Desk.Show(ItemKind::Appointment);
    EXPECT_EQ(Dates(), "2004-11-3 to 2004-12-3");
}

TEST_F(SchedulePeriod, ThirtyOneDaysApartAreAccepted) {
    ShowJanuary();
    PickEnd(2004, 2, 1);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.Boxes(), IsEmpty());
    EXPECT_EQ(Dates(), "2004-1-1 to 2004-2-1");
}

TEST_F(SchedulePeriod, AnEndThatIsTooLateComesBackToThirtyDays) {
    ShowJanuary();
    PickEnd(2004, 2, 2);
    Desk.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.Boxes(), ElementsAre(kTooLong));
    EXPECT_EQ(Dates(), "2004-1-1 to 2004-1-31");
}

TEST_F(SchedulePeriod, AStartThatIsTooEarlyComesForwardToThirtyDays) {
    ShowJanuary();
    PickStart(2003, 12, 30);
    Desk.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.Boxes(), ElementsAre(kTooLong));
    EXPECT_EQ(Dates(), "2004-1-1 to 2004-1-31");
    PickStart(2003, 12, 31);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Dates(), "2003-12-31 to 2004-1-31");
}

TEST_F(SchedulePeriod, TheEndFollowsAStartThatPassesIt) {
    ShowJanuary();
    PickStart(2004, 3, 5);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Dates(), "2004-3-5 to 2004-3-5");
    EXPECT_EQ(TimeOf(kSchedulePeriodEnd), "23:59:59.0");
}

TEST_F(SchedulePeriod, TheStartFollowsAnEndThatPassesIt) {
    ShowJanuary();
    PickEnd(2003, 5, 5);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Dates(), "2003-5-5 to 2003-5-5");
    EXPECT_EQ(TimeOf(kSchedulePeriodStart), "0:0:0.0");
}

TEST_F(SchedulePeriod, ABoundThatWasPulledBackHasTheTimeOfItsOtherOne) {
    ShowJanuary();
    PickEnd(2004, 2, 2);
    Desk.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(TimeOf(kSchedulePeriodEnd), "0:0:0.0");
    PickStart(2003, 12, 30);
    Desk.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(TimeOf(kSchedulePeriodStart), "23:59:59.0");
}

TEST_F(SchedulePeriod, ADayThatBeginsAndEndsItLeavesTheOtherBoundAlone) {
    Desk.Show(ItemKind::Appointment);
    const std::string startTime = TimeOf(kSchedulePeriodStart);
    PickEnd(2004, 11, 3);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Dates(), "2004-11-3 to 2004-11-3");
    EXPECT_EQ(TimeOf(kSchedulePeriodStart), startTime);
    const std::string endTime = TimeOf(kSchedulePeriodEnd);
    PickStart(2004, 11, 3);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(TimeOf(kSchedulePeriodEnd), endTime);
}

TEST_F(SchedulePeriod, TheBarFollowsTheNumberOfItsRows) {
    for (int day = 5; day < 12; ++day) {
        Given(u"Item", At(2004, 1, day, 9), At(2004, 1, day, 10));
    }
    ShowJanuary();
    EXPECT_EQ(Desk.Bar(), (ScrollInfo{0, 2, 0}));
}

TEST_F(SchedulePeriod, WhatBeganThirtyOneDaysBeforeMayReachIntoIt) {
    ShowJanuary();
    const test::AskedRestrictions asked(Desk.State().Store.CalendarFolder);
    PickStart(2004, 1, 5);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(asked.Texts, ElementsAre(u"[Start] >= 12/5/2003 and [Start] <= 1/31/2004 and [End] >= 1/5/2004"));
}

TEST_F(SchedulePeriod, ADateIsTakenWhenItsMonthCalendarCloses) {
    Given(u"In January", At(2004, 1, 20, 9), At(2004, 1, 20, 10));
    ShowJanuary();
    ASSERT_THAT(Desk.Headings(), ElementsAre(u"In January"));
    Desk.Device.PickDate(kSchedulePeriodStart, 2004, 1, 25);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.Headings(), ElementsAre(u"In January"));
    Desk.Device.OpenList(kSchedulePeriodStart);
    Desk.Device.CloseList(kSchedulePeriodStart);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.Headings(), IsEmpty());
}

TEST_F(SchedulePeriod, ATypedDateIsTakenWhenItIsWholeOrLeft) {
    Given(u"In January", At(2004, 1, 20, 9), At(2004, 1, 20, 10));
    ShowJanuary();
    Desk.Device.TapControl(kSchedulePeriodStart);
    Desk.Device.Key(VK_HOME);
    Desk.Device.Type(u"01/25/200");
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.Headings(), ElementsAre(u"In January"));
    Desk.Device.Type(u"4");
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Dates(), "2004-1-25 to 2004-1-31");
    EXPECT_THAT(Desk.Headings(), IsEmpty());
    Desk.Device.Key(VK_HOME);
    Desk.Device.Type(u"1/19");
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.Headings(), IsEmpty());
    Desk.Device.Key(VK_RETURN);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Dates(), "2004-1-19 to 2004-1-31");
    EXPECT_THAT(Desk.Headings(), ElementsAre(u"In January"));
    EXPECT_FALSE(Desk.Device.See.IsDialogOpen());
}

TEST_F(SchedulePeriod, ATypedPeriodIsValidatedLikeAPickedOne) {
    ShowJanuary();
    Desk.Device.TapControl(kSchedulePeriodEnd);
    Desk.Device.Key(VK_HOME);
    Desk.Device.Type(u"2/2/2004");
    Desk.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.Boxes(), ElementsAre(kTooLong));
    EXPECT_EQ(Dates(), "2004-1-1 to 2004-1-31");
    Desk.Device.Key(VK_HOME);
    Desk.Device.Type(u"12/5/2003"); // before the start, which follows
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Dates(), "2003-12-5 to 2003-12-5");
    Desk.Device.TapControl(kSchedulePeriodStart);
    Desk.Device.Key(VK_HOME);
    Desk.Device.Type(u"12/9/2003");
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Dates(), "2003-12-9 to 2003-12-9");
}

TEST_F(SchedulePeriod, ArrowsAreThePagesWithTheFocusInAPicker) {
    Given(u"One", At(2004, 1, 20, 9), At(2004, 1, 20, 10));
    Given(u"Two", At(2004, 1, 21, 9), At(2004, 1, 21, 10));
    ShowJanuary();
    Desk.Device.TapControl(kSchedulePeriodStart);
    Desk.Device.Key(VK_DOWN);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.SelectedRow(), 0);
    EXPECT_EQ(Dates(), "2004-1-1 to 2004-1-31");
    Desk.Device.TapControl(kSchedulePeriodEnd);
    Desk.Device.Key(VK_HOME);
    Desk.Device.Type(u"01/25"); // the year is left as it is
    Desk.Device.Key(VK_LEFT);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_FALSE(Desk.Device.See.IsShown(kSchedulePeriodStart)); // another kind
    Desk.Device.Key(VK_RIGHT);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Dates(), "2004-1-1 to 2004-1-25");
}

TEST_F(SchedulePeriod, TheListHasTheFocusAgainWhenTheMonthCalendarCloses) {
    ShowJanuary();
    PickStart(2004, 1, 2);
    ASSERT_TRUE(Desk.Settle());
    const WindowHandle focus = Desk.Device.Host().State.Focus;
    const shell::WindowRecord* list = Desk.Device.Host().State.Tree.Find(focus);
    ASSERT_NE(list, nullptr);
    EXPECT_TRUE(list->IsPainted() && list->Parent == Desk.Device.See.Top());
    EXPECT_TRUE(Desk.Device.Host().State.Tree.IsVisible(focus));
}

TEST_F(SchedulePeriod, HoldsWhatLiesInItOrReachesIntoItInOrderOfStart) {
    Given(u"Last moment", At(2004, 1, 31, 23, 59), At(2004, 2, 1, 1));
    Given(u"Reaches in", At(2003, 12, 2, 9), At(2004, 1, 1, 9)); // thirty days long
    Given(u"Ended before", At(2003, 12, 31, 22), At(2004, 1, 1));
    Given(u"Day before", At(2003, 12, 31, 9), At(2003, 12, 31, 10));
    Given(u"First moment", At(2004, 1, 1), At(2004, 1, 1));
    Given(u"Day after", At(2004, 2, 1), At(2004, 2, 1, 1));
    ShowJanuary();
    EXPECT_THAT(Desk.Headings(), ElementsAre(u"Reaches in", u"First moment", u"Last moment"));
}

TEST_F(SchedulePeriod, ASeriesHasARowForEachOccurrenceWithItsOwnDate) {
    Desk.GivenSeries(u"Yoga", At(2003, 12, 30, 18), At(2003, 12, 30, 19), kRecursWeekly);
    ShowJanuary();
    EXPECT_THAT(Desk.ListTexts(), ElementsAre(u"Yoga", u"2004.01.06(Tue)", u"(1/6, Tue) at PM 6:00 for 1 hour(s)",  //
                                              u"Yoga", u"2004.01.13(Tue)", u"(1/13, Tue) at PM 6:00 for 1 hour(s)", //
                                              u"Yoga", u"2004.01.20(Tue)", u"(1/20, Tue) at PM 6:00 for 1 hour(s)", //
                                              u"Yoga", u"2004.01.27(Tue)", u"(1/27, Tue) at PM 6:00 for 1 hour(s)"));
}

TEST_F(SchedulePeriod, ARowOfSeveralDaysIsDrawnWithBothEnds) {
    Desk.GivenAllDay(u"Trip", At(2004, 1, 2), 3);
    Given(u"Night shift", At(2003, 12, 31, 22), At(2004, 1, 1, 6)); // whose weekdays do not fit any more
    Given(u"Weekend", At(2004, 1, 3, 9), At(2004, 1, 4, 6));
    ShowJanuary();
    EXPECT_THAT(Desk.ListTexts(),
                ElementsAre(u"Night shift", u"2004.01.01(Thu)", u"2003.12.31,PM 10:00 - 2004.01.01,AM 6:00", u"Trip",
                            u"2004.01.02(Fri)", u"2004.01.02(Fri) - 2004.01.04(Sun) (All day)", //
                            u"Weekend", u"2004.01.03(Sat)", u"2004.01.03(Sat),AM 9:00 - 2004.01.04(Sun),AM 6:00"));
}

TEST_F(SchedulePeriod, AfterAResetItsWholeLastDayCounts) {
    Given(u"On the last day", At(2004, 1, 31, 15), At(2004, 1, 31, 16));
    ShowJanuary();
    PickEnd(2004, 2, 9);
    Desk.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.Headings(), ElementsAre(u"On the last day"));
}

} // namespace

} // namespace tavo
