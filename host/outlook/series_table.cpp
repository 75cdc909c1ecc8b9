// Reading series.
#include "host/outlook/series_table.h"

#include <string_view>

namespace tavo::outlook {

namespace {

constexpr const char* kColumns = "oid, start, length, zone, type, interval, mask, day, instance, month, end_kind,"
                                 " last_day, has_exceptions, first, until";

bool TakeRow(Query& query, SeriesRow& row) {
    row.Item = query.Small(0);
    row.Start = query.Integer(1);
    row.Length = query.Integer(2);
    row.Zone = query.Integer(3);
    row.Pattern.Type = query.Small(4);
    row.Pattern.Interval = query.Small(5);
    row.Pattern.DayOfWeekMask = query.Small(6);
    row.Pattern.DayOfMonth = query.Small(7);
    row.Pattern.Instance = query.Small(8);
    row.Pattern.MonthOfYear = query.Small(9);
    row.Pattern.End = static_cast<PatternEnd>(query.Small(10));
    const bool foreign = row.Pattern.Type == kRecursForeign;
    (foreign ? row.CountedEnd : row.Pattern.LastDay) = query.Integer(11);
    row.HasExceptions = query.Small(12) != 0;
    row.First = query.Integer(13);
    row.Until = query.Integer(14);
    return IsExpandable(row);
}

} // namespace

Status ReadSeriesTouching(Database& database, Seconds from, Seconds to, std::vector<SeriesRow>& rows) {
    static const std::string sql = std::string("SELECT ") + kColumns + " FROM series WHERE first <= ? AND until >= ?";
    Query query(database, sql.c_str());
    query.Bind(to).Bind(from);
    while (query.Next()) {
        if (!TakeRow(query, rows.emplace_back())) {
            return Status::Corrupt;
        }
    }
    return query.Result();
}

Status ReadSeriesOf(Database& database, Oid item, SeriesRow& row) {
    static const std::string sql = std::string("SELECT ") + kColumns + " FROM series WHERE oid = ?";
    Query query(database, sql.c_str());
    if (!query.Bind(item).Next()) {
        return Failed(query.Result()) ? query.Result() : Status::False;
    }
    return TakeRow(query, row) ? Status::Ok : Status::Corrupt;
}

Status SeriesDetails::ReadForeignRule(Oid item, std::string& lines) {
    Query query(Source, "SELECT rule FROM foreign_rule WHERE oid = ?");
    if (!query.Bind(item).Next()) {
        return Failed(query.Result()) ? query.Result() : Status::Corrupt;
    }
    lines = query.Text(0);
    return Status::Ok;
}

Status SeriesDetails::ReadExceptions(Oid item, const std::function<bool(const StoredException&)>& take) {
    Query query(Source, "SELECT original, kind, start, length FROM exception WHERE oid = ? ORDER BY original");
    query.Bind(item);
    StoredException exception;
    while (query.Next()) {
        exception.Original = query.Integer(0);
        exception.Kind = static_cast<ExceptionKind>(query.Small(1));
        exception.Start = query.Integer(2);
        exception.End = exception.Start + query.Integer(3);
        if (!take(exception)) {
            break;
        }
    }
    return query.Result();
}

} // namespace tavo::outlook
