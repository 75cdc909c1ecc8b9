// Which controls of the pattern page belong to which mode, day and row.
#pragma once

#include "edit/pattern_page.h"
#include "res/resource_ids.h"

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace tavo {

// Sunday first.
constexpr std::array<int, 7> kDayToggles{kPatternSunday,   kPatternMonday, kPatternTuesday, kPatternWednesday,
                                         kPatternThursday, kPatternFriday, kPatternSaturday};

constexpr int kDailyControls[] = {kPatternDailyEveryLabel, kPatternDayInterval, kPatternDaysLabel};
constexpr int kWeeklyControls[] = {kPatternWeeklyEveryLabel, kPatternWeekInterval, kPatternWeeksLabel, kPatternSunday,
                                   kPatternMonday,           kPatternTuesday,      kPatternWednesday,  kPatternThursday,
                                   kPatternFriday,           kPatternSaturday};
constexpr int kMonthlyControls[] = {kPatternMonthlyDay, kPatternDayOfMonth,     kPatternDayOfEveryLabel,
                                    kPatternDayMonths,  kPatternDayMonthsLabel, kPatternMonthlyThe,
                                    kPatternTheOrdinal, kPatternTheWeekday,     kPatternTheOfEveryLabel,
                                    kPatternTheMonths,  kPatternTheMonthsLabel};
constexpr int kYearlyControls[] = {kPatternYearlyDay,   kPatternYearDayMonth,   kPatternYearDay,
                                   kPatternYearlyNth,   kPatternYearNthOrdinal, kPatternYearNthWeekday,
                                   kPatternYearOfLabel, kPatternYearNthMonth};

struct PatternTab {
    std::u16string_view Name;
    std::span<const int> Controls;
    PatternMode Mode;
    int Picture; // the strip with this tab in front
};

// From left to right.
constexpr PatternTab kPatternTabList[] = {
    {u"Daily", kDailyControls, PatternMode::Daily, kBitmapPatternDaily},
    {u"Weekly", kWeeklyControls, PatternMode::Weekly, kBitmapPatternWeekly},
    {u"Monthly", kMonthlyControls, PatternMode::Monthly, kBitmapPatternMonthly},
    {u"Yearly", kYearlyControls, PatternMode::Yearly, kBitmapPatternYearly},
};

// The radio button of the row that a list lies in.
struct RowRadio {
    int List;
    int Radio;
};

constexpr RowRadio kRowRadios[] = {
    {kPatternDayOfMonth, kPatternMonthlyDay},    {kPatternDayMonths, kPatternMonthlyDay},
    {kPatternTheMonths, kPatternMonthlyThe},     {kPatternTheOrdinal, kPatternMonthlyThe},
    {kPatternTheWeekday, kPatternMonthlyThe},    {kPatternYearDayMonth, kPatternYearlyDay},
    {kPatternYearDay, kPatternYearlyDay},        {kPatternYearNthMonth, kPatternYearlyNth},
    {kPatternYearNthOrdinal, kPatternYearlyNth}, {kPatternYearNthWeekday, kPatternYearlyNth},
};

} // namespace tavo
