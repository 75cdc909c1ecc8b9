// Reading and removing items.
#include "host/outlook/item_table.h"

#include "host/outlook/item_rows.h"
#include "host/outlook/text.h"

namespace tavo::outlook {

namespace {

constexpr char kRead[] = "SELECT uid, start, length, zone, zone_start, zone_length, flags, busy, sensitivity,"
                         " reminder_minutes, reminder_options, reminder_sound, subject, location, categories, body"
                         " FROM item WHERE oid = ?";

void TakeTimes(const Query& row, StoredItem& item, ZoneCache& zones) {
    item.Start = row.Integer(1);
    item.End = item.Start + row.Integer(2);
    if (!row.IsNull(3)) {
        item.Zone = zones.Name(row.Integer(3));
        item.ZoneStart = row.Integer(4);
        item.ZoneEnd = item.ZoneStart + row.Integer(5);
    }
}

} // namespace

Status ItemTable::Read(Oid oid, Ink ink, StoredItem& item) {
    Query row(Source, kRead);
    if (!row.Bind(oid).Next()) {
        return Failed(row.Result()) ? row.Result() : Status::NotFound;
    }
    StoredItem read;
    read.Item = oid;
    read.Uid = row.Text(0);
    TakeTimes(row, read, Zones);
    const std::int64_t flags = row.Integer(6);
    read.AllDay = (flags & kFlagAllDay) != 0;
    read.ReminderSet = (flags & kFlagReminder) != 0;
    read.BusyStatus = row.Small(7);
    read.Sensitivity = row.Small(8);
    read.ReminderMinutes = row.Small(9);
    read.ReminderOptions = row.Small(10);
    read.ReminderSound = ToUtf16(row.Text(11));
    read.Subject = ToUtf16(row.Text(12));
    read.Location = ToUtf16(row.Text(13));
    read.Categories = ToUtf16(row.Text(14));
    read.Body = ToUtf16(row.Text(15));
    Status status = (flags & kFlagRecurring) != 0 ? ReadRecurrence(read) : Status::Ok;
    if (Succeeded(status) && (flags & kFlagCarries) != 0) {
        status = ReadCarried(read);
    }
    if (Succeeded(status) && ink == Ink::Take) {
        status = ReadInk(oid, read.Ink);
    }
    if (Succeeded(status)) {
        item = std::move(read);
    }
    return status;
}

Status ItemTable::ReadRecurrence(StoredItem& item) {
    Query series(Source, "SELECT type, interval, mask, day, instance, month, end_kind, occurrences, last_day,"
                         " has_exceptions FROM series WHERE oid = ?");
    if (!series.Bind(item.Item).Next()) {
        return Failed(series.Result()) ? series.Result() : Status::Corrupt;
    }
    StoredPattern& pattern = item.Pattern;
    pattern.Type = series.Small(0);
    pattern.Interval = series.Small(1);
    pattern.DayOfWeekMask = series.Small(2);
    pattern.DayOfMonth = series.Small(3);
    pattern.Instance = series.Small(4);
    pattern.MonthOfYear = series.Small(5);
    pattern.End = static_cast<PatternEnd>(series.Small(6));
    pattern.Occurrences = series.Small(7);
    pattern.LastDay = series.Integer(8);
    if (pattern.Type == kRecursForeign) {
        pattern.LastDay = 0; // there the row holds the end of a line with a count
        Query rule(Source, "SELECT rule FROM foreign_rule WHERE oid = ?");
        if (!rule.Bind(item.Item).Next()) {
            return Failed(rule.Result()) ? rule.Result() : Status::Corrupt;
        }
        item.ForeignRule = rule.Text(0);
    }
    if (series.Small(9) == 0) {
        return Status::Ok;
    }
    Query rows(Source, "SELECT original, kind, start, length, subject, location, source FROM exception WHERE oid = ?"
                       " ORDER BY original");
    rows.Bind(item.Item);
    while (rows.Next()) {
        StoredException& exception = item.Exceptions.emplace_back();
        exception.Original = rows.Integer(0);
        exception.Kind = static_cast<ExceptionKind>(rows.Small(1));
        exception.Start = rows.Integer(2);
        exception.End = exception.Start + rows.Integer(3);
        if (!rows.IsNull(4)) {
            exception.Subject = ToUtf16(rows.Text(4));
        }
        if (!rows.IsNull(5)) {
            exception.Location = ToUtf16(rows.Text(5));
        }
        exception.Source = rows.Integer(6);
    }
    return rows.Result();
}

Status ItemTable::ReadCarried(StoredItem& item) {
    Query rows(Source, "SELECT original, lines FROM carried WHERE oid = ? ORDER BY original");
    rows.Bind(item.Item);
    auto exception = item.Exceptions.begin();
    while (rows.Next()) {
        const Seconds original = rows.Integer(0);
        if (original == kWholeItem) {
            item.Carried = rows.Text(1);
            continue;
        }
        while (exception != item.Exceptions.end() && exception->Original < original) {
            ++exception;
        }
        if (exception != item.Exceptions.end() && exception->Original == original) {
            exception->Carried = rows.Text(1);
        }
    }
    return rows.Result();
}

Status ItemTable::ReadInk(Oid oid, std::vector<std::uint8_t>& ink) {
    ink.clear();
    Query query(Source, "SELECT data FROM ink WHERE oid = ?");
    if (query.Bind(oid).Next()) {
        const auto blob = query.Blob(0);
        ink.assign(blob.begin(), blob.end());
    }
    return query.Result();
}

bool ItemTable::Exists(Oid oid) {
    Query query(Source, "SELECT 1 FROM item WHERE oid = ?");
    return query.Bind(oid).Next();
}

Status ItemTable::FindByUid(const std::string& uid, Oid& oid, std::int64_t& source) {
    oid = 0;
    Query query(Source, "SELECT oid, source FROM item WHERE uid = ?");
    if (query.Bind(uid).Next()) {
        oid = query.Small(0);
        source = query.Integer(1);
    }
    return query.Result();
}

Status ItemTable::ReadSource(Oid oid, std::int64_t& source) {
    Query query(Source, "SELECT source FROM item WHERE oid = ?");
    source = query.Bind(oid).Next() ? query.Integer(0) : 0;
    return query.Result();
}

Status ItemTable::RemovePlain(Oid oid) {
    Query row(Source, "SELECT start, length, flags FROM item WHERE oid = ?");
    if (!row.Bind(oid).Next()) {
        return Failed(row.Result()) ? row.Result() : Status::NotFound;
    }
    if ((row.Integer(2) & kFlagRecurring) != 0) {
        return Status::Ok;
    }
    Query remove(Source, "DELETE FROM plain WHERE span = ? AND start = ? AND oid = ?");
    return remove.Bind(SpanOf(row.Integer(1))).Bind(row.Integer(0)).Bind(oid).Finish();
}

Status ItemTable::Remove(Oid oid) {
    if (const Status status = RemovePlain(oid); Failed(status)) {
        return status;
    }
    // Series, exceptions, foreign rule, carried lines and ink go with the item.
    Query remove(Source, "DELETE FROM item WHERE oid = ?");
    return remove.Bind(oid).Finish();
}

} // namespace tavo::outlook
