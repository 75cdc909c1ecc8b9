// Where the outside world comes in: the only place of a host that may take time.
#pragma once

#include <cstdint>
#include <optional>

namespace tavo::shell {

// Milliseconds since some moment; never runs backwards.
using Milliseconds = std::uint64_t;

class IEventSource {
  public:
    virtual ~IEventSource() = default;
    virtual Milliseconds GetMilliseconds() = 0;
    // Lets in what the outside has to say (it then calls the shell's input classes) and returns after something came or
    // the deadline has passed. A deadline that is not in the future lets in what already waits; none: as long as it
    // takes.
    virtual void WaitForEvents(std::optional<Milliseconds> deadline) = 0;
};

} // namespace tavo::shell
