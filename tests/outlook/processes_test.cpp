// Several processes at one store: sharing, waiting, noticing, and dying in the middle.
#include "host/outlook/change_watcher.h"
#include "host/outlook/diagnosis.h"
#include "host/outlook/store_core.h"
#include "host/posix/folder_notice.h"
#include "host/posix/store_machine.h"
#include "tests/outlook/child_process.h"
#include "tests/outlook/store_fixture.h"

#include <gmock/gmock.h>
#include <poll.h>
#include <unistd.h>

#include <ctime>
#include <memory>
#include <set>

namespace tavo::outlook::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Processes : public StoreFileTest {
  protected:
    // Forks with no store open; locks belong to a process, so a child must open its own.
    std::unique_ptr<ChildProcess> Fork(const std::function<void(ChildProcess::Link&)>& work) {
        App.Reset();
        Store.reset();
        return std::make_unique<ChildProcess>(work);
    }

    static bool IsReadable(int descriptor, int milliseconds) {
        pollfd wanted{descriptor, POLLIN, 0};
        return poll(&wanted, 1, milliseconds) == 1;
    }
};

TEST_F(Processes, SeeEachOthersItems) {
    const auto other = Fork([this](ChildProcess::Link& link) {
        Reopen();
        Add("2026-05-01 10:00", "2026-05-01 11:00", u"Theirs");
        link.Tell('a');
        link.Hear();
        if (WalkOids(*Items()).size() != 2) {
            _exit(1);
        }
    });
    other->Hear();
    Reopen();
    EXPECT_EQ(WalkOids(*Items()).size(), 1U);
    EXPECT_EQ(Add("2026-05-02 10:00", "2026-05-02 11:00"), 2);
    other->Tell('b');
    EXPECT_EQ(other->Wait(), 0);
}

TEST_F(Processes, WriteAtOnceWithoutLosingAnything) {
    constexpr int kEach = 60;
    constexpr int kWriters = 4;
    std::vector<std::unique_ptr<ChildProcess>> writers;
    writers.reserve(kWriters);
    for (int writer = 0; writer < kWriters; ++writer) {
        writers.push_back(Fork([this](ChildProcess::Link& link) {
            Reopen();
            link.Hear();
            for (int index = 0; index < kEach; ++index) {
                Add("2026-05-01 10:00", "2026-05-01 11:00");
            }
            _exit(HasFailure() ? 1 : 0);
        }));
    }
    for (const auto& writer : writers) {
        writer->Tell('g');
    }
    for (const auto& writer : writers) {
        EXPECT_EQ(writer->Wait(), 0);
    }
    Reopen();
    const std::vector<Oid> oids = WalkOids(*Items());
    EXPECT_EQ(oids.size(), 4U * kEach);
    EXPECT_EQ(std::set<Oid>(oids.begin(), oids.end()).size(), oids.size());
    EXPECT_EQ(DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Full).State, Verdict::Ok);
}

TEST_F(Processes, AWriterThatHoldsOnTooLongIsLockedOut) {
    const auto holder = Fork([this](ChildProcess::Link& link) {
        Reopen();
        link.Hear();
        if (Failed(App->Begin(u"Long"))) {
            _exit(1);
        }
        Add("2026-05-01 10:00", "2026-05-01 11:00");
        link.Tell('h');
        link.Hear();
        if (Failed(App->End())) {
            _exit(2);
        }
    });
    StoreOptions options;
    options.LockPatience = 200;
    ASSERT_EQ(OpenStore(posix::SystemMachine(), File, options, Store), Status::Ok); // before the other one holds it
    App = MakeOutlookApp(Store);
    holder->Tell('g');
    holder->Hear();
    EXPECT_EQ(NewAppointment("2026-05-01 10:00", "2026-05-01 11:00")->Save(), Status::Locked);
    EXPECT_THAT(WalkOids(*Items()), IsEmpty()); // reading goes on, without what is not committed
    holder->Tell('e');
    EXPECT_EQ(holder->Wait(), 0);
    EXPECT_EQ(WalkOids(*Items()).size(), 1U);
    EXPECT_EQ(NewAppointment("2026-05-01 10:00", "2026-05-01 11:00")->Save(), Status::Ok);
}

