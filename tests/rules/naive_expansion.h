// What a recurrence means, told a second time: by walking a paper calendar day by day. Shares no code with the store.
#pragma once

#include <cstdint>
#include <vector>

namespace tavo::rules::test {

struct PaperDate {
    int Year = 1900;
    int Month = 1;
    int Day = 1;
    int Weekday = 1; // 0 is Sunday; 1900-01-01 was a Monday
    long Number = 2; // days since 1899-12-30

    void GoToNextDay();
    bool IsBefore(int year, int month, int day) const;
};

struct PaperRule {
    int Type = 0; // the device's numbers
    int Interval = 1;
    int Mask = 0;
    int DayOfMonth = 1;
    int Instance = 1;
    int MonthOfYear = 1;
};

// The day numbers on which the rule recurs from `start` to the day with the number `last`, at most `limit` of them.
std::vector<long> WalkRule(const PaperRule& rule, const PaperDate& start, long last, long limit);

// Walks from 1900-01-01.
PaperDate FindPaperDate(int year, int month, int day);

} // namespace tavo::rules::test
