// Reminder, its lead and sound, and the memo row.
#include "edit/appointment_dlg.h"
#include "edit/lead_time.h"
#include "edit/leading_number.h"
#include "framework/format.h"
#include "framework/message_pump.h"
#include "platform/device_paths.h"
#include "res/resource_ids.h"
#include "store/refusal.h"

#include <algorithm>
#include <memory>

namespace tavo {

namespace {

constexpr std::u16string_view kSoundOff = u"Sound off";
constexpr int kSoundOffEntry = 0;
constexpr int kYesEntry = 0;
constexpr int kNoEntry = 1;
constexpr std::u16string_view kPlayCaption = u">";
constexpr std::u16string_view kStopCaption = u"[]";
constexpr LeadTime kNewAlarmLead{15, kLeadMinutes};
constexpr LeadTime kNewItemLead{12, kLeadHours};
constexpr std::u16string_view kRangeText = u"Enter an integer between %d and %d.";

constexpr bool IsOfOneDay(int control) {
    return control == kEditSubject || control == kEditStartDate || control == kEditStartTime ||
           control == kEditEndDate || control == kEditEndTime;
}

} // namespace

void CAppointmentDlg::SetReminderControls() {
    bool reminds = Mode == kModeNewAlarm;
    LeadTime lead = reminds ? kNewAlarmLead : kNewItemLead;
    if (!IsNew()) {
        reminds = Item.HasReminder;
        lead = SplitLeadMinutes(Item.ReminderMinutes);
    }
    SelectReminder(reminds);
    SetItemText(kEditReminderValue, FormatText(u"%d", lead.Value));
    Host().Controls().SetCurSel(Control(kEditReminderUnit), lead.Unit);
    EnableReminderControls();
}

void CAppointmentDlg::SelectReminder(bool reminds) {
    Host().Controls().SetCurSel(Control(kEditReminder), reminds ? kYesEntry : kNoEntry);
}

void CAppointmentDlg::EnableReminderControls() {
    for (const int control : {kEditReminderValue, kEditReminderUnit, kEditSound, kEditPreview}) {
        EnableItem(control, IsUsable(control));
    }
}

void CAppointmentDlg::LockSeriesControls() {
    for (const int control : {kEditAllDay, kEditRecurrence, kEditReminder, kEditMemo}) {
        EnableItem(control, IsUsable(control));
    }
    EnableReminderControls();
}

bool CAppointmentDlg::IsUsable(int control) const {
    if (IsOneDay() && !IsOfOneDay(control)) {
        return false;
    }
    switch (control) {
    case kEditReminderValue:
    case kEditReminderUnit:
    case kEditSound:
        return HasReminder();
    case kEditPreview:
        return HasReminder() && HasSound();
    default:
        return true;
    }
}

bool CAppointmentDlg::HasReminder() const {
    return Choice(kEditReminder) == kYesEntry;
}

bool CAppointmentDlg::HasSound() const {
    return Choice(kEditSound) > kSoundOffEntry;
}

// A sound that is not there selects none, and gives false.
bool CAppointmentDlg::FillSoundList(std::u16string_view selected) {
    std::vector<std::u16string> names{std::u16string(kSoundOff)};
    const std::unique_ptr<IFileSearch> search = Host().Files().FindFirstFileW(kSoundPattern);
    for (bool found = search != nullptr; found; found = search->FindNextFileW()) {
        names.push_back(search->FileName());
    }
    const auto found = std::find(names.begin(), names.end(), selected);
    const bool isThere = found != names.end();
    Host().Controls().SetListItems(Control(kEditSound), names);
    Host().Controls().SetCurSel(Control(kEditSound),
                                isThere ? static_cast<int>(found - names.begin()) : kSoundOffEntry);
    return isThere;
}

// Nothing after a message.
std::optional<std::int32_t> CAppointmentDlg::ReadLeadMinutes() {
    const std::optional<std::int32_t> value = WholeNumber(ItemText(kEditReminderValue), 0, kHighestLeadValue);
    if (!value) {
        ShowRefusal(FormatText(kRangeText, 0, kHighestLeadValue));
        return std::nullopt;
    }
    AlarmValue = static_cast<std::uint32_t>(*value);
    return LeadMinutes({*value, Choice(kEditReminderUnit)});
}

void CAppointmentDlg::TakeReminderChange() {
    EnableReminderControls();
    Invalidate();
}

void CAppointmentDlg::TakeSoundChange() {
    SoundChosen = true;
    EnableItem(kEditPreview, HasSound());
    Invalidate();
}

void CAppointmentDlg::TogglePreview() {
    if (Preview.IsPlaying()) {
        StopPreview();
    } else {
        PlaySelected();
    }
}

void CAppointmentDlg::PlaySelected() {
    if (!HasSound()) {
        StopPreview();
        return;
    }
    Preview.Play(ItemText(kEditSound));
    SetItemText(kEditPreview, Preview.IsPlaying() ? kStopCaption : kPlayCaption);
}

void CAppointmentDlg::StopPreview() {
    Preview.Stop();
    SetItemText(kEditPreview, kPlayCaption);
}

void CAppointmentDlg::ShowRefusal(std::u16string_view text) {
    tavo::ShowRefusal(Pump(), Handle(), text);
}

} // namespace tavo
