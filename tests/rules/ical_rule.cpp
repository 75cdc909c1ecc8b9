// Copies and checks each part: the text that libical keeps of a rule ends with its property.
#include "tests/rules/ical_rule.h"

#include "host/locale/ascii.h"

namespace tavo::rules::test {

namespace {

constexpr int kLongestYear = 366;
constexpr int kMostWeeks = 53;

// False when a value lies outside; 0 never counts from an end.
bool CopyList(std::span<const short> values, int lowest, int highest, std::vector<int>& list) {
    for (const short value : values) {
        if (value < lowest || value > highest || (value == 0 && lowest < 0)) {
            return false;
        }
        list.push_back(value);
    }
    return true;
}

bool CopyDays(std::span<const short> values, std::vector<RuleDay>& days) {
    for (const short value : values) {
        const int weekday = icalrecurrencetype_day_day_of_week(value);
        const int ordinal = icalrecurrencetype_day_position(value);
        if (weekday < ICAL_SUNDAY_WEEKDAY || weekday > ICAL_SATURDAY_WEEKDAY || ordinal < -kMostWeeks ||
            ordinal > kMostWeeks) {
            return false;
        }
        days.push_back({weekday - 1, ordinal});
    }
    return true;
}

bool CopyLists(const icalrecurrencetype& ical, RecurrenceRule& rule) {
    return CopyList(IcalListOf(ical.by_month), 1, 12, rule.Months) &&
           CopyList(IcalListOf(ical.by_month_day), -31, 31, rule.MonthDays) &&
           CopyList(IcalListOf(ical.by_year_day), -kLongestYear, kLongestYear, rule.YearDays) &&
           CopyList(IcalListOf(ical.by_week_no), -kMostWeeks, kMostWeeks, rule.Weeks) &&
           CopyDays(IcalListOf(ical.by_day), rule.Days) && CopyList(IcalListOf(ical.by_hour), 0, 23, rule.Hours) &&
           CopyList(IcalListOf(ical.by_minute), 0, 59, rule.Minutes) &&
           CopyList(IcalListOf(ical.by_second), 0, 60, rule.OfMinute) &&
           CopyList(IcalListOf(ical.by_set_pos), -kLongestYear, kLongestYear, rule.Positions);
}

bool CopyFrequency(icalrecurrencetype_frequency frequency, RecurrenceRule& rule) {
    switch (frequency) {
    case ICAL_HOURLY_RECURRENCE:
        rule.Every = Frequency::Hourly;
        return true;
    case ICAL_DAILY_RECURRENCE:
        rule.Every = Frequency::Daily;
        return true;
    case ICAL_WEEKLY_RECURRENCE:
        rule.Every = Frequency::Weekly;
        return true;
    case ICAL_MONTHLY_RECURRENCE:
        rule.Every = Frequency::Monthly;
        return true;
    case ICAL_YEARLY_RECURRENCE:
        rule.Every = Frequency::Yearly;
        return true;
    default:
        return false;
    }
}

} // namespace

bool ReadIcalRule(const icalrecurrencetype& ical, RecurrenceRule& rule, std::string& fault) {
    rule = {};
    if (ical.freq == ICAL_NO_RECURRENCE) {
        return false;
    }
    if (!CopyFrequency(ical.freq, rule)) {
        fault = "it recurs more often than once an hour";
        return false;
    }
    if (ical.rscale != nullptr && !locale::EqualsIgnoringCase(ical.rscale, "GREGORIAN")) {
        fault = "it recurs by another calendar than the Gregorian";
        return false;
    }
    if (ical.interval < 1 || ical.count < 0 || !CopyLists(ical, rule)) {
        return false;
    }
    rule.Interval = ical.interval;
    rule.Count = ical.count;
    rule.WeekStart = ical.week_start == ICAL_NO_WEEKDAY ? 1 : ical.week_start - 1;
    if (ical.rscale != nullptr && ical.skip != ICAL_SKIP_OMIT && ical.skip != ICAL_SKIP_UNDEFINED) {
        rule.Missing = ical.skip == ICAL_SKIP_BACKWARD ? MissingDay::Before : MissingDay::After;
    }
    if (icaltime_is_null_time(ical.until) == 0) {
        rule.Until = MakeTime(ical.until.year, ical.until.month, ical.until.day, ical.until.hour, ical.until.minute,
                              ical.until.second) +
                     (ical.until.is_date != 0 ? kSecondsPerDay - 1 : 0);
    }
    return true;
}

} // namespace tavo::rules::test
