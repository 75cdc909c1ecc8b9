// Time of the processor: a busy machine does not lengthen it.
#pragma once

#include <sys/resource.h>

namespace tavo::test {

#if defined(__has_feature)
#define TAVO_HAS_FEATURE(name) __has_feature(name)
#else
#define TAVO_HAS_FEATURE(name) 0
#endif

#if defined(__SANITIZE_ADDRESS__) || TAVO_HAS_FEATURE(address_sanitizer)
constexpr double kSlowdown = 8; // what the sanitizers cost
#else
constexpr double kSlowdown = 1;
#endif

// Seconds that were used since the beginning: RUSAGE_SELF by this process, RUSAGE_CHILDREN by those it has waited for.
inline double ProcessorTime(int who) {
    rusage usage{};
    getrusage(who, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

// How long, in seconds of the processor, that may take which takes so many in a release.
constexpr double AtMost(double seconds) {
    return seconds * kSlowdown;
}

} // namespace tavo::test
