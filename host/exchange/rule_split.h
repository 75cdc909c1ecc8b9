// The lines of a rule that none of the six types can say, cut in two where everything from an occurrence on was
// changed.
#pragma once

#include "host/rules/zone_rules.h"

#include <optional>
#include <string>
#include <string_view>

namespace tavo::exchange {

// A series by its lines (see StoredItem::ForeignRule). All times are on its own clock.
struct RuleSeries {
    std::string_view Lines;
    rules::Seconds Start = 0;
    bool IsAllDay = false;
    std::string_view Zone;                 // its name; "" for a floating one
    const rules::ZoneRules* Own = nullptr; // null for a floating one
};

struct SplitLines {
    std::string Before; // of what comes before that occurrence
    std::string After;  // of what follows; "" when that does not repeat
};

// The same days and times, those from `original` on later by `shift`: they are counted from original + shift. Nothing
// where its parts cannot say that: when the shift moves what they name, or dates on another clock are among them.
std::optional<SplitLines> SplitRuleLines(const RuleSeries& series, rules::Seconds original, rules::Seconds shift);

} // namespace tavo::exchange
