// Imports: one transaction, each item looked up by its UID.
#include "host/outlook/import_writer.h"

#include "host/outlook/fresh_uids.h"
#include "host/outlook/offered_exceptions.h"
#include "host/outlook/own_uid.h"
#include "host/outlook/store_core.h"
#include "host/rules/item_draft.h"
#include "host/rules/save_rules.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace tavo::outlook {

struct ImportWriter::Work {
    explicit Work(StorePtr store) : Source(std::move(store)), Core(CoreOf(*Source)), Exceptions(Core) {}

    StorePtr Source;
    StoreCore& Core;
    bool Begun = false;
    OwnUids Own{0}; // of the store
    FreshUids Fresh;
    std::map<std::string, std::string> ZoneNames; // of this calendar, to those of the store
    OfferedExceptions Exceptions;

    struct TagChange {
        ChangeKind Kind = ChangeKind::TagInserted;
        Oid Item = 0;
        TagPlace Place;
    };

    std::vector<TagChange> TagChanges; // that undo takes back: noted at the end, so that new items stay a run

    // Results of an item that is in the store already, under `oid`.
    Status Replace(Oid oid, StoredItem& item, std::int64_t source, ImportOutcome& outcome);
    // 0 when no item has this UID.
    Status FindByUid(const std::string& uid, Oid& oid, std::int64_t& source);
    // The item that a UID of this store's exports names, without one of its own; 0 for any other.
    Oid FindOwn(const std::string& uid);
    bool HoldsAlready(Oid oid, const StoredItem& item);
    // Of one that an earlier program imported from the same file without the lines that mean nothing here.
    Status AddCarried(Oid oid, StoredItem& item, std::int64_t source, ImportOutcome& outcome);
    // Of one that is as it came last time.
    Status Keep(Oid oid, StoredItem& item, ImportOutcome& outcome);
    // Of an item that may be stored: makes it, or does to the one that is there what is left to do.
    Status Place(StoredItem& item, ImportOutcome& outcome);
};

namespace {

bool RecursAlike(const StoredItem& left, const StoredItem& right) {
    return left.Pattern == right.Pattern && left.ForeignRule == right.ForeignRule && left.Zone == right.Zone &&
           (left.Zone.empty() ? left.Start == right.Start : left.ZoneStart == right.ZoneStart);
}

StoredItem WithoutCarried(StoredItem item) {
    item.Carried.clear();
    for (StoredException& exception : item.Exceptions) {
        exception.Carried.clear();
    }
    return item;
}

} // namespace

ImportWriter::ImportWriter(StorePtr store) : State(std::make_unique<Work>(std::move(store))) {}

ImportWriter::~ImportWriter() {
    if (State->Begun) {
        static_cast<void>(Abandon()); // nobody is left to hear of a failure
    }
}

Status ImportWriter::Begin(std::u16string_view groupName) {
    const Status status = State->Core.BeginGroup(groupName);
    State->Begun = Succeeded(status);
    State->Own = OwnUids(State->Begun ? ReadStoreIdentity(State->Core.Db) : 0);
    State->Fresh.Begin(State->Core.Db);
    State->ZoneNames.clear();
    State->Exceptions.Begin();
    State->TagChanges.clear();
    return status;
}

std::unique_ptr<ZoneRules> ImportWriter::LoadZone(const std::string& name) const {
    return rules::LoadZone(State->Core.Zones.GetSource(), name);
}

Status ImportWriter::DefineZone(const std::string& name, const std::string& component) {
    if (!State->Begun) {
        return Status::Unexpected;
    }
    std::string stored;
    const Status status = State->Core.Zones.Define(name, component, stored);
    if (Succeeded(status)) {
        State->ZoneNames[name] = stored;
    }
    return status;
}

Status ImportWriter::Work::Replace(Oid oid, StoredItem& item, std::int64_t source, ImportOutcome& outcome) {
    StoredItem before;
    Status status = Core.Items.Read(oid, Ink::Leave, before);
    if (Failed(status)) {
        return status;
    }
    item.Item = oid;
    // Exceptions that come by themselves follow; until then they stay as they were. Those made here stay with their
    // rule.
    const bool sameRule = RecursAlike(before, item);
    std::set<Seconds> brought;
    for (const StoredException& exception : item.Exceptions) {
        brought.insert(exception.Original);
    }
    for (const StoredException& exception : before.Exceptions) {
        const bool again = brought.contains(exception.Original);
        const bool stays = CameByItself(exception) || (exception.Source == kMadeHere && sameRule);
        if (stays && !again && item.IsRecurring()) {
            item.Exceptions.push_back(exception);
        }
    }
    if (const SaveFault fault = CheckAndDerive(item); fault != SaveFault::None) {
        outcome = ImportOutcome::Refusal(DescribeFault(fault));
        return Status::Ok;
    }
    Exceptions.Expect(before);
    // A note that the import does not bring is not the import's to take away.
    status = Core.ChangeItem(before, item, item.Ink.empty() ? Ink::Leave : Ink::Take, source, outcome.Reason);
    outcome.Result = ImportResult::Changed;
    return status;
}

