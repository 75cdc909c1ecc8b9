// Reads a whole calendar file, entry by entry, into a sink.
#include "host/exchange/calendar_file.h"

#include "host/exchange/file_survey.h"

#include <algorithm>

namespace tavo::exchange {
namespace {

using outlook::StoredException;

class FileReader {
  public:
    FileReader(IByteSource& source, IEntrySink& sink, FileFault& fault)
        : Source(source), Sink(sink), Fault(fault), Zones(sink), Events(Zones) {}

    FileOutcome Read() {
        PieceReader surveyor(Source);
        if (!Survey.Take(
                surveyor, Zones, [this] { return Sink.OnProgress(0); }, Fault)) {
            return Fault.Reason.empty() ? FileOutcome::Stopped : FileOutcome::Broken;
        }
        PieceReader reader(Source);
        CalendarPiece piece;
        ReadResult result = reader.Read(piece);
        for (; result == ReadResult::Piece; result = reader.Read(piece)) {
            Offset = reader.GetOffset();
            if (!Sink.OnProgress(Offset)) {
                return FileOutcome::Stopped;
            }
            const Step step = piece.Kind == PieceKind::Event ? ReadEvent(piece) : PassOver(piece);
            if (step != Step::Next) {
                return step == Step::Stop ? FileOutcome::Stopped : FileOutcome::Broken;
            }
        }
        if (result == ReadResult::Fault) {
            Fault = reader.GetFault();
            return FileOutcome::Broken;
        }
        return FileOutcome::Read;
    }

  private:
    enum class Step { Next, Stop, Break };

    static Step Continue(bool goOn) { return goOn ? Step::Next : Step::Stop; }

    Step PassOver(const CalendarPiece& piece) {
        return piece.Kind == PieceKind::TimeZone ? Step::Next : Continue(Sink.OnPassedOver());
    }

    Step Refuse(Reading reading, const FileFault& fault) {
        if (reading == Reading::Broken) {
            Fault = fault;
            return Step::Break;
        }
        return Continue(Sink.OnRefused(fault.Line, fault.Reason));
    }

    Step ReadEvent(CalendarPiece& piece) {
        FileFault fault;
        const Reading reading = Events.Read(piece, Entry, fault);
        if (reading != Reading::Good) {
            return Refuse(reading, fault);
        }
        if (Entry.Occurrence) {
            return ReadOccurrence(piece);
        }
        if (const int better = Survey.FindBetter(Entry.Item.Uid, piece.Line); better != 0) {
            return Continue(Sink.OnRefused(piece.Line, "the same entry (UID) stands again in line " +
                                                           std::to_string(better) + ", which counts"));
        }
        if (Entry.Cancelled) {
            return Continue(Sink.OnPassedOver());
        }
        const Step step = AddOccurrences();
        return step == Step::Next ? Continue(Sink.OnItem(Entry.Item, piece.Line)) : step;
    }

    // Gives the series in Entry its moved and cancelled occurrences, wherever they stand in the file.
    Step AddOccurrences() {
        const std::vector<PiecePlace>& places = Survey.FindOccurrences(Entry.Item.Uid);
        if (places.empty() || !Entry.Item.IsRecurring()) {
            return Step::Next;
        }
        PieceReader reader(Source);
        CalendarPiece piece;
        EventEntry occurrence;
        std::vector<StoredException>& all = Entry.Item.Exceptions;
        for (const PiecePlace& place : places) {
            FileFault fault;
            if (!Sink.OnProgress(Offset)) {
                return Step::Stop;
            }
            if (reader.ReadAt(place.Offset, place.Line, piece) != ReadResult::Piece) {
                Fault = reader.GetFault();
                return Step::Break;
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
        return Step::Next;
    }

    // An occurrence whose series is in the file came in with the series, or will.
    Step ReadOccurrence(const CalendarPiece& piece) {
        if (Survey.HasSeries(Entry.Item.Uid)) {
            return Step::Next;
        }
        LoneOccurrence lone;
        lone.Uid = Entry.Item.Uid;
        lone.Exception = MakeException(Entry, Entry.Start.DateOnly ? Entry.Start : *Entry.Occurrence, {});
        lone.Alone = Entry.Item;
        lone.Alone.Uid += "/" + Entry.OccurrenceText;
        return Continue(Sink.OnLoneOccurrence(lone, piece.Line));
    }

    IByteSource& Source;
    IEntrySink& Sink;
    FileFault& Fault;
    ZoneTable Zones;
    EventReader Events;
    FileSurvey Survey;
    EventEntry Entry;
    std::int64_t Offset = 0;
};

} // namespace

FileOutcome ReadCalendarFile(IByteSource& source, IEntrySink& sink, FileFault& fault) {
    return FileReader(source, sink, fault).Read();
}

} // namespace tavo::exchange
