// Tests of the folder that keeps deleted and replaced memos.
#include "host/files/deleted_memos.h"

#include "host/files/device_files.h"
#include "host/posix/posix_disk.h"
#include "tests/files/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tavo::files {

namespace {

constexpr std::time_t kNow = 1100727930; // 2004-11-17 21:45:30 UTC
constexpr std::time_t kDay = 86400;
constexpr std::u16string_view kMemo = u"\\My Documents\\TavoCalendar\\20040915_101530.pwi";
constexpr const char* kFolder = "My Documents/TavoCalendar";
constexpr const char* kDeleted = "My Documents/TavoCalendar/Deleted";

struct DeletedMemosTest : testing::Test {
    TemporaryFolder Root;
    std::time_t Now = kNow;
    posix::PosixDisk Disk;
    DeviceFiles Files = MakeFiles();

    DeviceFiles MakeFiles() {
        std::filesystem::create_directories(Root / kFolder);
        return DeviceFiles(Disk, {Root.Path()}, [this] { return Now; });
    }

    std::string GetDeleted(const std::string& name) const { return Root.Get(std::string(kDeleted) + '/' + name); }
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(DeletedMemosTest, AReplacedMemoIsKept) {
    ASSERT_EQ(Files.WriteWholeFile(kMemo, BytesOf("first")), ErrorCode::Success);
    EXPECT_FALSE(Root.Has(kDeleted));
    ASSERT_EQ(Files.WriteWholeFile(kMemo, BytesOf("second")), ErrorCode::Success);
    EXPECT_EQ(Root.Get(std::string(kFolder) + "/20040915_101530.pwi"), "second");
    EXPECT_EQ(Root.NamesIn(kDeleted), Names{"20040915_101530 (deleted 20041117T214530Z).pwi"});
    EXPECT_EQ(GetDeleted("20040915_101530 (deleted 20041117T214530Z).pwi"), "first");
}

TEST_F(DeletedMemosTest, ADeletedMemoIsKeptAndGone) {
    ASSERT_EQ(Files.WriteWholeFile(kMemo, BytesOf("ink")), ErrorCode::Success);
    ASSERT_EQ(Files.DeleteFileW(kMemo), ErrorCode::Success);
    EXPECT_EQ(Root.NamesIn(kFolder), Names{"Deleted"});
    EXPECT_EQ(GetDeleted("20040915_101530 (deleted 20041117T214530Z).pwi"), "ink");

    struct stat state {};

    ASSERT_EQ(stat((Root / kDeleted).c_str(), &state), 0);
    EXPECT_EQ(state.st_mode & 07777, 0700U);
}

TEST_F(DeletedMemosTest, SeveralWithinOneSecondAreAllKept) {
    for (const char* ink : {"1", "2", "3"}) {
        ASSERT_EQ(Files.WriteWholeFile(kMemo, BytesOf(ink)), ErrorCode::Success);
        ASSERT_EQ(Files.DeleteFileW(kMemo), ErrorCode::Success);
    }
    EXPECT_EQ(GetDeleted("20040915_101530 (deleted 20041117T214530Z).pwi"), "1");
    EXPECT_EQ(GetDeleted("20040915_101530 (deleted 20041117T214530Z 2).pwi"), "2");
    EXPECT_EQ(GetDeleted("20040915_101530 (deleted 20041117T214530Z 3).pwi"), "3");
}

TEST_F(DeletedMemosTest, OnlyMemosAreKept) {
    ASSERT_EQ(Files.WriteWholeFile(u"\\My Documents\\TavoCalendar\\TavoCalendar.dat", BytesOf("1")),
              ErrorCode::Success);
    ASSERT_EQ(Files.WriteWholeFile(u"\\My Documents\\TavoCalendar\\TavoCalendar.dat", BytesOf("2")),
              ErrorCode::Success);
    ASSERT_EQ(Files.DeleteFileW(u"\\My Documents\\TavoCalendar\\TavoCalendar.dat"), ErrorCode::Success);
    EXPECT_EQ(Root.NamesIn(kFolder), Names{});
}

TEST_F(DeletedMemosTest, DeletingADeletedMemoIsForGood) {
    ASSERT_EQ(Files.WriteWholeFile(kMemo, BytesOf("ink")), ErrorCode::Success);
    ASSERT_EQ(Files.DeleteFileW(kMemo), ErrorCode::Success);
    ASSERT_EQ(
        Files.DeleteFileW(u"\\My Documents\\TavoCalendar\\deleted\\20040915_101530 (deleted 20041117T214530Z).pwi"),
        ErrorCode::Success);
    EXPECT_EQ(Root.NamesIn(kDeleted), Names{});
}

TEST_F(DeletedMemosTest, AMemoStaysWhenItCannotBeKept) {
    ASSERT_EQ(Files.WriteWholeFile(kMemo, BytesOf("ink")), ErrorCode::Success);
    Root.Put(kDeleted, "a file in the way");
    EXPECT_EQ(Files.WriteWholeFile(kMemo, BytesOf("new")), ErrorCode::AccessDenied);
    EXPECT_EQ(Files.DeleteFileW(kMemo), ErrorCode::AccessDenied);
    EXPECT_EQ(Root.Get(std::string(kFolder) + "/20040915_101530.pwi"), "ink");
}

TEST_F(DeletedMemosTest, ALinkInPlaceOfTheDeletedFolderIsNotFollowed) {
    const TemporaryFolder outside;
    ASSERT_EQ(Files.WriteWholeFile(kMemo, BytesOf("ink")), ErrorCode::Success);
    std::filesystem::create_directory_symlink(outside.Path(), Root / kDeleted);
    EXPECT_EQ(Files.DeleteFileW(kMemo), ErrorCode::AccessDenied);
    EXPECT_EQ(outside.NamesIn(""), Names{});
}

TEST_F(DeletedMemosTest, AfterThirtyDaysTheyAreGone) {
    ASSERT_EQ(Files.WriteWholeFile(kMemo, BytesOf("old")), ErrorCode::Success);
    ASSERT_EQ(Files.DeleteFileW(kMemo), ErrorCode::Success);
    Now = kNow + 10 * kDay;
    ASSERT_EQ(Files.WriteWholeFile(kMemo, BytesOf("younger")), ErrorCode::Success);
    ASSERT_EQ(Files.DeleteFileW(kMemo), ErrorCode::Success);
    Root.Put(std::string(kDeleted) + "/by hand.pwi", "not ours");
    Now = kNow + 30 * kDay;
    Files.Purge();
    EXPECT_EQ(Root.NamesIn(kDeleted).size(), 3U);
    Now = kNow + 30 * kDay + 1;
    Files.Purge();
    EXPECT_EQ(Root.NamesIn(kDeleted), (Names{"20040915_101530 (deleted 20041127T214530Z).pwi", "by hand.pwi"}));
}

TEST_F(DeletedMemosTest, PurgingAnEmptyDeviceDoesNothing) {
    const TemporaryFolder empty;
    DeviceFiles(Disk, {empty.Path()}).Purge();
    EXPECT_EQ(empty.NamesIn(""), Names{});
}

TEST(NameOfDeleted, TheMomentComesBackFromTheName) {
    const std::string name = NameOfDeleted("20040915_101530.PWI", kNow, 12);
    EXPECT_EQ(name, "20040915_101530 (deleted 20041117T214530Z 12).PWI");
    EXPECT_EQ(TimeOfDeleted(name), kNow);
}

TEST(NameOfDeleted, LongNamesAreShortenedAtACharacter) {
    std::string stem = "x";
    for (int i = 0; i < 120; ++i) {
        stem += "\xC3\xA4"; // ä, so that the 180th byte lies inside one
    }
    const std::string name = NameOfDeleted(stem + ".pwi", kNow, 2);
    EXPECT_LE(name.size(), 255U);
    EXPECT_EQ(name, stem.substr(0, 179) + " (deleted 20041117T214530Z 2).pwi");
}

TEST(NameOfDeleted, OtherNamesHaveNoMoment) {
    for (const char* name :
         {"x.pwi", "x (deleted ).pwi", "x (deleted 20041317T214530Z).pwi", "x (deleted 2004111xT214530Z).pwi",
          "x (deleted 20041117T214530Z.pwi", "x (deleted 20041117 214530Z).pwi", ""}) {
        EXPECT_EQ(TimeOfDeleted(name), std::nullopt) << name;
    }
}

} // namespace tavo::files
