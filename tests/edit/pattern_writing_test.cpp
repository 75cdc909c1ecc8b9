// What the pattern page writes, by tab and row, and which numbers the store then refuses.
#include "tests/edit/wizard_desk.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

class PatternWriting : public testing::Test {
  protected:
    SavedPattern Finish() {
        Desk.Done();
        EXPECT_EQ(Desk.RunWizard(), IDOK);
        return Desk.Held();
    }

    WizardDesk Desk; // Saturday, 21 November 2026
};

TEST_F(PatternWriting, DailyWritesTypeAndIntervalAlone) {
    Desk.Rule(kRecursWeekly, 1, 5, 4);
    const SavedPattern before = Desk.Held();
    Desk.TapTab(0);
    Desk.TypeOnPattern(kPatternDayInterval, u"15");
    const SavedPattern held = Finish();
    EXPECT_EQ(held.Type, kRecursDaily);
    EXPECT_EQ(held.Interval, 15);
    EXPECT_EQ(held.Mask, 5);
    EXPECT_EQ(held.Instance, 4);
    EXPECT_EQ(held.DayOfMonth, before.DayOfMonth);
    EXPECT_EQ(held.Month, before.Month);
}

TEST_F(PatternWriting, WeeklyWritesIntervalAndDays) {
    Desk.Rule(kRecursDaily, 7, 64, 4);
    Desk.TapTab(1);
    Desk.ChooseOnPattern(kPatternWeekInterval, 5);
    Desk.TapPattern(kPatternSunday);
    Desk.TapPattern(kPatternThursday);
    const SavedPattern held = Finish();
    EXPECT_EQ(held.Type, kRecursWeekly);
    EXPECT_EQ(held.Interval, 10); // the sixth entry
    EXPECT_EQ(held.Mask, 1 + 16 + 64);
    EXPECT_EQ(held.Instance, 4);
}

TEST_F(PatternWriting, MonthlyDayWritesIntervalAndDay) {
    Desk.Rule(kRecursWeekly, 1, 5, 4);
    Desk.TapTab(2);
    Desk.ChooseOnPattern(kPatternDayMonths, 2);
    Desk.TypeOnPattern(kPatternDayOfMonth, u"17");
    const SavedPattern held = Finish();
    EXPECT_EQ(held.Type, kRecursMonthly);
    EXPECT_EQ(held.Interval, 3);
    EXPECT_EQ(held.DayOfMonth, 17);
    EXPECT_EQ(held.Mask, 5);
    EXPECT_EQ(held.Instance, 4);
}

TEST_F(PatternWriting, MonthlyTheWritesIntervalInstanceAndDay) {
    const SavedPattern before = Desk.Held();
    Desk.TapTab(2);
    Desk.TypeOnPattern(kPatternTheMonths, u"12");
    Desk.ChooseOnPattern(kPatternTheOrdinal, 1);
    Desk.ChooseOnPattern(kPatternTheWeekday, 3);
    const SavedPattern held = Finish();
    EXPECT_EQ(held.Type, kRecursMonthNth);
    EXPECT_EQ(held.Interval, 12);
    EXPECT_EQ(held.Instance, 2);
    EXPECT_EQ(held.Mask, 8);
    EXPECT_EQ(held.DayOfMonth, before.DayOfMonth);
}

TEST_F(PatternWriting, YearlyDayWritesMonthAndDay) {
    Desk.Rule(kRecursWeekly, 6, 5, 4);
    Desk.TapTab(3);
    Desk.ChooseOnPattern(kPatternYearDayMonth, 1);
    Desk.ChooseOnPattern(kPatternYearDay, 28);
    const SavedPattern held = Finish();
    EXPECT_EQ(held.Type, kRecursYearly);
    EXPECT_EQ(held.Month, 2);
    EXPECT_EQ(held.DayOfMonth, 29);
    EXPECT_EQ(held.Interval, 6);
    EXPECT_EQ(held.Mask, 5);
    EXPECT_EQ(held.Instance, 4);
}

