// SQLite copies the store page by page; two tables beside its own hold the rest.
#include "host/outlook/backup.h"

#include "host/outlook/database.h"
#include "host/outlook/schema.h"
#include "host/outlook/store.h"
#include "host/outlook/store_core.h"
#include "host/outlook/store_file.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace tavo::outlook {
namespace {

constexpr int kBackupVersion = 1;
constexpr int kPagesOfStep = 256;
constexpr int kWhole = 1000;
constexpr int kLockPatience = 5000; // milliseconds
constexpr std::chrono::milliseconds kPatience{kLockPatience};
constexpr std::chrono::milliseconds kBetweenTries{20};

constexpr const char* kTables =
    "CREATE TABLE backup(version INTEGER NOT NULL, time INTEGER NOT NULL);"
    "CREATE TABLE kept_file(name TEXT PRIMARY KEY, bytes BLOB NOT NULL, sum INTEGER NOT NULL)";

std::string Describe(Status status) {
    switch (status) {
    case Status::DiskFull:
        return "the disk is full";
    case Status::Locked:
        return "somebody else holds it";
    case Status::AccessDenied:
        return "it may not be written";
    default:
        return "it cannot be read or written";
    }
}

Status OpenFile(IStoreMachine& machine, Database& database, const std::filesystem::path& path) {
    return database.Open(StoreUri(machine, path, "mode=rw"), SQLITE_OPEN_READWRITE | SQLITE_OPEN_URI, kLockPatience);
}

// All pages of one database into another, as one transaction of that.
class PageCopy {
  public:
    PageCopy(Database& from, Database& to)
        : To(to), Copy(sqlite3_backup_init(to.Raw(), "main", from.Raw(), "main")), End(Clock::now() + kPatience) {}

    ~PageCopy() { sqlite3_backup_finish(Copy); } // null when there is none

    PageCopy(const PageCopy&) = delete;
    PageCopy& operator=(const PageCopy&) = delete;

    // Ok while more remains, False after the last page.
    Status Step(int pages) {
        if (Copy == nullptr) {
            return To.LastStatus();
        }
        const int code = sqlite3_backup_step(Copy, pages);
        if (code == SQLITE_DONE) {
            const Status finished = StatusFromSqlite(sqlite3_backup_finish(std::exchange(Copy, nullptr)), 0);
            return Failed(finished) ? finished : Status::False;
        }
        if ((code == SQLITE_BUSY || code == SQLITE_LOCKED) && Clock::now() < End) {
            std::this_thread::sleep_for(kBetweenTries);
            return Status::Ok;
        }
        return code == SQLITE_OK ? Status::Ok : StatusFromSqlite(code, sqlite3_system_errno(To.Raw()));
    }

    int Progress() const {
        const int all = Copy == nullptr ? 1 : std::max(sqlite3_backup_pagecount(Copy), 1);
        return (all - (Copy == nullptr ? 0 : sqlite3_backup_remaining(Copy))) * kWhole / all;
    }

  private:
    using Clock = std::chrono::steady_clock;

