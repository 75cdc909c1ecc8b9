// Viewing, changing and deleting one item.
#include "page/item_page.h"

#include "edit/appointment_dlg.h"
#include "page/series_day.h"
#include "res/resource_ids.h"
#include "res/strings.h"
#include "store/item_deletion.h"

#include <utility>

namespace tavo {

namespace {

constexpr std::u16string_view kDayIsGone = u"This day of the series is no longer there.";

} // namespace

void CItemPage::ViewAndAct(ItemKind kind, const AppointmentData& record, TimesOf times, const ChosenDay& day) {
    const ViewedItem viewed = ViewAppointment(State, record, times);
    if (viewed.Result == kResultModify) {
        ModifyItem(kind, viewed.Record, day);
    } else if (viewed.Result == kResultDelete) {
        AskAndDelete(kind, viewed.Record, day);
    }
}

void CItemPage::ModifyItem(ItemKind kind, const AppointmentData& record, const ChosenDay& day) {
    switch (AskPart(record, day)) {
    case SeriesPart::Whole:
        RunEditor(RequestFor(kind, record));
        break;
    case SeriesPart::ThisDay:
        ModifyDay(kind, record, *day);
        break;
    case SeriesPart::Neither:
        return;
    }
    View.PostChangeNotice(); // whatever it did
}

void CItemPage::ModifyDay(ItemKind kind, const AppointmentData& record, const SYSTEMTIME& day) {
    const ComPtr<IAppointment> occurrence = FindSeriesDay(State, record, day);
    if (!occurrence) {
        Refuse(kDayIsGone);
        return;
    }
    EditRequest request = RequestFor(kind, RecordOfDay(record, *occurrence, Host().Locale()));
    request.Occurrence = occurrence;
    RunEditor(std::move(request));
}

SeriesPart CItemPage::AskPart(const AppointmentData& record, const ChosenDay& day) {
    return day && record.IsRecurring ? AskSeriesPart(Pump(), Handle(), PlaceOfMenu()) : SeriesPart::Whole;
}

EditRequest CItemPage::RequestFor(ItemKind kind, std::optional<AppointmentData> item) {
    EditRequest request;
    request.Kind = kind;
    request.Item = std::move(item);
    request.Owner = ListOwner();
    request.InkEditor = InkEditor;
    return request;
}

void CItemPage::RunEditor(EditRequest request) {
    CAppointmentDlg editor(Pump(), State, std::move(request));
    static_cast<void>(editor.DoModal()); // the page follows what was saved, not how it ended
}

void CItemPage::AskAndDelete(ItemKind kind, const AppointmentData& record, const ChosenDay& day) {
    const SeriesPart part = AskPart(record, day);
    if (part == SeriesPart::Neither || !ConfirmDeletion()) {
        return;
    }
    if (part == SeriesPart::ThisDay) {
        DeleteDay(record, *day);
    } else if (!DeleteItem(State, kind, record)) {
        Refuse(kItemNotDeleted);
    }
    View.PostChangeNotice();
}

void CItemPage::DeleteDay(const AppointmentData& record, const SYSTEMTIME& day) {
    const ComPtr<IAppointment> occurrence = FindSeriesDay(State, record, day);
    if (!occurrence) {
        Refuse(kDayIsGone);
    } else if (!DeleteOccurrence(State, *occurrence, record)) {
        Refuse(kItemNotDeleted);
    }
}

} // namespace tavo
