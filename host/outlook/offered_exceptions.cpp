// Moved and cancelled occurrences that files bring as entries of their own.
#include "host/outlook/offered_exceptions.h"

#include <utility>

namespace tavo::outlook {

using exchange::IItemWriter;
using exchange::ImportOutcome;
using exchange::ImportResult;

namespace {

StoredException WithoutCarried(StoredException exception) {
    exception.Carried.clear();
    return exception;
}

} // namespace

bool CameByItself(const StoredException& exception) {
    return exception.Source != kMadeHere && exception.Source != kCameInside;
}

void OfferedExceptions::Begin() {
    Open.clear();
    Unoffered.clear();
}

void OfferedExceptions::Expect(const StoredItem& stored) {
    for (const StoredException& exception : stored.Exceptions) {
        if (CameByItself(exception)) {
            Unoffered[stored.Item].insert(exception.Original);
        }
    }
}

Status OfferedExceptions::Fetch(Oid oid, OpenSeries*& series) {
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

Status OfferedExceptions::Close(Oid oid) {
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

Status OfferedExceptions::Put(Oid oid, const StoredException& exception, ImportOutcome& outcome) {
    OpenSeries* series = nullptr;
    if (const Status status = Fetch(oid, series); Failed(status)) {
        return status;
    }
    if (!series->Before.IsRecurring()) {
        outcome = ImportOutcome::Refusal(IItemWriter::kNoSuchSeries);
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
        outcome = ImportOutcome::Refusal(DescribeFault(fault));
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

Status OfferedExceptions::Drop(Oid oid, const std::set<Seconds>& originals) {
    StoredItem before;
    Status status = Core.Items.Read(oid, Ink::Leave, before);
    if (Failed(status)) {
        return status == Status::NotFound ? Status::Ok : status;
    }
    StoredItem item = before;
    std::erase_if(item.Exceptions, [&originals](const StoredException& one) {
        return CameByItself(one) && originals.contains(one.Original);
    });
    std::int64_t source = 0;
    std::string fault;
    status = Core.Items.ReadSource(oid, source);
    return Succeeded(status) ? Core.ChangeItem(before, item, Ink::Leave, source, fault) : status;
}

Status OfferedExceptions::DropUnoffered() {
    for (const auto& [oid, originals] : Unoffered) {
        if (const Status status = originals.empty() ? Status::Ok : Drop(oid, originals); Failed(status)) {
            return status;
        }
    }
    return Status::Ok;
}

Status OfferedExceptions::Finish() {
    Status status = Status::Ok;
    while (Succeeded(status) && !Open.empty()) {
        status = Close(Open.begin()->first);
    }
    return Succeeded(status) ? DropUnoffered() : status;
}

} // namespace tavo::outlook
