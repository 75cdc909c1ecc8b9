// The message box of what could not be done.
#include "store/refusal.h"

#include "res/strings.h"

namespace tavo {

void ShowRefusal(CMessagePump& pump, WindowHandle owner, std::u16string_view text) {
    MessageBoxDescription box;
    box.Text = text;
    box.Caption = kProgramTitle;
    box.Icon = MessageBoxIcon::Exclamation;
    pump.ShowMessageBox(owner, box);
}

} // namespace tavo
