// The state that all parts of the shell share: windows, timers, queue, menus, focus.
#pragma once

#include "host/shell/event_source.h"
#include "host/shell/menu_state.h"
#include "host/shell/posted_messages.h"
#include "host/shell/shell_observer.h"
#include "host/shell/timer_table.h"
#include "host/shell/window_tree.h"

namespace tavo::shell {

// A host owns one, hands it to the parts it needs (ShellWindows, ShellQueue, ShellControls, ShellMenus, StylusInput,
// KeyInput, ControlInput, NavigationInput) and reads from it what it shows.
class Shell {
  public:
    // The observer may be absent.
    Shell(IEventSource& source, IShellObserver* observer) : Source(source), Observer(observer) {}

    Shell(const Shell&) = delete;
    Shell& operator=(const Shell&) = delete;

    WindowTree Tree;
    TimerTable Timers;
    PostedMessages Posted;
    MenuState Menus;
    WindowHandle Focus = WindowHandle::None;
    WindowHandle OpenList = WindowHandle::None; // the control whose list or month calendar is open
    tavo::Cursor Cursor = tavo::Cursor::Arrow;
    bool Minimized = false;
    IEventSource& Source;

    void Report(Change change, WindowHandle window);

    void Post(const Message& message, MessageOrigin origin = MessageOrigin::Program) {
        Posted.Add({message, origin, {}});
    }

    // Gives way to a message that must be answered before `opening` happens.
    void Announce(const Message& message, const Opening& opening) {
        Posted.Add({message, MessageOrigin::Program, opening});
    }

    // Takes stylus and keys now: enabled, seen, and no message box is open. Menus are the caller's business.
    bool TakesInput(WindowHandle window) const;
    // Moves the focus; edit controls tell their parents. None takes it away.
    void MoveFocus(WindowHandle window);
    // Takes the focus away and closes the list of what is hidden, disabled or about to go.
    void Withdraw(WindowHandle window);
    // To the parent of a control.
    void Notify(WindowHandle control, MessageNumber number, int code, MessageOrigin origin = MessageOrigin::Program);
    void CloseList();
    void CloseMenu(int chosenCommand);
    // Closes the menu of a bar that is not the one on show any more: nothing could be chosen from it.
    void CloseStrayMenu();
    // Where keys go that nothing else takes: the focus, else the control the program showed last, else the top window.
    WindowHandle KeyTarget() const;
    // The whole window is to be painted.
    void Invalidate(WindowHandle window);
    // Reports when another page or dialog has come to the top since the last call; a menu of the one before closes.
    void WatchTop();
    // The bar of the window on top, or null.
    const MenuBarState* ShownBar() const;
    // Makes everything paint on new surfaces: the scale of the screen changed.
    void AnnounceScale();
    void SetMinimized(bool minimized);
    // Another process changed the store.
    void AnnounceStoreChange();
    // The companion, which has no window to send from, went on with the reminders: its timer comes to the main view.
    void AnnounceReminders();

  private:
    IShellObserver* Observer;
    WindowHandle LastTop = WindowHandle::None;
};

} // namespace tavo::shell
