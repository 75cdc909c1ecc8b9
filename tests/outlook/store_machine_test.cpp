// A store on a machine that is not as this one: what it says is believed.
#include "host/outlook/store_machine.h"

#include "host/outlook/change_watcher.h"
#include "tests/outlook/opening_fixture.h"

namespace tavo::outlook::test {
namespace {

// This machine, but for what a test says.
class PretendedMachine final : public IStoreMachine {
  public:
    Status ReadBeginning(const std::filesystem::path& path, std::span<unsigned char> room,
                         std::size_t& count) override {
        return Failed(Beginning) ? Beginning : Own.ReadBeginning(path, room, count);
    }

    bool HasBytes(const std::filesystem::path& path) override { return Own.HasBytes(path); }

    FileIdentity Identify(const std::filesystem::path& path) override { return Own.Identify(path); }

    bool IsLocked(const std::filesystem::path& path, std::int64_t byte) override { return Own.IsLocked(path, byte); }

    bool CanWrite(const std::filesystem::path& path) override { return Writes && Own.CanWrite(path); }

    std::optional<std::uint64_t> FreeBytes(const std::filesystem::path&) override { return Free; }

    bool IsExposed(const std::filesystem::path& folder) override { return Exposed || Own.IsExposed(folder); }

    Status Create(const std::filesystem::path& path,
                  const std::function<Status(const std::filesystem::path& draft)>& build) override {
        return Failed(Making) ? Making : Own.Create(path, build);
    }

    const char* FileSystem() override { return Own.FileSystem(); }

    rules::IZoneSource& Zones() override { return Own.Zones(); }

    Status Beginning = Status::Ok;
    Status Making = Status::Ok;
    std::optional<std::uint64_t> Free = 1U << 30;
    bool Writes = true;
    bool Exposed = false;

  private:
    IStoreMachine& Own = posix::SystemMachine();
};

class StoreMachine : public Opening {
  protected:
    Verdict Diagnose() { return DiagnoseStore(Machine, File, CheckDepth::Quick).State; }

    Status OpenThere(const std::filesystem::path& file) {
        StoreOptions options;
        options.DeviceZone = "UTC";
        return OpenStore(Machine, file, options, Store);
    }

    PretendedMachine Machine;
};

// Never tells anything.
class DeafNotice final : public IChangeNotice {
  public:
    Status Watch(const std::filesystem::path& folder) override {
        Watched = folder;
        return Answer;
    }

    void Take() override { ++Taken; }

    Status Answer = Status::Ok;
    std::filesystem::path Watched;
    int Taken = 0;
};

} // namespace

TEST_F(StoreMachine, AWholeStoreOnAMachineWithRoomIsWell) {
    EXPECT_EQ(Diagnose(), Verdict::Ok);
    EXPECT_EQ(OpenThere(File), Status::Ok);
}

TEST_F(StoreMachine, LittleRoomIsADiskThatIsFullAndUnknownRoomIsNone) {
    Machine.Free = 256 * 1024 - 1;
    EXPECT_EQ(Diagnose(), Verdict::DiskFull);
    Machine.Free = 256 * 1024;
    EXPECT_EQ(Diagnose(), Verdict::Ok);
    Machine.Free = std::nullopt;
    EXPECT_EQ(Diagnose(), Verdict::Ok);
}

TEST_F(StoreMachine, WhatCannotBeWrittenIsToldAsSuch) {
    Machine.Writes = false;
    EXPECT_EQ(Diagnose(), Verdict::ReadOnly);
}

TEST_F(StoreMachine, AnExposedFolderIsRefused) {
    Machine.Exposed = true;
    EXPECT_EQ(Diagnose(), Verdict::Exposed);
    EXPECT_EQ(OpenThere(File), Status::AccessDenied);
}

TEST_F(StoreMachine, AFailureWithoutAReasonOnAFullDiskIsTheFullDisk) {
    Machine.Beginning = Status::Fail;
    EXPECT_EQ(OpenThere(File), Status::Fail);
    Machine.Free = 0;
    EXPECT_EQ(OpenThere(File), Status::DiskFull);
}

TEST_F(StoreMachine, AStoreThatCannotBeMadeIsNotThere) {
    Machine.Making = Status::DiskFull;
    EXPECT_EQ(OpenThere(Folder.File("Other.db")), Status::DiskFull);
    EXPECT_FALSE(std::filesystem::exists(Folder.File("Other.db")));
    Machine.Making = Status::Ok;
    EXPECT_EQ(OpenThere(Folder.File("Other.db")), Status::Ok);
}

TEST_F(StoreMachine, AWatcherWatchesTheStoresFolderOnceAndTakesEachNotice) {
    ASSERT_EQ(OpenThere(File), Status::Ok);
    DeafNotice notice;
    ChangeWatcher watcher(Store, notice);
    notice.Answer = Status::Fail;
    EXPECT_EQ(watcher.Start(), Status::Fail);
    notice.Answer = Status::Ok;
    EXPECT_EQ(watcher.Start(), Status::Ok);
    EXPECT_EQ(notice.Watched, std::filesystem::canonical(Folder.Path));
    EXPECT_EQ(watcher.Start(), Status::False);
    EXPECT_FALSE(watcher.TakeItemChange());
    EXPECT_EQ(notice.Taken, 1);
}

using StoreInMemory = StoreTest;

TEST_F(StoreInMemory, KeepsWhatItHoldsWhenItIsClosedAndTouchesNoDisk) {
    const Oid oid = Add("2026-05-03 10:00", "2026-05-03 11:00", u"Kept");
    Reopen();
    EXPECT_EQ(Read(oid).Subject, u"Kept");
    EXPECT_EQ(DiagnoseStore(Machine, File, CheckDepth::Full).State, Verdict::Ok);
    EXPECT_FALSE(std::filesystem::exists(File.parent_path()));
}

TEST_F(StoreInMemory, IsSharedByAllWhoOpenItOnItsMachine) {
    StoreOptions options;
    options.DeviceZone = "UTC";
    StorePtr other;
    ASSERT_EQ(OpenStore(Machine, File, options, other), Status::Ok);
    const Oid oid = Add("2026-05-03 10:00", "2026-05-03 11:00", u"Seen by both");
    StoredItem item;
    ASSERT_EQ(other->ReadItem(oid, item), Status::Ok);
    EXPECT_EQ(item.Subject, u"Seen by both");
}

TEST_F(StoreInMemory, IsOnNoOtherMachine) {
    MemoryMachine another{posix::SystemZones()};
    StoreOptions reader;
    reader.Rights = Access::ReadOnly;
    StorePtr store;
    EXPECT_EQ(OpenStore(another, File, reader, store), Status::NotFound);
    EXPECT_NE(another.File("Outlook.db"), File);
}

} // namespace tavo::outlook::test
