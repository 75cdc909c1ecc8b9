// Modal dialogs made from a template.
#pragma once

#include "framework/form_window.h"

namespace tavo {

class CDialog : public CFormWindow {
  public:
    // Covers the whole client area; `buttons` are those of the navigation bar.
    CDialog(CMessagePump& pump, const DialogTemplate& form, NavigationButtons buttons = NavigationButtons::OkAndClose);

    // Opens the dialog over everything and waits for its end: IDOK, IDCANCEL or a result of its own. IDCANCEL too when
    // it cannot be made or the program quits meanwhile.
    int DoModal();

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

  protected:
    // Ends DoModal with this result; the first call counts.
    void EndDialog(int result);

    virtual void OnInitDialog() {}

    virtual void OnOK() { EndDialog(IDOK); }

    virtual void OnCancel() { EndDialog(IDCANCEL); }

    // The program quits while the dialog is open: the last moment at which its controls hold what they hold.
    virtual void OnQuit() {}

  private:
    bool TakeDialogKey(const Message& key);

    NavigationButtons Buttons;
    int Result = IDCANCEL;
    bool Ended = false;
};

} // namespace tavo
