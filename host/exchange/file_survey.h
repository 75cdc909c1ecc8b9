// What must be known of a calendar file before its first entry can be read.
#pragma once

#include "host/exchange/event_reader.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace tavo::exchange {

struct PiecePlace {
    std::int64_t Offset = 0;
    int Line = 0;
    std::string CalendarZone; // as of the piece
};

class FileSurvey {
  public:
    // Takes note of an entry, or of a zone.
    void Take(const CalendarPiece& piece, ZoneTable& zones, FaultTeller& faults);
    // After the last of them; what follows can be asked from then on.
    void Close();

    // The single occurrences of a series, in the file's order.
    const std::vector<PiecePlace>& FindOccurrences(const std::string& uid) const;
    // Whether the series of a single occurrence is in the file too.
    bool HasSeries(const std::string& uid) const;
    // Of entries with the same UID one counts: the one with the highest SEQUENCE, of these the last. The line of the
    // one that counts instead of that in `line`; 0 when it is that one.
    int FindBetter(const std::string& uid, int line) const;

    // The memos that an export of ours put into the file, in its order.
    const std::vector<PiecePlace>& GetMemos() const { return Memos; }

    // Those that are, or may become, an item or a memo each.
    int CountEntries() const { return EntryCount; }

  private:
    struct Master {
        std::uint64_t UidHash = 0;
        int Sequence = 0;
        int Line = 0;
        bool Repeats = false;
    };

    void AddEvent(const CalendarPiece& piece);

    std::vector<Master> Masters; // emptied once the two below are known
    std::unordered_map<std::uint64_t, int> Winners;
    std::unordered_set<std::uint64_t> SeriesOfOccurrences;
    std::unordered_map<std::string, std::vector<PiecePlace>> Occurrences;
    std::vector<PiecePlace> Memos;
    int EntryCount = 0;
};

} // namespace tavo::exchange
