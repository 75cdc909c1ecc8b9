// One appointment to look at: when it takes place, and its handwritten note.
#pragma once

#include "framework/dialog.h"
#include "framework/drawn_button.h"
#include "store/program_state.h"

#include <string>

namespace tavo {

// DoModal gives kResultModify, kResultDelete or IDCANCEL; the opener acts on it.
class CAppointmentViewDlg : public CDialog {
  public:
    CAppointmentViewDlg(CMessagePump& pump, CProgramState& state);

    // The opener fills these before DoModal. Of an item that is gone the record alone is shown.
    tavo::Oid Oid = 0;
    AppointmentData Appointment;

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

  protected:
    void OnInitDialog() override;
    void OnOK() override;
    void Paint() override;

  private:
    // appointment_view_dlg.cpp
    void TakeDates(IAppointment& item);
    void TakeRule();
    std::u16string DateText(const SYSTEMTIME& date, std::u16string_view picture) const;
    void TakeNote(IAppointment& item);
    void ShowNote();
    void TakeStylusDown(Point point);
    void TakeStylusMove(Point point);
    void TakeStylusUp(Point point);
    bool TakeKey(int key);
    void ReleaseButtons();
    void EndWithModify();
    void EndWithDelete();

    // appointment_view_dlg_paint.cpp
    void PaintButtons();
    void PaintSubject();
    void PaintTimes();
    void PaintRecurrence();
    void PaintLine(const std::u16string& text);
    std::u16string TimeText(const SYSTEMTIME& time) const;
    int WholeHours() const;

    CProgramState& State;
    std::u16string FirstLine; // the first and last date, as texts
    std::u16string SecondLine;
    std::u16string Rule; // of a series, in words
    WindowHandle Ink = WindowHandle::None;
    Rect Line; // where the next line goes
    bool ModPressed = false;
    bool ModTracking = false;
    bool DelPressed = false;
    bool DelTracking = false;
    DrawnButton Modify;
    DrawnButton Delete;
};

} // namespace tavo
