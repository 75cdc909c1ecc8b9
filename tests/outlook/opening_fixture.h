// For the tests of opening: a store with one item that is closed, what spoils its file, and the contract of a refusal.
#pragma once

#include "host/outlook/diagnosis.h"
#include "host/posix/store_machine.h"
#include "tests/outlook/store_fixture.h"

#include <gmock/gmock.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace tavo::outlook::test {

class Opening : public StoreFileTest {
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
        return OpenStore(posix::SystemMachine(), File, options, Store);
    }

    // The whole contract of a refusal.
    void ExpectRefused(Status expected, Verdict verdict) {
        const std::string before = BytesOf(File);
        EXPECT_EQ(Open(), expected);
        StoreOptions impatient;
        impatient.LockPatience = 100;
        const ComPtr<IPOutlookApp> app = CreateOutlookApp(posix::SystemMachine(), File, impatient);
        EXPECT_EQ(app->Logon(WindowHandle::None), expected);
        ComPtr<IFolder> folder;
        EXPECT_EQ(app->GetDefaultFolder(kFolderCalendar, folder), Status::Unexpected);
        EXPECT_EQ(Open(100, Access::ReadOnly), expected);
        const Diagnosis diagnosis = DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Full, 100);
        EXPECT_EQ(diagnosis.State, verdict);
        EXPECT_THAT(diagnosis.What, testing::Not(testing::IsEmpty()));
        EXPECT_THAT(diagnosis.Advice, testing::Not(testing::IsEmpty()));
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

} // namespace tavo::outlook::test