    Database& To;
    sqlite3_backup* Copy;
    Clock::time_point End;
};

Status CopyAll(Database& from, Database& to) {
    constexpr int allPages = -1;
    PageCopy copy(from, to);
    Status status = Status::Ok;
    do {
        status = copy.Step(allPages);
    } while (status == Status::Ok);
    return status == Status::False ? Status::Ok : status;
}

Status AddFiles(Database& database, std::span<const KeptFile> files) {
    Status status = database.Run("BEGIN IMMEDIATE");
    status = Succeeded(status) ? database.Run(kTables) : status;
    if (Succeeded(status)) {
        Query mark(database, "INSERT INTO backup(version, time) VALUES (?, ?)");
        status = mark.Bind(kBackupVersion).Bind(static_cast<std::int64_t>(std::time(nullptr))).Finish();
    }
    for (const KeptFile& file : files) {
        if (Failed(status)) {
            break;
        }
        Query add(database, "INSERT INTO kept_file(name, bytes, sum) VALUES (?1, ?2, row_sum(?1, ?2))");
        status = add.Bind(file.Name).Bind(std::span(file.Bytes)).Finish();
    }
    return Succeeded(status) ? database.Run("COMMIT") : status;
}

Status ReadTags(Database& database, std::vector<std::pair<TagList, Oid>>& tags) {
    Query rows(database, "SELECT list, oid FROM tag ORDER BY list, place");
    while (rows.Next()) {
        tags.emplace_back(static_cast<TagList>(rows.Small(0)), rows.Small(1));
    }
    return rows.Result();
}

bool ReadFiles(Database& database, BackupContents& contents) {
    Query files(database, "SELECT name, bytes, sum IS row_sum(name, bytes) FROM kept_file ORDER BY name");
    while (files.Next()) {
        if (files.Small(2) == 0) {
            return false;
        }
        const auto bytes = files.Blob(1);
        contents.Files.push_back({std::string(files.Text(0)), {bytes.begin(), bytes.end()}});
    }
    Query items(database, "SELECT count(*) FROM item");
    contents.Items = items.Next() ? items.Small(0) : 0;
    return Succeeded(files.Result()) && Succeeded(items.Result()) && Succeeded(ReadTags(database, contents.Tags));
}

// What stays as it is now: what was shown of reminders, the lists, and numbers that must never go back.
constexpr const char* kKeepOfLive =
    "BEGIN;"
    "DELETE FROM ledger; INSERT INTO ledger SELECT * FROM live.ledger;"
    "DELETE FROM ledger_log; INSERT INTO ledger_log SELECT * FROM live.ledger_log;"
    "DELETE FROM tag; INSERT INTO tag SELECT * FROM live.tag;"
    "DELETE FROM request; INSERT INTO request SELECT * FROM live.request;"
    "UPDATE setting SET value = max(value, (SELECT l.value FROM live.setting l WHERE l.name = 'next_oid'))"
    " WHERE name = 'next_oid';"
    "UPDATE change_count SET count = 1 + max(count, coalesce((SELECT l.count FROM live.change_count l"
    " WHERE l.kind = change_count.kind), 0));"
    "COMMIT";

Status Prepare(IStoreMachine& machine, const std::filesystem::path& scratch, const std::filesystem::path& store) {
    {
        Database copy;
        Status status = OpenFile(machine, copy, scratch);
        status = Succeeded(status) ? copy.Run("DROP TABLE kept_file; DROP TABLE backup; VACUUM") : status;
        if (Failed(status)) {
            return status;
        }
    }
    StorePtr brought; // an older one is brought forward by being opened
    if (const Status status = OpenStore(machine, scratch, {}, brought); Failed(status)) {
        return status;
    }
    brought.reset();
    Database copy;
    Status status = OpenFile(machine, copy, scratch);
    if (Succeeded(status)) {
        Query attach(copy, "ATTACH ? AS live");
        status = attach.Bind(StoreUri(machine, store, "mode=rw")).Finish();
    }
    return Succeeded(status) ? copy.Run(kKeepOfLive) : status;
}

} // namespace

class BackupWriter::Copy {
  public:
    Status Begin(IStoreMachine& machine, const std::filesystem::path& store, const std::filesystem::path& draft) {
        Status status = OpenFile(machine, Live, store);
        if (Succeeded(status)) {
            status = Draft.Open(StoreUri(machine, draft, "mode=rwc"),
                                SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_URI, kLockPatience);
        }
        // One moment, whatever others write meanwhile: it is that of the first read.
        status = Succeeded(status) ? Live.Run("BEGIN; SELECT count(*) FROM sqlite_schema") : status;
        if (Succeeded(status)) {
            Pages.emplace(Live, Draft);
        }
        return status;
    }

    Status Step() { return Pages->Step(kPagesOfStep); }

    int Progress() const { return Pages->Progress(); }

    Status Add(std::span<const KeptFile> files) {
        Pages.reset();
        // One file, without a log beside it.
        const Status status = Draft.Run("PRAGMA journal_mode=DELETE; PRAGMA synchronous=FULL");
        return Succeeded(status) ? AddFiles(Draft, files) : status;
    }

