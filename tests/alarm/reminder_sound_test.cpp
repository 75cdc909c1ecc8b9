// The sound of the next appointment that reminds, as it stands in the registry.
#include "alarm/reminder_sound.h"
#include "store/program_state.h"
#include "tests/support/folder_probe.h"
#include "tests/support/test_device.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tavo {
namespace {

using test::At;

constexpr std::u16string_view kBell = u"\\Windows\\Bell.wav";

class ReminderSound : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(State.Store.OpenStore()); }

    Oid GivenReminder(const SYSTEMTIME& start, std::u16string_view sound, bool reminds = true) {
        SYSTEMTIME end = start;
        end.Minute += 5;
        return Device.GivenAppointment(u"Item", start, end, [&](IAppointment& item) {
            EXPECT_EQ(item.put_ReminderSet(reminds), Status::Ok);
            EXPECT_EQ(item.put_ReminderSoundFile(sound), Status::Ok);
        });
    }

    std::optional<std::u16string> Wave() {
        return Device.Host.RegistryCalls.TextValue(u"\\ControlPanel\\Notifications\\Reminders", u"Wave");
    }

    test::TestDevice Device{test::WithStore({.Now = At(2004, 11, 3, 17, 10)})};
    CProgramState State{Device.Pump};
};

TEST_F(ReminderSound, TheFirstInOrderOfStartGivesItsSound) {
    GivenReminder(At(2004, 11, 4, 9, 0), u"\\Windows\\Tomorrow.wav");
    GivenReminder(At(2004, 11, 3, 23, 0), u"\\Windows\\Tonight.wav");
    UpdateReminderSound(State);
    EXPECT_EQ(Wave(), u"\\Windows\\Tonight.wav");
}

TEST_F(ReminderSound, OneOfTodayThatIsPastDoesNotQualify) {
    GivenReminder(At(2004, 11, 3, 17, 9), u"\\Windows\\Past.wav");
    UpdateReminderSound(State);
    EXPECT_EQ(Wave(), std::nullopt);
    GivenReminder(At(2004, 11, 3, 17, 11), kBell);
    UpdateReminderSound(State);
    EXPECT_EQ(Wave(), kBell);
}

TEST_F(ReminderSound, OneThatStartsThisMomentDoesNotQualify) {
    GivenReminder(At(2004, 11, 3, 17, 10), u"\\Windows\\Now.wav");
    UpdateReminderSound(State);
    EXPECT_EQ(Wave(), std::nullopt);
}

TEST_F(ReminderSound, OneWithoutAReminderDoesNotQualify) {
    GivenReminder(At(2004, 11, 4, 9, 0), u"\\Windows\\Silent.wav", false);
    UpdateReminderSound(State);
    EXPECT_EQ(Wave(), std::nullopt);
}

TEST_F(ReminderSound, WhatDoesNotQualifyIsPassedOver) {
    GivenReminder(At(2004, 11, 3, 9, 0), u"\\Windows\\Past.wav");
    GivenReminder(At(2004, 11, 3, 18, 0), u"\\Windows\\Silent.wav", false);
    GivenReminder(At(2004, 11, 3, 19, 0), kBell);
    UpdateReminderSound(State);
    EXPECT_EQ(Wave(), kBell);
}

TEST_F(ReminderSound, OneWithoutASoundIsTakenAllTheSame) {
    GivenReminder(At(2004, 11, 3, 18, 0), u"");
    GivenReminder(At(2004, 11, 3, 19, 0), kBell);
    UpdateReminderSound(State);
    EXPECT_EQ(Wave(), u"");
    EXPECT_EQ(Device.Host.RegistryCalls.ValueSize(u"\\ControlPanel\\Notifications\\Reminders", u"Wave"), 0U);
}

TEST_F(ReminderSound, TomorrowMayBeInTheNextYear) {
    ASSERT_TRUE(Device.Host.Time.Clock.SetLocalTime(At(2004, 12, 31, 23, 50)));
    GivenReminder(At(2005, 1, 1, 0, 30), kBell);
    UpdateReminderSound(State);
    EXPECT_EQ(Wave(), kBell);
}

TEST_F(ReminderSound, OneOfTheDayAfterTomorrowIsTooFarAway) {
    GivenReminder(At(2004, 11, 5, 0, 0), kBell);
    UpdateReminderSound(State);
    EXPECT_EQ(Wave(), std::nullopt);
    GivenReminder(At(2004, 11, 4, 23, 50), kBell);
    UpdateReminderSound(State);
    EXPECT_EQ(Wave(), kBell);
}

