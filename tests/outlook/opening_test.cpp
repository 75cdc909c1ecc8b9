// Opening: what is made, what is refused, and that a refused file stays byte for byte as it was.
#include "host/outlook/diagnosis.h"
#include "host/outlook/schema.h"
#include "host/outlook/store_core.h"
#include "tests/outlook/child_process.h"
#include "tests/outlook/store_fixture.h"

#include <gmock/gmock.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

namespace tavo::outlook::test {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class Opening : public StoreTest {
  protected:
    Opening() {
        Add("2026-05-03 10:00", "2026-05-03 11:00", u"Kept");
        Close();
    }

    void Close() {
        App.Reset();
        Store.reset();
    }

    void RunSql(const std::string& sql) {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(File.c_str(), &database), SQLITE_OK);
        ASSERT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(database);
    }

    void Overwrite(std::streamoff at, const std::string& bytes) {
        std::fstream file(File, std::ios::binary | std::ios::in | std::ios::out);
        file.seekp(at);
        file << bytes;
    }

    Status Open(int patience = 100, Access rights = Access::ReadWrite) {
        StoreOptions options;
        options.DeviceZone = "UTC";
        options.LockPatience = patience;
        options.Rights = rights;
        return OpenStore(File, options, Store);
    }

    // The whole contract of a refusal.
    void ExpectRefused(Status expected, Verdict verdict) {
        const std::string before = BytesOf(File);
        EXPECT_EQ(Open(), expected);
        StoreOptions impatient;
        impatient.LockPatience = 100;
        const ComPtr<IPOutlookApp> app = CreateOutlookApp(File, impatient);
        EXPECT_EQ(app->Logon(WindowHandle::None), expected);
        ComPtr<IFolder> folder;
        EXPECT_EQ(app->GetDefaultFolder(kFolderCalendar, folder), Status::Unexpected);
        EXPECT_EQ(Open(100, Access::ReadOnly), expected);
        const Diagnosis diagnosis = DiagnoseStore(File, CheckDepth::Full, 100);
        EXPECT_EQ(diagnosis.State, verdict);
        EXPECT_THAT(diagnosis.What, Not(IsEmpty()));
        EXPECT_THAT(diagnosis.Advice, Not(IsEmpty()));
        EXPECT_EQ(BytesOf(File), before);
        EXPECT_FALSE(std::filesystem::exists(File.string() + "-wal"));
        EXPECT_FALSE(std::filesystem::exists(File.string() + "-shm"));
        EXPECT_FALSE(std::filesystem::exists(File.string() + "-journal"));
    }

    // So that who runs as nobody, whom rights bind, has a folder of their own.
    void GiveFolderToNobody() const {
        if (geteuid() == 0) {
            ASSERT_EQ(chown(Folder.Path.c_str(), 65534, 65534), 0);
        }
    }

    static mode_t ModeOf(const std::filesystem::path& path) {
        struct stat facts {};

        EXPECT_EQ(stat(path.c_str(), &facts), 0);
        return facts.st_mode & 0777U;
    }
};

TEST_F(Opening, ANewStoreIsForItsOwnerOnly) {
    const std::filesystem::path file = Folder.File("deep/er/Outlook.db");
    ASSERT_EQ(OpenStore(file, {}, Store), Status::Ok);
    EXPECT_EQ(ModeOf(file), 0600U);
    EXPECT_EQ(ModeOf(Folder.File("deep")), 0700U);
    EXPECT_EQ(ModeOf(Folder.File("deep/er")), 0700U);
    App = MakeOutlookApp(Store);
    Add("2026-05-03 10:00", "2026-05-03 11:00");
    EXPECT_EQ(ModeOf(file.string() + "-wal"), 0600U);
}

TEST_F(Opening, MakingAStoreOverwritesNothingThatALinkPointsTo) {
    const std::filesystem::path folder = Folder.File("planted");
    std::filesystem::create_directory(folder);
    std::ofstream(Folder.File("victim")) << "kept";
    const std::string process = std::to_string(getpid());
    std::vector<std::string> names{"Outlook.db.new" + process};
    for (int number = 0; number < 50; ++number) {
        names.push_back(".~tavo-" + process + "-" + std::to_string(number) + ".db");
    }
    for (const std::string& name : names) {
        std::filesystem::create_symlink(Folder.File("victim"), folder / name);
    }
    ASSERT_EQ(OpenStore(folder / "Outlook.db", {}, Store), Status::Ok);
    EXPECT_EQ(BytesOf(Folder.File("victim")), "kept");
    Close();
    EXPECT_EQ(DiagnoseStore(folder / "Outlook.db", CheckDepth::Full).State, Verdict::Ok);
    EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::symlink_status(folder / "Outlook.db")));
    for (const std::string& name : names) {
        EXPECT_TRUE(std::filesystem::is_symlink(folder / name)) << name; // not ours to take away
    }
}

TEST_F(Opening, AFolderThatOthersMayWriteIsRefused) {
    const std::filesystem::path missing = Folder.File("Other.db");
    for (const mode_t mode : {0770, 0777, 01777}) {
        ASSERT_EQ(chmod(Folder.Path.c_str(), mode), 0);
        ExpectRefused(Status::AccessDenied, Verdict::Exposed);
        EXPECT_EQ(OpenStore(missing, {}, Store), Status::AccessDenied);
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Folder.Path), {}), 1);
    }
    ASSERT_EQ(chmod(Folder.Path.c_str(), 0755), 0); // others may look
    EXPECT_EQ(Open(), Status::Ok);
}

