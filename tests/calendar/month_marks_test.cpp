// The marks of the month: which days each item marks, where and in which colour.
#include "tests/support/appointment_probe.h"
#include "tests/support/folder_probe.h"
#include "tests/support/running_program.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

constexpr Color kWhite = Color::FromRgb(255, 255, 255);
constexpr Color kBlack = Color::FromRgb(0, 0, 0);
constexpr Color kRed = Color::FromRgb(255, 0, 0);
constexpr Color kBlue = Color::FromRgb(0, 0, 255);
constexpr Color kMagenta = Color::FromRgb(255, 0, 255);
constexpr Color kYellow = Color::FromRgb(255, 255, 0);
constexpr Color kGreen = Color::FromRgb(0, 255, 0);

// Where the marks begin, from the cell's left edge.
constexpr int kAlarmAt = 2;
constexpr int kHolidayAt = 8;
constexpr int kAnniversaryAt = 14;
constexpr int kAppointmentAt = 20;
constexpr int kMemoAt = 26;

class MonthMarks : public testing::Test {
  protected:
    // May 2004 begins on a Saturday, so the 2nd is the Sunday of the second row.
    void Open() {
        ASSERT_TRUE(Program.Start());
        Program.ShowPage(PageNumber::Calendar);
    }

    std::optional<Color> MarkAt(int row, int column, int offset) const {
        return Program.Device.See.PixelAt(4 + 33 * column + offset, 58 + 26 * row + 23);
    }

    RunningProgram Program{At(2004, 5, 20, 12, 0)};
};

TEST_F(MonthMarks, AnAppointmentMarksItsDayInYellow) {
    Program.GivenAppointment(u"Dentist", At(2004, 5, 3, 9), At(2004, 5, 3, 10));
    Open();
    EXPECT_EQ(Program.CellName(1, 1), u"2004-05-03: appointment");
    EXPECT_EQ(MarkAt(1, 1, kAppointmentAt), kYellow);
    EXPECT_EQ(MarkAt(1, 1, kAppointmentAt + 4), kYellow);
    EXPECT_EQ(MarkAt(1, 1, kAlarmAt), kWhite);
    EXPECT_EQ(MarkAt(1, 1, kHolidayAt), kWhite);
    EXPECT_EQ(MarkAt(1, 1, kAnniversaryAt), kWhite);
    EXPECT_EQ(MarkAt(1, 1, kMemoAt), kWhite);
}

TEST_F(MonthMarks, AMarkIsFivePixelsWideAndFourHigh) {
    Program.GivenAppointment(u"Dentist", At(2004, 5, 3, 9), At(2004, 5, 3, 10));
    Open();
    const int left = 4 + 33 + kAppointmentAt;
    const auto pixel = [&](int x, int y) { return Program.Device.See.PixelAt(x, y); };
    EXPECT_EQ(pixel(left, 106), kYellow);
    EXPECT_EQ(pixel(left + 4, 109), kYellow);
    EXPECT_EQ(pixel(left - 1, 107), kWhite);
    EXPECT_EQ(pixel(left + 5, 107), kWhite);
    EXPECT_EQ(pixel(left, 105), kWhite);
    EXPECT_EQ(pixel(left, 110), kBlack); // the grid line stays
}

TEST_F(MonthMarks, EachKindHasItsOwnPlaceAndColour) {
    const Oid alarm = Program.GivenAppointment(u"Wake", At(2004, 5, 4, 9), At(2004, 5, 4, 9));
    const Oid holiday = Program.GivenAllDay(u"Feast", At(2004, 5, 4));
    const Oid anniversary = Program.GivenAllDay(u"Birth", At(2004, 5, 4));
    Program.GivenAppointment(u"Lunch", At(2004, 5, 4, 12), At(2004, 5, 4, 13));
    Program.WriteFile("20040504_101010.pwi", "ink");
    ASSERT_TRUE(Program.Start());
    Program.State().Categories.AlarmList.Append(alarm);
    Program.State().Categories.HolidayList.Append(holiday);
    Program.State().Categories.AnniversaryList.Append(anniversary);
    Program.ShowPage(PageNumber::Calendar);
    EXPECT_EQ(Program.CellName(1, 2), u"2004-05-04: alarm, holiday, anniversary, appointment, memo");
    EXPECT_EQ(MarkAt(1, 2, kAlarmAt), kBlue);
    EXPECT_EQ(MarkAt(1, 2, kHolidayAt), kRed);
    EXPECT_EQ(MarkAt(1, 2, kAnniversaryAt), kMagenta);
    EXPECT_EQ(MarkAt(1, 2, kAppointmentAt), kYellow);
    EXPECT_EQ(MarkAt(1, 2, kMemoAt), kGreen);
    EXPECT_EQ(Program.NumberIn(1, 2).Ink, kRed);
}

