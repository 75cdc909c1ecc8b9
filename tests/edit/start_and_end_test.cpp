// Start and end keep each other in order while they are changed, and what the pickers hold at first.
#include "tests/edit/edit_desk.h"

#include <gtest/gtest.h>

#include <array>

namespace tavo::test {
namespace {

class StartAndEnd : public testing::Test {
  protected:
    void ExpectTimes(const SYSTEMTIME& start, const SYSTEMTIME& end) {
        Desk.Check([this, start, end] {
            EXPECT_EQ(Moment(kEditStartDate, kEditStartTime), Moment(start));
            EXPECT_EQ(Moment(kEditEndDate, kEditEndTime), Moment(end));
        });
    }

    void Close(std::int32_t mode) {
        Desk.Cancel();
        EXPECT_EQ(Desk.RunNew(mode), IDCANCEL);
    }

    EditDesk Desk{At(2026, 11, 21, 9, 47)};

  private:
    static std::array<int, 5> Moment(const SYSTEMTIME& time) {
        return {time.Year, time.Month, time.Day, time.Hour, time.Minute};
    }

    std::array<int, 5> Moment(int date, int time) {
        const SYSTEMTIME day = Desk.PickerOf(date);
        const SYSTEMTIME clock = Desk.PickerOf(time);
        return {day.Year, day.Month, day.Day, clock.Hour, clock.Minute};
    }
};

TEST_F(StartAndEnd, AStartMovedBehindTheEndTakesTheEndWithIt) {
    Desk.PickStartTime(11, 0);
    ExpectTimes(At(2026, 11, 21, 11, 0), At(2026, 11, 21, 11, 0));
    Desk.PickStartDate(2026, 11, 25);
    ExpectTimes(At(2026, 11, 25, 11, 0), At(2026, 11, 25, 11, 0));
    Close(kModeNewAppointment);
}

TEST_F(StartAndEnd, AnEndMovedBeforeTheStartTakesTheStartWithIt) {
    Desk.PickEndTime(8, 15);
    ExpectTimes(At(2026, 11, 21, 8, 15), At(2026, 11, 21, 8, 15));
    Desk.PickEndDate(2026, 11, 20);
    ExpectTimes(At(2026, 11, 20, 8, 15), At(2026, 11, 20, 8, 15));
    Close(kModeNewAppointment);
}

TEST_F(StartAndEnd, ChangesThatKeepTheOrderMoveNothingElse) {
    Desk.PickEndTime(12, 0);
    ExpectTimes(At(2026, 11, 21, 9, 30), At(2026, 11, 21, 12, 0));
    Desk.PickStartTime(10, 0);
    ExpectTimes(At(2026, 11, 21, 10, 0), At(2026, 11, 21, 12, 0));
    Desk.PickStartTime(12, 0); // equal is in order
    ExpectTimes(At(2026, 11, 21, 12, 0), At(2026, 11, 21, 12, 0));
    Desk.PickStartDate(2026, 11, 1);
    ExpectTimes(At(2026, 11, 1, 12, 0), At(2026, 11, 21, 12, 0));
    Close(kModeNewAppointment);
}

TEST_F(StartAndEnd, AnEndThatIsTypedMovesNothingOnItsWay) {
    Desk.PickEndTime(10, 0);
    Desk.PickStartTime(10, 0);
    Desk.ShowRow(2, 160);
    Desk.Device.Type(u"11"); // not 1 o'clock
    Desk.Device.Key(VK_TAB);
    ExpectTimes(At(2026, 11, 21, 10, 0), At(2026, 11, 21, 11, 0));
    Desk.ShowRow(2);
    Desk.Device.Type(u"11"); // not January
    ExpectTimes(At(2026, 11, 21, 10, 0), At(2026, 11, 21, 11, 0));
    Desk.Device.Type(u"30");
    Desk.ShowRow(0);
    ExpectTimes(At(2026, 11, 21, 10, 0), At(2026, 11, 30, 11, 0));
    Close(kModeNewAppointment);
}

TEST_F(StartAndEnd, AnHourIsNoneOfTheOtherHalfOfTheDayOnItsWay) {
    Desk.PickEndTime(16, 0);
    Desk.PickStartTime(14, 0);
    Desk.ShowRow(1, 160);
    Desk.Device.Type(u"10a"); // not 10 in the evening
    ExpectTimes(At(2026, 11, 21, 10, 0), At(2026, 11, 21, 16, 0));
    Close(kModeNewAppointment);
}

TEST_F(StartAndEnd, WhatIsBeingTypedIsSavedAtOk) {
    Desk.Subject(u"Class");
    Desk.ShowRow(2, 160);
    Desk.Device.Type(u"1130");
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDOK);
    const AppointmentData saved = Desk.Load(Desk.LastSaved());
    EXPECT_EQ(saved.Start.Hour, 9);
    EXPECT_EQ(saved.End.Hour, 11);
    EXPECT_EQ(saved.End.Minute, 30);
}

TEST_F(StartAndEnd, TheTimeRowOfAnAlarmIsTypedWithTheSecondsThatItShows) {
    Desk.Subject(u"Egg");
    Desk.Check([this] { EXPECT_EQ(Desk.ValueOf(kEditStartTime), u"09:30:00 AM"); });
    Desk.ShowRow(2);
    Desk.Device.Type(u"93115");
    Desk.ShowRow(0);
    Desk.Check([this] { EXPECT_EQ(Desk.ValueOf(kEditStartTime), u"09:31:15 AM"); });
    Desk.ShowRow(2);
    Desk.Device.Type(u"1005"); // seconds that nobody types stay as they are shown
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDOK);
    const AppointmentData saved = Desk.Load(Desk.LastSaved());
    EXPECT_EQ(saved.Start.Hour, 10);
    EXPECT_EQ(saved.Start.Minute, 5);
    EXPECT_EQ(saved.Start.Second, 15);
    EXPECT_EQ(saved.End.Second, 15);
}