TEST_F(PatternWriting, YearlyNthWritesMonthInstanceAndDay) {
    Desk.Rule(kRecursWeekly, 6, 5, 4);
    Desk.TapTab(3);
    Desk.ChooseOnPattern(kPatternYearNthMonth, 4);
    Desk.ChooseOnPattern(kPatternYearNthOrdinal, 0);
    Desk.ChooseOnPattern(kPatternYearNthWeekday, 6);
    const SavedPattern held = Finish();
    EXPECT_EQ(held.Type, kRecursYearNth);
    EXPECT_EQ(held.Month, 5);
    EXPECT_EQ(held.Instance, 1);
    EXPECT_EQ(held.Mask, 64);
    EXPECT_EQ(held.Interval, 6);
}

TEST_F(PatternWriting, EveryWeekdayOfARowIsItsOwnBit) {
    for (int weekday = 0; weekday < 7; ++weekday) {
        Desk.TapTab(2);
        Desk.ChooseOnPattern(kPatternTheWeekday, weekday);
        EXPECT_EQ(Finish().Mask, 1 << weekday);
    }
}

TEST_F(PatternWriting, NoWeekdayAtAllIsNoDayAndRefused) {
    Desk.Rule(kRecursMonthNth, 1, 64, 3);
    Desk.Device.Do([this] { Desk.Device.Host().Controls().SetCurSel(Desk.OnPattern(kPatternTheWeekday), -1); });
    EXPECT_EQ(Finish().Mask, 0);
    EXPECT_FALSE(Desk.Saves());
}

TEST_F(PatternWriting, TheLastWeekStaysTheLastWeek) {
    Desk.Rule(kRecursMonthNth, 1, 64, 5);
    EXPECT_EQ(Finish().Instance, 5);
    EXPECT_TRUE(Desk.Saves());
    Desk.Rule(kRecursYearNth, 1, 64, 5);
    EXPECT_EQ(Finish().Instance, 5);
}

TEST_F(PatternWriting, AMonthlyRuleKeepsItsShownInterval) {
    Desk.Rule(kRecursMonthly, 4);
    EXPECT_EQ(Finish().Interval, 4);
    EXPECT_EQ(Desk.Held().DayOfMonth, 21);
}

TEST_F(PatternWriting, AnIntervalThatDoesNotShowIsWrittenAsZeroAndRefused) {
    Desk.Rule(kRecursMonthly, 10);
    EXPECT_EQ(Finish().Interval, 0);
    EXPECT_FALSE(Desk.Saves());
}

TEST_F(PatternWriting, AnIntervalNeverTypedIsWrittenAsZeroAndRefused) {
    EXPECT_EQ(Finish().Interval, 0);
    EXPECT_FALSE(Desk.Saves());
    Desk.TapTab(0);
    EXPECT_EQ(Finish().Interval, 0);
    EXPECT_FALSE(Desk.Saves());
}

TEST_F(PatternWriting, IntervalsAreTheirLeadingNumberAndTheStoreTakesOneTo999) {
    const std::tuple<std::u16string, int, bool> intervals[] = {
        {u"0", 0, false},      {u"1", 1, true},    {u"999", 999, true}, {u"1000", 1000, false},
        {u"2 weeks", 2, true}, {u"two", 0, false}, {u"-1", -1, false}};
    for (const auto& [text, number, saves] : intervals) {
        Desk.TapTab(0);
        Desk.TypeOnPattern(kPatternDayInterval, text);
        EXPECT_EQ(Finish().Interval, number);
        EXPECT_EQ(Desk.Saves(), saves) << number;
    }
}

