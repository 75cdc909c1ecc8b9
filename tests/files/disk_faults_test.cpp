// The device's files and its registry on a disk that fails, at every call once.
#include "host/files/device_files.h"

#include "host/files/registry_file.h"
#include "tests/files/temporary_folder.h"
#include "tests/support/every_fault.h"

#include <gmock/gmock.h>

namespace tavo::files {

namespace {

using test::Fault;
using test::MemoryDisk;
using test::PlayWithEveryFault;
using testing::AllOf;
using testing::AnyOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::Optional;
using testing::SizeIs;

constexpr std::time_t kNow = 1'100'000'000;
const std::string kFolder = "/device/My Documents/TavoCalendar";
const std::string kMemo = kFolder + "/20041103_171005.pwi";
constexpr std::u16string_view kMemoPath = u"\\My Documents\\TavoCalendar\\20041103_171005.pwi";
constexpr std::u16string_view kMovedPath = u"\\My Documents\\TavoCalendar\\20041104_171005.pwi";
const std::string kData = kFolder + "/TavoCalendar.dat";
constexpr std::u16string_view kDataPath = u"\\My Documents\\TavoCalendar\\TavoCalendar.dat";

// What lies in the Deleted folder.
std::vector<std::string> Kept(const MemoryDisk& disk) {
    return disk.FilesIn(kFolder + "/Deleted");
}

struct Device {
    MemoryDisk Disk{kFolder};
    DeviceFiles Files{Disk, {"/device"}, [] { return kNow; }};
};

} // namespace

TEST(DiskFaults, AMemoIsTheOldOneOrTheNewOneAndTheOldOneIsKept) {
    const int met = PlayWithEveryFault([](const Fault& fault) {
        Device device;
        device.Disk.Put(kMemo, "old");
        fault.Strike(device.Disk);
        const ErrorCode error = device.Files.WriteWholeFile(kMemoPath, BytesOf("new"));
        device.Disk.Mend();
        const std::optional<std::string> memo = device.Disk.Get(kMemo);
        EXPECT_THAT(memo, Optional(AnyOf("old", "new")));
        EXPECT_TRUE(error != ErrorCode::Success || memo == "new");
        EXPECT_THAT(Kept(device.Disk), Each(std::string("old")));
        EXPECT_TRUE(memo == "old" || !Kept(device.Disk).empty());
        EXPECT_EQ(device.Files.WriteWholeFile(kMemoPath, BytesOf("new")), ErrorCode::Success);
        EXPECT_EQ(device.Disk.Get(kMemo), "new");
        EXPECT_THAT(Kept(device.Disk), Contains("old"));
        EXPECT_THAT(device.Disk.NamesIn(kFolder), ElementsAre("20041103_171005.pwi", "Deleted"));
        return device.Disk.HasFailed();
    });
    EXPECT_GE(met, 60);
}

TEST(DiskFaults, AFirstMemoIsThereWholeOrNotAtAll) {
    const int met = PlayWithEveryFault([](const Fault& fault) {
        Device device;
        fault.Strike(device.Disk);
        const ErrorCode error = device.Files.WriteWholeFile(kMemoPath, BytesOf("new"));
        device.Disk.Mend();
        EXPECT_EQ(device.Disk.Get(kMemo).value_or("new"), "new");
        EXPECT_TRUE(error != ErrorCode::Success || device.Disk.Get(kMemo) == "new");
        EXPECT_EQ(device.Files.WriteWholeFile(kMemoPath, BytesOf("new")), ErrorCode::Success);
        EXPECT_EQ(device.Disk.Get(kMemo), "new");
        return device.Disk.HasFailed();
    });
    EXPECT_GE(met, 40);
}

TEST(DiskFaults, TheDataFileIsTheOldOneOrTheNewOne) {
    const int met = PlayWithEveryFault([](const Fault& fault) {
        Device device;
        device.Disk.Put(kData, "old");
        fault.Strike(device.Disk);
        const ErrorCode error = device.Files.WriteWholeFile(kDataPath, BytesOf("new"));
        device.Disk.Mend();
        EXPECT_THAT(device.Disk.Get(kData), Optional(AnyOf("old", "new")));
        EXPECT_TRUE(error != ErrorCode::Success || device.Disk.Get(kData) == "new");
        EXPECT_EQ(device.Files.WriteWholeFile(kDataPath, BytesOf("new")), ErrorCode::Success);
        EXPECT_EQ(device.Disk.Get(kData), "new");
        EXPECT_THAT(device.Disk.NamesIn(kFolder), ElementsAre("TavoCalendar.dat"));
        return device.Disk.HasFailed();
    });
    EXPECT_GE(met, 40);
}

TEST(DiskFaults, ADeletedMemoIsWhereItWasOrInTheDeletedFolder) {
    const int met = PlayWithEveryFault([](const Fault& fault) {
        Device device;
        device.Disk.Put(kMemo, "ink");
        fault.Strike(device.Disk);
        const ErrorCode error = device.Files.DeleteFileW(kMemoPath);
        device.Disk.Mend();
        EXPECT_EQ(error == ErrorCode::Success, !device.Disk.Get(kMemo).has_value());
        EXPECT_TRUE(device.Disk.Get(kMemo) == "ink" || !Kept(device.Disk).empty());
        EXPECT_THAT(Kept(device.Disk), Each(std::string("ink")));
        EXPECT_EQ(device.Files.DeleteFileW(kMemoPath),
                  error == ErrorCode::Success ? ErrorCode::FileNotFound : ErrorCode::Success);
        EXPECT_FALSE(device.Disk.Get(kMemo).has_value());
        EXPECT_THAT(Kept(device.Disk), Contains("ink"));
        return device.Disk.HasFailed();
    });
    EXPECT_GE(met, 40);
}

TEST(DiskFaults, AMemoThatIsMovedIsAtOneOfItsPathsAtLeast) {
    const int met = PlayWithEveryFault([](const Fault& fault) {
        Device device;
        device.Disk.Put(kMemo, "ink");
        fault.Strike(device.Disk);
        const ErrorCode error = device.Files.MoveFileW(kMemoPath, kMovedPath);
        device.Disk.Mend();
        const std::vector<std::string> names = device.Disk.NamesIn(kFolder);
        EXPECT_FALSE(names.empty());
        EXPECT_THAT(device.Disk.FilesIn(kFolder), AllOf(SizeIs(names.size()), Each(std::string("ink"))));
        EXPECT_EQ(error == ErrorCode::Success, names == std::vector<std::string>{"20041104_171005.pwi"});
        return device.Disk.HasFailed();
    });
    EXPECT_GE(met, 30);
}

TEST(DiskFaults, APurgeThatFailsLeavesYoungMemosAndIsMadeUpForByTheNext) {
    const std::string deleted = kFolder + "/Deleted/";
    const int met = PlayWithEveryFault([&](const Fault& fault) {
        Device device;
        EXPECT_EQ(device.Disk.MakeFolder(kFolder + "/Deleted"), ErrorCode::Success);
        device.Disk.Put(deleted + "a (deleted 20040101T000000Z).pwi", "old");
        device.Disk.Put(deleted + "b (deleted 20041101T000000Z).pwi", "young");
        fault.Strike(device.Disk);
        device.Files.Purge();
        device.Disk.Mend();
        EXPECT_THAT(Kept(device.Disk), Contains("young"));
        device.Files.Purge();
        EXPECT_THAT(Kept(device.Disk), ElementsAre("young"));
        return device.Disk.HasFailed();
    });
    EXPECT_GE(met, 30);
}

// Each write changes one value; the others, and lines that nobody knows, stay.
TEST(DiskFaults, TheRegistryIsTheOldOneOrTheNewOne) {
    const std::string path = "/device/Registry.txt";
    const std::string lines = "# mine\n[Zorbex\\clock]\nisAnalog=1\nunknown line\n";
    const int met = PlayWithEveryFault([&](const Fault& fault) {
        Device device;
        device.Disk.Put(path, lines);
        RegistryFile registry(device.Disk, path, "/device/Registry.lock");
        registry.SetRegistryKey(u"Zorbex");
        EXPECT_EQ(registry.GetProfileIntW(u"clock", u"isAnalog", 7), 1);
        fault.Strike(device.Disk);
        const bool isWritten = registry.WriteProfileInt(u"clock", u"isAnalog", 0);
        device.Disk.Mend();
        const std::string after = device.Disk.Get(path).value_or("");
        EXPECT_THAT(registry.GetProfileIntW(u"clock", u"isAnalog", 7), AnyOf(0, 1));
        EXPECT_TRUE(!isWritten || registry.GetProfileIntW(u"clock", u"isAnalog", 7) == 0);
        EXPECT_THAT(after, testing::HasSubstr("# mine"));
        EXPECT_THAT(after, testing::HasSubstr("unknown line"));
        EXPECT_TRUE(registry.WriteProfileInt(u"clock", u"isAnalog", 0));
        EXPECT_EQ(registry.GetProfileIntW(u"clock", u"isAnalog", 7), 0);
        return device.Disk.HasFailed();
    });
    EXPECT_GE(met, 25);
}

TEST(DiskFaults, AKeyOfTheRegistryIsMadeByTheNextTry) {
    constexpr std::u16string_view kPath = u"\\ControlPanel\\Notifications\\Reminders";
    const std::vector<std::uint8_t> sound{'A', 0, 0, 0};
    const int met = PlayWithEveryFault([&](const Fault& fault) {
        Device device;
        RegistryFile registry(device.Disk, "/device/Registry.txt", "/device/Registry.lock");
        const auto write = [&] {
            KeyHandle key{};
            ErrorCode error = registry.RegCreateKeyExW(kPath, key);
            if (error == ErrorCode::Success) {
                error = registry.RegSetValueExW(key, u"Wave", 1, sound);
                registry.RegCloseKey(key);
            }
            return error == ErrorCode::Success;
        };
        fault.Strike(device.Disk);
        const bool isWritten = write();
        device.Disk.Mend();
        const std::optional<RegistryValue> value = registry.ReadValue(kPath, u"Wave");
        EXPECT_TRUE(!value || value->Data == sound);
        EXPECT_TRUE(!isWritten || value);
        EXPECT_TRUE(write());
        EXPECT_TRUE(registry.ReadValue(kPath, u"Wave"));
        return device.Disk.HasFailed();
    });
    EXPECT_GE(met, 50);
}

} // namespace tavo::files
