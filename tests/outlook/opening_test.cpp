// Opening: what is made, what is refused, and that a refused file stays byte for byte as it was.
#include "host/outlook/diagnosis.h"
#include "host/outlook/schema.h"
#include "host/outlook/store_core.h"
#include "host/posix/store_machine.h"
#include "tests/outlook/child_process.h"
#include "tests/outlook/opening_fixture.h"

#include <gmock/gmock.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

namespace tavo::outlook::test {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST_F(Opening, ClosingLeavesOnlyTheStoreItself) {
    ASSERT_EQ(Open(), Status::Ok);
    Close();
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Folder.Path), {}), 1);
}

TEST_F(Opening, OpeningAndClosingDoesNotChangeTheFile) {
    const std::string before = BytesOf(File);
    ASSERT_EQ(Open(), Status::Ok);
    Close();
    EXPECT_EQ(BytesOf(File), before);
}

TEST_F(Opening, AReaderDoesNotMakeAStore) {
    std::filesystem::remove(File);
    EXPECT_EQ(Open(100, Access::ReadOnly), Status::NotFound);
    EXPECT_FALSE(std::filesystem::exists(File));
    EXPECT_EQ(DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Full).State, Verdict::Missing);
}

TEST_F(Opening, AReaderReadsAndDoesNotWrite) {
    ASSERT_EQ(Open(100, Access::ReadOnly), Status::Ok);
    App = MakeOutlookApp(Store);
    EXPECT_EQ(WalkOids(*Items()).size(), 1U);
    EXPECT_EQ(NewAppointment("2026-05-04 10:00", "2026-05-04 11:00")->Save(), Status::AccessDenied);
    Close();
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Folder.Path), {}), 1);
}

TEST_F(Opening, LogonComesFirstAndLogoffLast) {
    const ComPtr<IPOutlookApp> app = CreateOutlookApp(posix::SystemMachine(), File, {});
    ComPtr<IFolder> folder;
    ComPtr<IAppointment> item;
    EXPECT_EQ(app->GetDefaultFolder(kFolderCalendar, folder), Status::Unexpected);
    EXPECT_EQ(app->GetItemFromOid(1, item), Status::Unexpected);
    EXPECT_EQ(app->Logoff(), Status::False);
    EXPECT_EQ(app->Logon(WindowHandle::None), Status::Ok);
    EXPECT_EQ(app->Logon(WindowHandle::None), Status::False);
    EXPECT_EQ(app->GetDefaultFolder(10, folder), Status::InvalidArgument);
    EXPECT_EQ(app->GetDefaultFolder(kFolderCalendar, folder), Status::Ok);
    EXPECT_EQ(app->CreateItem(2, item), Status::InvalidArgument);
    EXPECT_EQ(app->Logoff(), Status::Ok);
    EXPECT_EQ(app->Logoff(), Status::False);
}

// Writes down what it is told.
class ToldLife final : public IStoreLife {
  public:
    void OnOpened(const StorePtr& store) override {
        Store = store;
        Told += "opened ";
    }

    void OnFailed(Status status) override { Told += status == Status::NotOurs ? "refused " : "failed "; }

    void OnClosing() override {
        Store.reset();
        Told += "closing ";
    }

    StorePtr Store;
    std::string Told;
};

TEST_F(Opening, WhoWantsToIsToldOfEachOpeningAndClosing) {
    ToldLife life;
    const ComPtr<IPOutlookApp> app = CreateOutlookApp(posix::SystemMachine(), File, {}, life);
    EXPECT_EQ(app->Logoff(), Status::False);
    EXPECT_EQ(life.Told, "");
    EXPECT_EQ(app->Logon(WindowHandle::None), Status::Ok);
    EXPECT_EQ(app->Logon(WindowHandle::None), Status::False);
    ASSERT_NE(life.Store, nullptr);
    EXPECT_EQ(life.Store.use_count(), 2); // and the object itself
    EXPECT_EQ(app->Logoff(), Status::Ok);
    EXPECT_EQ(life.Told, "opened closing ");
    std::ofstream(File, std::ios::trunc) << "Dear diary, this is no database at all.";
    EXPECT_EQ(app->Logon(WindowHandle::None), Status::NotOurs);
    EXPECT_EQ(life.Told, "opened closing refused ");
}

