// What every disk does, shown on this machine's and on the one in memory, which stands for it in other tests.
#include "host/disk/disk.h"

#include "host/posix/posix_disk.h"
#include "tests/files/temporary_folder.h"
#include "tests/support/memory_disk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace tavo::files {

namespace {

using disk::EntryKind;
using disk::LastLink;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

struct PosixDesk {
    TemporaryFolder Folder;
    posix::PosixDisk Disk;

    std::string Path() const { return Folder.Path(); }
};

struct MemoryDesk {
    test::MemoryDisk Disk{"/device/root"};

    std::string Path() const { return "/device/root"; }
};

template <class Desk> class DiskTest : public testing::Test {
  protected:
    std::string At(const std::string& name) const { return Place.Path() + '/' + name; }

    ErrorCode Put(const std::string& name, std::string_view bytes) {
        return Disk.Replace(At(name), BytesOf(bytes), {});
    }

    std::string Get(const std::string& name) {
        std::vector<std::uint8_t> bytes;
        const ErrorCode error = Disk.Read(At(name), 1000, bytes);
        return error == ErrorCode::Success ? std::string(bytes.begin(), bytes.end())
                                           : "error " + std::to_string(static_cast<int>(error));
    }

    std::vector<std::pair<std::string, EntryKind>> Names(const std::string& folder) {
        std::vector<std::pair<std::string, EntryKind>> names;
        const ErrorCode error =
            Disk.List(folder, [&](std::string_view name, EntryKind kind) { names.emplace_back(name, kind); });
        EXPECT_EQ(error, ErrorCode::Success);
        return names;
    }

    Desk Place;
    disk::IDisk& Disk = Place.Disk;
};

using Desks = testing::Types<PosixDesk, MemoryDesk>;
TYPED_TEST_SUITE(DiskTest, Desks);

} // namespace

TYPED_TEST(DiskTest, WhatWasWrittenIsReadAndMayBeReplaced) {
    EXPECT_EQ(this->Get("a"), "error 2");
    EXPECT_EQ(this->Put("a", "one"), ErrorCode::Success);
    EXPECT_EQ(this->Get("a"), "one");
    EXPECT_EQ(this->Put("a", ""), ErrorCode::Success);
    EXPECT_EQ(this->Get("a"), "");
    EXPECT_EQ(this->Put("missing/a", "one"), ErrorCode::FileNotFound);
    EXPECT_EQ(this->Put("a/b", "one"), ErrorCode::PathNotFound);
}

TYPED_TEST(DiskTest, AFileBeyondTheLimitAndAFolderAreNotRead) {
    ASSERT_EQ(this->Put("a", "four"), ErrorCode::Success);
    std::vector<std::uint8_t> bytes{1};
    EXPECT_EQ(this->Disk.Read(this->At("a"), 3, bytes), ErrorCode::CannotComplete);
    EXPECT_THAT(bytes, IsEmpty());
    EXPECT_EQ(this->Disk.Read(this->At("a"), 4, bytes), ErrorCode::Success);
    EXPECT_EQ(this->Disk.Read(this->Place.Path(), 1000, bytes), ErrorCode::AccessDenied);
    EXPECT_EQ(this->Disk.Replace(this->Place.Path(), bytes, {}), ErrorCode::AccessDenied);
}

TYPED_TEST(DiskTest, AReplacementIsStoppedBeforeItsRename) {
    ASSERT_EQ(this->Put("a", "old"), ErrorCode::Success);
    const ErrorCode error = this->Disk.Replace(this->At("a"), BytesOf("new"), [this] {
        EXPECT_EQ(this->Get("a"), "old");
        return ErrorCode::WriteProtected;
    });
    EXPECT_EQ(error, ErrorCode::WriteProtected);
    EXPECT_EQ(this->Get("a"), "old");
    EXPECT_THAT(this->Names(this->Place.Path()), ElementsAre(Pair("a", EntryKind::File)));
}

TYPED_TEST(DiskTest, ASecondNameKeepsTheBytesWhenTheFirstIsReplaced) {
    ASSERT_EQ(this->Put("a", "old"), ErrorCode::Success);
    EXPECT_EQ(this->Disk.AddName(this->At("a"), this->At("b")), ErrorCode::Success);
    EXPECT_EQ(this->Disk.AddName(this->At("a"), this->At("b")), ErrorCode::AlreadyExists);
    EXPECT_EQ(this->Disk.AddName(this->At("c"), this->At("d")), ErrorCode::FileNotFound);
    EXPECT_EQ(this->Disk.AddName(this->At("a"), this->At("missing/b")), ErrorCode::FileNotFound);
    ASSERT_EQ(this->Put("a", "new"), ErrorCode::Success);
    EXPECT_EQ(this->Get("b"), "old");
}

TYPED_TEST(DiskTest, RenamingTakesThePlaceOfAFile) {
    ASSERT_EQ(this->Put("a", "one"), ErrorCode::Success);
    ASSERT_EQ(this->Put("b", "two"), ErrorCode::Success);
    EXPECT_EQ(this->Disk.Rename(this->At("a"), this->At("b")), ErrorCode::Success);
    EXPECT_EQ(this->Get("b"), "one");
    EXPECT_EQ(this->Disk.Rename(this->At("a"), this->At("b")), ErrorCode::FileNotFound);
    EXPECT_THAT(this->Names(this->Place.Path()), ElementsAre(Pair("b", EntryKind::File)));
}