TEST_F(StartAndEnd, TheTimesOfAnAppointmentAreTypedAsTheyAreShown) {
    Desk.Subject(u"Class");
    Desk.ShowRow(1, 160);
    Desk.Device.Type(u"0845a"); // no part for seconds between the minute and the half of the day
    Desk.Check([this] {
        EXPECT_EQ(Desk.PickerOf(kEditStartTime).Second, 0);
        EXPECT_EQ(Desk.ShownInPicker(kEditEndTime), u"9:30 AM");
    });
    Desk.ShowRow(0);
    Desk.Check([this] { EXPECT_EQ(Desk.ValueOf(kEditStartTime), u"08:45 AM"); });
    Close(kModeNewAppointment);
}

TEST_F(StartAndEnd, AnHourAndOneDigitMoreAreSavedAsThePickerShowsThem) {
    Desk.Subject(u"Class");
    Desk.PickEndTime(16, 0);
    Desk.ShowRow(1, 160);
    Desk.Device.Type(u"110");
    Desk.Check([this] { EXPECT_EQ(Desk.ShownInPicker(kEditStartTime), u"1:10 AM"); });
    Desk.Device.Key(VK_RETURN);
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDOK);
    const AppointmentData saved = Desk.Load(Desk.LastSaved());
    EXPECT_EQ(saved.Start.Hour, 1);
    EXPECT_EQ(saved.Start.Minute, 10);
}

TEST_F(StartAndEnd, OfAHolidayOnlyTheDaysCount) {
    Desk.PickStartDate(2026, 11, 20);
    ExpectTimes(At(2026, 11, 20, 9, 30), At(2026, 11, 21, 9, 30));
    Desk.PickStartDate(2026, 11, 21); // the same day again
    ExpectTimes(At(2026, 11, 21, 9, 30), At(2026, 11, 21, 9, 30));
    Desk.PickStartDate(2026, 11, 22);
    ExpectTimes(At(2026, 11, 22, 9, 30), At(2026, 11, 22, 9, 30));
    Close(kModeNewHoliday);
}

TEST_F(StartAndEnd, TheSameDayNeverMovesATimeOfAHoliday) {
    AppointmentData item;
    item.Subject = u"Fair";
    item.Start = At(2026, 11, 23, 18, 0); // later than the end pickers' 9:30
    item.Oid = Desk.GivenAppointment(u"Fair", At(2026, 11, 23, 18, 0), At(2026, 11, 23, 18, 0));
    Desk.PickStartDate(2026, 11, 21);
    ExpectTimes(At(2026, 11, 21, 18, 0), At(2026, 11, 21, 9, 30));
    Desk.Cancel();
    EXPECT_EQ(Desk.Run(kModeHoliday, item), IDCANCEL);
}

TEST_F(StartAndEnd, OfAnExistingAppointmentAreTheItemsOwn) {
    const Oid oid = Desk.GivenAppointment(u"Trip", At(2026, 12, 1, 8, 10), At(2026, 12, 3, 18, 20));
    ExpectTimes(At(2026, 12, 1, 8, 10), At(2026, 12, 3, 18, 20));
    Desk.Cancel();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDCANCEL);
}

TEST_F(StartAndEnd, OfAnExistingAlarmOrDayOnlyTheStartIsTheItems) {
    const Oid oid = Desk.GivenAppointment(u"Wake", At(2026, 12, 1, 8, 10), At(2026, 12, 1, 8, 10));
    for (const std::int32_t mode : {kModeAlarm, kModeHoliday, kModeAnniversary}) {
        ExpectTimes(At(2026, 12, 1, 8, 10), At(2026, 11, 21, 9, 30));
        Desk.Cancel();
        EXPECT_EQ(Desk.RunExisting(mode, oid), IDCANCEL);
    }
}

TEST_F(StartAndEnd, OfASeriesComeFromItsPattern) {
    const Oid oid = Desk.GivenSeries(u"Night", At(2026, 12, 1, 22, 0), At(2026, 12, 2, 6, 30), kRecursWeekly);
    AppointmentData occurrence = Desk.Load(oid);
    occurrence.Start = At(2026, 12, 8, 22, 0);
    occurrence.End = At(2026, 12, 9, 6, 30);
    ExpectTimes(At(2026, 12, 1, 22, 0), At(2026, 12, 2, 6, 30));
    Desk.Cancel();
    EXPECT_EQ(Desk.Run(kModeAppointment, occurrence), IDCANCEL);
}

TEST_F(StartAndEnd, OfASeriesThatIsGoneAreTheOpenersValues) {
    const Oid oid = Desk.GivenSeries(u"Night", At(2026, 12, 1, 22, 0), At(2026, 12, 2, 6, 30), kRecursWeekly);
    const AppointmentData item = Desk.Load(oid);
    Desk.Delete(oid);
    ExpectTimes(At(2026, 12, 1, 22, 0), At(2026, 12, 2, 6, 30));
    Desk.Check([&] {
        EXPECT_EQ(Desk.TextOf(kEditSubject), u"Night");
        EXPECT_EQ(Desk.Device.See.SelectionOf(kEditRecurrence), kChoiceWeekly);
    });
    Desk.Cancel();
    EXPECT_EQ(Desk.Run(kModeAppointment, item), IDCANCEL);
}

} // namespace
} // namespace tavo::test
