// Hands what is read of one calendar file to a writer, and counts what became of it.
#pragma once

#include "host/exchange/calendar_file.h"
#include "host/exchange/entry_sink.h"
#include "host/exchange/item_writer.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tavo::exchange {

struct ImportCounts {
    int New = 0;
    int Changed = 0;
    int Unchanged = 0;
    int Refused = 0;
    int OlderVersions = 0; // these three were passed over
    int Cancelled = 0;
    int OtherKinds = 0; // tasks, notes
    int Mended = 0;     // faults, of which an entry may have several
    int Tagged = 0;     // items, once for each kind that they are to be of

    void Add(const ImportCounts& other);
};

// What became of an entry, or a part of one, that was not in order.
struct Remark {
    enum class Kind { Refused, Mended, PassedOver };

    Kind What = Kind::Refused;
    int Line = 0;
    std::string Text;
};

// Of each kind the first so many are kept; a file may be nothing but faults.
constexpr int kMostRemarks = 1000;

class StoreSink final : public IEntrySink {
  public:
    // `goOn` is asked often, with the bytes done, and gives false to stop.
    StoreSink(IItemWriter& writer, std::optional<TagList> tag, std::function<bool(std::int64_t)> goOn);

    bool OnItem(rules::StoredItem item, const std::vector<TagList>& kinds, int line) override;
    bool OnLoneOccurrence(const LoneOccurrence& occurrence, int line) override;
    bool OnRefused(int line, const std::string& reason) override;
    void OnMended(int line, const std::string& what) override;
    bool OnPassedOver(PassedOver what, int line, const std::string& reason) override;
    bool OnProgress(std::int64_t offset) override;
    std::unique_ptr<rules::ZoneRules> LoadZone(const std::string& name) override;
    bool DefineZone(const std::string& name, const std::string& component) override;

    // Once the items are in the store: a memo of the file, which goes into the folder.
    void TakeMemo(CalendarFileReader& reader, const PiecePlace& place, IMemoFolder& folder);

    const ImportCounts& GetCounts() const { return Counts; }

    // In the order in which they were found.
    const std::vector<Remark>& GetRemarks() const { return Remarks; }

    // The call on the store that failed, if one did: the reading was stopped then.
    Status GetStoreStatus() const { return StoreStatus; }

  private:
    void Note(Remark::Kind what, int line, const std::string& text, int before);
    bool Count(Status status, const ImportOutcome& outcome, int line);
    void RequestTag(TagList kind, Oid item);

    IItemWriter& Writer;
    std::optional<TagList> Tag;
    std::function<bool(std::int64_t)> GoOn;
    ImportCounts Counts;
    std::vector<Remark> Remarks;
    Status StoreStatus = Status::Ok;
};

} // namespace tavo::exchange
