// Ctrl+C as a question that the work in hand asks itself.
#include "tools/interruption.h"

#include <csignal>

namespace tavo::tools {
namespace {

// All that the signal handler may touch.
volatile std::sig_atomic_t interrupted = 0; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

void Remember(int /*signal*/) {
    interrupted = 1;
}

} // namespace

void WatchForInterruption() {
    struct sigaction action {};

    action.sa_handler = Remember;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

bool WasInterrupted() {
    return interrupted != 0;
}

} // namespace tavo::tools
