// What a store's folder, its name and its schema may not do: links that are planted, folders of others, triggers.
#include "host/outlook/diagnosis.h"
#include "host/outlook/store_core.h"
#include "host/posix/store_machine.h"
#include "tests/outlook/child_process.h"
#include "tests/outlook/opening_fixture.h"

namespace tavo::outlook::test {

TEST_F(Opening, ANewStoreIsForItsOwnerOnly) {
    const std::filesystem::path file = Folder.File("deep/er/Outlook.db");
    ASSERT_EQ(OpenStore(posix::SystemMachine(), file, {}, Store), Status::Ok);
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
    ASSERT_EQ(OpenStore(posix::SystemMachine(), folder / "Outlook.db", {}, Store), Status::Ok);
    EXPECT_EQ(BytesOf(Folder.File("victim")), "kept");
    Close();
    EXPECT_EQ(DiagnoseStore(posix::SystemMachine(), folder / "Outlook.db", CheckDepth::Full).State, Verdict::Ok);
    EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::symlink_status(folder / "Outlook.db")));
    for (const std::string& name : names) {
        EXPECT_TRUE(std::filesystem::is_symlink(folder / name)) << name; // not ours to take away
    }
}

TEST_F(Opening, AFolderThatOthersMayWriteIsRefused) {
    const std::filesystem::path missing = Folder.File("Other.db");
    for (const mode_t mode : {0770U, 0777U, 01777U}) {
        ASSERT_EQ(chmod(Folder.Path.c_str(), mode), 0);
        ExpectRefused(Status::AccessDenied, Verdict::Exposed);
        EXPECT_EQ(OpenStore(posix::SystemMachine(), missing, {}, Store), Status::AccessDenied);
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
    EXPECT_EQ(DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Quick).State, Verdict::Exposed);
    ASSERT_EQ(chmod(elsewhere.Path.c_str(), 0700), 0);
    ASSERT_EQ(chmod(Folder.Path.c_str(), 0777), 0); // the link's own
    EXPECT_EQ(Open(), Status::Ok);
    Close();
    EXPECT_EQ(DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Quick).State, Verdict::Ok);
}

TEST_F(Opening, AFolderOfSomebodyElseIsRefused) {
    if (geteuid() != 0) {
        EXPECT_EQ(DiagnoseStore(posix::SystemMachine(), "/Outlook.db", CheckDepth::Quick).State, Verdict::Exposed);
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
        const Status made = OpenStore(posix::SystemMachine(), "Outlook.db", {}, store);
        StoreOptions reader;
        reader.Rights = Access::ReadOnly;
        const Status read = OpenStore(posix::SystemMachine(), "Outlook.db", reader, store);
        const Verdict verdict = DiagnoseStore(posix::SystemMachine(), "Outlook.db", CheckDepth::Full).State;
        _exit(Failed(made) && Failed(read) && verdict != Verdict::Ok ? 0 : 1);
    });
    EXPECT_EQ(child.Wait(), 0);
}

TEST_F(Opening, TheSchemaCannotBeChangedBehindTheStoresBack) {
    ASSERT_EQ(Open(), Status::Ok);
    Database& database = CoreOf(*Store).Db;
    static_cast<void>(database.Run("PRAGMA writable_schema=ON")); // not refused, without effect
    EXPECT_NE(database.Run("UPDATE sqlite_schema SET sql = 'CREATE TABLE item(x)' WHERE name = 'item'"), Status::Ok);
    EXPECT_NE(database.Run("DELETE FROM sqlite_schema"), Status::Ok);
    EXPECT_EQ(DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Full).State, Verdict::Ok);
}

// A file that came from elsewhere may carry more than tables.
TEST_F(Opening, WhatAFilesSchemaSaysRunsNoFunctionsOfOurs) {
    RunSql("CREATE TRIGGER planted AFTER UPDATE ON change_count BEGIN SELECT reach_out(1); END");
    ASSERT_EQ(Open(), Status::Ok);
    const auto reachOut = [](sqlite3_context* context, int, sqlite3_value**) { sqlite3_result_int(context, 1); };
    ASSERT_EQ(sqlite3_create_function(CoreOf(*Store).Db.Raw(), "reach_out", 1, SQLITE_UTF8, nullptr, reachOut, nullptr,
                                      nullptr),
              SQLITE_OK);
    App = MakeOutlookApp(Store);
    EXPECT_NE(NewAppointment("2026-05-04 10:00", "2026-05-04 11:00")->Save(), Status::Ok);
    RunSql("DROP TRIGGER planted");
    EXPECT_EQ(NewAppointment("2026-05-04 10:00", "2026-05-04 11:00")->Save(), Status::Ok);
}

} // namespace tavo::outlook::test
