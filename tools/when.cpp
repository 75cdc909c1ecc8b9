// Reads days and times word by word; what was understood is checked at the end.
#include "tools/when.h"

#include "tools/written_words.h"

#include <algorithm>
#include <array>
#include <vector>

namespace tavo::tools {
namespace {

using std::chrono::days;
using std::chrono::year_month_day;

constexpr int kMinutesPerHour = 60;
constexpr int kMinutesPerDay = 24 * kMinutesPerHour;
constexpr int kNoon = 12 * kMinutesPerHour;
constexpr int kFirstYear = 1900; // those that the calendar holds
constexpr int kLastYear = 2999;
constexpr int kFurthest = 40'000; // units of a distance from now
constexpr unsigned kFebruary = 2;
constexpr std::size_t kDigitsOfYear = 4;

unsigned LastDayOf(int year, unsigned month) {
    return static_cast<unsigned>((std::chrono::year(year) / std::chrono::month(month) / std::chrono::last).day());
}

// Months later, on the last day where the month has no such day.
Day AddMonths(Day day, int months) {
    const year_month_day date(day);
    const std::chrono::year_month month = date.year() / date.month() + std::chrono::months(months);
    const unsigned last = LastDayOf(static_cast<int>(month.year()), static_cast<unsigned>(month.month()));
    return month / std::chrono::day(std::min(static_cast<unsigned>(date.day()), last));
}

class Reader {
  public:
    Reader(std::string_view text, const Moment& now) : Words(SplitWords(text)), Now(now) {}

    // False with the reason in Fault.
    bool Read() {
        if (Words.empty()) {
            return Refuse("it names no day and no time");
        }
        while (Next < Words.size()) {
            if (!ReadNext()) {
                return false;
            }
        }
        return Settle();
    }

    const When& Get() const { return Result; }

    const std::string& GetFault() const { return Fault; }

  private:
    bool Refuse(std::string reason) {
        if (Fault.empty()) { // the first is the one to mend
            Fault = std::move(reason);
        }
        return false;
    }

    std::string_view Peek(std::size_t ahead = 0) const {
        return Next + ahead < Words.size() ? std::string_view(Words[Next + ahead]) : std::string_view();
    }

    // Takes so many words when a day or time was read of them.
    bool Take(std::size_t count, bool good) {
        Next += count;
        return good;
    }

    bool SetDate(Day day) {
        if (Result.Date) {
            return Refuse("it names two days");
        }
        const int year = static_cast<int>(year_month_day(day).year());
        if (year < kFirstYear || year > kLastYear) {
            return Refuse("the calendar holds the years 1900 to 2999");
        }
        Result.Date = day;
        return true;
    }

    bool SetTime(int minute) {
        if (Result.Minute) {
            return Refuse("it names two times");
        }
        Result.Minute = minute;
        return true;
    }

    bool ReadNext() {
        const std::string_view word = Peek();
        if (word == "at" || word == "on" || word == "the") {
            return Take(1, Next + 1 < Words.size() || Refuse("something is missing behind \"" + Words[Next] + "\""));
        }
        if (word == "noon" || word == "midnight") {
            return Take(1, SetTime(word == "noon" ? kNoon : 0));
        }
        if (word == "now") {
            return Take(1, SetDate(Now.Date) && SetTime(Now.Minute));
        }
        if (word == "today" || word == "tomorrow" || word == "yesterday") {
            return Take(1, SetDate(Now.Date + days(word == "today" ? 0 : (word == "tomorrow" ? 1 : -1))));
        }
        if (word == "next" || word == "this" || word == "last") {
            return ReadNextOne(word);
        }
        if (const int weekday = FindWeekday(word); weekday >= 0) {
            return Take(1, SetWeekday(weekday, 0));
        }
        if (word == "in" || word.front() == '+' || word.front() == '-') {
            return ReadDistance();
        }
        if (const int month = FindMonth(word); month > 0) {
            return ReadMonthFirst(month);
        }
        if (word.front() >= '0' && word.front() <= '9') {
            return ReadNumber(word);
        }
        return Refuse("\"" + std::string(word) + "\" is no day and no time" + ProposeWord(word));
    }

    static std::string ProposeWord(std::string_view word) {
        static constexpr std::array<std::string_view, 23> known = {
            "today",    "tomorrow", "yesterday", "noon",      "midnight", "monday",   "tuesday", "wednesday",
            "thursday", "friday",   "saturday",  "sunday",    "january",  "february", "march",   "april",
            "june",     "july",     "august",    "september", "october",  "november", "december"};
        const std::string_view near = FindNearest(word, known);
        return near.empty() ? "" : ", did you mean \"" + std::string(near) + "\"?";
    }

