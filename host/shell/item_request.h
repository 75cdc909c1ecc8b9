// Another process asks that one item be shown, as a reminder does that somebody opens.
#pragma once

#include "host/shell/shell.h"

#include <cstdint>

namespace tavo::shell {

class ItemRequest {
  public:
    explicit ItemRequest(Shell& shell) : State(shell) {}

    // Of a program that runs. What a dialog or a message box holds up is not done later, out of the blue.
    void Make(std::int32_t oid);
    // Made before the program ran: it waits until the start has asked all that it asks.
    void MakeAtStart(std::int32_t oid);
    // Before each wait.
    void Follow();

  private:
    Shell& State;
    std::int32_t Waiting = 0; // OID; 0 for none
};

} // namespace tavo::shell
