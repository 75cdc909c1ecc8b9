// Tests of the device's files on real folders.
#include "host/files/device_files.h"

#include "host/posix/posix_disk.h"
#include "tests/files/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tavo::files {

namespace {

constexpr std::u16string_view kData = u"\\My Documents\\TavoCalendar";

struct DeviceFilesTest : testing::Test {
    TemporaryFolder Home;
    std::string Root = Home / "root";
    posix::PosixDisk Disk;
    DeviceFiles Files = MakeFiles();

    DeviceFiles MakeFiles() {
        std::filesystem::create_directories(Home / "root/My Documents/TavoCalendar");
        std::filesystem::create_directories(Home / "root/Windows");
        std::filesystem::create_directories(Home / "installed");
        return DeviceFiles(Disk, {Root, Home / "installed"});
    }

    std::string Read(std::u16string_view path) {
        std::vector<std::uint8_t> bytes;
        const ErrorCode error = Files.ReadWholeFile(path, bytes);
        if (error != ErrorCode::Success) {
            return "error " + std::to_string(static_cast<int>(error));
        }
        return {bytes.begin(), bytes.end()};
    }

    std::vector<std::u16string> Find(std::u16string_view pattern) {
        std::vector<std::u16string> names;
        const std::unique_ptr<IFileSearch> search = Files.FindFirstFileW(pattern);
        if (search) {
            do {
                names.push_back(search->FileName());
            } while (search->FindNextFileW());
        }
        return names;
    }
};

using Names = std::vector<std::u16string>;

} // namespace

TEST_F(DeviceFilesTest, WhatIsWrittenIsReadBackUnderAnySpelling) {
    ASSERT_EQ(Files.WriteWholeFile(u"\\My Documents\\TavoCalendar\\TavoCalendar.dat", BytesOf("abc")),
              ErrorCode::Success);
    EXPECT_EQ(Read(u"\\my documents\\TAVOCALENDAR\\tavocalendar.DAT"), "abc");
    EXPECT_EQ(Read(u"\\My Documents\\\\TavoCalendar\\\\TavoCalendar.dat"), "abc");
    EXPECT_EQ(Home.Get("root/My Documents/TavoCalendar/TavoCalendar.dat"), "abc");
}

TEST_F(DeviceFilesTest, WritingUnderAnotherSpellingReplacesTheSameFile) {
    ASSERT_EQ(Files.WriteWholeFile(u"\\My Documents\\Größe.dat", BytesOf("1")), ErrorCode::Success);
    ASSERT_EQ(Files.WriteWholeFile(u"\\MY DOCUMENTS\\GRÖSSE.dat", BytesOf("other")), ErrorCode::Success);
    ASSERT_EQ(Files.WriteWholeFile(u"\\MY DOCUMENTS\\GRÖßE.DAT", BytesOf("2")), ErrorCode::Success);
    EXPECT_EQ(Home.NamesIn("root/My Documents"), (std::vector<std::string>{"GRÖSSE.dat", "Größe.dat", "TavoCalendar"}));
    EXPECT_EQ(Home.Get("root/My Documents/Größe.dat"), "2");
}

TEST_F(DeviceFilesTest, AnEmptyFileIsAFile) {
    ASSERT_EQ(Files.WriteWholeFile(u"\\empty", {}), ErrorCode::Success);
    EXPECT_EQ(Read(u"\\empty"), "");
}

TEST_F(DeviceFilesTest, FoldersAreMadeOnceAndForTheUserAlone) {
    EXPECT_EQ(Files.CreateDirectoryW(u"\\My Documents\\New"), ErrorCode::Success);
    EXPECT_EQ(Files.CreateDirectoryW(u"\\My Documents\\NEW"), ErrorCode::AlreadyExists);
    EXPECT_EQ(Files.CreateDirectoryW(u"\\"), ErrorCode::AlreadyExists);
    EXPECT_EQ(Files.CreateDirectoryW(u"\\Windows"), ErrorCode::AlreadyExists);
    EXPECT_EQ(Files.CreateDirectoryW(u"\\none\\New"), ErrorCode::PathNotFound);

    struct stat state {};

    ASSERT_EQ(stat((Home / "root/My Documents/New").c_str(), &state), 0);
    EXPECT_EQ(state.st_mode & 07777, 0700U);
}

