// What the form says is laid aside while it is open, and taken up again after an end that nobody wanted.
#include "edit/appointment_dlg.h"

#include "res/resource_ids.h"

#include <algorithm>

namespace tavo {

namespace {

constexpr int kDraftPeriod = 1000; // milliseconds between two looks at what was typed

SYSTEMTIME WithoutWeekday(SYSTEMTIME time) {
    time.DayOfWeek = 0;
    time.Milliseconds = 0;
    return time;
}

} // namespace

void CAppointmentDlg::BeginDraft() {
    Opened.Recurrence = Choice(kEditRecurrence);
    Opened = ReadForm();
    if (Continued != nullptr) {
        Draft.Take(Continued->Path);
        ShowDraft(Continued->Draft);
    }
    Host().Windows().SetTimer(Handle(), kTimerDraft, kDraftPeriod);
}

void CAppointmentDlg::LayAside() {
    const AppointmentDraft draft{Mode, Item.Oid, Opened, ReadForm()};
    if (draft.IsChanged()) {
        Draft.Write(draft);
    } else {
        Draft.Remove();
    }
}

FormValues CAppointmentDlg::ReadForm() const {
    IControls& controls = Host().Controls();
    FormValues form;
    form.Subject = ItemText(kEditSubject);
    form.Start = WithoutWeekday(JoinDateAndTime(controls.GetSystemtime(Control(kEditStartDate)),
                                                controls.GetSystemtime(Control(kEditStartTime))));
    form.End = WithoutWeekday(PickedEnd());
    form.AllDay = IsAllDayChecked();
    form.Recurrence = Choice(kEditRecurrence);
    if (form.Recurrence == kChoiceCustom) {
        form.Rule = RuleMade ? Edited.ReadDraftRule(*RuleMade) : RuleBefore;
        if (!RuleMade && !RuleBefore) {
            form.Recurrence = Opened.Recurrence; // the rule is as it was, or its wizard is open still
        }
    }
    form.Reminds = HasReminder();
    form.LeadValue = ItemText(kEditReminderValue);
    form.LeadUnit = Choice(kEditReminderUnit);
    form.Sound = ItemText(kEditSound);
    return form;
}

// Of an existing item only what the person had changed: the rest may be newer by now.
void CAppointmentDlg::ShowDraft(const AppointmentDraft& draft) {
    const FormValues& then = draft.Opened;
    const FormValues& now = draft.Now;
    const auto isToShow = [&](auto FormValues::*value) { return IsNew() || then.*value != now.*value; };
    IControls& controls = Host().Controls();
    if (isToShow(&FormValues::Subject)) {
        SetItemText(kEditSubject, now.Subject);
    }
    if (isToShow(&FormValues::Start)) {
        SetStart(now.Start);
    }
    if (isToShow(&FormValues::End)) {
        SetEnd(now.End);
    }
    if (isToShow(&FormValues::AllDay)) {
        controls.SetCheck(Control(kEditAllDay), now.AllDay);
    }
    if (isToShow(&FormValues::Reminds)) {
        SelectReminder(now.Reminds);
    }
    if (isToShow(&FormValues::LeadValue) || isToShow(&FormValues::LeadUnit)) {
        SetItemText(kEditReminderValue, now.LeadValue);
        controls.SetCurSel(Control(kEditReminderUnit), now.LeadUnit);
    }
    if (isToShow(&FormValues::Sound)) {
        const std::u16string before = ItemText(kEditSound);
        SoundChosen = FillSoundList(now.Sound);
        if (!SoundChosen) {
            FillSoundList(before);
        }
    }
    EnableReminderControls();
    RenewRecurrenceTexts();
    if (isToShow(&FormValues::Recurrence) || isToShow(&FormValues::Rule)) {
        ShowDraftRule(now);
    }
    Invalidate();
}

void CAppointmentDlg::ShowDraftRule(const FormValues& form) {
    if (form.Recurrence != kChoiceCustom) {
        SelectRecurrence(form.Recurrence);
    } else if (form.Rule) {
        const ItemTimes times = ReadTimes();
        Edited.PutTimes(times, ReadInput().AllDay);
        Edited.PresetPattern(times);
        Edited.PutDraftRule(*form.Rule);
        RuleMade = form.Rule->End;
        SelectRecurrence(kChoiceCustom);
    }
}

} // namespace tavo
