// A layer below SQLite that hands every call on to the real disk until it is time to fail. It stays installed for the
// whole process, since open files go through it; without a FailingDisk it fails nothing.
#include "tests/outlook/failing_disk.h"

#include <sqlite3.h>

#include <cstddef>

namespace tavo::outlook::test {

namespace {

struct Plan {
    int CallsLeft = 0; // 0: nothing is planned
    bool ForGood = false;
    int Code = SQLITE_OK;
    bool Failing = false;
    bool Failed = false;
};

Plan& CurrentPlan() {
    static Plan plan;
    return plan;
}

int CountCall() {
    Plan& plan = CurrentPlan();
    if (plan.Failing) {
        return plan.Code;
    }
    if (plan.CallsLeft == 0 || --plan.CallsLeft > 0) {
        return SQLITE_OK;
    }
    plan.Failed = true;
    plan.Failing = plan.ForGood;
    return plan.Code;
}

struct Layer {
    sqlite3_file Base;
    sqlite3_file* Real;
};

sqlite3_file* RealOf(sqlite3_file* file) {
    return reinterpret_cast<Layer*>(file)->Real;
}

int Write(sqlite3_file* file, const void* data, int size, sqlite3_int64 at) {
    const int failure = CountCall();
    return failure != SQLITE_OK ? failure : RealOf(file)->pMethods->xWrite(RealOf(file), data, size, at);
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    const int failure = CountCall();
    return failure != SQLITE_OK ? failure : RealOf(file)->pMethods->xTruncate(RealOf(file), size);
}

int Sync(sqlite3_file* file, int flags) {
    const int failure = CountCall();
    return failure != SQLITE_OK ? failure : RealOf(file)->pMethods->xSync(RealOf(file), flags);
}

int Close(sqlite3_file* file) {
    return RealOf(file)->pMethods->xClose(RealOf(file));
}

int Read(sqlite3_file* file, void* data, int size, sqlite3_int64 at) {
    return RealOf(file)->pMethods->xRead(RealOf(file), data, size, at);
}

int FileSize(sqlite3_file* file, sqlite3_int64* size) {
    return RealOf(file)->pMethods->xFileSize(RealOf(file), size);
}

int Lock(sqlite3_file* file, int kind) {
    return RealOf(file)->pMethods->xLock(RealOf(file), kind);
}

int Unlock(sqlite3_file* file, int kind) {
    return RealOf(file)->pMethods->xUnlock(RealOf(file), kind);
}

int CheckReservedLock(sqlite3_file* file, int* result) {
    return RealOf(file)->pMethods->xCheckReservedLock(RealOf(file), result);
}

int FileControl(sqlite3_file* file, int operation, void* argument) {
    return RealOf(file)->pMethods->xFileControl(RealOf(file), operation, argument);
}

int SectorSize(sqlite3_file* file) {
    return RealOf(file)->pMethods->xSectorSize(RealOf(file));
}

int DeviceCharacteristics(sqlite3_file* file) {
    return RealOf(file)->pMethods->xDeviceCharacteristics(RealOf(file));
}

int ShmMap(sqlite3_file* file, int region, int size, int extend, void volatile** memory) {
    return RealOf(file)->pMethods->xShmMap(RealOf(file), region, size, extend, memory);
}

int ShmLock(sqlite3_file* file, int offset, int count, int flags) {
    return RealOf(file)->pMethods->xShmLock(RealOf(file), offset, count, flags);
}

void ShmBarrier(sqlite3_file* file) {
    RealOf(file)->pMethods->xShmBarrier(RealOf(file));
}

int ShmUnmap(sqlite3_file* file, int deleteFlag) {
    return RealOf(file)->pMethods->xShmUnmap(RealOf(file), deleteFlag);
}

int Open(sqlite3_vfs* layer, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    static const sqlite3_io_methods methods = {2,
                                               Close,
                                               Read,
                                               Write,
                                               Truncate,
                                               Sync,
                                               FileSize,
                                               Lock,
                                               Unlock,
                                               CheckReservedLock,
                                               FileControl,
                                               SectorSize,
                                               DeviceCharacteristics,
                                               ShmMap,
                                               ShmLock,
                                               ShmBarrier,
                                               ShmUnmap,
                                               nullptr,
                                               nullptr};
    auto* real = static_cast<sqlite3_vfs*>(layer->pAppData);
    auto* ours = reinterpret_cast<Layer*>(file);
    ours->Real = reinterpret_cast<sqlite3_file*>(ours + 1);
    const int code = real->xOpen(real, name, ours->Real, flags, outFlags);
    ours->Base.pMethods = ours->Real->pMethods != nullptr ? &methods : nullptr;
    return code;
}

void InstallOnce() {
    static sqlite3_vfs layer = [] {
        sqlite3_vfs* real = sqlite3_vfs_find(nullptr);
        sqlite3_vfs made = *real;
        made.pNext = nullptr;
        made.zName = "failing-disk";
        made.szOsFile = static_cast<int>(sizeof(Layer)) + real->szOsFile;
        made.pAppData = real;
        made.xOpen = Open;
        return made;
    }();
    static const int installed = sqlite3_vfs_register(&layer, 1);
    static_cast<void>(installed);
}

// Before the first test, so that every file of the process is open through the layer.
const bool kInstalled = (InstallOnce(), true);

} // namespace

FailingDisk::FailingDisk(int nth, Lasting lasting, Failure failure) {
    CurrentPlan() = {nth, lasting == Lasting::ForGood, failure == Failure::Full ? SQLITE_FULL : SQLITE_IOERR_WRITE,
                     false, false};
}

FailingDisk::~FailingDisk() {
    CurrentPlan() = Plan();
}

bool FailingDisk::HasFailed() const {
    return kInstalled && CurrentPlan().Failed;
}

} // namespace tavo::outlook::test
