// The navigation bar, the desktop window's own close button, and the end of the session.
#pragma once

#include "host/shell/shell.h"

namespace tavo::shell {

// Places in the navigation bar, for those windows that have the buttons.
constexpr Rect kCloseButton{214, 0, 240, 26};
constexpr Rect kOkButton{184, 0, 214, 26};

enum class NavigationButton { None, Ok, Close };

// Nothing for None.
constexpr Rect PlaceOf(NavigationButton button) {
    return button == NavigationButton::Ok ? kOkButton : button == NavigationButton::Close ? kCloseButton : Rect{};
}

// Whether a window with these buttons has that one.
constexpr bool HasNavigationButton(NavigationButtons buttons, NavigationButton button) {
    return button == NavigationButton::Close
               ? buttons != NavigationButtons::None
               : button == NavigationButton::Ok && buttons == NavigationButtons::OkAndClose;
}

// The button of such a window that lies there, or None.
constexpr NavigationButton NavigationButtonAt(NavigationButtons buttons, Point screen) {
    for (const NavigationButton button : {NavigationButton::Ok, NavigationButton::Close}) {
        if (HasNavigationButton(buttons, button) && PlaceOf(button).Contains(screen)) {
            return button;
        }
    }
    return NavigationButton::None;
}

class NavigationInput {
  public:
    explicit NavigationInput(Shell& shell) : State(shell) {}

    // "ok": WM_COMMAND IDOK to the dialog on top, when it has the button.
    void PressOk();
    // IDCANCEL to the dialog on top. A menu or list that is open closes first, and that is all; a message box with a
    // single button closes. False when there was nothing to close: it never puts the program into the background.
    bool PressEscape();
    // ×: as Escape, and WM_CLOSE to a page. False when there was nothing to close.
    bool PressClose();
    // The desktop window's own close button: as ×; with neither page nor dialog to close it quits.
    void RequestClose();
    // The person quits or the session ends: WM_QUERYENDSESSION with this reason to the main window, at most one
    // pending.
    void RequestQuit(int reason = kPersonQuits);

    // The end was asked for: whoever wants something of the program from now on wants it of the next one.
    bool IsQuitRequested() const { return QuitRequested; }

    // A button of the shown menu bar, or an item of its open menu. False when it cannot be chosen.
    bool ChooseCommand(int id);
    // A menu of the shown bar is to open; it opens at the wait after the program had WM_INITMENUPOPUP. False when
    // there is no such menu or it takes no input now.
    bool OpenBarMenu(int index);
    // The menu of the bar closed without a choice.
    void CloseBarMenu();
    // An item of the tracked menu, or 0 for none. False when it cannot be chosen.
    bool ChooseTracked(int id);
    // The innermost message box: IDOK, IDYES or IDNO. False when it has no such button.
    bool AnswerBox(int answer);

  private:
    Shell& State;
    bool QuitRequested = false;
};

} // namespace tavo::shell
