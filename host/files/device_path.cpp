// What may stand in a path of the device.
#include "host/files/device_path.h"

#include "host/disk/disk.h"
#include "host/locale/utf.h"

#include <algorithm>

namespace tavo::files {

namespace {

constexpr std::size_t kLongestPath = 259; // with its terminating zero it fills the device's 260 units
constexpr std::u16string_view kForbidden = u"\\/:\"<>|";
constexpr std::u16string_view kWildcards = u"*?";

bool IsName(std::u16string_view name, bool wildcardsAllowed) {
    if (name.empty() || name == u"." || name == u"..") {
        return false;
    }
    const bool hasForbidden = std::ranges::any_of(name, [wildcardsAllowed](char16_t unit) {
        return unit < 0x20 || unit == 0x7F || kForbidden.find(unit) != std::u16string_view::npos ||
               (!wildcardsAllowed && kWildcards.find(unit) != std::u16string_view::npos);
    });
    if (hasForbidden) {
        return false;
    }
    const std::optional<std::string> bytes = locale::ToUtf8Exactly(name);
    return bytes && !bytes->starts_with(disk::kUnfinishedPrefix);
}

} // namespace

bool IsDeviceName(std::u16string_view name) {
    return IsName(name, false);
}

std::optional<std::vector<std::u16string>> ParseDevicePath(std::u16string_view path, WildcardRule wildcards) {
    if (!path.starts_with(u'\\') || path.size() > kLongestPath) {
        return std::nullopt;
    }
    std::vector<std::u16string> parts;
    while (true) {
        path.remove_prefix(std::min(path.find_first_not_of(u'\\'), path.size()));
        if (path.empty()) {
            return parts;
        }
        const std::u16string_view part = path.substr(0, path.find(u'\\'));
        path.remove_prefix(part.size());
        if (!IsName(part, wildcards == WildcardRule::AllowInLastPart && path.empty())) {
            return std::nullopt;
        }
        parts.emplace_back(part);
    }
}

bool MatchesPattern(std::u16string_view folded, std::u16string_view pattern) {
    std::size_t at = 0;
    std::size_t inPattern = 0;
    std::size_t star = std::u16string_view::npos; // the last "*" met, and from where it is tried
    std::size_t starAt = 0;
    while (at < folded.size()) {
        if (inPattern < pattern.size() && pattern[inPattern] == u'*') {
            star = inPattern++;
            starAt = at;
        } else if (inPattern < pattern.size() && (pattern[inPattern] == u'?' || pattern[inPattern] == folded[at])) {
            ++inPattern;
            ++at;
        } else if (star != std::u16string_view::npos) {
            inPattern = star + 1;
            at = ++starAt;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(u'*', inPattern) == std::u16string_view::npos;
}

} // namespace tavo::files
