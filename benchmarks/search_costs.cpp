// tavo-search-costs STORE WORD...: what it takes to search a store through its interfaces, in parts as the window does.
// Prints for each word: nanoseconds to the end of the part that has the first hit, nanoseconds to the end, hits. Times
// are the median of many runs.
#include "benchmarks/costs.h"
#include "host/outlook/store.h"
#include "host/posix/store_machine.h"

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace {

using namespace tavo;
using Clock = std::chrono::steady_clock;

constexpr int kRuns = 15;
constexpr std::int32_t kItemsAtOnce = 2000; // as app/find_dialog asks for

struct Found {
    long long First = 0;
    long long Whole = 0;
    std::size_t Hits = 0;
};

Found Search(IPOutlookApp& app, const std::u16string& word) {
    std::vector<FoundItem> items;
    Found found;
    const auto begin = Clock::now();
    const auto elapsed = [begin] {
        return static_cast<long long>(std::chrono::nanoseconds(Clock::now() - begin).count());
    };
    ComPtr<IItemSearch> search;
    Status status = app.Search(word, search);
    while (status == Status::Ok) {
        const std::size_t before = items.size();
        status = search->Step(kItemsAtOnce, items);
        found.First = before == 0 && !items.empty() ? elapsed() : found.First;
    }
    found.Whole = elapsed();
    found.First = items.empty() ? found.Whole : found.First;
    found.Hits = items.size();
    return found;
}

} // namespace

int main(int count, char** words) {
    outlook::StorePtr store;
    outlook::StoreOptions options;
    options.Rights = outlook::Access::ReadOnly;
    if (count < 3 || Failed(OpenStore(posix::SystemMachine(), words[1], options, store))) {
        std::fprintf(stderr, "usage: tavo-search-costs STORE WORD...\n");
        return 2;
    }
    const ComPtr<IPOutlookApp> app = outlook::MakeOutlookApp(store);
    for (int index = 2; index < count; ++index) {
        const std::string word = words[index];
        std::vector<long long> first;
        std::vector<long long> whole;
        Found found;
        for (int run = 0; run < kRuns; ++run) {
            found = Search(*app, std::u16string(word.begin(), word.end()));
            first.push_back(found.First);
            whole.push_back(found.Whole);
        }
        std::printf("%lld %lld %zu\n", bench::Median(first), bench::Median(whole), found.Hits);
    }
    return 0;
}
