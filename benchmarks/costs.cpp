// Reading the processor's clock, and choosing among costs.
#include "benchmarks/costs.h"

#include <algorithm>
#include <ctime>
#include <utility>

namespace tavo::bench {

long long ReadProcessorTime() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

long long Percentile(std::vector<long long> costs, std::size_t share) {
    std::sort(costs.begin(), costs.end());
    return costs[costs.size() * share / 100];
}

long long Median(std::vector<long long> costs) {
    return Percentile(std::move(costs), 50);
}

} // namespace tavo::bench
