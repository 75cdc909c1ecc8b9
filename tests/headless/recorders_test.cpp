// Sound, processes and registry as tests see them.
#include "host/headless/recorders.h"

#include "host/headless/headless_host.h"

#include <gtest/gtest.h>

namespace tavo::headless {

namespace {

TEST(RecordedSound, PlaysWhatIsThereAndStops) {
    HeadlessHost host({});
    const std::vector<std::uint8_t> bytes{1, 2, 3};
    ASSERT_EQ(host.Files().WriteWholeFile(u"\\Windows\\Alarm1.wav", bytes), ErrorCode::Success);
    EXPECT_TRUE(host.Sound().PlaySoundW(u"\\Windows\\Alarm1.wav"));
    EXPECT_EQ(host.SoundCalls.Playing, u"\\Windows\\Alarm1.wav");
    EXPECT_FALSE(host.Sound().PlaySoundW(u"\\Windows\\Missing.wav"));
    EXPECT_EQ(host.SoundCalls.Playing, u"");
    EXPECT_TRUE(host.Sound().PlaySoundW(u""));
    EXPECT_EQ(host.SoundCalls.Calls.size(), 3u);
}

TEST(RecordedProcesses, KeepsAttemptsTooWhenNothingCanStart) {
    HeadlessHost host({});
    EXPECT_TRUE(host.Processes().CreateProcessW(u"\\Windows\\Clock.exe", u""));
    host.ProcessCalls.CanStart = false;
    EXPECT_FALSE(host.Processes().CreateProcessW(u"\\Windows\\Other.exe", u"-x"));
    EXPECT_EQ(host.ProcessCalls.Started,
              (std::vector<StartedProcess>{{u"\\Windows\\Clock.exe", u""}, {u"\\Windows\\Other.exe", u"-x"}}));
}

TEST(RecordedRegistry, KeepsTextValues) {
    HeadlessHost host({});
    KeyHandle key = KeyHandle::None;
    ASSERT_EQ(host.Registry().RegCreateKeyExW(u"\\ControlPanel\\Notifications\\Reminders", key), ErrorCode::Success);
    const std::vector<std::uint8_t> data{'A', 0, 0xFC, 0, 0, 0};
    ASSERT_EQ(host.Registry().RegSetValueExW(key, u"Wave", REG_SZ, data), ErrorCode::Success);
    EXPECT_EQ(host.RegistryCalls.OpenKeyCount(), 1u);
    host.Registry().RegCloseKey(key);
    EXPECT_EQ(host.RegistryCalls.OpenKeyCount(), 0u);
    EXPECT_EQ(host.RegistryCalls.TextValue(u"\\ControlPanel\\Notifications\\Reminders", u"Wave"), u"A\u00FC");
    EXPECT_EQ(host.RegistryCalls.TextValue(u"\\ControlPanel", u"Wave"), std::nullopt);
    EXPECT_NE(host.Registry().RegSetValueExW(key, u"Wave", REG_SZ, data), ErrorCode::Success); // closed
}

TEST(RecordedRegistry, FailsWhenToldTo) {
    HeadlessHost host({});
    host.RegistryCalls.Failure = ErrorCode::AccessDenied;
    KeyHandle key = KeyHandle::None;
    EXPECT_EQ(host.Registry().RegCreateKeyExW(u"\\X", key), ErrorCode::AccessDenied);
    EXPECT_EQ(key, KeyHandle::None);
}

TEST(RecordedRegistry, ProfileNumbersHaveAStandard) {
    HeadlessHost host({});
    host.Registry().SetRegistryKey(u"Zorbex");
    EXPECT_EQ(host.RegistryCalls.Company, u"Zorbex");
    EXPECT_EQ(host.Registry().GetProfileIntW(u"clock", u"isAnalog", 1), 1);
    EXPECT_TRUE(host.Registry().WriteProfileInt(u"clock", u"isAnalog", 0));
    EXPECT_EQ(host.Registry().GetProfileIntW(u"clock", u"isAnalog", 1), 0);
}

} // namespace

} // namespace tavo::headless
