// One appointment, copied into memory for showing and editing.
#pragma once

#include "platform/outlook.h"

#include <cstdint>
#include <string>

namespace tavo {

// Entries of the edit dialog's recurrence list, as RecurChoice names them.
constexpr std::int32_t kChoiceOnce = 0;
constexpr std::int32_t kChoiceEveryday = 1;
constexpr std::int32_t kChoiceWeekly = 2;
constexpr std::int32_t kChoiceWeekdays = 3; // Monday to Friday
constexpr std::int32_t kChoiceMonthly = 4;
constexpr std::int32_t kChoiceMonthNth = 5;
constexpr std::int32_t kChoiceYearly = 6;
constexpr std::int32_t kChoiceYearNth = 7;
constexpr std::int32_t kChoiceCustom = 8;

struct AppointmentData {
    std::u16string Subject;
    std::u16string ReminderSound; // path; empty when no reminder is set
    std::u16string Location;
    std::u16string Categories;
    std::u16string SpareText; // carried along, never loaded
    SYSTEMTIME Start;         // local time
    SYSTEMTIME End;
    std::int32_t ReminderMinutes = 0; // before the start; 0 without a reminder
    bool HasReminder = false;
    bool IsRecurring = false;
    bool IsPrivate = false; // any sensitivity but normal
    bool AllDay = false;
    std::int32_t Mark = 0; // scratch, cleared by loading; the day list's running number
    tavo::Oid Oid = 0;
    std::int32_t SpareWord = 0; // carried along, never loaded

    // The recurrence pattern.
    std::int32_t RecurChoice = kChoiceOnce;
    std::int32_t RecurType = kRecursOnce;
    std::int32_t DayOfWeekMask = 0; // Sunday 1 .. Saturday 64
    std::int32_t Interval = 1;      // days, weeks or months
    std::int32_t DayOfMonth = 0;    // 1..31
    // The week of the month: 1..5 of recurring items, 5 the last.
    // Kept on purpose: of items that do not recur it counts from 0.
    std::int32_t Instance = 0;
    std::int32_t MonthOfYear = 0; // 1..12

    friend bool operator==(const AppointmentData&, const AppointmentData&) = default;
};

} // namespace tavo
