// The benchmark's calendar: items that are the same on every machine, written as iCalendar text.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

namespace tavo::benchmarks {

constexpr int kFirstYear = 2020;
constexpr int kYears = 10;

// What share of the items is what, counted by the item's number so that every run agrees.
constexpr int kSeriesEvery = 20;  // 5% series
constexpr int kAllDayEvery = 10;  // 10% all-day
constexpr int kLongEvery = 200;   // 1 in 200 lasts 1 to 30 days
constexpr int kTagsOfEach = 1000; // items of each of the three kinds
constexpr int kReminderPercent = 30;

// Appends the VEVENT of item `number` (0-based) of `count` items, which spread evenly over the ten years.
void AppendEvent(std::string& text, int number, int count);

// The file's first and last lines.
void AppendCalendarBegin(std::string& text);
void AppendCalendarEnd(std::string& text);

// The memo file name and bytes of memo `number` of `count`.
std::string MakeMemoName(int number, int count);
std::string MakeMemoBytes(int number);

} // namespace tavo::benchmarks
