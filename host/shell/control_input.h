// What a person does to native controls: changes their state and tells the control's parent.
#pragma once

#include "host/shell/shell.h"

#include <string_view>

namespace tavo::shell {

// Every call is ignored for a control that takes no input now (hidden, disabled, beneath a dialog or message box).
class ControlInput {
  public:
    explicit ControlInput(Shell& shell) : State(shell) {}

    // Tapped or reached with the keyboard.
    void Focus(WindowHandle control);
    // The text is now this, after typing or pasting; it is cut to the control's limit and to digits where only those
    // are taken. The caret stands at its end. EN_CHANGE or CBN_EDITCHANGE.
    void Edit(WindowHandle control, std::u16string_view text);
    // The person selected text or moved the caret.
    void SelectText(WindowHandle control, int first, int last);
    // Asks for the list or month calendar: CBN_DROPDOWN or DTN_DROPDOWN, and at the wait after that Change::ListOpened.
    void OpenList(WindowHandle control);
    // It closed: CBN_CLOSEUP or DTN_CLOSEUP. Ignored when it was not open.
    void CloseList(WindowHandle control);
    // An entry of a list: CBN_SELCHANGE, then the list closes.
    void Choose(WindowHandle control, int index);
    // A date (of a date picker) or a time (of a time picker): DTN_DATETIMECHANGE. The other half stays.
    void Pick(WindowHandle control, const SYSTEMTIME& time);
    // An arrow of a picker: the part that has the keys goes up (1) or down (-1). DTN_DATETIMECHANGE.
    void Step(WindowHandle control, int by);
    // A tap on this character of a picker: its part gets the keys.
    void Touch(WindowHandle control, int character);
    // Check boxes change, radio buttons become checked: WM_COMMAND BN_CLICKED. `at` is where, in the parent's pixels.
    void Click(WindowHandle control, Point at);
    // WM_VSCROLL. The bar itself moves only when the program says so.
    void Scroll(WindowHandle control, int request, int position);

  private:
    ControlState* Accepting(WindowHandle control);

    Shell& State;
};

} // namespace tavo::shell
