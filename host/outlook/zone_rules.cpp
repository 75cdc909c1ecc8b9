// Looking up offsets, and the system's zone database.
#include "host/outlook/zone_rules.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tavo::outlook {

namespace {

constexpr int kCalendarCycle = 28; // years after which dates and weekdays coincide, within a century's leap rule
constexpr std::size_t kMaxZoneFile = 1 << 20;

// Maps a time beyond the horizon to one of the same date and weekday within it.
Seconds FoldIntoHorizon(Seconds time) {
    const DayNumber day = DayOf(time);
    const CivilDate date = CivilFromDay(day);
    if (date.Year <= kZoneHorizonYear) {
        return time;
    }
    const DayNumber newYear = DayFromCivil(date.Year, 1, 1);
    const int february = DaysInMonth(date.Year, 2);
    for (int year = kZoneHorizonYear - kCalendarCycle + 1; year <= kZoneHorizonYear; ++year) {
        const DayNumber candidate = DayFromCivil(year, 1, 1);
        if (WeekdayOf(candidate) == WeekdayOf(newYear) && DaysInMonth(year, 2) == february) {
            return time - MidnightOf(newYear - candidate);
        }
    }
    return time;
}

std::filesystem::path ZoneFolder() {
    const char* folder = std::getenv("TZDIR");
    return folder != nullptr && *folder != '\0' ? folder : "/usr/share/zoneinfo";
}

// Names come from calendars of others: nothing that could leave the folder.
bool IsPlainZoneName(const std::string& name) {
    const auto isPlain = [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '/' || c == '_' ||
               c == '+' || c == '-';
    };
    return !name.empty() && name.front() != '/' && std::all_of(name.begin(), name.end(), isPlain);
}

} // namespace

ZoneRules::ZoneRules(std::int32_t firstOffset, std::vector<ZoneTransition> transitions)
    : FirstOffset(firstOffset), Transitions(std::move(transitions)) {
    std::stable_sort(Transitions.begin(), Transitions.end(),
                     [](const ZoneTransition& left, const ZoneTransition& right) { return left.Utc < right.Utc; });
}

std::int32_t ZoneRules::OffsetAt(Seconds utc) const {
    if (!Transitions.empty() && utc > Transitions.back().Utc) {
        utc = FoldIntoHorizon(utc);
    }
    const auto after = std::upper_bound(Transitions.begin(), Transitions.end(), utc,
                                        [](Seconds time, const ZoneTransition& step) { return time < step.Utc; });
    return after == Transitions.begin() ? FirstOffset : std::prev(after)->Offset;
}

Seconds ZoneRules::ToUtc(Seconds local) const {
    const std::int32_t before = OffsetAt(local - kSecondsPerDay);
    const std::int32_t after = OffsetAt(local + kSecondsPerDay);
    const Seconds early = local - before;
    if (before == after || OffsetAt(early) == before) {
        return early;
    }
    const Seconds late = local - after;
    return OffsetAt(late) == after ? late : early;
}

std::unique_ptr<ZoneRules> LoadSystemZone(const std::string& name) {
    if (name == "UTC") {
        return std::make_unique<ZoneRules>(0, std::vector<ZoneTransition>());
    }
    if (!IsPlainZoneName(name)) {
        return nullptr;
    }
    std::error_code error;
    const std::filesystem::path path = ZoneFolder() / name;
    if (!std::filesystem::is_regular_file(path, error) || std::filesystem::file_size(path, error) > kMaxZoneFile) {
        return nullptr;
    }
    std::ifstream file(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    return ParseZoneFile(bytes);
}

std::string ReadSystemZoneName() {
    if (const char* name = std::getenv("TZ"); name != nullptr && *name != '\0') {
        const std::string plain = *name == ':' ? name + 1 : name;
        return LoadSystemZone(plain) != nullptr ? plain : "UTC";
    }
    std::error_code error;
    const std::string target = std::filesystem::read_symlink("/etc/localtime", error).string();
    constexpr std::string_view kMark = "zoneinfo/";
    if (const std::size_t at = target.find(kMark); !error && at != std::string::npos) {
        std::string name = target.substr(at + kMark.size());
        return name == "Etc/UTC" ? "UTC" : name;
    }
    std::ifstream file("/etc/timezone");
    std::string name;
    return std::getline(file, name) && LoadSystemZone(name) != nullptr ? name : "UTC";
}

std::string ReadZoneDatabaseRelease() {
    std::ifstream file(ZoneFolder() / "tzdata.zi");
    std::string line;
    constexpr std::string_view kMark = "# version ";
    return std::getline(file, line) && line.starts_with(kMark) ? line.substr(kMark.size()) : "";
}

} // namespace tavo::outlook
