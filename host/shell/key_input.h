// What a person types.
#pragma once

#include "host/shell/navigation_input.h"

#include <map>

namespace tavo::shell {

class KeyInput {
  public:
    KeyInput(Shell& shell, NavigationInput& navigation) : State(shell), Navigation(navigation) {}

    // Gives the control that the key is for, which has the focus by then: the host lets it work on it. None: the shell
    // has dealt with it.
    WindowHandle Down(int key, int modifiers);
    void Up(int key, int modifiers);
    // As Down, for a character.
    WindowHandle Character(char16_t character);
    // A control has no use for this key: its parent gets it.
    void Unused(WindowHandle control, int key, int modifiers);

  private:
    bool TakeForBoxOrMenu(int key);
    bool TakeShortcut(int key, int modifiers, WindowHandle target);
    // Sends the message to the painted window that takes keys, or gives the control that does.
    WindowHandle Give(const Message& key);
    WindowHandle GiveToPicker(WindowHandle picker, const Message& key);
    bool LiesOnPage(WindowHandle control) const; // and not in a dialog

    Shell& State;
    NavigationInput& Navigation;
    std::map<int, WindowHandle> Held; // who got the key's down; None: nobody may see its up
};

} // namespace tavo::shell
