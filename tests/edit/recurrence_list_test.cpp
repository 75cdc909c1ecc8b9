// The recurrence list: its entries, its choice, and the way to the wizard.
#include "tests/edit/edit_desk.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

using Texts = std::vector<std::u16string>;

class RecurrenceList : public testing::Test {
  protected:
    void OpenList() {
        Desk.ShowRow(3);
        Desk.Device.OpenList(kEditRecurrence);
    }

    void ExpectEntries(const Texts& entries) {
        Desk.Check([this, entries] { EXPECT_EQ(Desk.Device.See.ListOf(kEditRecurrence), entries); });
    }

    // Opens the list with the wizard's entry and closes it; the wizard is open then.
    void OpenWizard() { Desk.ChooseRecurrence(kChoiceCustom); }

    void ExpectChoice(int choice) {
        Desk.Check([this, choice] { EXPECT_EQ(Desk.Device.See.SelectionOf(kEditRecurrence), choice); });
    }

    int CancelNew(std::int32_t mode) {
        Desk.Cancel();
        return Desk.RunNew(mode);
    }

    Oid GivenWeekly() {
        return Desk.GivenSeries(u"Class", At(2026, 11, 23, 9, 0), At(2026, 11, 23, 10, 0), kRecursWeekly);
    }

    EditDesk Desk{At(2026, 11, 21, 9, 47)};
};

TEST_F(RecurrenceList, NamesTheDayOfTheStart) {
    ExpectEntries({u"Once", u"Everyday", u"Every Saturday", u"Weekdays(Mon-Fri)", u"Day 21 of every month",
                   u"The 3rd Sat. of every month", u"Nov. 21 of every year", u"The 3rd Sat. of every Nov.",
                   u"<Edit Pattern...>"});
    EXPECT_EQ(CancelNew(kModeNewAlarm), IDCANCEL);
}

TEST_F(RecurrenceList, FollowsTheStartWhenItOpens) {
    Desk.PickStartDate(2027, 5, 2);
    OpenList();
    ExpectEntries({u"Once", u"Everyday", u"Every Sunday", u"Weekdays(Mon-Fri)", u"Day 2 of every month",
                   u"The 1st Sun. of every month", u"May. 2 of every year", u"The 1st Sun. of every May.",
                   u"<Edit Pattern...>"});
    Desk.Device.CloseList(kEditRecurrence);
    EXPECT_EQ(CancelNew(kModeNewAlarm), IDCANCEL);
}

TEST_F(RecurrenceList, TheLastDaysOfAMonthAreTheLastOfTheirKind) {
    const std::pair<int, std::u16string> days[] = {{21, u"The 3rd Sat. of every month"},
                                                   {22, u"The 4th Sun. of every month"},
                                                   {28, u"The 4th Sat. of every month"},
                                                   {29, u"The last Sun. of every month"},
                                                   {30, u"The last Mon. of every month"}};
    for (const auto& [day, text] : days) {
        Desk.PickStartDate(2026, 11, day);
        Desk.Check([this, text = text] { EXPECT_EQ(Desk.Device.See.ListOf(kEditRecurrence)[5], text); });
    }
    Desk.PickStartDate(2026, 12, 31);
    Desk.Check([&] { EXPECT_EQ(Desk.Device.See.ListOf(kEditRecurrence)[7], u"The last Thu. of every Dec."); });
    EXPECT_EQ(CancelNew(kModeNewAlarm), IDCANCEL);
}

TEST_F(RecurrenceList, ThePaintedChoiceFollowsTheStartAtOnce) {
    Desk.ChooseRecurrence(kChoiceWeekly);
    Desk.Check([&] { EXPECT_EQ(Desk.ValueOf(kEditRecurrence), u"Every Saturday"); });
    Desk.PickStartDate(2026, 11, 24);
    Desk.Check([&] { EXPECT_EQ(Desk.ValueOf(kEditRecurrence), u"Every Tuesday"); });
    EXPECT_EQ(CancelNew(kModeNewAlarm), IDCANCEL);
}

TEST_F(RecurrenceList, OfANewItemKeepsItsChoiceWhenOpenedAgain) {
    Desk.ChooseRecurrence(kChoiceMonthly);
    OpenList();
    ExpectChoice(kChoiceMonthly);
    Desk.Device.CloseList(kEditRecurrence);
    ExpectChoice(kChoiceMonthly);
    EXPECT_EQ(CancelNew(kModeNewAlarm), IDCANCEL);
}