TEST_F(MonthMarks, AnAlarmThatIsAHolidayTooShowsTheBlueMarkAndARedNumber) {
    const Oid oid = Program.GivenAppointment(u"Wake", At(2004, 5, 5, 9), At(2004, 5, 5, 9));
    ASSERT_TRUE(Program.Start());
    Program.State().Categories.AlarmList.Append(oid);
    Program.State().Categories.HolidayList.Append(oid);
    Program.ShowPage(PageNumber::Calendar);
    EXPECT_EQ(Program.CellName(1, 3), u"2004-05-05: alarm, holiday"); // what the red number says
    EXPECT_EQ(MarkAt(1, 3, kAlarmAt), kBlue);
    EXPECT_EQ(MarkAt(1, 3, kHolidayAt), kWhite);
    EXPECT_EQ(Program.NumberIn(1, 3).Ink, kRed);
}

TEST_F(MonthMarks, AHolidayInTheNextMonthIsRedInItsSmallerFont) {
    const Oid oid = Program.GivenAllDay(u"Feast", At(2004, 6, 2));
    ASSERT_TRUE(Program.Start());
    Program.State().Categories.HolidayList.Append(oid);
    Program.ShowPage(PageNumber::Calendar);
    EXPECT_EQ(Program.CellName(5, 3), u"2004-06-02: holiday");
    EXPECT_EQ(Program.NumberIn(5, 3).Ink, kRed);
}

TEST_F(MonthMarks, AnAllDayItemThatEndsAtMidnightDoesNotMarkItsLastDay) {
    Program.GivenAppointment(u"Away", At(2004, 5, 3), At(2004, 5, 4),
                             [](IAppointment& item) { EXPECT_EQ(item.put_AllDayEvent(true), Status::Ok); });
    Open();
    EXPECT_EQ(Program.CellName(1, 1), u"2004-05-03: appointment");
    EXPECT_EQ(Program.CellName(1, 2), u"2004-05-04");
}

TEST_F(MonthMarks, AnItemThatEndsLaterInTheDayMarksBothDays) {
    Program.GivenAppointment(u"Trip", At(2004, 5, 3, 9), At(2004, 5, 4, 10));
    Open();
    EXPECT_EQ(Program.CellName(1, 1), u"2004-05-03: appointment");
    EXPECT_EQ(Program.CellName(1, 2), u"2004-05-04: appointment");
}

TEST_F(MonthMarks, AnItemThatEndsAtItsOwnClockTimeDoesNotMarkItsLastDay) {
    Program.GivenAppointment(u"Watch", At(2004, 5, 3, 9, 30), At(2004, 5, 5, 9, 30));
    Open();
    EXPECT_EQ(Program.CellName(1, 2), u"2004-05-04: appointment");
    EXPECT_EQ(Program.CellName(1, 3), u"2004-05-05");
}

TEST_F(MonthMarks, ADayWithAMemoShowsTheGreenMark) {
    Program.WriteFile("20040509_235959.pwi", "ink");
    Program.WriteFile("20040519_235959.txt", "no ink");
    Open();
    EXPECT_EQ(Program.CellName(2, 0), u"2004-05-09: memo");
    EXPECT_EQ(MarkAt(2, 0, kMemoAt), kGreen);
    EXPECT_EQ(MarkAt(2, 0, kMemoAt + 4), kGreen);
    EXPECT_EQ(Program.CellName(3, 3), u"2004-05-19");
}

TEST_F(MonthMarks, ASeriesMarksEachOfItsDays) {
    Program.GivenSeries(u"Yoga", At(2004, 4, 1, 18), At(2004, 4, 1, 19), kRecursWeekly); // a Thursday
    Open();
    EXPECT_EQ(Program.CellName(0, 4), u"2004-04-29: appointment");
    EXPECT_EQ(Program.CellName(1, 4), u"2004-05-06: appointment");
    EXPECT_EQ(Program.CellName(5, 4), u"2004-06-03: appointment");
    EXPECT_EQ(Program.CellName(1, 5), u"2004-05-07");
}

TEST_F(MonthMarks, AnItemFromTheFirstOfTheMonthBeforeIsMarkedWhereItRunsIntoTheGrid) {
    Program.GivenAppointment(u"Found", At(2004, 4, 1, 8), At(2004, 4, 28, 9));
    Open();
    EXPECT_EQ(Program.CellName(0, 0), u"2004-04-25: appointment");
    EXPECT_EQ(Program.CellName(0, 3), u"2004-04-28: appointment");
    EXPECT_EQ(Program.CellName(0, 4), u"2004-04-29");
}

