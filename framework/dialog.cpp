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

bool CDialog::TakeDialogKey(int key) {
    if (key != VK_RETURN) {
        return false;
    }
    OnOK();
    return true;
}

} // namespace tavo
