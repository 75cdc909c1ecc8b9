// Looks through the reminders of each lead; series are expanded around the time in question.
#include "host/outlook/reminder_finder.h"

#include "host/outlook/item_rows.h"
#include "host/rules/expansion_budget.h"

#include <algorithm>
#include <limits>
#include <string>
#include <unordered_map>

namespace tavo::outlook {

using namespace reminders;

namespace {

// Clocks differ from universal time, and from each other, by less; times found with it are looked at exactly.
constexpr Moment kSlack = kDay;
constexpr Moment kFirstReach = 2 * kDay; // how far a search for the next occurrence looks at first
constexpr Moment kFarthestReach = 400000 * kDay;
constexpr std::size_t kMostAhead = 64;   // of one series at once: a year of weeks
constexpr std::int64_t kDaysAhead = 200; // within which that many are found of what recurs daily

// What is asked of the index of reminders. An index is used only where its own words stand: so the flags are written
// into the texts, as numbers.
struct IndexStatements {
    std::string PlainSpan;  // what is plain, of each lead within a span that moves with the lead
    std::string FirstPlain; // when the first of all is due, on the device's clock, that is due from a time on
    std::string Series;
};

IndexStatements MakeIndexStatements() {
    const std::string reminds = "flags & " + std::to_string(kFlagReminder);
    const std::string recurs = "(flags & " + std::to_string(kFlagRecurring) + ")";
    const std::string isPlain = reminds + " AND " + recurs + " = 0";
    // Each lead once, by a search for the next greater one: however many leads there are, it is one question to the
    // store. A lead below zero counts as none.
    const std::string leads = "WITH RECURSIVE lead(minutes) AS (SELECT (SELECT reminder_minutes FROM item WHERE " +
                              isPlain +
                              " ORDER BY reminder_minutes LIMIT 1) UNION ALL SELECT (SELECT reminder_minutes FROM item"
                              " WHERE " +
                              isPlain +
                              " AND reminder_minutes > minutes ORDER BY reminder_minutes LIMIT 1)"
                              " FROM lead WHERE minutes IS NOT NULL) ";
    return {leads + "SELECT oid, start, zone, zone_start, minutes FROM lead CROSS JOIN item WHERE " + isPlain +
                " AND reminder_minutes = minutes AND start BETWEEN ?1 + ?2 * max(minutes, 0) * 60"
                " AND ?3 + max(minutes, 0) * 60 AND minutes >= ?4",
            leads + "SELECT min((SELECT start FROM item WHERE " + isPlain +
                " AND reminder_minutes = minutes AND start >= ?1 + max(minutes, 0) * 60 ORDER BY start LIMIT 1)"
                " - max(minutes, 0) * 60) FROM lead",
            "SELECT oid, reminder_minutes FROM item WHERE " + reminds + " AND " + recurs + " = " +
                std::to_string(kFlagRecurring)}; // equal: only then the index leads to them
}

// Made once: a statement is known by the place of its text.
const IndexStatements& GetIndexStatements() {
    static const IndexStatements statements = MakeIndexStatements();
    return statements;
}

constexpr Moment LeadOf(std::int64_t minutes) {
    return std::max<std::int64_t>(minutes, 0) * kMinute;
}

} // namespace

struct ReminderFinder::Item {
    std::int64_t Start = 0;
    ZoneId Zone = kFloating;
    std::int64_t OwnStart = 0;
    std::int64_t Flags = 0;
    Moment Lead = 0;
    ReminderText Text;
};

// Whole days of the lead go by the clock on the wall, the rest is time that passes: "a day before" nine o'clock is nine
// o'clock, and "half an hour before" is half an hour, also where the clock changes in between.
Moment ReminderFinder::DueOf(ZoneId zone, std::int64_t own, Moment lead) {
    return Core.Zones.ToUtc(zone, own - lead / kDay * kDay) - lead % kDay;
}

DueReminder ReminderFinder::MakePlain(Oid oid, ZoneId zone, std::int64_t own, Moment lead) {
    return {{oid, 0, own - lead}, DueOf(zone, own, lead), Core.Zones.ToUtc(zone, own)};
}

Status ReminderFinder::MakeOccurrence(const RemindingSeries& series, const Entry& entry, DueReminder& reminder) {
    std::int64_t own = entry.Original;
    if (entry.Kind == EntryKind::Moved) {
        Query query(Core.Db, "SELECT start FROM exception WHERE oid = ? AND original = ?");
        if (!query.Bind(entry.Item).Bind(entry.Original).Next()) {
            return Failed(query.Result()) ? query.Result() : Status::Corrupt;
        }
        own = query.Integer(0);
    }
    reminder = MakePlain(entry.Item, series.Row.Zone, own, series.Lead);
    reminder.Key.Original = entry.Original;
    return Status::Ok;
}

Status ReminderFinder::ReadSeries(std::int64_t from) {
    std::int64_t items = 0;
    std::int64_t ledger = 0;
    if (const Status status = Core.ReadChangeCounts(items, ledger); Failed(status)) {
        return status;
    }
    if (items == SeriesState && from >= SeriesFrom) {
        return Status::Ok;
    }
    Series.clear();
    SeriesState = -1;
    std::unordered_map<Oid, Moment> leads;
    Query query(Core.Db, GetIndexStatements().Series.c_str());
    while (query.Next()) {
        leads.emplace(query.Small(0), LeadOf(query.Integer(1)));
    }
    std::vector<SeriesRow> rows;
    Status status = query.Result();
    if (Succeeded(status)) {
        status = ReadSeriesTouching(Core.Db, from, kForever, rows);
    }
    if (Failed(status)) {
        return status;
    }
    for (const SeriesRow& row : rows) {
        if (const auto lead = leads.find(row.Item); lead != leads.end()) {
            Series.push_back({row, lead->second});
        }
    }
    Series.shrink_to_fit();
    SeriesFrom = from;
    SeriesState = items;
    return Status::Ok;
}

Status ReminderFinder::WalkPlain(const PlainSpan& span, const Visit& visit) {
    Query query(Core.Db, GetIndexStatements().PlainSpan.c_str());
    query.Bind(span.From).Bind(span.FromMoves ? 1 : 0).Bind(span.To);
    query.Bind(span.LeadsOnly ? 1 : std::numeric_limits<std::int32_t>::min());
    while (query.Next()) {
        const bool zoned = !query.IsNull(2);
        const ZoneId zone = zoned ? query.Integer(2) : kFloating;
        visit(MakePlain(query.Small(0), zone, query.Integer(zoned ? 3 : 1), LeadOf(query.Integer(4))));
    }
    return query.Result();
}

Status ReminderFinder::WalkSeries(const RemindingSeries& series, std::int64_t from, std::int64_t to,
                                  ExpansionBudget& budget, const Visit& visit) {
    if (series.Row.First > to || series.Row.Until < from) {
        return Status::Ok;
    }
    Entries.clear();
    Status status = Core.Items.Series().Expand(series.Row, from, to, Entries, budget);
    for (const Entry& entry : Entries) {
        DueReminder reminder;
        if (Succeeded(status)) {
            status = MakeOccurrence(series, entry, reminder);
        }
        if (Succeeded(status)) {
            visit(reminder);
        }
    }
    return status;
}

Status ReminderFinder::FindDue(Moment after, Moment upTo, const Visit& visit) {
    const Visit visitDue = [&](const DueReminder& reminder) {
        if (reminder.At > after && reminder.At <= upTo) {
            visit(reminder);
        }
    };
    const std::int64_t from = Core.Zones.UtcToWall(after) - kSlack;
    const std::int64_t to = Core.Zones.UtcToWall(upTo) + kSlack;
    Status status = WalkPlain({from, to, true, false}, visitDue);
    if (Succeeded(status)) {
        status = ReadSeries(from);
    }
    std::vector<std::size_t> leftOut;
    return Succeeded(status) ? WalkAll(from, to, visitDue, leftOut) : status;
}

Status ReminderFinder::WalkAll(std::int64_t from, std::int64_t to, const Visit& visit,
                               std::vector<std::size_t>& leftOut) {
    Status status = Status::Ok;
    leftOut = ShareWork(Series.size(), (to - from) / kDay + 1, [&](std::size_t index, ExpansionBudget& budget) {
        const RemindingSeries& series = Series[index];
        status = WalkSeries(series, from + series.Lead, to + series.Lead, budget, visit);
        return Succeeded(status);
    });
    std::sort(leftOut.begin(), leftOut.end());
    return status;
}

Status ReminderFinder::FindAhead(Moment now, const Visit& visit) {
    const Visit visitAhead = [&](const DueReminder& reminder) {
        if (reminder.At <= now && reminder.Start > now) {
            visit(reminder);
        }
    };
    const std::int64_t wall = Core.Zones.UtcToWall(now);
    Status status = WalkPlain({wall - kSlack, wall + kSlack, false, true}, visitAhead);
    if (Succeeded(status)) {
        status = ReadSeries(wall - kSlack);
    }
    if (Succeeded(status)) {
        ShareWork(Series.size(), kDaysAhead, [&](std::size_t index, ExpansionBudget& budget) {
            status = WalkAhead(Series[index], now, budget, visit);
            return Succeeded(status);
        });
    }
    return status;
}

Status ReminderFinder::WalkAhead(const RemindingSeries& series, Moment now, ExpansionBudget& budget,
                                 const Visit& visit) {
    std::vector<DueReminder> found;
    const std::int64_t wall = Core.Zones.UtcToWall(now);
    const std::int64_t last = wall + series.Lead + kSlack;
    Status status = Status::Ok;
    std::int64_t from = wall - kSlack;
    for (Moment reach = kFirstReach; from <= last && found.size() < kMostAhead && Succeeded(status); reach *= 4) {
        const std::int64_t to = std::min(from + reach, last);
        status = WalkSeries(series, from, to, budget, [&](const DueReminder& reminder) {
            if (reminder.At <= now && reminder.Start > now) {
                found.push_back(reminder);
            }
        });
        if (budget.IsSpent()) {
            return status;
        }
        from = to + 1;
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const DueReminder& left, const DueReminder& right) { return left.Start < right.Start; });
    found.resize(std::min(found.size(), kMostAhead));
    std::for_each(found.begin(), found.end(), visit);
    return status;
}

