// Writing down when frames were shown.
#include "host/qt/frame_trace.h"

#include <ctime>
#include <memory>

namespace tavo::qt {
namespace {

long long ReadNanoseconds(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    constexpr long long nanosecondsPerSecond = 1'000'000'000;
    return time.tv_sec * nanosecondsPerSecond + time.tv_nsec;
}

} // namespace

std::function<void()> MakeFrameTrace(const char* path) {
    if (path == nullptr || *path == '\0') {
        return {};
    }
    const std::shared_ptr<std::FILE> file(std::fopen(path, "ae"), [](std::FILE* open) {
        if (open != nullptr) {
            std::fclose(open);
        }
    });
    if (!file) {
        return {};
    }
    return [file] {
        std::fprintf(file.get(), "%lld %lld\n", ReadNanoseconds(CLOCK_MONOTONIC),
                     ReadNanoseconds(CLOCK_PROCESS_CPUTIME_ID));
        std::fflush(file.get());
    };
}

} // namespace tavo::qt
