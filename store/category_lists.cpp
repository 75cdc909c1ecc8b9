// Tags asked for from outside, and the pruning of lists.
#include "store/category_lists.h"

#include "store/outlook_session.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tavo {

CategoryList& CategoryLists::ListOf(TagList list) {
    switch (list) {
    case TagList::Holiday:
        return HolidayList;
    case TagList::Anniversary:
        return AnniversaryList;
    case TagList::Alarm:
        break;
    }
    return AlarmList;
}

ItemKind CategoryLists::KindOf(Oid oid) const {
    if (IsAlarm(oid)) {
        return ItemKind::Alarm;
    }
    if (IsHoliday(oid)) {
        return ItemKind::Holiday;
    }
    return IsAnniversary(oid) ? ItemKind::Anniversary : ItemKind::Appointment;
}

bool CategoryLists::ApplyTagRequests() {
    ITagMirror* mirror = Store.Tags();
    std::vector<TagRequest> requests;
    if (mirror == nullptr || Failed(mirror->GetRequests(requests))) {
        return false;
    }
    const CategoryList::ReportOnce alarms(AlarmList);
    const CategoryList::ReportOnce holidays(HolidayList);
    const CategoryList::ReportOnce anniversaries(AnniversaryList);
    bool changed = false;
    for (const TagRequest& request : requests) {
        // One that was carried out but not yet saved must not undo what the user did since.
        if (request.Id > LastApplied) {
            changed = ApplyTagRequest(request) || changed;
            LastApplied = request.Id;
        }
    }
    return changed;
}

bool CategoryLists::ApplyTagRequest(const TagRequest& request) {
    CategoryList& list = ListOf(request.List);
    if (list.Contains(request.Item) == request.Set) {
        return false;
    }
    if (request.Set) {
        const std::size_t end = list.Size();
        list.Insert(request.Position < 0 ? end : std::min(static_cast<std::size_t>(request.Position), end),
                    request.Item);
        return true;
    }
    while (list.RemoveFirst(request.Item)) {
    }
    return true;
}

void CategoryLists::FinishTagRequests() {
    ITagMirror* mirror = Store.Tags();
    if (mirror != nullptr && LastApplied > LastFinished && Succeeded(mirror->FinishRequests(LastApplied))) {
        LastFinished = LastApplied;
    }
}

std::vector<AppointmentData> LoadAndPrune(CategoryList& list, OutlookSession& store) {
    const CategoryList::ReportOnce once(list);
    const StoreReading reading(store);
    std::vector<AppointmentData> records;
    for (std::size_t index = 0; index < list.Size();) {
        AppointmentData record;
        if (store.LoadAppointment(list.At(index), record) != 0) {
            records.push_back(std::move(record));
            ++index;
        } else if (store.LastStoreResult == Status::NotFound) {
            list.RemoveAt(index);
        } else {
            ++index; // A store that cannot answer now says nothing about the appointment.
        }
    }
    return records;
}

} // namespace tavo
