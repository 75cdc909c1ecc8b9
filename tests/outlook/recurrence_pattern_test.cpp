// Patterns of series: their properties, their ends, and what survives an edit.
#include "tests/outlook/store_fixture.h"

#include <gmock/gmock.h>

namespace tavo::outlook::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RecurrencePattern : public StoreTest {
  protected:
    static ComPtr<IRecurrencePattern> PatternOf(const ComPtr<IAppointment>& item) {
        ComPtr<IRecurrencePattern> pattern;
        EXPECT_EQ(item->GetRecurrencePattern(pattern), Status::Ok);
        return pattern;
    }

    // Cancels and moves one occurrence each of a daily series at nine.
    void MakeExceptions(Oid oid) {
        const auto items = Restrict(u"[Start] <= 5/5/2026");
        ASSERT_EQ(items->put_IncludeRecurrences(true), Status::Ok);
        ComPtr<IAppointment> second;
        ComPtr<IAppointment> third;
        ASSERT_EQ(items->Item(2, second), Status::Ok);
        ASSERT_EQ(items->Item(3, third), Status::Ok);
        ASSERT_EQ(second->Delete(), Status::Ok);
        ASSERT_EQ(third->put_Start(DateAt("2026-05-03 15:00")), Status::Ok);
        ASSERT_EQ(third->Save(), Status::Ok);
        ASSERT_EQ(Read(oid).Exceptions.size(), 2U);
    }
};

