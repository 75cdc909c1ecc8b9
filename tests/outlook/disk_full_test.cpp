// The nth write, truncation or synchronisation fails, once or for good; the store must survive each.
#include "host/outlook/diagnosis.h"
#include "host/posix/store_machine.h"
#include "tests/outlook/failing_disk.h"
#include "tests/outlook/store_fixture.h"

#include <gmock/gmock.h>

#include <fstream>

namespace tavo::outlook::test {

using ::testing::AnyOf;
using ::testing::SizeIs;

class DiskFull : public StoreFileTest {
  protected:
    DiskFull() {
        Changed = Add("2026-05-01 10:00", "2026-05-01 11:00", u"Before");
        Deleted = Add("2026-05-02 10:00", "2026-05-02 11:00", u"Deleted");
        App.Reset();
        Store.reset();
        Original = BytesOf(File);
    }

    // A change, a deletion and a new item in one group, then a deletion alone. Whether the group was committed.
    bool ChangeMuch() {
        if (Failed(App->Begin(u"Much"))) {
            return false;
        }
        ComPtr<IAppointment> item;
        bool good = Succeeded(App->GetItemFromOid(Changed, item)) && Succeeded(item->put_Subject(u"After")) &&
                    Succeeded(item->put_BodyInk(std::vector<std::uint8_t>(200000, 3))) && Succeeded(item->Save());
        good = Succeeded(App->GetItemFromOid(Deleted, item)) && Succeeded(item->Delete()) && good;
        const auto added = NewAppointment("2026-05-03 10:00", "2026-05-03 11:00");
        good = Succeeded(added->Save()) && good;
        return good ? Succeeded(App->End()) : (Failed(App->Abandon()), false);
    }

    void ExpectOneOfTwoStates(bool committed) {
        Reopen();
        const bool after = Read(Changed).Subject == u"After";
        if (committed) {
            EXPECT_TRUE(after);
        }
        EXPECT_EQ(Exists(Deleted), !after);
        EXPECT_EQ(Read(Changed).Ink.size(), after ? 200000U : 0U);
        EXPECT_THAT(WalkOids(*Items()), SizeIs(2));
        EXPECT_EQ(DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Full).State, Verdict::Ok);
        EXPECT_EQ(NewAppointment("2026-06-03 10:00", "2026-06-03 11:00")->Save(), Status::Ok);
    }

    void Restore() {
        App.Reset();
        Store.reset();
        for (const char* suffix : {"-wal", "-shm"}) {
            std::filesystem::remove(File.string() + suffix);
        }
        std::ofstream(File, std::ios::binary | std::ios::trunc) << Original;
    }

    // Runs the change with the nth call failing, for n from 1 until no call fails any more.
    void FailEach(FailingDisk::Lasting lasting, FailingDisk::Failure failure) {
        bool failed = true;
        int count = 0;
        for (int nth = 1; failed; ++nth) {
            SCOPED_TRACE("failure at call " + std::to_string(nth));
            Restore();
            Reopen();
            bool committed = false;
            {
                const FailingDisk disk(nth, lasting, failure);
                committed = ChangeMuch();
                App.Reset();
                Store.reset(); // closing may fail as well
                failed = disk.HasFailed();
            }
            count += failed ? 1 : 0;
            ExpectOneOfTwoStates(committed);
            if (HasFatalFailure() || nth > 500) {
                FAIL();
            }
        }
        EXPECT_GT(count, 10);
    }

    Oid Changed = 0;
    Oid Deleted = 0;
    std::string Original;
};

TEST_F(DiskFull, EachWriteMayFailOnce) {
    FailEach(FailingDisk::Lasting::Once, FailingDisk::Failure::Full);
}

TEST_F(DiskFull, EachWriteMayFailForGood) {
    FailEach(FailingDisk::Lasting::ForGood, FailingDisk::Failure::Full);
}

TEST_F(DiskFull, EachWriteMayFailForAnotherReason) {
    FailEach(FailingDisk::Lasting::Once, FailingDisk::Failure::Broken);
    FailEach(FailingDisk::Lasting::ForGood, FailingDisk::Failure::Broken);
}

TEST_F(DiskFull, ASaveSaysSoAndWritesNothing) {
    Reopen();
    {
        const FailingDisk disk(1, FailingDisk::Lasting::ForGood, FailingDisk::Failure::Full);
        const auto item = Get(Changed);
        ASSERT_EQ(item->put_Subject(u"After"), Status::Ok);
        EXPECT_EQ(item->Save(), Status::DiskFull);
        EXPECT_EQ(Read(Changed).Subject, u"Before"); // reading goes on
    }
    EXPECT_EQ(NewAppointment("2026-06-03 10:00", "2026-06-03 11:00")->Save(), Status::Ok);
}

TEST_F(DiskFull, AnImportSaysSoAndLeavesNothing) {
    Reopen();
    ImportWriter writer(Store);
    ImportOutcome outcome;
    Status status = Status::Ok;
    {
        const FailingDisk disk(3, FailingDisk::Lasting::ForGood, FailingDisk::Failure::Full);
        ASSERT_EQ(writer.Begin(u"Import"), Status::Ok);
        for (int index = 0; index < 30 && Succeeded(status); ++index) {
            StoredItem item = MakeItem(std::to_string(index), "2026-05-01 10:00", "2026-05-01 11:00");
            item.Body.assign(20000, u'x');
            status = writer.Write(item, outcome);
        }
        const Status committed = writer.Commit();
        EXPECT_THAT(Failed(status) ? status : committed, AnyOf(Status::DiskFull, Status::Fail));
    }
    EXPECT_THAT(WalkOids(*Items()), SizeIs(2));
    EXPECT_EQ(NewAppointment("2026-06-03 10:00", "2026-06-03 11:00")->Save(), Status::Ok);
}

TEST_F(DiskFull, ANewStoreIsNotLeftHalfMade) {
    const std::filesystem::path file = Folder.File("new/Outlook.db");
    StorePtr store;
    bool failed = true;
    int notMade = 0;
    for (int nth = 1; failed; ++nth) {
        SCOPED_TRACE("failure at call " + std::to_string(nth));
        {
            const FailingDisk disk(nth, FailingDisk::Lasting::ForGood, FailingDisk::Failure::Full);
            const Status status = OpenStore(posix::SystemMachine(), file, {}, store);
            failed = disk.HasFailed();
            EXPECT_EQ(failed, Failed(status));
            store.reset();
        }
        // Either there is nothing at all, or a store that is complete: then only opening it failed.
        notMade += std::filesystem::exists(file) ? 0 : 1;
        EXPECT_TRUE(std::filesystem::exists(file) || std::filesystem::is_empty(file.parent_path()));
        if (std::filesystem::exists(file)) {
            EXPECT_EQ(DiagnoseStore(posix::SystemMachine(), file, CheckDepth::Full).State, Verdict::Ok);
            std::filesystem::remove_all(file.parent_path());
        }
    }
    EXPECT_GT(notMade, 10);
}

} // namespace tavo::outlook::test
