// The scripted device as a whole.
#include "host/headless/headless_host.h"

#include <gtest/gtest.h>

#include <fstream>

namespace tavo::headless {

namespace {

TEST(HeadlessHost, TemporaryRootGoesWithTheDevice) {
    std::filesystem::path root;
    {
        HeadlessHost host({});
        root = host.Root.Path();
        const std::vector<std::uint8_t> bytes{7};
        ASSERT_EQ(host.Files().WriteWholeFile(u"\\My Documents\\note.txt", bytes), ErrorCode::Success);
        EXPECT_TRUE(std::filesystem::exists(root / "My Documents" / "note.txt"));
    }
    EXPECT_FALSE(std::filesystem::exists(root));
}

TEST(HeadlessHost, GivenRootStaysForTheNextDevice) {
    const DeviceRootFolder folder({});
    DeviceOptions options;
    options.Root = folder.Path();
    const std::vector<std::uint8_t> bytes{7};
    {
        HeadlessHost host(options);
        ASSERT_EQ(host.Files().WriteWholeFile(u"\\My Documents\\note.txt", bytes), ErrorCode::Success);
    }
    HeadlessHost host(options);
    std::vector<std::uint8_t> read;
    EXPECT_EQ(host.Files().ReadWholeFile(u"\\My Documents\\note.txt", read), ErrorCode::Success);
    EXPECT_EQ(read, bytes);
}

TEST(HeadlessHost, StoreIsTheRealOneAndMadeOnlyWhenAskedFor) {
    HeadlessHost host({});
    EXPECT_FALSE(std::filesystem::exists(host.Root.Path() / "Outlook.db"));
    ComPtr<IPOutlookApp> outlook;
    ASSERT_EQ(host.CoCreateInstance(outlook), Status::Ok);
    ASSERT_TRUE(outlook);
    EXPECT_FALSE(std::filesystem::exists(host.Root.Path() / "Outlook.db")); // not before Logon
    ASSERT_EQ(outlook->Logon(WindowHandle::None), Status::Ok);
    EXPECT_TRUE(std::filesystem::exists(host.Root.Path() / "Outlook.db"));
    ComPtr<IFolder> calendar;
    EXPECT_EQ(outlook->GetDefaultFolder(kFolderCalendar, calendar), Status::Ok);
    EXPECT_TRUE(calendar);
}

TEST(HeadlessHost, StoreCanBeMadeToFail) {
    DeviceOptions options;
    std::filesystem::path asked;
    options.Outlook = [&](const std::filesystem::path& store, ComPtr<IPOutlookApp>&) {
        asked = store;
        return Status::OutOfMemory;
    };
    HeadlessHost host(options);
    host.LastError = ErrorCode::LockViolation;
    ComPtr<IPOutlookApp> outlook;
    EXPECT_EQ(host.CoCreateInstance(outlook), Status::OutOfMemory);
    EXPECT_FALSE(outlook);
    EXPECT_EQ(asked, host.Root.Path() / "Outlook.db");
    EXPECT_EQ(host.GetLastError(), ErrorCode::LockViolation);
}

TEST(HeadlessHost, ComUsesAreCounted) {
    HeadlessHost host({});
    EXPECT_EQ(host.CoInitializeEx(), Status::Ok);
    EXPECT_EQ(host.ComUses, 1);
    host.CoUninitialize();
    EXPECT_EQ(host.ComUses, 0);
    host.ComStatus = Status::Fail;
    EXPECT_EQ(host.CoInitializeEx(), Status::Fail);
    EXPECT_EQ(host.ComUses, 0);
}

TEST(HeadlessHost, ClockStandsWhereTheOptionsSayWithItsWeekday) {
    DeviceOptions options;
    options.Now = {2026, 11, 0, 21, 9, 30, 0, 0};
    HeadlessHost host(options);
    EXPECT_EQ(host.Clock().GetLocalTime(), (SYSTEMTIME{2026, 11, 6, 21, 9, 30, 0, 0}));
}

} // namespace

} // namespace tavo::headless
