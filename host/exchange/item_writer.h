// Where the items of a calendar file go.
#pragma once

#include "host/rules/stored_item.h"
#include "host/rules/zone_rules.h"
#include "platform/outlook.h"

#include <memory>
#include <string>
#include <string_view>

namespace tavo::exchange {

enum class ImportResult { New, Changed, Unchanged, Refused };

struct ImportOutcome {
    ImportResult Result = ImportResult::Refused;
    Oid Item = 0;       // 0 when refused
    std::string Reason; // why it was refused, one English phrase

    static ImportOutcome Refusal(std::string_view reason) { return {ImportResult::Refused, 0, std::string(reason)}; }
};

enum class TagWish { Join, Leave };

// Begin, then any number of Write, then Commit: all of a file, or nothing of it. What was not committed is taken back
// at the end. A status that is a failure ends the whole (nothing of it stays); a refused item does not.
class IItemWriter {
  public:
    virtual ~IItemWriter() = default;

    // The name is what undo shows to people.
    virtual Status Begin(std::u16string_view groupName) = 0;
    // Of the time zone database; null when it has none of that name.
    virtual std::unique_ptr<rules::ZoneRules> LoadZone(const std::string& name) const = 0;
    // Makes a zone known that the time zone database may not have. `component` is the whole VTIMEZONE text.
    virtual Status DefineZone(const std::string& name, const std::string& component) = 0;
    // By its UID the item is new, changed since it was last imported, or unchanged (also when it was edited here
    // since). An item without a UID is always new.
    virtual Status Write(rules::StoredItem item, ImportOutcome& outcome) = 0;
    // A single moved or cancelled occurrence of a series that came in this or an earlier import. Refused with the
    // reason kNoSuchSeries while the series is not there: offer it again at the end of the file. An exception that came
    // this way before is unchanged also when it was edited here since; one of a series written in this transaction that
    // is not offered again is dropped at Commit.
    virtual Status WriteException(const std::string& uid, const rules::StoredException& exception,
                                  ImportOutcome& outcome) = 0;
    // Asks the program to tag an item (it keeps the lists); a tag that it already shows is not asked for again.
    virtual Status RequestTag(TagList list, Oid item, TagWish wish) = 0;
    virtual Status Commit() = 0;
    virtual Status Abandon() = 0;

    static constexpr std::string_view kNoSuchSeries = "the series it belongs to is not there";
};

} // namespace tavo::exchange