TEST_F(DeviceFilesTest, MissingFilesAndFoldersAreTold) {
    EXPECT_EQ(Read(u"\\none.dat"), "error 2");
    EXPECT_EQ(Read(u"\\none\\x.dat"), "error 3");
    EXPECT_EQ(Read(u"\\My Documents"), "error 5");
    EXPECT_EQ(Files.WriteWholeFile(u"\\none\\x.dat", {}), ErrorCode::PathNotFound);
    EXPECT_EQ(Files.WriteWholeFile(u"\\My Documents", {}), ErrorCode::AccessDenied);
    EXPECT_EQ(Files.WriteWholeFile(u"\\", {}), ErrorCode::AccessDenied);
    EXPECT_EQ(Files.DeleteFileW(u"\\none.dat"), ErrorCode::FileNotFound);
    EXPECT_EQ(Files.DeleteFileW(u"\\My Documents"), ErrorCode::AccessDenied);
}

TEST_F(DeviceFilesTest, NoPathLeavesTheRoot) {
    Home.Put("secret", "outside");
    std::filesystem::create_directory_symlink(Home.Path(), Home / "root/out");
    std::filesystem::create_symlink(Home / "secret", Home / "root/link.dat");
    std::filesystem::create_symlink(Home / "unborn", Home / "root/dangling.dat");
    EXPECT_EQ(Read(u"\\..\\secret"), "error 123");
    EXPECT_EQ(Read(u"\\../secret"), "error 123");
    EXPECT_EQ(Read(u"\\out\\secret"), "error 5");
    EXPECT_EQ(Read(u"\\link.dat"), "error 5");
    EXPECT_EQ(Files.WriteWholeFile(u"\\out\\secret", BytesOf("x")), ErrorCode::AccessDenied);
    EXPECT_EQ(Files.WriteWholeFile(u"\\link.dat", BytesOf("x")), ErrorCode::AccessDenied);
    EXPECT_EQ(Files.WriteWholeFile(u"\\dangling.dat", BytesOf("x")), ErrorCode::AccessDenied);
    EXPECT_EQ(Files.CreateDirectoryW(u"\\out\\made"), ErrorCode::AccessDenied);
    EXPECT_EQ(Files.DeleteFileW(u"\\out\\secret"), ErrorCode::AccessDenied);
    EXPECT_EQ(Find(u"\\out\\*"), Names{});
    EXPECT_EQ(Find(u"\\*.dat"), Names{});
    EXPECT_EQ(Home.Get("secret"), "outside");
    EXPECT_FALSE(Home.Has("unborn"));
}

TEST_F(DeviceFilesTest, AMemoPutAwaySaysWhereItLiesAndMovesBack) {
    const std::u16string memo = std::u16string(kData) + u"\\20041103_101500.pwi";
    ASSERT_EQ(Files.WriteWholeFile(memo, BytesOf("ink")), ErrorCode::Success);
    std::u16string kept;
    ASSERT_EQ(Files.PutAwayMemo(memo, kept), ErrorCode::Success);
    EXPECT_EQ(Read(kept), "ink");
    EXPECT_TRUE(kept.starts_with(std::u16string(kData) + u"\\Deleted\\20041103_101500 (deleted "));
    EXPECT_EQ(Find(memo), Names{});
    ASSERT_EQ(Files.MoveFileW(kept, memo), ErrorCode::Success);
    EXPECT_EQ(Read(memo), "ink");
    EXPECT_EQ(Find(kept), Names{});
    EXPECT_EQ(Files.PutAwayMemo(u"\\My Documents\\TavoCalendar\\none.pwi", kept), ErrorCode::FileNotFound);
    ASSERT_EQ(Files.WriteWholeFile(u"\\notes.txt", BytesOf("text")), ErrorCode::Success);
    EXPECT_EQ(Files.PutAwayMemo(u"\\notes.txt", kept), ErrorCode::AccessDenied); // no memo
}

TEST_F(DeviceFilesTest, AMemoWithTheLongestNameMovesBackToo) {
    constexpr std::size_t longestPath = 259;
    std::u16string memo(kData);
    memo.append(u"\\");
    memo.resize(longestPath - 4, u'm');
    memo.append(u".pwi");
    ASSERT_EQ(Files.WriteWholeFile(memo, BytesOf("ink")), ErrorCode::Success);
    std::u16string kept;
    ASSERT_EQ(Files.PutAwayMemo(memo, kept), ErrorCode::Success);
    EXPECT_EQ(Read(kept), "ink");
    EXPECT_EQ(Files.MoveFileW(kept, memo), ErrorCode::Success);
    EXPECT_EQ(Read(memo), "ink");
}

