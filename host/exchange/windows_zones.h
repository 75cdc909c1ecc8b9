// The names that another system has for time zones.
#pragma once

#include <string_view>

namespace tavo::exchange {

// The database's name for a zone of Windows ("W. Europe Standard Time") or for the words that its programs show in its
// place ("(UTC+01:00) Amsterdam, Berlin, Bern, Rome, Stockholm, Vienna"); "" when it is neither.
std::string_view FindWindowsZone(std::string_view name);

} // namespace tavo::exchange
