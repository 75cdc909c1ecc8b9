// Who takes what is read out of a calendar file.
#pragma once

#include "host/rules/stored_item.h"
#include "host/rules/zone_rules.h"
#include "platform/outlook.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tavo::exchange {

// An occurrence that was moved or cancelled although its series is not in the file.
struct LoneOccurrence {
    std::string Uid; // of the series
    rules::StoredException Exception;
    rules::StoredItem Alone; // the same as an appointment by itself, if the series is nowhere
};

// What is left out although nothing is wrong with it.
enum class PassedOver { OlderVersion, Cancelled, OtherKind };

// A call that gives false ends the reading: nothing more is called then.
class IEntrySink {
  public:
    virtual ~IEntrySink() = default;
    // `kinds` are the lists that an export of ours says it stands in.
    virtual bool OnItem(rules::StoredItem item, const std::vector<TagList>& kinds, int line) = 0;
    virtual bool OnLoneOccurrence(const LoneOccurrence& occurrence, int line) = 0;
    // An entry that cannot be kept, or not be read.
    virtual bool OnRefused(int line, const std::string& reason) = 0;
    // Something against the format, and what was done about it, as a phrase for people.
    virtual void OnMended(int line, const std::string& what) = 0;
    // `reason` is empty where the count says enough.
    virtual bool OnPassedOver(PassedOver what, int line, const std::string& reason) = 0;
    // Bytes done of the file. Called often.
    virtual bool OnProgress(std::int64_t offset) = 0;

    // The rules of a zone of the time zone database; null when it has none of that name.
    virtual std::unique_ptr<rules::ZoneRules> LoadZone(const std::string& name) = 0;
    // A zone that the time zone database does not have, before the first item that is in it.
    virtual bool DefineZone(const std::string& name, const std::string& component) = 0;
};

} // namespace tavo::exchange
