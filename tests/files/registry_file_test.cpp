// Tests of the registry on its file.
#include "host/files/registry_file.h"

#include "host/posix/posix_disk.h"
#include "tests/files/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tavo::files {

namespace {

constexpr std::u16string_view kReminders = u"\\ControlPanel\\Notifications\\Reminders";

struct RegistryFileTest : testing::Test {
    TemporaryFolder Folder;
    posix::PosixDisk Disk;
    RegistryFile Registry{Disk, Folder / "Registry.txt", Folder / "Registry.lock"};
};

std::vector<std::uint8_t> BytesOfText(std::u16string_view text) {
    std::vector<std::uint8_t> bytes;
    for (const char16_t unit : text) {
        bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
        bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
    return bytes;
}

} // namespace

TEST_F(RegistryFileTest, TheProfileGivesTheStandardUntilItIsWritten) {
    Registry.SetRegistryKey(u"Zorbex");
    EXPECT_EQ(Registry.GetProfileIntW(u"clock", u"isAnalog", 1), 1);
    EXPECT_FALSE(Folder.Has("Registry.txt")); // asking writes nothing
    EXPECT_TRUE(Registry.WriteProfileInt(u"clock", u"isAnalog", 0));
    EXPECT_EQ(Registry.GetProfileIntW(u"clock", u"isAnalog", 1), 0);
    RegistryFile again(Disk, Folder / "Registry.txt", Folder / "Registry.lock");
    again.SetRegistryKey(u"ZORBEX");
    EXPECT_EQ(again.GetProfileIntW(u"Clock", u"ISANALOG", 1), 0);
    again.SetRegistryKey(u"Other");
    EXPECT_EQ(again.GetProfileIntW(u"clock", u"isAnalog", 1), 1);
}

TEST_F(RegistryFileTest, AChangeByHandIsSeenWhileTheProgramRuns) {
    Registry.SetRegistryKey(u"Zorbex");
    Folder.Put("Registry.txt", "[Zorbex\\clock]\nisAnalog=0\n");
    EXPECT_EQ(Registry.GetProfileIntW(u"clock", u"isAnalog", 1), 0);
    Folder.Put("Registry.txt", "[Zorbex\\clock]\nisAnalog=2\n");
    EXPECT_EQ(Registry.GetProfileIntW(u"clock", u"isAnalog", 1), 2);
    Folder.Put("Registry.txt", "[Zorbex\\clock]\nisAnalog=maybe\n");
    EXPECT_EQ(Registry.GetProfileIntW(u"clock", u"isAnalog", 1), 1);
}

TEST_F(RegistryFileTest, ValuesAreKeptWithTheirExactBytes) {
    KeyHandle key{};
    ASSERT_EQ(Registry.RegCreateKeyExW(kReminders, key), ErrorCode::Success);
    ASSERT_NE(key, KeyHandle::None);
    const std::vector<std::uint8_t> data = BytesOfText(u"\\Windows\\Alarm12.wav"); // 20 characters
    ASSERT_EQ(data.size(), 40U);
    ASSERT_EQ(Registry.RegSetValueExW(key, u"Wave", REG_SZ, data), ErrorCode::Success);
    Registry.RegCloseKey(key);
    EXPECT_EQ(Folder.Get("Registry.txt"),
              "# Settings of Tavo Calendar. Lines that the program does not know are kept as they are.\n"
              "[HKEY_CURRENT_USER\\ControlPanel\\Notifications\\Reminders]\n"
              "Wave=\"\\Windows\\Alarm12.wav\"\n");
    EXPECT_EQ(Registry.ReadValue(kReminders, u"Wave"), (RegistryValue{REG_SZ, data}));
    EXPECT_EQ(Registry.ReadValue(u"ControlPanel\\\\notifications\\Reminders\\", u"wave"),
              (RegistryValue{REG_SZ, data}));
}

TEST_F(RegistryFileTest, AClosedOrUnknownKeyTakesNoValue) {
    KeyHandle key{};
    ASSERT_EQ(Registry.RegCreateKeyExW(kReminders, key), ErrorCode::Success);
    Registry.RegCloseKey(key);
    EXPECT_EQ(Registry.RegSetValueExW(key, u"Wave", REG_SZ, {}), ErrorCode::InvalidHandle);
    EXPECT_EQ(Registry.RegSetValueExW(KeyHandle::None, u"Wave", REG_SZ, {}), ErrorCode::InvalidHandle);
    EXPECT_EQ(Registry.ReadValue(kReminders, u"Wave"), std::nullopt);
}

TEST_F(RegistryFileTest, TheFileIsForTheUserAloneAndNotRewrittenInVain) {
    ASSERT_TRUE(Registry.WriteProfileInt(u"clock", u"isAnalog", 1));

    struct stat before {};

    ASSERT_EQ(stat((Folder / "Registry.txt").c_str(), &before), 0);
    EXPECT_EQ(before.st_mode & 07777, 0600U);
    ASSERT_TRUE(Registry.WriteProfileInt(u"clock", u"isAnalog", 1));

    struct stat after {};

    ASSERT_EQ(stat((Folder / "Registry.txt").c_str(), &after), 0);
    EXPECT_EQ(after.st_ino, before.st_ino);
}

TEST_F(RegistryFileTest, SeveralProcessesLoseNoneOfTheirChanges) {
    constexpr int kWriters = 4;
    constexpr int kValues = 12;
    std::vector<pid_t> writers;
    for (int writer = 0; writer < kWriters; ++writer) {
        const pid_t child = fork();
        if (child == 0) {
            const std::u16string section(1, static_cast<char16_t>(u'a' + writer));
            for (int i = 0; i < kValues; ++i) {
                if (!Registry.WriteProfileInt(section, std::u16string(1, static_cast<char16_t>(u'a' + i)), i)) {
                    _exit(1);
                }
            }
            _exit(0);
        }
        writers.push_back(child);
    }
    for (const pid_t writer : writers) {
        int status = -1;
        ASSERT_EQ(waitpid(writer, &status, 0), writer);
        EXPECT_EQ(status, 0);
    }
    for (int writer = 0; writer < kWriters; ++writer) {
        for (int i = 0; i < kValues; ++i) {
            ASSERT_EQ(Registry.GetProfileIntW(std::u16string(1, static_cast<char16_t>(u'a' + writer)),
                                              std::u16string(1, static_cast<char16_t>(u'a' + i)), -1),
                      i);
        }
    }
}

TEST_F(RegistryFileTest, AFileThatCannotBeReadIsNotReplaced) {
    Folder.Put("Registry.txt", "[s]\nn=5\n");
    EXPECT_EQ(RunUnprivileged(Folder.Path(),
                              [&] {
                                  chmod((Folder / "Registry.txt").c_str(), 0200);
                                  KeyHandle key{};
                                  const bool isRefused =
                                      !Registry.WriteProfileInt(u"s", u"n", 6) &&
                                      Registry.RegCreateKeyExW(u"\\k", key) == ErrorCode::AccessDenied &&
                                      Registry.GetProfileIntW(u"s", u"n", 9) == 9;
                                  return isRefused ? 0 : 1;
                              }),
              0);
    EXPECT_EQ(Folder.Get("Registry.txt"), "[s]\nn=5\n");
}

TEST_F(RegistryFileTest, AFileThatIsTooLargeToBeARegistryIsNotReplaced) {
    const std::string large(5 << 20, '#');
    Folder.Put("Registry.txt", large);
    EXPECT_FALSE(Registry.WriteProfileInt(u"s", u"n", 6));
    EXPECT_EQ(Registry.GetProfileIntW(u"s", u"n", 9), 9);
    EXPECT_TRUE(Folder.Get("Registry.txt") == large);
}

} // namespace tavo::files
