// The parameter of a content line that says in which zone its times are.
#include "host/exchange/zone_parameter.h"

#include "host/locale/ascii.h"

#include <algorithm>

namespace tavo::exchange {
namespace {

constexpr std::string_view kParameter = ";TZID=";

} // namespace

std::optional<ZoneParameter> FindZoneParameter(std::string_view line) {
    const std::string_view head = line.substr(0, line.find(':'));
    const auto begin = std::search(head.begin(), head.end(), kParameter.begin(), kParameter.end(),
                                   [](char a, char b) { return locale::ToUpperAscii(a) == b; });
    if (begin == head.end()) {
        return std::nullopt;
    }
    ZoneParameter parameter;
    parameter.From = static_cast<std::size_t>(begin - head.begin());
    const std::size_t value = parameter.From + kParameter.size();
    const bool isQuoted = line.substr(value).starts_with('"');
    const std::size_t end = isQuoted ? line.find('"', value + 1) : line.find_first_of(";:", value);
    if (end == std::string_view::npos) {
        return std::nullopt;
    }
    parameter.Name = line.substr(value + (isQuoted ? 1 : 0), end - value - (isQuoted ? 1 : 0));
    parameter.To = end + (isQuoted ? 1 : 0);
    return parameter;
}

std::string WriteZoneParameter(std::string_view name) {
    const bool isQuoted = name.find_first_of(":;,") != std::string_view::npos;
    return std::string(kParameter) + (isQuoted ? "\"" : "") + std::string(name) + (isQuoted ? "\"" : "");
}

} // namespace tavo::exchange
