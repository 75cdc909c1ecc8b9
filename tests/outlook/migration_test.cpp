// A store of version 1 is brought forward with everything in it.
#include "host/outlook/diagnosis.h"
#include "host/outlook/schema.h"
#include "host/outlook/store_core.h"
#include "host/posix/store_machine.h"
#include "tests/outlook/store_fixture.h"
#include "tests/outlook/version_1_store.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

namespace tavo::outlook::test {

using ::testing::ElementsAre;

class Migration : public StoreFileTest {
  protected:
    Migration() {
        App.Reset();
        Store.reset();
        std::filesystem::remove(File);
        sqlite3* database = nullptr;
        EXPECT_EQ(sqlite3_open(File.c_str(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, kVersion1Store, nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database);
        sqlite3_close(database);
    }
};

TEST_F(Migration, KeepsItemsSeriesTagsAndUndo) {
    Reopen();
    EXPECT_EQ(Read(1).Subject, u"Dentist");
    EXPECT_EQ(Read(1).Uid, "uid-1");
    EXPECT_THAT(Starts(u"[Start] <= 5/15/2026"),
                ElementsAre("2026-05-01 09:00", "2026-05-04 10:00", "2026-05-11 10:00"));
    std::vector<TagRequest> requests;
    ASSERT_EQ(App->Tags().GetRequests(requests), Status::Ok);
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].Item, 1);
    EXPECT_EQ(requests[0].Position, -1);
    EXPECT_EQ(Add("2026-06-01 10:00", "2026-06-01 11:00"), 3);
    std::vector<Oid> restored;
    ASSERT_EQ(App->Undo(restored), Status::Ok);
    ASSERT_EQ(CoreOf(*Store).Db.Run("UPDATE journal_group SET time = strftime('%s','now')"), Status::Ok); // on offer
    ASSERT_EQ(App->Undo(restored), Status::Ok);
    EXPECT_THAT(restored, ElementsAre(2, 1)); // the old journal still works
}

TEST_F(Migration, EndsWithAStoreInGoodOrderOfTheNewVersion) {
    Reopen();
    App.Reset();
    Store.reset();
    EXPECT_EQ(DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Full).State, Verdict::Ok);
    const std::string bytes = BytesOf(File);
    EXPECT_EQ(static_cast<unsigned char>(bytes[63]), kSchemaVersion);
}

TEST_F(Migration, AReaderDoesNotMigrate) {
    const std::string before = BytesOf(File);
    StoreOptions options;
    options.Rights = Access::ReadOnly;
    EXPECT_EQ(OpenStore(posix::SystemMachine(), File, options, Store), Status::AccessDenied);
    EXPECT_EQ(BytesOf(File), before);
}

} // namespace tavo::outlook::test
