// What libical reads in a recurrence rule: another opinion on the same text.
#pragma once

#include "host/rules/rule_walk.h"

#include <libical/ical.h>

#include <span>
#include <string>

namespace tavo::rules::test {

// The values that a list of a rule has.
template <std::size_t Size> std::span<const short> IcalListOf(const short (&values)[Size]) {
    std::size_t count = 0;
    while (count < Size && values[count] != ICAL_RECURRENCE_ARRAY_MAX) {
        ++count;
    }
    return {values, count};
}

// False for a rule that cannot be walked; `fault` then says why, for people, unless it is no rule at all. The end is
// given in the digits that the rule has; one without a time is the end of its day.
bool ReadIcalRule(const icalrecurrencetype& ical, RecurrenceRule& rule, std::string& fault);

} // namespace tavo::rules::test
