// The names that another system has for time zones.
#pragma once

#include <span>
#include <string_view>

namespace tavo::exchange {

struct WindowsZone {
    std::string_view Name;     // "W. Europe Standard Time"
    std::string_view Shown;    // "Amsterdam, Berlin, Bern, Rome, Stockholm, Vienna", as it follows the offset
    std::string_view Database; // "Europe/Berlin"
};

// The table, which is generated at build time: see MakeWindowsZones.cmake.
std::span<const WindowsZone> ListWindowsZones();

// The database's name for a zone of Windows ("W. Europe Standard Time") or for the words that its programs show in its
// place ("(UTC+01:00) Amsterdam, Berlin, Bern, Rome, Stockholm, Vienna"); "" when it is neither.
std::string_view FindWindowsZone(std::string_view name);

} // namespace tavo::exchange
