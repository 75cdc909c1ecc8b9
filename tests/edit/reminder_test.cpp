// Reminder controls: what they hold at first, and what they allow.
#include "tests/edit/edit_desk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

namespace tavo::test {
namespace {

constexpr int kDependents[] = {kEditReminderValue, kEditReminderUnit, kEditSound};

class ReminderControls : public testing::Test {
  protected:
    bool IsEnabled(int id) { return Desk.Device.Host().Windows().IsWindowEnabled(Desk.Device.See.Control(id)); }

    void ExpectEnabled(bool dependents, bool preview) {
        Desk.Check([this, dependents, preview] {
            for (const int id : kDependents) {
                EXPECT_EQ(IsEnabled(id), dependents) << id;
            }
            EXPECT_EQ(IsEnabled(kEditPreview), preview);
        });
    }

    void ExpectLead(const std::u16string& yesNo, const std::u16string& value, const std::u16string& unit) {
        Desk.Check([this, yesNo, value, unit] {
            EXPECT_EQ(Desk.TextOf(kEditReminder), yesNo);
            EXPECT_EQ(Desk.TextOf(kEditReminderValue), value);
            EXPECT_EQ(Desk.TextOf(kEditReminderUnit), unit);
        });
    }

    Oid GivenReminder(std::int32_t minutes, std::u16string_view sound = u"") {
        return Desk.GivenAppointment(u"Thing", At(2026, 11, 23, 9, 0), At(2026, 11, 23, 10, 0),
                                     [&](IAppointment& item) {
                                         EXPECT_EQ(item.put_ReminderSet(true), Status::Ok);
                                         EXPECT_EQ(item.put_ReminderMinutesBeforeStart(minutes), Status::Ok);
                                         EXPECT_EQ(item.put_ReminderOptions(sound.empty() ? 21 : 29), Status::Ok);
                                         EXPECT_EQ(item.put_ReminderSoundFile(sound), Status::Ok);
                                     });
    }

    EditDesk Desk;
};

TEST_F(ReminderControls, ANewAlarmRemindsFifteenMinutesBefore) {
    ExpectLead(u"Yes", u"15", u"Minute(s)");
    ExpectEnabled(true, false);
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL);
}

TEST_F(ReminderControls, OtherNewItemsDoNotRemindAndHaveTwelveHoursReady) {
    for (const std::int32_t mode : {kModeNewHoliday, kModeNewAnniversary, kModeNewAppointment}) {
        ExpectLead(u"No", u"12", u"Hour(s)");
        ExpectEnabled(false, false);
        Desk.Cancel();
        EXPECT_EQ(Desk.RunNew(mode), IDCANCEL);
    }
}

TEST_F(ReminderControls, AnExistingItemShowsItsLeadInTheLargestWholeUnit) {
    struct Lead {
        std::int32_t Minutes;
        std::u16string Value;
        std::u16string Unit;
    };

    const Lead leads[] = {{0, u"0", u"Minute(s)"},       {1, u"1", u"Minute(s)"},   {59, u"59", u"Minute(s)"},
                          {60, u"1", u"Hour(s)"},        {90, u"90", u"Minute(s)"}, {120, u"2", u"Hour(s)"},
                          {1439, u"1439", u"Minute(s)"}, {1440, u"1", u"Day(s)"},   {1500, u"25", u"Hour(s)"},
                          {2880, u"2", u"Day(s)"}};
    for (const Lead& lead : leads) {
        const Oid oid = GivenReminder(lead.Minutes);
        ExpectLead(u"Yes", lead.Value, lead.Unit);
        Desk.Cancel();
        EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDCANCEL);
    }
}

TEST_F(ReminderControls, AnExistingItemWithoutAReminderSaysNo) {
    const Oid oid = Desk.GivenAppointment(u"Thing", At(2026, 11, 23, 9, 0), At(2026, 11, 23, 10, 0));
    ExpectLead(u"No", u"0", u"Minute(s)");
    ExpectEnabled(false, false);
    Desk.Cancel();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDCANCEL);
}

TEST_F(ReminderControls, YesEnablesAllButThePreviewOfSilence) {
    Desk.ChooseReminder(true);
    ExpectEnabled(true, false);
    Desk.ChooseReminder(false);
    ExpectEnabled(false, false);
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewHoliday), IDCANCEL);
}

TEST_F(ReminderControls, TheFormShowsAtOnceWhatYesEnables) {
    for (const bool yes : {true, false}) {
        Desk.ChooseReminder(yes);
        Desk.Check([this, yes] {
            for (const PaintedItem& item : Desk.Device.See.Items()) {
                if (item.Role == PaintedRole::Cell) {
                    const bool isDependent = std::count(std::begin(kDependents), std::end(kDependents), item.Id) > 0;
                    EXPECT_EQ(item.Enabled, yes || !isDependent) << item.Id;
                }
            }
        });
    }
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewHoliday), IDCANCEL);
}

TEST_F(ReminderControls, YesEnablesThePreviewOfASound) {
    const Oid oid = GivenReminder(15, u"chime.wav");
    ExpectEnabled(true, true);
    Desk.ChooseReminder(false);
    ExpectEnabled(false, false);
    Desk.ChooseReminder(true);
    ExpectEnabled(true, true);
    Desk.Cancel();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDCANCEL);
}

TEST_F(ReminderControls, TheLeadTakesDigitsOnly) {
    Desk.ChooseReminder(true);
    Desk.TypeLead(u"a1b2c");
    ExpectLead(u"Yes", u"12", u"Hour(s)");
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
}

} // namespace
} // namespace tavo::test
