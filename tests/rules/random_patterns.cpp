// Turning what was drawn into patterns and words.
#include "tests/rules/random_patterns.h"

#include "tests/rules/item_words.h"

#include <cstdlib>

namespace tavo::rules::test {

unsigned ReadSeed() {
    const char* text = std::getenv("TAVO_TEST_SEED");
    return text != nullptr ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : 20260503U;
}

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

} // namespace tavo::rules::test
