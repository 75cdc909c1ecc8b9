// First in, first out.
#include "host/shell/posted_messages.h"

#include <algorithm>

namespace tavo::shell {

void PostedMessages::Add(PostedMessage posted) {
    if (posted.Message.Number == WM_MOUSEMOVE && !Queue.empty()) {
        Message& last = Queue.back().Message;
        if (last.Number == WM_MOUSEMOVE && last.Window == posted.Message.Window) {
            last.Position = posted.Message.Position;
            return;
        }
    }
    if (posted.Message.Number == WM_QUERYENDSESSION) {
        const auto waiting = std::find_if(Queue.begin(), Queue.end(), [](const PostedMessage& other) {
            return other.Message.Number == WM_QUERYENDSESSION;
        });
        if (waiting != Queue.end()) {
            waiting->Message.Id = std::max(waiting->Message.Id, posted.Message.Id); // at a session's end nobody answers
            return;
        }
    }
    Queue.push_back(posted);
}

std::optional<PostedMessage> PostedMessages::Take() {
    if (Queue.empty()) {
        return std::nullopt;
    }
    const PostedMessage first = Queue.front();
    Queue.pop_front();
    return first;
}

bool PostedMessages::Has(MessageNumber number) const {
    return std::any_of(Queue.begin(), Queue.end(),
                       [&](const PostedMessage& posted) { return posted.Message.Number == number; });
}

} // namespace tavo::shell
