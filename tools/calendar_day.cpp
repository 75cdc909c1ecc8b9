// Days as people type and read them on the command line.
#include "tools/calendar_day.h"

#include <array>
#include <cstdio>
#include <ctime>

namespace tavo::tools {
namespace {

constexpr int kFirstYear = 1601;
constexpr std::size_t kShortName = 3;
constexpr std::array<std::string_view, 7> kWeekdays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                       "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 12> kMonths = {"January",   "February", "March",    "April",
                                                      "May",       "June",     "July",     "August",
                                                      "September", "October",  "November", "December"};

// The number that exactly `count` digits spell; -1 when a character is no digit.
int ReadDigits(std::string_view text, std::size_t begin, std::size_t count) {
    int number = 0;
    for (std::size_t index = begin; index < begin + count; ++index) {
        if (text[index] < '0' || text[index] > '9') {
            return -1;
        }
        number = number * 10 + (text[index] - '0');
    }
    return number;
}

// "21 November 2026"
std::string WriteDate(std::chrono::year_month_day date) {
    return std::to_string(static_cast<unsigned>(date.day())) + " " +
           std::string(NameMonth(static_cast<unsigned>(date.month()))) + " " +
           std::to_string(static_cast<int>(date.year()));
}

unsigned WeekdayOf(Day day) {
    return std::chrono::weekday(day).c_encoding();
}

} // namespace

std::optional<Day> ParseDay(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') {
        return std::nullopt;
    }
    const int year = ReadDigits(text, 0, 4);
    const int month = ReadDigits(text, 5, 2);
    const int day = ReadDigits(text, 8, 2);
    if (year < kFirstYear || month < 0 || day < 0) {
        return std::nullopt;
    }
    const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    return date.ok() ? std::optional<Day>(date) : std::nullopt;
}

Moment GetNow() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {std::chrono::year(local.tm_year + 1900) / (local.tm_mon + 1) / local.tm_mday,
            local.tm_hour * 60 + local.tm_min};
}

Day GetToday() {
    return GetNow().Date;
}

std::string WriteIsoDay(Day day) {
    const std::chrono::year_month_day date(day);
    std::array<char, 24> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02u", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    return text.data();
}

std::string WriteLongDay(Day day) {
    return std::string(NameWeekday(WeekdayOf(day))) + ", " + WriteDate(day);
}

std::string WriteDayWithWeekday(Day day) {
    return std::string(NameWeekday(WeekdayOf(day)).substr(0, kShortName)) + " " + WriteDate(day);
}

std::string WriteShortDay(Day day) {
    const std::chrono::year_month_day date(day);
    return std::to_string(static_cast<unsigned>(date.day())) + " " +
           std::string(NameMonth(static_cast<unsigned>(date.month())).substr(0, kShortName));
}

std::string WriteClock(int minute) {
    std::array<char, 24> text{};
    std::snprintf(text.data(), text.size(), "%02d:%02d", minute / 60, minute % 60);
    return text.data();
}

std::string_view NameWeekday(unsigned weekday) {
    return kWeekdays[weekday];
}

std::string_view NameMonth(unsigned month) {
    return kMonths[month - 1];
}

} // namespace tavo::tools
