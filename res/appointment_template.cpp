// The controls of the appointment edit dialog. The dialog paints its own form and gives every control its place.
#include "res/dialog_templates.h"
#include "res/resource_ids.h"
#include "res/strings.h"

namespace tavo {

namespace {

constexpr std::u16string_view kYesAndNo[] = {u"Yes", u"No"};
constexpr std::u16string_view kLeadUnits[] = {u"Minute(s)", u"Hour(s)", u"Day(s)"};

constexpr DialogItem Hidden(ControlKind kind, int id, std::u16string_view text, const Rect& bounds,
                            std::span<const std::u16string_view> entries = {}) {
    DialogItem item{kind, id, text, bounds, false};
    item.ListItems = entries;
    return item;
}

constexpr DialogItem kItems[] = {
    Hidden(ControlKind::Label, kEditSubjectLabel, u"Subject :", Rect::FromSize(3, 4, 38, 12)),
    Hidden(ControlKind::Edit, kEditSubject, u"", Rect::FromSize(43, 2, 93, 14)),
    Hidden(ControlKind::Label, kEditStartLabel, u"Start :", Rect::FromSize(3, 20, 38, 12)),
    Hidden(ControlKind::DatePicker, kEditStartDate, u"", Rect::FromSize(43, 18, 46, 14)),
    Hidden(ControlKind::TimePicker, kEditStartTime, u"", Rect::FromSize(90, 18, 46, 14)),
    Hidden(ControlKind::Label, kEditEndLabel, u"End :", Rect::FromSize(3, 36, 38, 12)),
    Hidden(ControlKind::DatePicker, kEditEndDate, u"", Rect::FromSize(43, 34, 46, 14)),
    Hidden(ControlKind::TimePicker, kEditEndTime, u"", Rect::FromSize(90, 34, 46, 14)),
    Hidden(ControlKind::CheckBox, kEditAllDay, u"All day", Rect::FromSize(43, 50, 93, 14)),
    Hidden(ControlKind::Label, kEditRecurLabel, u"Recur :", Rect::FromSize(3, 68, 38, 12)),
    Hidden(ControlKind::FixedList, kEditRecurrence, u"", Rect::FromSize(43, 66, 93, 14)),
    Hidden(ControlKind::Label, kEditAlarmLabel, u"Alarm :", Rect::FromSize(3, 84, 38, 12)),
    Hidden(ControlKind::FixedList, kEditReminder, u"", Rect::FromSize(43, 82, 30, 14), kYesAndNo),
    Hidden(ControlKind::NumberEdit, kEditReminderValue, u"", Rect::FromSize(75, 82, 20, 14)),
    Hidden(ControlKind::FixedList, kEditReminderUnit, u"", Rect::FromSize(97, 82, 39, 14), kLeadUnits),
    Hidden(ControlKind::FixedList, kEditSound, u"", Rect::FromSize(43, 98, 73, 14)),
    Hidden(ControlKind::PushButton, kEditPreview, u">", Rect::FromSize(118, 98, 18, 14)),
    Hidden(ControlKind::Label, kEditCategoryLabel, u"Category :", Rect::FromSize(3, 100, 38, 12)),
    Hidden(ControlKind::Label, kEditMemoLabel, u"Memo :", Rect::FromSize(3, 116, 38, 12)),
    Hidden(ControlKind::PushButton, kEditMemo, u"Memo", Rect::FromSize(43, 114, 93, 14)),
    {ControlKind::PushButton, IDOK, u"OK", Rect::FromSize(20, 131, 47, 14)},
    {ControlKind::PushButton, IDCANCEL, u"Cancel", Rect::FromSize(72, 131, 47, 14)},
};

} // namespace

constexpr DialogTemplate kAppointmentTemplate{kDialogAppointment, kProgramTitle, {139, 148}, 10, kItems};

} // namespace tavo
