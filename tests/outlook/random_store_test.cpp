// Random patterns in a store: restricted windows against a walk through a paper calendar.
#include "tests/outlook/store_fixture.h"
#include "tests/rules/random_patterns.h"

#include <algorithm>
#include <cstdio>
#include <map>

namespace tavo::outlook::test {

namespace {

constexpr int kStoredPatterns = 1500;
constexpr int kStoredWindows = 60;

} // namespace

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
        long limit = kLastPaperDay;
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
