// A shell with a clock that the test moves, and nothing outside.
#pragma once

#include "host/shell/control_input.h"
#include "host/shell/key_input.h"
#include "host/shell/shell_controls.h"
#include "host/shell/shell_menus.h"
#include "host/shell/shell_queue.h"
#include "host/shell/shell_windows.h"
#include "host/shell/stylus_input.h"
#include "platform/clock.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

namespace tavo::shell {

class StandingSource : public IEventSource {
  public:
    Milliseconds GetMilliseconds() override { return Now; }

    void WaitForEvents(std::optional<Milliseconds> deadline) override {
        if (deadline && *deadline <= Now) {
            return;
        }
        Deadlines.push_back(deadline);
        OnWait();
    }

    Milliseconds Now = 1000;
    std::vector<std::optional<Milliseconds>> Deadlines; // of the waits that had nothing to hand out
    std::function<void()> OnWait;
};

class NotingObserver : public IShellObserver {
  public:
    void OnChange(Change change, WindowHandle window) override { Changes.emplace_back(change, window); }

    std::vector<std::pair<Change, WindowHandle>> Changes;
};

class FixedClock : public IClock {
  public:
    SYSTEMTIME GetLocalTime() override { return {2004, 11, 3, 17, 10, 5, 0, 0}; }

    std::uint32_t GetTickCount() override { return 0; }
};

// Frame, view and a shown page.
class ShellTest : public ::testing::Test {
  protected:
    ShellTest() {
        Source.OnWait = [this] { Queue.PostQuitMessage(0); };
        Frame = Make(WindowKind::Frame, WindowHandle::None, {});
        View = Make(WindowKind::View, Frame, {});
        Page = Make(WindowKind::Page, View, {});
        Drain();
        Observer.Changes.clear();
    }

    WindowHandle Make(WindowKind kind, WindowHandle parent, const Rect& bounds,
                      NavigationButtons buttons = NavigationButtons::OkAndClose) {
        WindowDescription description;
        description.Kind = kind;
        description.Parent = parent;
        description.Bounds = bounds;
        description.Buttons = buttons;
        description.Visible = true;
        return Windows.CreateWindowExW(description);
    }

    WindowHandle MakeControl(ControlKind kind, int id, const Rect& bounds) {
        ControlDescription description;
        description.Kind = kind;
        description.Id = id;
        description.Bounds = bounds;
        return Controls.CreateControl(Page, description);
    }

    // Everything that waits to be handed out now.
    std::vector<Message> Drain() {
        std::vector<Message> messages;
        bool ended = false;
        Source.OnWait = [&] {
            ended = true;
            Queue.PostMessageW({WindowHandle::None, WM_NULL, 0, 0, 0, {}});
        };
        while (true) {
            const Message message = Queue.Wait();
            if (ended) {
                return messages;
            }
            messages.push_back(message);
        }
    }

    std::vector<MessageNumber> DrainNumbers() {
        std::vector<MessageNumber> numbers;
        for (const Message& message : Drain()) {
            numbers.push_back(message.Number);
        }
        return numbers;
    }

    StandingSource Source;
    NotingObserver Observer;
    FixedClock Clock;
    Shell State{Source, &Observer};
    ShellQueue Queue{State};
    ShellWindows Windows{State};
    ShellControls Controls{State, Clock};
    ShellMenus Menus{State};
    NavigationInput Navigation{State};
    StylusInput Stylus{State, Navigation};
    KeyInput Keys{State, Navigation};
    ControlInput Input{State};
    WindowHandle Frame = WindowHandle::None;
    WindowHandle View = WindowHandle::None;
    WindowHandle Page = WindowHandle::None;
};

} // namespace tavo::shell
