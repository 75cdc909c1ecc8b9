// Says what in a calendar file is against its format, and what was done about it.
#pragma once

#include "host/exchange/entry_sink.h"

#include <optional>
#include <string>

namespace tavo::exchange {

// What is wrong with a file, and where; line 0 is the file as a whole.
struct FileFault {
    int Line = 0;
    std::string Reason;
};

enum class Manner {
    Lenient, // a fault costs the smallest part that it spoils
    Strict,  // it costs the file
};

class FaultTeller {
  public:
    // Null: nobody is told, as when the same lines are read again.
    FaultTeller(IEntrySink* sink, Manner manner) : Sink(sink), How(manner) {}

    // `remedy` is a phrase that goes on after the reason: "it was left out".
    void Tell(int line, const std::string& reason, const char* remedy) {
        if (How == Manner::Strict) {
            Worst = Worst ? Worst : FileFault{line, reason};
        } else if (Sink != nullptr) {
            Sink->OnMended(line, reason + "; " + remedy);
        }
    }

    // Likewise, of what is in order and cannot be taken over as it is all the same: it breaks no file.
    void Mention(int line, const std::string& reason, const char* remedy) {
        if (Sink != nullptr) {
            Sink->OnMended(line, reason + "; " + remedy);
        }
    }

    bool IsStrict() const { return How == Manner::Strict; }

    bool IsHeard() const { return IsStrict() || Sink != nullptr; }

    // The first fault of a file that is read strictly: it is broken then.
    const std::optional<FileFault>& GetBreaking() const { return Worst; }

  private:
    IEntrySink* Sink;
    Manner How;
    std::optional<FileFault> Worst;
};

} // namespace tavo::exchange
