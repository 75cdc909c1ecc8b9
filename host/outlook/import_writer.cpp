// Imports: one transaction, each item looked up by its UID.
#include "host/outlook/import_writer.h"

#include "host/outlook/own_uid.h"
#include "host/outlook/store_core.h"
#include "host/rules/item_draft.h"
#include "host/rules/save_rules.h"

#include <algorithm>
#include <map>
#include <set>

namespace tavo::outlook {

struct ImportWriter::Work {
    explicit Work(StorePtr store) : Source(std::move(store)), Core(CoreOf(*Source)) {}

    StorePtr Source;
    StoreCore& Core;
    bool Begun = false;
    std::map<std::string, std::string> ZoneNames; // of this calendar, to those of the store
    std::map<Oid, std::set<Seconds>> Unoffered;   // exceptions that came by themselves before, not offered yet

    // A series that exceptions come to by themselves: it is written once for all of them.
    struct OpenSeries {
        StoredItem Before;
        StoredItem Item;
        SaveFault Fault = SaveFault::None;
        std::map<Seconds, std::size_t> Places; // of the exceptions, by recurrence id
        bool Changed = false;
    };

    std::map<Oid, OpenSeries> Open;

    // Results of an item that is in the store already, under `oid`.
    Status Replace(Oid oid, StoredItem& item, std::int64_t source, ImportOutcome& outcome);
    // The item that a UID of this store's exports names, without one of its own; 0 for any other.
    Oid FindOwn(const std::string& uid);
    bool HoldsAlready(Oid oid, const StoredItem& item);
    // Of one that an earlier program imported from the same file without the lines that mean nothing here.
    Status AddCarried(Oid oid, StoredItem& item, std::int64_t source, ImportOutcome& outcome);
    void ExpectExceptions(const StoredItem& stored);
    Status DropUnoffered();
    Status Put(Oid oid, const StoredException& exception, ImportOutcome& outcome);
    Status Fetch(Oid oid, OpenSeries*& series);
    Status Close(Oid oid);
    Status CloseAll();
};

namespace {

bool CameByItself(const StoredException& exception) {
    return exception.Source != kMadeHere && exception.Source != kCameInside;
}

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

StoredException WithoutCarried(StoredException exception) {
    exception.Carried.clear();
    return exception;
}

void Refuse(ImportOutcome& outcome, std::string_view reason) {
    outcome.Result = ImportResult::Refused;
    outcome.Item = 0;
    outcome.Reason = reason;
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
    State->ZoneNames.clear();
    State->Unoffered.clear();
    State->Open.clear();
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

// Remembers the exceptions that came by themselves: those not offered again go at the end.
void ImportWriter::Work::ExpectExceptions(const StoredItem& stored) {
    for (const StoredException& exception : stored.Exceptions) {
        if (CameByItself(exception)) {
            Unoffered[stored.Item].insert(exception.Original);
        }
    }
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
        Refuse(outcome, DescribeFault(fault));
        return Status::Ok;
    }
    ExpectExceptions(before);
    // A note that the import does not bring is not the import's to take away.
    status = Core.ChangeItem(before, item, item.Ink.empty() ? Ink::Leave : Ink::Take, source, outcome.Reason);
    outcome.Result = ImportResult::Changed;
    return status;
}

Oid ImportWriter::Work::FindOwn(const std::string& uid) {
    const Oid oid = ReadOwnUid(ReadStoreIdentity(Core.Db), uid);
    Query query(Core.Db, "SELECT 1 FROM item WHERE oid = ? AND uid IS NULL");
    return oid != 0 && query.Bind(oid).Next() ? oid : 0;
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
    ExpectExceptions(before);
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

Status ImportWriter::Write(const StoredItem& given, ImportOutcome& outcome) {
    outcome = ImportOutcome();
    if (!State->Begun) {
        return Status::Unexpected;
    }
    StoreCore& core = State->Core;
    StoredItem item = given;
    item.Item = 0;
    if (const auto name = State->ZoneNames.find(item.Zone); name != State->ZoneNames.end()) {
        item.Zone = name->second;
    }
    if (const SaveFault fault = CheckAndDerive(item); fault != SaveFault::None) {
        Refuse(outcome, DescribeFault(fault));
        return Status::Ok;
    }
    if (const std::string fault = core.Items.Series().FindRuleFault(item); !fault.empty()) {
        Refuse(outcome, fault);
        return Status::Ok;
    }
    const std::int64_t fingerprint = FingerprintOf(item);
    for (StoredException& exception : item.Exceptions) {
        exception.Source = kCameInside;
    }
    std::int64_t source = 0;
    Oid oid = 0;
    Status status = item.Uid.empty() ? Status::Ok : core.Items.FindByUid(item.Uid, oid, source);
    if (Succeeded(status) && oid != 0) {
        status = State->Close(oid);
    }
    if (Failed(status)) {
        return status;
    }
    if (const Oid own = oid == 0 && !item.Uid.empty() ? State->FindOwn(item.Uid) : 0; own != 0) {
        item.Uid.clear(); // it stays one that was made here
        outcome.Result = ImportResult::Unchanged;
        status = State->HoldsAlready(own, item) ? Status::Ok : State->Replace(own, item, kMadeHere, outcome);
        item.Item = own;
    } else if (oid == 0) {
        status = core.CreateItem(item, fingerprint, outcome.Reason);
        outcome.Result = ImportResult::New;
    } else if (source == fingerprint) {
        outcome.Result = ImportResult::Unchanged;
        StoredItem stored;
        if (item.IsRecurring()) {
            status = core.Items.Read(oid, Ink::Leave, stored);
            if (Succeeded(status)) {
                State->ExpectExceptions(stored);
            }
        }
        item.Item = oid;
    } else if (CarriesLines(item) && source == FingerprintOf(WithoutCarried(item))) {
        status = State->AddCarried(oid, item, fingerprint, outcome);
    } else {
        status = State->Replace(oid, item, fingerprint, outcome);
    }
    if (status == Status::InvalidArgument && !outcome.Reason.empty()) {
        Refuse(outcome, std::string(outcome.Reason));
        return Status::Ok;
    }
    if (outcome.Result != ImportResult::Refused) {
        outcome.Item = item.Item;
    }
    return status;
}

Status ImportWriter::Work::Fetch(Oid oid, OpenSeries*& series) {
    const auto [place, isNew] = Open.try_emplace(oid);
    series = &place->second;
    if (!isNew) {
        return Status::Ok;
    }
    const Status status = Core.Items.Read(oid, Ink::Leave, series->Before);
    if (Failed(status)) {
        Open.erase(place);
        return status;
    }
    series->Item = series->Before;
    series->Fault = CheckAndDerive(series->Item);
    for (std::size_t index = 0; index < series->Item.Exceptions.size(); ++index) {
        series->Places[series->Item.Exceptions[index].Original] = index;
    }
    return status;
}

Status ImportWriter::Work::Close(Oid oid) {
    const auto place = Open.find(oid);
    if (place == Open.end()) {
        return Status::Ok;
    }
    OpenSeries series = std::move(place->second);
    Open.erase(place);
    if (!series.Changed) {
        return Status::Ok;
    }
    std::int64_t source = 0;
    std::string fault;
    Status status = CheckAndDerive(series.Item) == SaveFault::None ? Status::Ok : Status::InvalidArgument;
    if (Succeeded(status)) {
        status = Core.Items.ReadSource(oid, source);
    }
    return Succeeded(status) ? Core.ChangeItem(series.Before, series.Item, Ink::Leave, source, fault) : status;
}

Status ImportWriter::Work::CloseAll() {
    Status status = Status::Ok;
    while (Succeeded(status) && !Open.empty()) {
        status = Close(Open.begin()->first);
    }
    return status;
}

Status ImportWriter::Work::Put(Oid oid, const StoredException& exception, ImportOutcome& outcome) {
    OpenSeries* series = nullptr;
    if (const Status status = Fetch(oid, series); Failed(status)) {
        return status;
    }
    if (!series->Before.IsRecurring()) {
        Refuse(outcome, kNoSuchSeries);
        return Status::Ok;
    }
    if (const auto expected = Unoffered.find(oid); expected != Unoffered.end()) {
        expected->second.erase(exception.Original);
    }
    StoredException offered = exception;
    offered.Source = FingerprintOf(exception);
    outcome.Item = oid;
    const auto place = series->Places.find(exception.Original);
    const bool isNew = place == series->Places.end();
    std::vector<StoredException>& all = series->Item.Exceptions;
    if (!isNew && all[place->second].Source == offered.Source) {
        outcome.Result = ImportResult::Unchanged;
        return Status::Ok;
    }
    if (const SaveFault fault = series->Fault != SaveFault::None ? series->Fault : CheckException(offered);
        fault != SaveFault::None) {
        Refuse(outcome, DescribeFault(fault));
        return Status::Ok;
    }
    outcome.Result = ImportResult::Changed;
    series->Changed = true;
    if (isNew) {
        series->Places[offered.Original] = all.size();
        all.push_back(std::move(offered));
    } else if (all[place->second].Source == FingerprintOf(WithoutCarried(exception))) {
        all[place->second].Carried = std::move(offered.Carried); // what an earlier program did not keep
        all[place->second].Source = offered.Source;
    } else {
        all[place->second] = std::move(offered);
    }
    return Status::Ok;
}

Status ImportWriter::WriteException(const std::string& uid, const StoredException& exception, ImportOutcome& outcome) {
    outcome = ImportOutcome();
    if (!State->Begun) {
        return Status::Unexpected;
    }
    Oid oid = 0;
    std::int64_t source = 0;
    const Status status = uid.empty() ? Status::Ok : State->Core.Items.FindByUid(uid, oid, source);
    if (Failed(status)) {
        return status;
    }
    if (oid == 0) {
        Refuse(outcome, kNoSuchSeries);
        return Status::Ok;
    }
    return State->Put(oid, exception, outcome);
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
        Refuse(outcome, ruleFault);
        return Status::Ok;
    }
    outcome.Item = oid;
    outcome.Result = item == before ? ImportResult::Unchanged : ImportResult::Changed;
    std::int64_t source = 0;
    status = core.Items.ReadSource(oid, source);
    return Succeeded(status) && item != before ? core.ChangeItem(before, item, Ink::Leave, source, outcome.Reason)
                                               : status;
}

Status ImportWriter::Work::DropUnoffered() {
    for (const auto& [oid, originals] : Unoffered) {
        StoredItem before;
        Status status = originals.empty() ? Status::NotFound : Core.Items.Read(oid, Ink::Leave, before);
        if (status == Status::NotFound) {
            continue;
        }
        StoredItem item = before;
        std::erase_if(item.Exceptions, [&moved = originals](const StoredException& one) {
            return CameByItself(one) && moved.contains(one.Original);
        });
        std::int64_t source = 0;
        std::string fault;
        if (Succeeded(status)) {
            status = Core.Items.ReadSource(oid, source);
        }
        if (Succeeded(status)) {
            status = Core.ChangeItem(before, item, Ink::Leave, source, fault);
        }
        if (Failed(status)) {
            return status;
        }
    }
    return Status::Ok;
}

Status ImportWriter::Commit() {
    if (!State->Begun) {
        return Status::Unexpected;
    }
    Status status = State->CloseAll();
    if (Succeeded(status)) {
        status = State->DropUnoffered();
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