TEST_F(DeviceFilesTest, MovingTakesNobodysPlaceAndLeavesTheRootByNoPath) {
    ASSERT_EQ(Files.WriteWholeFile(u"\\one", BytesOf("1")), ErrorCode::Success);
    ASSERT_EQ(Files.WriteWholeFile(u"\\two", BytesOf("2")), ErrorCode::Success);
    EXPECT_EQ(Files.MoveFileW(u"\\one", u"\\two"), ErrorCode::AlreadyExists);
    EXPECT_EQ(Files.MoveFileW(u"\\one", u"\\none\\three"), ErrorCode::PathNotFound);
    EXPECT_EQ(Files.MoveFileW(u"\\one", u"\\..\\three"), ErrorCode::InvalidName);
    EXPECT_EQ(Files.MoveFileW(u"\\none", u"\\three"), ErrorCode::FileNotFound);
    EXPECT_EQ(Read(u"\\one"), "1");
    EXPECT_EQ(Read(u"\\two"), "2");
    ASSERT_EQ(Files.MoveFileW(u"\\one", u"\\My Documents\\three"), ErrorCode::Success);
    EXPECT_EQ(Read(u"\\My Documents\\three"), "1");
}

TEST_F(DeviceFilesTest, LinksInsideTheRootAreFollowedAndDeletedAlone) {
    Home.Put("root/real/x.dat", "inside");
    std::filesystem::create_directory_symlink("real", Home / "root/alias");
    std::filesystem::create_symlink("real/x.dat", Home / "root/link.dat");
    EXPECT_EQ(Read(u"\\alias\\x.dat"), "inside");
    EXPECT_EQ(Find(u"\\*.dat"), Names{u"link.dat"});
    ASSERT_EQ(Files.WriteWholeFile(u"\\link.dat", BytesOf("changed")), ErrorCode::Success);
    EXPECT_EQ(Home.Get("root/real/x.dat"), "changed");
    ASSERT_EQ(Files.DeleteFileW(u"\\link.dat"), ErrorCode::Success);
    EXPECT_EQ(Home.Get("root/real/x.dat"), "changed");
}

TEST_F(DeviceFilesTest, SearchesGiveNamesInOrderWithoutCase) {
    for (const char* name :
         {"20040915_101530.pwi", "20040915_090000.PWI", "20040916_000000.pwi", "20040915_x.txt", "b.dat"}) {
        Home.Put(std::string("root/My Documents/TavoCalendar/") + name, "x");
    }
    std::filesystem::create_directory(Home / "root/My Documents/TavoCalendar/20040915_folder.pwi");
    EXPECT_EQ(Find(std::u16string(kData) + u"\\20040915*.pwi"),
              (Names{u"20040915_090000.PWI", u"20040915_101530.pwi"}));
    EXPECT_EQ(Find(u"\\MY documents\\tavocalendar\\*.Pwi"),
              (Names{u"20040915_090000.PWI", u"20040915_101530.pwi", u"20040916_000000.pwi"}));
    EXPECT_EQ(Find(std::u16string(kData) + u"\\B.DAT"), Names{u"b.dat"});
    EXPECT_EQ(Find(std::u16string(kData) + u"\\*.*").size(), 5U);
    EXPECT_EQ(Find(std::u16string(kData) + u"\\20040917*.pwi"), Names{});
    EXPECT_EQ(Find(u"\\none\\*"), Names{});
    EXPECT_EQ(Find(u"\\"), Names{});
}

TEST_F(DeviceFilesTest, ASearchAtItsEndStaysThereWithoutAName) {
    Home.Put("root/a.dat", "x");
    const std::unique_ptr<IFileSearch> search = Files.FindFirstFileW(u"\\*.dat");
    ASSERT_TRUE(search);
    EXPECT_FALSE(search->FindNextFileW());
    EXPECT_EQ(search->FileName(), u"");
    EXPECT_FALSE(search->FindNextFileW());
}

TEST_F(DeviceFilesTest, ASearchGoesOnWhileItsFilesAreDeleted) {
    for (const char* name : {"a.dat", "b.dat", "c.dat"}) {
        Home.Put(std::string("root/") + name, "x");
    }
    const std::unique_ptr<IFileSearch> search = Files.FindFirstFileW(u"\\*.dat");
    ASSERT_TRUE(search);
    Names deleted;
    do {
        deleted.push_back(search->FileName());
        ASSERT_EQ(Files.DeleteFileW(std::u16string(u"\\").append(search->FileName())), ErrorCode::Success);
    } while (search->FindNextFileW());
    EXPECT_EQ(deleted, (Names{u"a.dat", u"b.dat", u"c.dat"}));
    EXPECT_EQ(Find(u"\\*.dat"), Names{});
}

