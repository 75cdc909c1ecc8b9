// Backups and restores on a disk that fails at any one of its calls.
#include "host/backup/device_backup.h"
#include "host/outlook/diagnosis.h"
#include "host/posix/store_machine.h"
#include "tests/outlook/failing_disk.h"
#include "tests/outlook/store_fixture.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace tavo::outlook::test {
namespace {

namespace fs = std::filesystem;

using ::testing::SizeIs;

std::string BytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

class FailingBackup : public StoreFileTest {
  protected:
    FailingBackup() : Root(File.parent_path().string()), Backup(Folder.File("all.tavo")) {
        Kept = Add("2026-05-01 10:00", "2026-05-01 11:00", u"Kept");
        Release();
        fs::create_directories(Folder.File("My Documents/TavoCalendar"));
        std::ofstream(Folder.File("My Documents/TavoCalendar/20260501_101010.pwi")) << std::string(40000, 'x');
    }

    void Release() {
        App.Reset();
        Store.reset();
    }

    bool BackUp() {
        BackupContents contents;
        std::string problem;
        return backup::BackUp(
            Root, Backup.string(), [](int) { return true; }, contents, problem);
    }

    bool IsWhole() {
        BackupContents contents;
        std::string problem;
        return Succeeded(ReadBackup(posix::SystemMachine(), Backup, CheckDepth::Full, contents, problem)) &&
               contents.Items == 1 && contents.Files.size() == 1;
    }

    // With each call failing in turn, until none is left to fail. Gives how often one did.
    int FailEach(FailingDisk::Lasting lasting, FailingDisk::Failure failure,
                 const std::function<void(bool& hasFailed, const std::function<bool()>& withDisk)>& judge,
                 const std::function<bool()>& act) {
        constexpr int most = 400;
        int failures = 0;
        bool failed = true;
        for (int nth = 1; failed && nth < most && !HasFatalFailure(); ++nth) {
            SCOPED_TRACE("failure at call " + std::to_string(nth));
            judge(failed, [&] {
                const FailingDisk disk(nth, lasting, failure);
                const bool done = act();
                failed = disk.HasFailed();
                return done;
            });
            failures += failed ? 1 : 0;
        }
        EXPECT_FALSE(failed) << "at some number no call fails any more";
        return failures;
    }

    const files::DeviceRoot Root;
    const fs::path Backup;
    Oid Kept = 0;
};

constexpr FailingDisk::Lasting kLastings[] = {FailingDisk::Lasting::Once, FailingDisk::Lasting::ForGood};
constexpr FailingDisk::Failure kFailures[] = {FailingDisk::Failure::Full, FailingDisk::Failure::Broken};

TEST_F(FailingBackup, TheOldOneStaysOrTheNewOneIsWhole) {
    for (const FailingDisk::Lasting lasting : kLastings) {
        for (const FailingDisk::Failure failure : kFailures) {
            const int failures = FailEach(
                lasting, failure,
                [this](bool&, const std::function<bool()>& withDisk) {
                    std::ofstream(Backup, std::ios::trunc) << "old";
                    const bool done = withDisk();
                    EXPECT_TRUE(done ? IsWhole() : BytesOf(Backup) == "old");
                    EXPECT_FALSE(fs::exists(Backup.string() + ".unfinished"));
                },
                [this] { return BackUp(); });
            EXPECT_GT(failures, 5);
        }
    }
    EXPECT_EQ(DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Full).State, Verdict::Ok);
}

TEST_F(FailingBackup, ARestoreIsDoneOrNothingHasChanged) {
    ASSERT_TRUE(BackUp());
    for (const FailingDisk::Lasting lasting : kLastings) {
        const int failures = FailEach(
            lasting, FailingDisk::Failure::Full,
            [this](bool&, const std::function<bool()>& withDisk) {
                Reopen();
                const Oid later = Add("2026-05-02 10:00", "2026-05-02 11:00", u"Later");
                Release();
                const bool done = withDisk();
                EXPECT_EQ(DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Full).State, Verdict::Ok);
                Reopen();
                EXPECT_EQ(Exists(later), !done);
                EXPECT_TRUE(Exists(Kept));
                if (Exists(later)) {
                    EXPECT_EQ(Get(later)->Delete(), Status::Ok);
                }
                Release();
            },
            [this] {
                backup::Restored restored;
                std::string problem;
                return backup::Restore(Root, Backup.string(), restored, problem);
            });
        EXPECT_GT(failures, 10);
    }
}

} // namespace
} // namespace tavo::outlook::test
