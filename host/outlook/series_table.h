// The narrow table of series, and what else the store keeps of them for their expansion.
#pragma once

#include "host/outlook/database.h"
#include "host/outlook/terms.h"
#include "host/rules/series.h"

#include <functional>
#include <string>
#include <vector>

namespace tavo::outlook {

// The series that have an occurrence between the two times on the device's clock (perhaps: the bounds are wide), in
// order of OID. The length of the first occurrence and the count are not read. Corrupt when a row is none that can have
// been saved.
Status ReadSeriesTouching(Database& database, Seconds from, Seconds to, std::vector<SeriesRow>& rows);

// The row of one item; False when it has none.
Status ReadSeriesOf(Database& database, Oid item, SeriesRow& row);

class SeriesDetails final : public rules::ISeriesDetails {
  public:
    explicit SeriesDetails(Database& database) : Source(database) {}

    Status ReadForeignRule(Oid item, std::string& lines) override;
    Status ReadExceptions(Oid item, const std::function<bool(const StoredException&)>& take) override;

  private:
    Database& Source;
};

} // namespace tavo::outlook
