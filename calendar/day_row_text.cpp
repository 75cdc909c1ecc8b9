// Which wording a row of the day list gets.
#include "calendar/day_row_text.h"

#include "framework/format.h"
#include "store/date_pictures.h"
#include "store/describe_recurrence.h"

namespace tavo {

namespace {

constexpr int kPictureBuffer = 64; // UTF-16 units
constexpr std::u16string_view kAllDay = u"All day";
constexpr std::u16string_view kMultipleDays = u"Multidays";

bool IsMidnight(const SYSTEMTIME& time) {
    return time.Hour == 0 && time.Minute == 0;
}

bool IsSameDay(const SYSTEMTIME& one, const SYSTEMTIME& other) {
    return one.Year == other.Year && one.Month == other.Month && one.Day == other.Day;
}

std::u16string DateText(const SYSTEMTIME& date, ILocale& locale) {
    return locale.GetDateFormatW(LocaleId::User, date, kPictureListDate, kPictureBuffer).value_or(std::u16string());
}

std::u16string TimeText(const SYSTEMTIME& time, ILocale& locale) {
    return locale.GetTimeFormatW(LocaleId::User, time, kPictureListTime, kPictureBuffer).value_or(std::u16string());
}

// An all-day item that ends at a midnight has the day before as its last.
SYSTEMTIME LastDay(const AppointmentData& record, ILocale& locale) {
    DATE end = 0;
    SYSTEMTIME last = record.End;
    if (!IsSameDay(record.Start, record.End) && IsMidnight(record.End) &&
        locale.SystemTimeToVariantTime(record.End, end)) {
        static_cast<void>(locale.VariantTimeToSystemTime(end - 1, last)); // a day less is a date as well
    }
    return last;
}

std::u16string DescribeTimes(const AppointmentData& record, ILocale& locale) {
    const SYSTEMTIME last = record.AllDay ? LastDay(record, locale) : record.End;
    if (IsSameDay(record.Start, last)) {
        return record.AllDay ? std::u16string(kAllDay)
                             : FormatText(u"%s - %s", TimeText(record.Start, locale), TimeText(record.End, locale));
    }
    // The record of a series has the dates of its first occurrence, which say nothing about this day.
    if (record.IsRecurring) {
        return std::u16string(kMultipleDays);
    }
    if (record.AllDay) {
        return FormatText(u"%s - %s (All day)", DateText(record.Start, locale), DateText(last, locale));
    }
    return FormatText(u"%s %s - %s %s", DateText(record.Start, locale), TimeText(record.Start, locale),
                      DateText(record.End, locale), TimeText(record.End, locale));
}

} // namespace

DayRowText DescribeDayRow(const AppointmentData& record, ILocale& locale) {
    DayRowText text;
    text.Heading = record.Location.empty() ? record.Subject : FormatText(u"%s(%s)", record.Subject, record.Location);
    text.Times = DescribeTimes(record, locale);
    text.Recurrence = record.IsRecurring ? DescribeRecurrence(record) : std::u16string();
    return text;
}

} // namespace tavo
