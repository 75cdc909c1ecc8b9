// The open store's inside: one connection, its tables, and the group of changes that is under way.
#pragma once

#include "host/outlook/database.h"
#include "host/outlook/item_table.h"
#include "host/outlook/journal.h"
#include "host/outlook/series_cache.h"
#include "host/outlook/store_file.h"
#include "host/outlook/tag_mirror.h"
#include "host/outlook/zone_cache.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace tavo::outlook {

// Told of what goes, so that a collection can close the gap.
class IDeletionListener {
  public:
    virtual ~IDeletionListener() = default;
    virtual void OnItemDeleted(Oid oid) = 0;
    virtual void OnOccurrenceCancelled(Oid oid, Seconds original) = 0;
};

// The group that is being taken back, newest change first.
struct UndoWork {
    std::int64_t Group = 0;
    std::int64_t Step = Journal::kNewestStep;
    std::optional<JournalChange> Change; // what is left of the one under way
    std::vector<Oid> Restored;           // in the order in which they were touched first
    std::unordered_set<Oid> Known;       // the same
    bool IsAtEnd = false;
    bool IsBroken = false;
};

class StoreCore {
  public:
    explicit StoreCore(rules::IZoneSource& zones)
        : Zones(Db, zones), Items(Db, Zones), Changes(Db), Tags(*this), Series(Db) {}

    ~StoreCore();
    StoreCore(const StoreCore&) = delete;
    StoreCore& operator=(const StoreCore&) = delete;

    // Groups do not nest: Unexpected. An undo in steps ends in the same way.
    Status BeginGroup(std::u16string_view name);
    Status EndGroup();
    Status AbandonGroup();

    // A group, or an undo in steps.
    bool HasBegun() const { return GroupOpen || TakingBack; }

    bool InGroup() const { return GroupOpen; }

    // Runs a change as part of the open group or as a group of its own; a failure leaves nothing of it.
    Status RunChange(std::u16string_view name, const std::function<Status()>& change);

    // Parts of changes, only within a group. The item must have passed CheckAndDerive.
    Status CreateItem(StoredItem& item, std::int64_t source, std::string& fault);
    // `before` is what the tables hold now; its note is journaled when `ink` takes the note.
    Status ChangeItem(const StoredItem& before, StoredItem& item, Ink ink, std::int64_t source, std::string& fault);
    Status DeleteItem(Oid oid);
    // Makes an item that was deleted again, under its number.
    Status BringBack(ItemImage& image);
    // A wish that it stand in a list of kinds again, or not any more.
    Status WishTagBack(Oid oid, TagPlace place, bool set);
    Status NoteTag(ChangeKind kind, Oid oid, TagPlace place);

    void NoteRequest() { RequestsAdded = true; }

    // Between them one transaction for reading, unless there is one anyway. Each that was begun must be ended, also
    // when a change has ended the transaction.
    Status BeginReading();
    Status EndReading();

    Status GetUndoName(std::u16string& name);
    Status Undo(std::vector<Oid>& restored);
    Status BeginUndo(std::int32_t& steps);
    Status StepUndo();
    Status AddNote(std::span<const std::uint8_t> note);
    Status GetUndoNotes(std::vector<std::vector<std::uint8_t>>& notes);

    // Runs statements in a transaction that is no group: the tag mirror, a change of zone.
    Status RunQuietly(const std::function<Status()>& work);
    Status SetDeviceZone(const std::string& name);

    void AddListener(IDeletionListener* listener);
    void RemoveListener(IDeletionListener* listener);
    void TellCancelled(Oid oid, Seconds original);

    // Room for the lines of a listing, empty. What a listing gives back serves the next one: month after month is
    // listed, and new memory has to be cleared and taken page by page.
    std::vector<Entry> LendRoom() { return std::exchange(Room, {}); }

    void GiveRoomBack(std::vector<Entry> room);

    // See SeriesCache::FindTouching.
    Status FindSeriesTouching(Seconds from, Seconds to, std::span<const SeriesRow* const>& rows);

    // How often items, or the ledger, were changed by anybody since the store was made.
    Status ReadChangeCounts(std::int64_t& items, std::int64_t& ledger);
    // True once after another process changed items: compares the count with what this connection did itself. Follows
    // the device into another zone, if that was the change.
    bool TakeForeignItemChange();

    std::filesystem::path Path;
    std::optional<OpenFileMark> OpenMark; // outlives the connection
    bool CanWrite = true;
    Database Db;
    ZoneCache Zones;
    ItemTable Items;
    Journal Changes;
    TagMirror Tags;

  private:
    Status CommitGroup();
    Status BeginTransaction();
    Status StopReading();
    void ResetGroup();
    void TakeStoredZone();
    Status ReadStoredZone(std::string& stored);
    Status TakeOid(Oid& oid);
    Status SaveNextOid();
    Status CountItemChange();
    Status FindGroupToUndo(std::int32_t& steps);
    Status EndUndo();
    Status AbandonUndo();
    Status FinishChange();
    Status UndoChange();
    Status UndoCreated(Oid oid);
    Status RestoreImage(const JournalChange& change);
    Status UndoTag(const JournalChange& change);
    Status PutImage(ItemImage& image);
    void NoteRestored(Oid oid);

    SeriesCache Series;
    std::vector<Entry> Room;
    std::int64_t OwnChanges = 0; // of items, also when they are taken back
    bool GroupOpen = false;
    int Readings = 0;         // that were begun and not ended
    bool ReadingOpen = false; // with a transaction of their own
    bool RequestsAdded = false;
    std::int64_t NextOid = 0;      // 0: not read in this group
    std::int64_t NextOidFloor = 1; // what a group that was taken back had given out is not given out again
    std::int64_t KnownItemCount = -1;
    bool ForeignChange = false;
    std::vector<Oid> Deleted; // in this group
    std::optional<UndoWork> TakingBack;
    // Tags that the program took away just before it deletes their item in a group of its own.
    std::vector<std::pair<Oid, TagPlace>> JustUntagged;
    std::vector<IDeletionListener*> Listeners;
};

class Store;

// Of an open store, for as long as that is open.
StoreCore& CoreOf(const Store& store);

} // namespace tavo::outlook
