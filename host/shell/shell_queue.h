// The message queue: posted messages, then paints, then timers.
#pragma once

#include "host/shell/shell.h"
#include "platform/message_queue.h"

namespace tavo::shell {

class ShellQueue : public IMessageQueue {
  public:
    explicit ShellQueue(Shell& shell) : State(shell) {}

    Message Wait() override;
    void PostMessageW(const Message& message) override;
    void PostQuitMessage(int code) override;

    bool HasQuit() const { return QuitCode.has_value(); }

  private:
    void OpenWhatWasAnnounced();
    std::optional<Message> TakePosted();
    std::optional<Message> TakePaint();
    std::optional<Message> TakeTimer();

    Shell& State;
    std::optional<int> QuitCode;
    Opening Announced; // handed out, not yet opened
};

} // namespace tavo::shell
