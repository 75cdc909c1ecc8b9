// When a request for an item reaches the program.
#include "host/shell/item_request.h"

#include "platform/activation.h"

#include <utility>

namespace tavo::shell {

void ItemRequest::Make(std::int32_t oid) {
    const WindowHandle frame = State.Tree.Frame();
    if (!State.TakesInput(frame)) {
        return;
    }
    State.CloseMenu(0); // it would keep input from the program
    Message message;
    message.Window = frame;
    message.Number = WM_OPENITEM;
    message.Id = oid;
    State.Post(message, MessageOrigin::Person);
}

void ItemRequest::MakeAtStart(std::int32_t oid) {
    Waiting = oid;
    Follow();
}

// With messages still to come, the next question may be about to be asked.
void ItemRequest::Follow() {
    if (Waiting != 0 && State.Posted.IsEmpty() && State.TakesInput(State.Tree.Frame())) {
        Make(std::exchange(Waiting, 0));
    }
}

} // namespace tavo::shell
