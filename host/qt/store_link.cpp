// Following the program's log-on and log-off.
#include "host/qt/store_link.h"

#include "host/outlook/change_watcher.h"
#include "host/outlook/ref_counted.h"
#include "host/outlook/store.h"

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

// The store's own object, except that the link hears of logging on and off.
class StoreLink::LinkedApp final : public outlook::RefCounted<IPOutlookApp> {
  public:
    LinkedApp(StoreLink& link, ComPtr<IPOutlookApp> store) : Link(link), Store(std::move(store)) {}

    Status Logon(WindowHandle window) override {
        const Status status = Store->Logon(window);
        Link.TakeLogon(*Store, status);
        return status;
    }

    Status Logoff() override {
        Link.TakeLogoff();
        return Store->Logoff();
    }

    Status GetDefaultFolder(int folder, ComPtr<IFolder>& result) override {
        return Store->GetDefaultFolder(folder, result);
    }

    Status GetItemFromOid(Oid oid, ComPtr<IAppointment>& item) override { return Store->GetItemFromOid(oid, item); }

    Status CreateItem(int kind, ComPtr<IAppointment>& item) override { return Store->CreateItem(kind, item); }

    Status Begin(std::u16string_view name) override { return Store->Begin(name); }

    Status End() override { return Store->End(); }

    Status Abandon() override { return Store->Abandon(); }

    Status GetUndoName(std::u16string& name) override { return Store->GetUndoName(name); }

    Status Undo(std::vector<Oid>& restored) override { return Store->Undo(restored); }

    Status BeginUndo(std::int32_t& steps) override { return Store->BeginUndo(steps); }

    Status StepUndo() override { return Store->StepUndo(); }

    Status AddNote(std::span<const std::uint8_t> note) override { return Store->AddNote(note); }

    Status GetUndoNotes(std::vector<std::vector<std::uint8_t>>& notes) override { return Store->GetUndoNotes(notes); }

    Status BeginReading() override { return Store->BeginReading(); }

    Status EndReading() override { return Store->EndReading(); }

    ITagMirror& Tags() override { return Store->Tags(); }

  private:
    StoreLink& Link;
    ComPtr<IPOutlookApp> Store;
};

struct StoreLink::Watch {
    explicit Watch(outlook::StorePtr store) : Watcher(std::move(store)) { SecondLook.setSingleShot(true); }

    void LookAgain() {
        if (Looks < outlook::ChangeWatcher::kSecondLooks.size()) {
            SecondLook.start(outlook::ChangeWatcher::kSecondLooks[Looks++]);
        }
    }

    outlook::ChangeWatcher Watcher;
    std::unique_ptr<QSocketNotifier> Notifier;
    QTimer SecondLook;
    std::size_t Looks = 0;
};

StoreLink::StoreLink(std::string path) : Path(std::move(path)) {}

StoreLink::~StoreLink() = default;

Status StoreLink::Create(ComPtr<IPOutlookApp>& outlook) {
    ComPtr<IPOutlookApp> store = outlook::CreateOutlookApp(Path, {});
    if (!store) {
        return Status::OutOfMemory;
    }
    outlook = ComPtr<IPOutlookApp>::Adopt(new LinkedApp(*this, std::move(store)));
    return Status::Ok;
}

void StoreLink::TakeLogon(IPOutlookApp& store, Status status) {
    if (Failed(status)) {
        Error = ToErrorCode(status);
        return;
    }
    Own = outlook::StoreOf(store);
    auto watch = std::make_unique<Watch>(Own);
    if (Failed(watch->Watcher.Start())) {
        return; // the calendar works without news of other processes
    }
    watch->Notifier = std::make_unique<QSocketNotifier>(watch->Watcher.Descriptor(), QSocketNotifier::Read);
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

void StoreLink::TakeLogoff() {
    OwnWatch.reset(); // it would keep the store open, and so would this one:
    Own.reset();
}

} // namespace tavo::qt
