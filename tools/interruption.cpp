// Ctrl+C as a question that the work in hand asks itself, and an end for work that does not ask.
#include "tools/interruption.h"

#include "tools/arguments.h"

#include <atomic>
#include <csignal>
#include <cstring>
#include <ctime>
#include <unistd.h>

namespace tavo::tools {
namespace {

constexpr long kPatience = 700'000'000; // nanoseconds: with the end of the process less than a second

// All that the signal handlers may touch.
// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables)
volatile std::sig_atomic_t interrupted = 0;
std::atomic<const char*> lastWords = "tavo: Interrupted.\n";
timer_t patience{};
bool isPatient = false;

// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

void Remember(int /*signal*/) {
    interrupted = 1;
    if (isPatient) {
        itimerspec end{};
        end.it_value.tv_nsec = kPatience;
        timer_settime(patience, 0, &end, nullptr);
    }
}

// The store is left as after a kill: what was not committed is not there.
void End(int /*signal*/) {
    const char* words = lastWords;
    [[maybe_unused]] const auto written = write(STDERR_FILENO, words, std::strlen(words)); // or nobody reads it
    _exit(kExitInterrupted);
}

} // namespace

void WatchForInterruption() {
    struct sigaction action {};

    action.sa_handler = End;
    sigaction(SIGALRM, &action, nullptr);
    isPatient = timer_create(CLOCK_MONOTONIC, nullptr, &patience) == 0; // which sends SIGALRM
    action.sa_handler = Remember;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

bool WasInterrupted() {
    return interrupted != 0;
}

void SetLastWords(const char* words) {
    lastWords = words;
}

} // namespace tavo::tools