    // weeks: 0 the first such day from today on, 1 that of the next week, -1 the last one before today.
    bool SetWeekday(int weekday, int weeks) {
        if (Weekday) {
            return Refuse("it names two days");
        }
        Weekday = weekday;
        WeeksOn = weeks;
        return true;
    }

    bool ReadNextOne(std::string_view word) {
        const int by = word == "next" ? 1 : (word == "last" ? -1 : 0);
        const std::string_view what = Peek(1);
        if (const int weekday = FindWeekday(what); weekday >= 0) {
            return Take(2, SetWeekday(weekday, by));
        }
        if (what == "week") {
            return Take(2, SetDate(Now.Date + days(7 * by)));
        }
        if (what == "month") {
            return Take(2, SetDate(AddMonths(Now.Date, by)));
        }
        if (what == "year") {
            return Take(2, SetDate(AddMonths(Now.Date, 12 * by)));
        }
        return Refuse("behind \"" + std::string(word) + "\" stands a weekday, week, month or year");
    }

    // "in 2 weeks", "in an hour", "+3d", "+3 days", "-1w"
    bool ReadDistance() {
        std::size_t taken = 1;
        int sign = 1;
        std::string_view rest = Peek();
        if (rest == "in") {
            rest = Peek(taken++);
        } else {
            sign = rest.front() == '-' ? -1 : 1;
            rest.remove_prefix(1);
        }
        std::string_view unit;
        const int count = TakeCount(rest, unit);
        if (unit.empty()) {
            unit = Peek(taken++);
        }
        return Take(taken, SetDistance(sign * count, unit, count));
    }

    // The number that a word begins with ("a" is one), and what stands behind it; -1 when there is none.
    static int TakeCount(std::string_view word, std::string_view& rest) {
        if (word == "a" || word == "an") {
            return 1;
        }
        const std::size_t digits = CountDigits(word);
        rest = word.substr(digits);
        return ReadWholeNumber(word.substr(0, digits)).value_or(-1);
    }

    bool SetDistance(int by, std::string_view unitName, int count) {
        const std::optional<Unit> unit = FindUnit(unitName);
        if (count < 0 || !unit) {
            return Refuse("a distance is a number with d, w, m or y, or with days, weeks, months, years, hours or"
                          " minutes");
        }
        if (count > kFurthest || (*unit == Unit::Year && count > kFurthest / 12)) {
            return Refuse("the distance is too great");
        }
        switch (*unit) {
        case Unit::Minute:
        case Unit::Hour:
            return SetDistanceInMinutes(*unit == Unit::Hour ? by * kMinutesPerHour : by);
        case Unit::Day:
            return SetDate(Now.Date + days(by));
        case Unit::Week:
            return SetDate(Now.Date + days(7 * by));
        case Unit::Month:
            return SetDate(AddMonths(Now.Date, by));
        case Unit::Year:
            return SetDate(AddMonths(Now.Date, 12 * by));
        }
        return false;
    }

    bool SetDistanceInMinutes(int by) {
        const int minute = Now.Minute + by;
        const int day = minute >= 0 ? minute / kMinutesPerDay : -((kMinutesPerDay - 1 - minute) / kMinutesPerDay);
        return SetDate(Now.Date + days(day)) && SetTime(minute - day * kMinutesPerDay);
    }

    bool ReadNumber(std::string_view word) {
        if (word.size() >= 10 && word[4] == '-' && CountDigits(word) == kDigitsOfYear) {
            return ReadIso(word);
        }
        if (word.find(':') != std::string_view::npos) {
            return ReadClock();
        }
        if (const std::size_t sign = word.find_first_of("/-"); sign != std::string_view::npos) {
            return ReadNumbers(word, word[sign]);
        }
        if (word.find('.') != std::string_view::npos) {
            return ReadNumbers(word, '.');
        }
        const std::size_t digits = CountDigits(word);
        const std::string_view ending = word.substr(digits);
        if (IsHalfOfDay(ending) || (ending.empty() && IsHalfOfDay(Peek(1)))) {
            return ReadClock();
        }
        if (ending.empty() && FindUnit(Peek(1)) && Peek(2) == "ago") {
            const int count = ReadWholeNumber(word).value_or(-1);
            return Take(3, SetDistance(-count, Peek(1), count));
        }
        return ReadDayFirst(word.substr(0, digits), ending);
    }

