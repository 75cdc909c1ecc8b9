// The posted part of the message queue.
#pragma once

#include "platform/messages.h"

#include <deque>
#include <optional>

namespace tavo::shell {

// What a message announces: it happens at the wait after the message was handed out, so the program can prepare it.
enum class OpeningKind { None, List, BarMenu, Shortcut };

struct Opening {
    OpeningKind Kind = OpeningKind::None;
    WindowHandle Window = WindowHandle::None; // the control or menu bar
    int Id = 0;                               // the menu's index; of a shortcut the command
};

// What a message is when the time comes to hand it out.
enum class MessageOrigin {
    Program,      // posted by the program, or says that something is so: always handed out
    Person,       // a tap, key or click: dropped when its window takes no input by then
    PersonEnding, // the rest of a gesture that began earlier: not held up by an open menu
};

struct PostedMessage {
    tavo::Message Message;
    MessageOrigin Origin = MessageOrigin::Program;
    shell::Opening Opening;
};

class PostedMessages {
  public:
    // A stylus move replaces one to the same window that waits at the end; of two wishes to quit the more urgent stays.
    void Add(PostedMessage posted);
    std::optional<PostedMessage> Take();

    bool IsEmpty() const { return Queue.empty(); }

    bool Has(MessageNumber number) const;

  private:
    std::deque<PostedMessage> Queue;
};

} // namespace tavo::shell
