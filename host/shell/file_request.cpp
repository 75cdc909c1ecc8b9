// When files that were opened reach the program.
#include "host/shell/file_request.h"

#include "platform/activation.h"

namespace tavo::shell {

// With messages still to come, the next question may be about to be asked.
void FileRequest::Follow() {
    const WindowHandle frame = State.Tree.Frame();
    const bool imports = HaveFiles && HaveFiles();
    const std::optional<WrittenFile> written = OwnWritten ? OwnWritten() : std::nullopt;
    if ((!imports && !written) || !State.Posted.IsEmpty() || !State.TakesInput(frame)) {
        return;
    }
    State.CloseMenu(0); // it would keep input from the program
    Message message;
    message.Window = frame;
    message.Number = imports ? WM_IMPORTFILES : WM_EXPORTFILE;
    message.Id = imports ? 0 : static_cast<int>(*written);
    State.Post(message, MessageOrigin::Person);
}

} // namespace tavo::shell
