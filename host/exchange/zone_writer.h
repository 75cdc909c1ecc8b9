// Time zones as components that other calendars follow.
#pragma once

#include "host/rules/zone_rules.h"

#include <string>
#include <string_view>

namespace tavo::exchange {

// A VTIMEZONE of that name with all that the rules say, folded.
std::string WriteZone(std::string_view name, const rules::ZoneRules& rules);

} // namespace tavo::exchange
