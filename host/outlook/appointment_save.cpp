// Saving and deleting: an item of its own, or one occurrence of a series as an exception to its rule.
#include "host/outlook/appointment.h"
#include "host/outlook/change_names.h"
#include "host/rules/save_rules.h"

#include <algorithm>

namespace tavo::outlook {

namespace {

constexpr PutSet kPutOfOccurrence = kPutStart | kPutEnd | kPutSubject | kPutLocation;

Status StatusFromFault(SaveFault fault) {
    if (fault == SaveFault::None) {
        return Status::Ok;
    }
    return fault == SaveFault::InkTooLarge || fault == SaveFault::TextTooLong ? Status::TooLarge
                                                                              : Status::InvalidArgument;
}

} // namespace

Status Appointment::Save() {
    ItemDraft* draft = nullptr;
    if (const Status status = Load(draft); Failed(status)) {
        return status;
    }
    if (Line.Item == 0) {
        return SaveNew(*draft);
    }
    return IsOccurrence() ? SaveOccurrence(*draft) : SaveChanges(*draft);
}

Status Appointment::SaveNew(ItemDraft& draft) {
    StoreCore& core = Owner->Core;
    StoredItem item;
    draft.MergeInto(item, core.Zones);
    if (const SaveFault fault = CheckAndDerive(item); fault != SaveFault::None) {
        return StatusFromFault(fault);
    }
    std::string fault;
    const Status status = core.RunChange(kNameOfNew, [&] { return core.CreateItem(item, 0, fault); });
    if (Succeeded(status)) {
        Line.Item = item.Item;
        Line.Kind = item.IsRecurring() ? EntryKind::Series : EntryKind::Plain;
        item.Ink.clear(); // from now on read from the store when asked for
        draft = ItemDraft(std::move(item));
    }
    return status;
}

Status Appointment::SaveChanges(ItemDraft& draft) {
    StoreCore& core = Owner->Core;
    const Ink ink = (draft.Put & kPutInk) != 0 ? Ink::Take : Ink::Leave;
    StoredItem item;
    const Status status = core.RunChange(kNameOfChange, [&] {
        StoredItem before;
        Status steps = core.Items.Read(Line.Item, Ink::Leave, before);
        if (Failed(steps)) {
            return steps;
        }
        item = before;
        draft.MergeInto(item, core.Zones);
        SaveFault fault = CheckAndDerive(item);
        if (fault == SaveFault::None && FinishMerge(before, item, core.Zones)) {
            fault = CheckAndDerive(item);
        }
        if (fault != SaveFault::None) {
            return StatusFromFault(fault);
        }
        if (item == before && ink == Ink::Leave) {
            return Status::Ok; // nothing to write, nothing to take back
        }
        std::int64_t source = 0;
        std::string reason;
        steps = core.Items.ReadSource(Line.Item, source);
        return Succeeded(steps) ? core.ChangeItem(before, item, ink, source, reason) : steps;
    });
    if (Succeeded(status)) {
        Line.Kind = item.IsRecurring() ? EntryKind::Series : EntryKind::Plain;
        item.Ink.clear();
        draft = ItemDraft(std::move(item));
    }
    return status;
}

// Puts one exception in place of whatever the series has for this occurrence.
Status Appointment::WriteException(const std::function<void(StoredException&, const StoredItem&)>& set) {
    StoreCore& core = Owner->Core;
    return core.RunChange(kNameOfChange, [&] {
        StoredItem before;
        Status steps = core.Items.Read(Line.Item, Ink::Leave, before);
        if (Failed(steps)) {
            return steps;
        }
        if (!before.IsRecurring()) {
            return Status::NotFound;
        }
        StoredItem item = before;
        auto place = std::find_if(item.Exceptions.begin(), item.Exceptions.end(),
                                  [this](const StoredException& one) { return one.Original == Line.Original; });
        if (place == item.Exceptions.end()) {
            place = item.Exceptions.emplace(place);
            place->Original = Line.Original;
        }
        set(*place, before);
        if (const SaveFault fault = CheckAndDerive(item); fault != SaveFault::None) {
            return StatusFromFault(fault);
        }
        std::int64_t source = 0;
        std::string reason;
        steps = core.Items.ReadSource(Line.Item, source);
        return Succeeded(steps) ? core.ChangeItem(before, item, Ink::Leave, source, reason) : steps;
    });
}

Status Appointment::SaveOccurrence(ItemDraft& draft) {
    if ((draft.Put & ~kPutOfOccurrence) != 0) {
        return Status::InvalidArgument; // the rest belongs to the series
    }
    if (draft.Put == 0) {
        return Status::Ok;
    }
    StoreCore& core = Owner->Core;
    const Status status = WriteException([&](StoredException& exception, const StoredItem& series) {
        const ZoneRules* zone = series.Zone.empty() ? nullptr : core.Zones.RulesByName(series.Zone);
        exception.Kind = ExceptionKind::Moved;
        exception.Start = core.Zones.FromWall(zone, draft.Item.Start);
        exception.End = core.Zones.FromWall(zone, draft.Item.End);
        if ((draft.Put & kPutSubject) != 0) {
            exception.Subject = draft.Item.Subject;
        }
        if ((draft.Put & kPutLocation) != 0) {
            exception.Location = draft.Item.Location;
        }
    });
    if (Succeeded(status)) {
        Line.Kind = EntryKind::Moved;
        Line.Start = draft.Item.Start;
        Line.SetLength(draft.Item.End - draft.Item.Start);
        draft.Put = 0;
    }
    return status;
}

Status Appointment::CancelOccurrence() {
    const Status status = WriteException([](StoredException& exception, const StoredItem&) {
        exception = {exception.Original, ExceptionKind::Cancelled, 0, 0, std::nullopt, std::nullopt, "",
                     exception.Source};
    });
    if (Succeeded(status)) {
        Owner->Core.TellCancelled(Line.Item, Line.Original);
    }
    return status;
}

Status Appointment::Delete() {
    if (Line.Item == 0) {
        return Status::NotFound;
    }
    if (IsOccurrence()) {
        return CancelOccurrence();
    }
    StoreCore& core = Owner->Core;
    return core.RunChange(kNameOfDeletion, [&] { return core.DeleteItem(Line.Item); });
}

} // namespace tavo::outlook
