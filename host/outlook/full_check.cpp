// The full check: SQLite's own, references, then the rules that hold between the tables.
#include "host/outlook/full_check.h"

#include "host/locale/harmless_text.h"
#include "host/outlook/entry_reader.h"
#include "host/outlook/item_image.h"
#include "host/outlook/row_sum.h"
#include "host/outlook/schema.h"
#include "host/outlook/store_core.h"
#include "host/outlook/text.h"
#include "host/outlook/verdict_words.h"
#include "host/rules/save_rules.h"
#include "host/rules/zone_rules.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <iterator>
#include <map>
#include <set>

namespace tavo::outlook {

namespace {

constexpr std::size_t kMaxFindings = 100;

std::string DescribeChangedRow(std::string_view table, const std::string& key) {
    if (table == "zone") {
        return "The time zone " + key +
               " has changed by itself: a bit of it flipped on the disk."
               " Look over the times of the entries in it.";
    }
    if (table == "journal_change") {
        return "Step " + key +
               " of undo has changed by itself: a bit of it flipped on the disk. It can no longer be"
               " undone; it goes by itself when newer steps have come.";
    }
    const std::string part = table == "item"        ? "a text or time of it"
                             : table == "ink"       ? "its note"
                             : table == "exception" ? "an occurrence of it"
                             : table == "carried"   ? "a line that came with it"
                                                    : "its recurrence";
    return "Item " + key + " is not as it was saved: " + part +
           " has changed by itself on the disk. Look it over, change " +
           (table == "ink" ? "the note" : "something in it") + " and save it.";
}

// The full check of an open store: SQLite's own, references, then the rules that hold between the tables.
class FullCheck {
  public:
    explicit FullCheck(StoreCore& core) : Core(core) {}

    // The worst that was found, and all findings, the worst first.
    Diagnosis Conclude(Status checked) {
        const Verdict kinds[] = {Verdict::Damaged, Verdict::Altered, Verdict::Blemished, Verdict::LeavesOut};
        Diagnosis diagnosis =
            DescribeVerdict(Failed(checked) && Found[Verdict::Damaged].empty() ? VerdictOf(checked) : Verdict::Ok);
        for (const Verdict kind : kinds) {
            std::vector<std::string>& found = Found[kind];
            if (!found.empty() && diagnosis.State == Verdict::Ok) {
                diagnosis = DescribeVerdict(kind);
            }
            const std::size_t room = kMaxFindings - std::min(kMaxFindings, diagnosis.Findings.size());
            found.resize(std::min(room, found.size()));
            std::move(found.begin(), found.end(), std::back_inserter(diagnosis.Findings));
        }
        return diagnosis;
    }

    Status Run() {
        Status status = CheckPages();
        if (Succeeded(status)) {
            status = CheckReferences();
        }
        if (Succeeded(status)) {
            status = CheckTables();
        }
        if (Succeeded(status)) {
            status = CheckSums();
        }
        if (Succeeded(status)) {
            status = CheckItems();
        }
        if (Succeeded(status)) {
            status = CheckListing();
        }
        if (Succeeded(status)) {
            status = CheckZones();
        }
        return Succeeded(status) ? CheckJournal() : status;
    }

    // A bit that flipped where SQLite cannot see it: within a text or a number.
    Status CheckSums() {
        Query version(Core.Db, "PRAGMA user_version");
        const std::int32_t fileVersion = version.Next() ? version.Small(0) : kSchemaVersion;
        if (fileVersion < kSummedVersion) {
            return Status::Ok; // it is brought forward when the program starts
        }
        static const std::array<std::string, kSummedTables.size()> statements = [] {
            std::array<std::string, kSummedTables.size()> made;
            std::transform(kSummedTables.begin(), kSummedTables.end(), made.begin(), SqlToFindChanged);
            return made;
        }();
        for (std::size_t index = 0; index < statements.size(); ++index) {
            if (fileVersion < kCarryingVersion && kSummedTables[index].Name == std::string_view(kCarriedTable.Name)) {
                continue;
            }
            Query query(Core.Db, statements[index].c_str());
            while (query.Next()) {
                const std::string_view table = kSummedTables[index].Name;
                const bool isBeside = table == "zone" || table == "journal_change"; // no save writes those again
                if (!isBeside) {
                    Altered.insert(query.Small(0));
                }
                Find(DescribeChangedRow(table, std::string(query.Text(0))),
                     isBeside ? Verdict::Blemished : Verdict::Altered);
            }
            if (Failed(query.Result())) {
                return query.Result();
            }
        }
        return Status::Ok;
    }

  private:
    void Find(std::string finding, Verdict kind = Verdict::Damaged) {
        if (Found[kind].size() < kMaxFindings) {
            Found[kind].push_back(std::move(finding));
        }
    }

    Status CheckPages() {
        Query query(Core.Db, "PRAGMA integrity_check(100)");
        while (query.Next()) {
            if (query.Text(0) != "ok") {
                Find(std::string(query.Text(0)));
            }
        }
        return query.Result();
    }

    Status CheckReferences() {
        Query query(Core.Db, "PRAGMA foreign_key_check");
        while (query.Next()) {
            Find("A row of " + std::string(query.Text(0)) + " refers to nothing in " + std::string(query.Text(2)) +
                 ".");
        }
        return query.Result();
    }

