// Reads a whole calendar file, entry by entry, into a sink.
#pragma once

#include "host/exchange/byte_source.h"
#include "host/exchange/entry_sink.h"
#include "host/exchange/event_reader.h"
#include "host/exchange/file_survey.h"
#include "host/exchange/memo_entry.h"
#include "host/exchange/piece_reader.h"

#include <memory>

namespace tavo::exchange {

enum class FileOutcome {
    Read,    // to the end
    Broken,  // no calendar, or read strictly and against the format; what the sink got must not be kept
    Stopped, // the sink did not want to go on
};

// Reads the file twice: first its zones, doubled entries and single occurrences are found, for they may stand anywhere;
// then each entry is read and given to the sink. Broken: `fault` names line and reason.
FileOutcome ReadCalendarFile(IByteSource& source, IEntrySink& sink, Manner manner, FileFault& fault);

enum class ReadStep {
    More,
    Done,   // this time through the file
    Broken, // as above; nothing more can be read, and so after Stopped
    Stopped,
};

// The same, one entry at a time.
class CalendarFileReader {
  public:
    // Both must outlive it.
    CalendarFileReader(IByteSource& source, IEntrySink& sink, Manner manner);

    // The first time through; the sink is only asked whether to go on.
    ReadStep SurveyNext();
    // The second time, once the first is done. A series takes its single occurrences with it.
    ReadStep ReadNext();

    // How many entries there are, once they are surveyed: a series with its single occurrences is one of them.
    int CountEntries() const { return Survey.CountEntries(); }

    // Once all entries are read: the memos of the file, which lie in no store, and one of them. Nothing, and the reason
    // for people, when it is none.
    const std::vector<PiecePlace>& GetMemos() const { return Survey.GetMemos(); }

    std::optional<MemoEntry> ReadMemo(const PiecePlace& place, std::string& reason);

    // The bytes done, of this time through.
    std::int64_t GetOffset() const { return Offset; }

    // After Broken.
    const FileFault& GetFault() const { return Fault; }

  private:
    ReadStep ReadPiece();
    ReadStep Break(const FileFault& fault);
    ReadStep ReadEvent();
    ReadStep PassOver();
    ReadStep Refuse(Reading reading, const FileFault& fault);
    bool AddOccurrences();
    bool WriteSeries();
    ReadStep ReadOccurrence();

    IByteSource& Source;
    IEntrySink& Sink;
    FaultTeller Silent; // the first time through nobody is told
    FaultTeller Faults;
    FileFault Fault;
    ZoneTable Zones;
    EventReader Events;
    FileSurvey Survey;
    std::unique_ptr<PieceReader> Pieces; // never null
    CalendarPiece Piece;
    EventEntry Entry;
    std::vector<EventEntry> Changes; // of all later occurrences of the series in Entry, in the order of their places
    std::int64_t Offset = 0;
    std::int64_t SurveyedEnd = 0;
};

// Reads all of a file of which nothing was read yet.
FileOutcome ReadCalendarFile(CalendarFileReader& reader, FileFault& fault);

} // namespace tavo::exchange
