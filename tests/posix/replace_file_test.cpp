// Tests of replacing a file whole or not at all.
#include "host/posix/replace_file.h"

#include "tests/files/temporary_folder.h"

#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

namespace tavo::posix {

using files::BytesOf;
using files::RunApart;
using files::RunUnprivileged;
using files::TemporaryFolder;

TEST(ReplaceFile, NewFilesAreForTheUserAlone) {
    const TemporaryFolder folder;
    ASSERT_EQ(ReplaceFile(folder / "x", BytesOf("new")), ErrorCode::Success);

    struct stat state {};

    ASSERT_EQ(stat((folder / "x").c_str(), &state), 0);
    EXPECT_EQ(state.st_mode & 07777, 0600U);
    EXPECT_EQ(folder.Get("x"), "new");
}

TEST(ReplaceFile, NothingIsLeftBeside) {
    const TemporaryFolder folder;
    folder.Put("x", "old");
    ASSERT_EQ(ReplaceFile(folder / "x", BytesOf("new")), ErrorCode::Success);
    EXPECT_EQ(folder.NamesIn(""), std::vector<std::string>{"x"});
    EXPECT_EQ(folder.Get("x"), "new");
}

TEST(ReplaceFile, AFullDiskKeepsTheOldBytesAndLeavesNothing) {
    const TemporaryFolder folder;
    folder.Put("x", "old");
    EXPECT_EQ(RunApart([&] {
                  static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
                  const rlimit limit{4096, 4096};
                  if (setrlimit(RLIMIT_FSIZE, &limit) != 0) {
                      return 2;
                  }
                  const std::vector<std::uint8_t> large(100'000);
                  return ReplaceFile(folder / "x", large) == ErrorCode::DiskFull ? 0 : 1;
              }),
              0);
    EXPECT_EQ(folder.Get("x"), "old");
    EXPECT_EQ(folder.NamesIn(""), std::vector<std::string>{"x"});
}

TEST(ReplaceFile, AnObjectionBeforeTheRenameKeepsTheOldBytes) {
    const TemporaryFolder folder;
    folder.Put("x", "old");
    EXPECT_EQ(ReplaceFile(folder / "x", BytesOf("new"), [] { return ErrorCode::AccessDenied; }),
              ErrorCode::AccessDenied);
    EXPECT_EQ(folder.Get("x"), "old");
    EXPECT_EQ(folder.NamesIn(""), std::vector<std::string>{"x"});
}

TEST(ReplaceFile, AKillBetweenWritingAndRenamingKeepsTheOldBytes) {
    const TemporaryFolder folder;
    folder.Put("x", "old");
    EXPECT_EQ(RunApart([&] {
                  static_cast<void>(ReplaceFile(folder / "x", BytesOf("new"), [] {
                      static_cast<void>(raise(SIGKILL));
                      return ErrorCode::Success;
                  }));
                  return 0;
              }),
              128 + SIGKILL);
    EXPECT_EQ(folder.Get("x"), "old");
    EXPECT_EQ(folder.NamesIn("").size(), 2U); // the unfinished one is still there
    ASSERT_EQ(ReplaceFile(folder / "x", BytesOf("newer")), ErrorCode::Success);
    EXPECT_EQ(folder.Get("x"), "newer");
}

TEST(ReplaceFile, AKillAtAnyMomentLeavesOneOfTheTwoWhole) {
    const TemporaryFolder folder;
    const std::string first(60'000, 'a');
    const std::string second(90'000, 'b');
    folder.Put("x", first);
    for (int round = 0; round < 25; ++round) {
        const pid_t child = fork();
        if (child == 0) {
            for (bool isFirst = false;; isFirst = !isFirst) {
                static_cast<void>(ReplaceFile(folder / "x", BytesOf(isFirst ? first : second))); // until it is killed
            }
        }
        std::this_thread::sleep_for(std::chrono::microseconds(500 + 371 * round));
        kill(child, SIGKILL);
        ASSERT_EQ(waitpid(child, nullptr, 0), child);
        const std::string left = folder.Get("x");
        ASSERT_TRUE(left == first || left == second) << "round " << round << ", bytes " << left.size();
    }
}

TEST(ReplaceFile, AFileThatWeMayNotWriteStays) {
    const TemporaryFolder folder;
    folder.Put("x", "old");
    EXPECT_EQ(RunUnprivileged(folder.Path(),
                              [&] {
                                  for (const mode_t mode : {0400U, 0200U, 0U}) {
                                      chmod((folder / "x").c_str(), mode);
                                      if (ReplaceFile(folder / "x", BytesOf("new")) != ErrorCode::AccessDenied) {
                                          return 1;
                                      }
                                  }
                                  return 0;
                              }),
              0);
    EXPECT_EQ(folder.Get("x"), "old");
}

TEST(ReplaceFile, FoldersPipesAndLinksAreNotReplaced) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    folder.Put("target", "old");
    std::filesystem::create_symlink(folder / "target", folder / "link");
    for (const char* name : {"folder", "pipe", "link"}) {
        EXPECT_EQ(ReplaceFile(folder / name, BytesOf("new")), ErrorCode::AccessDenied) << name;
    }
    EXPECT_EQ(folder.Get("target"), "old");
    EXPECT_EQ(ReplaceFile(folder / "none/x", BytesOf("new")), ErrorCode::FileNotFound);
}

TEST(ReadFile, OnlyRegularFilesWithinTheLimitAreRead) {
    const TemporaryFolder folder;
    folder.Put("x", "12345");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    std::vector<std::uint8_t> bytes = BytesOf("before");
    EXPECT_EQ(ReadFile(folder / "x", 5, bytes), ErrorCode::Success);
    EXPECT_EQ(bytes, BytesOf("12345"));
    EXPECT_EQ(ReadFile(folder / "x", 4, bytes), ErrorCode::CannotComplete);
    EXPECT_TRUE(bytes.empty());
    EXPECT_EQ(ReadFile(folder / "pipe", 5, bytes), ErrorCode::AccessDenied);
    EXPECT_EQ(ReadFile(folder.Path(), 5, bytes), ErrorCode::AccessDenied);
    EXPECT_EQ(ReadFile(folder / "none", 5, bytes), ErrorCode::FileNotFound);
}

TEST(RemoveUnfinished, OldOnesGoAndYoungOnesAndOthersStay) {
    const TemporaryFolder folder;
    folder.Put(".~tavo-1-1", "old");
    folder.Put(".~tavo-2-1", "young");
    folder.Put("other", "old");
    const auto longAgo = std::filesystem::file_time_type::clock::now() - std::chrono::hours(2);
    std::filesystem::last_write_time(folder / ".~tavo-1-1", longAgo);
    std::filesystem::last_write_time(folder / "other", longAgo);
    RemoveUnfinished(folder.Path());
    EXPECT_EQ(folder.NamesIn(""), (std::vector<std::string>{".~tavo-2-1", "other"}));
}

TEST(ErrorCodeOf, CausesHaveTheDevicesCodes) {
    EXPECT_EQ(ErrorCodeOf(EROFS), ErrorCode::WriteProtected);
    EXPECT_EQ(ErrorCodeOf(ENOSPC), ErrorCode::DiskFull);
    EXPECT_EQ(ErrorCodeOf(EDQUOT), ErrorCode::DiskFull);
    EXPECT_EQ(ErrorCodeOf(EEXIST), ErrorCode::AlreadyExists);
    EXPECT_EQ(static_cast<int>(ErrorCodeOf(EEXIST)), 183);
    EXPECT_EQ(ErrorCodeOf(EACCES), ErrorCode::AccessDenied);
    EXPECT_EQ(ErrorCodeOf(ENAMETOOLONG), ErrorCode::InvalidName);
    EXPECT_EQ(ErrorCodeOf(EIO), ErrorCode::CannotComplete);
}

TEST(FileReplacement, WhatIsWrittenInPiecesIsThereAtTheEnd) {
    const TemporaryFolder folder;
    folder.Put("x", "old");
    FileReplacement file;
    ASSERT_EQ(file.Begin(folder / "x"), ErrorCode::Success);
    EXPECT_EQ(file.Write(BytesOf("new ")), ErrorCode::Success);
    EXPECT_EQ(file.Write(BytesOf("bytes")), ErrorCode::Success);
    EXPECT_EQ(folder.Get("x"), "old");
    EXPECT_EQ(file.Finish(), ErrorCode::Success);
    EXPECT_EQ(folder.Get("x"), "new bytes");
    EXPECT_EQ(folder.NamesIn(""), std::vector<std::string>{"x"});
}

TEST(FileReplacement, WhatIsNotFinishedLeavesNoTrace) {
    const TemporaryFolder folder;
    folder.Put("x", "old");
    {
        FileReplacement file;
        ASSERT_EQ(file.Begin(folder / "x"), ErrorCode::Success);
        EXPECT_EQ(file.Write(BytesOf("new")), ErrorCode::Success);
        EXPECT_EQ(folder.NamesIn("").size(), 2U);
    }
    EXPECT_EQ(folder.Get("x"), "old");
    EXPECT_EQ(folder.NamesIn(""), std::vector<std::string>{"x"});
}

} // namespace tavo::posix
