// What Save refuses: one test for each rule, and that nothing of a refused item is written.
#include "tests/outlook/store_fixture.h"

#include <limits>

namespace tavo::outlook::test {

class SaveRefusal : public StoreTest {
  protected:
    // A saved series with two fields changed is refused as a whole.
    void ExpectRefused(const ComPtr<IAppointment>& item, Status expected = Status::InvalidArgument) {
        EXPECT_EQ(item->put_Location(u"must not be written"), Status::Ok);
        EXPECT_EQ(item->Save(), expected);
        EXPECT_TRUE(Failed(expected));
        Oid oid = 0;
        ASSERT_EQ(item->get_Oid(oid), Status::Ok);
        if (oid != 0) {
            EXPECT_EQ(Read(oid).Location, u"");
        }
        std::int32_t count = 0;
        ASSERT_EQ(Items()->get_Count(count), Status::Ok);
        EXPECT_EQ(count, oid != 0 ? 1 : 0);
        std::u16string name;
        if (oid == 0) {
            EXPECT_EQ(App->GetUndoName(name), Status::NotFound);
        }
    }

    ComPtr<IAppointment> New() { return NewAppointment("2026-05-04 10:00", "2026-05-04 11:00"); }

    // A new weekly series on Mondays, from Monday the 4th.
    ComPtr<IAppointment> NewSeries() {
        auto item = New();
        EXPECT_EQ(item->GetRecurrencePattern(Pattern), Status::Ok);
        EXPECT_EQ(Pattern->put_RecurrenceType(kRecursWeekly), Status::Ok);
        EXPECT_EQ(Pattern->put_Interval(1), Status::Ok);
        EXPECT_EQ(Pattern->put_DayOfWeekMask(2), Status::Ok);
        EXPECT_EQ(Pattern->put_NoEndDate(true), Status::Ok);
        return item;
    }

    void ExpectSaved(const ComPtr<IAppointment>& item) { EXPECT_EQ(item->Save(), Status::Ok); }

