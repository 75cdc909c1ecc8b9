// What work takes, as benchmarks print it.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <vector>

namespace tavo::bench {

// Nanoseconds of this process so far: other work on the machine does not count.
long long ReadProcessorTime();

// The cost that so many of a hundred stay below. There must be costs.
long long Percentile(std::vector<long long> costs, std::size_t share);
long long Median(std::vector<long long> costs);

// Of an argument; 0 where it is none.
inline int ReadNumber(const char* text) {
    return static_cast<int>(std::strtol(text, nullptr, 10));
}

} // namespace tavo::bench
