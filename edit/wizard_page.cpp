// A page's making, and its keys.
#include "edit/wizard_page.h"

namespace tavo {

namespace {

constexpr Size kPageSize{240, 150};

} // namespace

CWizardPage::CWizardPage(CMessagePump& pump, const DialogTemplate& form) : CFormWindow(pump, form, kPageSize) {}

bool CWizardPage::CreateIn(WindowHandle frame, int templateId) {
    if (templateId != Form().Id) {
        return false;
    }
    Frame = frame;
    WindowDescription description;
    description.Kind = WindowKind::Child;
    description.Title = Form().Title;
    description.Parent = frame;
    description.Bounds = Rect::FromSize(0, 0, kPageSize.Width, kPageSize.Height);
    if (!CreateForm(description)) {
        return false;
    }
    OnInitDialog();
    return true;
}

void CWizardPage::HandleByDefault(const Message& message) {
    if (message.Number == WM_KEYDOWN) {
        Message key = message;
        key.Window = Frame;
        Host().Queue().PostMessageW(key);
    } else {
        CFormWindow::HandleByDefault(message);
    }
}

} // namespace tavo
