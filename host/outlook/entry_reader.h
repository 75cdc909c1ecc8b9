// Reads the lines of a listing from the narrow tables, in order and piece by piece.
#pragma once

#include "host/outlook/terms.h"
#include "host/rules/series.h"

#include <vector>

namespace tavo::outlook {

class StoreCore;

enum class SeriesAs { Themselves, Occurrences };

// What a listing may hold: bounds that need not be exact.
struct EntrySpan {
    Seconds LowestStart = 0;
    Seconds HighestStart = 0;
    Seconds LowestEnd = 0;
    SeriesAs Series = SeriesAs::Themselves;
};

class EntryReader {
  public:
    EntryReader(StoreCore& core, const EntrySpan& span) : Core(core), Span(span) {}

    // Adds the next piece, in order of start, then OID; every piece starts after the one before.
    // At the end nothing is added and AtEnd is true.
    Status ReadPiece(std::vector<Entry>& entries);

    bool AtEnd() const { return Ended; }

    // The series that were left out so far: they have a fault, or took too long beside all others.
    const std::vector<Oid>& GetLeftOut() const { return LeftOut; }

  private:
    Status FindBeginning();
    Status ReadPlain(Seconds from, Seconds to, std::int64_t span, std::vector<Entry>& entries);
    Status ReadSeries(Seconds from, Seconds to, std::vector<Entry>& entries);
    Status ReadOccurrences(Seconds from, Seconds to, std::vector<Entry>& entries);
    Status SkipEmptyTime();

    StoreCore& Core;
    EntrySpan Span;
    bool Begun = false;
    bool Ended = false;
    Seconds Next = 0; // where the next piece begins
    Seconds PieceLength = 0;
    std::vector<Oid> LeftOut; // ascending
};

// Puts entries in order of start, then OID; those of equal start must come in order of OID already.
void SortEntries(std::vector<Entry>& entries, std::size_t since);

} // namespace tavo::outlook
