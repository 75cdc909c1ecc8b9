// Hands one entry of a calendar file to libical and finds the line that libical could not read.
#pragma once

#include "host/exchange/piece_reader.h"

#include <libical/ical.h>

#include <memory>

namespace tavo::exchange {

struct FreeComponent {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};

using ComponentPtr = std::unique_ptr<icalcomponent, FreeComponent>;

struct FreeParser {
    void operator()(icalparser* parser) const { icalparser_free(parser); }
};

class EntryParser {
  public:
    EntryParser();

    // Null with the fault's line and reason when a line that matters cannot be read.
    ComponentPtr Parse(CalendarPiece& piece, FileFault& fault);

  private:
    std::unique_ptr<icalparser, FreeParser> Parser;
};

// The line number of the `nth` line (from 0) of this name in the piece; the piece's own when there is none.
int FindLine(const CalendarPiece& piece, std::string_view name, int nth = 0);

} // namespace tavo::exchange
