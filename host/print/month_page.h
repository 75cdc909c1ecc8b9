// A month on one sheet, with the subjects in its cells.
#pragma once

#include "host/print/print_request.h"
#include "host/print/printed_days.h"
#include "host/print/printed_page.h"

#include <utility>

namespace tavo::print {

// `shown` are the first and last day of its grid, whole weeks. Of a day with more entries than its cell holds the last
// line says how many are not shown.
PrintedPage LayOutMonth(const PrintRequest& request, std::pair<DayNumber, DayNumber> shown, const PrintedDays& days);

} // namespace tavo::print
