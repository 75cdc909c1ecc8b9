// The queue of messages: the only way from the device into the program.
#pragma once

#include "platform/messages.h"

namespace tavo {

// The host only adds to the queue; it never calls into the program.
class IMessageQueue {
  public:
    virtual ~IMessageQueue() = default;

    // The next message: posted ones in order, then, when there are none, a paint of each invalid window (parents
    // first), then due timers; at most one of each is pending. Blocks until there is one. The only call that blocks.
    virtual Message Wait() = 0;

    // Adds at the end. Messages to a window that is gone by then are dropped by the reader.
    virtual void PostMessageW(const Message& message) = 0;

    // Makes every further Wait give WM_QUIT with this code in Id.
    virtual void PostQuitMessage(int code) = 0;
};

} // namespace tavo