TEST_F(PatternWriting, DaysOfTheMonthAreOneTo31) {
    const std::tuple<std::u16string, int, bool> days[] = {
        {u"1", 1, true}, {u"31", 31, true}, {u"32", 32, false}, {u"0", 0, false}, {u"x", 0, false}};
    for (const auto& [text, number, saves] : days) {
        Desk.TapTab(2);
        Desk.ChooseOnPattern(kPatternDayMonths, 0);
        Desk.TypeOnPattern(kPatternDayOfMonth, text);
        EXPECT_EQ(Finish().DayOfMonth, number);
        EXPECT_EQ(Desk.Saves(), saves) << number;
    }
}

TEST_F(PatternWriting, AYearlyDayThatItsMonthNeverHasIsRefused) {
    const std::tuple<int, int, bool> days[] = {{2, 29, true},  {2, 30, false},  {4, 30, true},
                                               {4, 31, false}, {11, 31, false}, {12, 31, true}};
    for (const auto& [month, day, saves] : days) {
        Desk.TapTab(3);
        Desk.ChooseOnPattern(kPatternYearDayMonth, month - 1);
        Desk.ChooseOnPattern(kPatternYearDay, day - 1);
        EXPECT_EQ(Finish().DayOfMonth, day);
        EXPECT_EQ(Desk.Saves(), saves) << month << ' ' << day;
    }
}

TEST_F(PatternWriting, ACountOfNoneAndAnEndBeforeTheStartAreRefused) {
    const auto finishRange = [this] {
        Desk.TapButton(kWizardNext);
        EXPECT_EQ(Desk.RunWizard(), IDOK);
        return Desk.Saves();
    };
    const auto openRange = [this] {
        Desk.TapTab(0);
        Desk.TypeOnPattern(kPatternDayInterval, u"1");
        Desk.TapButton(kWizardNext);
    };
    for (const auto& [count, saves] : {std::pair(u"0", false), std::pair(u"none", false), std::pair(u"1", true)}) {
        openRange();
        Desk.TapRange(kRangeEndsAfter);
        Desk.TypeOnRange(kRangeCount, count);
        EXPECT_EQ(finishRange(), saves);
    }
    for (const auto& [day, saves] : {std::pair(20, false), std::pair(21, true)}) {
        openRange();
        Desk.TapRange(kRangeEndsOn);
        Desk.PickEnd(2026, 11, day);
        EXPECT_EQ(finishRange(), saves) << day;
    }
}

// Through the editor: its message says what the wizard let pass, and the form stays.
TEST(PatternInTheEditor, ARuleThatTheStoreRefusesIsReportedAtOkAndCanBeMended) {
    EditDesk desk;
    desk.Subject(u"Every so often");
    desk.ChooseRecurrence(8);
    desk.TapShown(kWizardNext); // no interval typed
    desk.TapShown(kWizardNext);
    desk.Ok();
    desk.Device.AnswerBox(IDOK);
    desk.Check([&] {
        EXPECT_EQ(desk.TextOf(kEditSubject), u"Every so often");
        EXPECT_EQ(desk.CountItems(), 0);
    });
    desk.ChooseRecurrence(8);
    desk.TypeIntoShown(kPatternWeekInterval, u"2");
    desk.TapShown(kWizardNext);
    desk.TapShown(kRangeEndsAfter);
    desk.TapShown(kWizardNext);
    desk.Ok();
    EXPECT_EQ(desk.RunNew(kModeNewAppointment), IDOK);
    ASSERT_EQ(desk.Messages().size(), 1U);
    EXPECT_EQ(desk.Messages()[0], u"Tavo Calendar|Cannot save. Please check the Start/End date and Recurrence pattern."
                                  u"\n\nThe recurrence pattern has no interval.!");
    const SavedPattern saved = desk.ReadPattern(desk.LastSaved());
    EXPECT_EQ(saved.Type, kRecursWeekly);
    EXPECT_EQ(saved.Interval, 2);
    EXPECT_EQ(saved.Mask, 64);
    EXPECT_EQ(saved.Occurrences, 10);
    EXPECT_FALSE(saved.NoEnd);
}

} // namespace
} // namespace tavo::test
