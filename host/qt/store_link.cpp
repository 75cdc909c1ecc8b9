// Following the program's log-on and log-off.
#include "host/qt/store_link.h"

#include "host/outlook/change_watcher.h"
#include "host/posix/folder_notice.h"
#include "host/posix/store_machine.h"

#include <QSocketNotifier>
#include <QTimer>

#include <utility>

namespace tavo::qt {
namespace {

ErrorCode ToErrorCode(Status status) {
    switch (status) {
    case Status::AccessDenied:
        return ErrorCode::AccessDenied;
    case Status::NotFound:
        return ErrorCode::FileNotFound;
    case Status::NotOurs:
        return ErrorCode::BadFormat;
    case Status::DiskFull:
        return ErrorCode::DiskFull;
    case Status::Locked:
        return ErrorCode::LockViolation;
    case Status::Corrupt:
        return ErrorCode::FileCorrupt;
    case Status::NewerVersion:
        return ErrorCode::NewerVersion;
    default:
        return ErrorCode::CannotComplete;
    }
}

} // namespace

struct StoreLink::Watch {
    explicit Watch(outlook::StorePtr store) : Watcher(std::move(store), Notice) { SecondLook.setSingleShot(true); }

    void LookAgain() {
        if (Looks < outlook::ChangeWatcher::kSecondLooks.size()) {
            SecondLook.start(outlook::ChangeWatcher::kSecondLooks[Looks++]);
        }
    }

    posix::FolderNotice Notice;
    outlook::ChangeWatcher Watcher;
    std::unique_ptr<QSocketNotifier> Notifier;
    QTimer SecondLook;
    std::size_t Looks = 0;
};

StoreLink::StoreLink(std::string path) : Path(std::move(path)) {}

StoreLink::~StoreLink() = default;

Status StoreLink::Create(ComPtr<IPOutlookApp>& outlook) {
    outlook = outlook::CreateOutlookApp(posix::SystemMachine(), Path, {}, *this);
    return outlook ? Status::Ok : Status::OutOfMemory;
}

void StoreLink::OnFailed(Status status) {
    Error = ToErrorCode(status);
}

void StoreLink::OnOpened(const outlook::StorePtr& store) {
    Own = store;
    auto watch = std::make_unique<Watch>(Own);
    if (Failed(watch->Watcher.Start())) {
        return; // the calendar works without news of other processes
    }
    watch->Notifier = std::make_unique<QSocketNotifier>(watch->Notice.Descriptor(), QSocketNotifier::Read);
    OwnWatch = std::move(watch);
    QObject::connect(OwnWatch->Notifier.get(), &QSocketNotifier::activated, OwnWatch->Notifier.get(), [this] {
        OwnWatch->Looks = 0;
        TakeNews();
    });
    QObject::connect(&OwnWatch->SecondLook, &QTimer::timeout, &OwnWatch->SecondLook, [this] { TakeNews(); });
}

void StoreLink::TakeNews() {
    OwnWatch->LookAgain();
    const bool changed = OwnWatch->Watcher.TakeItemChange();
    const bool reminded = OwnWatch->Watcher.TakeLedgerChange();
    if (changed && Changed) {
        Changed();
    }
    if (reminded && Reminded) {
        Reminded();
    }
}

void StoreLink::OnClosing() {
    OwnWatch.reset(); // it would keep the store open, and so would this one:
    Own.reset();
}

} // namespace tavo::qt
