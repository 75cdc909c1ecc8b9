// Opens the store as far as a start of the program would, and says what it would meet.
#include "host/outlook/diagnosis.h"

#include "host/outlook/full_check.h"
#include "host/outlook/store.h"
#include "host/outlook/store_core.h"
#include "host/outlook/verdict_words.h"

namespace tavo::outlook {

namespace {

// Below this a save may fail: a page of the log for each page that a save changes, and some air.
constexpr std::uint64_t kLeastFreeBytes = 256ULL * 1024;

// What a start of the program would meet, looked for without starting it.
Verdict FindObstacle(IStoreMachine& machine, const std::filesystem::path& path, int lockPatience) {
    const std::filesystem::path folder = AbsolutePath(path).parent_path();
    if (!machine.CanWrite(path) || !machine.CanWrite(folder)) {
        return Verdict::ReadOnly;
    }
    // Opening for writing takes the writers' lock for a moment and writes nothing; on a full disk it would leave
    // nothing behind but could not make the files beside the store.
    if (machine.FreeBytes(path).value_or(kLeastFreeBytes) < kLeastFreeBytes) {
        return Verdict::DiskFull;
    }
    FileFacts facts;
    Status status = InspectStoreFile(machine, path, lockPatience, facts);
    if (Succeeded(status)) {
        Database database;
        status =
            database.Open(StoreUri(machine, path, "mode=rw"), SQLITE_OPEN_READWRITE | SQLITE_OPEN_URI, lockPatience);
        if (Succeeded(status)) {
            sqlite3_db_config(database.Raw(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, facts.HasLog ? 1 : 0, nullptr);
            status = database.Run("BEGIN IMMEDIATE; ROLLBACK");
        }
    }
    return VerdictOf(status);
}

} // namespace

Diagnosis DiagnoseStore(IStoreMachine& machine, const std::filesystem::path& path, CheckDepth depth, int lockPatience) {
    const std::filesystem::path place = RealPath(path); // where the store lies that is opened
    if (IsFolderExposed(machine, place)) {
        return DescribeVerdict(Verdict::Exposed);
    }
    StoreOptions options;
    options.Rights = Access::ReadOnly;
    options.LockPatience = lockPatience;
    StorePtr store;
    const Status status = OpenStore(machine, place, options, store);
    if (Failed(status)) {
        return DescribeVerdict(VerdictOf(status));
    }
    Diagnosis diagnosis = DescribeVerdict(Verdict::Ok);
    if (depth != CheckDepth::Quick) {
        diagnosis = depth == CheckDepth::Full ? CheckFully(CoreOf(*store)) : CheckRows(CoreOf(*store));
        if (diagnosis.State != Verdict::Ok && diagnosis.State != Verdict::LeavesOut &&
            diagnosis.State != Verdict::Blemished && diagnosis.State != Verdict::Altered) {
            return diagnosis;
        }
    }
    store.reset();
    if (const Verdict obstacle = FindObstacle(machine, place, lockPatience); obstacle != Verdict::Ok) {
        Diagnosis found = DescribeVerdict(obstacle);
        found.Findings = std::move(diagnosis.Findings);
        return found;
    }
    return diagnosis;
}

} // namespace tavo::outlook
