// What a print shows of each day.
#pragma once

#include "host/ink/stroke.h"
#include "host/outlook/occurrence_reader.h"
#include "host/rules/wall_time.h"

#include <map>
#include <string>
#include <vector>

namespace tavo::print {

using rules::DayNumber;

struct PrintedEntry {
    std::u16string Time;  // "9:30 - 10:00"; "all day"
    std::u16string Start; // "9:30"; empty of what lasts all day, and on the days after the first
    std::u16string Subject;
    std::u16string Location;
    outlook::MirroredKind Kind = outlook::MirroredKind::Appointment;
};

// By day; days without entries are not in it. What lasts several days stands on each of them.
using PrintedDays = std::map<DayNumber, std::vector<PrintedEntry>>;

// The entries of the days first..last. Not Ok: the store cannot be read.
Status ReadDays(const outlook::StorePtr& store, DayNumber first, DayNumber last, PrintedDays& days);

} // namespace tavo::print
