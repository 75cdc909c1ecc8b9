// Opening the appointment store, a single file, for the program and for tools.
#pragma once

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
    int LockPatience = 5000; // milliseconds to wait for other processes before the answer is Locked
};

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

    StoreCore& Core() const { return *Pointer; }

  private:
    std::unique_ptr<StoreCore> Pointer;
};

using StorePtr = std::shared_ptr<Store>;

// Reads identity, version and schema before anything may be written; a failure (NotOurs, NewerVersion, Corrupt, Locked,
// AccessDenied, DiskFull, NotFound) leaves the file byte for byte as it was.
Status OpenStore(const std::filesystem::path& path, const StoreOptions& options, StorePtr& store);

// A connection that is already logged on to an open store.
ComPtr<IPOutlookApp> MakeOutlookApp(const StorePtr& store);

// The device's store object, not yet open: Logon opens the file.
ComPtr<IPOutlookApp> CreateOutlookApp(const std::filesystem::path& path, const StoreOptions& options);

// The store of an object made by one of the two functions above; null before Logon and after Logoff.
StorePtr StoreOf(IPOutlookApp& app);

} // namespace tavo::outlook
