// The benchmark's calendar: everything follows from an item's number, so two runs write the same bytes.
#include "benchmarks/calendar_generator.h"

#include <array>
#include <chrono>
#include <cstdarg>
#include <cstddef>
#include <string_view>

namespace tavo::benchmarks {
namespace {

using std::chrono::sys_days;
using std::chrono::weekday;
using std::chrono::year_month_day;

constexpr std::int64_t kMinutesPerDay = 1440;
constexpr int kSeriesTypes = 6;
constexpr int kWeekdayMasks = 127;

constexpr std::array<const char*, 7> kDayNames = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
constexpr std::array<const char*, 12> kSubjects = {
    "Planning with the team", "Dentist",         "Call the accountant", "Swimming lesson",
    "Budget review",          "Lunch with Anna", "Parents' evening",    "Interview",
    "Choir rehearsal",        "Car inspection",  "Release meeting",     "Project steering group"};
constexpr std::array<const char*, 6> kPlaces = {
    "Room 4\\, second floor", "Main Street 12", "Office", "Town hall", "School", "Video call"};
constexpr std::array<const char*, 4> kNotes = {"Bring the signed papers and last year's figures.",
                                               "Agenda:\\n1. Minutes\\n2. Open points\\n3. Dates for the next quarter",
                                               "Ask about the new opening hours.",
                                               "Ring the bell at the side entrance."};

// A fixed scrambling of a number (SplitMix64), so that neighbours differ and runs do not.
std::uint64_t Scramble(std::uint64_t value) {
    value += 0x9E3779B97F4A7C15ULL;
    value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9ULL;
    value = (value ^ (value >> 27)) * 0x94D049BB133111EBULL;
    return value ^ (value >> 31);
}

[[gnu::format(printf, 2, 3)]] void AppendLine(std::string& text, const char* format, ...) {
    std::array<char, 256> line{};
    std::va_list values;
    va_start(values, format);
    const int length = std::vsnprintf(line.data(), line.size(), format, values);
    va_end(values);
    text.append(line.data(), static_cast<std::size_t>(length));
    text += "\r\n";
}

struct Moment {
    sys_days Day;
    int Minute = 0; // of the day
};

Moment AddMinutes(Moment moment, std::int64_t minutes) {
    const std::int64_t sum = moment.Minute + minutes;
    return {moment.Day + std::chrono::days(sum / kMinutesPerDay), static_cast<int>(sum % kMinutesPerDay)};
}

std::string WriteDate(sys_days day) {
    const year_month_day date(day);
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%04d%02u%02u", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    return text.data();
}

std::string WriteMoment(Moment moment) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "T%02d%02d00", moment.Minute / 60, moment.Minute % 60);
    return WriteDate(moment.Day) + text.data();
}

int DayIndex(sys_days day) {
    return static_cast<int>(weekday(day).c_encoding());
}

std::string WriteMask(unsigned mask) {
    std::string text;
    for (std::size_t day = 0; day < kDayNames.size(); ++day) {
        if ((mask >> day & 1U) != 0) {
            text += text.empty() ? "" : ",";
            text += kDayNames[day];
        }
    }
    return text;
}

sys_days MoveToMask(sys_days day, unsigned mask) {
    while ((mask >> DayIndex(day) & 1U) == 0) {
        day += std::chrono::days(1);
    }
    return day;
}

// The rule of a series and the day it starts on, moved so that the first day is one of the rule's own.
// Days of a month stay at 28 or below and weeks at the fourth: only those mean the same in every calendar.
std::string MakeRule(int series, sys_days& day) {
    const int turn = series / kSeriesTypes;
    const std::string interval = ";INTERVAL=" + std::to_string(1 + turn / 3 % 3);
    if (series % kSeriesTypes >= 2 && static_cast<unsigned>(year_month_day(day).day()) > 28) {
        day -= std::chrono::days(7);
    }
    const std::string dayName = kDayNames[static_cast<std::size_t>(DayIndex(day))];
    const year_month_day date(day);
    const unsigned dayOfMonth = static_cast<unsigned>(date.day());
    const std::string nth = std::to_string((dayOfMonth - 1) / 7 + 1) + dayName;
    const std::string month = ";BYMONTH=" + std::to_string(static_cast<unsigned>(date.month()));
    switch (series % kSeriesTypes) {
    case 0:
        if (turn / 3 % 2 == 0) {
            return "FREQ=DAILY" + interval;
        }
        day = MoveToMask(day, 62);
        return "FREQ=DAILY;BYDAY=MO,TU,WE,TH,FR";
    case 1: {
        const unsigned mask = 1 + static_cast<unsigned>(turn % kWeekdayMasks);
        day = MoveToMask(day, mask);
        return "FREQ=WEEKLY;WKST=SU" + interval + ";BYDAY=" + WriteMask(mask);
    }
    case 2:
        return "FREQ=MONTHLY" + interval + ";BYMONTHDAY=" + std::to_string(dayOfMonth);
    case 3:
        return "FREQ=MONTHLY" + interval + ";BYDAY=" + nth;
    case 4:
        return "FREQ=YEARLY" + month + ";BYMONTHDAY=" + std::to_string(dayOfMonth);
    default:
        return "FREQ=YEARLY" + month + ";BYDAY=" + nth;
    }
}

