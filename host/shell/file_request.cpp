// When files that were opened reach the program.
#include "host/shell/file_request.h"

#include "platform/activation.h"

namespace tavo::shell {

// With messages still to come, the next question may be about to be asked.
void FileRequest::Follow() {
    const WindowHandle frame = State.Tree.Frame();
    const bool imports = HaveFiles && HaveFiles();
    const bool exports = HaveExport && HaveExport();
    if ((!imports && !exports) || !State.Posted.IsEmpty() || !State.TakesInput(frame)) {
        return;
    }
    State.CloseMenu(0); // it would keep input from the program
    Message message;
    message.Window = frame;
    message.Number = imports ? WM_IMPORTFILES : WM_EXPORTFILE;
    State.Post(message, MessageOrigin::Person);
}

} // namespace tavo::shell
