// The rule that each recurrence choice saves.
#include "store/fill_record.h"
#include "tests/edit/edit_desk.h"
#include "tests/support/appointment_probe.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tavo::test {
namespace {

constexpr std::int32_t kWednesday = 8;

struct Rule {
    int Choice;
    std::int32_t Type;
    std::int32_t Mask;
};

constexpr Rule kRules[] = {{kChoiceEveryday, 0, kWednesday}, {kChoiceWeekly, 1, kWednesday},
                           {kChoiceWeekdays, 1, 62},         {kChoiceMonthly, 2, kWednesday},
                           {kChoiceMonthNth, 3, kWednesday}, {kChoiceYearly, 5, kWednesday},
                           {kChoiceYearNth, 6, kWednesday}};

class SavingRecurrence : public testing::Test {
  protected:
    SavedPattern SaveNew(std::int32_t mode) {
        Desk.Subject(u"Thing");
        Desk.Ok();
        EXPECT_EQ(Desk.RunNew(mode), IDOK);
        EXPECT_TRUE(Desk.Messages().empty());
        return Desk.ReadPattern(Desk.LastSaved());
    }

    EditDesk Desk{At(2026, 11, 18, 9, 47)}; // a Wednesday, the third of its month
};

TEST_F(SavingRecurrence, EveryChoiceOfTheListIsARuleWithoutAnEnd) {
    for (const Rule& rule : kRules) {
        Desk.PickEndTime(11, 0);
        Desk.ChooseRecurrence(rule.Choice);
        const SavedPattern saved = SaveNew(kModeNewAppointment);
        EXPECT_EQ(saved.Type, rule.Type) << rule.Choice;
        EXPECT_EQ(saved.Mask, rule.Mask) << rule.Choice;
        EXPECT_EQ(saved.Interval, 1) << rule.Choice;
        EXPECT_TRUE(saved.NoEnd) << rule.Choice;
        EXPECT_EQ(saved.DayOfMonth, 18) << rule.Choice;
        EXPECT_EQ(saved.Instance, 3) << rule.Choice;
        EXPECT_EQ(saved.Month, 11) << rule.Choice;
        EXPECT_EQ(std::floor(saved.Start), Desk.ToDate(At(2026, 11, 18))) << rule.Choice;
        EXPECT_EQ(saved.Duration, 90) << rule.Choice;
        EXPECT_NEAR(saved.StartTime - std::floor(saved.StartTime), 9.5 / 24, 1e-6) << rule.Choice;
        EXPECT_NEAR(saved.EndTime - std::floor(saved.EndTime), 11.0 / 24, 1e-6) << rule.Choice;
    }
}

TEST_F(SavingRecurrence, EveryKindRecurs) {
    for (const std::int32_t mode : {kModeNewAlarm, kModeNewHoliday, kModeNewAnniversary, kModeNewAppointment}) {
        Desk.ChooseRecurrence(kChoiceYearly);
        const SavedPattern saved = SaveNew(mode);
        EXPECT_EQ(saved.Type, kRecursYearly) << mode;
        EXPECT_EQ(Desk.Load(Desk.LastSaved()).RecurChoice, kChoiceYearly) << mode;
    }
}

TEST_F(SavingRecurrence, WeekdaysAreMondayToFridayEvenFromASunday) {
    Desk.PickStartDate(2026, 11, 22);
    Desk.ChooseRecurrence(kChoiceWeekdays);
    const SavedPattern saved = SaveNew(kModeNewAlarm);
    EXPECT_EQ(saved.Type, kRecursWeekly);
    EXPECT_EQ(saved.Mask, 62);
}

TEST_F(SavingRecurrence, TheBitIsThatOfTheStartsWeekday) {
    for (int day = 0; day < 7; ++day) {
        Desk.PickStartDate(2026, 11, 22 + day); // from Sunday on
        Desk.ChooseRecurrence(kChoiceWeekly);
        EXPECT_EQ(SaveNew(kModeNewAlarm).Mask, 1 << day);
    }
}

TEST_F(SavingRecurrence, FromTheTwentyNinthOnItIsTheLastOfTheMonth) {
    Desk.PickStartDate(2026, 11, 30);
    Desk.ChooseRecurrence(kChoiceMonthNth);
    EXPECT_EQ(SaveNew(kModeNewAlarm).Instance, 5);
}

// A week of the month of 5 is read as a rule of its own, and every choice writes the start's.
TEST_F(SavingRecurrence, FromTheTwentyNinthOnAChoiceIsACustomRuleWhenReadAgain) {
    for (const int day : {28, 29}) {
        for (int choice = kChoiceEveryday; choice < kChoiceCustom; ++choice) {
            Desk.PickStartDate(2026, 11, day);
            Desk.ChooseRecurrence(choice);
            static_cast<void>(SaveNew(kModeNewAlarm));
            EXPECT_EQ(Desk.Load(Desk.LastSaved()).RecurChoice, day < 29 ? choice : kChoiceCustom) << day;
        }
    }
}

TEST_F(SavingRecurrence, OnceRemovesTheRecurrenceOfAnItem) {
    const Oid oid = Desk.GivenSeries(u"Class", At(2026, 11, 18, 9, 0), At(2026, 11, 18, 10, 0), kRecursWeekly);
    Desk.ChooseRecurrence(kChoiceOnce);
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDOK);
    EXPECT_FALSE(Desk.Read(oid).IsRecurring);
    EXPECT_EQ(Desk.Load(oid).RecurChoice, kChoiceOnce);
}

