// What an open editor holds, as it is laid aside: neither the program's end nor a crash costs what was typed.
#pragma once

#include "edit/pattern_rule.h"
#include "platform/outlook.h"
#include "platform/system_time.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tavo {

// How a rule of the wizard's ends.
enum class RuleEnd : std::int32_t { Never, OnDate, AfterCount };

struct DraftRule {
    PatternRule Rule;
    RuleEnd End = RuleEnd::Never;
    std::int32_t LastDay = 0; // days of an automation date
    std::int32_t Occurrences = 0;

    friend bool operator==(const DraftRule&, const DraftRule&) = default;
};

// What the form says, control by control.
struct FormValues {
    std::u16string Subject;
    SYSTEMTIME Start; // without its weekday
    SYSTEMTIME End;
    bool AllDay = false;
    std::int32_t Recurrence = 0;   // entry of its list
    std::optional<DraftRule> Rule; // where the wizard made it, or as it is stored
    bool Reminds = false;
    std::u16string LeadValue; // as typed
    std::int32_t LeadUnit = 0;
    std::u16string Sound; // entry of its list, by its text

    friend bool operator==(const FormValues&, const FormValues&) = default;
};

struct AppointmentDraft {
    std::int32_t Mode = 0; // of the editor
    Oid Item = 0;          // 0: a new one
    FormValues Opened;     // what the form said at first: the person changed what is different now
    FormValues Now;
    std::optional<SYSTEMTIME> OneDay; // only this occurrence of a series is changed, by its start; without its weekday
    std::u16string Ink;               // name of recovered ink that is to be saved with it; empty: none

    bool IsChanged() const { return !(Opened == Now); }

    friend bool operator==(const AppointmentDraft&, const AppointmentDraft&) = default;
};

std::vector<std::uint8_t> EncodeDraft(const AppointmentDraft& draft);
// Nothing when the bytes are no whole draft.
std::optional<AppointmentDraft> DecodeDraft(std::span<const std::uint8_t> bytes);

} // namespace tavo
