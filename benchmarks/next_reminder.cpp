// Processor time, in milliseconds, for finding the next due reminder after a change by another process: 21 times.
#include "benchmarks/costs.h"
#include "host/outlook/reminder_finder.h"
#include "host/outlook/store.h"
#include "host/outlook/store_core.h"
#include "host/posix/store_machine.h"

#include <cstdio>
#include <sqlite3.h>

namespace {

constexpr int kChanges = 21;

// As another process would: the count of changes of items goes up.
bool ChangeFromOutside(const char* path) {
    sqlite3* database = nullptr;
    const bool changed = sqlite3_open(path, &database) == SQLITE_OK &&
                         sqlite3_exec(database, "UPDATE change_count SET count = count + 1 WHERE kind = 'items'",
                                      nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(database);
    return changed;
}

} // namespace

int main(int count, char** arguments) {
    using namespace tavo;
    outlook::StorePtr store;
    outlook::StoreOptions options;
    options.HasSmallCache = true; // as the companion has it
    if (count != 2 || Failed(outlook::OpenStore(posix::SystemMachine(), arguments[1], options, store))) {
        std::fprintf(stderr, "usage: tavo-next-reminder STORE\n");
        return 1;
    }
    outlook::ReminderFinder finder(CoreOf(*store));
    // The middle of the ten years, where most is still to come.
    const reminders::Moment now = rules::MakeTime(2025, 3, 14, 12);
    for (int change = 0; change < kChanges; ++change) {
        if (!ChangeFromOutside(arguments[1])) {
            return 1;
        }
        const long long begin = bench::ReadProcessorTime();
        std::optional<reminders::Moment> next;
        if (Failed(finder.FindNext(now, next)) || !next) {
            std::fprintf(stderr, "no reminder was found\n");
            return 1;
        }
        std::printf("%.3f\n", static_cast<double>(bench::ReadProcessorTime() - begin) / 1e6);
        store->ReleaseMemory(); // likewise
    }
    return 0;
}
