// The recurrence wizard's frame and its range page.
#include "res/dialog_templates.h"
#include "res/resource_ids.h"

namespace tavo {

namespace {

// Texts and title stand in for those that the wizard sets.
constexpr DialogItem kRecurrenceItems[] = {
    {ControlKind::PushButton, IDCANCEL, u"Cancel", Rect::FromSize(7, 92, 46, 15)},
    {ControlKind::PushButton, kWizardBack, u"Back", Rect::FromSize(57, 92, 46, 15)},
    {ControlKind::PushButton, kWizardNext, u"Next", Rect::FromSize(107, 92, 46, 15)},
};

constexpr std::u16string_view kCounts[] = {u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9", u"10"};

// The page paints the heading in a font of its own.
constexpr DialogItem kRangeItems[] = {
    {ControlKind::Label, kRangeLabel, u"The pattern", Rect::FromSize(6, 16, 146, 14), false},
    {ControlKind::RadioButton, kRangeNoEnd, u"Does not end", Rect::FromSize(6, 32, 90, 13), true, true},
    {ControlKind::RadioButton, kRangeEndsOn, u"Ends on", Rect::FromSize(6, 51, 48, 13)},
    {ControlKind::DatePicker, kRangeEndDate, u"", Rect::FromSize(56, 51, 66, 13)},
    {ControlKind::RadioButton, kRangeEndsAfter, u"Ends after", Rect::FromSize(6, 70, 48, 13)},
    {ControlKind::EditableList, kRangeCount, u"", Rect::FromSize(56, 70, 36, 13), true, false, 0, 0, kCounts},
    {ControlKind::Label, kStaticText, u"occurrence(s)", Rect::FromSize(96, 72, 60, 11)},
};

} // namespace

constexpr DialogTemplate kRecurrenceTemplate{kDialogRecurrence, u"Wizard", {160, 165}, 10, kRecurrenceItems};
constexpr DialogTemplate kRangePageTemplate{kDialogRange, u"Range", {162, 111}, 8, kRangeItems};

} // namespace tavo