TEST_F(RecurrenceList, OfAnExistingItemReturnsToTheStoredChoiceWhenOpened) {
    const Oid oid = GivenWeekly();
    ExpectChoice(kChoiceWeekly);
    Desk.ChooseRecurrence(kChoiceMonthly);
    ExpectChoice(kChoiceMonthly);
    Desk.Device.OpenList(kEditRecurrence);
    ExpectChoice(kChoiceWeekly);
    Desk.Device.CloseList(kEditRecurrence);
    ExpectChoice(kChoiceWeekly);
    Desk.Cancel();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDCANCEL);
}

TEST_F(RecurrenceList, EveryStoredChoiceIsSelectedAtOpening) {
    const std::pair<std::int32_t, int> types[] = {{kRecursDaily, kChoiceEveryday},  {kRecursWeekly, kChoiceWeekly},
                                                  {kRecursMonthly, kChoiceMonthly}, {kRecursMonthNth, kChoiceMonthNth},
                                                  {kRecursYearly, kChoiceYearly},   {kRecursYearNth, kChoiceYearNth}};
    for (const auto& [type, choice] : types) {
        const Oid oid = Desk.GivenSeries(u"Series", At(2026, 11, 23, 9, 0), At(2026, 11, 23, 10, 0), type);
        ExpectChoice(choice);
        Desk.Cancel();
        EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDCANCEL);
    }
}

TEST_F(RecurrenceList, ItsLastEntryOpensTheWizard) {
    OpenWizard();
    Desk.Check([&] { EXPECT_EQ(Desk.Device.See.Caption(), u"Recurrence"); });
    Desk.TapShown(IDCANCEL);
    Desk.Check([&] { EXPECT_EQ(Desk.Device.See.Caption(), u"Tavo Calendar"); });
    EXPECT_EQ(CancelNew(kModeNewAlarm), IDCANCEL);
}

TEST_F(RecurrenceList, OtherEntriesDoNotOpenTheWizard) {
    for (int choice = kChoiceOnce; choice < kChoiceCustom; ++choice) {
        Desk.ChooseRecurrence(choice);
        Desk.Check([&] { EXPECT_EQ(Desk.Device.See.Caption(), u"Tavo Calendar"); });
        ExpectChoice(choice);
    }
    EXPECT_EQ(CancelNew(kModeNewAlarm), IDCANCEL);
}

TEST_F(RecurrenceList, ACancelledWizardReturnsANewItemToOnce) {
    Desk.ChooseRecurrence(kChoiceMonthly);
    OpenWizard();
    Desk.TapShown(IDCANCEL);
    ExpectChoice(kChoiceOnce);
    Desk.Check([&] { EXPECT_EQ(Desk.ValueOf(kEditRecurrence), u"Once"); });
    EXPECT_EQ(CancelNew(kModeNewAlarm), IDCANCEL);
}

TEST_F(RecurrenceList, ACancelledWizardReturnsAnExistingItemToTheStoredChoice) {
    const Oid oid = GivenWeekly();
    OpenWizard();
    Desk.TapShown(IDCANCEL);
    ExpectChoice(kChoiceWeekly);
    Desk.Cancel();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDCANCEL);
}

TEST_F(RecurrenceList, AFinishedWizardLeavesItsEntryChosen) {
    OpenWizard();
    Desk.TapShown(kWizardNext);
    Desk.TapShown(kWizardNext);
    ExpectChoice(kChoiceCustom);
    Desk.Check([&] { EXPECT_EQ(Desk.ValueOf(kEditRecurrence), u"<Edit Pattern...>"); });
    EXPECT_EQ(CancelNew(kModeNewAlarm), IDCANCEL);
}

// The stored rule of a custom choice is what that choice stands for; looking into the wizard must not change it.
TEST_F(RecurrenceList, ACancelledWizardLeavesACustomRuleAsItIsStored) {
    const Oid oid = Desk.GivenSeries(u"Fortnight", At(2026, 11, 23, 9, 0), At(2026, 11, 23, 10, 0), kRecursWeekly,
                                     [](IRecurrencePattern& pattern) {
                                         EXPECT_EQ(pattern.put_Interval(2), Status::Ok);
                                         EXPECT_EQ(pattern.put_DayOfWeekMask(2 + 16), Status::Ok);
                                     });
    OpenWizard();
    Desk.TapShown(IDCANCEL);
    ExpectChoice(kChoiceCustom);
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDOK);
    const SavedPattern saved = Desk.ReadPattern(oid);
    EXPECT_EQ(saved.Type, kRecursWeekly);
    EXPECT_EQ(saved.Interval, 2);
    EXPECT_EQ(saved.Mask, 2 + 16);
}

