// Random patterns and windows: the store's arithmetic against a walk through a paper calendar.
#include "host/outlook/recurrence.h"
#include "host/outlook/series.h"
#include "tests/outlook/naive_expansion.h"
#include "tests/outlook/store_fixture.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <random>

namespace tavo::outlook::test {

namespace {

constexpr int kPatterns = 100000;
constexpr int kStoredPatterns = 1500;
constexpr int kStoredWindows = 60;
constexpr long kLastDay = 401768; // 2999-12-31

unsigned ReadSeed() {
    const char* text = std::getenv("TAVO_TEST_SEED");
    return text != nullptr ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : 20260503U;
}

// Draws rules, starts, ends and windows. Plain remainders, so that a seed means the same with every library.
class Dice {
  public:
    explicit Dice(unsigned seed) : Source(seed) {
        // Every first of a month is a place to start walking from.
        for (PaperDate date; date.Number <= kLastDay; date.GoToNextDay()) {
            if (date.Day == 1) {
                Months.push_back(date);
            }
        }
    }

    long Draw(long from, long to) {
        return from + static_cast<long>(Source() % static_cast<unsigned long>(to - from + 1));
    }

    bool Happens(long oneIn) { return Draw(1, oneIn) == 1; }

    PaperDate DrawDate() {
        PaperDate date = Months[static_cast<std::size_t>(Draw(0, static_cast<long>(Months.size()) - 1))];
        for (long steps = Draw(0, 30); steps > 0 && date.Number < kLastDay; --steps) {
            date.GoToNextDay();
        }
        return date;
    }