TEST_F(Opening, WhoLivesLongMayTakeLessMemory) {
    const auto readPages = [this] {
        Query query(CoreOf(*Store).Db, "PRAGMA cache_size");
        EXPECT_TRUE(query.Next());
        return query.Integer(0);
    };
    ASSERT_EQ(Open(), Status::Ok);
    EXPECT_EQ(readPages(), -16384);
    Store.reset();
    StoreOptions options;
    options.HasSmallCache = true;
    ASSERT_EQ(OpenStore(posix::SystemMachine(), File, options, Store), Status::Ok);
    EXPECT_EQ(readPages(), -512);
    Store->ReleaseMemory();
    EXPECT_EQ(readPages(), -512);
}

TEST_F(Opening, ATextFileIsNotOurs) {
    std::ofstream(File, std::ios::trunc) << "Dear diary, this is no database at all.";
    ExpectRefused(Status::NotOurs, Verdict::NotOurs);
}

TEST_F(Opening, AnotherProgramsDatabaseIsNotOurs) {
    std::filesystem::remove(File);
    RunSql("CREATE TABLE item(oid INTEGER PRIMARY KEY); PRAGMA user_version = 1;");
    ExpectRefused(Status::NotOurs, Verdict::NotOurs);
}

TEST_F(Opening, ANewerStoreIsLeftAlone) {
    RunSql("PRAGMA user_version = " + std::to_string(kSchemaVersion + 1));
    ExpectRefused(Status::NewerVersion, Verdict::Newer);
}

TEST_F(Opening, AnEmptyFileIsDamaged) {
    std::ofstream(File, std::ios::trunc).flush();
    ExpectRefused(Status::Corrupt, Verdict::Damaged);
}

TEST_F(Opening, ACutFileIsDamaged) {
    std::filesystem::resize_file(File, std::filesystem::file_size(File) / 2);
    ExpectRefused(Status::Corrupt, Verdict::Damaged);
    std::filesystem::resize_file(File, 50);
    ExpectRefused(Status::Corrupt, Verdict::Damaged);
}

TEST_F(Opening, AGarbledTableIsDamaged) {
    for (std::streamoff page = 1; page < 6; ++page) {
        Overwrite(page * 4096, std::string(64, '\x5A'));
    }
    ExpectRefused(Status::Corrupt, Verdict::Damaged);
}

TEST_F(Opening, AMissingTableIsDamage) {
    RunSql("DROP TABLE plain");
    ExpectRefused(Status::Corrupt, Verdict::Damaged);
}

TEST_F(Opening, AFolderIsNotOurs) {
    std::filesystem::remove(File);
    std::filesystem::create_directory(File);
    EXPECT_EQ(Open(), Status::NotOurs);
}

TEST_F(Opening, AStoreThatIsHeldByAnotherIsLocked) {
    const ChildProcess holder([this](ChildProcess::Link& link) {
        sqlite3* database = nullptr;
        sqlite3_open(File.c_str(), &database);
        sqlite3_exec(database, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
        link.Tell('h');
        link.Hear();
        sqlite3_close(database);
    });
    holder.Hear();
    const std::string before = BytesOf(File);
    EXPECT_EQ(Open(), Status::Locked);
    EXPECT_EQ(DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Quick, 100).State, Verdict::Locked);
    EXPECT_EQ(BytesOf(File), before);
    holder.Tell('e');
    EXPECT_EQ(holder.Wait(), 0);
    EXPECT_EQ(Open(), Status::Ok);
}

TEST_F(Opening, ALockThatGoesInTimeIsWaitedFor) {
    const ChildProcess holder([this](ChildProcess::Link& link) {
        sqlite3* database = nullptr;
        sqlite3_open(File.c_str(), &database);
        sqlite3_exec(database, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
        link.Tell('h');
        usleep(300000);
        sqlite3_close(database);
    });
    holder.Hear();
    EXPECT_EQ(Open(5000), Status::Ok);
    EXPECT_EQ(holder.Wait(), 0);
}

TEST_F(Opening, AReadOnlyStoreIsRefusedForWritingAndReadForReading) {
    ASSERT_EQ(chmod(File.c_str(), 0444), 0);
    ASSERT_EQ(chmod(Folder.Path.c_str(), 0555), 0);
    GiveFolderToNobody();
    const std::string before = BytesOf(File);
    const ChildProcess nobody([this](ChildProcess::Link&) {
        if (geteuid() == 0 && setuid(65534) != 0) { // rights do not bind the superuser
            _exit(1);
        }
        if (Open() != Status::AccessDenied) {
            _exit(2);
        }
        if (DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Full, 100).State != Verdict::ReadOnly) {
            _exit(3);
        }
        if (Open(100, Access::ReadOnly) != Status::Ok) {
            _exit(4);
        }
        App = MakeOutlookApp(Store);
        if (WalkOids(*Items()).size() != 1) {
            _exit(5);
        }
    });
    EXPECT_EQ(nobody.Wait(), 0);
    ASSERT_EQ(chmod(Folder.Path.c_str(), 0755), 0);
    EXPECT_EQ(BytesOf(File), before);
    EXPECT_FALSE(std::filesystem::exists(File.string() + "-wal"));
}

