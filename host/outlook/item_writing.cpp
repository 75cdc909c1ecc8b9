// Writing items: the row itself, and the narrow tables that listings read.
#include "host/outlook/item_rows.h"
#include "host/outlook/item_table.h"
#include "host/outlook/row_sum.h"
#include "host/outlook/text.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace tavo::outlook {

namespace {

constexpr char kInsert[] =
    "INSERT INTO item(uid, source, start, length, zone, zone_start, zone_length, flags, busy, sensitivity,"
    " reminder_minutes, reminder_options, reminder_sound, subject, location, categories, body, oid, sum)"
    " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15, ?16, ?17, ?18,"
    " row_sum(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15, ?16, ?17, ?18))";
constexpr char kUpdate[] =
    "UPDATE item SET uid = ?1, source = ?2, start = ?3, length = ?4, zone = ?5, zone_start = ?6, zone_length = ?7,"
    " flags = ?8, busy = ?9, sensitivity = ?10, reminder_minutes = ?11, reminder_options = ?12, reminder_sound = ?13,"
    " subject = ?14, location = ?15, categories = ?16, body = ?17,"
    " sum = row_sum(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15, ?16, ?17, ?18) WHERE oid = ?18";

Query& BindOptional(Query& query, const std::optional<std::string>& text) {
    return text ? query.Bind(std::string_view(*text)) : query.BindNull();
}

std::optional<std::string> OptionalUtf8(const std::optional<std::u16string>& text) {
    return text ? std::optional(ToUtf8(*text)) : std::nullopt;
}

} // namespace

Status ItemTable::Prepare(StoredItem& item, SeriesRow& series, std::string& fault) {
    if (!item.Zone.empty()) {
        const Status status = Zones.FindOrAdd(item.Zone, series.Zone);
        if (status == Status::InvalidArgument) {
            fault = "its time zone is not known: " + item.Zone;
        }
        if (Failed(status)) {
            return status;
        }
        if (Zones.Rules(series.Zone) != nullptr) {
            item.Start = Zones.ToWall(series.Zone, item.ZoneStart);
            // Where the device's clock goes back in between, the end would come to lie before the start.
            item.End = std::max(Zones.ToWall(series.Zone, item.ZoneEnd), item.Start);
        }
    }
    if (!item.IsRecurring()) {
        return Status::Ok;
    }
    const bool floating = series.Zone == kFloating;
    series.Item = item.Item;
    series.Start = floating ? item.Start : item.ZoneStart;
    series.Length = floating ? item.End - item.Start : item.ZoneEnd - item.ZoneStart;
    series.Pattern = item.Pattern;
    Expander.FindBounds(series, item.ForeignRule, item.Exceptions);
    return Status::Ok;
}

Status ItemTable::WriteRow(const char* sql, const StoredItem& item, ZoneId zone, std::int64_t source) {
    const std::string sound = ToUtf8(item.ReminderSound);
    const std::string subject = ToUtf8(item.Subject);
    const std::string location = ToUtf8(item.Location);
    const std::string categories = ToUtf8(item.Categories);
    const std::string body = ToUtf8(item.Body);
    Query query(Source, sql);
    if (item.Uid.empty()) {
        query.BindNull();
    } else {
        query.Bind(item.Uid);
    }
    query.Bind(source).Bind(item.Start).Bind(item.End - item.Start);
    if (zone == kFloating) {
        query.BindNull().BindNull().BindNull();
    } else {
        query.Bind(zone).Bind(item.ZoneStart).Bind(item.ZoneEnd - item.ZoneStart);
    }
    query.Bind((item.AllDay ? kFlagAllDay : 0) | (item.ReminderSet ? kFlagReminder : 0) |
               (item.IsRecurring() ? kFlagRecurring : 0) | (CarriesLines(item) ? kFlagCarries : 0));
    query.Bind(item.BusyStatus).Bind(item.Sensitivity).Bind(item.ReminderMinutes).Bind(item.ReminderOptions);
    query.Bind(sound).Bind(subject).Bind(location).Bind(categories).Bind(body).Bind(item.Item);
    return query.Finish();
}

