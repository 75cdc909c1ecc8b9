// The pages of each kind of print.
#pragma once

#include "host/print/print_request.h"
#include "host/print/printed_days.h"
#include "host/print/printed_page.h"

#include <functional>
#include <utility>
#include <vector>

namespace tavo::print {

// The days that a request needs to know of, first and last.
std::pair<DayNumber, DayNumber> DaysOf(const PrintRequest& request);

// The handwritten memos of a day, each with its strokes.
using MemosOfDay = std::vector<std::vector<ink::PlacedStroke>>;

// At least one page, whatever there is. `memos` are those of the day when a day is printed.
std::vector<PrintedPage> LayOutPages(const PrintRequest& request, const PrintedDays& days, const MemosOfDay& memos);

} // namespace tavo::print