std::string MakeEnding(int series, Moment start, bool allDay) {
    const std::uint64_t chance = Scramble(static_cast<std::uint64_t>(series) + 7'000'000);
    switch (series / kSeriesTypes % 3) {
    case 0: {
        const Moment end{start.Day + std::chrono::days(60 + chance % 900), start.Minute};
        return ";UNTIL=" + (allDay ? WriteDate(end.Day) : WriteMoment(end));
    }
    case 1:
        return ";COUNT=" + std::to_string(5 + chance % 100);
    default:
        return "";
    }
}

void AppendTimes(std::string& text, Moment start, std::int64_t minutes, bool allDay) {
    if (allDay) {
        AppendLine(text, "DTSTART;VALUE=DATE:%s", WriteDate(start.Day).c_str());
        AppendLine(text, "DTEND;VALUE=DATE:%s", WriteDate(start.Day + std::chrono::days(1)).c_str());
        return;
    }
    AppendLine(text, "DTSTART:%s", WriteMoment(start).c_str());
    AppendLine(text, "DTEND:%s", WriteMoment(AddMinutes(start, minutes)).c_str());
}

sys_days FirstDay() {
    return sys_days(std::chrono::year(kFirstYear) / std::chrono::January / 1);
}

sys_days SpreadDay(int number, int count) {
    const std::int64_t days =
        (sys_days(std::chrono::year(kFirstYear + kYears) / std::chrono::January / 1) - FirstDay()).count();
    return FirstDay() + std::chrono::days(days * number / count);
}

} // namespace

void AppendEvent(std::string& text, int number, int count) {
    const std::uint64_t chance = Scramble(static_cast<std::uint64_t>(number));
    const bool series = number % kSeriesEvery == 0;
    const bool allDay = number % kAllDayEvery == 3 || number % (kSeriesEvery * kAllDayEvery) == 0;
    const bool allDaySingle = number % (kSeriesEvery * kAllDayEvery) == 3; // makes room for the all-day series
    const bool wholeDay = allDay && !allDaySingle;
    Moment start{SpreadDay(number, count), 7 * 60 + static_cast<int>(chance % 52) * 15};
    std::int64_t minutes = 15 * (1 + static_cast<std::int64_t>(chance >> 8 & 7));
    if (number % kLongEvery == 57) {
        minutes = kMinutesPerDay * (1 + number / kLongEvery % 30);
    }
    std::string rule;
    if (series) {
        const int index = number / kSeriesEvery;
        rule = MakeRule(index, start.Day);
        rule += MakeEnding(index, start, wholeDay);
    }
    AppendLine(text, "BEGIN:VEVENT");
    AppendLine(text, "UID:%08d-%08x@generated.example", number, static_cast<unsigned>(chance >> 32));
    AppendLine(text, "DTSTAMP:20191201T080000Z");
    AppendTimes(text, start, minutes, wholeDay);
    if (series) {
        AppendLine(text, "RRULE:%s", rule.c_str());
    }
    AppendLine(text, "SUMMARY:%s %d", kSubjects[(chance >> 16) % kSubjects.size()], number);
    if ((chance >> 24) % 2 == 0) {
        AppendLine(text, "LOCATION:%s", kPlaces[(chance >> 25) % kPlaces.size()]);
    }
    if ((chance >> 32) % 4 == 0) {
        AppendLine(text, "DESCRIPTION:%s", kNotes[(chance >> 34) % kNotes.size()]);
    }
    if (static_cast<int>((chance >> 40) % 100) < kReminderPercent) {
        AppendLine(text, "BEGIN:VALARM");
        AppendLine(text, "ACTION:DISPLAY");
        AppendLine(text, "DESCRIPTION:Reminder");
        AppendLine(text, "TRIGGER:-PT%dM", static_cast<int>(5 * (1 + (chance >> 48) % 12)));
        AppendLine(text, "END:VALARM");
    }
    AppendLine(text, "END:VEVENT");
}

void AppendCalendarBegin(std::string& text) {
    AppendLine(text, "BEGIN:VCALENDAR");
    AppendLine(text, "VERSION:2.0");
    AppendLine(text, "PRODID:-//Tavo Calendar//Benchmark//EN");
}

void AppendCalendarEnd(std::string& text) {
    AppendLine(text, "END:VCALENDAR");
}

std::string MakeMemoName(int number, int count) {
    const std::uint64_t chance = Scramble(static_cast<std::uint64_t>(number) + 9'000'000);
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "%s_%02d%02d%02d.pwi", WriteDate(SpreadDay(number, count)).c_str(),
                  static_cast<int>(chance % 24), static_cast<int>((chance >> 8) % 60),
                  static_cast<int>((chance >> 16) % 60));
    return name.data();
}

std::string MakeMemoBytes(int number) {
    // The program never looks into a memo, so any bytes do; 200 is a short handwritten word.
    std::string bytes;
    for (std::uint64_t index = 0; bytes.size() < 200; ++index) {
        const std::uint64_t word = Scramble(static_cast<std::uint64_t>(number) * 64 + index);
        for (int shift = 0; shift < 64; shift += 8) {
            bytes += static_cast<char>(word >> shift & 0xFF);
        }
    }
    return bytes;
}

} // namespace tavo::benchmarks
