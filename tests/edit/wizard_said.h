// What the recurrence wizard's pages say, read off their controls: the rule that Done has to write.
#pragma once

#include "tests/edit/edit_desk.h"

#include <cstdint>

namespace tavo::test {

// Only what its type uses counts.
struct SaidRule {
    std::int32_t Type = kRecursOnce;
    std::int32_t Interval = 1;
    std::int32_t Mask = 0;
    std::int32_t DayOfMonth = 0;
    std::int32_t Instance = 0;
    std::int32_t Month = 0;
    bool NoEnd = true;
    std::int32_t Occurrences = 0; // 0: it ends on a date
    SYSTEMTIME LastDay;
};

// Reads the page on show into the rule; the other page's part stays.
void ReadWizard(EditDesk& desk, SaidRule& rule);

// Fails the test where the saved pattern is another rule.
void ExpectRule(EditDesk& desk, const SavedPattern& saved, const SaidRule& said);

} // namespace tavo::test
