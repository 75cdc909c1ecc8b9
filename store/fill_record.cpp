// Copies an item of the store into an appointment record.
#include "store/fill_record.h"

namespace tavo {

namespace {

// A property that cannot be read counts as empty.
template <class Object, class Value> Value Read(Object& object, Status (Object::*get)(Value&)) {
    Value value{};
    static_cast<void>((object.*get)(value));
    return value;
}

SYSTEMTIME ReadTime(IAppointment& item, Status (IAppointment::*get)(DATE&), ILocale& locale) {
    SYSTEMTIME time;
    if (!locale.VariantTimeToSystemTime(Read(item, get), time)) {
        return {};
    }
    return time;
}

std::int32_t MaskOfDay(const SYSTEMTIME& time) {
    return 1 << time.DayOfWeek;
}

void FillReminder(IAppointment& item, AppointmentData& record) {
    record.HasReminder = Read(item, &IAppointment::get_ReminderSet);
    if (record.HasReminder) {
        record.ReminderSound = Read(item, &IAppointment::get_ReminderSoundFile);
        record.ReminderMinutes = Read(item, &IAppointment::get_ReminderMinutesBeforeStart);
    } else {
        record.ReminderSound.clear();
        record.ReminderMinutes = 0;
    }
}

std::int32_t ChoiceOfType(std::int32_t type) {
    switch (type) {
    case kRecursDaily:
        return kChoiceEveryday;
    case kRecursWeekly:
        return kChoiceWeekly;
    case kRecursMonthly:
        return kChoiceMonthly;
    case kRecursMonthNth:
        return kChoiceMonthNth;
    case kRecursYearly:
        return kChoiceYearly;
    case kRecursYearNth:
        return kChoiceYearNth;
    default:
        return kChoiceCustom;
    }
}

// Which entry of the edit dialog's list says this pattern. Gives the record the start's day as its mask where the
// pattern has no use for one.
void ChooseRecurrence(AppointmentData& record, bool noEndDate) {
    const std::int32_t startDay = MaskOfDay(record.Start);
    record.RecurChoice = ChoiceOfType(record.RecurType);
    const bool dailyOrWeekly = record.RecurType == kRecursDaily || record.RecurType == kRecursWeekly;
    if (dailyOrWeekly && record.DayOfWeekMask == kWeekdaysMask) {
        record.RecurChoice = kChoiceWeekdays;
    }
    if (!noEndDate || record.Interval > 1 || record.Instance == kLastWeek) {
        record.RecurChoice = kChoiceCustom;
    }
    if (record.RecurChoice == kChoiceEveryday || record.RecurChoice == kChoiceMonthly ||
        record.RecurChoice == kChoiceYearly) {
        record.DayOfWeekMask = startDay;
    }
    if (record.DayOfWeekMask != startDay && record.DayOfWeekMask != kWeekdaysMask) {
        record.RecurChoice = kChoiceCustom;
    }
}

void FillPattern(IRecurrencePattern& pattern, AppointmentData& record) {
    record.RecurType = Read(pattern, &IRecurrencePattern::get_RecurrenceType);
    record.DayOfWeekMask = Read(pattern, &IRecurrencePattern::get_DayOfWeekMask);
    record.Interval = Read(pattern, &IRecurrencePattern::get_Interval);
    record.DayOfMonth = Read(pattern, &IRecurrencePattern::get_DayOfMonth);
    record.Instance = Read(pattern, &IRecurrencePattern::get_Instance);
    record.MonthOfYear = Read(pattern, &IRecurrencePattern::get_MonthOfYear);
    ChooseRecurrence(record, Read(pattern, &IRecurrencePattern::get_NoEndDate));
}

void FillSingle(AppointmentData& record) {
    record.RecurChoice = kChoiceOnce;
    record.RecurType = kRecursOnce;
    record.DayOfWeekMask = MaskOfDay(record.Start);
    record.Interval = 1;
    record.DayOfMonth = record.Start.Day;
    record.Instance = (record.Start.Day - 1) / 7;
    record.MonthOfYear = record.Start.Month;
}

// It stays a series, by a rule that nobody can say: taken for a single item, the next OK would clear its recurrence.
void FillUnreadablePattern(AppointmentData& record) {
    FillSingle(record);
    record.RecurChoice = kChoiceCustom;
    record.RecurType = kRecursForeign;
}

} // namespace

void FillRecord(IAppointment& item, ILocale& locale, AppointmentData& record) {
    record.Oid = Read(item, &IAppointment::get_Oid);
    record.Mark = 0;
    record.Subject = Read(item, &IAppointment::get_Subject);
    record.Location = Read(item, &IAppointment::get_Location);
    record.Categories = Read(item, &IAppointment::get_Categories);
    record.Start = ReadTime(item, &IAppointment::get_Start, locale);
    record.End = ReadTime(item, &IAppointment::get_End, locale);
    FillReminder(item, record);
    record.IsRecurring = Read(item, &IAppointment::get_IsRecurring);
    ComPtr<IRecurrencePattern> pattern;
    if (!record.IsRecurring) {
        FillSingle(record);
    } else if (Succeeded(item.GetRecurrencePattern(pattern)) && pattern) {
        FillPattern(*pattern, record);
    } else {
        FillUnreadablePattern(record);
    }
    record.IsPrivate = Read(item, &IAppointment::get_Sensitivity) != kSensitivityNormal;
    record.AllDay = Read(item, &IAppointment::get_AllDayEvent);
}

} // namespace tavo
