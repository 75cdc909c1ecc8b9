// Reads a whole calendar file, entry by entry, into a sink.
#include "host/exchange/calendar_file.h"

#include <algorithm>

namespace tavo::exchange {
namespace {

using rules::StoredException;

ReadStep Continue(bool goOn) {
    return goOn ? ReadStep::More : ReadStep::Stopped;
}

} // namespace

CalendarFileReader::CalendarFileReader(IByteSource& source, IEntrySink& sink)
    : Source(source), Sink(sink), Zones(sink), Events(Zones), Pieces(std::make_unique<PieceReader>(source)) {}

ReadStep CalendarFileReader::SurveyNext() {
    if (!Sink.OnProgress(0)) {
        return ReadStep::Stopped;
    }
    switch (Pieces->Read(Piece)) {
    case ReadResult::End:
        Survey.Close();
        Pieces = std::make_unique<PieceReader>(Source); // from the beginning again
        Offset = 0;
        return ReadStep::Done;
    case ReadResult::Fault:
        Fault = Pieces->GetFault();
        return ReadStep::Broken;
    case ReadResult::Piece:
        break;
    }
    Offset = Pieces->GetOffset();
    return Survey.Take(Piece, Zones, Fault) ? ReadStep::More : ReadStep::Broken;
}

ReadStep CalendarFileReader::ReadNext() {
    switch (Pieces->Read(Piece)) {
    case ReadResult::End:
        return ReadStep::Done;
    case ReadResult::Fault:
        Fault = Pieces->GetFault();
        return ReadStep::Broken;
    case ReadResult::Piece:
        break;
    }
    Offset = Pieces->GetOffset();
    if (!Sink.OnProgress(Offset)) {
        return ReadStep::Stopped;
    }
    return Piece.Kind == PieceKind::Event ? ReadEvent() : PassOver();
}

ReadStep CalendarFileReader::PassOver() {
    return Piece.Kind == PieceKind::TimeZone ? ReadStep::More : Continue(Sink.OnPassedOver());
}

ReadStep CalendarFileReader::Refuse(Reading reading, const FileFault& fault) {
    if (reading == Reading::Broken) {
        Fault = fault;
        return ReadStep::Broken;
    }
    return Continue(Sink.OnRefused(fault.Line, fault.Reason));
}

ReadStep CalendarFileReader::ReadEvent() {
    FileFault fault;
    const Reading reading = Events.Read(Piece, Entry, fault);
    if (reading != Reading::Good) {
        return Refuse(reading, fault);
    }
    if (Entry.Occurrence) {
        return ReadOccurrence();
    }
    if (const int better = Survey.FindBetter(Entry.Item.Uid, Piece.Line); better != 0) {
        return Continue(Sink.OnRefused(Piece.Line, "the same entry (UID) stands again in line " +
                                                       std::to_string(better) + ", which counts"));
    }
    if (Entry.Cancelled) {
        return Continue(Sink.OnPassedOver());
    }
    const ReadStep step = AddOccurrences();
    return step == ReadStep::More ? Continue(Sink.OnItem(Entry.Item, Piece.Line)) : step;
}

// Gives the series in Entry its moved and cancelled occurrences, wherever they stand in the file.
ReadStep CalendarFileReader::AddOccurrences() {
    const std::vector<PiecePlace>& places = Survey.FindOccurrences(Entry.Item.Uid);
    if (places.empty() || !Entry.Item.IsRecurring()) {
        return ReadStep::More;
    }
    PieceReader reader(Source);
    CalendarPiece piece;
    EventEntry occurrence;
    std::vector<StoredException>& all = Entry.Item.Exceptions;
    for (const PiecePlace& place : places) {
        FileFault fault;
        if (!Sink.OnProgress(Offset)) {
            return ReadStep::Stopped;
        }
        if (reader.ReadAt(place.Offset, place.Line, piece) != ReadResult::Piece) {
            Fault = reader.GetFault();
            return ReadStep::Broken;
        }
        const Reading reading = Events.Read(piece, occurrence, fault);
        if (reading == Reading::Good) {
            all.push_back(MakeException(occurrence, Entry.Start, Entry.Item));
        } else if (reading == Reading::Broken) {
            return Refuse(reading, fault); // one that is refused is named when its own turn comes
        }
    }
    // Of several for one occurrence the later entry counts.
    std::reverse(all.begin(), all.end());
    std::stable_sort(all.begin(), all.end(),
                     [](const StoredException& a, const StoredException& b) { return a.Original < b.Original; });
    const auto same = [](const StoredException& a, const StoredException& b) { return a.Original == b.Original; };
    all.erase(std::unique(all.begin(), all.end(), same), all.end());
    return ReadStep::More;
}

// An occurrence whose series is in the file came in with the series, or will.
ReadStep CalendarFileReader::ReadOccurrence() {
    if (Survey.HasSeries(Entry.Item.Uid)) {
        return ReadStep::More;
    }
    LoneOccurrence lone;
    lone.Uid = Entry.Item.Uid;
    lone.Exception = MakeException(Entry, Entry.Start.DateOnly ? Entry.Start : *Entry.Occurrence, {});
    lone.Alone = Entry.Item;
    lone.Alone.Uid += "/" + Entry.OccurrenceText;
    return Continue(Sink.OnLoneOccurrence(lone, Piece.Line));
}

FileOutcome ReadCalendarFile(IByteSource& source, IEntrySink& sink, FileFault& fault) {
    CalendarFileReader reader(source, sink);
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