TEST_F(Processes, AChangeByAnotherProcessIsNoticedWithinASecondWithoutPolling) {
    const auto other = Fork([this](ChildProcess::Link& link) {
        link.Hear();
        Reopen();
        Add("2026-05-01 10:00", "2026-05-01 11:00");
        link.Tell('d');
        link.Hear();
    });
    Reopen();
    posix::FolderNotice notice;
    ChangeWatcher watcher(Store, notice);
    ASSERT_EQ(watcher.Start(), Status::Ok);
    ASSERT_GE(notice.Descriptor(), 0);
    EXPECT_FALSE(IsReadable(notice.Descriptor(), 50));
    EXPECT_FALSE(watcher.TakeItemChange());
    other->Tell('g');
    other->Hear();
    EXPECT_TRUE(IsReadable(notice.Descriptor(), 1000));
    EXPECT_TRUE(watcher.TakeItemChange());
    EXPECT_FALSE(watcher.TakeItemChange());
    other->Tell('e');
    EXPECT_EQ(other->Wait(), 0);
}

TEST_F(Processes, OwnChangesAndTheLedgersAreNoItemChangesOfOthers) {
    const auto other = Fork([this](ChildProcess::Link& link) {
        Reopen();
        link.Hear();
        if (Failed(CoreOf(*Store).Db.Run("INSERT INTO ledger VALUES (1, 2, 3, 4, 5, 0, 0, 0, 0, '', '')"))) {
            _exit(1);
        }
        link.Tell('d');
        link.Hear();
    });
    Reopen();
    posix::FolderNotice notice;
    ChangeWatcher watcher(Store, notice);
    ASSERT_EQ(watcher.Start(), Status::Ok);
    Add("2026-05-01 10:00", "2026-05-01 11:00");
    EXPECT_TRUE(IsReadable(notice.Descriptor(), 1000));
    EXPECT_FALSE(watcher.TakeItemChange());
    EXPECT_FALSE(IsReadable(notice.Descriptor(), 0));
    EXPECT_FALSE(watcher.TakeLedgerChange());
    other->Tell('g');
    other->Hear();
    EXPECT_TRUE(IsReadable(notice.Descriptor(), 1000));
    EXPECT_FALSE(watcher.TakeItemChange());
    EXPECT_TRUE(watcher.TakeLedgerChange());
    EXPECT_FALSE(watcher.TakeLedgerChange());
    other->Tell('e');
    EXPECT_EQ(other->Wait(), 0);
}

TEST_F(Processes, AChangeByAnotherBetweenTwoOfOursIsNotLost) {
    const auto other = Fork([this](ChildProcess::Link& link) {
        Reopen();
        link.Hear();
        Add("2026-05-01 10:00", "2026-05-01 11:00");
        link.Tell('d');
        link.Hear();
    });
    Reopen();
    posix::FolderNotice notice;
    ChangeWatcher watcher(Store, notice);
    ASSERT_EQ(watcher.Start(), Status::Ok);
    Add("2026-05-02 10:00", "2026-05-02 11:00");
    other->Tell('g');
    other->Hear();
    Add("2026-05-03 10:00", "2026-05-03 11:00");
    EXPECT_TRUE(watcher.TakeItemChange());
    other->Tell('e');
    EXPECT_EQ(other->Wait(), 0);
}

TEST_F(Processes, AWishForATagIsNoticedAsAChange) {
    const auto other = Fork([this](ChildProcess::Link& link) {
        Reopen();
        link.Hear();
        ImportWriter writer(Store);
        if (Failed(writer.Begin(u"Tag")) || Failed(writer.RequestTag(TagList::Alarm, 1)) || Failed(writer.Commit())) {
            _exit(1);
        }
        link.Tell('d');
        link.Hear();
    });
    Reopen();
    posix::FolderNotice notice;
    ChangeWatcher watcher(Store, notice);
    ASSERT_EQ(watcher.Start(), Status::Ok);
    other->Tell('g');
    other->Hear();
    EXPECT_TRUE(watcher.TakeItemChange());
    other->Tell('e');
    EXPECT_EQ(other->Wait(), 0);
}

