// Looks names up that another system has for time zones.
#include "host/exchange/windows_zones.h"

#include "host/locale/ascii.h"

#include <algorithm>

namespace tavo::exchange {
namespace {

// "(UTC+01:00) ", or "(GMT+01:00) " as it was before; the offset is that of the winter, and the words suffice.
std::string_view DropOffset(std::string_view shown) {
    if (!shown.starts_with("(UTC") && !shown.starts_with("(GMT")) {
        return {};
    }
    const std::size_t end = shown.find(')');
    return end == std::string_view::npos ? std::string_view() : locale::TrimBlanks(shown.substr(end + 1));
}

} // namespace

std::string_view FindWindowsZone(std::string_view name) {
    const std::string_view shown = DropOffset(name);
    const std::span<const WindowsZone> zones = ListWindowsZones();
    const auto found = std::find_if(zones.begin(), zones.end(), [&](const WindowsZone& zone) {
        return locale::EqualsIgnoringCase(name, zone.Name) ||
               (!shown.empty() && locale::EqualsIgnoringCase(shown, zone.Shown));
    });
    return found == zones.end() ? std::string_view() : found->Database;
}

} // namespace tavo::exchange
