// The parameter of a content line that says in which zone its times are.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tavo::exchange {

// ";TZID=..." in a line, from its semicolon to behind its value.
struct ZoneParameter {
    std::size_t From = 0;
    std::size_t To = 0;
    std::string Name;
};

std::optional<ZoneParameter> FindZoneParameter(std::string_view line);

// ";TZID=" and the name, in quotes where it needs them.
std::string WriteZoneParameter(std::string_view name);

} // namespace tavo::exchange
