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
    if (Opened.Recurrence == kChoiceCustom && !IsOneDay()) {
        Opened.Rule = Edited.ReadStoredRule(); // of use should the item be gone when the draft is taken up
    }
    Opened = ReadForm();
    if (Request.Continued != nullptr) {
        Draft.Take(Request.Continued->Path);
        ShowDraft(Request.Continued->Draft);
        TakeUpInk(Request.Continued->Draft.Ink);
    }
    Host().Windows().SetTimer(Handle(), kTimerDraft, kDraftPeriod);
}

void CAppointmentDlg::LayAside() {
    AppointmentDraft draft{Mode, Item.Oid, Opened, ReadForm(), std::nullopt, Waiting.HeldName()};
    if (IsOneDay()) {
        draft.OneDay = WithoutWeekday(Item.Start);
    }
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
    form.Recurrence = IsOneDay() ? kChoiceOnce : Choice(kEditRecurrence); // should the day be gone by then
    if (form.Recurrence == kChoiceCustom) {
        form.Rule = RuleMade ? Edited.ReadDraftRule(*RuleMade) : RuleBefore;
        if (!RuleMade && !RuleBefore) {
            form.Recurrence = Opened.Recurrence;
            form.Rule = Opened.Rule; // the rule is as it was, or its wizard is open still
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

// Where the note has changed meanwhile the ink stays where it is, and the next start asks what is to become of it.
void CAppointmentDlg::TakeUpInk(std::u16string_view name) {
    const std::vector<RecoveredInk> found = Host().Ink().FindRecovered();
    const auto ink = std::ranges::find(found, name, &RecoveredInk::Name);
    const std::optional<std::vector<std::uint8_t>> note = Edited.InkNote();
    if (ink == found.end() || !note) {
        return;
    }
    const InkHome home = DecodeInkHome(ink->Home).value_or(InkHome());
    const std::uint64_t stored = FingerprintOf(*note);
    if ((IsNew() || stored == home.Before) && Edited.PutInkNote(ink->Data)) {
        StoredNote = stored;
        Waiting.Take(name);
    }
}

} // namespace tavo
