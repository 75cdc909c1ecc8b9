// A window that keeps every message that no map takes.
#pragma once

#include "framework/message_pump.h"
#include "framework/window.h"

#include <functional>
#include <vector>

namespace tavo::test {

class PlainWindow : public CWindow {
  public:
    explicit PlainWindow(CMessagePump& pump) : CWindow(pump) {}

    // A visible frame, or a child when there is a parent.
    bool Make(WindowHandle parent = WindowHandle::None) {
        WindowDescription description;
        description.Kind = parent == WindowHandle::None ? WindowKind::Frame : WindowKind::Child;
        description.Parent = parent;
        description.Bounds = Rect::FromSize(10, 10, 100, 50);
        description.Visible = true;
        return Create(description);
    }

    using CWindow::Destroy;

    std::vector<Message> Taken;
    std::function<void(const Message&)> Hook;

  protected:
    void HandleByDefault(const Message& message) override {
        Taken.push_back(message);
        if (Hook) {
            Hook(message);
        }
    }
};

} // namespace tavo::test