TEST_F(RecurrencePattern, TheQuickChoicesOfTheEditDialogMakeASeries) {
    const auto item = NewAppointment("2026-05-04 10:00", "2026-05-04 11:00");
    const auto pattern = PatternOf(item);
    ASSERT_EQ(pattern->put_RecurrenceType(kRecursWeekly), Status::Ok);
    ASSERT_EQ(pattern->put_PatternStartDate(DateAt("2026-05-04 10:00")), Status::Ok);
    ASSERT_EQ(pattern->put_NoEndDate(true), Status::Ok);
    ASSERT_EQ(pattern->put_StartTime(DateAt("2026-05-04 10:00")), Status::Ok);
    ASSERT_EQ(pattern->put_Duration(60), Status::Ok);
    ASSERT_EQ(pattern->put_EndTime(DateAt("2026-05-04 11:00")), Status::Ok);
    ASSERT_EQ(pattern->put_Interval(1), Status::Ok);
    ASSERT_EQ(pattern->put_DayOfWeekMask(kWeekdaysMask), Status::Ok);
    ASSERT_EQ(pattern->put_DayOfMonth(4), Status::Ok);
    ASSERT_EQ(pattern->put_Instance(1), Status::Ok);
    ASSERT_EQ(pattern->put_MonthOfYear(5), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_THAT(Occurrences(u"[Start] >= 5/8/2026 and [Start] <= 5/11/2026"),
                ElementsAre("2026-05-08 10:00 > 2026-05-08 11:00", "2026-05-11 10:00 > 2026-05-11 11:00"));
    bool recurring = false;
    ASSERT_EQ(item->get_IsRecurring(recurring), Status::Ok);
    EXPECT_TRUE(recurring);
}

TEST_F(RecurrencePattern, ClearingBeforeSaveLeavesAPlainItem) {
    const auto item = NewAppointment("2026-05-04 10:00", "2026-05-04 11:00");
    const auto pattern = PatternOf(item);
    ASSERT_EQ(pattern->put_RecurrenceType(kRecursWeekly), Status::Ok);
    ASSERT_EQ(pattern->put_Occurrences(10), Status::Ok);
    ASSERT_EQ(item->ClearRecurrencePattern(), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    bool recurring = true;
    ASSERT_EQ(item->get_IsRecurring(recurring), Status::Ok);
    EXPECT_FALSE(recurring);
    // The pattern that is still held makes it recur again.
    ASSERT_EQ(pattern->put_RecurrenceType(kRecursDaily), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_EQ(Starts(u"[Start] <= 5/6/2026").size(), 3U);
}

TEST_F(RecurrencePattern, ReadingAFreshPatternMakesNothingRecur) {
    const auto item = NewAppointment("2026-05-04 10:00", "2026-05-04 11:00");
    const auto pattern = PatternOf(item);
    std::int32_t number = 0;
    EXPECT_EQ(pattern->get_DayOfWeekMask(number), Status::Ok);
    EXPECT_EQ(number, 2); // a Monday
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_FALSE(Read(1).IsRecurring());
}

TEST_F(RecurrencePattern, ADateGivesTheCountAtSave) {
    const auto item = NewAppointment("2026-05-04 10:00", "2026-05-04 11:00");
    const auto pattern = PatternOf(item);
    ASSERT_EQ(pattern->put_RecurrenceType(kRecursWeekly), Status::Ok);
    ASSERT_EQ(pattern->put_DayOfWeekMask(2 | 16), Status::Ok); // Monday and Thursday
    ASSERT_EQ(pattern->put_NoEndDate(false), Status::Ok);
    ASSERT_EQ(pattern->put_PatternEndDate(DateAt("2026-05-20 23:59:59")), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    std::int32_t count = 0;
    DATE end = 0;
    EXPECT_EQ(pattern->get_Occurrences(count), Status::Ok);
    EXPECT_EQ(count, 5);
    EXPECT_EQ(pattern->get_PatternEndDate(end), Status::Ok);
    EXPECT_EQ(end, DateAt("2026-05-20"));
}

TEST_F(RecurrencePattern, ACountGivesTheDateAtSave) {
    const auto item = NewAppointment("2026-01-31 10:00", "2026-01-31 11:00");
    const auto pattern = PatternOf(item);
    ASSERT_EQ(pattern->put_RecurrenceType(kRecursMonthly), Status::Ok);
    ASSERT_EQ(pattern->put_DayOfMonth(31), Status::Ok);
    ASSERT_EQ(pattern->put_NoEndDate(false), Status::Ok);
    ASSERT_EQ(pattern->put_Occurrences(4), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    DATE end = 0;
    EXPECT_EQ(pattern->get_PatternEndDate(end), Status::Ok);
    EXPECT_EQ(end, DateAt("2026-04-30"));
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2026"),
                ElementsAre("2026-01-31 10:00", "2026-02-28 10:00", "2026-03-31 10:00", "2026-04-30 10:00"));
}

TEST_F(RecurrencePattern, OfDateAndCountTheOneWrittenLastRules) {
    const auto item = NewAppointment("2026-05-04 10:00", "2026-05-04 11:00");
    const auto pattern = PatternOf(item);
    ASSERT_EQ(pattern->put_RecurrenceType(kRecursDaily), Status::Ok);
    ASSERT_EQ(pattern->put_NoEndDate(false), Status::Ok);
    ASSERT_EQ(pattern->put_Occurrences(10), Status::Ok);
    ASSERT_EQ(pattern->put_PatternEndDate(DateAt("2026-05-05")), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_EQ(Starts(u"[Start] <= 12/31/2026").size(), 2U);
    ASSERT_EQ(pattern->put_Occurrences(3), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_EQ(Starts(u"[Start] <= 12/31/2026").size(), 3U);
    // The count was written last: it rules when the start moves.
    ASSERT_EQ(pattern->put_PatternStartDate(DateAt("2026-06-01")), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2026"),
                ElementsAre("2026-06-01 10:00", "2026-06-02 10:00", "2026-06-03 10:00"));
}

TEST_F(RecurrencePattern, WithNoEndThereIsNoDateAndNoCount) {
    const auto item = NewAppointment("2026-05-04 10:00", "2026-05-04 11:00");
    const auto pattern = PatternOf(item);
    ASSERT_EQ(pattern->put_RecurrenceType(kRecursDaily), Status::Ok);
    ASSERT_EQ(pattern->put_Occurrences(10), Status::Ok);
    ASSERT_EQ(pattern->put_NoEndDate(true), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    bool noEnd = false;
    DATE end = 0;
    std::int32_t count = -1;
    EXPECT_EQ(pattern->get_NoEndDate(noEnd), Status::Ok);
    EXPECT_EQ(pattern->get_PatternEndDate(end), Status::Ok);
    EXPECT_EQ(pattern->get_Occurrences(count), Status::Ok);
    EXPECT_TRUE(noEnd);
    EXPECT_EQ(end, kNoDate);
    EXPECT_EQ(count, 0);
}

TEST_F(RecurrencePattern, SettingTheTypeResetsNothing) {
    const auto item = NewAppointment("2026-05-04 10:00", "2026-05-04 11:00");
    const auto pattern = PatternOf(item);
    ASSERT_EQ(pattern->put_Interval(7), Status::Ok);
    ASSERT_EQ(pattern->put_Instance(3), Status::Ok);
    ASSERT_EQ(pattern->put_RecurrenceType(kRecursMonthNth), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_EQ(Read(1).Pattern.Interval, 7);
    EXPECT_EQ(Read(1).Pattern.Instance, 3);
}

TEST_F(RecurrencePattern, SaveDoesNotMoveTheStartToTheFirstMatch) {
    const Oid oid = AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Counted(Weekly(4), 2)); // a Friday; Tuesdays
    EXPECT_EQ(TextOf(Read(oid).Start), "2026-05-01 09:00");
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2026"), ElementsAre("2026-05-05 09:00", "2026-05-12 09:00"));
}

TEST_F(RecurrencePattern, ADailyPatternIgnoresTheMaskExceptMondayToFriday) {
    StoredPattern pattern = Counted(Daily(), 3);
    pattern.DayOfWeekMask = 1;
    AddSeries("2026-05-08 09:00", "2026-05-08 09:30", pattern);
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2026"),
                ElementsAre("2026-05-08 09:00", "2026-05-09 09:00", "2026-05-10 09:00"));
    ASSERT_EQ(Get(1)->Delete(), Status::Ok);
    pattern.DayOfWeekMask = kWeekdaysMask;
    AddSeries("2026-05-08 09:00", "2026-05-08 09:30", pattern);
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2026"),
                ElementsAre("2026-05-08 09:00", "2026-05-11 09:00", "2026-05-12 09:00"));
}

TEST_F(RecurrencePattern, LeapDayFallsOnThe28thInOtherYears) {
    AddSeries("2024-02-29 09:00", "2024-02-29 09:30", Counted(Yearly(2, 29), 5));
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2040"),
                ElementsAre("2024-02-29 09:00", "2025-02-28 09:00", "2026-02-28 09:00", "2027-02-28 09:00",
                            "2028-02-29 09:00"));
}

TEST_F(RecurrencePattern, InstanceFiveIsTheLast) {
    AddSeries("2026-01-01 09:00", "2026-01-01 09:30", Counted(MonthNth(5, 64), 3));
    AddSeries("2026-01-01 10:00", "2026-01-01 10:30", Counted(YearNth(11, 4, 16), 2));
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2040"),
                ElementsAre("2026-01-31 09:00", "2026-02-28 09:00", "2026-03-28 09:00", "2026-11-26 10:00",
                            "2027-11-25 10:00"));
}

TEST_F(RecurrencePattern, TheSeriesTimesAreTheItems) {
    const Oid oid = AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Daily());
    const auto item = Get(oid);
    const auto pattern = PatternOf(item);
    ASSERT_EQ(item->put_Start(DateAt("2026-05-01 22:00")), Status::Ok);
    ASSERT_EQ(item->put_Duration(180), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    DATE time = 0;
    std::int32_t minutes = 0;
    EXPECT_EQ(pattern->get_StartTime(time), Status::Ok);
    EXPECT_EQ(TextOf(SecondsFromDate(time)), "1899-12-30 22:00");
    EXPECT_EQ(pattern->get_EndTime(time), Status::Ok);
    EXPECT_EQ(TextOf(SecondsFromDate(time)), "1899-12-30 01:00");
    EXPECT_EQ(pattern->get_Duration(minutes), Status::Ok);
    EXPECT_EQ(minutes, 180);
    EXPECT_THAT(Occurrences(u"[Start] = 5/2/2026"), ElementsAre("2026-05-02 22:00 > 2026-05-03 01:00"));
}

TEST_F(RecurrencePattern, CancelledAndMovedOccurrencesLeaveTheirPlaces) {
    const Oid oid = AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Daily());
    MakeExceptions(oid);
    EXPECT_THAT(Occurrences(u"[Start] <= 5/4/2026"),
                ElementsAre("2026-05-01 09:00 > 2026-05-01 09:30", "2026-05-03 15:00 > 2026-05-03 15:30",
                            "2026-05-04 09:00 > 2026-05-04 09:30"));
}

TEST_F(RecurrencePattern, AMovedOccurrenceIsFoundWhereItWent) {
    const Oid oid = AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Weekly(32));
    const auto items = Restrict(u"[Start] = 5/8/2026");
    ASSERT_EQ(items->put_IncludeRecurrences(true), Status::Ok);
    ComPtr<IAppointment> occurrence;
    ASSERT_EQ(items->Item(1, occurrence), Status::Ok);
    ASSERT_EQ(occurrence->put_Start(DateAt("2026-04-20 12:00")), Status::Ok); // before the series begins
    ASSERT_EQ(occurrence->put_Subject(u"Elsewhere"), Status::Ok);
    ASSERT_EQ(occurrence->Save(), Status::Ok);
    EXPECT_THAT(Starts(u"[Start] <= 5/16/2026"),
                ElementsAre("2026-04-20 12:00", "2026-05-01 09:00", "2026-05-15 09:00"));
    EXPECT_THAT(Oids(u"[Start] = 4/20/2026 and [Subject] = \"Elsewhere\""), ElementsAre(oid));
    EXPECT_EQ(Read(oid).Subject, u"Series");
}

TEST_F(RecurrencePattern, AnOccurrenceRefusesWhatBelongsToItsSeries) {
    AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Daily());
    const auto items = Restrict(u"[Start] = 5/2/2026");
    ASSERT_EQ(items->put_IncludeRecurrences(true), Status::Ok);
    ComPtr<IAppointment> occurrence;
    ASSERT_EQ(items->Item(1, occurrence), Status::Ok);
    ASSERT_EQ(occurrence->put_BusyStatus(kBusyFree), Status::Ok);
    EXPECT_EQ(occurrence->Save(), Status::InvalidArgument);
}

