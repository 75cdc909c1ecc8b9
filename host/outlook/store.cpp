// Opening a store.
#include "host/outlook/store.h"

#include "host/outlook/schema.h"
#include "host/outlook/store_core.h"
#include "host/outlook/store_file.h"

namespace tavo::outlook {

namespace {

// The narrow tables of a hundred thousand items fit; pages are taken as they are read.
constexpr const char* kSettings = "PRAGMA cache_size=-16384; PRAGMA foreign_keys=ON; PRAGMA synchronous=FULL;"
                                  "PRAGMA temp_store=MEMORY; PRAGMA journal_size_limit=4194304";
constexpr const char* kSmallCache = "PRAGMA cache_size=-512";
// Who only reads lives shortly and takes pages as they lie in the file, without copying each.
constexpr const char* kReaderSettings =
    "PRAGMA query_only=ON; PRAGMA mmap_size=268435456; PRAGMA cache_size=-16384; PRAGMA schema_version";

// SQLite reports some failures of a full disk without the system's reason.
Status ExplainFailure(IStoreMachine& machine, Status status, const std::filesystem::path& path) {
    const bool isFull = status == Status::Fail && machine.FreeBytes(AbsolutePath(path).parent_path()) == 0U;
    return isFull ? Status::DiskFull : status;
}

Status OpenForWriting(IStoreMachine& machine, StoreCore& core, const StoreOptions& options) {
    Status status = core.Db.Open(StoreUri(machine, core.Path, "mode=rw"), SQLITE_OPEN_READWRITE | SQLITE_OPEN_URI,
                                 options.LockPatience);
    if (Succeeded(status)) {
        status = core.Db.Run(kSettings);
    }
    if (Succeeded(status) && options.HasSmallCache) {
        status = core.Db.Run(kSmallCache);
    }
    if (Succeeded(status) && sqlite3_db_readonly(core.Db.Raw(), "main") == 1) {
        status = Status::AccessDenied;
    }
    // Taking the lock of writers and giving it back writes nothing, and tells who else holds the store.
    if (Succeeded(status)) {
        status = core.Db.Run("BEGIN IMMEDIATE");
    }
    return Succeeded(status) ? core.Db.Run("ROLLBACK") : status;
}

Status OpenForReading(IStoreMachine& machine, StoreCore& core, const StoreOptions& options, bool hasLog) {
    core.CanWrite = false;
    // A reader that may write takes its files beside the store away again. It leaves an existing log as it is.
    Status status = core.Db.Open(StoreUri(machine, core.Path, "mode=rw"), SQLITE_OPEN_READWRITE | SQLITE_OPEN_URI,
                                 options.LockPatience);
    const bool writable = Succeeded(status) && sqlite3_db_readonly(core.Db.Raw(), "main") == 0;
    if (writable) {
        sqlite3_db_config(core.Db.Raw(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, hasLog ? 1 : 0, nullptr);
        status = core.Db.Run(kReaderSettings);
    }
    if (!writable || (Failed(status) && status != Status::Locked)) {
        // On a read-only disk no file can appear beside the store; without a log none is needed.
        status = core.Db.Open(StoreUri(machine, core.Path, hasLog ? "mode=ro" : "mode=ro&immutable=1"),
                              SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, options.LockPatience);
        if (Succeeded(status)) {
            status = core.Db.Run(kReaderSettings);
        }
    }
    return status;
}

Status Migrate(StoreCore& core, const FileFacts& facts) {
    if (facts.Version == kSchemaVersion || (!core.CanWrite && facts.Version >= kReadableVersion)) {
        return Status::Ok;
    }
    return core.CanWrite ? MigrateSchema(core.Db) : Status::AccessDenied;
}

// A reader leaves the file alone whatever it does, so one connection both looks and reads.
Status InspectAndOpen(IStoreMachine& machine, StoreCore& core, const StoreOptions& options, FileFacts& facts) {
    const bool reads = options.Rights == Access::ReadOnly;
    if (IsFolderExposed(machine, core.Path)) {
        return Status::AccessDenied;
    }
    Status status = reads ? InspectHeader(machine, core.Path, facts)
                          : InspectStoreFile(machine, core.Path, options.LockPatience, facts);
    if (status == Status::NotFound && !reads) {
        status = CreateStoreFile(machine, core.Path);
        if (Succeeded(status)) {
            status = InspectStoreFile(machine, core.Path, options.LockPatience, facts);
        }
    }
    if (Failed(status)) {
        return status;
    }
    core.OpenMark.emplace(machine, core.Path);
    if (!reads) {
        return OpenForWriting(machine, core, options);
    }
    status = OpenForReading(machine, core, options, facts.HasLog);
    return Succeeded(status) ? ReadSchema(core.Db, facts.Version) : status;
}

} // namespace

Store::Store(std::unique_ptr<StoreCore> core) : Pointer(std::move(core)) {}

Store::~Store() = default;

Status Store::SetDeviceZone(const std::string& zone) {
    return Pointer->SetDeviceZone(zone);
}

std::optional<std::int64_t> Store::LastFullCheck() {
    Query query(Pointer->Db, "SELECT value FROM setting WHERE name = 'full_check'");
    return query.Next() ? std::optional(query.Integer(0)) : std::nullopt;
}

Status Store::NoteFullCheck(std::int64_t when) {
    return Pointer->RunQuietly([this, when] {
        Query note(Pointer->Db, "INSERT INTO setting(name, value) VALUES ('full_check', ?)"
                                " ON CONFLICT (name) DO UPDATE SET value = excluded.value");
        return note.Bind(when).Finish();
    });
}

Status Store::ReadItem(Oid oid, StoredItem& item) {
    return Pointer->Items.Read(oid, Ink::Take, item);
}

void Store::ReleaseMemory() {
    sqlite3_db_release_memory(Pointer->Db.Raw());
}

StoreCore& CoreOf(const Store& store) {
    return *store.Pointer;
}

void PrepareStores(StoreUse use) {
    static_cast<void>(sqlite3_config(SQLITE_CONFIG_SINGLETHREAD));
    if (use == StoreUse::Command) {
        static_cast<void>(sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0));
    } else {
        static_cast<void>(sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 128, 32));
    }
}

Status OpenStore(IStoreMachine& machine, const std::filesystem::path& path, const StoreOptions& options,
                 StorePtr& store) {
    auto core = std::make_unique<StoreCore>(machine.Zones());
    core->Path = RealPath(path);
    FileFacts facts;
    Status status = InspectAndOpen(machine, *core, options, facts);
    if (Succeeded(status)) {
        status = Migrate(*core, facts);
    }
    if (Succeeded(status)) {
        const std::string zone =
            options.DeviceZone.empty() ? FindDeviceZone(core->Zones.GetSource()) : options.DeviceZone;
        status = core->SetDeviceZone(zone);
    }
    if (Succeeded(status)) {
        status = core->Changes.BeginRun();
    }
    if (Failed(status)) {
        return ExplainFailure(machine, status, path);
    }
    const bool wantsCheck = facts.LeftUnclosed && core->CanWrite;
    static_cast<void>(core->TakeForeignItemChange()); // from here on changes count
    store = std::make_shared<Store>(std::move(core));
    if (wantsCheck) {
        static_cast<void>(store->NoteFullCheck(0)); // not noted, the next night comes
    }
    return Status::Ok;
}

} // namespace tavo::outlook