Status ItemTable::WriteSeries(const SeriesRow& row, const StoredItem& item) {
    const StoredPattern& pattern = item.Pattern;
    Query query(Source, "INSERT INTO series(oid, first, first_length, until, start, length, zone, type, interval, mask,"
                        " day, instance, month, end_kind, occurrences, last_day, has_exceptions, sum)"
                        " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15, ?16, ?17,"
                        " row_sum(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15, ?16, ?17))");
    query.Bind(row.Item).Bind(row.First).Bind(row.FirstLength).Bind(row.Until).Bind(row.Start).Bind(row.Length);
    if (row.Zone == kFloating) {
        query.BindNull();
    } else {
        query.Bind(row.Zone);
    }
    query.Bind(pattern.Type).Bind(pattern.Interval).Bind(pattern.DayOfWeekMask).Bind(pattern.DayOfMonth);
    query.Bind(pattern.Instance).Bind(pattern.MonthOfYear).Bind(static_cast<std::int64_t>(pattern.End));
    query.Bind(pattern.Occurrences)
        .Bind(pattern.Type == kRecursForeign ? row.CountedEnd : pattern.LastDay)
        .Bind(item.Exceptions.empty() ? 0 : 1);
    return query.Finish();
}

Status ItemTable::WriteExceptions(const StoredItem& item) {
    for (const StoredException& exception : item.Exceptions) {
        const std::optional<std::string> subject = OptionalUtf8(exception.Subject);
        const std::optional<std::string> location = OptionalUtf8(exception.Location);
        Query query(Source, "INSERT INTO exception(oid, original, kind, start, length, subject, location, source, sum)"
                            " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, row_sum(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8))");
        query.Bind(item.Item).Bind(exception.Original).Bind(static_cast<std::int64_t>(exception.Kind));
        query.Bind(exception.Start).Bind(exception.End - exception.Start);
        BindOptional(query, subject);
        BindOptional(query, location).Bind(exception.Source);
        if (const Status status = query.Finish(); Failed(status)) {
            return status;
        }
    }
    return Status::Ok;
}

Status ItemTable::WriteCarried(const StoredItem& item) {
    const auto write = [&](Seconds original, const std::string& lines) {
        if (lines.empty()) {
            return Status::Ok;
        }
        Query query(Source, "INSERT INTO carried(oid, original, lines, sum) VALUES (?1, ?2, ?3, row_sum(?1, ?2, ?3))");
        return query.Bind(item.Item).Bind(original).Bind(lines).Finish();
    };
    Status status = write(kWholeItem, item.Carried);
    if (item.IsRecurring()) {
        for (const StoredException& exception : item.Exceptions) {
            status = Succeeded(status) ? write(exception.Original, exception.Carried) : status;
        }
    }
    return status;
}

Status ItemTable::WriteInk(Oid oid, std::span<const std::uint8_t> ink) {
    if (ink.empty()) {
        Query remove(Source, "DELETE FROM ink WHERE oid = ?");
        return remove.Bind(oid).Finish();
    }
    Query write(Source, "INSERT INTO ink(oid, data, sum) VALUES (?1, ?2, row_sum(?1, ?2))"
                        " ON CONFLICT (oid) DO UPDATE SET data = excluded.data, sum = excluded.sum");
    return write.Bind(oid).Bind(ink).Finish();
}

