// tavo-rule-costs RULES: what ten years of that many rules take, a fifth of them beyond the device's six types.
//
// Prints in one line: ns of processor time for all rules by ours, their occurrences, ns and occurrences of every
// forty-first rule by ours and by libical, ns of a month of those rules in 2029 and in 2300, and ns of the slowest of a
// set of hostile rules for a year.
#include "benchmarks/costs.h"
#include "host/exchange/byte_source.h"
#include "host/exchange/calendar_file.h"
#include "host/posix/zone_database.h"
#include "host/rules/save_rules.h"
#include "host/rules/series.h"
#include "host/rules/zones.h"

#include <libical/ical.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace tavo;
using rules::Seconds;

constexpr int kTypes = 6;
constexpr int kEveryForeign = 5;    // one rule in so many is beyond the six types
constexpr std::size_t kSample = 41; // one rule in so many, of all kinds, is given to libical, which is slow
constexpr int kFirstYear = 2026;
constexpr int kYears = 10;

// With the day of the month and the weekday of the start where a rule of the six types must have them.
std::string MakePlainRule(int number, const rules::CivilDate& date, int weekday) {
    constexpr std::array<const char*, 7> names = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
    const char* const name = names[static_cast<std::size_t>(weekday)];
    const std::string nth = std::to_string((date.Day - 1) / 7 + 1) + name;
    const std::string interval = ";INTERVAL=" + std::to_string(1 + number / kTypes % 3);
    switch (number % kTypes) {
    case 0:
        return "FREQ=DAILY" + interval;
    case 1:
        return "FREQ=WEEKLY" + interval + ";BYDAY=" + name + (weekday == 5 ? "" : ",FR");
    case 2:
        return "FREQ=MONTHLY" + interval + ";BYMONTHDAY=" + std::to_string(date.Day);
    case 3:
        return "FREQ=MONTHLY" + interval + ";BYDAY=" + nth;
    case 4:
        return "FREQ=YEARLY;BYMONTH=" + std::to_string(date.Month) + ";BYMONTHDAY=" + std::to_string(date.Day);
    default:
        return "FREQ=YEARLY;BYMONTH=" + std::to_string(date.Month) + ";BYDAY=" + nth;
    }
}

constexpr std::array kForeignRules = {
    "FREQ=MONTHLY;BYDAY=FR;BYMONTHDAY=13",
    "FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=-1",
    "FREQ=MONTHLY;BYMONTHDAY=1,15",
    "FREQ=WEEKLY;INTERVAL=2;WKST=MO;BYDAY=TU,SU",
    "FREQ=YEARLY;BYWEEKNO=20;BYDAY=MO",
    "FREQ=YEARLY;BYYEARDAY=1,100,200",
    "FREQ=YEARLY;INTERVAL=4;BYMONTH=11;BYDAY=TU;BYMONTHDAY=2,3,4,5,6,7,8",
    "FREQ=MONTHLY;BYDAY=1MO,-1FR",
    "FREQ=DAILY;BYMONTH=1,7",
    "FREQ=YEARLY;BYMONTH=3,9;BYMONTHDAY=-1",
    "FREQ=WEEKLY;BYDAY=MO;BYHOUR=9,14",
};

constexpr std::array kHostileRules = {
    "FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30",
    "FREQ=YEARLY;INTERVAL=4;BYMONTH=2;BYMONTHDAY=29;BYDAY=MO;BYYEARDAY=-1",
    "FREQ=HOURLY;BYHOUR=0,2,4,6,8,10,12,14,16,18,20,22;BYMINUTE=0,15,30,45;BYSETPOS=1,2,3,4",
    "FREQ=DAILY;BYHOUR=0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23;BYMINUTE=0,15,30,45",
    "FREQ=DAILY;COUNT=999999999",
    "FREQ=HOURLY;INTERVAL=9999999;BYYEARDAY=366",
    "FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR,SA,SU;BYMONTHDAY=1,2,3,4,5,6,7,8,9,10,11,12,13,14,15;BYSETPOS=-1,1,2,3",
};

