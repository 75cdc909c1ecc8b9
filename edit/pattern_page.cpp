// Between the pattern and the page's controls.
#include "edit/pattern_page.h"

#include "edit/leading_number.h"
#include "edit/pattern_page_layout.h"
#include "res/dialog_templates.h"
#include "res/resource_ids.h"

#include <cstddef>

namespace tavo {

namespace {

constexpr std::int32_t kLastInstance = 5;
constexpr std::int32_t kHighestShownInterval = 5; // further entries of the lists are not the numbers of their places

template <class Value> Value Read(IRecurrencePattern& pattern, Status (IRecurrencePattern::*get)(Value&)) {
    Value value{};
    static_cast<void>((pattern.*get)(value)); // a property that cannot be read counts as zero
    return value;
}

// Nothing chosen is no day; the store then refuses the pattern.
constexpr std::int32_t MaskOfDay(int weekday) {
    return weekday < 0 ? 0 : 1 << weekday;
}

} // namespace

CPatternPage::CPatternPage(CMessagePump& pump, IRecurrencePattern& pattern)
    : CWizardPage(pump, kPatternPageTemplate), Pattern(pattern) {}

void CPatternPage::OnInitDialog() {
    ReadPattern();
    ChooseMode();
    // Kept on purpose: the interval lists of days and weeks open empty whatever the pattern holds.
    FillDays();
    FillMonthly();
    FillYearly();
    ShowMode();
}

void CPatternPage::ReadPattern() {
    Values.RecurrenceType = Read(Pattern, &IRecurrencePattern::get_RecurrenceType);
    Values.Interval = Read(Pattern, &IRecurrencePattern::get_Interval);
    Values.DayOfWeekMask = Read(Pattern, &IRecurrencePattern::get_DayOfWeekMask);
    Values.DayOfMonth = Read(Pattern, &IRecurrencePattern::get_DayOfMonth);
    Values.Instance = Read(Pattern, &IRecurrencePattern::get_Instance);
    Values.MonthOfYear = Read(Pattern, &IRecurrencePattern::get_MonthOfYear);
    const DATE start = Read(Pattern, &IRecurrencePattern::get_PatternStartDate);
    if (!Host().Locale().VariantTimeToSystemTime(start, Values.PatternStart)) {
        Values.PatternStart = Host().Clock().GetLocalTime();
    }
}

void CPatternPage::ChooseMode() {
    switch (Values.RecurrenceType) {
    case kRecursDaily:
        PageMode = Values.DayOfWeekMask == kWeekdaysMask ? PatternMode::Weekly : PatternMode::Daily;
        break;
    case kRecursWeekly:
        PageMode = PatternMode::Weekly;
        break;
    case kRecursMonthly:
    case kRecursMonthNth:
        PageMode = PatternMode::Monthly;
        break;
    case kRecursYearly:
    case kRecursYearNth:
        PageMode = PatternMode::Yearly;
        break;
    default:
        break;
    }
}

void CPatternPage::FillDays() {
    for (std::size_t day = 0; day < DaySelected.size(); ++day) {
        DaySelected[day] =
            Values.DayOfWeekMask == 0 ? day == Values.PatternStart.DayOfWeek : (Values.DayOfWeekMask & (1 << day)) != 0;
        Host().Controls().SetCheck(Item(kDayToggles[day]), DaySelected[day]);
    }
}

int CPatternPage::OpeningOrdinal() const {
    const bool isWeekOfMonth = Values.Instance >= 1 && Values.Instance <= kLastInstance;
    return isWeekOfMonth ? Values.Instance - 1 : (Values.PatternStart.Day - 1) / 7;
}

void CPatternPage::FillMonthly() {
    const bool isNth = Values.RecurrenceType == kRecursMonthNth;
    Host().Controls().SetCheck(Item(isNth ? kPatternMonthlyThe : kPatternMonthlyDay), true);
    Select(kPatternDayOfMonth, Values.PatternStart.Day - 1);
    const int interval = Values.Interval <= kHighestShownInterval ? Values.Interval - 1 : -1;
    Select(kPatternDayMonths, interval);
    Select(kPatternTheMonths, interval);
    Select(kPatternTheOrdinal, OpeningOrdinal());
    Select(kPatternTheWeekday, Values.PatternStart.DayOfWeek);
}

void CPatternPage::FillYearly() {
    const bool isNth = Values.RecurrenceType == kRecursYearNth;
    Host().Controls().SetCheck(Item(isNth ? kPatternYearlyNth : kPatternYearlyDay), true);
    Select(kPatternYearDayMonth, Values.PatternStart.Month - 1);
    Select(kPatternYearNthMonth, Values.PatternStart.Month - 1);
    Select(kPatternYearDay, Values.PatternStart.Day - 1);
    Select(kPatternYearNthOrdinal, OpeningOrdinal());
    Select(kPatternYearNthWeekday, Values.PatternStart.DayOfWeek);
}

bool CPatternPage::UpdateData() {
    Fields.DayInterval = ItemText(kPatternDayInterval);
    Fields.WeekInterval = ItemText(kPatternWeekInterval);
    Fields.MonthlyThe = Host().Controls().GetCheck(Item(kPatternMonthlyThe));
    Fields.MonthlyDay = ItemText(kPatternDayOfMonth);
    Fields.DayMonths = ItemText(kPatternDayMonths);
    Fields.TheMonths = ItemText(kPatternTheMonths);
    Fields.TheOrdinal = Choice(kPatternTheOrdinal);
    Fields.TheWeekday = Choice(kPatternTheWeekday);
    Fields.YearlyNth = Host().Controls().GetCheck(Item(kPatternYearlyNth));
    Fields.YearDay = ItemText(kPatternYearDay);
    Fields.YearDayMonth = Choice(kPatternYearDayMonth);
    Fields.NthOrdinal = Choice(kPatternYearNthOrdinal);
    Fields.NthWeekday = Choice(kPatternYearNthWeekday);
    Fields.NthMonth = Choice(kPatternYearNthMonth);
    if (PageMode == PatternMode::Weekly && !AnyDaySelected()) {
        ShowNoDay();
        return false;
    }
    return true;
}

bool CPatternPage::WriteToPattern(Validation validation) {
    const bool valid = UpdateData();
    if (!valid && validation == Validation::On) {
        return false;
    }
    WriteMode();
    return true;
}

// Numbers are not judged here: the store refuses bad ones when the appointment is saved. An item whose pattern takes
// nothing any more is refused there too.
void CPatternPage::WriteMode() {
    const auto put = [](Status status) { static_cast<void>(status); };
    switch (PageMode) {
    case PatternMode::Daily:
        put(Pattern.put_RecurrenceType(kRecursDaily));
        put(Pattern.put_Interval(LeadingNumber(Fields.DayInterval)));
        break;
    case PatternMode::Weekly: {
        std::int32_t mask = 0;
        for (std::size_t day = 0; day < DaySelected.size(); ++day) {
            mask |= DaySelected[day] ? 1 << day : 0;
        }
        put(Pattern.put_RecurrenceType(kRecursWeekly));
        put(Pattern.put_Interval(LeadingNumber(Fields.WeekInterval)));
        put(Pattern.put_DayOfWeekMask(mask));
        break;
    }
    case PatternMode::Monthly:
        if (Fields.MonthlyThe) {
            put(Pattern.put_RecurrenceType(kRecursMonthNth));
            put(Pattern.put_Interval(LeadingNumber(Fields.TheMonths)));
            put(Pattern.put_Instance(Fields.TheOrdinal + 1));
            put(Pattern.put_DayOfWeekMask(MaskOfDay(Fields.TheWeekday)));
        } else {
            put(Pattern.put_RecurrenceType(kRecursMonthly));
            put(Pattern.put_Interval(LeadingNumber(Fields.DayMonths)));
            put(Pattern.put_DayOfMonth(LeadingNumber(Fields.MonthlyDay)));
        }
        break;
    case PatternMode::Yearly:
        if (Fields.YearlyNth) {
            put(Pattern.put_RecurrenceType(kRecursYearNth));
            put(Pattern.put_MonthOfYear(Fields.NthMonth + 1));
            put(Pattern.put_Instance(Fields.NthOrdinal + 1));
            put(Pattern.put_DayOfWeekMask(MaskOfDay(Fields.NthWeekday)));
        } else {
            put(Pattern.put_RecurrenceType(kRecursYearly));
            put(Pattern.put_MonthOfYear(Fields.YearDayMonth + 1));
            put(Pattern.put_DayOfMonth(LeadingNumber(Fields.YearDay)));
        }
        break;
    }
}

} // namespace tavo