TEST_F(Opening, AnUnreadableStoreSaysSo) {
    ASSERT_EQ(chmod(File.c_str(), 0), 0);
    ASSERT_EQ(chmod(Folder.Path.c_str(), 0755), 0);
    GiveFolderToNobody();
    const ChildProcess nobody([this](ChildProcess::Link&) {
        if (geteuid() == 0 && setuid(65534) != 0) {
            _exit(1);
        }
        _exit(Open() == Status::AccessDenied &&
                      DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Full).State == Verdict::Unreadable
                  ? 0
                  : 2);
    });
    EXPECT_EQ(nobody.Wait(), 0);
}

TEST_F(Opening, AnUncleanEndWantsAFullCheckUntilThatIsMade) {
    ASSERT_EQ(Open(), Status::Ok);
    EXPECT_EQ(Store->LastFullCheck(), std::nullopt);
    ASSERT_EQ(Store->NoteFullCheck(1700000000), Status::Ok);
    Close();
    const ChildProcess killed([this](ChildProcess::Link&) {
        Reopen();
        Add("2026-05-05 10:00", "2026-05-05 11:00");
        _exit(7); // without closing
    });
    EXPECT_EQ(killed.Wait(), 7);
    ASSERT_EQ(Open(), Status::Ok);
    EXPECT_EQ(Store->LastFullCheck(), 0);
    App = MakeOutlookApp(Store);
    EXPECT_EQ(WalkOids(*Items()).size(), 2U);
    Close();
    ASSERT_EQ(Open(), Status::Ok); // also for another process that opens it now
    EXPECT_EQ(Store->LastFullCheck(), 0);
    ASSERT_EQ(Store->NoteFullCheck(1700000001), Status::Ok);
    Close();
    ASSERT_EQ(Open(), Status::Ok);
    EXPECT_EQ(Store->LastFullCheck(), 1700000001);
}

TEST_F(Opening, ANewerVersionThatStillLiesInTheLogIsLeftAlone) {
    const ChildProcess killed([this](ChildProcess::Link&) {
        sqlite3* database = nullptr;
        sqlite3_open(File.c_str(), &database);
        sqlite3_exec(database, "PRAGMA user_version = 99", nullptr, nullptr, nullptr);
        _exit(7); // the log stays behind
    });
    EXPECT_EQ(killed.Wait(), 7);
    const std::string before = BytesOf(File);
    const std::string log = BytesOf(File.string() + "-wal");
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(Open(), Status::NewerVersion);
    EXPECT_EQ(Open(100, Access::ReadOnly), Status::NewerVersion);
    EXPECT_EQ(DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Full, 100).State, Verdict::Newer);
    EXPECT_EQ(BytesOf(File), before);
    EXPECT_EQ(BytesOf(File.string() + "-wal"), log);
}

TEST_F(Opening, AHealthyStoreChecksOutInFull) {
    ASSERT_EQ(Open(), Status::Ok);
    App = MakeOutlookApp(Store);
    AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Weekly(62));
    Close();
    const std::string before = BytesOf(File);
    const Diagnosis diagnosis = DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Full);
    EXPECT_EQ(diagnosis.State, Verdict::Ok) << diagnosis.What;
    EXPECT_THAT(diagnosis.Findings, IsEmpty());
    EXPECT_EQ(BytesOf(File), before);
}

TEST_F(Opening, TheFullCheckFindsWhatOpeningDoesNot) {
    RunSql("UPDATE plain SET length = length + 60");
    ASSERT_EQ(Open(), Status::Ok);
    Close();
    const Diagnosis diagnosis = DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Full);
    EXPECT_EQ(diagnosis.State, Verdict::Damaged);
    ASSERT_FALSE(diagnosis.Findings.empty());
    EXPECT_THAT(diagnosis.Findings[0], HasSubstr("Item 1"));
}

} // namespace tavo::outlook::test