// The item's row is there already: the others refer to it.
Status ItemTable::WriteParts(const StoredItem& item, const SeriesRow& series) {
    if (const Status status = WriteCarried(item); Failed(status)) {
        return status;
    }
    if (!item.IsRecurring()) {
        const Seconds length = item.End - item.Start;
        Query plain(Source, "INSERT INTO plain(span, start, oid, length) VALUES (?, ?, ?, ?)");
        return plain.Bind(SpanOf(length)).Bind(item.Start).Bind(item.Item).Bind(length).Finish();
    }
    Status status = WriteSeries(series, item);
    if (Succeeded(status) && item.Pattern.Type == kRecursForeign) {
        Query rule(Source, "INSERT INTO foreign_rule(oid, rule, sum) VALUES (?1, ?2, row_sum(?1, ?2))");
        status = rule.Bind(item.Item).Bind(item.ForeignRule).Finish();
    }
    return Succeeded(status) ? WriteExceptions(item) : status;
}

Status ItemTable::Insert(StoredItem& item, std::int64_t source, std::string& fault) {
    SeriesRow series;
    Status status = Prepare(item, series, fault);
    if (Succeeded(status)) {
        status = WriteRow(kInsert, item, series.Zone, source);
    }
    if (Succeeded(status)) {
        status = WriteParts(item, series);
    }
    return Succeeded(status) && !item.Ink.empty() ? WriteInk(item.Item, item.Ink) : status;
}

Status ItemTable::Update(StoredItem& item, Ink ink, std::int64_t source, std::string& fault) {
    SeriesRow series;
    Status status = Prepare(item, series, fault);
    if (Succeeded(status)) {
        status = RemovePlain(item.Item);
    }
    for (const char* sql : {"DELETE FROM series WHERE oid = ?", "DELETE FROM foreign_rule WHERE oid = ?",
                            "DELETE FROM exception WHERE oid = ?", "DELETE FROM carried WHERE oid = ?"}) {
        if (Succeeded(status)) {
            status = Query(Source, sql).Bind(item.Item).Finish();
        }
    }
    if (Succeeded(status)) {
        status = WriteRow(kUpdate, item, series.Zone, source);
    }
    if (Succeeded(status)) {
        status = WriteParts(item, series);
    }
    return Succeeded(status) && ink == Ink::Take ? WriteInk(item.Item, item.Ink) : status;
}

Status ItemTable::FindAltered(std::set<Oid>& altered) {
    for (const SummedTable& table : kSummedTables) {
        const std::string_view name = table.Name;
        if (name == "journal_change" || name == "ink") {
            continue; // neither is written again with the item's times
        }
        const std::string changed = SqlToFindChanged(table);
        const std::string sql = name == "zone" ? "SELECT oid FROM item WHERE zone IN (" + changed + ")" : changed;
        Query query(Source, sql.c_str());
        while (query.Next()) {
            altered.insert(query.Small(0));
        }
        if (Failed(query.Result())) {
            return query.Result();
        }
    }
    return Status::Ok;
}

// What has changed by itself on the disk stays as it is: written again it would be as good as saved, and no check would
// name it any more.
Status ItemTable::FindDerived(std::vector<Oid>& derived) {
    std::set<Oid> altered;
    if (const Status status = FindAltered(altered); Failed(status)) {
        return status;
    }
    Query query(Source, "SELECT oid FROM item WHERE zone IS NOT NULL OR oid IN (SELECT oid FROM foreign_rule)");
    while (query.Next()) {
        if (const Oid oid = query.Small(0); !altered.contains(oid)) {
            derived.push_back(oid);
        }
    }
    return query.Result();
}

Status ItemTable::Rederive() {
    std::vector<Oid> derived;
    if (const Status status = FindDerived(derived); Failed(status)) {
        return status;
    }
    for (const Oid oid : derived) {
        StoredItem item;
        std::int64_t source = 0;
        std::string fault;
        Status status = Read(oid, Ink::Leave, item);
        if (Succeeded(status)) {
            status = ReadSource(oid, source);
        }
        if (Succeeded(status)) {
            status = Update(item, Ink::Leave, source, fault);
        }
        if (Failed(status)) {
            return status;
        }
    }
    return Status::Ok;
}

} // namespace tavo::outlook
