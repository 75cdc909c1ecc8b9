// Log-on, the calendar folder, items by OID, groups.
#include "host/outlook/outlook_app.h"

#include "host/outlook/appointment.h"
#include "host/outlook/item_collection.h"
#include "host/outlook/item_search.h"

namespace tavo::outlook {

namespace {

class CalendarFolder final : public RefCounted<IFolder> {
  public:
    explicit CalendarFolder(ComPtr<Session> session) : Owner(std::move(session)) {}

    Status get_Items(ComPtr<IPOutlookItemCollection>& items) override {
        items = As<IPOutlookItemCollection>(Make<ItemCollection>(*Owner, Restriction()));
        return Status::Ok;
    }

  private:
    ~CalendarFolder() override = default;

    ComPtr<Session> Owner;
};

} // namespace

OutlookApp::OutlookApp(IStoreMachine& machine, std::filesystem::path path, StoreOptions options, IStoreLife* life)
    : Machine(&machine), Path(std::move(path)), Options(std::move(options)), Life(life) {}

OutlookApp::OutlookApp(const StorePtr& store) : Path(CoreOf(*store).Path), Open(Make<Session>(store)) {}

Status OutlookApp::Logon(WindowHandle) {
    if (Open) {
        return Status::False;
    }
    StorePtr store;
    const Status status = Machine == nullptr ? Status::Unexpected : OpenStore(*Machine, Path, Options, store);
    if (Succeeded(status)) {
        Open = Make<Session>(store);
    }
    if (Life != nullptr) {
        Succeeded(status) ? Life->OnOpened(store) : Life->OnFailed(status);
    }
    return status;
}

Status OutlookApp::Logoff() {
    if (!Open) {
        return Status::False;
    }
    if (Life != nullptr) {
        Life->OnClosing();
    }
    const Status status = Open->Core.HasBegun() ? Open->Core.AbandonGroup() : Status::Ok;
    Open.Reset();
    return status;
}

Status OutlookApp::GetDefaultFolder(int folder, ComPtr<IFolder>& result) {
    if (!Open) {
        return Status::Unexpected;
    }
    if (folder != kFolderCalendar) {
        return Status::InvalidArgument;
    }
    result = As<IFolder>(Make<CalendarFolder>(Open));
    return Status::Ok;
}

Status OutlookApp::GetItemFromOid(Oid oid, ComPtr<IAppointment>& item) {
    if (!Open) {
        return Status::Unexpected;
    }
    StoredItem stored;
    const Status status = Open->Core.Items.Read(oid, Ink::Leave, stored);
    if (Succeeded(status)) {
        item = As<IAppointment>(Make<Appointment>(*Open, std::move(stored)));
    }
    return status;
}

Status OutlookApp::CreateItem(int kind, ComPtr<IAppointment>& item) {
    if (!Open) {
        return Status::Unexpected;
    }
    if (kind != kItemAppointment) {
        return Status::InvalidArgument;
    }
    item = As<IAppointment>(Make<Appointment>(*Open));
    return Status::Ok;
}

Status OutlookApp::Begin(std::u16string_view name) {
    return Open ? Open->Core.BeginGroup(name) : Status::Unexpected;
}

Status OutlookApp::End() {
    return Open ? Open->Core.EndGroup() : Status::Unexpected;
}

Status OutlookApp::Abandon() {
    return Open ? Open->Core.AbandonGroup() : Status::Unexpected;
}

Status OutlookApp::GetUndoName(std::u16string& name) {
    return Open ? Open->Core.GetUndoName(name) : Status::Unexpected;
}

Status OutlookApp::Undo(std::vector<Oid>& restored) {
    return Open ? Open->Core.Undo(restored) : Status::Unexpected;
}

Status OutlookApp::BeginUndo(std::int32_t& steps) {
    return Open ? Open->Core.BeginUndo(steps) : Status::Unexpected;
}

Status OutlookApp::StepUndo() {
    return Open ? Open->Core.StepUndo() : Status::Unexpected;
}

Status OutlookApp::AddNote(std::span<const std::uint8_t> note) {
    return Open ? Open->Core.AddNote(note) : Status::Unexpected;
}

Status OutlookApp::GetUndoNotes(std::vector<std::vector<std::uint8_t>>& notes) {
    return Open ? Open->Core.GetUndoNotes(notes) : Status::Unexpected;
}

Status OutlookApp::BeginReading() {
    return Open ? Open->Core.BeginReading() : Status::Unexpected;
}

Status OutlookApp::EndReading() {
    return Open ? Open->Core.EndReading() : Status::Unexpected;
}

Status OutlookApp::Search(std::u16string_view text, ComPtr<IItemSearch>& search) {
    if (!Open) {
        return Status::Unexpected;
    }
    search = As<IItemSearch>(Make<ItemSearch>(Open, text));
    return Status::Ok;
}

ITagMirror& OutlookApp::Tags() {
    if (Open) {
        return Open->Core.Tags;
    }
    return Closed;
}

ComPtr<IPOutlookApp> MakeOutlookApp(const StorePtr& store) {
    return As<IPOutlookApp>(Make<OutlookApp>(store));
}

ComPtr<IPOutlookApp> CreateOutlookApp(IStoreMachine& machine, const std::filesystem::path& path,
                                      const StoreOptions& options) {
    return As<IPOutlookApp>(Make<OutlookApp>(machine, path, options, nullptr));
}

ComPtr<IPOutlookApp> CreateOutlookApp(IStoreMachine& machine, const std::filesystem::path& path,
                                      const StoreOptions& options, IStoreLife& life) {
    return As<IPOutlookApp>(Make<OutlookApp>(machine, path, options, &life));
}

} // namespace tavo::outlook
