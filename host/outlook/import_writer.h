// Writes many items in one transaction, which is one step of undo: all of a file, or nothing of it.
#pragma once

#include "host/outlook/store.h"
#include "host/outlook/terms.h"
#include "host/rules/stored_item.h"
#include "host/rules/zone_rules.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::outlook {

enum class ImportResult { New, Changed, Unchanged, Refused };

struct ImportOutcome {
    ImportResult Result = ImportResult::Refused;
    Oid Item = 0;       // 0 when refused
    std::string Reason; // why it was refused, one English phrase
};

enum class TagWish { Join, Leave };

// Begin, then any number of Write, then Commit. Memory use does not grow with the number of items. A status that is
// a failure ends the transaction (nothing of it stays); a refused item does not.
class ImportWriter {
  public:
    explicit ImportWriter(StorePtr store);
    ~ImportWriter(); // takes back what was not committed
    ImportWriter(const ImportWriter&) = delete;
    ImportWriter& operator=(const ImportWriter&) = delete;

    // The name is what undo shows to people.
    Status Begin(std::u16string_view groupName);
    // Of the time zone database; null when it has none of that name.
    std::unique_ptr<ZoneRules> LoadZone(const std::string& name) const;
    // Makes a zone known that the time zone database may not have. `component` is the whole VTIMEZONE text.
    Status DefineZone(const std::string& name, const std::string& component);
    // By its UID the item is new, changed since it was last imported, or unchanged (also when it was edited here
    // since). An item without a UID is always new.
    Status Write(const StoredItem& item, ImportOutcome& outcome);
    // A single moved or cancelled occurrence of a series that came in this or an earlier import. Refused with the
    // reason kNoSuchSeries while the series is not there: offer it again at the end of the file. An exception that came
    // this way before is unchanged also when it was edited here since; one of a series written in this transaction that
    // is not offered again is dropped at Commit.
    Status WriteException(const std::string& uid, const StoredException& exception, ImportOutcome& outcome);
    // Asks the program to tag an item (it keeps the lists); a tag that the mirror already shows is not asked for again.
    Status RequestTag(TagList list, Oid item, TagWish wish = TagWish::Join);
    Status Commit();
    Status Abandon();

    static constexpr std::string_view kNoSuchSeries = "the series it belongs to is not there";

  private:
    struct Work;
    std::unique_ptr<Work> State;
};

} // namespace tavo::outlook