    ComPtr<IRecurrencePattern> Pattern;
};

TEST_F(SaveRefusal, EndBeforeStart) {
    const auto item = New();
    ASSERT_EQ(item->put_End(DateAt("2026-05-04 09:59:59")), Status::Ok);
    ExpectRefused(item);
    ASSERT_EQ(item->put_End(DateAt("2026-05-04 10:00")), Status::Ok);
    ExpectSaved(item);
}

TEST_F(SaveRefusal, LongerThan31Days) {
    const auto item = New();
    ASSERT_EQ(item->put_End(DateAt("2026-06-04 10:00:01")), Status::Ok);
    ExpectRefused(item);
    ASSERT_EQ(item->put_End(DateAt("2026-06-04 10:00")), Status::Ok);
    ExpectSaved(item);
}

TEST_F(SaveRefusal, NegativeDuration) {
    const auto item = New();
    ASSERT_EQ(item->put_Duration(-1), Status::Ok);
    ExpectRefused(item);
}

TEST_F(SaveRefusal, DateBefore1900) {
    const auto item = New();
    ASSERT_EQ(item->put_Start(DateAt("1899-12-31 23:00")), Status::Ok);
    ExpectRefused(item);
    ASSERT_EQ(item->put_Start(DateAt("1900-01-01 00:00")), Status::Ok);
    ExpectSaved(item);
}

TEST_F(SaveRefusal, DateAfter2999) {
    const auto item = New();
    ASSERT_EQ(item->put_Start(DateAt("3000-01-01 00:00")), Status::Ok);
    ExpectRefused(item);
    ASSERT_EQ(item->put_Start(DateAt("2999-12-31 22:30")), Status::Ok);
    ExpectSaved(item);
}

TEST_F(SaveRefusal, WhatIsNoDateAtAll) {
    const auto item = New();
    ASSERT_EQ(item->put_Start(std::numeric_limits<double>::quiet_NaN()), Status::Ok);
    ExpectRefused(item);
    ASSERT_EQ(item->put_Start(std::numeric_limits<double>::infinity()), Status::Ok);
    ExpectRefused(item);
    ASSERT_EQ(item->put_Start(kNoDate), Status::Ok);
    ExpectRefused(item);
}

TEST_F(SaveRefusal, AnItemWithoutTimes) {
    ComPtr<IAppointment> item;
    ASSERT_EQ(App->CreateItem(kItemAppointment, item), Status::Ok);
    ExpectRefused(item);
}

TEST_F(SaveRefusal, IntervalOutside1To999) {
    const auto item = NewSeries();
    for (const std::int32_t bad : {0, -1, 1000}) {
        ASSERT_EQ(Pattern->put_Interval(bad), Status::Ok);
        ExpectRefused(item);
    }
    ASSERT_EQ(Pattern->put_Interval(999), Status::Ok);
    ExpectSaved(item);
}

TEST_F(SaveRefusal, DayOfMonthOutside1To31) {
    const auto item = NewSeries();
    ASSERT_EQ(Pattern->put_RecurrenceType(kRecursMonthly), Status::Ok);
    for (const std::int32_t bad : {0, -1, 32}) {
        ASSERT_EQ(Pattern->put_DayOfMonth(bad), Status::Ok);
        ExpectRefused(item);
    }
    ASSERT_EQ(Pattern->put_DayOfMonth(31), Status::Ok);
    ExpectSaved(item);
}

TEST_F(SaveRefusal, MonthOutside1To12) {
    const auto item = NewSeries();
    ASSERT_EQ(Pattern->put_RecurrenceType(kRecursYearly), Status::Ok);
    ASSERT_EQ(Pattern->put_DayOfMonth(1), Status::Ok);
    for (const std::int32_t bad : {0, -1, 13}) {
        ASSERT_EQ(Pattern->put_MonthOfYear(bad), Status::Ok);
        ExpectRefused(item);
    }
    ASSERT_EQ(Pattern->put_MonthOfYear(12), Status::Ok);
    ExpectSaved(item);
}

TEST_F(SaveRefusal, InstanceOutside1To5) {
    const auto item = NewSeries();
    ASSERT_EQ(Pattern->put_RecurrenceType(kRecursMonthNth), Status::Ok);
    for (const std::int32_t bad : {0, -1, 6}) {
        ASSERT_EQ(Pattern->put_Instance(bad), Status::Ok);
        ExpectRefused(item);
    }
    ASSERT_EQ(Pattern->put_Instance(5), Status::Ok);
    ExpectSaved(item);
}

TEST_F(SaveRefusal, EmptyMaskWhereOneIsNeeded) {
    const auto item = NewSeries();
    ASSERT_EQ(Pattern->put_DayOfWeekMask(0), Status::Ok);
    for (const std::int32_t type : {kRecursWeekly, kRecursMonthNth, kRecursYearNth}) {
        ASSERT_EQ(Pattern->put_RecurrenceType(type), Status::Ok);
        ExpectRefused(item);
    }
    ASSERT_EQ(Pattern->put_RecurrenceType(kRecursDaily), Status::Ok);
    ExpectSaved(item);
}

TEST_F(SaveRefusal, FewerThanOneOccurrence) {
    const auto item = NewSeries();
    ASSERT_EQ(Pattern->put_NoEndDate(false), Status::Ok);
    for (const std::int32_t bad : {0, -1}) {
        ASSERT_EQ(Pattern->put_Occurrences(bad), Status::Ok);
        ExpectRefused(item);
    }
    ASSERT_EQ(Pattern->put_Occurrences(1), Status::Ok);
    ExpectSaved(item);
}

TEST_F(SaveRefusal, AnEndThatNobodyWrote) {
    const auto item = NewSeries();
    ASSERT_EQ(Pattern->put_NoEndDate(false), Status::Ok);
    ExpectRefused(item);
}

TEST_F(SaveRefusal, PatternEndBeforeItsStart) {
    const auto item = NewSeries();
    ASSERT_EQ(Pattern->put_NoEndDate(false), Status::Ok);
    ASSERT_EQ(Pattern->put_PatternEndDate(DateAt("2026-05-03")), Status::Ok);
    ExpectRefused(item);
    ASSERT_EQ(Pattern->put_PatternEndDate(DateAt("2026-05-04")), Status::Ok);
    ExpectSaved(item);
}

TEST_F(SaveRefusal, PatternEndBeforeTheFirstMatch) {
    const auto item = NewSeries();
    ASSERT_EQ(Pattern->put_DayOfWeekMask(64), Status::Ok); // Saturday the 9th is the first
    ASSERT_EQ(Pattern->put_NoEndDate(false), Status::Ok);
    ASSERT_EQ(Pattern->put_PatternEndDate(DateAt("2026-05-08")), Status::Ok);
    ExpectRefused(item);
    ASSERT_EQ(Pattern->put_PatternEndDate(DateAt("2026-05-09")), Status::Ok);
    ExpectSaved(item);
}

TEST_F(SaveRefusal, PatternEndAfter2999) {
    const auto item = NewSeries();
    ASSERT_EQ(Pattern->put_NoEndDate(false), Status::Ok);
    ASSERT_EQ(Pattern->put_PatternEndDate(kNoDate), Status::Ok);
    ExpectRefused(item);
}

TEST_F(SaveRefusal, AYearlyDayThatItsMonthNeverHas) {
    const auto item = NewSeries();
    ASSERT_EQ(Pattern->put_RecurrenceType(kRecursYearly), Status::Ok);
    ASSERT_EQ(Pattern->put_MonthOfYear(4), Status::Ok);
    ASSERT_EQ(Pattern->put_DayOfMonth(31), Status::Ok);
    ExpectRefused(item);
    ASSERT_EQ(Pattern->put_MonthOfYear(2), Status::Ok);
    ASSERT_EQ(Pattern->put_DayOfMonth(30), Status::Ok);
    ExpectRefused(item);
    ASSERT_EQ(Pattern->put_DayOfMonth(29), Status::Ok);
    ExpectSaved(item);
}

TEST_F(SaveRefusal, ARecurrenceTypeThatThereIsNot) {
    const auto item = NewSeries();
    for (const std::int32_t bad : {4, 8, -2, kRecursForeign}) {
        ASSERT_EQ(Pattern->put_RecurrenceType(bad), Status::Ok);
        ExpectRefused(item);
    }
}

TEST_F(SaveRefusal, OnlyTheFieldsThatTheTypeUsesAreLookedAt) {
    const auto item = NewSeries();
    ASSERT_EQ(Pattern->put_RecurrenceType(kRecursYearly), Status::Ok);
    ASSERT_EQ(Pattern->put_MonthOfYear(5), Status::Ok);
    ASSERT_EQ(Pattern->put_DayOfMonth(4), Status::Ok);
    ASSERT_EQ(Pattern->put_Interval(0), Status::Ok);
    ASSERT_EQ(Pattern->put_Instance(0), Status::Ok);
    ASSERT_EQ(Pattern->put_DayOfWeekMask(0), Status::Ok);
    ExpectSaved(item);
}

TEST_F(SaveRefusal, InkAbove4MiBIsRefusedAndTheNoteStays) {
    const auto item = New();
    ASSERT_EQ(item->put_BodyInk(std::vector<std::uint8_t>{1, 2, 3}), Status::Ok);
    EXPECT_EQ(item->put_BodyInk(std::vector<std::uint8_t>((4 << 20) + 1)), Status::TooLarge);
    std::vector<std::uint8_t> ink;
    ASSERT_EQ(item->get_BodyInk(ink), Status::Ok);
    EXPECT_EQ(ink, (std::vector<std::uint8_t>{1, 2, 3}));
    ASSERT_EQ(item->put_BodyInk(std::vector<std::uint8_t>(4 << 20, 9)), Status::Ok);
    ExpectSaved(item);
}

TEST_F(SaveRefusal, AnExistingItemKeepsWhatItWas) {
    const Oid oid = Add("2026-05-04 10:00", "2026-05-04 11:00", u"Before");
    const StoredItem before = Read(oid);
    const auto item = Get(oid);
    ASSERT_EQ(item->put_Subject(u"After"), Status::Ok);
    ASSERT_EQ(item->put_End(DateAt("2026-05-01")), Status::Ok);
    ExpectRefused(item);
    EXPECT_EQ(Read(oid), before);
}

TEST_F(SaveRefusal, AnItemThatIsGoneCannotBeSaved) {
    const Oid oid = Add("2026-05-04 10:00", "2026-05-04 11:00");
    const auto item = Get(oid);
    ASSERT_EQ(Get(oid)->Delete(), Status::Ok);
    ASSERT_EQ(item->put_Subject(u"Late"), Status::Ok);
    EXPECT_EQ(item->Save(), Status::NotFound);
    EXPECT_EQ(item->Delete(), Status::NotFound);
    EXPECT_FALSE(Exists(oid));
}

} // namespace tavo::outlook::test