TEST_F(Opening, OfALinkTheFolderOfItsTargetCounts) {
    const ScratchFolder elsewhere;
    const std::filesystem::path target = elsewhere.File("Moved.db");
    std::filesystem::rename(File, target);
    std::filesystem::create_symlink(target, File);
    EXPECT_EQ(Open(), Status::Ok);
    Close();
    ASSERT_EQ(chmod(elsewhere.Path.c_str(), 0777), 0);
    EXPECT_EQ(Open(), Status::AccessDenied);
}

TEST_F(Opening, AFolderOfSomebodyElseIsRefused) {
    if (geteuid() != 0) {
        EXPECT_EQ(DiagnoseStore("/Outlook.db", CheckDepth::Quick).State, Verdict::Exposed);
        return;
    }
    ASSERT_EQ(chown(Folder.Path.c_str(), 65534, 65534), 0);
    ExpectRefused(Status::AccessDenied, Verdict::Exposed);
}

TEST_F(Opening, InAWorkingFolderThatIsGoneNothingIsThrown) {
    const ChildProcess child([](ChildProcess::Link&) {
        const ScratchFolder gone;
        if (chdir(gone.Path.c_str()) != 0 || rmdir(gone.Path.c_str()) != 0) {
            _exit(2);
        }
        StorePtr store;
        const Status made = OpenStore("Outlook.db", {}, store);
        StoreOptions reader;
        reader.Rights = Access::ReadOnly;
        const Status read = OpenStore("Outlook.db", reader, store);
        const Verdict verdict = DiagnoseStore("Outlook.db", CheckDepth::Full).State;
        _exit(Failed(made) && Failed(read) && verdict != Verdict::Ok ? 0 : 1);
    });
    EXPECT_EQ(child.Wait(), 0);
}

TEST_F(Opening, TheSchemaCannotBeChangedBehindTheStoresBack) {
    ASSERT_EQ(Open(), Status::Ok);
    Database& database = Store->Core().Db;
    (void)database.Run("PRAGMA writable_schema=ON"); // not refused, without effect
    EXPECT_NE(database.Run("UPDATE sqlite_schema SET sql = 'CREATE TABLE item(x)' WHERE name = 'item'"), Status::Ok);
    EXPECT_NE(database.Run("DELETE FROM sqlite_schema"), Status::Ok);
    EXPECT_EQ(DiagnoseStore(File, CheckDepth::Full).State, Verdict::Ok);
}

// A file that came from elsewhere may carry more than tables.
TEST_F(Opening, WhatAFilesSchemaSaysRunsNoFunctionsOfOurs) {
    RunSql("CREATE TRIGGER planted AFTER UPDATE ON change_count BEGIN SELECT reach_out(1); END");
    ASSERT_EQ(Open(), Status::Ok);
    const auto reachOut = [](sqlite3_context* context, int, sqlite3_value**) { sqlite3_result_int(context, 1); };
    ASSERT_EQ(sqlite3_create_function(Store->Core().Db.Raw(), "reach_out", 1, SQLITE_UTF8, nullptr, reachOut, nullptr,
                                      nullptr),
              SQLITE_OK);
    App = MakeOutlookApp(Store);
    EXPECT_NE(NewAppointment("2026-05-04 10:00", "2026-05-04 11:00")->Save(), Status::Ok);
    RunSql("DROP TRIGGER planted");
    EXPECT_EQ(NewAppointment("2026-05-04 10:00", "2026-05-04 11:00")->Save(), Status::Ok);
}

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
    EXPECT_EQ(DiagnoseStore(File, CheckDepth::Full).State, Verdict::Missing);
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
    const ComPtr<IPOutlookApp> app = CreateOutlookApp(File, {});
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
    EXPECT_EQ(DiagnoseStore(File, CheckDepth::Quick, 100).State, Verdict::Locked);
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
        if (DiagnoseStore(File, CheckDepth::Full, 100).State != Verdict::ReadOnly) {
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
        _exit(Open() == Status::AccessDenied && DiagnoseStore(File, CheckDepth::Full).State == Verdict::Unreadable ? 0
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
    EXPECT_EQ(DiagnoseStore(File, CheckDepth::Full, 100).State, Verdict::Newer);
    EXPECT_EQ(BytesOf(File), before);
    EXPECT_EQ(BytesOf(File.string() + "-wal"), log);
}

TEST_F(Opening, AHealthyStoreChecksOutInFull) {
    ASSERT_EQ(Open(), Status::Ok);
    App = MakeOutlookApp(Store);
    AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Weekly(62));
    Close();
    const std::string before = BytesOf(File);
    const Diagnosis diagnosis = DiagnoseStore(File, CheckDepth::Full);
    EXPECT_EQ(diagnosis.State, Verdict::Ok) << diagnosis.What;
    EXPECT_THAT(diagnosis.Findings, IsEmpty());
    EXPECT_EQ(BytesOf(File), before);
}

TEST_F(Opening, TheFullCheckFindsWhatOpeningDoesNot) {
    RunSql("UPDATE plain SET length = length + 60");
    ASSERT_EQ(Open(), Status::Ok);
    Close();
    const Diagnosis diagnosis = DiagnoseStore(File, CheckDepth::Full);
    EXPECT_EQ(diagnosis.State, Verdict::Damaged);
    ASSERT_FALSE(diagnosis.Findings.empty());
    EXPECT_THAT(diagnosis.Findings[0], HasSubstr("Item 1"));
}

} // namespace tavo::outlook::test
