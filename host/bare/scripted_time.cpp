// One move of the clock, or one step, at a time.
#include "host/bare/scripted_time.h"

#include <chrono>

namespace tavo::bare {

void ScriptedTime::WaitForEvents(std::optional<shell::Milliseconds> deadline) {
    if (deadline && *deadline <= Elapsed) {
        return; // nothing waits outside: a step comes only when the program has nothing left to do
    }
    if (Waited && Waited()) {
        return;
    }
    if (PassUntil) {
        if (deadline && *deadline <= *PassUntil) {
            MoveTo(*deadline);
            return;
        }
        MoveTo(*PassUntil);
        PassUntil.reset();
        return;
    }
    if (Script.IsEmpty()) {
        OnEnd();
    } else {
        Script.DoNext();
    }
}

void ScriptedTime::MoveTo(shell::Milliseconds moment) {
    Clock.Advance(std::chrono::milliseconds(moment - Elapsed));
    Elapsed = moment;
}

} // namespace tavo::bare
