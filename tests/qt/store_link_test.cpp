// What the window hears of other processes that write into the store.
#include "host/outlook/store_core.h"
#include "host/qt/store_link.h"
#include "tests/outlook/child_process.h"
#include "tests/outlook/store_fixture.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <sqlite3.h>

#include <initializer_list>

#include <unistd.h>

namespace tavo::qt {
namespace {

constexpr int kPatience = 10'000; // milliseconds; far more than it takes
constexpr int kAWhile = 300;

void PassEvents(int milliseconds, const std::function<bool()>& done) {
    QElapsedTimer time;
    for (time.start(); !done() && time.elapsed() < milliseconds;) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    }
}

ssize_t WriteSlowly(int file, const void* bytes, std::size_t size, off_t place) {
    const ssize_t written = pwrite(file, bytes, size, place);
    constexpr unsigned pause = 20'000; // microseconds
    usleep(pause);
    return written;
}

// What was written last is a change only a while later.
bool WorkOnASlowDisk() {
    sqlite3_vfs* disk = sqlite3_vfs_find(nullptr);
    bool any = false;
    for (const char* call : {"pwrite", "pwrite64"}) { // whichever this build uses
        const auto slow = reinterpret_cast<sqlite3_syscall_ptr>(WriteSlowly);
        any = disk->xSetSystemCall(disk, call, slow) == SQLITE_OK || any;
    }
    return any;
}

class StoreLinkTest : public outlook::test::StoreFileTest {
  protected:
    ~StoreLinkTest() override {
        if (Program) {
            EXPECT_EQ(Program->Logoff(), Status::Ok);
        }
    }

    // Another process, which does this at each word.
    void GivenOther(const std::function<bool()>& work) {
        App = {};
        Store = {};
        Other = std::make_unique<outlook::test::ChildProcess>([this, work](auto& link) {
            Reopen();
            link.Tell('r');
            while (link.Hear() == 'g') {
                if (!work()) {
                    _exit(1);
                }
            }
        });
        Other->Hear();
        Link.SetChanged([this] { ++Changes; });
        Link.SetReminded([this] { ++Reminders; });
        ASSERT_EQ(Link.Create(Program), Status::Ok);
        ASSERT_EQ(Program->Logon(WindowHandle::None), Status::Ok);
        // What the opening itself wrote.
        PassEvents(kAWhile, [] { return false; });
        Changes = 0;
        Reminders = 0;
    }

    StoreLink Link{File.string()};
    ComPtr<IPOutlookApp> Program;
    std::unique_ptr<outlook::test::ChildProcess> Other;
    int Changes = 0;
    int Reminders = 0;
};

TEST_F(StoreLinkTest, NoChangeOfAnotherProcessGoesUnnoticed) {
    GivenOther([this] { return Add("2026-05-01 10:00", "2026-05-01 11:00") != 0; });
    for (int change = 1; change <= 20; ++change) {
        Other->Tell('g');
        PassEvents(kPatience, [&] { return Changes >= change; });
        ASSERT_EQ(Changes, change);
    }
    EXPECT_EQ(Reminders, 0);
}

TEST_F(StoreLinkTest, AChangeOnASlowDiskIsNoticedToo) {
    bool isSlow = false;
    GivenOther([this, isSlow]() mutable {
        isSlow = isSlow || WorkOnASlowDisk();
        return isSlow && Add("2026-05-01 10:00", "2026-05-01 11:00") != 0;
    });
    for (int change = 1; change <= 3; ++change) {
        Other->Tell('g');
        PassEvents(kPatience, [&] { return Changes >= change; });
        ASSERT_EQ(Changes, change);
    }
}

TEST_F(StoreLinkTest, TheLedgerIsNoChangeOfItemsButTellsThatTheCompanionWentOn) {
    GivenOther([this] {
        return Succeeded(CoreOf(*Store).Db.Run("INSERT INTO ledger SELECT count(*), 2, 3, 4, 5, 0, 0, 0, 0, '', ''"
                                               " FROM ledger"));
    });
    for (int change = 1; change <= 20; ++change) {
        Other->Tell('g');
        PassEvents(kPatience, [&] { return Reminders >= change; });
        ASSERT_EQ(Reminders, change);
    }
    EXPECT_EQ(Changes, 0);
}

} // namespace
} // namespace tavo::qt