    // "9:30", "9:30pm", "3 pm"
    bool ReadClock() {
        const std::string_view word = Peek();
        const std::size_t hourDigits = CountDigits(word);
        std::optional<int> hour = ReadWholeNumber(word.substr(0, hourDigits));
        std::optional<int> minute = 0;
        std::string_view rest = word.substr(hourDigits);
        if (rest.starts_with(':')) {
            const std::size_t digits = CountDigits(rest.substr(1));
            minute = digits == 2 ? ReadWholeNumber(rest.substr(1, digits)) : std::nullopt;
            rest = rest.substr(1 + digits);
            if (rest == ":00") {
                rest = {};
            }
        }
        std::size_t taken = 1;
        if (rest.empty() && IsHalfOfDay(Peek(1))) {
            rest = Peek(taken++);
        }
        if (!hour || !minute || (!rest.empty() && !IsHalfOfDay(rest))) {
            return Refuse("\"" + std::string(word) + "\" is no time: a time is hours and minutes");
        }
        if (*minute >= kMinutesPerHour) {
            return Refuse("an hour has no minute " + std::to_string(*minute));
        }
        if (!rest.empty() && (*hour < 1 || *hour > 12)) {
            return Refuse("with am and pm, hours go from 1 to 12");
        }
        if (rest.empty() && *hour > 23) {
            return Refuse("a day has no hour " + std::to_string(*hour));
        }
        const int hourOfDay = rest.empty() ? *hour : *hour % 12 + (rest.front() == 'p' ? 12 : 0);
        return Take(taken, SetTime(hourOfDay * kMinutesPerHour + *minute));
    }

    static bool IsHalfOfDay(std::string_view word) {
        return word == "am" || word == "pm" || word == "a.m" || word == "p.m";
    }

    // "2026-12-01", "2026-12-01t09:30"
    bool ReadIso(std::string_view word) {
        const std::optional<int> year = ReadWholeNumber(word.substr(0, 4));
        const std::optional<int> month = ReadWholeNumber(word.substr(5, 2));
        const std::optional<int> day = ReadWholeNumber(word.substr(8, 2));
        if (!year || !month || !day || word[7] != '-' || (word.size() > 10 && word[10] != 't')) {
            return Refuse("\"" + std::string(word) + "\" is no date");
        }
        if (!SetDay(year, *month, *day)) {
            return false;
        }
        if (word.size() == 10) {
            return Take(1, true);
        }
        Words[Next] = word.substr(11); // the time is a word of its own
        return !Words[Next].empty() || Refuse("behind the T stands a time");
    }

    // A date of numbers alone: with points the day comes first, with anything else that has to be clear from them.
    bool ReadNumbers(std::string_view word, char sign) {
        std::vector<std::optional<int>> parts;
        std::size_t digitsOfYear = 0;
        for (std::string_view rest = word; !rest.empty();) {
            digitsOfYear = CountDigits(rest);
            parts.push_back(ReadWholeNumber(rest.substr(0, digitsOfYear)));
            rest.remove_prefix(digitsOfYear);
            if (!rest.empty() && rest.front() != sign) {
                parts.emplace_back();
                break;
            }
            rest.remove_prefix(rest.empty() ? 0 : 1);
        }
        const bool areNumbers = std::all_of(parts.begin(), parts.end(), [](const auto& part) { return part; });
        if (!areNumbers || parts.size() < 2 || parts.size() > 3) {
            return Refuse("\"" + std::string(word) + "\" is no date and no time");
        }
        if (parts.size() == 3 && digitsOfYear != kDigitsOfYear) {
            return Refuse("a year has four digits");
        }
        return Take(1, SetFromNumbers(*parts[0], *parts[1], parts.size() == 3 ? parts[2] : std::nullopt, sign));
    }

    bool SetFromNumbers(int first, int second, std::optional<int> year, char sign) {
        const bool dayFirst = second >= 1 && second <= 12;
        const bool monthFirst = sign != '.' && first >= 1 && first <= 12;
        if (dayFirst && monthFirst && first != second) {
            const int shownYear = year.value_or(static_cast<int>(year_month_day(Now.Date).year()));
            return Refuse("it could be " + Propose(shownYear, second, first) + " or " +
                          Propose(shownYear, first, second));
        }
        if (sign == '.' && !dayFirst) {
            return Refuse("a year has no month " + std::to_string(second) + ", and a time is written with a colon");
        }
        return dayFirst ? SetDay(year, second, first) : SetDay(year, first, second);
    }

    static std::string Propose(int year, int month, int day) {
        const year_month_day date{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                  std::chrono::day(static_cast<unsigned>(day))};
        return WriteIsoDay(date) + " (" + WriteShortDay(date) + ")";
    }

    // "dec 1", "december 1st 2027"
    bool ReadMonthFirst(int month) {
        const std::string_view word = Peek(1);
        const std::size_t digits = CountDigits(word);
        const std::optional<int> day = ReadWholeNumber(word.substr(0, digits));
        if (!day || !IsOrdinalEnding(word.substr(digits))) {
            return Refuse("behind " + std::string(NameMonth(static_cast<unsigned>(month))) + " stands its day");
        }
        return ReadYear(2, month, *day);
    }