// The first of each lead that is surely after the moment bounds how far to look for those that may be before it.
Status ReminderFinder::FindNextPlain(Moment after, Moment& best) {
    const std::int64_t wall = Core.Zones.UtcToWall(after);
    std::int64_t to = wall + kSlack;
    {
        Query query(Core.Db, GetIndexStatements().FirstPlain.c_str());
        if (query.Bind(to).Next() && !query.IsNull(0)) {
            to = query.Integer(0) + 2 * kSlack;
        }
        if (Failed(query.Result())) {
            return query.Result();
        }
    }
    return WalkPlain({wall - kSlack, to, true, false}, [&](const DueReminder& reminder) {
        if (reminder.At > after) {
            best = std::min(best, reminder.At);
        }
    });
}

Status ReminderFinder::FindNextOfSeries(Moment after, Moment& best) {
    const std::int64_t wall = Core.Zones.UtcToWall(after);
    Status status = ReadSeries(wall - kSlack);
    std::int64_t from = wall - kSlack;
    ExpansionBudget all(kStepsOfNextReminder);
    std::vector<std::size_t> leftOut;
    const Visit visit = [&](const DueReminder& reminder) {
        if (reminder.At > after) {
            best = std::min(best, reminder.At);
        }
    };
    // Everything that is due before a plain item's reminder starts soon: that far all series are looked at.
    for (Moment reach = kFirstReach; reach <= kFarthestReach && Succeeded(status); reach *= 4) {
        const std::int64_t farthest = wall + reach;
        const std::int64_t to = best == kForever ? farthest : std::min(farthest, Core.Zones.UtcToWall(best) + kSlack);
        if (reach == kFirstReach) {
            status = WalkAll(from, to, visit, leftOut);
        }
        for (std::size_t index = 0; index < Series.size() && reach > kFirstReach && Succeeded(status); ++index) {
            if (!std::binary_search(leftOut.begin(), leftOut.end(), index)) {
                const RemindingSeries& series = Series[index];
                const std::int64_t share = std::min(all.GetRest(), kStepsOfExpansion);
                ExpansionBudget own(share);
                status = WalkSeries(series, from + series.Lead, to + series.Lead, own, visit);
                // What has a fault costs the others nothing; what takes too long may still remind.
                all.Take(own.IsSpent() && !own.IsHopeless() ? all.GetRest() + 1 : share - own.GetRest());
            }
        }
        if (all.IsSpent()) {
            // Up to here all series were looked through; from a day before it on they are another time.
            best = std::min(best, after + (from - wall) - kSlack);
            break;
        }
        from = to;
        if (best != kForever && Core.Zones.UtcToWall(best) + kSlack <= to) {
            break;
        }
    }
    return status;
}

