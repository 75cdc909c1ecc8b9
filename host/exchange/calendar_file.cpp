// Reads a whole calendar file, entry by entry, into a sink.
#include "host/exchange/calendar_file.h"

#include "host/exchange/series_split.h"

#include <algorithm>

namespace tavo::exchange {
namespace {

using rules::StoredException;

ReadStep Continue(bool goOn) {
    return goOn ? ReadStep::More : ReadStep::Stopped;
}

} // namespace

CalendarFileReader::CalendarFileReader(IByteSource& source, IEntrySink& sink, Manner manner)
    : Source(source), Sink(sink), Silent(nullptr, manner), Faults(&sink, manner), Zones(sink), Events(Zones),
      Pieces(std::make_unique<PieceReader>(source, Silent, Extent::UsedLines)) {}

ReadStep CalendarFileReader::SurveyNext() {
    if (!Sink.OnProgress(0)) {
        return ReadStep::Stopped;
    }
    const ReadStep step = ReadPiece();
    if (step == ReadStep::Done) {
        Survey.Close();
        SurveyedEnd = Pieces->GetOffset();
        Pieces = std::make_unique<PieceReader>(Source, Faults, Extent::AllLines); // from the beginning again
        Offset = 0;
    } else if (step == ReadStep::More) {
        Survey.Take(Piece, Zones, Faults); // a zone is looked at here only
        return Faults.GetBreaking() ? Break(*Faults.GetBreaking()) : step;
    }
    return step;
}

ReadStep CalendarFileReader::ReadNext() {
    ReadStep step = ReadPiece();
    if (step == ReadStep::Done && Offset != SurveyedEnd) {
        return Break({Piece.Line, "the file was changed while it was read"});
    }
    if (step != ReadStep::More) {
        return step;
    }
    if (!Sink.OnProgress(Offset)) {
        return ReadStep::Stopped;
    }
    step = Piece.Kind == PieceKind::Event ? ReadEvent() : PassOver();
    return Faults.GetBreaking() ? Break(*Faults.GetBreaking()) : step;
}

// The next entry of this time through.
ReadStep CalendarFileReader::ReadPiece() {
    const ReadResult result = Pieces->Read(Piece);
    if (const auto& breaking = (Silent.GetBreaking() ? Silent : Faults).GetBreaking(); breaking) {
        return Break(*breaking);
    }
    Offset = Pieces->GetOffset();
    switch (result) {
    case ReadResult::End:
        return ReadStep::Done;
    case ReadResult::Fault:
        return Break(Pieces->GetFault());
    case ReadResult::Piece:
        break;
    }
    return ReadStep::More;
}

ReadStep CalendarFileReader::Break(const FileFault& fault) {
    Fault = fault;
    return ReadStep::Broken;
}

ReadStep CalendarFileReader::PassOver() {
    const bool isTakenElsewhere =
        Piece.Kind == PieceKind::TimeZone || (Piece.Kind == PieceKind::Journal && IsMemoEntry(Piece));
    return isTakenElsewhere ? ReadStep::More : Continue(Sink.OnPassedOver(PassedOver::OtherKind, Piece.Line, {}));
}

ReadStep CalendarFileReader::Refuse(Reading reading, const FileFault& fault) {
    if (reading == Reading::Broken && Faults.IsStrict()) {
        return Break(fault);
    }
    return Continue(Sink.OnRefused(fault.Line, fault.Reason));
}

ReadStep CalendarFileReader::ReadEvent() {
    FileFault fault;
    const Reading reading = Events.Read(Piece, Faults, Entry, fault);
    if (Faults.GetBreaking()) {
        return ReadStep::Broken;
    }
    if (reading != Reading::Good) {
        return Refuse(reading, fault);
    }
    if (Entry.Occurrence) {
        return ReadOccurrence();
    }
    if (const int better = Survey.FindBetter(Entry.Item.Uid, Piece.Line); better != 0) {
        return Continue(Sink.OnPassedOver(PassedOver::OlderVersion, Piece.Line,
                                          "the same entry (UID) stands again in line " + std::to_string(better) +
                                              ", which counts"));
    }
    if (Entry.Cancelled) {
        return Continue(Sink.OnPassedOver(PassedOver::Cancelled, Piece.Line, {}));
    }
    return Continue(AddOccurrences() && WriteSeries());
}

// Gives the series in Entry its moved and cancelled occurrences, wherever they stand in the file. One that cannot be
// read is told when its own turn comes. False: the sink does not want to go on.
bool CalendarFileReader::AddOccurrences() {
    Changes.clear();
    const std::vector<PiecePlace>& places = Survey.FindOccurrences(Entry.Item.Uid);
    if (places.empty() || !Entry.Item.IsRecurring()) {
        return true;
    }
    FaultTeller unheard(nullptr, Manner::Lenient);
    PieceReader reader(Source, unheard, Extent::AllLines);
    CalendarPiece piece;
    EventEntry occurrence;
    std::vector<StoredException>& all = Entry.Item.Exceptions;
    for (const PiecePlace& place : places) {
        FileFault fault;
        if (!Sink.OnProgress(Offset)) {
            return false;
        }
        const bool isRead = reader.ReadAt(place.Offset, place.Line, piece) == ReadResult::Piece;
        piece.CalendarZone = place.CalendarZone;
        if (isRead && Events.Read(piece, unheard, occurrence, fault) == Reading::Good && occurrence.Occurrence) {
            if (occurrence.ChangesFollowing) {
                Changes.push_back(std::move(occurrence));
                Changes.back().Line = place.Line;
            } else {
                all.push_back(MakeException(occurrence, Entry.Start, Entry.Item));
            }
        }
    }
    // Of several for one occurrence the later entry counts.
    std::reverse(all.begin(), all.end());
    std::stable_sort(all.begin(), all.end(),
                     [](const StoredException& a, const StoredException& b) { return a.Original < b.Original; });
    const auto same = [](const StoredException& a, const StoredException& b) { return a.Original == b.Original; };
    all.erase(std::unique(all.begin(), all.end(), same), all.end());
    return true;
}

// The item in Entry, and where all occurrences from one on were changed, what follows as series of their own.
bool CalendarFileReader::WriteSeries() {
    std::vector<rules::StoredItem> later;
    std::vector<const EventEntry*> from;
    rules::Seconds shift = 0; // of the last of them against the file
    std::stable_sort(Changes.begin(), Changes.end(), [](const EventEntry& a, const EventEntry& b) {
        return a.Occurrence->Clock < b.Occurrence->Clock;
    });
    for (const EventEntry& change : Changes) {
        StoredException exception = MakeException(change, Entry.Start, Entry.Item);
        exception.Original += shift;
        rules::StoredItem& series = later.empty() ? Entry.Item : later.back();
        std::string reason;
        if (change.Cancelled) {
            const Zone* const zone = Entry.Start.In;
            const SeriesEnd end =
                EndSeriesBefore(series, exception.Original, zone == nullptr ? nullptr : zone->Rules.get());
            if (end == SeriesEnd::NothingLeft) { // all of it is cancelled
                return Sink.OnPassedOver(PassedOver::Cancelled, change.Line, {});
            }
            if (end == SeriesEnd::CannotBeSaid &&
                !Sink.OnRefused(change.Line, "it cancels all later occurrences of a series at once (RANGE), in a way "
                                             "that no rule here can say")) {
                return false;
            }
            break;
        }
        if (std::optional<rules::StoredItem> split = SplitSeries(series, change, exception, reason); split) {
            shift += exception.Start - exception.Original;
            if (split->IsRecurring()) {
                later.push_back(std::move(*split));
                from.push_back(&change);
            }
        } else if (!Sink.OnRefused(change.Line, reason)) {
            return false;
        }
    }
    if (!Sink.OnItem(Entry.Item, Entry.Kinds, Piece.Line)) {
        return false;
    }
    for (std::size_t index = 0; index < later.size(); ++index) {
        if (!Sink.OnItem(later[index], from[index]->Kinds, from[index]->Line)) {
            return false;
        }
    }
    return true;
}

// An occurrence whose series is in the file came in with the series, or will.
ReadStep CalendarFileReader::ReadOccurrence() {
    if (Survey.HasSeries(Entry.Item.Uid)) {
        return ReadStep::More;
    }
    if (Entry.ChangesFollowing) {
        return Refuse(Reading::Refused, {Piece.Line, "it changes all later occurrences of a series (RANGE) that is not "
                                                     "in this file"});
    }
    LoneOccurrence lone;
    lone.Uid = Entry.Item.Uid;
    lone.Exception = MakeException(Entry, Entry.Start.DateOnly ? Entry.Start : *Entry.Occurrence, {});
    lone.Alone = Entry.Item;
    lone.Alone.Uid += "/" + Entry.OccurrenceText;
    return Continue(Sink.OnLoneOccurrence(lone, Piece.Line));
}

std::optional<MemoEntry> CalendarFileReader::ReadMemo(const PiecePlace& place, std::string& reason) {
    FaultTeller unheard(nullptr, Manner::Lenient);
    PieceReader reader(Source, unheard, Extent::UsedLines);
    CalendarPiece piece;
    if (reader.ReadAt(place.Offset, place.Line, piece) != ReadResult::Piece) {
        reason = "it cannot be read any more";
        return std::nullopt;
    }
    return ReadMemoEntry(piece, reason);
}

FileOutcome ReadCalendarFile(IByteSource& source, IEntrySink& sink, Manner manner, FileFault& fault) {
    CalendarFileReader reader(source, sink, manner);
    return ReadCalendarFile(reader, fault);
}

FileOutcome ReadCalendarFile(CalendarFileReader& reader, FileFault& fault) {
    ReadStep step = ReadStep::More;
    while (step == ReadStep::More) {
        step = reader.SurveyNext();
    }
    if (step == ReadStep::Done) {
        do {
            step = reader.ReadNext();
        } while (step == ReadStep::More);
    }
    fault = reader.GetFault();
    switch (step) {
    case ReadStep::Broken:
        return FileOutcome::Broken;
    case ReadStep::Stopped:
        return FileOutcome::Stopped;
    default:
        return FileOutcome::Read;
    }
}

} // namespace tavo::exchange
