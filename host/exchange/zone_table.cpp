// The time zones that a calendar file speaks of.
#include "host/exchange/zone_table.h"

#include "host/exchange/windows_zones.h"

#include <array>
#include <cstdint>
#include <cstdio>

namespace tavo::exchange {
namespace {

using rules::Seconds;
using rules::ZoneRules;

constexpr const char* kUtcName = "UTC";

// Two files may mean different zones by one name, so the store's name carries a mark of the definition.
std::string MakeStoreName(const std::string& tzid, const std::string& text) {
    std::uint32_t hash = 2166136261U; // FNV-1a
    for (const char character : text) {
        hash = (hash ^ static_cast<unsigned char>(character)) * 16777619U;
    }
    std::array<char, 16> mark{};
    std::snprintf(mark.data(), mark.size(), "#%08x", hash);
    return tzid + mark.data();
}

std::string JoinLines(const CalendarPiece& piece) {
    std::string text;
    for (std::size_t index = 0; index < piece.Lines.size(); ++index) {
        text += piece.GetLine(index);
        text += "\r\n";
    }
    return text;
}

} // namespace

void ZoneTable::Add(const CalendarPiece& piece, FaultTeller& faults) {
    if (piece.TooLargeLine != 0) {
        faults.Tell(piece.TooLargeLine, "this time zone is too large", "it was left out");
        return;
    }
    for (std::size_t index = 0; index < piece.Lines.size(); ++index) {
        std::string_view name;
        std::string_view value;
        if (SplitLine(piece.GetLine(index), name, value) && EqualsIgnoringCase(name, "TZID")) {
            Definitions[std::string(value)] = JoinLines(piece);
            return;
        }
    }
    faults.Tell(piece.Line, "this time zone has no name (TZID)", "it was left out");
}

const Zone* ZoneTable::Find(const std::string& tzid) {
    const auto found = Found.find(tzid);
    if (found != Found.end()) {
        return &found->second;
    }
    // What was looked for in vain is not looked for again: it may take a while, and thousands of entries may name it.
    return Faults.contains(tzid) ? nullptr : Resolve(tzid);
}

std::string ZoneTable::DescribeUnknown(const std::string& tzid) const {
    const auto found = Faults.find(tzid);
    return "the time zone \"" + tzid + "\" " + (found == Faults.end() ? "is not known" : found->second);
}

void ZoneTable::TellUnknown(const std::string& tzid, int line, FaultTeller& faults) {
    if (faults.IsHeard() && Told.insert(tzid).second) {
        faults.Tell(line, DescribeUnknown(tzid), "all its times were taken as local ones");
    }
}

const Zone* ZoneTable::GetUtc() {
    const auto found = Found.find(kUtcName);
    if (found != Found.end()) {
        return &found->second;
    }
    return Remember(kUtcName, kUtcName, std::make_unique<ZoneRules>(0, std::vector<rules::ZoneTransition>()));
}

const Zone* ZoneTable::Resolve(const std::string& tzid) {
    // The database is kept up to date and knows the past; a file's own definition often knows this year only.
    if (std::unique_ptr<ZoneRules> rules = Sink.LoadZone(tzid); rules != nullptr) {
        return Remember(tzid, tzid, std::move(rules));
    }
    if (std::string name(FindWindowsZone(tzid)); !name.empty()) {
        if (std::unique_ptr<ZoneRules> rules = Sink.LoadZone(name); rules != nullptr) {
            return Remember(tzid, std::move(name), std::move(rules));
        }
    }
    if (const auto own = Definitions.find(tzid); own != Definitions.end()) {
        std::string fault;
        std::unique_ptr<ZoneRules> rules = rules::ParseZoneComponent(own->second, fault);
        std::string name = MakeStoreName(tzid, own->second);
        if (rules == nullptr || !Sink.DefineZone(name, own->second)) {
            Faults[tzid] = rules == nullptr ? fault : "cannot be kept";
            return nullptr;
        }
        return Remember(tzid, std::move(name), std::move(rules));
    }
    // Some programs put their own path before the database's name: "/example.org/20050126/Europe/Berlin".
    for (std::size_t slash = tzid.find('/'); slash != std::string::npos; slash = tzid.find('/', slash + 1)) {
        std::string name = tzid.substr(slash + 1);
        if (std::unique_ptr<ZoneRules> rules = Sink.LoadZone(name); rules != nullptr) {
            return Remember(tzid, std::move(name), std::move(rules));
        }
    }
    Faults[tzid] = "is not known";
    return nullptr;
}

const Zone* ZoneTable::Remember(const std::string& tzid, std::string name, std::unique_ptr<ZoneRules> rules) {
    return &(Found[tzid] = Zone{std::move(name), std::move(rules)});
}

} // namespace tavo::exchange
