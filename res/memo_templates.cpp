// The controls of the ink editor, the appointment view and the copy memo dialog.
#include "res/dialog_templates.h"
#include "res/resource_ids.h"

namespace tavo {

namespace {

// The view draws its own buttons; these two only give them their commands.
constexpr DialogItem kViewItems[] = {
    {ControlKind::PushButton, kViewModify, u"Mod", Rect::FromSize(129, 7, 18, 14), false},
    {ControlKind::PushButton, kViewDelete, u"Del", Rect::FromSize(129, 22, 18, 14), false},
};

constexpr DialogItem kCopyMemoItems[] = {
    {ControlKind::Label, kCopyMemoLabel, u"Copy As...", Rect::FromSize(9, 7, 78, 8)},
    {ControlKind::Edit, kCopyMemoName, u"", Rect::FromSize(8, 19, 122, 14)},
    {ControlKind::PushButton, kCopyMemoOk, u"OK", Rect::FromSize(33, 46, 37, 14)},
    {ControlKind::PushButton, IDCANCEL, u"Cancel", Rect::FromSize(71, 46, 32, 14)},
};

} // namespace

constexpr DialogTemplate kInkMemoTemplate{kDialogInkMemo, u"Memo", {159, 108}, 10, {}};
constexpr DialogTemplate kAppointmentViewTemplate{kDialogAppointmentView, u"Memo", {159, 108}, 10, kViewItems};
constexpr DialogTemplate kCopyMemoTemplate{kDialogCopyMemo, u"Copy Memo", {151, 74}, 10, kCopyMemoItems};

} // namespace tavo
