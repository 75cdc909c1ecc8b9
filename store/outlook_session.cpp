// Opening and closing the store, and the operations on its items.
#include "store/outlook_session.h"

#include "framework/format.h"
#include "res/strings.h"
#include "store/fill_record.h"

namespace tavo {

namespace {

constexpr std::u16string_view kOpenFailed = u"Error occurred [001:%d]";

} // namespace

bool OutlookSession::OpenStore() {
    if (Connect()) {
        return true;
    }
    MessageBoxDescription box;
    box.Text = FormatText(kOpenFailed, static_cast<std::int32_t>(Pump.Host().GetLastError()));
    box.Caption = kProgramTitle;
    Pump.ShowMessageBox(WindowHandle::None, box);
    return false;
}

bool OutlookSession::Connect() {
    LastStoreResult = Pump.Host().CoCreateInstance(OutlookApp);
    if (Failed(LastStoreResult)) {
        return false;
    }
    LastStoreResult = OutlookApp->Logon(WindowHandle::None);
    if (Failed(LastStoreResult)) {
        return false;
    }
    LastStoreResult = OutlookApp->GetDefaultFolder(kFolderCalendar, CalendarFolder);
    return !Failed(LastStoreResult);
}

void OutlookSession::CloseStore() {
    CalendarFolder.Reset();
    if (OutlookApp) {
        LastStoreResult = OutlookApp->Logoff();
        OutlookApp.Reset();
    }
    Pump.Host().CoUninitialize();
}

Oid OutlookSession::LoadAppointment(Oid oid, AppointmentData& record) {
    if (!OutlookApp) {
        LastStoreResult = Status::Unexpected;
        return 0;
    }
    ComPtr<IAppointment> item;
    LastStoreResult = OutlookApp->GetItemFromOid(oid, item);
    if (Failed(LastStoreResult)) {
        return 0;
    }
    FillRecord(*item, Pump.Host().Locale(), record);
    return record.Oid;
}

void OutlookSession::DeleteAppointment(Oid oid) {
    if (oid == 0 || !OutlookApp) {
        return;
    }
    ComPtr<IAppointment> item;
    LastStoreResult = OutlookApp->GetItemFromOid(oid, item);
    if (!Failed(LastStoreResult)) {
        LastStoreResult = item->Delete();
    }
}

std::int32_t OutlookSession::CountAppointments() {
    const ComPtr<IPOutlookItemCollection> items = GetItems();
    std::int32_t count = 0;
    if (items) {
        LastStoreResult = items->get_Count(count);
    }
    return Failed(LastStoreResult) ? 0 : count;
}

ComPtr<IPOutlookItemCollection> OutlookSession::QueryAppointments(std::u16string_view restriction) {
    const ComPtr<IPOutlookItemCollection> items = GetItems();
    if (!items) {
        return {};
    }
    ComPtr<IPOutlookItemCollection> found;
    LastStoreResult = items->Restrict(restriction, found);
    if (Failed(LastStoreResult) || !found) {
        return {};
    }
    LastStoreResult = found->put_IncludeRecurrences(true);
    if (Failed(LastStoreResult)) {
        return {};
    }
    return found;
}

ComPtr<IPOutlookItemCollection> OutlookSession::GetItems() {
    if (!CalendarFolder) {
        LastStoreResult = Status::Unexpected;
        return {};
    }
    ComPtr<IPOutlookItemCollection> items;
    LastStoreResult = CalendarFolder->get_Items(items);
    return items;
}

StoreReading::StoreReading(OutlookSession& store) {
    if (store.OutlookApp && Succeeded(store.OutlookApp->BeginReading())) {
        Reader = store.OutlookApp;
    }
}

StoreReading::~StoreReading() {
    if (Reader) {
        static_cast<void>(Reader->EndReading()); // nothing was written that could be lost
    }
}

} // namespace tavo
