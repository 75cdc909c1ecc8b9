// What OK writes: every property of the item, of every kind.
#include "tests/edit/edit_desk.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

class Saving : public testing::Test {
  protected:
    // Runs the script so far with a subject and OK, and gives what the store then holds.
    SavedItem SaveNew(std::int32_t mode) {
        Desk.Subject(u"Thing");
        Desk.Ok();
        EXPECT_EQ(Desk.RunNew(mode), IDOK);
        EXPECT_TRUE(Desk.Messages().empty());
        return Desk.Read(Desk.LastSaved());
    }

    SavedItem SaveExisting(std::int32_t mode, Oid oid) {
        Desk.Ok();
        EXPECT_EQ(Desk.RunExisting(mode, oid), IDOK);
        EXPECT_TRUE(Desk.Messages().empty());
        return Desk.Read(oid);
    }

    DATE Date(int year, int month, int day, int hour = 0, int minute = 0) {
        return Desk.ToDate(At(year, month, day, hour, minute));
    }

    EditDesk Desk{At(2026, 11, 21, 9, 47)}; // a Saturday
};

TEST_F(Saving, AnAlarmHasNoLengthAndAlwaysReminds) {
    const SavedItem saved = SaveNew(kModeNewAlarm);
    EXPECT_EQ(saved.Subject, u"Thing");
    EXPECT_EQ(saved.Location, u"");
    EXPECT_EQ(saved.Categories, u"");
    EXPECT_EQ(saved.Start, Date(2026, 11, 21, 9, 30));
    EXPECT_EQ(saved.End, saved.Start);
    EXPECT_EQ(saved.Duration, 0);
    EXPECT_FALSE(saved.AllDay);
    EXPECT_EQ(saved.Sensitivity, kSensitivityNormal);
    EXPECT_EQ(saved.Busy, kBusyBusy);
    EXPECT_TRUE(saved.ReminderSet);
    EXPECT_EQ(saved.ReminderOptions, 21);
    EXPECT_EQ(saved.ReminderSound, u"");
    EXPECT_EQ(saved.ReminderMinutes, 0); // not the 15 that its hidden controls hold
    EXPECT_FALSE(saved.IsRecurring);
}

TEST_F(Saving, AnAlarmKeepsTheSecondsOfItsTime) {
    Desk.PickStartTime(6, 45, 30);
    const SavedItem saved = SaveNew(kModeNewAlarm);
    EXPECT_NEAR((saved.Start - Date(2026, 11, 21, 6, 45)) * 86400, 30, 0.01);
    EXPECT_EQ(saved.End, saved.Start);
}

TEST_F(Saving, AnAlarmEndsWithItsStartWhateverTheEndPickersHold) {
    const Oid oid = Desk.GivenAppointment(u"Long", At(2026, 11, 23, 9, 0), At(2026, 11, 23, 11, 0));
    const SavedItem saved = SaveExisting(kModeAlarm, oid);
    EXPECT_EQ(saved.Start, Date(2026, 11, 23, 9, 0));
    EXPECT_EQ(saved.End, saved.Start);
    EXPECT_EQ(saved.Duration, 0);
    EXPECT_TRUE(saved.ReminderSet); // it had none
}

TEST_F(Saving, ASoundAddsItsOptionToTheReminder) {
    Desk.ChooseSound(u"bell.wav");
    const SavedItem saved = SaveNew(kModeNewAlarm);
    EXPECT_EQ(saved.ReminderOptions, 29);
    EXPECT_EQ(saved.ReminderSound, u"bell.wav");
}

TEST_F(Saving, ADayIsAllDayFromMidnightToTheSameMidnight) {
    for (const std::int32_t mode : {kModeNewHoliday, kModeNewAnniversary}) {
        Desk.PickStartDate(2026, 12, 25);
        const SavedItem saved = SaveNew(mode);
        EXPECT_EQ(saved.Start, Date(2026, 12, 25));
        EXPECT_EQ(saved.End, Date(2026, 12, 25));
        EXPECT_EQ(saved.Duration, 0);
        EXPECT_TRUE(saved.AllDay);
        EXPECT_EQ(saved.Sensitivity, kSensitivityNormal);
        EXPECT_EQ(saved.Busy, kBusyBusy);
        EXPECT_FALSE(saved.ReminderSet);
        EXPECT_FALSE(saved.IsRecurring);
    }
}

TEST_F(Saving, AnAppointmentHasItsOwnStartAndEnd) {
    Desk.PickEndDate(2026, 11, 22);
    Desk.PickEndTime(10, 45);
    const SavedItem saved = SaveNew(kModeNewAppointment);
    EXPECT_EQ(saved.Start, Date(2026, 11, 21, 9, 30));
    EXPECT_EQ(saved.End, Date(2026, 11, 22, 10, 45));
    EXPECT_EQ(saved.Duration, 1440 + 75);
    EXPECT_FALSE(saved.AllDay);
    EXPECT_FALSE(saved.ReminderSet);
}

