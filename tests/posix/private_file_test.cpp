// Nobody else decides where a file comes to lie.
#include "host/posix/private_file.h"

#include "tests/files/temporary_folder.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tavo::posix {

using files::TemporaryFolder;

namespace {

bool Write(const FileDescriptor& file, std::string_view text) {
    return write(file.Get(), text.data(), text.size()) == static_cast<ssize_t>(text.size());
}

} // namespace

TEST(PrivateFile, ANewOneIsForItsOwnerAlone) {
    const TemporaryFolder folder;
    const FileDescriptor file = MakeFile(OpenFolder(folder.Path()), "new");
    ASSERT_TRUE(file);
    EXPECT_TRUE(Write(file, "bytes"));

    struct stat state {};

    ASSERT_EQ(fstat(file.Get(), &state), 0);
    EXPECT_EQ(state.st_mode & 07777, 0600U);
    EXPECT_EQ(folder.Get("new"), "bytes");
}

TEST(PrivateFile, WhatIsThereIsNotOpenedAsNew) {
    const TemporaryFolder folder;
    folder.Put("old", "kept");
    EXPECT_FALSE(MakeFile(OpenFolder(folder.Path()), "old"));
    EXPECT_EQ(errno, EEXIST);
    EXPECT_EQ(folder.Get("old"), "kept");
}

TEST(PrivateFile, APlantedLinkLeadsNowhere) {
    const TemporaryFolder folder;
    folder.Put("victim", "kept");
    for (const char* target : {"victim", "missing"}) {
        std::filesystem::create_symlink(folder / target, folder / "link");
        EXPECT_FALSE(MakeFile(OpenFolder(folder.Path()), "link"));
        EXPECT_EQ(errno, EEXIST);
        EXPECT_FALSE(OpenOrMakeFile(folder / "link"));
        EXPECT_EQ(errno, ELOOP);
        std::filesystem::remove(folder / "link");
    }
    EXPECT_EQ(folder.Get("victim"), "kept");
    EXPECT_FALSE(folder.Has("missing"));
}

TEST(PrivateFile, AnUnfinishedOnePassesOverNamesThatAreTaken) {
    const TemporaryFolder folder;
    const FileDescriptor opened = OpenFolder(folder.Path());
    folder.Put("victim", "kept");
    std::string first;
    ASSERT_TRUE(MakeUnfinished(opened, first));
    const std::size_t number = std::stoul(first.substr(first.rfind('-') + 1));
    const std::string taken = first.substr(0, first.rfind('-') + 1) + std::to_string(number + 1);
    std::filesystem::create_symlink(folder / "victim", folder / taken);
    std::string second;
    const FileDescriptor file = MakeUnfinished(opened, second);
    ASSERT_TRUE(file);
    EXPECT_NE(second, taken);
    EXPECT_TRUE(Write(file, "bytes"));
    EXPECT_EQ(folder.Get("victim"), "kept");
    EXPECT_EQ(folder.Get(second), "bytes");
}

TEST(PrivateFile, ALockFileIsMadeOnceAndOpenedAgain) {
    const TemporaryFolder folder;
    ASSERT_TRUE(Write(OpenOrMakeFile(folder / "lock"), "first"));
    const FileDescriptor again = OpenOrMakeFile(folder / "lock");
    ASSERT_TRUE(again);
    EXPECT_EQ(folder.Get("lock"), "first");
}

TEST(PrivateFile, ALockFileIsNothingButAFile) {
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(OpenOrMakeFile(folder / "pipe"));
    std::filesystem::create_directory(folder / "inner");
    EXPECT_FALSE(OpenOrMakeFile(folder / "inner"));
    EXPECT_FALSE(OpenOrMakeFile(folder / "missing/lock"));
    EXPECT_EQ(errno, ENOENT);
}

TEST(FolderKeeping, OthersMayLookButNotWrite) {
    const TemporaryFolder folder;
    for (const mode_t mode : {0700U, 0500U, 0750U, 0755U, 0711U}) {
        ASSERT_EQ(chmod(folder.Path().c_str(), mode), 0);
        EXPECT_EQ(LookAtFolder(folder.Path()), FolderKeeping::Ours) << std::oct << mode;
    }
    for (const mode_t mode : {0770U, 0775U, 0777U, 0720U, 0702U, 01777U}) {
        ASSERT_EQ(chmod(folder.Path().c_str(), mode), 0);
        EXPECT_EQ(LookAtFolder(folder.Path()), FolderKeeping::OpenToOthers) << std::oct << mode;
        EXPECT_EQ(LookAtFolder(OpenFolder(folder.Path())), FolderKeeping::OpenToOthers) << std::oct << mode;
    }
    ASSERT_EQ(chmod(folder.Path().c_str(), 0700), 0);
}

TEST(FolderKeeping, OneOfSomebodyElseIsNotOurs) {
    const TemporaryFolder folder;
    std::string other = "/"; // the administrator's
    if (geteuid() == 0) {
        other = folder.Path();
        ASSERT_EQ(chown(other.c_str(), 65534, 65534), 0);
    }
    EXPECT_EQ(LookAtFolder(other), FolderKeeping::OfSomebodyElse);
}

TEST(FolderKeeping, WhatIsNoFolderIsMissing) {
    const TemporaryFolder folder;
    folder.Put("file", "");
    EXPECT_EQ(LookAtFolder(folder / "file"), FolderKeeping::Missing);
    EXPECT_EQ(LookAtFolder(folder / "nothing"), FolderKeeping::Missing);
}

} // namespace tavo::posix
