// The pickers, the recurrence list and its wizard.
#include "edit/appointment_dlg.h"
#include "edit/pattern_page.h"
#include "edit/range_page.h"
#include "edit/recurrence_texts.h"
#include "edit/recurrence_wizard.h"
#include "res/resource_ids.h"

#include <algorithm>

namespace tavo {

namespace {

constexpr std::u16string_view kNamelessPage = u" ";

} // namespace

// Start and end as they would be saved now.
ItemTimes CAppointmentDlg::ReadTimes() const {
    const SYSTEMTIME start = PickedStart();
    // An alarm has no length, and neither has a day.
    const SYSTEMTIME end = Kind() == ItemKind::Appointment ? PickedEnd() : start;
    return MakeItemTimes(Host().Locale(), start, end);
}

SYSTEMTIME CAppointmentDlg::PickedStart() const {
    IControls& controls = Host().Controls();
    const SYSTEMTIME date = controls.GetSystemtime(Control(kEditStartDate));
    return IsDayKind(Kind()) ? MidnightOf(date)
                             : JoinDateAndTime(date, controls.GetSystemtime(Control(kEditStartTime)));
}

SYSTEMTIME CAppointmentDlg::PickedEnd() const {
    IControls& controls = Host().Controls();
    return JoinDateAndTime(controls.GetSystemtime(Control(kEditEndDate)),
                           controls.GetSystemtime(Control(kEditEndTime)));
}

void CAppointmentDlg::SetStart(const SYSTEMTIME& time) {
    // An impossible date leaves the pickers as they are.
    static_cast<void>(Host().Controls().SetSystemtime(Control(kEditStartDate), time));
    static_cast<void>(Host().Controls().SetSystemtime(Control(kEditStartTime), time));
}

void CAppointmentDlg::SetEnd(const SYSTEMTIME& time) {
    static_cast<void>(Host().Controls().SetSystemtime(Control(kEditEndDate), time));
    static_cast<void>(Host().Controls().SetSystemtime(Control(kEditEndTime), time));
}

bool CAppointmentDlg::StartsAfterEnd() const {
    const SYSTEMTIME end = IsDayKind(Kind()) ? MidnightOf(PickedEnd()) : PickedEnd();
    const ItemTimes times = MakeItemTimes(Host().Locale(), PickedStart(), end);
    return times.StartDate > times.EndDate;
}

void CAppointmentDlg::TakeStartChange() {
    IControls& controls = Host().Controls();
    if (StartsAfterEnd()) {
        static_cast<void>(
            controls.SetSystemtime(Control(kEditEndDate), controls.GetSystemtime(Control(kEditStartDate))));
        static_cast<void>(
            controls.SetSystemtime(Control(kEditEndTime), controls.GetSystemtime(Control(kEditStartTime))));
    }
    RenewRecurrenceTexts();
    Invalidate();
}

void CAppointmentDlg::TakeEndChange() {
    IControls& controls = Host().Controls();
    if (StartsAfterEnd()) {
        static_cast<void>(
            controls.SetSystemtime(Control(kEditStartDate), controls.GetSystemtime(Control(kEditEndDate))));
        static_cast<void>(
            controls.SetSystemtime(Control(kEditStartTime), controls.GetSystemtime(Control(kEditEndTime))));
        RenewRecurrenceTexts();
    }
    Invalidate();
}

void CAppointmentDlg::RebuildRecurrenceList() {
    const int before = Choice(kEditRecurrence);
    RenewRecurrenceTexts();
    // Kept on purpose: with an existing item every opening of the list returns to what is stored.
    SelectRecurrence(IsNew() ? std::max(before, kChoiceOnce) : Item.RecurChoice);
    PatternDue = PatternDue && IsNew();
}

void CAppointmentDlg::SelectRecurrence(int choice) {
    Host().Controls().SetCurSel(Control(kEditRecurrence), choice);
}

// The texts follow the start's day; the choice stays.
void CAppointmentDlg::RenewRecurrenceTexts() {
    const int before = Choice(kEditRecurrence);
    const SYSTEMTIME date = MidnightOf(Host().Controls().GetSystemtime(Control(kEditStartDate)));
    const ItemTimes day = MakeItemTimes(Host().Locale(), date, date);
    Host().Controls().SetListItems(Control(kEditRecurrence), MakeRecurrenceTexts(day.Start));
    SelectRecurrence(before);
}

// With the keys the closed list passes from entry to entry: the wizard waits until the list is left at its entry.
void CAppointmentDlg::TakeRecurrenceChange() {
    PatternDue = Choice(kEditRecurrence) == kChoiceCustom;
}

// The list of a rule that is custom already closes at that entry though nobody chose it.
void CAppointmentDlg::TakeRecurrenceCloseUp() {
    if (PatternDue) {
        static_cast<void>(EditPattern()); // the list shows what came of it
    }
    Invalidate();
}

// Runs the wizard. False when it was cancelled: the choice is then what it was before.
bool CAppointmentDlg::EditPattern() {
    PatternDue = false;
    const ItemTimes times = ReadTimes();
    RuleBefore = RuleMade ? Edited.ReadDraftRule(*RuleMade) : std::nullopt;
    Edited.PutTimes(times, ReadInput().AllDay);
    Edited.PresetPattern(times);
    const bool done = RunWizard();
    if (!done && Pump().HasQuit()) {
        return false; // nobody cancelled: what is laid aside is the rule from before
    }
    RuleBefore.reset();
    if (!done && !IsNew()) {
        Edited.Reopen(Item.Oid); // the stored recurrence is again what a stored choice stands for
    }
    RebuildRecurrenceList();
    const int stored = IsNew() ? kChoiceOnce : Item.RecurChoice;
    SelectRecurrence(done ? kChoiceCustom : stored);
    Invalidate();
    return done;
}

bool CAppointmentDlg::RunWizard() {
    IRecurrencePattern* pattern = Edited.Pattern();
    if (pattern == nullptr) {
        return false;
    }
    CRecurrenceWizard wizard(Pump());
    CPatternPage patternPage(Pump(), *pattern);
    CRangePage rangePage(Pump(), State, *pattern);
    wizard.AddPage(kNamelessPage, patternPage, kDialogPattern);
    wizard.AddPage(kNamelessPage, rangePage, kDialogRange);
    RuleMade.reset();
    const bool done = wizard.DoModal() == IDOK;
    if (done) {
        RuleMade = rangePage.End();
    }
    return done;
}

} // namespace tavo
