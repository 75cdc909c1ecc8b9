// The life of a modal dialog: open, wait, close.
#include "framework/dialog.h"

#include "framework/message_pump.h"

namespace tavo {

CDialog::CDialog(CMessagePump& pump, const DialogTemplate& form, NavigationButtons buttons)
    : CFormWindow(pump, form, {kClientArea.Width(), kClientArea.Height()}), Buttons(buttons) {}

const MessageMap& CDialog::Messages() {
    static constexpr MessageEntry entries[] = {
        OnCommand<&CDialog::OnOK>(IDOK),
        OnCommand<&CDialog::OnCancel>(IDCANCEL),
        On<&CDialog::TakeDialogKey>(WM_KEYDOWN),
    };
    static const MessageMap map{entries, &CFormWindow::Messages()};
    return map;
}

int CDialog::DoModal() {
    Result = IDCANCEL;
    Ended = false;
    WindowDescription description;
    description.Kind = WindowKind::Dialog;
    description.Title = Form().Title;
    description.Bounds = Rect::FromSize(0, 0, kClientArea.Width(), kClientArea.Height());
    description.Buttons = Buttons;
    if (!CreateForm(description)) {
        return IDCANCEL;
    }
    Pump().PushDialog(Handle());
    OnInitDialog();
    if (!Ended) {
        Show(ShowCommand::Show);
        static_cast<void>(Pump().RunUntil(Ended)); // whether it ended is known below
    }
    if (!Ended) {
        OnQuit();
    }
    Pump().PopDialog(Handle());
    Destroy();
    return Ended ? Result : IDCANCEL;
}

void CDialog::EndDialog(int result) {
    if (!Ended) {
        Ended = true;
        Result = result;
    }
}

bool CDialog::TakeDialogKey(const Message& key) {
    if (key.Id == VK_TAB && (key.Code & kModifierControl) == 0) {
        WalkFocus((key.Code & kModifierShift) != 0 ? -1 : 1);
        return true;
    }
    if (key.Id != VK_RETURN) {
        return false;
    }
    // Enter does what the button with the focus says; anywhere else it is OK.
    const WindowHandle cancel = Item(IDCANCEL);
    if (cancel != WindowHandle::None && Host().Windows().GetFocus() == cancel) {
        OnCancel();
    } else {
        OnOK();
    }
    return true;
}

} // namespace tavo
