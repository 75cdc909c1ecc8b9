// The dialog templates of pages and dialogs.
#pragma once

#include "framework/dialog_template.h"

namespace tavo {

extern const DialogTemplate kAboutTemplate;
extern const DialogTemplate kClockPageTemplate;
extern const DialogTemplate kSchedulePageTemplate;
extern const DialogTemplate kCalendarPageTemplate;
extern const DialogTemplate kSettingsPageTemplate;
extern const DialogTemplate kAppointmentTemplate;
extern const DialogTemplate kRecurrenceTemplate;
extern const DialogTemplate kPatternPageTemplate;
extern const DialogTemplate kRangePageTemplate;
extern const DialogTemplate kInkMemoTemplate;
extern const DialogTemplate kAppointmentViewTemplate;
extern const DialogTemplate kCopyMemoTemplate;
extern const DialogTemplate kProgressTemplate;
extern const DialogTemplate kFindTemplate;
extern const DialogTemplate kGoToDateTemplate;
extern const DialogTemplate kKeysTemplate;

// Where the About dialog shows the program's icon, in dialog units.
constexpr Rect kAboutIconPlace = Rect::FromSize(6, 22, 21, 20);

// All of them, for whoever must look through every template.
std::span<const DialogTemplate* const> AllDialogTemplates();

} // namespace tavo
