// Opening the appointment store, a single file, for the program and for tools.
#pragma once

#include "host/outlook/store_machine.h"
#include "host/outlook/terms.h"
#include "host/rules/wall_time.h"
#include "platform/outlook.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace tavo::outlook {

class StoreCore;

enum class Access {
    ReadWrite, // makes a missing store; refuses one that cannot be written
    ReadOnly,  // leaves a missing store missing: NotFound
};

struct StoreOptions {
    Access Rights = Access::ReadWrite;
    // The device's time zone, a name of the time zone database; "" takes the system's own.
    std::string DeviceZone;
    int LockPatience = 5000;    // milliseconds to wait for other processes before the answer is Locked
    bool HasSmallCache = false; // half a megabyte at the most: for a process that asks little and lives long
};

// What a whole process asks of SQLite. Nothing for one that uses stores from several threads.
enum class StoreUse {
    Command, // one thread, and over soon: nobody asks how much memory is used, so nothing counts it
    Service, // one thread that lives long: no memory is set aside beforehand
};

// Before any store is opened. Where it cannot be had all works the same, only slower or larger.
void PrepareStores(StoreUse use);

// An open store. Everything made from it keeps it open. Used from one thread.
class Store {
  public:
    explicit Store(std::unique_ptr<StoreCore> core);
    ~Store();
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    // Times of zoned items follow the device into another zone; one transaction, no step of undo.
    Status SetDeviceZone(const std::string& zone);
    // When the last full check was noted, in seconds since 1970. 0: one is wanted at once, as a process that had the
    // store did not close it. Nothing: never.
    std::optional<std::int64_t> LastFullCheck();
    Status NoteFullCheck(std::int64_t when);

    // One item with everything (ink included); NotFound when it is gone.
    Status ReadItem(Oid oid, StoredItem& item);

    // Gives back what memory it can do without for now.
    void ReleaseMemory();

  private:
    // For this folder alone: declared in store_core.h.
    friend StoreCore& CoreOf(const Store& store);

    std::unique_ptr<StoreCore> Pointer;
};

using StorePtr = std::shared_ptr<Store>;

// Reads identity, version and schema before anything may be written; a failure (NotOurs, NewerVersion, Corrupt, Locked,
// AccessDenied, DiskFull, NotFound) leaves the file byte for byte as it was.
Status OpenStore(IStoreMachine& machine, const std::filesystem::path& path, const StoreOptions& options,
                 StorePtr& store);

// A connection that is already logged on to an open store.
ComPtr<IPOutlookApp> MakeOutlookApp(const StorePtr& store);

// Told what becomes of a store that its object opens and closes.
class IStoreLife {
  public:
    virtual ~IStoreLife() = default;
    virtual void OnOpened(const StorePtr& store) = 0;
    virtual void OnFailed(Status status) = 0; // to open
    virtual void OnClosing() = 0;             // whoever kept it lets go of it now
};

// The device's store object, not yet open: Logon opens the file, and Logoff closes it. `machine` and `life` outlive it.
ComPtr<IPOutlookApp> CreateOutlookApp(IStoreMachine& machine, const std::filesystem::path& path,
                                      const StoreOptions& options);
ComPtr<IPOutlookApp> CreateOutlookApp(IStoreMachine& machine, const std::filesystem::path& path,
                                      const StoreOptions& options, IStoreLife& life);

} // namespace tavo::outlook
