// The two ways in which `tavo agenda` writes occurrences.
#pragma once

#include "host/outlook/occurrence_reader.h"

#include <string>

namespace tavo::tools {

constexpr rules::DayNumber kNoDay = -1'000'000; // before every day that can be listed

// For programs: a line of five fields for each occurrence.
class TabbedAgenda {
  public:
    void Add(const outlook::ListedOccurrence& occurrence, std::string& text);

  private:
    void AddTime(rules::Seconds time, std::string& text);

    // The day that was written last: most occurrences of a list share their days.
    rules::DayNumber KnownDay = kNoDay;
    std::string KnownDate;
};

// For people: grouped by day. An occurrence stands once, on its first day that is listed.
class DailyAgenda {
  public:
    explicit DailyAgenda(rules::DayNumber firstDay) : FirstDay(firstDay) {}

    void Add(const outlook::ListedOccurrence& occurrence, std::string& text);

  private:
    rules::DayNumber FirstDay;
    rules::DayNumber HeadedDay = kNoDay;
};

} // namespace tavo::tools
