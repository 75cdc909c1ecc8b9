// While the program does something that takes its time.
#pragma once

#include "store/program_state.h"

namespace tavo {

// The busy flag and the wait cursor, as long as it lives.
class BusyTime {
  public:
    explicit BusyTime(CProgramState& state) : State(state) {
        State.Busy = true;
        State.Host().Windows().SetCursor(Cursor::Wait);
    }

    ~BusyTime() {
        State.Host().Windows().SetCursor(Cursor::Arrow);
        State.Busy = false;
    }

    BusyTime(const BusyTime&) = delete;
    BusyTime& operator=(const BusyTime&) = delete;

  private:
    CProgramState& State;
};

} // namespace tavo
