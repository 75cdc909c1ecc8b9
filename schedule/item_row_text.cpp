// Which wording a row of the item lists gets.
#include "schedule/item_row_text.h"

#include "framework/format.h"
#include "schedule/item_days.h"
#include "store/date_pictures.h"
#include "store/describe_recurrence.h"

#include <cstdint>
#include <string_view>

namespace tavo {

namespace {

constexpr int kPictureBuffer = 64; // UTF-16 units
constexpr std::u16string_view kAllDay = u"All day";
constexpr int kMinutesPerHour = 60;
constexpr int kHoursPerDay = 24;
constexpr std::int64_t kMinutesPerDay = 1440;

std::u16string DateText(const SYSTEMTIME& date, ILocale& locale) {
    return locale.GetDateFormatW(LocaleId::User, date, kPictureListDate, kPictureBuffer).value_or(std::u16string());
}

std::u16string WeekdayText(const SYSTEMTIME& date, ILocale& locale) {
    return locale.GetDateFormatW(LocaleId::User, date, u"ddd", kPictureBuffer).value_or(std::u16string());
}

std::u16string TimeText(const SYSTEMTIME& time, std::u16string_view picture, ILocale& locale) {
    return locale.GetTimeFormatW(LocaleId::User, time, picture, kPictureBuffer).value_or(std::u16string());
}

std::u16string ListTime(const SYSTEMTIME& time, ILocale& locale) {
    return TimeText(time, kPictureListTime, locale);
}

std::u16string DescribeRange(const PatternRange& range, ILocale& locale) {
    return range.Last ? FormatText(u"from %s until %s", DateText(range.First, locale), DateText(*range.Last, locale))
                      : FormatText(u"from %s", DateText(range.First, locale));
}

PatternRange OwnDays(const AppointmentData& record, ILocale& locale) {
    PatternRange range{record.Start, LastDayOf(record, locale)};
    if (DaysBetween(record.Start, *range.Last, locale) <= 0) {
        range.Last.reset();
    }
    return range;
}

// A rule of another calendar has no words.
std::u16string JoinTexts(const std::u16string& one, const std::u16string& other) {
    return one.empty() ? other : FormatText(u"%s, %s", one, other);
}

std::int64_t LengthInMinutes(const AppointmentData& record, ILocale& locale) {
    const int days = DaysBetween(record.Start, record.End, locale);
    return (std::int64_t{days} * kHoursPerDay + record.End.Hour - record.Start.Hour) * kMinutesPerHour +
           record.End.Minute - record.Start.Minute;
}

// Of several days, with the dates in this picture.
std::u16string DescribeEnds(const AppointmentData& record, std::u16string_view picture, ILocale& locale) {
    const auto date = [&](const SYSTEMTIME& day) {
        return locale.GetDateFormatW(LocaleId::User, day, picture, kPictureBuffer).value_or(std::u16string());
    };
    return FormatText(u"%s,%s - %s,%s", date(record.Start), ListTime(record.Start, locale), date(record.End),
                      ListTime(record.End, locale));
}

std::u16string DescribeTimes(const AppointmentData& record, const SYSTEMTIME& last, ILocale& locale) {
    if (DaysBetween(record.Start, last, locale) <= 0) {
        return record.AllDay ? std::u16string(kAllDay)
                             : FormatText(u"%s - %s", ListTime(record.Start, locale), ListTime(record.End, locale));
    }
    if (record.AllDay) {
        return FormatText(u"%s - %s (All day)", DateText(record.Start, locale), DateText(last, locale));
    }
    return DescribeEnds(record, kPictureListDate, locale);
}

// One line says of an occurrence all there is to say when it begins on its row's day and its end follows from the
// words.
bool FitsOneDay(const AppointmentData& record, const SYSTEMTIME& day, int days, ILocale& locale) {
    if (DaysBetween(record.Start, day, locale) != 0) {
        return false;
    }
    const std::int64_t minutes = LengthInMinutes(record, locale);
    return record.AllDay ? days <= 1 : minutes / kMinutesPerDay < 1 || minutes % kMinutesPerDay == 0;
}

// Opened by the month and day of its day, and the weekday.
std::u16string DescribeDay(const AppointmentData& record, ILocale& locale) {
    const SYSTEMTIME& day = record.Start;
    const std::u16string weekday = WeekdayText(day, locale);
    const std::u16string start = ListTime(day, locale);
    if (record.AllDay) {
        return FormatText(u"(%d/%d, %s) All day", day.Month, day.Day, weekday);
    }
    const std::int64_t minutes = LengthInMinutes(record, locale);
    const std::int64_t days = minutes / kMinutesPerDay;
    const std::int64_t hours = minutes / kMinutesPerHour;
    if (days > 0 && minutes % kMinutesPerDay == 0) {
        return FormatText(u"(%d/%d, %s) at %s for %d days", day.Month, day.Day, weekday, start, days);
    }
    if (hours > 0 && minutes % kMinutesPerHour == 0) {
        return FormatText(u"(%d/%d, %s) at %s for %d hour(s)", day.Month, day.Day, weekday, start, hours);
    }
    return FormatText(u"(%d/%d, %s) %s - %s", day.Month, day.Day, weekday, start, ListTime(record.End, locale));
}

} // namespace

ItemRowText DescribeTaggedRow(ItemKind kind, const AppointmentData& record, const std::optional<PatternRange>& range,
                              ILocale& locale) {
    const std::u16string recurrence = DescribeRecurrence(record);
    const std::u16string days = DescribeRange(range ? *range : OwnDays(record, locale), locale);
    if (kind != ItemKind::Alarm) {
        return {record.Subject, {}, {recurrence, days}, {}};
    }
    return {FormatText(u"(%02d:%02d) %s", record.Start.Hour, record.Start.Minute, record.Subject),
            {},
            {TimeText(record.Start, kPictureAlarmTime, locale), JoinTexts(recurrence, days)},
            {}};
}

ItemRowText DescribeAppointmentRow(const AppointmentData& record, const SYSTEMTIME& day, ILocale& locale) {
    const SYSTEMTIME last = LastDayOf(record, locale);
    const int days = DaysBetween(record.Start, last, locale) + 1;
    ItemRowText text{record.Subject, DateText(day, locale), {DescribeTimes(record, last, locale)}, {}};
    if (days > 1 && !record.AllDay) {
        text.ShortLine = DescribeEnds(record, kPicturePlainDate, locale); // the end must be seen; its weekday need not
    }
    if (record.IsRecurring && FitsOneDay(record, day, days, locale)) {
        text.Lines.push_back(DescribeDay(record, locale));
        text.ShortLine.clear();
    }
    return text;
}

} // namespace tavo
