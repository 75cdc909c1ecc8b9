// Taking back the newest group of changes.
#include "host/outlook/store_core.h"

#include <algorithm>

namespace tavo::outlook {

namespace {

void AddOnce(std::vector<Oid>& oids, Oid oid) {
    if (std::find(oids.begin(), oids.end(), oid) == oids.end()) {
        oids.push_back(oid);
    }
}

} // namespace

Status StoreCore::GetUndoName(std::u16string& name) {
    std::int64_t group = 0;
    const Status status = Changes.FindUndoable(group, name);
    return Succeeded(status) && group == 0 ? Status::NotFound : status;
}

Status StoreCore::WishTagBack(Oid oid, TagPlace place, bool set) {
    TagRequest request;
    request.List = place.List;
    request.Item = oid;
    request.Set = set;
    request.Position = set ? place.Position : -1;
    return Tags.AddRequest(request);
}

Status StoreCore::UndoCreated(const JournalChange& change, std::vector<Oid>& restored) {
    for (Oid oid = change.Last; oid >= change.First && oid > 0; --oid) {
        const Status status = Items.Remove(oid);
        if (Failed(status) && status != Status::NotFound) {
            return status;
        }
        if (Succeeded(status)) {
            restored.push_back(oid);
            for (IDeletionListener* listener : Listeners) {
                listener->OnItemDeleted(oid);
            }
        }
    }
    return Status::Ok;
}

Status StoreCore::RestoreImage(const JournalChange& change, std::vector<Oid>& restored) {
    ItemImage image;
    if (!DecodeImage(change.Image, image) || image.Item.Item != change.First) {
        return Status::Corrupt;
    }
    StoredItem& item = image.Item;
    if (!item.Uid.empty()) {
        Oid holder = 0;
        std::int64_t source = 0;
        if (const Status status = Items.FindByUid(item.Uid, holder, source); Failed(status)) {
            return status;
        }
        if (holder != 0 && holder != item.Item) {
            item.Uid.clear(); // it came anew in the meantime
        }
    }
    std::string fault;
    Status status = Items.Exists(item.Item)
                        ? Items.Update(item, image.HasInk ? Ink::Take : Ink::Leave, image.Source, fault)
                        : Items.Insert(item, image.Source, fault);
    for (const TagPlace& place : image.Tags) {
        if (Succeeded(status)) {
            status = WishTagBack(item.Item, place, true);
        }
    }
    AddOnce(restored, item.Item);
    return status;
}

Status StoreCore::UndoTag(const JournalChange& change, std::vector<Oid>& restored) {
    TagPlace place;
    if (!DecodeTag(change.Image, place)) {
        return Status::Corrupt;
    }
    AddOnce(restored, change.First);
    return WishTagBack(change.First, place, change.Kind == ChangeKind::TagRemoved);
}

Status StoreCore::UndoChange(const JournalChange& change, std::vector<Oid>& restored) {
    switch (change.Kind) {
    case ChangeKind::Created:
        return UndoCreated(change, restored);
    case ChangeKind::Changed:
    case ChangeKind::Deleted:
        return RestoreImage(change, restored);
    case ChangeKind::TagInserted:
    case ChangeKind::TagRemoved:
        return UndoTag(change, restored);
    }
    return Status::Corrupt;
}

Status StoreCore::Undo(std::vector<Oid>& restored) {
    restored.clear();
    if (GroupOpen) {
        return Status::Unexpected;
    }
    const std::int64_t knownBefore = KnownItemCount;
    const Status status = RunQuietly([&] {
        std::int64_t group = 0;
        std::u16string name;
        Status steps = Changes.FindUndoable(group, name);
        if (Succeeded(steps) && group == 0) {
            return Status::NotFound;
        }
        std::int64_t step = Journal::kNewestStep;
        std::optional<JournalChange> change;
        while (Succeeded(steps)) {
            steps = Changes.ReadChangeBefore(group, step, change);
            if (Failed(steps) || !change) {
                break;
            }
            steps = UndoChange(*change, restored);
        }
        if (Succeeded(steps)) {
            steps = Changes.MarkUndone(group);
        }
        return Succeeded(steps) ? CountItemChange() : steps;
    });
    if (Failed(status)) {
        restored.clear();
        KnownItemCount = knownBefore;
        Zones.Forget();
    }
    JustUntagged.clear();
    return status;
}

} // namespace tavo::outlook