TYPED_TEST(DiskTest, FoldersAreMadeOnceAndListWhatLiesInThem) {
    EXPECT_EQ(this->Disk.MakeFolder(this->At("folder")), ErrorCode::Success);
    EXPECT_EQ(this->Disk.MakeFolder(this->At("folder")), ErrorCode::AlreadyExists);
    EXPECT_EQ(this->Disk.MakeFolder(this->At("missing/folder")), ErrorCode::FileNotFound);
    EXPECT_EQ(this->Disk.SyncFolder(this->At("folder")), ErrorCode::Success);
    ASSERT_EQ(this->Put("a", ""), ErrorCode::Success);
    EXPECT_THAT(this->Names(this->Place.Path()),
                UnorderedElementsAre(Pair("a", EntryKind::File), Pair("folder", EntryKind::Folder)));
    EXPECT_THAT(this->Names(this->At("folder")), IsEmpty());
    EXPECT_EQ(this->Disk.List(this->At("missing"), [](std::string_view, EntryKind) {}), ErrorCode::FileNotFound);
}

TYPED_TEST(DiskTest, FilesAreRemovedAloneOrByTheirNames) {
    for (const char* name : {"a1", "a2", "b"}) {
        ASSERT_EQ(this->Put(name, ""), ErrorCode::Success);
    }
    EXPECT_EQ(this->Disk.Remove(this->At("b")), ErrorCode::Success);
    EXPECT_EQ(this->Disk.Remove(this->At("b")), ErrorCode::FileNotFound);
    this->Disk.RemoveAll(this->Place.Path(), [](std::string_view name) { return name == "a2"; });
    EXPECT_THAT(this->Names(this->Place.Path()), ElementsAre(Pair("a1", EntryKind::File)));
    this->Disk.RemoveAll(this->At("missing"), [](std::string_view) { return true; });
}

TYPED_TEST(DiskTest, AFolderLooksAnotherAfterAChangeOfItsNames) {
    disk::Entry before;
    disk::Entry after;
    ASSERT_EQ(this->Disk.Look(this->Place.Path(), LastLink::Keep, before), ErrorCode::Success);
    EXPECT_EQ(before.Kind, EntryKind::Folder);
    ASSERT_EQ(this->Disk.MakeFolder(this->At("folder")), ErrorCode::Success);
    std::this_thread::sleep_for(std::chrono::milliseconds(25)); // a step of the stamps
    ASSERT_EQ(this->Put("a", ""), ErrorCode::Success);
    ASSERT_EQ(this->Disk.Look(this->Place.Path(), LastLink::Follow, after), ErrorCode::Success);
    EXPECT_NE(before.Seen, after.Seen);
    EXPECT_EQ(before.Seen.Number, after.Seen.Number);
    EXPECT_EQ(this->Disk.Look(this->At("missing"), LastLink::Keep, after), ErrorCode::FileNotFound);
    EXPECT_EQ(this->Disk.Resolve(this->At("a")), this->At("a"));
    EXPECT_EQ(this->Disk.Resolve(this->At("missing")), "");
}

TYPED_TEST(DiskTest, AFileIsHeldAsLongAsItIsOpen) {
    std::unique_ptr<disk::IHeldFile> file;
    ASSERT_EQ(this->Disk.MakeHeld(this->At("a"), file), ErrorCode::Success);
    EXPECT_TRUE(this->Disk.IsHeld(this->At("a")));
    std::unique_ptr<disk::IHeldFile> other;
    EXPECT_EQ(this->Disk.MakeHeld(this->At("a"), other), ErrorCode::AlreadyExists);
    EXPECT_EQ(this->Disk.MakeHeld(this->At("missing/a"), other), ErrorCode::FileNotFound);
    EXPECT_EQ(file->Append(BytesOf("one")), ErrorCode::Success);
    EXPECT_EQ(file->Append(BytesOf("two")), ErrorCode::Success);
    EXPECT_EQ(this->Get("a"), "onetwo");
    EXPECT_EQ(file->CutTo(4), ErrorCode::Success);
    EXPECT_EQ(file->Append(BytesOf("!")), ErrorCode::Success);
    EXPECT_EQ(this->Get("a"), "onet!");
    file.reset();
    EXPECT_FALSE(this->Disk.IsHeld(this->At("a")));
    EXPECT_FALSE(this->Disk.IsHeld(this->At("missing")));
}

TYPED_TEST(DiskTest, AFileThatOnlyServesToBeHeldIsMadeAndStays) {
    const std::unique_ptr<disk::IHeldFile> held = this->Disk.Hold(this->At("lock"));
    ASSERT_TRUE(held);
    EXPECT_TRUE(this->Disk.IsHeld(this->At("lock")));
    EXPECT_EQ(this->Get("lock"), "");
    EXPECT_FALSE(this->Disk.Hold(this->At("missing/lock")));
}

} // namespace tavo::files
