// Starts a bus daemon and reads where it listens.
#include "tests/companion/session_bus.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavo::companion::test {

SessionBus::SessionBus() {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    Daemon = fork();
    if (Daemon == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        const std::string option = "--print-address=" + std::to_string(ends[1]);
        execlp("dbus-daemon", "dbus-daemon", "--session", "--nofork", "--nopidfile", option.c_str(), nullptr);
        _exit(127);
    }
    close(ends[1]);
    char letter = 0;
    while (read(ends[0], &letter, 1) == 1 && letter != '\n') {
        Place += letter;
    }
    close(ends[0]);
    EXPECT_FALSE(Place.empty()) << "dbus-daemon did not start";
}

SessionBus::~SessionBus() {
    if (Daemon > 0) {
        kill(Daemon, SIGTERM);
        waitpid(Daemon, nullptr, 0);
    }
}

} // namespace tavo::companion::test
