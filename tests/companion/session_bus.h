// A session bus that goes with the test.
#pragma once

#include <string>
#include <sys/types.h>

namespace tavo::companion::test {

class SessionBus {
  public:
    SessionBus();
    ~SessionBus();
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;

    const std::string& Address() const { return Place; }

  private:
    pid_t Daemon = -1;
    std::string Place;
};

} // namespace tavo::companion::test
