// The reference period of the appointment list, which is kept in its two pickers only.
#include "schedule/schedule_page.h"

#include "res/resource_ids.h"
#include "schedule/item_days.h"

namespace tavo {

namespace {

constexpr int kLongestPeriod = 31; // days from its first to its last
constexpr int kResetPeriod = 30;   // Kept on purpose: shorter than the longest.
constexpr std::u16string_view kTooLong = u"reference period cannot exceed 1 month";

SYSTEMTIME AtEndOfDay(SYSTEMTIME date) {
    date.Hour = 23;
    date.Minute = 59;
    date.Second = 59;
    date.Milliseconds = 0;
    return date;
}

} // namespace

void CSchedulePage::StartWithMonthAhead() {
    const SYSTEMTIME today = Host().Clock().GetLocalTime();
    SetPicker(kSchedulePeriodStart, today);
    SetPicker(kSchedulePeriodEnd, DayAfter(today, kResetPeriod, Host().Locale()));
}

void CSchedulePage::SetPicker(int picker, const SYSTEMTIME& date) {
    static_cast<void>(Host().Controls().SetSystemtime(Item(picker), date)); // a date beyond the calendar is not taken
}

SYSTEMTIME CSchedulePage::PeriodStart() const {
    return DayAfter(Host().Controls().GetSystemtime(Item(kSchedulePeriodStart)), 0, Host().Locale());
}

SYSTEMTIME CSchedulePage::PeriodEnd() const {
    return AtEndOfDay(DayAfter(Host().Controls().GetSystemtime(Item(kSchedulePeriodEnd)), 0, Host().Locale()));
}

void CSchedulePage::TakeStartPicked() {
    FocusList();
    ValidateFromStart();
}

void CSchedulePage::TakeEndPicked() {
    FocusList();
    ValidateFromEnd();
}

void CSchedulePage::ValidateFromStart() {
    SYSTEMTIME start = PeriodStart();
    SYSTEMTIME end = PeriodEnd();
    if (DaysBetween(start, end, Host().Locale()) < 0) {
        end = AtEndOfDay(start);
        SetPicker(kSchedulePeriodEnd, end);
    } else if (DaysBetween(start, end, Host().Locale()) > kLongestPeriod) {
        SayPeriodTooLong();
        start = AtEndOfDay(DayAfter(end, -kResetPeriod, Host().Locale())); // Kept on purpose: the end's time of day.
        SetPicker(kSchedulePeriodStart, start);
    }
    ShowPeriod(start, end);
}

void CSchedulePage::ValidateFromEnd() {
    SYSTEMTIME start = PeriodStart();
    SYSTEMTIME end = PeriodEnd();
    if (DaysBetween(start, end, Host().Locale()) < 0) {
        start = DayAfter(end, 0, Host().Locale());
        SetPicker(kSchedulePeriodStart, start);
    } else if (DaysBetween(start, end, Host().Locale()) > kLongestPeriod) {
        SayPeriodTooLong();
        end = DayAfter(start, kResetPeriod, Host().Locale()); // Kept on purpose: the start's time of day.
        SetPicker(kSchedulePeriodEnd, end);
    }
    ShowPeriod(start, end);
}

void CSchedulePage::SayPeriodTooLong() {
    MessageBoxDescription box;
    box.Text = kTooLong;
    Pump().ShowMessageBox(Handle(), box);
}

void CSchedulePage::ShowPeriod(const SYSTEMTIME& start, const SYSTEMTIME& end) {
    static_cast<void>(Appointments.Fill(start, end)); // nothing was saved that could be missing
    SetScrollBar();
}

} // namespace tavo
