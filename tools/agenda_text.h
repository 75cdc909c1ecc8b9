// The ways in which `tavo agenda` writes occurrences.
#pragma once

#include "host/outlook/occurrence_reader.h"
#include "tools/records.h"

#include <string>
#include <vector>

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

// The same with its fields named, and with more of them.
class RecordedAgenda {
  public:
    explicit RecordedAgenda(Records& records) : List(records) {}

    void Add(const outlook::ListedOccurrence& occurrence, std::string& text);

  private:
    Records& List;
};

// For people: grouped by day. What lasts several days stands on each of them that is listed.
class DailyAgenda {
  public:
    DailyAgenda(rules::DayNumber firstDay, rules::DayNumber lastDay) : Day(firstDay), LastDay(lastDay) {}

    void Add(const outlook::ListedOccurrence& occurrence, std::string& text);
    void Finish(std::string& text);

  private:
    // What is told of an occurrence that goes on after its first day.
    struct Lasting {
        outlook::ListedOccurrence Occurrence;
        std::string Subject;
        std::string Location;
    };

    void GoTo(rules::DayNumber day, std::string& text);
    void TellLasting(std::string& text);
    void Tell(const outlook::ListedOccurrence& occurrence, std::string& text);

    rules::DayNumber Day; // that is told now
    rules::DayNumber LastDay;
    bool HasBegun = false; // what lasts has been told on this day
    rules::DayNumber HeadedDay = kNoDay;
    std::vector<Lasting> Longer;
};

} // namespace tavo::tools