  private:
    Database Live;
    Database Draft;
    std::optional<PageCopy> Pages;
};

BackupWriter::BackupWriter(IStoreMachine& machine, std::filesystem::path store, std::filesystem::path draft)
    : Machine(machine), Store(std::move(store)), Draft(std::move(draft)) {}

BackupWriter::~BackupWriter() = default;

Status BackupWriter::Begin() {
    Pages = std::make_unique<Copy>();
    return Pages->Begin(Machine, Store, Draft);
}

Status BackupWriter::Finish(std::span<const KeptFile> files) {
    const Status status = Pages->Add(files);
    Pages.reset(); // what is read again is the file as it lies there
    if (Failed(status)) {
        return status;
    }
    const Status read = ReadBackup(Machine, Draft, CheckDepth::Rows, Written, Reason);
    return Succeeded(read) ? Status::False : read;
}

Status BackupWriter::Step(std::span<const KeptFile> files) {
    Status status = Pages ? Pages->Step() : Begin();
    if (Succeeded(status)) {
        Done = Pages->Progress();
    }
    status = status == Status::False ? Finish(files) : status;
    if (Failed(status) && Reason.empty()) {
        Reason = Describe(status);
    }
    return status;
}

Status ReadBackup(IStoreMachine& machine, const std::filesystem::path& backup, CheckDepth depth,
                  BackupContents& contents, std::string& problem) {
    contents = {};
    const Diagnosis diagnosis = DiagnoseStore(machine, backup, depth, kLockPatience);
    switch (diagnosis.State) {
    case Verdict::Ok:
    case Verdict::LeavesOut:
    case Verdict::Blemished:
    case Verdict::ReadOnly:
        break;
    case Verdict::Newer:
        problem = "a newer version of Tavo Calendar made it";
        return Status::NewerVersion;
    case Verdict::NotOurs:
    case Verdict::Missing:
        problem = diagnosis.State == Verdict::Missing ? "there is no such file" : "it is no backup of Tavo Calendar";
        return Status::NotOurs;
    default:
        problem = "it is damaged: " + diagnosis.What;
        return Status::Corrupt;
    }
    Database file;
    Status status =
        file.Open(StoreUri(machine, backup, "mode=ro"), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, kLockPatience);
    if (Succeeded(status)) {
        Query mark(file, "SELECT version, time FROM backup");
        if (!mark.Next()) {
            problem = "it is a store of Tavo Calendar, but no backup";
            return Status::NotOurs;
        }
        contents.Time = mark.Integer(1);
        if (mark.Small(0) > kBackupVersion) {
            problem = "a newer version of Tavo Calendar made it";
            return Status::NewerVersion;
        }
        status = ReadFiles(file, contents) ? Status::Ok : Status::Corrupt;
    }
    if (Failed(status)) {
        problem = status == Status::Corrupt ? "it is damaged: a file in it has changed by itself" : Describe(status);
    }
    return status;
}

Status RestoreStore(IStoreMachine& machine, const std::filesystem::path& backup, const std::filesystem::path& scratch,
                    const std::filesystem::path& store, std::string& problem) {
    std::error_code error;
    std::filesystem::copy_file(backup, scratch, error);
    Status status = error ? Status::DiskFull : Prepare(machine, scratch, store);
    if (Succeeded(status)) {
        Database from;
        Database to;
        status = OpenFile(machine, from, scratch);
        status = Succeeded(status) ? OpenFile(machine, to, store) : status;
        if (Succeeded(status)) {
            status = CopyAll(from, to);
        }
    }
    for (const char* const suffix : {"", "-wal", "-shm", "-journal"}) {
        std::filesystem::path part = scratch;
        std::filesystem::remove(part += suffix,
                                error); // what cannot be removed stays beside the store and harms nobody
    }
    if (Failed(status)) {
        problem = Describe(status);
    }
    return status;
}

Status ListTags(const StorePtr& store, std::vector<std::pair<TagList, Oid>>& tags) {
    tags.clear();
    return ReadTags(CoreOf(*store).Db, tags);
}

} // namespace tavo::outlook
