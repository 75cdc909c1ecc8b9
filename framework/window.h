// Base class of everything that receives messages.
#pragma once

#include "framework/message_map.h"
#include "platform/host.h"

namespace tavo {

class CMessagePump;

// Owns its device window: destroying the object destroys the window.
class CWindow {
  public:
    explicit CWindow(CMessagePump& pump);
    virtual ~CWindow();
    CWindow(const CWindow&) = delete;
    CWindow& operator=(const CWindow&) = delete;

    WindowHandle Handle() const { return Window; }

    // Gives the message to the first handler that takes it: own table, base classes' tables, then default handling.
    void HandleMessage(const Message& message);

    static const MessageMap& Messages();

    virtual const MessageMap& GetMessageMap() const { return Messages(); }

    void Show(ShowCommand command);
    void Invalidate();
    void Invalidate(const Rect& area);
    // Puts a message for this window at the end of the queue.
    void Post(MessageNumber number, int id = 0, int code = 0, int value = 0);

  protected:
    // False when the device cannot make it.
    bool Create(const WindowDescription& description);
    void Destroy();

    // What happens to a message that no table takes.
    virtual void HandleByDefault(const Message& message);

    CMessagePump& Pump() const { return *OwnPump; }

    IHost& Host() const;

  private:
    CMessagePump* OwnPump;
    WindowHandle Window = WindowHandle::None;
};

} // namespace tavo