TEST_F(ReminderSound, TheTerminatingZeroIsNotWritten) {
    constexpr std::u16string_view path = u"\\Windows\\ABCDEFG.wav"; // 20 characters
    GivenReminder(At(2004, 11, 4, 9, 0), path);
    UpdateReminderSound(State);
    EXPECT_EQ(Device.Host.RegistryCalls.ValueSize(u"\\ControlPanel\\Notifications\\Reminders", u"Wave"), 40U);
    EXPECT_EQ(Wave(), path);
}

TEST_F(ReminderSound, APathInAnyScriptIsWrittenWhole) {
    constexpr std::u16string_view path = u"\\Sounds\\Gl\u00F6ckchen \u6642\u8A08.wav";
    GivenReminder(At(2004, 11, 4, 9, 0), path);
    UpdateReminderSound(State);
    EXPECT_EQ(Wave(), path);
}

TEST_F(ReminderSound, AsksForTodayAndTomorrow) {
    const test::AskedRestrictions asked(State.Store.CalendarFolder);
    UpdateReminderSound(State);
    EXPECT_EQ(asked.Texts, std::vector<std::u16string>{u"[Start] >= 11/3/2004 and [Start] <= 11/4/2004\n"});
}

TEST_F(ReminderSound, OccurrencesOfASeriesQualify) {
    const Oid series = Device.GivenSeries(u"Daily", At(2004, 1, 1, 18, 0), At(2004, 1, 1, 18, 30), kRecursDaily);
    ComPtr<IAppointment> item;
    const ComPtr<IPOutlookApp> store = Device.Connect();
    ASSERT_EQ(store->GetItemFromOid(series, item), Status::Ok);
    ASSERT_EQ(item->put_ReminderSet(true), Status::Ok);
    ASSERT_EQ(item->put_ReminderSoundFile(kBell), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    UpdateReminderSound(State);
    EXPECT_EQ(Wave(), kBell);
}

TEST_F(ReminderSound, NothingLeavesTheOldSound) {
    const Oid item = GivenReminder(At(2004, 11, 4, 9, 0), kBell);
    UpdateReminderSound(State);
    Device.Delete(item);
    UpdateReminderSound(State);
    EXPECT_EQ(Wave(), kBell);
}

TEST_F(ReminderSound, TheKeyIsClosedAgain) {
    GivenReminder(At(2004, 11, 4, 9, 0), kBell);
    UpdateReminderSound(State);
    EXPECT_EQ(Device.Host.RegistryCalls.OpenKeyCount(), 0U);
}

TEST_F(ReminderSound, ARegistryThatRefusesIsSilent) {
    GivenReminder(At(2004, 11, 4, 9, 0), kBell);
    Device.Host.RegistryCalls.Failure = ErrorCode::AccessDenied;
    UpdateReminderSound(State);
    EXPECT_EQ(Wave(), std::nullopt);
    EXPECT_TRUE(Device.MessagesShown().empty());
}

TEST_F(ReminderSound, ARefusedValueStaysAsItWasAndItsKeyIsClosed) {
    GivenReminder(At(2004, 11, 4, 9, 0), kBell);
    UpdateReminderSound(State);
    GivenReminder(At(2004, 11, 4, 8, 0), u"\\Windows\\Earlier.wav");
    Device.Host.RegistryCalls.WriteFailure = ErrorCode::AccessDenied;
    UpdateReminderSound(State);
    EXPECT_EQ(Wave(), kBell);
    EXPECT_EQ(Device.Host.RegistryCalls.OpenKeyCount(), 0U);
    EXPECT_TRUE(Device.MessagesShown().empty());
    Device.Host.RegistryCalls.WriteFailure = ErrorCode::Success;
    UpdateReminderSound(State);
    EXPECT_EQ(Wave(), u"\\Windows\\Earlier.wav");
}

TEST_F(ReminderSound, AClosedStoreIsSilent) {
    GivenReminder(At(2004, 11, 4, 9, 0), kBell);
    State.Store.CloseStore();
    UpdateReminderSound(State);
    EXPECT_EQ(Wave(), std::nullopt);
    EXPECT_TRUE(Device.MessagesShown().empty());
}

} // namespace
} // namespace tavo
