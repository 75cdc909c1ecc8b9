// Control by control, in the pages' own terms.
#include "tests/edit/wizard_said.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace tavo::test {

namespace {

constexpr std::array<int, 7> kToggles{kPatternSunday,   kPatternMonday, kPatternTuesday, kPatternWednesday,
                                      kPatternThursday, kPatternFriday, kPatternSaturday};

class PageReader {
  public:
    explicit PageReader(EditDesk& desk) : Desk(desk), Controls(desk.Device.Host().Controls()) {}

    bool Has(int id) { return Desk.Shown(id) != WindowHandle::None; }

    bool IsOn(int id) { return Controls.GetCheck(Desk.Shown(id)); }

    std::int32_t Place(int id) { return Controls.GetCurSel(Desk.Shown(id)); }

    // The digits at its beginning.
    std::int32_t Number(int id) {
        std::int32_t number = 0;
        for (const char16_t digit : Controls.GetWindowTextW(Desk.Shown(id))) {
            if (digit < u'0' || digit > u'9' || number > 1000000) {
                break;
            }
            number = number * 10 + (digit - u'0');
        }
        return number;
    }

    SYSTEMTIME Date(int id) { return Controls.GetSystemtime(Desk.Shown(id)); }

  private:
    EditDesk& Desk;
    IControls& Controls;
};

constexpr std::int32_t DayBit(std::int32_t weekday) {
    return weekday < 0 ? 0 : 1 << weekday;
}

void ReadMonthly(PageReader& page, SaidRule& rule) {
    if (page.IsOn(kPatternMonthlyThe)) {
        rule.Type = 3;
        rule.Interval = page.Number(kPatternTheMonths);
        rule.Instance = page.Place(kPatternTheOrdinal) + 1;
        rule.Mask = DayBit(page.Place(kPatternTheWeekday));
    } else {
        rule.Type = 2;
        rule.Interval = page.Number(kPatternDayMonths);
        rule.DayOfMonth = page.Number(kPatternDayOfMonth);
    }
}

void ReadYearly(PageReader& page, SaidRule& rule) {
    if (page.IsOn(kPatternYearlyNth)) {
        rule.Type = 6;
        rule.Month = page.Place(kPatternYearNthMonth) + 1;
        rule.Instance = page.Place(kPatternYearNthOrdinal) + 1;
        rule.Mask = DayBit(page.Place(kPatternYearNthWeekday));
    } else {
        rule.Type = 5;
        rule.Month = page.Place(kPatternYearDayMonth) + 1;
        rule.DayOfMonth = page.Number(kPatternYearDay);
    }
}

} // namespace

void ReadWizard(EditDesk& desk, SaidRule& rule) {
    PageReader page(desk);
    if (page.Has(kRangeNoEnd)) {
        rule.NoEnd = page.IsOn(kRangeNoEnd);
        rule.Occurrences = page.IsOn(kRangeEndsAfter) ? page.Number(kRangeCount) : 0;
        rule.LastDay = page.Date(kRangeEndDate);
        return;
    }
    SaidRule read;
    read.NoEnd = rule.NoEnd;
    read.Occurrences = rule.Occurrences;
    read.LastDay = rule.LastDay;
    if (page.Has(kPatternDayInterval)) {
        read.Type = 0;
        read.Interval = page.Number(kPatternDayInterval);
    } else if (page.Has(kPatternWeekInterval)) {
        read.Type = 1;
        read.Interval = page.Number(kPatternWeekInterval);
        for (std::size_t day = 0; day < kToggles.size(); ++day) {
            read.Mask |= page.IsOn(kToggles[day]) ? 1 << day : 0;
        }
    } else if (page.Has(kPatternMonthlyThe)) {
        ReadMonthly(page, read);
    } else if (page.Has(kPatternYearlyNth)) {
        ReadYearly(page, read);
    } else {
        return; // no page is on show
    }
    rule = read;
}

void ExpectRule(EditDesk& desk, const SavedPattern& saved, const SaidRule& said) {
    EXPECT_EQ(saved.Type, said.Type);
    EXPECT_EQ(saved.Interval, said.Interval);
    if (said.Type == 1 || said.Type == 3 || said.Type == 6) {
        EXPECT_EQ(saved.Mask, said.Mask);
    }
    if (said.Type == 2 || said.Type == 5) {
        EXPECT_EQ(saved.DayOfMonth, said.DayOfMonth);
    }
    if (said.Type == 3 || said.Type == 6) {
        EXPECT_EQ(saved.Instance, said.Instance);
    }
    if (said.Type == 5 || said.Type == 6) {
        EXPECT_EQ(saved.Month, said.Month);
    }
    EXPECT_EQ(saved.NoEnd, said.NoEnd);
    if (!said.NoEnd && said.Occurrences > 0) {
        EXPECT_EQ(saved.Occurrences, said.Occurrences);
    } else if (!said.NoEnd) {
        EXPECT_EQ(std::floor(saved.End), desk.ToDate(At(said.LastDay.Year, said.LastDay.Month, said.LastDay.Day)));
    }
}

} // namespace tavo::test