struct Rule {
    std::string Start;
    std::string Text;
};

std::vector<Rule> MakeRules(int count) {
    std::vector<Rule> made;
    made.reserve(static_cast<std::size_t>(count));
    const rules::DayNumber first = rules::DayFromCivil(kFirstYear - kYears, 1, 1);
    for (int number = 0; number < count; ++number) {
        rules::DayNumber day = first + static_cast<rules::DayNumber>(number) * 365 * kYears / count;
        rules::CivilDate date = rules::CivilFromDay(day);
        if (date.Day > 28) { // a day that every month has
            day -= 7;
            date = rules::CivilFromDay(day);
        }
        char start[32];
        std::snprintf(start, sizeof start, "%04d%02d%02dT%02d3000", date.Year, date.Month, date.Day, 7 + number % 13);
        const bool isForeign = number % kEveryForeign == 0;
        const auto shape = static_cast<std::size_t>(number / kEveryForeign) % kForeignRules.size();
        made.push_back({start, isForeign ? kForeignRules[shape] : MakePlainRule(number, date, rules::WeekdayOf(day))});
    }
    return made;
}

// Everything is on the device's own clock.
class NoZones final : public rules::Zones {
  public:
    NoZones() : Zones(posix::SystemZones()) {}

    const rules::ZoneRules* Rules(rules::ZoneId /*zone*/) override { return nullptr; }

    const rules::ZoneRules* RulesByName(const std::string& /*name*/) override { return nullptr; }
};

// Takes the items as the store would, and answers what the expander asks the store.
class Collection final : public exchange::IEntrySink, public rules::ISeriesDetails {
  public:
    explicit Collection(rules::Zones& zones) : Expander(*this, zones) {}

    bool OnItem(rules::StoredItem item, const std::vector<TagList>& /*kinds*/, int /*line*/) override {
        item.Item = static_cast<Oid>(Series.size());
        if (rules::CheckAndDerive(item) != rules::SaveFault::None || !Expander.FindRuleFault(item).empty()) {
            ++Refused;
            return true;
        }
        rules::SeriesRow row;
        row.Item = item.Item;
        row.Start = item.Start;
        row.Length = item.End - item.Start;
        row.Pattern = item.Pattern;
        Lines.push_back(item.ForeignRule);
        Expander.FindBounds(row, item.ForeignRule, {});
        Series.push_back(row);
        return true;
    }

    bool OnLoneOccurrence(const exchange::LoneOccurrence& /*occurrence*/, int /*line*/) override { return true; }

    bool OnRefused(int /*line*/, const std::string& /*reason*/) override {
        ++Refused;
        return true;
    }

    void OnMended(int /*line*/, const std::string& /*what*/) override {}

    bool OnPassedOver(exchange::PassedOver /*what*/, int /*line*/, const std::string& /*reason*/) override {
        return true;
    }

    bool OnProgress(std::int64_t /*offset*/) override { return true; }

    std::unique_ptr<rules::ZoneRules> LoadZone(const std::string& /*name*/) override { return nullptr; }

    bool DefineZone(const std::string& /*name*/, const std::string& /*component*/) override { return false; }

    Status ReadForeignRule(Oid item, std::string& lines) override {
        lines = Lines[static_cast<std::size_t>(item)];
        return Status::Ok;
    }

    Status ReadExceptions(Oid /*item*/, const std::function<bool(const rules::StoredException&)>& /*take*/) override {
        return Status::Ok;
    }

    void Import(const std::vector<Rule>& made) {
        std::string file = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Benchmark//EN\r\n";
        for (const Rule& rule : made) {
            file += "BEGIN:VEVENT\r\nDTSTART:" + rule.Start + "\r\nRRULE:" + rule.Text + "\r\nEND:VEVENT\r\n";
        }
        file += "END:VCALENDAR\r\n";
        exchange::MemorySource source(file);
        exchange::FileFault fault;
        exchange::ReadCalendarFile(source, *this, exchange::Manner::Lenient, fault);
    }