TEST_F(MonthMarks, AnItemFromBeforeTheMonthBeforeIsNotMarkedThoughItStillRuns) {
    Program.GivenAppointment(u"Long", At(2004, 3, 31, 8), At(2004, 4, 28, 9));
    Open();
    EXPECT_EQ(Program.CellName(0, 0), u"2004-04-25");
    EXPECT_EQ(Program.CellName(0, 3), u"2004-04-28");
}

TEST_F(MonthMarks, JanuaryLooksBackToTheFirstOfDecember) {
    ASSERT_TRUE(Program.Start());
    Program.GivenAppointment(u"Found", At(2004, 12, 1, 8), At(2004, 12, 27, 9));
    Program.GivenAppointment(u"Long", At(2004, 11, 30, 8), At(2004, 12, 28, 9));
    Program.Device.SetClock(At(2005, 1, 10)); // its grid begins with 26 December
    Program.ShowPage(PageNumber::Calendar);
    Program.Device.Tap(218, 18);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.CellName(0, 0), u"2004-12-26: appointment");
    EXPECT_EQ(Program.CellName(0, 1), u"2004-12-27: appointment");
    EXPECT_EQ(Program.CellName(0, 2), u"2004-12-28");
}

TEST_F(MonthMarks, AnItemThatRunsBeyondTheGridMarksUpToItsEnd) {
    Program.GivenAppointment(u"Trip", At(2004, 6, 4, 8), At(2004, 6, 20, 9));
    Open();
    EXPECT_EQ(Program.CellName(5, 5), u"2004-06-04: appointment");
    EXPECT_EQ(Program.CellName(5, 6), u"2004-06-05: appointment");
}

TEST_F(MonthMarks, ATapKeepsTheMarks) {
    Program.GivenAppointment(u"Dentist", At(2004, 5, 3, 9), At(2004, 5, 3, 10));
    Open();
    Program.TapAside(50, 90);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.SelectedCell(), 8);
    EXPECT_EQ(MarkAt(1, 1, kAppointmentAt), kYellow);
}

TEST_F(MonthMarks, AMonthWithoutItemsHasNoMarks) {
    Open();
    for (int row = 0; row < 6; ++row) {
        for (int column = 0; column < 7; ++column) {
            EXPECT_EQ(Program.CellName(row, column).find(u':'), std::u16string::npos);
        }
    }
}

TEST_F(MonthMarks, AnItemThatTellsNotWhoItIsOrWhenIsLeftOut) {
    const Oid dentist = Program.GivenAppointment(u"Dentist", At(2004, 5, 3, 9), At(2004, 5, 3, 10));
    Program.GivenAppointment(u"Lunch", At(2004, 5, 5, 12), At(2004, 5, 5, 13));
    Open();
    ComPtr<IAppointment> item;
    ASSERT_EQ(Program.Connect()->GetItemFromOid(dentist, item), Status::Ok);
    AppointmentProbe probe(*item.Get());
    FolderFaults faults;
    faults.First = &probe;
    ComPtr<IFolder>& folder = Program.State().Store.CalendarFolder;
    folder = FolderProbe::Make(folder, faults);
    const auto marks = [&] {
        Program.Device.Tap(218, 18); // the Today button, which asks the store again
        EXPECT_TRUE(Program.Settle());
        EXPECT_EQ(Program.CellName(0, 0), u"2004-04-25");
        EXPECT_EQ(Program.CellName(1, 3), u"2004-05-05: appointment");
        return Program.CellName(1, 1);
    };
    EXPECT_EQ(marks(), u"2004-05-03: appointment");
    for (Status* result : {&probe.OidResult, &probe.StartResult, &probe.EndResult}) {
        *result = Status::Fail;
        EXPECT_EQ(marks(), u"2004-05-03");
        *result = Status::Ok;
    }
    Program.Stop(); // before the probe goes
}

TEST_F(MonthMarks, AFailingStoreLeavesTheGridWithoutAppointmentMarks) {
    Program.GivenAppointment(u"Dentist", At(2004, 5, 3, 9), At(2004, 5, 3, 10));
    Program.WriteFile("20040503_101010.pwi", "ink");
    Open();
    Program.State().Store.CalendarFolder.Reset(); // as when fetching the folder's items fails
    Program.Device.Key(VK_RIGHT);
    Program.Device.Key(VK_LEFT);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.CellName(1, 1), u"2004-05-03: memo");
    EXPECT_TRUE(Program.Device.Host().Seen.Boxes.empty());
}

} // namespace
} // namespace tavo::test
