// The lines of one event, each split into its parts, those of its alarms apart.
#pragma once

#include "host/exchange/piece_reader.h"
#include "host/rules/content_line.h"

#include <string_view>
#include <utility>
#include <vector>

namespace tavo::exchange {

// The lines of an event or of an alarm, in their order.
class LineList {
  public:
    void Add(rules::ContentLine line) { Lines.push_back(std::move(line)); }

    // Null when there is none.
    const rules::ContentLine* FindFirst(std::string_view upperName) const;
    std::vector<const rules::ContentLine*> FindAll(std::string_view upperName) const;

  private:
    std::vector<rules::ContentLine> Lines;
};

struct EventLines {
    LineList Own;
    std::vector<LineList> Alarms;
};

// Reads a piece, which must outlive the result. What cannot be split, and what is optional and of no form, is left out;
// what would mean something if it could be read is taken out of the piece too, and told. False, with the fault's line
// and reason, when a line cannot be read without which there is no entry.
bool ReadEventLines(CalendarPiece& piece, EventLines& lines, FaultTeller& faults, FileFault& fault);

// The line number of the first line of this name in the piece; the piece's own when there is none.
int FindLine(const CalendarPiece& piece, std::string_view name);

} // namespace tavo::exchange
