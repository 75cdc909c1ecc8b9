// The dialog in which an alarm, holiday, anniversary or appointment is made or changed.
#pragma once

#include "edit/appointment_draft.h"
#include "edit/appointment_form.h"
#include "edit/draft_file.h"
#include "edit/edit_request.h"
#include "edit/edited_appointment.h"
#include "edit/sound_preview.h"
#include "framework/dialog.h"
#include "memo/waiting_ink.h"
#include "store/program_state.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavo {

constexpr int kSubjectLimit = 259; // UTF-16 units

// Its controls are hidden behind a painted form; a tap on a value shows the control for it, the next tap hides it
// again. The dialog works on the store's item itself; OK saves it, Cancel lets go of it unsaved.
class CAppointmentDlg : public CDialog {
  public:
    CAppointmentDlg(CMessagePump& pump, CProgramState& state, EditRequest request);

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

  protected:
    void OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    void OnQuit() override;
    // From the row shown, along the rows, whose controls are hidden, and the buttons.
    void WalkFocus(int step) override;
    void Paint() override;

  private:
    ItemKind Kind() const { return Request.Kind; }

    bool IsNew() const { return IsNewItem(Mode); }

    const AppointmentForm& Layout() const { return FormOfKind(Kind()); }

    // Only one day of a series is changed: the rest of the form says what the series has.
    bool IsOneDay() const { return static_cast<bool>(Request.Occurrence); }

    bool OpenedFromCalendar() const { return Request.Owner == nullptr; }

    // The dialog's own Item is the record, so the controls go by another name.
    WindowHandle Control(int id) const { return CFormWindow::Item(id); }

    int Choice(int list) const { return Host().Controls().GetCurSel(Control(list)); }

    bool IsAllDayChecked() const;

    // appointment_dlg.cpp: opening
    void ResetForm();
    void LayOut();
    void OpenStoredItem();
    void ShowStoredItem();
    void ShowStoredTimes();
    void PutNewItem();

    // appointment_dlg_rows.cpp: which row's control is shown
    void TakeStylusDown(Point point);
    void HideFields();
    void ShowField(int row, const FormField& field);
    Rect PlaceOf(int row, const FormField& field) const;
    void TakeSoundRowTap(int x);
    void TakeAllDayClick();
    bool TakeKey(const Message& key);
    void TakeCharacter(const Message& character);
    std::vector<int> RowStops() const;
    int FocusedStop() const;
    void GoToStop(int stop);
    void RaisePanel();
    void LowerPanel();

    // appointment_dlg_times.cpp: pickers and recurrence list
    ItemTimes ReadTimes() const;
    SYSTEMTIME PickedStart() const;
    SYSTEMTIME PickedEnd() const;
    bool StartsAfterEnd() const;
    void SetStart(const SYSTEMTIME& time);
    void SetEnd(const SYSTEMTIME& time);
    void TakeStartChange();
    void TakeEndChange();
    void RebuildRecurrenceList();
    void SelectRecurrence(int choice);
    void RenewRecurrenceTexts();
    void TakeRecurrenceChange();
    void TakeRecurrenceCloseUp();
    bool EditPattern();
    bool RunWizard();

    // appointment_dlg_reminder.cpp: reminder and sound
    void SetReminderControls();
    void EnableReminderControls();
    void LockSeriesControls();
    // By what the form says, also while another dialog lies over it.
    bool IsUsable(int control) const;
    bool FillSoundList(std::u16string_view selected);
    void SelectReminder(bool reminds);
    bool HasReminder() const;
    bool HasSound() const;
    std::optional<std::int32_t> ReadLeadMinutes();
    void TakeReminderChange();
    void TakeSoundChange();
    void TogglePreview();
    void PlaySelected();
    void StopPreview();

    // appointment_dlg_draft.cpp
    void BeginDraft();
    void LayAside();
    FormValues ReadForm() const;
    void ShowDraft(const AppointmentDraft& draft);
    void ShowDraftRule(const FormValues& form);
    void TakeUpInk(std::u16string_view name);

    // appointment_dlg_memo.cpp
    void OpenMemo();
    InkHome HomeOfNote() const;
    void NoteUnsavedInk();
    bool OfferMemoOfDay();
    bool KeepAsMemo(const SYSTEMTIME& day);

    // appointment_save.cpp
    AppointmentInput ReadInput() const;
    bool SaveAppointment();
    std::u16string ReadSubject() const;
    void ShowRefusal(std::u16string_view text);

    // appointment_dlg_paint.cpp
    void PaintRow(int row);
    void PaintField(int row, const FormField& field);
    void PaintAllDay(const Rect& bounds);
    void DrawAllDayBox(const Rect& bounds, std::u16string_view text);
    void PaintSoundIcons(const Rect& row);
    std::u16string TextOfField(int control) const;
    std::u16string DateText(int control) const;
    std::u16string TimeText(int control) const;

    CProgramState& State;
    const EditRequest Request;
    const std::int32_t Mode;
    const AppointmentData Item; // of an existing item
    EditedAppointment Edited;
    SoundPreview Preview;
    WaitingInk Waiting;
    std::uint64_t StoredNote = 0; // fingerprint of the note that the store holds, known since the ink editor opened
    DraftFile Draft;
    FormValues Opened;                   // what the form said at first
    std::optional<RuleEnd> RuleMade;     // by the wizard, and how that rule ends
    std::optional<DraftRule> RuleBefore; // what the wizard had made when it was opened again
    std::u16string ShownSubject;         // of an existing item, as its row holds it at first
    bool SoundChosen = false;            // by the person
    std::uint32_t AlarmValue = 0;        // the lead value, as it was last taken
    bool PatternDue = false;             // the wizard's entry was chosen, and the wizard has not been run for it
    int ShownField = 0;                  // the control over its row; 0 while the form is all painted
    int LastField = 0;                   // the one shown last, from where Tab goes on
};

} // namespace tavo