Status ImportWriter::Work::FindByUid(const std::string& uid, Oid& oid, std::int64_t& source) {
    oid = 0;
    return uid.empty() || !Fresh.MayHold(uid) ? Status::Ok : Core.Items.FindByUid(uid, oid, source);
}

Oid ImportWriter::Work::FindOwn(const std::string& uid) {
    const Oid oid = Own.Read(uid);
    if (oid == 0) {
        return 0;
    }
    Query query(Core.Db, "SELECT 1 FROM item WHERE oid = ? AND uid IS NULL");
    return query.Bind(oid).Next() ? oid : 0;
}

bool ImportWriter::Work::HoldsAlready(Oid oid, const StoredItem& item) {
    StoredItem stored;
    if (Failed(Core.Items.Read(oid, Ink::Take, stored))) {
        return false; // told by what reads it next
    }
    return FingerprintOf(stored) == FingerprintOf(item);
}

Status ImportWriter::Work::AddCarried(Oid oid, StoredItem& item, std::int64_t source, ImportOutcome& outcome) {
    StoredItem before;
    if (const Status status = Core.Items.Read(oid, Ink::Leave, before); Failed(status)) {
        return status;
    }
    Exceptions.Expect(before);
    StoredItem after = before;
    after.Carried = item.Carried;
    for (StoredException& exception : after.Exceptions) {
        const auto same =
            std::find_if(item.Exceptions.begin(), item.Exceptions.end(),
                         [&exception](const StoredException& one) { return one.Original == exception.Original; });
        if (same != item.Exceptions.end() && exception.Source == kCameInside) {
            exception.Carried = same->Carried;
        }
    }
    item.Item = oid;
    outcome.Result = ImportResult::Changed;
    return Core.ChangeItem(before, after, Ink::Leave, source, outcome.Reason);
}

Status ImportWriter::Work::Keep(Oid oid, StoredItem& item, ImportOutcome& outcome) {
    item.Item = oid;
    outcome.Result = ImportResult::Unchanged;
    if (!item.IsRecurring()) {
        return Status::Ok;
    }
    StoredItem stored;
    const Status status = Core.Items.Read(oid, Ink::Leave, stored);
    if (Succeeded(status)) {
        Exceptions.Expect(stored);
    }
    return status;
}

Status ImportWriter::Work::Place(StoredItem& item, ImportOutcome& outcome) {
    const std::int64_t fingerprint = FingerprintOf(item);
    std::int64_t source = 0;
    Oid oid = 0;
    Status status = FindByUid(item.Uid, oid, source);
    if (Succeeded(status) && oid != 0) {
        status = Exceptions.Close(oid);
    }
    if (Failed(status)) {
        return status;
    }
    if (const Oid own = oid == 0 && !item.Uid.empty() ? FindOwn(item.Uid) : 0; own != 0) {
        item.Uid.clear(); // it stays one that was made here
        outcome.Result = ImportResult::Unchanged;
        status = HoldsAlready(own, item) ? Status::Ok : Replace(own, item, kMadeHere, outcome);
        item.Item = own;
        return status;
    }
    if (oid == 0) {
        status = Core.CreateItem(item, fingerprint, outcome.Reason);
        Fresh.Add(item.Uid);
        outcome.Result = ImportResult::New;
        return status;
    }
    if (source == fingerprint) {
        return Keep(oid, item, outcome);
    }
    return CarriesLines(item) && source == FingerprintOf(WithoutCarried(item))
               ? AddCarried(oid, item, fingerprint, outcome)
               : Replace(oid, item, fingerprint, outcome);
}

