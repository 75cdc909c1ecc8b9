// The item's ink note: to the ink editor and back, and what becomes of ink that the item cannot take.
#include "edit/appointment_dlg.h"

#include "framework/format.h"
#include "memo/memo_files.h"
#include "memo/memo_undo.h"
#include "res/strings.h"
#include "store/date_pictures.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace tavo {

namespace {

constexpr std::u16string_view kMemoTooLarge = u"Cannot save. Memo exceeded memory limitation.";
constexpr std::u16string_view kMemoOfDayQuestion = u"Keep it as a memo of %s instead?";
constexpr std::u16string_view kNotKept = u"The memo could not be saved.";

} // namespace

void CAppointmentDlg::OpenMemo() {
    if (Request.InkEditor == nullptr) {
        return;
    }
    const std::optional<std::vector<std::uint8_t>> note = Edited.InkNote();
    if (!note) {
        ShowRefusal(kMemoUnreadable);
        return;
    }
    if (!Edited.HasNewInk()) {
        StoredNote = FingerprintOf(*note);
    }
    State.Memo.Fill(*note);
    if (Request.InkEditor->EditInkNote(HomeOfNote()) != IDOK || std::ranges::equal(State.Memo.Bytes(), *note)) {
        return;
    }
    if (Edited.PutInkNote(State.Memo.Bytes())) {
        Waiting.Hold(HomeOfNote(), State.Memo.Bytes());
        LayAside(); // so that what was typed and what was drawn are one question after a crash
    } else {
        // Beside ink that waits already, which the item still has.
        WaitingInk refused(Host());
        refused.Hold(HomeOfNote(), State.Memo.Bytes());
        ShowRefusal(kMemoTooLarge);
        if (!OfferMemoOfDay()) {
            refused.LeaveForRecovery();
        }
    }
}

InkHome CAppointmentDlg::HomeOfNote() const {
    InkHome home;
    home.Item = IsNew() ? 0 : Item.Oid;
    home.Day = PickedStart();
    home.Before = StoredNote;
    return home;
}

// The ink editor is closed by now, so only a "No" may lose its ink. False when nobody kept it and nobody said so.
bool CAppointmentDlg::OfferMemoOfDay() {
    const SYSTEMTIME day = PickedStart();
    MessageBoxDescription box;
    box.Text = FormatText(
        kMemoOfDayQuestion,
        Host().Locale().GetDateFormatW(LocaleId::User, day, kPictureListDate, kDateTimeBuffer).value_or(u""));
    box.Caption = kProgramTitle;
    box.Buttons = MessageBoxButtons::YesNo;
    while (true) {
        const int answer = Pump().ShowMessageBox(Handle(), box);
        if (answer == IDNO || KeepAsMemo(day)) {
            return true;
        }
        if (answer != IDYES) { // the program quits
            return false;
        }
        ShowRefusal(kNotKept);
    }
}

// The ink in the memo buffer becomes a memo of the day, made now.
bool CAppointmentDlg::KeepAsMemo(const SYSTEMTIME& day) {
    SYSTEMTIME moment = Host().Clock().GetLocalTime();
    moment.Year = day.Year;
    moment.Month = day.Month;
    moment.Day = day.Day;
    MemoFiles files(State);
    return files.WriteMemo(files.FreeMemoPath(moment));
}

// Ink that waits for the item to be saved is not lost with it.
void CAppointmentDlg::OnQuit() {
    LayAside();
    if (!Edited.HasNewInk()) {
        return;
    }
    const std::optional<std::vector<std::uint8_t>> ink = Edited.InkNote();
    State.Memo.Fill(ink.value_or(std::vector<std::uint8_t>()));
    if (!ink || (!State.Memo.IsEmpty() && !KeepAsMemo(PickedStart()))) {
        Waiting.LeaveForRecovery(); // nobody is there to be told
    }
}

// The item is let go of unsaved, as it should be, but what was drawn for it can be had back.
void CAppointmentDlg::NoteUnsavedInk() {
    if (!Edited.HasNewInk()) {
        return;
    }
    const std::optional<std::vector<std::uint8_t>> ink = Edited.InkNote();
    if (!ink || (!ink->empty() && !NoteCancelledInk(State, HomeOfNote(), *ink))) {
        Waiting.LeaveForRecovery();
    }
}

} // namespace tavo