TEST_F(RecurrencePattern, ExceptionsSurviveEditsThatDoNotTouchTheRule) {
    const Oid oid = AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Daily());
    MakeExceptions(oid);
    const auto item = Get(oid);
    const auto pattern = PatternOf(item);
    ASSERT_EQ(item->put_Subject(u"Renamed"), Status::Ok);
    // As the edit dialog does: everything is written again, and nothing is different.
    ASSERT_EQ(item->put_Start(DateAt("2026-05-01 09:00")), Status::Ok);
    ASSERT_EQ(item->put_End(DateAt("2026-05-01 09:30")), Status::Ok);
    ASSERT_EQ(pattern->put_RecurrenceType(kRecursDaily), Status::Ok);
    ASSERT_EQ(pattern->put_Interval(1), Status::Ok);
    ASSERT_EQ(pattern->put_DayOfWeekMask(32), Status::Ok);
    ASSERT_EQ(pattern->put_DayOfMonth(1), Status::Ok);
    ASSERT_EQ(pattern->put_NoEndDate(true), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_EQ(Read(oid).Exceptions.size(), 2U);
}

TEST_F(RecurrencePattern, ExceptionsFollowTheSeriesToAnotherTimeOfDay) {
    const Oid oid = AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Daily());
    MakeExceptions(oid);
    const auto item = Get(oid);
    ASSERT_EQ(item->put_Start(DateAt("2026-05-01 11:00")), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_THAT(Starts(u"[Start] <= 5/4/2026"),
                ElementsAre("2026-05-01 11:00", "2026-05-03 15:00", "2026-05-04 11:00"));
}

TEST_F(RecurrencePattern, AnotherRuleOrStartDropsExceptionsIntoTheJournal) {
    const Oid oid = AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Daily());
    MakeExceptions(oid);
    const auto item = Get(oid);
    ASSERT_EQ(PatternOf(item)->put_Interval(2), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_THAT(Read(oid).Exceptions, IsEmpty());
    std::vector<Oid> restored;
    ASSERT_EQ(App->Undo(restored), Status::Ok);
    EXPECT_EQ(Read(oid).Exceptions.size(), 2U);
    const auto again = Get(oid);
    ASSERT_EQ(again->put_Start(DateAt("2026-05-02 09:00")), Status::Ok);
    ASSERT_EQ(again->Save(), Status::Ok);
    EXPECT_THAT(Read(oid).Exceptions, IsEmpty());
}

TEST_F(RecurrencePattern, OccurrencesEndWithTheYear2999) {
    AddSeries("2999-12-30 09:00", "2999-12-30 09:30", Daily());
    EXPECT_EQ(Starts(u"[Start] <= 12/31/9999").size(), 2U);
}

} // namespace tavo::outlook::test
