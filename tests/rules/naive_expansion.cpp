// The paper calendar.
#include "tests/rules/naive_expansion.h"

#include <algorithm>

namespace tavo::rules::test {

namespace {

int LengthOf(int year, int month) {
    switch (month) {
    case 2:
        return year % 400 == 0 || (year % 4 == 0 && year % 100 != 0) ? 29 : 28;
    case 4:
    case 6:
    case 9:
    case 11:
        return 30;
    default:
        return 31;
    }
}

// Is this date the nth (5: the last) of its month's days that the mask names? Looks at every day of the month.
bool IsNthOfMonth(const PaperDate& date, int mask, int instance) {
    int before = 0;
    int after = 0;
    for (int day = 1; day <= LengthOf(date.Year, date.Month); ++day) {
        const int weekday = ((date.Weekday + day - date.Day) % 7 + 7) % 7;
        if ((mask & (1 << weekday)) == 0) {
            if (day == date.Day) {
                return false;
            }
            continue;
        }
        before += day < date.Day ? 1 : 0;
        after += day > date.Day ? 1 : 0;
    }
    return instance == 5 ? after == 0 : before == instance - 1;
}

} // namespace

void PaperDate::GoToNextDay() {
    ++Number;
    Weekday = Weekday == 6 ? 0 : Weekday + 1;
    if (Day < 28 || Day < LengthOf(Year, Month)) {
        ++Day;
        return;
    }
    Day = 1;
    if (Month < 12) {
        ++Month;
        return;
    }
    Month = 1;
    ++Year;
}

bool PaperDate::IsBefore(int year, int month, int day) const {
    return Year != year ? Year < year : Month != month ? Month < month : Day < day;
}

PaperDate FindPaperDate(int year, int month, int day) {
    PaperDate date;
    while (date.IsBefore(year, month, day)) {
        date.GoToNextDay();
    }
    return date;
}

std::vector<long> WalkRule(const PaperRule& rule, const PaperDate& start, long last, long limit) {
    constexpr int kMondayToFriday = 62;
    std::vector<long> days;
    long daysPassed = 0;
    long sundaysPassed = 0;
    long monthsPassed = 0;
    for (PaperDate date = start; date.Number <= last && static_cast<long>(days.size()) < limit; date.GoToNextDay()) {
        if (date.Number > start.Number) {
            ++daysPassed;
            sundaysPassed += date.Weekday == 0 ? 1 : 0;
            monthsPassed += date.Day == 1 ? 1 : 0;
        }
        const bool named = (rule.Mask & (1 << date.Weekday)) != 0;
        const bool monthsDay = date.Day == std::min(rule.DayOfMonth, LengthOf(date.Year, date.Month));
        bool recurs = false;
        switch (rule.Type) {
        case 0:
            recurs = daysPassed % rule.Interval == 0 && (rule.Mask != kMondayToFriday || named);
            break;
        case 1:
            recurs = sundaysPassed % rule.Interval == 0 && named;
            break;
        case 2:
            recurs = monthsPassed % rule.Interval == 0 && monthsDay;
            break;
        case 3:
            recurs = monthsPassed % rule.Interval == 0 && named && IsNthOfMonth(date, rule.Mask, rule.Instance);
            break;
        case 5:
            recurs = date.Month == rule.MonthOfYear && monthsDay;
            break;
        default:
            recurs = date.Month == rule.MonthOfYear && named && IsNthOfMonth(date, rule.Mask, rule.Instance);
            break;
        }
        if (recurs) {
            days.push_back(date.Number);
        }
    }
    return days;
}

} // namespace tavo::rules::test