TEST_F(Processes, SeriesFromMemoryAreNotOlderThanTheStore) {
    const auto other = Fork([this](ChildProcess::Link& link) {
        Reopen();
        link.Hear();
        AddSeries("2026-05-01 12:00", "2026-05-01 13:00", Daily());
        link.Tell('d');
        link.Hear();
    });
    Reopen();
    AddSeries("2026-05-01 10:00", "2026-05-01 11:00", Daily());
    for (int round = 0; round < 3; ++round) { // from the third on the answer comes from memory
        EXPECT_THAT(Starts(u"[Start] = 5/9/2026"), ElementsAre("2026-05-09 10:00"));
    }
    other->Tell('g');
    other->Hear();
    EXPECT_THAT(Starts(u"[Start] = 5/9/2026"), ElementsAre("2026-05-09 10:00", "2026-05-09 12:00"));
    ASSERT_EQ(App->Begin(u"Not committed yet"), Status::Ok);
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(Starts(u"[Start] = 5/9/2026").size(), 2U);
    }
    ASSERT_EQ(Get(1)->Delete(), Status::Ok);
    for (int round = 0; round < 3; ++round) {
        EXPECT_THAT(Starts(u"[Start] = 5/9/2026"), ElementsAre("2026-05-09 12:00"));
    }
    ASSERT_EQ(App->Abandon(), Status::Ok);
    EXPECT_EQ(Starts(u"[Start] = 5/9/2026").size(), 2U);
    other->Tell('e');
    EXPECT_EQ(other->Wait(), 0);
}

TEST_F(Processes, KilledInTheMiddleOfATransactionLeavesWhatWasThereBefore) {
    Add("2026-05-01 10:00", "2026-05-01 11:00", u"Before");
    const auto victim = Fork([this](ChildProcess::Link& link) {
        Reopen();
        if (Failed(App->Begin(u"Never finished"))) {
            _exit(1);
        }
        // More than the page cache holds, so that much of it is in the log already.
        const std::u16string body(20000, u'x');
        for (int index = 0; index < 1500; ++index) {
            const auto item = NewAppointment("2026-05-02 10:00", "2026-05-02 11:00");
            static_cast<void>(item->put_Body(body));
            static_cast<void>(item->Save());
        }
        static_cast<void>(Get(1)->Delete());
        link.Tell('m');
        link.Hear();
    });
    ASSERT_EQ(victim->Hear(), 'm');
    EXPECT_GT(std::filesystem::file_size(File.string() + "-wal"), 1000000U);
    victim->Kill();
    EXPECT_EQ(victim->Wait(), 128 + 9);
    Reopen();
    EXPECT_EQ(Store->LastFullCheck(), 0);
    EXPECT_THAT(WalkOids(*Items()), ElementsAre(1));
    EXPECT_EQ(Read(1).Subject, u"Before");
    EXPECT_EQ(DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Full).State, Verdict::Ok);
    EXPECT_EQ(Add("2026-05-03 10:00", "2026-05-03 11:00"), 2);
}

TEST_F(Processes, KilledAtAnyMomentLeavesWholeGroups) {
    App.Reset();
    for (int round = 0; round < 25; ++round) {
        const auto victim = Fork([this](ChildProcess::Link& link) {
            Reopen();
            link.Tell('g');
            for (;;) { // two items each time, or none
                static_cast<void>(App->Begin(u"Pair"));
                Add("2026-05-02 10:00", "2026-05-02 11:00");
                Add("2026-05-02 12:00", "2026-05-02 13:00");
                static_cast<void>(App->End());
            }
        });
        victim->Hear();
        const timespec moment{0, 200000L * (round + 1)};
        nanosleep(&moment, nullptr);
        victim->Kill();
        EXPECT_EQ(victim->Wait(), 128 + 9);
        Reopen();
        EXPECT_EQ(WalkOids(*Items()).size() % 2, 0U);
        EXPECT_EQ(DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Full).State, Verdict::Ok);
    }
    EXPECT_GT(WalkOids(*Items()).size(), 0U);
}

} // namespace tavo::outlook::test
