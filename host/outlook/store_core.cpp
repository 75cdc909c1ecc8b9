// Groups of changes: one transaction, one step of undo.
#include "host/outlook/store_core.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <utility>

namespace tavo::outlook {

namespace {

constexpr const char* kReckoning = "2";  // raised when the times of the same item are worked out in another way
constexpr std::size_t kMostRoom = 32768; // lines of a listing: a megabyte

// Without memory a change ends like any that fails: nothing of it stays.
Status RunGuarded(const std::function<Status()>& change) {
    try {
        return change();
    } catch (const std::exception&) {
        return Status::OutOfMemory; // the store throws nothing of its own
    }
}

} // namespace

StoreCore::~StoreCore() {
    if (HasBegun()) {
        static_cast<void>(AbandonGroup()); // nobody is left to hear of a failure
    }
}

Status StoreCore::BeginGroup(std::u16string_view name) {
    if (HasBegun()) {
        return Status::Unexpected;
    }
    if (!CanWrite) {
        return Status::AccessDenied;
    }
    if (const Status status = BeginTransaction(); Failed(status)) {
        return status;
    }
    TakeStoredZone(); // the news of another one may still be on its way
    ResetGroup();
    GroupOpen = true;
    Changes.OpenGroup(name);
    return Status::Ok;
}

Status StoreCore::BeginTransaction() {
    const Status status = StopReading();
    return Succeeded(status) ? Db.Run("BEGIN IMMEDIATE") : status;
}

Status StoreCore::BeginReading() {
    if (Readings++ > 0 || Db.InTransaction()) {
        return Status::Ok;
    }
    const Status status = Query(Db, "BEGIN").Finish();
    ReadingOpen = Succeeded(status);
    Readings = ReadingOpen ? 1 : 0;
    return status;
}

Status StoreCore::EndReading() {
    if (Readings == 0) {
        return Status::Unexpected;
    }
    return --Readings == 0 ? StopReading() : Status::Ok;
}

Status StoreCore::StopReading() {
    return std::exchange(ReadingOpen, false) ? Query(Db, "COMMIT").Finish() : Status::Ok;
}

void StoreCore::ResetGroup() {
    GroupOpen = false;
    RequestsAdded = false;
    NextOid = 0;
    Deleted.clear();
}

Status StoreCore::CountItemChange() {
    Query read(Db, "SELECT count FROM change_count WHERE kind = 'items'");
    if (!read.Next()) {
        return Failed(read.Result()) ? read.Result() : Status::Corrupt;
    }
    const std::int64_t count = read.Integer(0);
    ForeignChange = ForeignChange || (KnownItemCount >= 0 && count != KnownItemCount);
    Query write(Db, "UPDATE change_count SET count = ? WHERE kind = 'items'");
    const Status status = write.Bind(count + 1).Finish();
    if (Succeeded(status)) {
        KnownItemCount = count + 1;
    }
    return status;
}

Status StoreCore::CommitGroup() {
    Status status = Status::Ok;
    if (Changes.HasChanges()) {
        status = Changes.CloseGroup();
    }
    if (Succeeded(status) && (Changes.HasChanges() || RequestsAdded)) {
        status = CountItemChange();
    }
    if (Succeeded(status)) {
        status = SaveNextOid();
    }
    return Succeeded(status) ? Db.Run("COMMIT") : status;
}

Status StoreCore::EndGroup() {
    if (TakingBack) {
        return EndUndo();
    }
    if (!GroupOpen) {
        return Status::Unexpected;
    }
    // SQLite takes the whole transaction back by itself when, for example, the disk is full.
    const std::int64_t knownBefore = KnownItemCount;
    const Status status = Db.InTransaction() ? CommitGroup() : Status::Fail;
    if (Failed(status)) {
        KnownItemCount = knownBefore;
        static_cast<void>(AbandonGroup()); // the failure of the commit is the one to report
        return status;
    }
    JustUntagged.clear();
    ResetGroup();
    return Status::Ok;
}

Status StoreCore::AbandonGroup() {
    if (TakingBack) {
        return AbandonUndo();
    }
    if (!GroupOpen) {
        return Status::Unexpected;
    }
    NextOidFloor = std::max(NextOidFloor, NextOid);
    ++OwnChanges;
    ResetGroup();
    Zones.Forget();
    return Db.InTransaction() ? Db.Run("ROLLBACK") : Status::Ok;
}

Status StoreCore::RunChange(std::u16string_view name, const std::function<Status()>& change) {
    const bool alone = !GroupOpen;
    if (alone) {
        if (const Status status = BeginGroup(name); Failed(status)) {
            return status;
        }
    } else if (!Db.InTransaction()) {
        return Status::Fail; // the group broke earlier; only End or Abandon is left
    }
    const Journal::Mark mark = Changes.SetMark();
    Status status = Db.Run("SAVEPOINT change");
    if (Succeeded(status)) {
        status = RunGuarded(change);
    }
    if (Failed(status)) {
        ++OwnChanges;
        if (alone) {
            static_cast<void>(AbandonGroup()); // the change's own failure is the one to report
        } else if (Db.InTransaction()) {
            static_cast<void>(Db.Run("ROLLBACK TO change; RELEASE change")); // likewise
            Changes.GoBackTo(mark);
        }
        return status;
    }
    status = Db.Run("RELEASE change");
    return alone && Succeeded(status) ? EndGroup() : status;
}

Status StoreCore::RunQuietly(const std::function<Status()>& work) {
    ++OwnChanges;
    if (!CanWrite) {
        return Status::AccessDenied;
    }
    const bool alone = ReadingOpen || !Db.InTransaction();
    if (alone) {
        if (const Status status = BeginTransaction(); Failed(status)) {
            return status;
        }
    }
    Status status = RunGuarded(work);
    if (alone && Succeeded(status)) {
        const Status committed = Db.Run("COMMIT");
        status = Failed(committed) ? committed : status;
    }
    if (alone && Failed(status) && Db.InTransaction()) {
        static_cast<void>(Db.Run("ROLLBACK")); // the first failure is the one to report
    }
    return status;
}

Status StoreCore::TakeOid(Oid& oid) {
    if (NextOid == 0) {
        Query query(Db, "SELECT value FROM setting WHERE name = 'next_oid'");
        if (!query.Next()) {
            return Failed(query.Result()) ? query.Result() : Status::Corrupt;
        }
        NextOid = std::max(query.Integer(0), NextOidFloor);
    }
    if (NextOid < 1 || NextOid > std::numeric_limits<Oid>::max()) {
        return Status::TooLarge;
    }
    oid = static_cast<Oid>(NextOid++);
    return Status::Ok;
}

Status StoreCore::SaveNextOid() {
    if (NextOid == 0) {
        return Status::Ok;
    }
    Query query(Db, "UPDATE setting SET value = ? WHERE name = 'next_oid'");
    return query.Bind(NextOid).Finish();
}

Status StoreCore::CreateItem(StoredItem& item, std::int64_t source, std::string& fault) {
    ++OwnChanges;
    Status status = TakeOid(item.Item);
    if (Succeeded(status)) {
        status = Items.Insert(item, source, fault);
    }
    if (Succeeded(status)) {
        status = Changes.NoteCreated(item.Item);
    } else {
        item.Item = 0;
    }
    return status;
}

Status StoreCore::ChangeItem(const StoredItem& before, StoredItem& item, Ink ink, std::int64_t source,
                             std::string& fault) {
    ++OwnChanges;
    ItemImage image;
    image.Item = before;
    image.HasInk = ink == Ink::Take;
    Status status = Items.ReadSource(before.Item, image.Source);
    if (Succeeded(status) && image.HasInk) {
        status = Items.ReadInk(before.Item, image.Item.Ink);
    }
    if (Succeeded(status)) {
        status = Items.Update(item, ink, source, fault);
    }
    return Succeeded(status) ? Changes.NoteImage(ChangeKind::Changed, image) : status;
}

Status StoreCore::DeleteItem(Oid oid) {
    ++OwnChanges;
    ItemImage image;
    image.HasInk = true;
    Status status = Items.Read(oid, Ink::Take, image.Item);
    if (Succeeded(status)) {
        status = Items.ReadSource(oid, image.Source);
    }
    if (Succeeded(status)) {
        status = Tags.FindPlaces(oid, image.Tags);
    }
    for (const auto& [untagged, place] : JustUntagged) {
        if (untagged == oid) {
            image.Tags.push_back(place);
        }
    }
    if (Succeeded(status)) {
        status = Changes.NoteImage(ChangeKind::Deleted, image);
    }
    if (Succeeded(status)) {
        status = Items.Remove(oid);
    }
    if (Succeeded(status)) {
        for (IDeletionListener* listener : Listeners) {
            listener->OnItemDeleted(oid);
        }
    }
    return status;
}

Status StoreCore::NoteTag(ChangeKind kind, Oid oid, TagPlace place) {
    if (GroupOpen) {
        return Changes.NoteTag(kind, oid, place);
    }
    if (kind == ChangeKind::TagRemoved) {
        JustUntagged.emplace_back(oid, place);
    }
    return Status::Ok;
}

void StoreCore::AddListener(IDeletionListener* listener) {
    Listeners.push_back(listener);
}

void StoreCore::RemoveListener(IDeletionListener* listener) {
    std::erase(Listeners, listener);
}

void StoreCore::TellCancelled(Oid oid, Seconds original) {
    for (IDeletionListener* listener : Listeners) {
        listener->OnOccurrenceCancelled(oid, original);
    }
}

void StoreCore::GiveRoomBack(std::vector<Entry> room) {
    if (room.capacity() > Room.capacity() && room.capacity() <= kMostRoom) {
        room.clear();
        Room = std::move(room);
    }
}

Status StoreCore::FindSeriesTouching(Seconds from, Seconds to, std::span<const SeriesRow* const>& rows) {
    SeriesState state{0, OwnChanges};
    std::int64_t ledger = 0;
    const Status status = ReadChangeCounts(state.ItemChanges, ledger);
    return Succeeded(status) ? Series.FindTouching(state, from, to, rows) : status;
}

Status StoreCore::ReadChangeCounts(std::int64_t& items, std::int64_t& ledger) {
    Query query(Db, "SELECT kind, count FROM change_count");
    while (query.Next()) {
        (query.Text(0) == "items" ? items : ledger) = query.Integer(1);
    }
    return query.Result();
}

bool StoreCore::TakeForeignItemChange() {
    std::int64_t items = KnownItemCount;
    std::int64_t ledger = 0;
    if (Failed(ReadChangeCounts(items, ledger))) {
        return false; // the next notification asks again
    }
    const bool changed = ForeignChange || (KnownItemCount >= 0 && items != KnownItemCount);
    ForeignChange = false;
    KnownItemCount = items;
    if (changed) {
        TakeStoredZone();
    }
    return changed;
}

// Another process may have taken the device into another zone: from then on the times in the store are that one's.
void StoreCore::TakeStoredZone() {
    std::string stored;
    if (Failed(ReadStoredZone(stored))) {
        return; // the next change asks again
    }
    const std::string name = stored.substr(0, stored.find(' '));
    if (!name.empty() && name != Zones.DeviceName() && Zones.SetDevice(name)) {
        ++OwnChanges; // what was worked out in the old zone is not right any more
    }
}

Status StoreCore::ReadStoredZone(std::string& stored) {
    Query query(Db, "SELECT value FROM setting WHERE name = 'device_zone'");
    stored = query.Next() ? query.Text(0) : std::string_view();
    return query.Result();
}

Status StoreCore::SetDeviceZone(const std::string& name) {
    const std::string before = Zones.DeviceName();
    if (!Zones.SetDevice(name)) {
        return Status::InvalidArgument;
    }
    const std::string mark = name + " " + Zones.GetSource().GetRelease() + " " + kReckoning;
    std::string stored;
    if (const Status status = ReadStoredZone(stored); Failed(status)) {
        return status;
    }
    if (stored == mark) {
        return Status::Ok;
    }
    if (!CanWrite) {
        // A reader lives in the zone for which the last writer left the times.
        static_cast<void>(
            Zones.SetDevice(stored.substr(0, stored.find(' ')))); // one that is gone by now leaves the reader's own
        return Status::Ok;
    }
    const Status status = RunQuietly([&] {
        Status steps = Items.Rederive();
        if (Succeeded(steps)) {
            Query keep(Db, "UPDATE setting SET value = ? WHERE name = 'device_zone'");
            steps = keep.Bind(mark).Finish();
        }
        return Succeeded(steps) ? CountItemChange() : steps;
    });
    if (Failed(status)) {
        static_cast<void>(Zones.SetDevice(before)); // it was set before, so it can be set again
    }
    return status;
}

} // namespace tavo::outlook