Status ReminderFinder::FindNext(Moment after, std::optional<Moment>& next) {
    Moment best = kForever;
    Status status = FindNextPlain(after, best);
    if (Succeeded(status)) {
        status = FindNextOfSeries(after, best);
    }
    next = best == kForever ? std::nullopt : std::optional(best);
    return status;
}

Status ReminderFinder::FindTime(const ReminderKey& key, std::optional<Moment>& due) {
    due.reset();
    Query query(Core.Db, "SELECT zone, reminder_minutes FROM item WHERE oid = ? AND flags & ?");
    if (query.Bind(key.Item).Bind(kFlagReminder).Next()) {
        const ZoneId zone = query.IsNull(0) ? kFloating : query.Integer(0);
        const Moment lead = LeadOf(query.Integer(1));
        due = DueOf(zone, key.Due + lead, lead);
    }
    return query.Result();
}

Status ReminderFinder::DescribePlain(const ReminderKey& key, Item& item, bool& stands) {
    const std::int64_t own = item.Zone == kFloating ? item.Start : item.OwnStart;
    stands = key.Original == 0 && own - item.Lead == key.Due;
    item.Text.StartWall = item.Start;
    return Status::Ok;
}

Status ReminderFinder::DescribeOccurrence(const ReminderKey& key, Item& item, bool& stands) {
    stands = false;
    std::int64_t own = key.Original;
    Query exception(Core.Db, "SELECT kind, start, subject, location FROM exception WHERE oid = ? AND original = ?");
    const bool excepted = exception.Bind(key.Item).Bind(key.Original).Next();
    if (Failed(exception.Result())) {
        return exception.Result();
    }
    if (excepted) {
        if (exception.Small(0) != static_cast<int>(ExceptionKind::Moved)) {
            return Status::Ok;
        }
        own = exception.Integer(1);
        item.Text.Title = exception.IsNull(2) ? item.Text.Title : std::string(exception.Text(2));
        item.Text.Location = exception.IsNull(3) ? item.Text.Location : std::string(exception.Text(3));
    }
    item.Text.StartWall = Core.Zones.ToWall(item.Zone, own);
    if (own - item.Lead != key.Due) {
        return Status::Ok;
    }
    SeriesRow row;
    const std::int64_t from = item.Text.StartWall - kSlack;
    const std::int64_t to = item.Text.StartWall + kSlack;
    Status status = ReadSeriesOf(Core.Db, key.Item, row);
    if (status == Status::Ok && row.First <= to && row.Until >= from) {
        Entries.clear();
        ExpansionBudget budget(kStepsOfExpansion);
        status = Core.Items.Series().Expand(row, from, to, Entries, budget);
        stands = std::any_of(Entries.begin(), Entries.end(),
                             [&key](const Entry& entry) { return entry.Original == key.Original; });
    }
    return status;
}

