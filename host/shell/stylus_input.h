// What a person does with stylus, finger or mouse, in pixels of the screen.
#pragma once

#include "host/shell/navigation_input.h"

namespace tavo::shell {

class StylusInput {
  public:
    StylusInput(Shell& shell, NavigationInput& navigation) : State(shell), Navigation(navigation) {}

    // Gives the control that lies there: what happens to it is the host's business. None: the shell has dealt with it.
    // From here to Up the painted window that was hit has the stylus, wherever it goes.
    WindowHandle Down(Point screen);
    void Move(Point screen);
    void Up(Point screen);
    // The gesture is taken back (a second finger, a lost device): nothing more comes of it.
    void Cancel();
    // Steps are positive away from the person.
    void Wheel(Point screen, int steps);

  private:
    NavigationButton BarButtonAt(Point screen) const;
    void Send(MessageNumber number, Point screen, MessageOrigin origin);

    Shell& State;
    NavigationInput& Navigation;
    WindowHandle Captured = WindowHandle::None;
    NavigationButton Pressed = NavigationButton::None;
};

} // namespace tavo::shell
