// Tests of remembering what a folder holds, and of what a search costs.
#include "host/files/folder_cache.h"

#include "host/files/device_files.h"
#include "host/posix/posix_disk.h"
#include "tests/files/temporary_folder.h"

#include <chrono>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>

namespace tavo::files {

namespace {

void SetModified(const std::string& path, std::time_t seconds, long nanoseconds) {
    const timespec times[2] = {{seconds, nanoseconds}, {seconds, nanoseconds}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
}

std::u16string PatternOfDay(int day) {
    std::u16string pattern = u"\\My Documents\\TavoCalendar\\200409";
    pattern += static_cast<char16_t>(u'0' + day / 10);
    pattern += static_cast<char16_t>(u'0' + day % 10);
    return pattern + u"*.pwi";
}

} // namespace

TEST(FolderCache, AFolderAtRestIsReadOnce) {
    const TemporaryFolder folder;
    folder.Put("a", "");
    posix::PosixDisk disk;
    FolderCache cache(disk, folder.Path(), LinkRule::InsideOnly);
    ASSERT_TRUE(cache.List(folder.Path()));
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    ASSERT_TRUE(cache.List(folder.Path())); // the stamp has been the same for long enough now
    const std::size_t reads = cache.ReadCount();
    for (int i = 0; i < 100; ++i) {
        ASSERT_EQ(cache.List(folder.Path())->size(), 1U);
    }
    EXPECT_EQ(cache.ReadCount(), reads);
}

TEST(FolderCache, AYoungFolderIsReadEachTime) {
    const TemporaryFolder folder;
    posix::PosixDisk disk;
    FolderCache cache(disk, folder.Path(), LinkRule::InsideOnly);
    SetModified(folder.Path(), std::time(nullptr) + 1000, 0); // whole seconds only, and never older than the clock
    for (int i = 0; i < 5; ++i) {
        ASSERT_TRUE(cache.List(folder.Path()));
    }
    EXPECT_EQ(cache.ReadCount(), 5U);
}

TEST(FolderCache, EveryChangeOfTheFolderIsSeen) {
    const TemporaryFolder folder;
    posix::PosixDisk disk;
    FolderCache cache(disk, folder.Path(), LinkRule::InsideOnly);
    for (std::size_t i = 0; i < 20; ++i) {
        ASSERT_EQ(cache.List(folder.Path())->size(), i);
        std::this_thread::sleep_for(std::chrono::milliseconds(25)); // the reading may be believed meanwhile
        ASSERT_EQ(cache.List(folder.Path())->size(), i);
        folder.Put(std::to_string(i), "");
    }
}

TEST(FolderCache, AnotherFolderUnderTheSameNameIsSeen) {
    const TemporaryFolder folder;
    folder.Put("a/x", "");
    folder.Put("b/y", "");
    posix::PosixDisk disk;
    FolderCache cache(disk, folder.Path(), LinkRule::InsideOnly);
    EXPECT_EQ(cache.List(folder / "a")->front().Name, u"x");
    std::filesystem::rename(folder / "a", folder / "c");
    EXPECT_FALSE(cache.List(folder / "a"));
    std::filesystem::rename(folder / "b", folder / "a");
    EXPECT_EQ(cache.List(folder / "a")->front().Name, u"y");
}

TEST(FolderCache, NamesThatNoDevicePathCanSayAreLeftOut) {
    const TemporaryFolder folder;
    for (const char* name : {"fine.wav", "with:colon", "with\\backslash", "bad\xFFutf", ".~tavo-1-2", "tab\there"}) {
        folder.Put(name, "");
    }
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    posix::PosixDisk disk;
    FolderCache cache(disk, folder.Path(), LinkRule::InsideOnly);
    const auto listing = cache.List(folder.Path());
    ASSERT_EQ(listing->size(), 1U);
    EXPECT_EQ(listing->front().Name, u"fine.wav");
}

TEST(FolderCache, InAFolderOfTenThousandMemosASearchCostsMicroseconds) {
    const TemporaryFolder root;
    std::filesystem::create_directories(root / "My Documents/TavoCalendar");
    for (int i = 0; i < 10'000; ++i) {
        char name[64];
        static_cast<void>(std::snprintf(name, sizeof name, "My Documents/TavoCalendar/2004%02d%02d_%06d.pwi",
                                        i % 12 + 1, i % 30 + 1, i));
        std::ofstream(root / name);
    }
    SetModified(root / "My Documents/TavoCalendar", std::time(nullptr) - 1000, 1);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    posix::PosixDisk disk;
    DeviceFiles files(disk, {root.Path()});
    EXPECT_TRUE(files.FindFirstFileW(PatternOfDay(9)));
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_TRUE(files.FindFirstFileW(PatternOfDay(9)));
    const std::size_t reads = files.FolderReads();
    const auto begin = std::chrono::steady_clock::now();
    constexpr int kMonths = 100;
    for (int month = 0; month < kMonths; ++month) {
        for (int day = 1; day <= 42; ++day) {
            ASSERT_EQ(files.FindFirstFileW(PatternOfDay(day)) != nullptr, day <= 30 && day % 6 == 3) << day;
        }
    }
    const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - begin;
    const double each = taken.count() / (kMonths * 42);
    RecordProperty("microseconds_each", std::to_string(each));
    std::printf("one search among 10,000 memos: %.2f microseconds\n", each);
    EXPECT_EQ(files.FolderReads(), reads); // nothing was read again
    EXPECT_LT(each, 500);                  // far above what it takes on a busy machine, far below reading the folder
}

} // namespace tavo::files
