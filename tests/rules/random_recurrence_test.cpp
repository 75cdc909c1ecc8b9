// Random patterns and windows: the arithmetic of rules against a walk through a paper calendar.
#include "host/rules/recurrence.h"
#include "host/rules/series.h"
#include "tests/rules/item_words.h"
#include "tests/rules/random_patterns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

namespace tavo::rules::test {

namespace {

constexpr int kPatterns = 100000;

class NoDetails final : public ISeriesDetails {
  public:
    Status ReadForeignRule(Oid, std::string&) override { return Status::NotFound; }

    Status ReadExceptions(Oid, const std::function<bool(const StoredException&)>&) override { return Status::NotFound; }
};

class NoZones final : public IZoneSource, public Zones {
  public:
    NoZones() : Zones(static_cast<IZoneSource&>(*this)) {}

    std::optional<std::string> ReadZone(const std::string&) override { return std::nullopt; }

    std::string GetDeviceZone() override { return ""; }

    std::string GetRelease() override { return ""; }

    const ZoneRules* Rules(ZoneId) override { return nullptr; }

    const ZoneRules* RulesByName(const std::string&) override { return nullptr; }
};

} // namespace

TEST(RandomRecurrence, AHundredThousandPatternsMatchAWalkThroughTheCalendar) {
    const unsigned seed = ReadSeed();
    std::printf("seed %u\n", seed);
    Dice dice(seed);
    NoDetails noDetails;
    NoZones noZones;
    SeriesExpander expander(noDetails, noZones);
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
        long limit = kLastPaperDay;
        long last = reach;
        if (dice.Happens(3)) {
            limit = dice.Draw(1, 60);
        } else if (dice.Happens(2)) {
            last = dice.Draw(start.Number, reach);
        }
        const std::vector<long> walked = WalkRule(rule, start, last, limit);
        if (limit < kLastPaperDay) {
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

} // namespace tavo::rules::test