Status ReminderFinder::Describe(const ReminderKey& key, std::optional<ReminderText>& text) {
    text.reset();
    Item item;
    {
        Query query(Core.Db, "SELECT start, zone, zone_start, flags, reminder_minutes, reminder_options,"
                             " reminder_sound, subject, location FROM item WHERE oid = ?");
        if (!query.Bind(key.Item).Next()) {
            return query.Result();
        }
        item.Start = query.Integer(0);
        item.Zone = query.IsNull(1) ? kFloating : query.Integer(1);
        item.OwnStart = query.Integer(2);
        item.Flags = query.Integer(3);
        item.Lead = LeadOf(query.Integer(4));
        item.Text.Options = query.Small(5);
        item.Text.Sound = query.Text(6);
        item.Text.Title = query.Text(7);
        item.Text.Location = query.Text(8);
    }
    item.Text.AllDay = (item.Flags & kFlagAllDay) != 0;
    if ((item.Flags & kFlagReminder) == 0) {
        return Status::Ok;
    }
    bool stands = false;
    const Status status =
        (item.Flags & kFlagRecurring) == 0 ? DescribePlain(key, item, stands) : DescribeOccurrence(key, item, stands);
    if (Succeeded(status) && stands) {
        text = std::move(item.Text);
    }
    return status;
}

} // namespace tavo::outlook
