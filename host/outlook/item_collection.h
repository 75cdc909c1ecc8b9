// A list of appointments in order of start, then OID, read piece by piece as it is walked.
#pragma once

#include "host/outlook/entry_reader.h"
#include "host/outlook/session.h"
#include "host/outlook/terms.h"
#include "host/rules/restriction.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace tavo::outlook {

class Appointment;

class ItemCollection final : public RefCounted<IPOutlookItemCollection>, private IDeletionListener {
  public:
    ItemCollection(Session& session, Restriction restriction);

    Status get_Count(std::int32_t& count) override;
    Status Item(std::int32_t index, ComPtr<IAppointment>& item) override;
    Status Restrict(std::u16string_view restriction, ComPtr<IPOutlookItemCollection>& items) override;
    Status put_IncludeRecurrences(bool include) override;

  private:
    ~ItemCollection() override;

    void OnItemDeleted(Oid oid) override;
    void OnOccurrenceCancelled(Oid oid, Seconds original) override;

    void Restart(SeriesAs series);
    // Reads until entry `index` (from 0) is there, or the end.
    Status ReadUpTo(std::size_t index);
    Status FilterSince(std::size_t since);
    Status HasMatch(bool& match);
    void Remove(std::size_t index);

    std::size_t Size() const { return Entries.size() - Head; }

    ComPtr<Session> Owner;
    Restriction Filter;
    SeriesAs Series = SeriesAs::Themselves;
    std::optional<EntryReader> Reader;
    std::vector<Entry> Entries; // from Head on; what is before was deleted
    std::size_t Head = 0;
    ComPtr<Appointment> LastGiven;
};

} // namespace tavo::outlook