    // Occurrences of every `step`th series.
    std::size_t Expand(Seconds from, Seconds to, std::size_t step) {
        std::size_t found = 0;
        std::vector<rules::Entry> entries;
        for (std::size_t index = 0; index < Series.size(); index += step) {
            if (Series[index].First > to || Series[index].Until < from) {
                continue; // which is all that the store looks at, too
            }
            rules::ExpansionBudget budget(rules::kStepsOfExpansion);
            entries.clear();
            static_cast<void>(Expander.Expand(Series[index], from, to, entries, budget));
            found += entries.size();
        }
        return found;
    }

    rules::SeriesExpander Expander;
    std::vector<rules::SeriesRow> Series;
    std::vector<std::string> Lines;
    int Refused = 0;
};

// The other opinion, which knows only to walk from the start.
std::size_t WalkWithLibical(const std::vector<Rule>& made, std::size_t step) {
    const icaltimetype from = icaltime_from_string((std::to_string(kFirstYear) + "0101T000000").c_str());
    const icaltimetype to = icaltime_from_string((std::to_string(kFirstYear + kYears) + "0101T000000").c_str());
    std::size_t found = 0;
    for (std::size_t index = 0; index < made.size(); index += step) {
        icalrecur_iterator* const walk = icalrecur_iterator_new(
            icalrecurrencetype_from_string(made[index].Text.c_str()), icaltime_from_string(made[index].Start.c_str()));
        if (walk == nullptr) {
            continue;
        }
        for (icaltimetype next = icalrecur_iterator_next(walk);
             icaltime_is_null_time(next) == 0 && icaltime_compare(next, to) < 0; next = icalrecur_iterator_next(walk)) {
            found += icaltime_compare(next, from) >= 0 ? 1U : 0U;
        }
        icalrecur_iterator_free(walk);
    }
    return found;
}

template <class Work> long long TimeOf(const Work& work) {
    const long long begin = bench::ReadProcessorTime();
    work();
    return bench::ReadProcessorTime() - begin;
}

// The most that any of them takes, at its import or in a listing of a year.
long long TimeHostileRules(rules::Zones& zones) {
    long long slowest = 0;
    for (const char* const rule : kHostileRules) {
        Collection one(zones);
        slowest = std::max(slowest, TimeOf([&one, rule] { one.Import({{"20260101T080000", rule}}); }));
        slowest = std::max(
            slowest, TimeOf([&one] { one.Expand(rules::MakeTime(2999, 1, 1), rules::MakeTime(2999, 12, 31), 1); }));
    }
    return slowest;
}

} // namespace

int main(int count, char** arguments) {
    const int number = count == 2 ? bench::ReadNumber(arguments[1]) : 0;
    if (number <= 0) {
        std::fprintf(stderr, "usage: tavo-rule-costs RULES\n");
        return 2;
    }
    NoZones zones;
    const std::vector<Rule> made = MakeRules(number);
    Collection all(zones);
    all.Import(made);
    if (all.Series.size() != made.size()) {
        std::fprintf(stderr, "tavo-rule-costs: %d rules were refused\n", all.Refused);
        return 1;
    }
    const Seconds from = rules::MakeTime(kFirstYear, 1, 1);
    const Seconds to = rules::MakeTime(kFirstYear + kYears, 1, 1) - 1;
    std::size_t found = 0;
    std::size_t sampled = 0;
    std::size_t others = 0;
    const long long whole = TimeOf([&] { found = all.Expand(from, to, 1); });
    const long long sample = TimeOf([&] { sampled = all.Expand(from, to, kSample); });
    const long long libical = TimeOf([&] { others = WalkWithLibical(made, kSample); });
    const auto month = [&all](int year) {
        return TimeOf([&all, year] { all.Expand(rules::MakeTime(year, 3, 1), rules::MakeTime(year, 4, 1) - 1, 1); });
    };
    const long long near = month(kFirstYear + 3);
    const long long far = month(2300);
    std::printf("%lld %zu %lld %zu %lld %zu %lld %lld %lld\n", whole, found, sample, sampled, libical, others, near,
                far, TimeHostileRules(zones));
    return 0;
}
