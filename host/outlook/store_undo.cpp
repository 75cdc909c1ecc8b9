// Taking back the newest group of changes.
#include "host/outlook/store_core.h"

#include <utility>

namespace tavo::outlook {

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

void StoreCore::NoteRestored(Oid oid) {
    if (TakingBack->Known.insert(oid).second) {
        TakingBack->Restored.push_back(oid);
    }
}

Status StoreCore::UndoCreated(Oid oid) {
    const Status status = Items.Remove(oid);
    if (Succeeded(status)) {
        NoteRestored(oid);
        for (IDeletionListener* listener : Listeners) {
            listener->OnItemDeleted(oid);
        }
    }
    return status == Status::NotFound ? Status::Ok : status;
}

Status StoreCore::PutImage(ItemImage& image) {
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
    return Items.Exists(item.Item) ? Items.Update(item, image.HasInk ? Ink::Take : Ink::Leave, image.Source, fault)
                                   : Items.Insert(item, image.Source, fault);
}

Status StoreCore::BringBack(ItemImage& image) {
    ++OwnChanges;
    const Status status = PutImage(image);
    return Succeeded(status) ? Changes.NoteCreated(image.Item.Item) : status;
}

Status StoreCore::RestoreImage(const JournalChange& change) {
    ItemImage image;
    if (!DecodeImage(change.Image, image) || image.Item.Item != change.First) {
        return Status::Corrupt;
    }
    Status status = PutImage(image);
    for (const TagPlace& place : image.Tags) {
        if (Succeeded(status)) {
            status = WishTagBack(image.Item.Item, place, true);
        }
    }
    NoteRestored(image.Item.Item);
    return status;
}

Status StoreCore::UndoTag(const JournalChange& change) {
    TagPlace place;
    if (!DecodeTag(change.Image, place)) {
        return Status::Corrupt;
    }
    NoteRestored(change.First);
    return WishTagBack(change.First, place, change.Kind == ChangeKind::TagRemoved);
}

// Of a run of created items, one.
Status StoreCore::UndoChange() {
    JournalChange& change = *TakingBack->Change;
    switch (change.Kind) {
    case ChangeKind::Created:
        return UndoCreated(change.Last--);
    case ChangeKind::Changed:
    case ChangeKind::Deleted:
        return RestoreImage(change);
    case ChangeKind::TagInserted:
    case ChangeKind::TagRemoved:
        return UndoTag(change);
    case ChangeKind::Note:
        break; // never read as a change
    }
    return Status::Corrupt;
}

Status StoreCore::AddNote(std::span<const std::uint8_t> note) {
    if (!GroupOpen) {
        return Status::Unexpected;
    }
    return Db.InTransaction() ? Changes.AddNote(note) : Status::Fail; // the group broke earlier
}

Status StoreCore::GetUndoNotes(std::vector<std::vector<std::uint8_t>>& notes) {
    std::int64_t group = 0;
    std::u16string name;
    const Status status = Changes.FindUndoable(group, name);
    if (Failed(status)) {
        return status;
    }
    return group == 0 ? Status::NotFound : Changes.ReadNotes(group, notes);
}

// There is no way forward again: its picture is of no more use.
Status StoreCore::FinishChange() {
    const JournalChange& change = *TakingBack->Change;
    if (change.Kind == ChangeKind::Created && change.Last >= change.First) {
        return Status::Ok;
    }
    TakingBack->Change.reset();
    return Changes.DropChange(TakingBack->Group, TakingBack->Step);
}

Status StoreCore::FindGroupToUndo(std::int32_t& steps) {
    std::u16string name;
    Status status = Changes.FindUndoable(TakingBack->Group, name);
    if (Succeeded(status) && TakingBack->Group == 0) {
        return Status::NotFound;
    }
    return Succeeded(status) ? Changes.CountSteps(TakingBack->Group, steps) : status;
}

Status StoreCore::BeginUndo(std::int32_t& steps) {
    steps = 0;
    if (HasBegun()) {
        return Status::Unexpected;
    }
    if (!CanWrite) {
        return Status::AccessDenied;
    }
    if (const Status status = BeginTransaction(); Failed(status)) {
        return status;
    }
    TakeStoredZone(); // what comes back is written with the times of the zone in which the device is now
    TakingBack.emplace();
    const Status status = FindGroupToUndo(steps);
    if (Failed(status)) {
        static_cast<void>(AbandonUndo()); // why there is nothing to take back is what counts
    }
    return status;
}

Status StoreCore::StepUndo() {
    if (!TakingBack) {
        return Status::Unexpected;
    }
    if (TakingBack->IsBroken || !Db.InTransaction()) {
        return Status::Fail; // only Abandon is left
    }
    if (TakingBack->IsAtEnd) {
        return Status::False; // asked again for each note that is brought back
    }
    ++OwnChanges;
    Status status = Status::Ok;
    if (!TakingBack->Change) {
        status = Changes.ReadChangeBefore(TakingBack->Group, TakingBack->Step, TakingBack->Change);
        if (Succeeded(status) && !TakingBack->Change) {
            TakingBack->IsAtEnd = true;
            return Status::False;
        }
    }
    if (Succeeded(status)) {
        status = UndoChange();
    }
    if (Succeeded(status)) {
        status = FinishChange();
    }
    TakingBack->IsBroken = Failed(status);
    return status;
}

Status StoreCore::EndUndo() {
    if (!TakingBack->IsAtEnd || !Db.InTransaction()) {
        static_cast<void>(AbandonUndo()); // half of a group is not taken back
        return Status::Fail;
    }
    const std::int64_t knownBefore = KnownItemCount;
    Status status = Changes.MarkUndone(TakingBack->Group);
    if (Succeeded(status)) {
        status = CountItemChange();
    }
    if (Succeeded(status)) {
        status = Db.Run("COMMIT");
    }
    if (Failed(status)) {
        KnownItemCount = knownBefore;
        static_cast<void>(AbandonUndo()); // the failure of the commit is the one to report
        return status;
    }
    TakingBack.reset();
    JustUntagged.clear();
    return status;
}

Status StoreCore::AbandonUndo() {
    TakingBack.reset();
    ++OwnChanges;
    JustUntagged.clear();
    Zones.Forget();
    return Db.InTransaction() ? Db.Run("ROLLBACK") : Status::Ok;
}

Status StoreCore::Undo(std::vector<Oid>& restored) {
    restored.clear();
    std::int32_t steps = 0;
    Status status = BeginUndo(steps);
    if (Failed(status)) {
        return status;
    }
    do {
        status = StepUndo();
    } while (status == Status::Ok);
    if (Failed(status)) {
        static_cast<void>(AbandonUndo()); // the failure of the step is the one to report
        return status;
    }
    std::vector<Oid> touched = std::move(TakingBack->Restored);
    status = EndUndo();
    if (Succeeded(status)) {
        restored = std::move(touched);
    }
    return status;
}

} // namespace tavo::outlook