TEST_F(Saving, AnAppointmentIsAllDayWhenItsBoxIsChecked) {
    Desk.TapAllDay();
    EXPECT_TRUE(SaveNew(kModeNewAppointment).AllDay);
    const Oid oid = Desk.LastSaved();
    Desk.TapAllDay();
    EXPECT_FALSE(SaveExisting(kModeAppointment, oid).AllDay);
}

TEST_F(Saving, AReminderHasItsLeadInMinutes) {
    struct Lead {
        std::u16string Value;
        int Unit;
        std::int32_t Minutes;
    };

    const Lead leads[] = {{u"0", 0, 0}, {u"25", 0, 25}, {u"3", 1, 180}, {u"2", 2, 2880}, {u"9999", 2, 9999 * 1440}};
    for (const std::int32_t mode : {kModeNewHoliday, kModeNewAnniversary, kModeNewAppointment}) {
        for (const Lead& lead : leads) {
            Desk.ChooseReminder(true);
            Desk.TypeLead(lead.Value);
            Desk.ChooseLeadUnit(lead.Unit);
            const SavedItem saved = SaveNew(mode);
            EXPECT_TRUE(saved.ReminderSet);
            EXPECT_EQ(saved.ReminderMinutes, lead.Minutes);
            EXPECT_EQ(saved.ReminderOptions, 21);
        }
    }
}

TEST_F(Saving, AReminderWithASoundOfAnyKind) {
    for (const std::int32_t mode : {kModeNewHoliday, kModeNewAppointment}) {
        Desk.ChooseReminder(true);
        Desk.ChooseSound(u"chime.wav");
        const SavedItem saved = SaveNew(mode);
        EXPECT_EQ(saved.ReminderOptions, 29);
        EXPECT_EQ(saved.ReminderSound, u"chime.wav");
        EXPECT_EQ(saved.ReminderMinutes, 12 * 60);
    }
}

TEST_F(Saving, NoTakesTheReminderAway) {
    Desk.ChooseReminder(true);
    EXPECT_TRUE(SaveNew(kModeNewHoliday).ReminderSet);
    const Oid oid = Desk.LastSaved();
    Desk.ChooseReminder(false);
    EXPECT_FALSE(SaveExisting(kModeHoliday, oid).ReminderSet);
}

TEST_F(Saving, AnExistingItemKeepsLocationCategoriesAndPrivacy) {
    const Oid oid =
        Desk.GivenAppointment(u"Talk", At(2026, 11, 23, 9, 0), At(2026, 11, 23, 10, 0), [](IAppointment& item) {
            EXPECT_EQ(item.put_Location(u"Room 4"), Status::Ok);
            EXPECT_EQ(item.put_Categories(u"Work"), Status::Ok);
            EXPECT_EQ(item.put_Sensitivity(kSensitivityPrivate), Status::Ok);
            EXPECT_EQ(item.put_BusyStatus(kBusyFree), Status::Ok);
        });
    const SavedItem saved = SaveExisting(kModeAppointment, oid);
    EXPECT_EQ(saved.Subject, u"Talk");
    EXPECT_EQ(saved.Location, u"Room 4");
    EXPECT_EQ(saved.Categories, u"Work");
    EXPECT_EQ(saved.Sensitivity, kSensitivityPrivate);
    EXPECT_EQ(saved.Busy, kBusyFree);
}

TEST_F(Saving, CancelWritesNothing) {
    Desk.Subject(u"Thing");
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
    EXPECT_EQ(Desk.CountItems(), 0);
    const Oid oid = Desk.GivenAppointment(u"Talk", At(2026, 11, 23, 9, 0), At(2026, 11, 23, 10, 0));
    Desk.Subject(u"Changed");
    Desk.PickStartDate(2027, 1, 1);
    Desk.Cancel();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDCANCEL);
    EXPECT_EQ(Desk.Read(oid).Subject, u"Talk");
    EXPECT_EQ(Desk.Read(oid).Start, Date(2026, 11, 23, 9, 0));
    EXPECT_TRUE(Desk.Calls.empty());
}

TEST_F(Saving, ANewItemIsInTheStoreOnlyAfterOk) {
    Desk.Subject(u"Thing");
    Desk.Check([&] { EXPECT_EQ(Desk.CountItems(), 0); });
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDOK);
    EXPECT_EQ(Desk.CountItems(), 1);
}

} // namespace
} // namespace tavo::test
