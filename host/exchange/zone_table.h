// The time zones that a calendar file speaks of.
#pragma once

#include "host/exchange/entry_sink.h"
#include "host/exchange/piece_reader.h"
#include "host/rules/zone_rules.h"

#include <map>
#include <memory>
#include <set>
#include <string>

namespace tavo::exchange {

// A zone under the name that the store knows it by.
struct Zone {
    std::string Name;
    std::unique_ptr<rules::ZoneRules> Rules; // never null
};

class ZoneTable {
  public:
    explicit ZoneTable(IEntrySink& sink) : Sink(sink) {}

    // A VTIMEZONE of the file.
    void Add(const CalendarPiece& piece, FaultTeller& faults);
    // By the name that a time gives; null when neither the file nor the time zone database knows it, or the file's own
    // definition cannot be kept.
    const Zone* Find(const std::string& tzid);

    // Whether the file defines the zone, well or not.
    bool IsDefined(const std::string& tzid) const { return Definitions.contains(tzid); }

    // Tells, once, that the times of a zone are taken as local ones because nothing knows it.
    void TellUnknown(const std::string& tzid, int line, FaultTeller& faults);
    // Why Find gives nothing, as a phrase for people.
    std::string DescribeUnknown(const std::string& tzid) const;
    const Zone* GetUtc();

  private:
    const Zone* Resolve(const std::string& tzid);
    const Zone* Remember(const std::string& tzid, std::string name, std::unique_ptr<rules::ZoneRules> rules);

    IEntrySink& Sink;
    std::map<std::string, std::string> Definitions; // the VTIMEZONEs by name
    std::map<std::string, Zone> Found;
    std::map<std::string, std::string> Faults; // of those looked for in vain
    std::set<std::string> Told;
};

} // namespace tavo::exchange
