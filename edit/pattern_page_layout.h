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
    PatternMode Mode;
    std::u16string_view Name;
    int Picture; // the strip with this tab in front
    std::span<const int> Controls;
};

// From left to right.
constexpr PatternTab kPatternTabList[] = {
    {PatternMode::Daily, u"Daily", kBitmapPatternDaily, kDailyControls},
    {PatternMode::Weekly, u"Weekly", kBitmapPatternWeekly, kWeeklyControls},
    {PatternMode::Monthly, u"Monthly", kBitmapPatternMonthly, kMonthlyControls},
    {PatternMode::Yearly, u"Yearly", kBitmapPatternYearly, kYearlyControls},
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
