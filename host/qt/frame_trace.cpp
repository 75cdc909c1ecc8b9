// Writing down when frames were shown.
#include "host/qt/frame_trace.h"

#include "host/posix/private_file.h"

#include <cstdio>
#include <ctime>
#include <memory>

#include <fcntl.h>

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
    const auto file = std::make_shared<posix::FileDescriptor>(posix::OpenOrMakeFile(path));
    if (!*file || fcntl(file->Get(), F_SETFL, O_APPEND) != 0) {
        return {};
    }
    return [file] {
        dprintf(file->Get(), "%lld %lld\n", ReadNanoseconds(CLOCK_MONOTONIC),
                ReadNanoseconds(CLOCK_PROCESS_CPUTIME_ID));
    };
}

} // namespace tavo::qt
