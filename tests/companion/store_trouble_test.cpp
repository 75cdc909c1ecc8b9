// The real companion while others lock its store, put another in its place or throw it away.
#include "host/outlook/store_core.h"
#include "host/posix/store_machine.h"
#include "tests/companion/notification_service.h"
#include "tests/companion/running_companion.h"

#include <gmock/gmock.h>

#include <csignal>
#include <sqlite3.h>

namespace tavo::companion::test {
namespace {

using ::testing::ElementsAre;

constexpr double kSoon = 10; // seconds that a busy machine may take

// Keeps everybody else from writing into a store.
class Lock {
  public:
    explicit Lock(const std::filesystem::path& file) {
        EXPECT_EQ(sqlite3_open(file.c_str(), &Handle), SQLITE_OK);
        sqlite3_busy_timeout(Handle, static_cast<int>(1000 * kSoon));
        EXPECT_EQ(sqlite3_exec(Handle, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    }

    ~Lock() { Release(); }

    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

    void Release() {
        sqlite3_close(Handle); // which rolls back
        Handle = nullptr;
    }

  private:
    sqlite3* Handle = nullptr;
};

class StoreTrouble : public CompanionTest {
  protected:
    // Puts another store with one reminder beside ours.
    void MakeOther(const std::u16string& subject, int secondsAhead, int leadMinutes) {
        const outlook::StorePtr own = Store;
        const ComPtr<IPOutlookApp> ownApp = App;
        outlook::StoreOptions options;
        options.DeviceZone = "UTC";
        ASSERT_EQ(outlook::OpenStore(posix::SystemMachine(), Folder.File("Other.db"), options, Store), Status::Ok);
        App = MakeOutlookApp(Store);
        AddReminder(subject, secondsAhead, leadMinutes);
        App = ownApp;
        Store = own;
    }

    // Moves our store away with all that belongs to it.
    void MoveAway() {
        App.Reset();
        Store.reset();
        for (const char* ending : {"", "-wal", "-shm"}) {
            if (exists(Folder.File(std::string("Outlook.db") + ending))) {
                rename(Folder.File(std::string("Outlook.db") + ending), Folder.File(std::string("Old.db") + ending));
            }
        }
    }

    void PutInPlace(const std::string& name) {
        rename(Folder.File(name), Folder.File("Outlook.db"));
        Reopen();
    }

    std::vector<std::string> Summaries() const {
        std::vector<std::string> summaries;
        for (const Notification& notification : Service.Came) {
            summaries.push_back(notification.Summary);
        }
        return summaries;
    }

    SessionBus Bus;
    NotificationService Service{Bus};
};

TEST_F(StoreTrouble, WhatComesDueWhileTheStoreIsLockedIsShownOnceWhenItIsFree) {
    StartCompanion(Bus.Address());
    Service.Serve(0.5);
    AddReminder(u"Train", 3);
    Lock lock(File);
    Service.Serve(5);
    EXPECT_TRUE(Service.Came.empty()) << "it would not be known that it was shown";
    lock.Release();
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    EXPECT_TRUE(WaitForStates("2", kSoon));
    Service.Serve(1.5);
    EXPECT_THAT(Summaries(), ElementsAre("Train"));
}

TEST_F(StoreTrouble, ACompanionThatStartsWhileTheStoreIsLockedShowsWhatIsDueSoonAfter) {
    StartCompanion(Bus.Address());
    AddReminder(u"Train", 600, 30);
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    ASSERT_TRUE(WaitForStates("2", kSoon));
    Kill(SIGTERM);
    AddReminder(u"Tea", 600, 30);
    Lock lock(File);
    StartCompanion(Bus.Address());
    Service.Serve(2);
    EXPECT_EQ(Service.Came.size(), 1U);
    lock.Release();
    ASSERT_TRUE(Service.WaitFor(2, kSoon));
    EXPECT_TRUE(WaitForStates("2 2", kSoon));
    EXPECT_THAT(Summaries(), ElementsAre("Train", "Tea"));
}

TEST_F(StoreTrouble, ACompanionThatStartsDuringAnImportShowsWhatItBringsSoonAfter) {
    ASSERT_EQ(App->Begin(u"Import"), Status::Ok);
    AddReminder(u"Train", 600, 30);
    StartCompanion(Bus.Address());
    Service.Serve(2);
    EXPECT_TRUE(Service.Came.empty());
    ASSERT_EQ(App->End(), Status::Ok);
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    EXPECT_THAT(Summaries(), ElementsAre("Train"));
}

TEST_F(StoreTrouble, AStoreThatIsPutInPlaceOfAnotherRemindsAndTheOldOneNoLonger) {
    StartCompanion(Bus.Address());
    Service.Serve(0.5);
    AddReminder(u"Old", 4);
    MakeOther(u"New", 4, 0);
    MoveAway();
    PutInPlace("Other.db");
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    Service.Serve(1.5);
    EXPECT_THAT(Summaries(), ElementsAre("New"));
    EXPECT_EQ(LedgerStates(), "2");
}

TEST_F(StoreTrouble, WhatTheOldStoreShowsIsTakenBack) {
    StartCompanion(Bus.Address());
    AddReminder(u"Old", 600, 30);
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    ASSERT_TRUE(WaitForStates("2", kSoon));
    const std::uint32_t old = Service.Came.back().Number;
    MakeOther(u"New", 600, 30);
    MoveAway();
    PutInPlace("Other.db");
    EXPECT_TRUE(Service.WaitForTakenBack(old, kSoon));
    EXPECT_TRUE(Service.WaitFor(2, kSoon));
    EXPECT_THAT(Summaries(), ElementsAre("Old", "New"));
}

TEST_F(StoreTrouble, ARestoredCopyKeepsWhatItKnowsToBeShown) {
    StartCompanion(Bus.Address());
    AddReminder(u"Train", 600, 30);
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    ASSERT_TRUE(WaitForStates("2", kSoon));
    ASSERT_EQ(CoreOf(*Store).Db.Run(("VACUUM INTO '" + Folder.File("Copy.db").string() + "'").c_str()), Status::Ok);
    MoveAway();
    PutInPlace("Copy.db");
    AddReminder(u"Tea", 600, 30);
    ASSERT_TRUE(Service.WaitFor(2, kSoon));
    EXPECT_TRUE(Service.TakenBack.empty());
    Service.Choose(Service.Came.front().Number, "dismiss");
    EXPECT_TRUE(WaitForState("Train", 5, kSoon));
    EXPECT_THAT(Summaries(), ElementsAre("Train", "Tea"));
}

TEST_F(StoreTrouble, AStoreThatIsDeletedAndMadeAnewReminds) {
    StartCompanion(Bus.Address());
    AddReminder(u"Old", 600, 30);
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    ASSERT_TRUE(WaitForStates("2", kSoon));
    App.Reset();
    Store.reset();
    for (const char* ending : {"", "-wal", "-shm"}) {
        std::filesystem::remove(Folder.File(std::string("Outlook.db") + ending));
    }
    Service.Serve(1); // whoever makes it anew may take a while
    Reopen();
    AddReminder(u"New", 600, 30);
    ASSERT_TRUE(Service.WaitFor(2, kSoon));
    EXPECT_TRUE(WaitForState("New", 2, kSoon));
    EXPECT_THAT(Summaries(), ElementsAre("Old", "New"));
}

} // namespace
} // namespace tavo::companion::test