    PaperRule DrawRule(const PaperDate& start) {
        constexpr int kTypes[] = {0, 1, 2, 3, 5, 6};
        constexpr int kLengths[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        PaperRule rule;
        rule.Type = kTypes[Draw(0, 5)];
        rule.Interval = static_cast<int>(Happens(10) ? Draw(1, 999) : Happens(2) ? 1 : Draw(1, 12));
        rule.Mask = static_cast<int>(Happens(3) ? 1 << Draw(0, 6) : Happens(6) ? 62 : Draw(1, 127));
        rule.MonthOfYear = static_cast<int>(Happens(3) ? start.Month : Draw(1, 12));
        rule.DayOfMonth = static_cast<int>(Happens(3) ? start.Day : Happens(3) ? Draw(28, 31) : Draw(1, 31));
        if (rule.Type == 5) {
            rule.DayOfMonth = std::min(rule.DayOfMonth, kLengths[rule.MonthOfYear - 1]);
        }
        rule.Instance = static_cast<int>(Draw(1, 5));
        return rule;
    }

    // How far a walk may go: mostly some years, seldom to the end of time.
    long DrawReach(long from) { return std::min(kLastDay, from + (Happens(500) ? kLastDay : Draw(0, 366L * 12))); }

  private:
    std::mt19937 Source;
    std::vector<PaperDate> Months;
};

StoredPattern ToPattern(const PaperRule& rule) {
    StoredPattern pattern;
    pattern.Type = rule.Type;
    pattern.Interval = rule.Interval;
    pattern.DayOfWeekMask = rule.Mask;
    pattern.DayOfMonth = rule.DayOfMonth;
    pattern.Instance = rule.Instance;
    pattern.MonthOfYear = rule.MonthOfYear;
    return pattern;
}

std::string Describe(const PaperRule& rule, const PaperDate& start) {
    return "type " + std::to_string(rule.Type) + " interval " + std::to_string(rule.Interval) + " mask " +
           std::to_string(rule.Mask) + " day " + std::to_string(rule.DayOfMonth) + " instance " +
           std::to_string(rule.Instance) + " month " + std::to_string(rule.MonthOfYear) + " from " +
           TextOf(MidnightOf(start.Number));
}

std::vector<long> Between(const std::vector<long>& days, long from, long to) {
    return {std::lower_bound(days.begin(), days.end(), from), std::upper_bound(days.begin(), days.end(), to)};
}

} // namespace

TEST(RandomRecurrence, AHundredThousandPatternsMatchAWalkThroughTheCalendar) {
    const unsigned seed = ReadSeed();
    std::printf("seed %u\n", seed);
    Dice dice(seed);
    Database noDatabase;
    ZoneCache noZones(noDatabase);
    SeriesExpander expander(noDatabase, noZones);
    std::size_t occurrences = 0;
    for (int round = 0; round < kPatterns; ++round) {
        const PaperDate start = dice.DrawDate();
        const PaperRule rule = dice.DrawRule(start);
        SCOPED_TRACE("seed " + std::to_string(seed) + " round " + std::to_string(round) + ": " + Describe(rule, start));
        const long reach = dice.DrawReach(start.Number);
        SeriesRow row;
        row.Item = 1;
        row.Start = MidnightOf(start.Number) + Seconds{10} * 3600;
        row.Length = 1800;
        row.Pattern = ToPattern(rule);
        ASSERT_EQ(FindPatternFault(row.Pattern), PatternFault::None);
        long limit = kLastDay;
        long last = reach;
        if (dice.Happens(3)) {
            limit = dice.Draw(1, 60);
        } else if (dice.Happens(2)) {
            last = dice.Draw(start.Number, reach);
        }
        const std::vector<long> walked = WalkRule(rule, start, last, limit);
        if (limit < kLastDay) {
            row.Pattern.End = PatternEnd::AfterCount;
            row.Pattern.Occurrences = static_cast<std::int32_t>(limit);
        } else if (last < reach) {
            row.Pattern.End = PatternEnd::OnDate;
            row.Pattern.LastDay = last;
        }
        const bool derived = DerivePatternEnd(row.Pattern, start.Number);
        if (row.Pattern.End == PatternEnd::OnDate) {
            ASSERT_EQ(derived, !walked.empty());
            ASSERT_EQ(row.Pattern.Occurrences, static_cast<std::int32_t>(walked.size()));
        } else if (static_cast<long>(walked.size()) == limit) {
            ASSERT_TRUE(derived);
            ASSERT_EQ(row.Pattern.LastDay, walked.back());
        }
        if (!derived) {
            continue;
        }
        const long from = dice.Draw(start.Number - 40, reach);
        const long to = dice.Happens(4) ? reach : std::min(reach, from + dice.Draw(0, 400));
        std::vector<Entry> entries;
        ExpansionBudget budget(kStepsOfExpansion);
        ASSERT_EQ(expander.Expand(row, MidnightOf(from), MidnightOf(to + 1) - 1, entries, budget), Status::Ok);
        ASSERT_FALSE(budget.IsSpent());
        std::vector<long> computed;
        for (const Entry& entry : entries) {
            ASSERT_EQ(TimeOfDay(entry.Start), 10 * 3600);
            computed.push_back(static_cast<long>(DayOf(entry.Start)));
        }
        ASSERT_EQ(computed, Between(walked, from, to))
            << "window " << TextOf(MidnightOf(from)) << " to " << TextOf(MidnightOf(to));
        occurrences += computed.size();
    }
    EXPECT_GT(occurrences, static_cast<std::size_t>(kPatterns)); // most windows were not empty
}

class RandomStore : public StoreTest {};

TEST_F(RandomStore, RestrictedWindowsHoldTheWalkedOccurrences) {
    const unsigned seed = ReadSeed() + 1;
    std::printf("seed %u\n", seed);
    Dice dice(seed);
    const PaperDate first = FindPaperDate(2015, 1, 1);
    const long horizon = FindPaperDate(2030, 12, 31).Number;
    std::map<Oid, std::vector<long>> walked;
    ImportWriter writer(Store);
    ASSERT_EQ(writer.Begin(u"Patterns"), Status::Ok);
    for (int index = 0; index < kStoredPatterns; ++index) {
        PaperDate start = first;
        for (long steps = dice.Draw(0, 3650); steps > 0; --steps) {
            start.GoToNextDay();
        }
        const PaperRule rule = dice.DrawRule(start);
        StoredItem item;
        item.Start = MidnightOf(start.Number) + Seconds{10} * 3600;
        item.End = item.Start + 1800;
        item.Pattern = ToPattern(rule);
        long limit = kLastDay;
        if (dice.Happens(2)) {
            limit = dice.Draw(1, 100);
            item.Pattern.End = PatternEnd::AfterCount;
            item.Pattern.Occurrences = static_cast<std::int32_t>(limit);
        }
        ImportOutcome outcome;
        ASSERT_EQ(writer.Write(item, outcome), Status::Ok);
        if (outcome.Result == ImportResult::New) {
            walked[outcome.Item] = WalkRule(rule, start, horizon, limit);
        }
    }
    ASSERT_EQ(writer.Commit(), Status::Ok);
    for (int window = 0; window < kStoredWindows; ++window) {
        PaperDate from = first;
        for (long steps = dice.Draw(0, 5000); steps > 0; --steps) {
            from.GoToNextDay();
        }
        PaperDate to = from;
        for (long steps = dice.Draw(0, 90); steps > 0; --steps) {
            to.GoToNextDay();
        }
        const auto dateText = [](const PaperDate& date) {
            const std::string narrow =
                std::to_string(date.Month) + "/" + std::to_string(date.Day) + "/" + std::to_string(date.Year);
            return std::u16string(narrow.begin(), narrow.end());
        };
        std::vector<std::pair<long, Oid>> expected;
        for (const auto& [oid, days] : walked) {
            for (const long day : Between(days, from.Number, to.Number)) {
                expected.emplace_back(day, oid);
            }
        }
        std::sort(expected.begin(), expected.end());
        const auto items = Restrict(u"[Start] >= " + dateText(from) + u" and [Start] <= " + dateText(to) + u"\n");
        ASSERT_TRUE(items);
        ASSERT_EQ(items->put_IncludeRecurrences(true), Status::Ok);
        std::vector<std::pair<long, Oid>> found;
        ComPtr<IAppointment> item;
        for (std::int32_t index = 1; Succeeded(items->Item(index, item)); ++index) {
            DATE start = 0;
            Oid oid = 0;
            ASSERT_EQ(item->get_Start(start), Status::Ok);
            ASSERT_EQ(item->get_Oid(oid), Status::Ok);
            found.emplace_back(static_cast<long>(start), oid);
        }
        ASSERT_EQ(found, expected) << "seed " << seed << " window " << window;
    }
}

} // namespace tavo::outlook::test
