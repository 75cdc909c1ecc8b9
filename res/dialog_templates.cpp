// What the dialogs and pages consist of.
#include "res/dialog_templates.h"

#include "res/resource_ids.h"

namespace tavo {

namespace {

constexpr Size kPageExtent{159, 110};

constexpr DialogItem kAboutItems[] = {
    {ControlKind::Label, kStaticText, u"Tavo Calendar Version 1.00", Rect::FromSize(31, 20, 103, 8)},
    {ControlKind::Label, kStaticText, u"Calendar, alarms and ink memos", Rect::FromSize(31, 32, 109, 8)},
    {ControlKind::Label, kStaticText, u"kept on this device", Rect::FromSize(31, 46, 88, 8)},
    {ControlKind::Label, kStaticText,
     u"(If you find any problem, suggestion\n  on this product, please send email\n  to us.  Thank you.)",
     Rect::FromSize(11, 86, 123, 36)},
};

// The four places are where the lists are made; the page gives all of these their places on the screen.
constexpr DialogItem kScheduleItems[] = {
    {ControlKind::ScrollBar, kScheduleScrollBar, u"", Rect::FromSize(74, 70, 10, 40), false},
    {ControlKind::Label, kScheduleAlarmPlace, u"Static", Rect::FromSize(17, 51, 19, 8), false},
    {ControlKind::Label, kScheduleHolidayPlace, u"Static", Rect::FromSize(14, 60, 19, 8), false},
    {ControlKind::Label, kScheduleAnniversaryPlace, u"Static", Rect::FromSize(17, 72, 19, 8), false},
    {ControlKind::Label, kScheduleAppointmentPlace, u"Static", Rect::FromSize(14, 84, 19, 8), false},
    {ControlKind::DatePicker, kSchedulePeriodStart, u"", Rect::FromSize(9, 4, 109, 15), false},
    {ControlKind::DatePicker, kSchedulePeriodEnd, u"", Rect::FromSize(9, 21, 109, 15), false},
};

// The page places the scroll bar beside its day list.
constexpr DialogItem kCalendarItems[] = {
    {ControlKind::ScrollBar, kCalendarScrollBar, u"", Rect::FromSize(148, 19, 10, 127), false},
};

constexpr DialogItem kSettingsItems[] = {
    {ControlKind::Label, kStaticText, u"Delete...", Rect::FromSize(8, 10, 28, 8)},
    {ControlKind::CheckBox, kSettingsAlarms, u"All alarms", Rect::FromSize(12, 20, 139, 10)},
    {ControlKind::CheckBox, kSettingsHolidays, u"All holidays", Rect::FromSize(12, 30, 139, 10)},
    {ControlKind::CheckBox, kSettingsAnniversaries, u"All anniversaries", Rect::FromSize(12, 40, 141, 10)},
    {ControlKind::CheckBox, kSettingsAppointments, u"All appointments", Rect::FromSize(12, 50, 143, 10)},
    {ControlKind::CheckBox, kSettingsMemos, u"All memos", Rect::FromSize(12, 60, 142, 10)},
    {ControlKind::PushButton, kSettingsDelete, u"Delete", Rect::FromSize(12, 75, 50, 12)},
};

// Text and bar are painted.
constexpr DialogItem kProgressItems[] = {
    {ControlKind::PushButton, IDCANCEL, u"Cancel", Rect::FromSize(54, 74, 50, 14)},
};

// The list of what is found is made below the text; the scroll bar is placed beside it.
constexpr DialogItem kFindItems[] = {
    {ControlKind::Edit, kFindText, u"", Rect::FromSize(5, 5, 149, 15)},
    {ControlKind::ScrollBar, kFindScrollBar, u"", Rect::FromSize(148, 26, 10, 127), false},
};

constexpr DialogItem kGoToDateItems[] = {
    {ControlKind::DatePicker, kGoToDateDay, u"", Rect::FromSize(13, 34, 109, 15)},
};

} // namespace

constexpr DialogTemplate kAboutTemplate{kDialogAbout, u"About Tavo Calendar", {153, 170}, 8, kAboutItems};
constexpr DialogTemplate kClockPageTemplate{kDialogClock, u"Clock", kPageExtent, 10, {}};
constexpr DialogTemplate kSchedulePageTemplate{kDialogSchedule, u"Schedule", kPageExtent, 10, kScheduleItems};
constexpr DialogTemplate kCalendarPageTemplate{kDialogCalendar, u"Calendar", kPageExtent, 10, kCalendarItems};
constexpr DialogTemplate kSettingsPageTemplate{kDialogSettings, u"Settings", kPageExtent, 10, kSettingsItems};
constexpr DialogTemplate kProgressTemplate{kDialogProgress, u"Delete", kPageExtent, 10, kProgressItems};
constexpr DialogTemplate kFindTemplate{kDialogFind, u"Find", kPageExtent, 10, kFindItems};
constexpr DialogTemplate kGoToDateTemplate{kDialogGoToDate, u"Go to date", kPageExtent, 10, kGoToDateItems};
constexpr DialogTemplate kKeysTemplate{kDialogKeys, u"Keys", kPageExtent, 10, {}};

std::span<const DialogTemplate* const> AllDialogTemplates() {
    static constexpr const DialogTemplate* all[] = {
        &kAboutTemplate,        &kClockPageTemplate,   &kSchedulePageTemplate,    &kCalendarPageTemplate,
        &kSettingsPageTemplate, &kAppointmentTemplate, &kRecurrenceTemplate,      &kPatternPageTemplate,
        &kRangePageTemplate,    &kInkMemoTemplate,     &kAppointmentViewTemplate, &kCopyMemoTemplate,
        &kProgressTemplate,     &kFindTemplate,        &kGoToDateTemplate,        &kKeysTemplate};
    return all;
}

} // namespace tavo