TEST_F(RecurrenceList, TheWizardBeginsWithTheDialogsDay) {
    Desk.PickStartDate(2026, 11, 24); // a Tuesday
    OpenWizard();
    Desk.Check([&] {
        for (const int day : {kPatternSunday, kPatternMonday, kPatternTuesday, kPatternWednesday}) {
            EXPECT_EQ(Desk.Device.Host().Controls().GetCheck(Desk.Shown(day)), day == kPatternTuesday) << day;
        }
    });
    Desk.TapShown(IDCANCEL);
    EXPECT_EQ(CancelNew(kModeNewAlarm), IDCANCEL);
}

// With the keys on the closed list, past every other entry.
TEST_F(RecurrenceList, ItsLastEntryWaitsForTheListToBeLeftWhenReachedByKey) {
    const auto reach = [this] {
        Desk.ShowRow(0); // a tap on the shown list would open it
        Desk.ShowRow(3);
        Desk.Device.Key(VK_END);
        ExpectChoice(kChoiceCustom);
        Desk.Check([&] { EXPECT_EQ(Desk.Device.See.Caption(), u"Tavo Calendar"); });
    };
    const auto expectWizard = [this] {
        Desk.Check([&] { EXPECT_EQ(Desk.Device.See.Caption(), u"Recurrence"); });
        Desk.TapShown(IDCANCEL);
        ExpectChoice(kChoiceOnce);
    };
    reach();
    Desk.Device.Key(VK_RETURN);
    expectWizard();
    reach();
    Desk.Device.Key(VK_TAB);
    expectWizard();
    reach();
    Desk.ShowRow(1);
    expectWizard();
    reach();
    Desk.Device.OpenList(kEditRecurrence);
    Desk.Device.CloseList(kEditRecurrence);
    expectWizard();
    EXPECT_EQ(CancelNew(kModeNewAlarm), IDCANCEL);
}

TEST_F(RecurrenceList, KeysPassItsLastEntryWithoutTheWizard) {
    Desk.ShowRow(3);
    Desk.Device.Key(VK_END);
    Desk.Device.Key(VK_UP);
    Desk.Device.Key(VK_TAB);
    ExpectChoice(kChoiceYearNth);
    Desk.Check([&] { EXPECT_EQ(Desk.Device.See.Caption(), u"Tavo Calendar"); });
    EXPECT_EQ(CancelNew(kModeNewAlarm), IDCANCEL);
}

TEST_F(RecurrenceList, OkWithItsLastEntryReachedByKeyAsksForTheRuleFirst) {
    Desk.Subject(u"Wake");
    Desk.ShowRow(3);
    Desk.Device.Key(VK_END);
    Desk.Ok();
    Desk.Check([&] { EXPECT_EQ(Desk.Device.See.Caption(), u"Recurrence"); });
    Desk.TapShown(IDCANCEL);
    ExpectChoice(kChoiceOnce); // and the dialog is still there
    Desk.Check([&] { EXPECT_EQ(Desk.CountItems(), 0); });
    Desk.ShowRow(0);
    Desk.ShowRow(3);
    Desk.Device.Key(VK_END);
    Desk.Ok();
    Desk.TypeIntoShown(kPatternWeekInterval, u"1");
    Desk.TapShown(kWizardNext);
    Desk.TapShown(kWizardNext); // Done goes on with the OK
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDOK);
    EXPECT_EQ(Desk.CountItems(), 1);
}

TEST_F(RecurrenceList, CancelWithItsLastEntryReachedByKeyJustCancels) {
    Desk.ShowRow(3);
    Desk.Device.Key(VK_END);
    EXPECT_EQ(CancelNew(kModeNewAlarm), IDCANCEL);
}

TEST_F(RecurrenceList, OfACustomRuleOpenedAndDismissedOpensNothing) {
    const Oid oid =
        Desk.GivenSeries(u"Fortnight", At(2026, 11, 23, 9, 0), At(2026, 11, 23, 10, 0), kRecursWeekly,
                         [](IRecurrencePattern& pattern) { EXPECT_EQ(pattern.put_Interval(2), Status::Ok); });
    ExpectChoice(kChoiceCustom);
    Desk.ChooseRecurrence(kChoiceEveryday);
    Desk.Device.OpenList(kEditRecurrence); // returns to the stored choice
    Desk.Device.CloseList(kEditRecurrence);
    ExpectChoice(kChoiceCustom);
    Desk.Check([&] { EXPECT_EQ(Desk.Device.See.Caption(), u"Tavo Calendar"); });
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDOK);
    EXPECT_EQ(Desk.ReadPattern(oid).Interval, 2);
}

} // namespace
} // namespace tavo::test
