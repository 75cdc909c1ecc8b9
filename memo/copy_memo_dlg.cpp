// The name that is proposed and the name that is typed.
#include "memo/copy_memo_dlg.h"

#include "res/dialog_templates.h"
#include "res/resource_ids.h"

#include <string_view>

namespace tavo {

namespace {

std::u16string_view TitleOf(std::int32_t purpose) {
    switch (purpose) {
    case kPurposeCopy:
        return u"Copy As";
    case kPurposeRename:
        return u"Rename As";
    default:
        return u"Save As";
    }
}

} // namespace

CCopyMemoDlg::CCopyMemoDlg(CMessagePump& pump) : CDialog(pump, kCopyMemoTemplate, NavigationButtons::None) {}

const MessageMap& CCopyMemoDlg::Messages() {
    static constexpr MessageEntry entries[] = {
        OnCommand<&CCopyMemoDlg::OnOK>(kCopyMemoOk),
    };
    static const MessageMap map{entries, &CDialog::Messages()};
    return map;
}

void CCopyMemoDlg::OnInitDialog() {
    const std::u16string_view title = TitleOf(Purpose);
    Host().Windows().SetWindowTextW(Handle(), title);
    SetItemText(kCopyMemoLabel, title);
    SetItemText(kCopyMemoName, Name);
    Show(ShowCommand::Show); // only what is seen takes the focus
    Host().Windows().SetFocus(Item(kCopyMemoName));
    Host().Controls().SetTextSelection(Item(kCopyMemoName), 0, -1);
    Host().InputPanel().SHSipPreference(Handle(), true);
}

void CCopyMemoDlg::OnOK() {
    Name = ItemText(kCopyMemoName);
    Host().InputPanel().SHSipPreference(Handle(), false);
    EndDialog(IDOK);
}

void CCopyMemoDlg::OnCancel() {
    Host().InputPanel().SHSipPreference(Handle(), false);
    EndDialog(IDCANCEL);
}

} // namespace tavo