    // Each query gives the OIDs that break a rule between the tables.
    Status CheckTables() {
        struct Rule {
            const char* Sql;
            const char* Words;
        };

        constexpr Rule kRules[] = {
            {"SELECT oid FROM item WHERE flags & 4 = 0 AND NOT EXISTS (SELECT 1 FROM plain WHERE plain.oid = item.oid"
             " AND plain.start = item.start AND plain.length = item.length"
             " AND plain.span = (item.length > 86400))",
             "is missing from the listing by time"},
            {"SELECT oid FROM plain WHERE NOT EXISTS (SELECT 1 FROM item WHERE item.oid = plain.oid"
             " AND item.start = plain.start AND item.flags & 4 = 0)",
             "is listed but not there"},
            {"SELECT oid FROM item WHERE flags & 4 <> 0 AND NOT EXISTS (SELECT 1 FROM series WHERE series.oid ="
             " item.oid)",
             "has lost its recurrence"},
            {"SELECT oid FROM series WHERE type = 7 AND NOT EXISTS (SELECT 1 FROM foreign_rule WHERE"
             " foreign_rule.oid = series.oid)",
             "has lost its recurrence rule"},
            {"SELECT series.oid FROM series JOIN item USING (oid) WHERE item.flags & 4 = 0",
             "has a recurrence that does not count"},
            {"SELECT oid FROM item WHERE oid >= (SELECT value FROM setting WHERE name = 'next_oid')",
             "has a number that is still to be given"},
        };
        for (const Rule& rule : kRules) {
            Query query(Core.Db, rule.Sql);
            while (query.Next()) {
                Find("Item " + std::to_string(query.Integer(0)) + " " + rule.Words + ".");
            }
            if (Failed(query.Result())) {
                return query.Result();
            }
        }
        return Status::Ok;
    }

    Status CheckItems() {
        Query query(Core.Db, "SELECT oid FROM item");
        while (query.Next()) {
            const Oid oid = query.Small(0);
            StoredItem item;
            const Status status = Core.Items.Read(oid, Ink::Leave, item);
            if (status == Status::Corrupt) {
                Find("Item " + std::to_string(oid) + " cannot be read whole.");
            } else if (Failed(status)) {
                return status;
            } else if (const SaveFault fault = CheckAndDerive(item); fault != SaveFault::None) {
                // A flipped number may be one that no item can have; to change and save the item mends that too.
                Find("Item " + std::to_string(oid) + " is impossible: " + std::string(DescribeFault(fault)) + ".",
                     Altered.count(oid) > 0 ? Verdict::Altered : Verdict::Damaged);
            } else if (const std::string rule = Core.Items.Series().FindRuleFault(item); !rule.empty()) {
                LeaveOut("Item " + std::to_string(oid) + " (" + ToUtf8(item.Subject) + "): " + rule + ".");
                Faulty.insert(oid);
            }
        }
        return query.Result();
    }

    // What is in order by itself may still take too long beside all others: the month from today on tells.
    Status CheckListing() {
        constexpr DayNumber kDays = 31;
        EntrySpan span;
        span.LowestStart = (std::time(nullptr) / kSecondsPerDay + kUnixEpochDay) * kSecondsPerDay;
        span.HighestStart = span.LowestStart + kDays * kSecondsPerDay - 1;
        span.LowestEnd = span.LowestStart;
        span.Series = SeriesAs::Occurrences;
        EntryReader reader(Core, span);
        std::vector<Entry> entries;
        while (!reader.AtEnd()) {
            entries.clear();
            const Status status = reader.ReadPiece(entries);
            if (status == Status::Corrupt) {
                return Status::Ok; // that item is named already
            }
            if (Failed(status)) {
                return status;
            }
        }
        for (const Oid oid : reader.GetLeftOut()) {
            StoredItem item;
            if (Faulty.count(oid) == 0 && Succeeded(Core.Items.Read(oid, Ink::Leave, item))) {
                LeaveOut("Item " + std::to_string(oid) + " (" + ToUtf8(item.Subject) +
                         "): beside all others it takes too long to work out when it recurs.");
            }
        }
        return Status::Ok;
    }

    // Items in such a zone keep the times that they had.
    Status CheckZones() {
        Query query(Core.Db, "SELECT name, component FROM zone WHERE component IS NOT NULL");
        while (query.Next()) {
            std::string fault;
            if (ParseZoneComponent(std::string(query.Text(1)), fault) == nullptr) {
                LeaveOut("The time zone \"" + std::string(query.Text(0)) + "\" " + fault +
                         "; items in it keep the times that they had.");
            }
        }
        return query.Result();
    }

    void LeaveOut(const std::string& what) { Find(locale::MakeHarmless(what), Verdict::LeavesOut); }

    Status CheckJournal() {
        Query query(Core.Db, "SELECT group_id, kind, image FROM journal_change");
        while (query.Next()) {
            ItemImage image;
            TagPlace place;
            const auto kind = static_cast<ChangeKind>(query.Small(1));
            const bool isItem = kind == ChangeKind::Changed || kind == ChangeKind::Deleted;
            const bool isTag = kind == ChangeKind::TagInserted || kind == ChangeKind::TagRemoved;
            if ((isItem && !DecodeImage(query.Blob(2), image)) || (isTag && !DecodeTag(query.Blob(2), place))) {
                Find("Step " + std::to_string(query.Integer(0)) + " can no longer be undone.", Verdict::Blemished);
            }
        }
        return query.Result();
    }

    StoreCore& Core;
    std::map<Verdict, std::vector<std::string>> Found;
    std::set<Oid> Altered; // items with a row that is not as it was saved
    std::set<Oid> Faulty;  // series that never give an occurrence
};

} // namespace

Diagnosis CheckFully(StoreCore& core) {
    FullCheck check(core);
    return check.Conclude(check.Run());
}

Diagnosis CheckRows(StoreCore& core) {
    FullCheck check(core);
    return check.Conclude(check.CheckSums());
}

} // namespace tavo::outlook
