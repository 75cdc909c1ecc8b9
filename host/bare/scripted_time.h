// The outside world of a host that people do not reach: a script, and a clock that only the script moves.
#pragma once

#include "host/bare/script.h"
#include "host/files/scripted_clock.h"
#include "host/shell/event_source.h"

#include <functional>
#include <optional>

namespace tavo::bare {

class ScriptedTime : public shell::IEventSource {
  public:
    // `onEnd` is called whenever the program waits and the script has nothing more to say.
    ScriptedTime(const SYSTEMTIME& start, std::function<void()> onEnd) : Clock(start), OnEnd(std::move(onEnd)) {}

    files::ScriptedClock Clock;
    bare::Script Script;

    shell::Milliseconds GetMilliseconds() override { return Elapsed; }

    // Moves the clock to the deadline if that lies within the time that is to pass, else does the script's next step.
    void WaitForEvents(std::optional<shell::Milliseconds> deadline) override;

    // Called when the program waits and has nothing left to show. Gives true when it found something for the program
    // to do first.
    void SetWaited(std::function<bool()> waited) { Waited = std::move(waited); }

    // Lets time pass from now on, timer by timer.
    void Pass(shell::Milliseconds span) { PassUntil = Elapsed + span; }

  private:
    void MoveTo(shell::Milliseconds moment);

    std::function<void()> OnEnd;
    std::function<bool()> Waited;
    shell::Milliseconds Elapsed = 0;
    std::optional<shell::Milliseconds> PassUntil;
};

} // namespace tavo::bare
