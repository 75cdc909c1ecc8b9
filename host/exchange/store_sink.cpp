// Writes what is read of one calendar file into the store.
#include "host/exchange/store_sink.h"

#include "host/exchange/export_words.h"

namespace tavo::exchange {

void ImportCounts::Add(const ImportCounts& other) {
    New += other.New;
    Changed += other.Changed;
    Unchanged += other.Unchanged;
    Refused += other.Refused;
    OlderVersions += other.OlderVersions;
    Cancelled += other.Cancelled;
    OtherKinds += other.OtherKinds;
    Mended += other.Mended;
    Tagged += other.Tagged;
}

StoreSink::StoreSink(IItemWriter& writer, std::optional<TagList> tag, std::function<bool(std::int64_t)> goOn)
    : Writer(writer), Tag(tag), GoOn(std::move(goOn)) {}

bool StoreSink::OnItem(rules::StoredItem item, const std::vector<TagList>& kinds, int line) {
    ImportOutcome outcome;
    const Status status = Writer.Write(std::move(item), outcome);
    if (!Count(status, outcome, line)) {
        return false;
    }
    for (const TagList kind : kinds) {
        RequestTag(kind, outcome.Item);
    }
    return Succeeded(StoreStatus);
}

void StoreSink::RequestTag(TagList kind, Oid item) {
    if (item != 0 && Succeeded(StoreStatus)) {
        StoreStatus = Writer.RequestTag(kind, item, TagWish::Join);
        ++Counts.Tagged;
    }
}

bool StoreSink::OnLoneOccurrence(const LoneOccurrence& occurrence, int line) {
    ImportOutcome outcome;
    Status status = Writer.WriteException(occurrence.Uid, occurrence.Exception, outcome);
    const bool nowhere = outcome.Result == ImportResult::Refused && outcome.Reason == IItemWriter::kNoSuchSeries;
    if (Succeeded(status) && nowhere) {
        if (occurrence.Exception.Kind == rules::ExceptionKind::Cancelled) {
            return OnPassedOver(PassedOver::Cancelled, line, {});
        }
        outcome = {};
        status = Writer.Write(occurrence.Alone, outcome);
    }
    return Count(status, outcome, line);
}

bool StoreSink::OnRefused(int line, const std::string& reason) {
    Note(Remark::Kind::Refused, line, reason, Counts.Refused++);
    return true;
}

void StoreSink::OnMended(int line, const std::string& what) {
    Note(Remark::Kind::Mended, line, what, Counts.Mended++);
}

bool StoreSink::OnPassedOver(PassedOver what, int line, const std::string& reason) {
    int& count = what == PassedOver::OlderVersion ? Counts.OlderVersions
                 : what == PassedOver::Cancelled  ? Counts.Cancelled
                                                  : Counts.OtherKinds;
    const int before = count++;
    if (!reason.empty()) {
        Note(Remark::Kind::PassedOver, line, reason, before);
    }
    return true;
}

// `before`: how many there were of this kind.
void StoreSink::Note(Remark::Kind what, int line, const std::string& text, int before) {
    if (before < kMostRemarks) {
        Remarks.push_back({what, line, text});
    }
}

void StoreSink::TakeMemo(CalendarFileReader& reader, const PiecePlace& place, IMemoFolder& folder) {
    ImportOutcome outcome;
    outcome.Result = ImportResult::Refused;
    if (const std::optional<MemoEntry> memo = reader.ReadMemo(place, outcome.Reason); memo) {
        if (const ErrorCode error = KeepMemo(folder, *memo, outcome.Result); error != ErrorCode::Success) {
            outcome.Reason = std::string("its file cannot be written: ") + DescribeWriteFailure(error);
        }
    }
    Count(Status::Ok, outcome, place.Line);
}

bool StoreSink::OnProgress(std::int64_t offset) {
    return GoOn(offset);
}

std::unique_ptr<rules::ZoneRules> StoreSink::LoadZone(const std::string& name) {
    return Writer.LoadZone(name);
}

bool StoreSink::DefineZone(const std::string& name, const std::string& component) {
    const Status status = Writer.DefineZone(name, component);
    if (Failed(status) && status != Status::InvalidArgument) {
        StoreStatus = status;
    }
    return Succeeded(status);
}

bool StoreSink::Count(Status status, const ImportOutcome& outcome, int line) {
    if (Failed(status)) {
        StoreStatus = status;
        return false;
    }
    switch (outcome.Result) {
    case ImportResult::New:
        ++Counts.New;
        break;
    case ImportResult::Changed:
        ++Counts.Changed;
        break;
    case ImportResult::Unchanged:
        ++Counts.Unchanged;
        break;
    case ImportResult::Refused:
        return OnRefused(line, outcome.Reason);
    }
    if (Tag) {
        RequestTag(*Tag, outcome.Item);
    }
    return Succeeded(StoreStatus);
}

} // namespace tavo::exchange