Status ImportWriter::Write(StoredItem item, ImportOutcome& outcome) {
    outcome = ImportOutcome();
    if (!State->Begun) {
        return Status::Unexpected;
    }
    StoreCore& core = State->Core;
    item.Item = 0;
    if (const auto name = State->ZoneNames.find(item.Zone); name != State->ZoneNames.end()) {
        item.Zone = name->second;
    }
    if (const SaveFault fault = CheckAndDerive(item); fault != SaveFault::None) {
        outcome = ImportOutcome::Refusal(DescribeFault(fault));
        return Status::Ok;
    }
    if (const std::string fault = core.Items.Series().FindRuleFault(item); !fault.empty()) {
        outcome = ImportOutcome::Refusal(fault);
        return Status::Ok;
    }
    for (StoredException& exception : item.Exceptions) {
        exception.Source = kCameInside;
    }
    const Status status = State->Place(item, outcome);
    if (status == Status::InvalidArgument && !outcome.Reason.empty()) {
        outcome = ImportOutcome::Refusal(outcome.Reason);
        return Status::Ok;
    }
    if (outcome.Result != ImportResult::Refused) {
        outcome.Item = item.Item;
    }
    return status;
}

Status ImportWriter::WriteException(const std::string& uid, const StoredException& exception, ImportOutcome& outcome) {
    outcome = ImportOutcome();
    if (!State->Begun) {
        return Status::Unexpected;
    }
    Oid oid = 0;
    std::int64_t source = 0;
    const Status status = State->FindByUid(uid, oid, source);
    if (Failed(status)) {
        return status;
    }
    if (oid == 0) {
        outcome = ImportOutcome::Refusal(kNoSuchSeries);
        return Status::Ok;
    }
    return State->Exceptions.Put(oid, exception, outcome);
}

Status ImportWriter::RequestTag(TagList list, Oid item, TagWish wish) {
    if (!State->Begun) {
        return Status::Unexpected;
    }
    std::vector<TagPlace> places;
    const Status status = State->Core.Tags.FindPlaces(item, places);
    const bool stands =
        std::any_of(places.begin(), places.end(), [list](const TagPlace& place) { return place.List == list; });
    if (Failed(status) || stands == (wish == TagWish::Join)) {
        return status;
    }
    TagRequest request;
    request.List = list;
    request.Item = item;
    request.Set = wish == TagWish::Join;
    for (const TagPlace& place : places) {
        if (place.List == list) {
            State->TagChanges.push_back({ChangeKind::TagRemoved, item, place});
        }
    }
    if (wish == TagWish::Join) {
        State->TagChanges.push_back({ChangeKind::TagInserted, item, TagPlace{list, 0}});
    }
    return State->Core.Tags.AddRequest(request);
}

Status ImportWriter::ChangeRule(Oid oid, const StoredItem& rule, ImportOutcome& outcome) {
    outcome = ImportOutcome();
    if (!State->Begun) {
        return Status::Unexpected;
    }
    StoreCore& core = State->Core;
    StoredItem before;
    Status status = core.Items.Read(oid, Ink::Leave, before);
    if (Failed(status)) {
        return status;
    }
    StoredItem item = before;
    item.Pattern = rule.Pattern;
    item.ForeignRule = rule.ForeignRule;
    SaveFault fault = CheckAndDerive(item);
    if (fault == SaveFault::None && rules::FinishMerge(before, item, core.Zones)) {
        fault = CheckAndDerive(item);
    }
    const std::string ruleFault =
        fault == SaveFault::None ? core.Items.Series().FindRuleFault(item) : std::string(DescribeFault(fault));
    if (!ruleFault.empty()) {
        outcome = ImportOutcome::Refusal(ruleFault);
        return Status::Ok;
    }
    outcome.Item = oid;
    outcome.Result = item == before ? ImportResult::Unchanged : ImportResult::Changed;
    std::int64_t source = 0;
    status = core.Items.ReadSource(oid, source);
    return Succeeded(status) && item != before ? core.ChangeItem(before, item, Ink::Leave, source, outcome.Reason)
                                               : status;
}

Status ImportWriter::Commit() {
    if (!State->Begun) {
        return Status::Unexpected;
    }
    Status status = State->Exceptions.Finish();
    for (const Work::TagChange& change : State->TagChanges) {
        if (Succeeded(status)) {
            status = State->Core.NoteTag(change.Kind, change.Item, change.Place);
        }
    }
    if (Failed(status)) {
        static_cast<void>(Abandon()); // the first failure is the one to report
        return status;
    }
    State->Begun = false;
    return State->Core.EndGroup();
}

Status ImportWriter::Abandon() {
    if (!State->Begun) {
        return Status::Unexpected;
    }
    State->Begun = false;
    return State->Core.AbandonGroup();
}

std::unique_ptr<exchange::IItemWriter> MakeImportWriter(const StorePtr& store) {
    return store ? std::make_unique<ImportWriter>(store) : nullptr;
}

} // namespace tavo::outlook
