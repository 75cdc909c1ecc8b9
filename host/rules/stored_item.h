// Everything the store keeps of one appointment, as a plain value: what an import brings and an export takes.
#pragma once

#include "host/rules/wall_time.h"
#include "platform/outlook.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavo::rules {

enum class PatternEnd { Never, OnDate, AfterCount };

// One of the six types that the device can say. The pattern starts on the day of the item's start and is counted
// in the item's own zone. Only the fields that its type uses are looked at.
struct StoredPattern {
    std::int32_t Type = kRecursOnce;
    std::int32_t Interval = 1;      // days, weeks or months: 1..999
    std::int32_t DayOfWeekMask = 0; // Sunday 1 .. Saturday 64
    std::int32_t DayOfMonth = 0;    // 1..31; beyond the month: its last day
    std::int32_t Instance = 0;      // 1..5; 5 is the last
    std::int32_t MonthOfYear = 0;   // 1..12
    PatternEnd End = PatternEnd::Never;
    std::int32_t Occurrences = 0; // rules with AfterCount, else derived
    DayNumber LastDay = 0;        // rules with OnDate, else derived: the last day on which an occurrence may start
    friend bool operator==(const StoredPattern&, const StoredPattern&) = default;
};

enum class ExceptionKind { Cancelled, Moved };

// An occurrence that does not follow the rule. Times are in the item's own zone, where it has one.
struct StoredException {
    Seconds Original = 0; // when the rule says it starts: the recurrence id
    ExceptionKind Kind = ExceptionKind::Cancelled;
    Seconds Start = 0; // of a moved occurrence
    Seconds End = 0;
    std::optional<std::u16string> Subject; // only where it differs from the series
    std::optional<std::u16string> Location;
    std::string Carried;     // as that of the item, of this occurrence alone
    std::int64_t Source = 0; // where it came from: kept by the store, left at 0 by who writes
    friend bool operator==(const StoredException&, const StoredException&) = default;
};

struct StoredItem {
    Oid Item = 0;    // 0: not stored yet
    std::string Uid; // of another calendar; "" for an item made here
    std::u16string Subject;
    std::u16string Location;
    std::u16string Categories;
    std::u16string Body;

    // Wall-clock times of the device. Where Zone is set they follow from the zone's times: read, never written.
    Seconds Start = 0;
    Seconds End = 0;
    // "" is floating: the device's wall clock wherever it is. Else "UTC", a name of the time zone database, or a name
    // made known by ImportWriter::DefineZone.
    std::string Zone;
    Seconds ZoneStart = 0; // the original times, on the zone's own clock
    Seconds ZoneEnd = 0;

    bool AllDay = false; // one day: start = end = its midnight; n days: the end is the midnight after the last
    std::int32_t BusyStatus = kBusyBusy;
    std::int32_t Sensitivity = kSensitivityNormal;
    bool ReminderSet = false;
    std::int32_t ReminderMinutes = 0;
    std::int32_t ReminderOptions = 0;
    std::u16string ReminderSound;

    StoredPattern Pattern; // Type kRecursOnce: none; kRecursForeign: by ForeignRule
    // A rule that the six types cannot say, kept whole: the unfolded content lines RRULE, EXRULE, RDATE and EXDATE
    // as they came, joined by line feeds. Their local times are on the item's zone's clock unless TZID or Z says else.
    std::string ForeignRule;
    std::vector<StoredException> Exceptions; // in order of Original, each once

    // Content lines that came with it and mean nothing here, for an export to give back: unfolded, joined by line
    // feeds, whole components among them between their BEGIN and END.
    std::string Carried;

    std::vector<std::uint8_t> Ink;

    bool IsRecurring() const { return Pattern.Type != kRecursOnce; }

    friend bool operator==(const StoredItem&, const StoredItem&) = default;
};

// Whether it, or an exception of it, has lines of another calendar.
bool CarriesLines(const StoredItem& item);

} // namespace tavo::rules
