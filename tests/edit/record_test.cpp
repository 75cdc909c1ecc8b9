// The record that the editor hands back after saving, and whom it tells.
#include "tests/edit/edit_desk.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

class SavedRecord : public testing::Test {
  protected:
    AppointmentData SaveNew(std::int32_t mode) {
        Desk.Subject(u"Thing");
        Desk.Ok();
        EXPECT_EQ(Desk.RunNew(mode), IDOK);
        return Desk.Calls.empty() ? AppointmentData() : Desk.Calls.back().Record;
    }

    static SYSTEMTIME OnDay(SYSTEMTIME time, int dayOfWeek) {
        time.DayOfWeek = static_cast<std::uint16_t>(dayOfWeek);
        return time;
    }

    EditDesk Desk{At(2026, 11, 18, 9, 47)}; // a Wednesday, the third of its month
};

TEST_F(SavedRecord, OfAnItemThatIsOnce) {
    Desk.PickEndTime(11, 0);
    AppointmentData expected;
    expected.Subject = u"Thing";
    expected.ReminderSound = u"Sound off"; // the list's text, as it is
    expected.Start = OnDay(At(2026, 11, 18, 9, 30), 3);
    expected.End = OnDay(At(2026, 11, 18, 11, 0), 3);
    expected.HasReminder = false;
    expected.IsRecurring = true; // sic: set when the item does not recur
    expected.IsPrivate = true;   // sic: always
    expected.AllDay = false;
    expected.SpareWord = 0;
    expected.RecurChoice = kChoiceOnce;
    expected.RecurType = -1;
    expected.Interval = 1;
    expected.Instance = 3;
    expected.DayOfMonth = 18;
    expected.DayOfWeekMask = 8;
    expected.MonthOfYear = 11;
    AppointmentData record = SaveNew(kModeNewAppointment);
    expected.Oid = Desk.LastSaved();
    EXPECT_NE(expected.Oid, 0);
    expected.ReminderMinutes = Desk.Read(expected.Oid).ReminderMinutes;
    EXPECT_EQ(record, expected);
}

TEST_F(SavedRecord, OfAnItemThatRecurs) {
    Desk.ChooseRecurrence(kChoiceWeekdays);
    const AppointmentData record = SaveNew(kModeNewAppointment);
    EXPECT_FALSE(record.IsRecurring); // sic
    EXPECT_EQ(record.RecurChoice, kChoiceWeekdays);
    EXPECT_EQ(record.RecurType, kRecursWeekly);
    EXPECT_EQ(record.Interval, 1);
    EXPECT_EQ(record.Instance, 3);
    EXPECT_EQ(record.DayOfMonth, 18);
    EXPECT_EQ(record.DayOfWeekMask, 62);
    EXPECT_EQ(record.MonthOfYear, 11);
}

TEST_F(SavedRecord, OfACustomRuleHasItsTypeAndInterval) {
    Desk.ChooseRecurrence(kChoiceCustom);
    Desk.TypeIntoShown(kPatternWeekInterval, u"4");
    Desk.TapShown(kWizardNext);
    Desk.TapShown(kWizardNext);
    const AppointmentData record = SaveNew(kModeNewAppointment);
    EXPECT_EQ(record.RecurChoice, kChoiceCustom);
    EXPECT_EQ(record.RecurType, kRecursWeekly);
    EXPECT_EQ(record.Interval, 4);
    EXPECT_EQ(record.DayOfWeekMask, 8);
}

TEST_F(SavedRecord, OfAnAlarmHasAReminderWithoutLead) {
    Desk.ChooseSound(u"chime.wav");
    const AppointmentData record = SaveNew(kModeNewAlarm);
    EXPECT_TRUE(record.HasReminder);
    EXPECT_EQ(record.ReminderMinutes, 0);
    EXPECT_EQ(record.ReminderSound, u"chime.wav");
    EXPECT_EQ(record.SpareWord, 1);
    EXPECT_FALSE(record.AllDay);
    EXPECT_EQ(record.End, record.Start);
}

TEST_F(SavedRecord, OfADayIsAllDay) {
    Desk.ChooseReminder(true);
    const AppointmentData record = SaveNew(kModeNewAnniversary);
    EXPECT_TRUE(record.AllDay);
    EXPECT_TRUE(record.HasReminder);
    EXPECT_EQ(record.ReminderMinutes, 720);
    EXPECT_EQ(record.Start, OnDay(At(2026, 11, 18), 3));
    EXPECT_EQ(record.End, record.Start);
}

TEST_F(SavedRecord, TheOwnerHearsWhetherTheItemIsNew) {
    for (const std::int32_t mode : {kModeNewAlarm, kModeNewHoliday, kModeNewAnniversary, kModeNewAppointment}) {
        static_cast<void>(SaveNew(mode));
        ASSERT_FALSE(Desk.Calls.empty());
        const Oid oid = Desk.LastSaved();
        EXPECT_TRUE(Desk.Calls.back().IsNew) << mode;
        EXPECT_EQ(Desk.Calls.back().Record.Oid, oid);
        Desk.Calls.clear();
        Desk.Ok();
        EXPECT_EQ(Desk.RunExisting(mode + 1, oid), IDOK);
        ASSERT_EQ(Desk.Calls.size(), 1U);
        EXPECT_FALSE(Desk.Calls.back().IsNew) << mode;
        EXPECT_EQ(Desk.Calls.back().Oid, oid);
    }
}

TEST_F(SavedRecord, OpenedFromTheCalendarNobodyIsTold) {
    const Oid oid = Desk.GivenAppointment(u"Talk", At(2026, 11, 23, 9, 0), At(2026, 11, 23, 10, 0));
    Desk.OpenedFromCalendar = true;
    Desk.Subject(u"Lecture");
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDOK);
    EXPECT_TRUE(Desk.Calls.empty());
    EXPECT_EQ(Desk.Read(oid).Subject, u"Lecture");
}

} // namespace
} // namespace tavo::test