    // "1 dec", "1st december 2027", "1 of december"
    bool ReadDayFirst(std::string_view digits, std::string_view ending) {
        const std::size_t monthPlace = Peek(1) == "of" ? 2 : 1;
        const int month = FindMonth(Peek(monthPlace));
        const std::optional<int> day = ReadWholeNumber(digits);
        if (month > 0 && day && IsOrdinalEnding(ending)) {
            return ReadYear(monthPlace + 1, month, *day);
        }
        if (ending.empty() && digits.size() == 8) {
            return Take(1, SetDay(ReadWholeNumber(digits.substr(0, 4)), *ReadWholeNumber(digits.substr(4, 2)),
                                  *ReadWholeNumber(digits.substr(6))));
        }
        return Refuse(ending.empty() ? "\"" + std::string(digits) + "\" alone could be an hour, a day or a year"
                                     : "\"" + std::string(digits) + std::string(ending) + "\" is no day and no time");
    }

    bool ReadYear(std::size_t taken, int month, int day) {
        const std::string_view word = Peek(taken);
        std::optional<int> year;
        if (word.size() == kDigitsOfYear && CountDigits(word) == kDigitsOfYear) {
            year = ReadWholeNumber(word);
            ++taken;
        }
        return Take(taken, SetDay(year, month, day));
    }

    static bool IsOrdinalEnding(std::string_view ending) {
        return ending.empty() || ending == "st" || ending == "nd" || ending == "rd" || ending == "th";
    }

    // Without a year it is the first such day from today on.
    bool SetDay(std::optional<int> year, int month, int day) {
        if (month < 1 || month > 12) {
            return Refuse("a year has no month " + std::to_string(month));
        }
        const auto monthNumber = static_cast<unsigned>(month);
        const std::string monthName(NameMonth(monthNumber));
        if (year && (*year < kFirstYear || *year > kLastYear)) {
            return Refuse("the calendar holds the years 1900 to 2999");
        }
        constexpr int aLeapYear = 2000;
        const unsigned last = LastDayOf(year.value_or(aLeapYear), monthNumber);
        if (day < 1 || static_cast<unsigned>(day) > last) {
            const bool namesYear = year && monthNumber == kFebruary;
            return Refuse(monthName + (namesYear ? " " + std::to_string(*year) : "") + " has " + std::to_string(last) +
                          " days" + (year || monthNumber != kFebruary ? "" : " at the most"));
        }
        const auto make = [&](int inYear) {
            return year_month_day{std::chrono::year(inYear), std::chrono::month(monthNumber),
                                  std::chrono::day(static_cast<unsigned>(day))};
        };
        if (year) {
            return SetDate(make(*year));
        }
        int found = static_cast<int>(year_month_day(Now.Date).year());
        while (!make(found).ok() || Day(make(found)) < Now.Date) {
            ++found;
        }
        return SetDate(make(found));
    }

    // A weekday alone is a day; beside a date it has to be the date's own.
    bool Settle() {
        if (!Weekday) {
            return true;
        }
        if (Result.Date) {
            const auto own = std::chrono::weekday(*Result.Date).c_encoding();
            return own == static_cast<unsigned>(*Weekday) ||
                   Refuse(WriteIsoDay(*Result.Date) + " is a " + std::string(NameWeekday(own)));
        }
        const auto wanted = std::chrono::weekday(static_cast<unsigned>(*Weekday));
        const std::chrono::weekday today(Now.Date);
        if (WeeksOn < 0) {
            return SetDate(Now.Date - (today == wanted ? days(7) : today - wanted));
        }
        if (WeeksOn == 0) {
            return SetDate(Now.Date + (wanted - today));
        }
        const Day monday = Now.Date - (today - std::chrono::Monday);
        return SetDate(monday + days(7) + (wanted - std::chrono::Monday));
    }

    std::vector<std::string> Words;
    Moment Now;
    std::size_t Next = 0;
    When Result;
    std::optional<int> Weekday; // 0 Sunday
    int WeeksOn = 0;
    std::string Fault;
};

} // namespace

std::optional<When> ReadWhen(std::string_view text, const Moment& now, std::string& error) {
    Reader reader(text, now);
    if (reader.Read()) {
        return reader.Get();
    }
    const bool asks = reader.GetFault().ends_with('?');
    error = "\"" + std::string(text) + "\" cannot be read: " + reader.GetFault() + (asks ? "" : ".") +
            " Write it like \"" + WriteIsoDay(now.Date) + " 15:00\", \"1 dec\" or \"tomorrow 9:30\".";
    return std::nullopt;
}

} // namespace tavo::tools