TEST_F(SavingRecurrence, AnItemThatWasOnceCanRecur) {
    const Oid oid = Desk.GivenAppointment(u"Talk", At(2026, 11, 18, 9, 0), At(2026, 11, 18, 10, 0));
    Desk.ChooseRecurrence(kChoiceMonthly);
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDOK);
    EXPECT_EQ(Desk.ReadPattern(oid).Type, kRecursMonthly);
}

TEST_F(SavingRecurrence, ARuleThatIsChosenAfterACancelledWizardIsSaved) {
    const Oid oid = Desk.GivenAppointment(u"Talk", At(2026, 11, 18, 9, 0), At(2026, 11, 18, 10, 0));
    Desk.ChooseRecurrence(kChoiceCustom);
    Desk.TapShown(IDCANCEL);
    Desk.ChooseRecurrence(kChoiceMonthly);
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDOK);
    EXPECT_EQ(Desk.ReadPattern(oid).Type, kRecursMonthly);
}

TEST_F(SavingRecurrence, OpeningAndSavingAnItemThatIsOnceLeavesItSo) {
    const Oid oid = Desk.GivenAppointment(u"Talk", At(2026, 11, 18, 9, 0), At(2026, 11, 18, 10, 0));
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDOK);
    EXPECT_FALSE(Desk.Read(oid).IsRecurring);
}

TEST_F(SavingRecurrence, ACustomRuleSurvivesAChangeOfTheSubject) {
    const Oid oid = Desk.GivenSeries(u"Fortnight", At(2026, 11, 18, 9, 0), At(2026, 11, 18, 10, 0), kRecursWeekly,
                                     [](IRecurrencePattern& pattern) {
                                         EXPECT_EQ(pattern.put_Interval(2), Status::Ok);
                                         EXPECT_EQ(pattern.put_NoEndDate(false), Status::Ok);
                                         EXPECT_EQ(pattern.put_Occurrences(7), Status::Ok);
                                     });
    const SavedPattern before = Desk.ReadPattern(oid);
    Desk.Subject(u"Every other week");
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDOK);
    const SavedPattern after = Desk.ReadPattern(oid);
    EXPECT_EQ(Desk.Read(oid).Subject, u"Every other week");
    EXPECT_EQ(after.Interval, 2);
    EXPECT_EQ(after.Occurrences, 7);
    EXPECT_EQ(after.Mask, before.Mask);
    EXPECT_EQ(after.End, before.End);
    EXPECT_FALSE(after.NoEnd);
}