TEST_F(DeviceFilesTest, OwnChangesAreSeenAtOnce) {
    for (int i = 0; i < 50; ++i) {
        const std::u16string name = i % 2 == 0 ? u"\\Even.dat" : u"\\odd.DAT";
        ASSERT_EQ(Files.WriteWholeFile(name, {}), ErrorCode::Success);
        ASSERT_EQ(Find(name).size(), 1U);
        ASSERT_EQ(Files.DeleteFileW(name), ErrorCode::Success);
        ASSERT_EQ(Find(name).size(), 0U);
    }
}

TEST_F(DeviceFilesTest, ChangesOfOthersAreSeenAtOnceEvenWithinOneTick) {
    for (int i = 0; i < 300; ++i) {
        ASSERT_EQ(Find(u"\\*.dat").size(), 0U) << i;
        Home.Put("root/x.dat", "");
        ASSERT_EQ(Find(u"\\*.dat").size(), 1U) << i;
        std::filesystem::remove(Home / "root/x.dat");
    }
}

TEST_F(DeviceFilesTest, TheSoundsOfTheUserLieOverTheInstalledOnes) {
    Home.Put("installed/Alarm1.wav", "installed 1");
    Home.Put("installed/Alarm2.wav", "installed 2");
    Home.Put("root/Windows/alarm2.WAV", "own 2");
    Home.Put("root/Windows/Zebra.wav", "own");
    EXPECT_EQ(Find(u"\\Windows\\*.wav"), (Names{u"Alarm1.wav", u"alarm2.WAV", u"Zebra.wav"}));
    EXPECT_EQ(Read(u"\\windows\\ALARM1.wav"), "installed 1");
    EXPECT_EQ(Read(u"\\Windows\\Alarm2.wav"), "own 2");
    EXPECT_EQ(Files.RealPathOfFile(u"\\Windows\\alarm1.wav"), Home / "installed/Alarm1.wav");
    EXPECT_EQ(Files.RealPathOfFile(u"\\Windows\\Alarm2.wav"), Home / "root/Windows/alarm2.WAV");
    EXPECT_EQ(Files.RealPathOfFile(u"\\Windows\\none.wav"), std::nullopt);
    EXPECT_EQ(Files.RealPathOfFile(u"\\Windows"), std::nullopt);
}

TEST_F(DeviceFilesTest, InstalledSoundsAreNeverChanged) {
    Home.Put("installed/Alarm1.wav", "installed");
    EXPECT_EQ(Files.DeleteFileW(u"\\Windows\\Alarm1.wav"), ErrorCode::AccessDenied);
    ASSERT_EQ(Files.WriteWholeFile(u"\\Windows\\Alarm1.wav", BytesOf("own")), ErrorCode::Success);
    EXPECT_EQ(Read(u"\\Windows\\Alarm1.wav"), "own");
    ASSERT_EQ(Files.DeleteFileW(u"\\Windows\\Alarm1.wav"), ErrorCode::Success);
    EXPECT_EQ(Read(u"\\Windows\\Alarm1.wav"), "installed");
    EXPECT_EQ(Home.Get("installed/Alarm1.wav"), "installed");
}

TEST_F(DeviceFilesTest, ReadOnlyFilesAreNotDeletedAndLockedFoldersNotWritten) {
    Home.Put("root/x.dat", "old");
    EXPECT_EQ(RunUnprivileged(Home.Path(),
                              [&] {
                                  chmod((Home / "root/x.dat").c_str(), 0400);
                                  if (Files.DeleteFileW(u"\\x.dat") != ErrorCode::AccessDenied) {
                                      return 1;
                                  }
                                  chmod(Root.c_str(), 0500);
                                  if (Files.WriteWholeFile(u"\\y.dat", {}) != ErrorCode::AccessDenied) {
                                      return 2;
                                  }
                                  if (Files.CreateDirectoryW(u"\\z") != ErrorCode::AccessDenied) {
                                      return 3;
                                  }
                                  chmod(Root.c_str(), 0700);
                                  return 0;
                              }),
              0);
    EXPECT_EQ(Home.Get("root/x.dat"), "old");
}

} // namespace tavo::files
