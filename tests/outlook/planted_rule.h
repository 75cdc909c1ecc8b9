// Puts into a store what an import refuses, as an earlier one may have taken it.
#pragma once

#include "host/outlook/row_sum.h"
#include "host/outlook/schema.h"
#include "host/outlook/store_core.h"

#include <string>

namespace tavo::outlook::test {

// Makes the sums of all rows right, as they were when the rows were written.
inline Status SumAnew(StoreCore& core) {
    Status status = Status::Ok;
    for (const SummedTable& table : kSummedTables) {
        status = Succeeded(status) ? core.Db.Run(SqlToSum(table).c_str()) : status;
    }
    return status;
}

// Gives a series other content lines, without beginning and end: what the rule before said of its first occurrence
// counts no more. False when that fails.
inline bool PlantRule(StoreCore& core, Oid series, const std::string& lines) {
    return Succeeded(core.RunChange(u"", [&] {
        Query row(core.Db, "UPDATE series SET type = 7, last_day = 0, first = 0, until = ? WHERE oid = ?");
        Status status = row.Bind(kForever).Bind(series).Finish();
        Query rule(core.Db, "INSERT INTO foreign_rule(oid, rule) VALUES (?, ?)"
                            " ON CONFLICT (oid) DO UPDATE SET rule = excluded.rule");
        status = Succeeded(status) ? rule.Bind(series).Bind(std::string_view(lines)).Finish() : status;
        return Succeeded(status) ? SumAnew(core) : status;
    }));
}

} // namespace tavo::outlook::test