TEST_F(SavingRecurrence, ASeriesWhosePatternCouldNotBeReadIsNotEndedByOk) {
    const Oid oid = Desk.GivenSeries(u"Class", At(2026, 11, 18, 9, 0), At(2026, 11, 18, 10, 0), kRecursMonthly);
    ComPtr<IAppointment> item;
    ASSERT_EQ(Desk.State.Store.OutlookApp->GetItemFromOid(oid, item), Status::Ok);
    AppointmentProbe probe(*item);
    probe.PatternResult = Status::Fail; // while the record for the editor is made
    AppointmentData record;
    FillRecord(probe, Desk.Pump.Host().Locale(), record);
    Desk.Subject(u"Course");
    Desk.Ok();
    EXPECT_EQ(Desk.Run(kModeAppointment, record), IDOK);
    EXPECT_EQ(Desk.Read(oid).Subject, u"Course");
    EXPECT_TRUE(Desk.Read(oid).IsRecurring);
    EXPECT_EQ(Desk.ReadPattern(oid).Type, kRecursMonthly);
    EXPECT_EQ(Desk.ReadPattern(oid).DayOfMonth, 18);
}

TEST_F(SavingRecurrence, AStoredRuleWithAnEndThatBecomesAQuickChoiceHasNone) {
    for (const int choice : {kChoiceEveryday, kChoiceWeekly, kChoiceMonthly, kChoiceYearly}) {
        const Oid oid = Desk.GivenSeries(u"Class", At(2026, 11, 18, 9, 0), At(2026, 11, 18, 10, 0), kRecursWeekly,
                                         [](IRecurrencePattern& pattern) {
                                             EXPECT_EQ(pattern.put_NoEndDate(false), Status::Ok);
                                             EXPECT_EQ(pattern.put_Occurrences(7), Status::Ok);
                                         });
        ASSERT_FALSE(Desk.ReadPattern(oid).NoEnd);
        Desk.ChooseRecurrence(choice);
        Desk.Ok();
        EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDOK);
        EXPECT_TRUE(Desk.ReadPattern(oid).NoEnd) << choice;
        EXPECT_EQ(Desk.Load(oid).RecurChoice, choice);
    }
}

TEST_F(SavingRecurrence, TheWizardOnAnExistingSeriesBeginsAnewAndEnterIsDoneOnBothPages) {
    for (const bool onTheSecondPage : {false, true}) {
        const Oid oid =
            Desk.GivenSeries(u"Class", At(2026, 11, 18, 9, 0), At(2026, 11, 18, 10, 0), kRecursMonthly,
                             [](IRecurrencePattern& pattern) { EXPECT_EQ(pattern.put_Interval(2), Status::Ok); });
        Desk.ChooseRecurrence(kChoiceCustom);
        Desk.Check([this] { // weekly on the start's weekday, whatever was stored
            EXPECT_NE(Desk.Shown(kPatternWeekInterval), WindowHandle::None);
        });
        Desk.TypeIntoShown(kPatternWeekInterval, u"3");
        if (onTheSecondPage) {
            Desk.TapShown(kWizardNext);
            Desk.TapShown(kRangeEndsAfter);
        }
        Desk.Device.Key(VK_RETURN);
        Desk.Check([this] { EXPECT_EQ(Desk.Device.See.Caption(), u"Tavo Calendar"); });
        Desk.Ok();
        EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDOK);
        const SavedPattern saved = Desk.ReadPattern(oid);
        EXPECT_EQ(saved.Type, kRecursWeekly);
        EXPECT_EQ(saved.Interval, 3);
        EXPECT_EQ(saved.Mask, 8); // Wednesday
        EXPECT_EQ(saved.NoEnd, !onTheSecondPage);
        EXPECT_EQ(saved.Start, Desk.ToDate(At(2026, 11, 18)));
    }
}

TEST_F(SavingRecurrence, AnotherStartMovesAStoredRuleOfTheList) {
    const Oid oid = Desk.GivenSeries(u"Class", At(2026, 11, 18, 9, 0), At(2026, 11, 18, 10, 0), kRecursWeekly);
    Desk.PickStartDate(2026, 11, 20);
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDOK);
    const SavedPattern saved = Desk.ReadPattern(oid);
    EXPECT_EQ(saved.Mask, 32); // Friday
    EXPECT_EQ(std::floor(saved.Start), Desk.ToDate(At(2026, 11, 20)));
}

} // namespace
} // namespace tavo::test
