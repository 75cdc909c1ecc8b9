// tavo-month-window STORE YEAR MONTH: what it takes to read a month through the store's interfaces, beside a prepared
// SQLite statement that reads the same columns of the items and series touching it. Prints: statement ns, its rows,
// interfaces ns, their occurrences. Times are the median of many runs, in turn.
#include "benchmarks/costs.h"
#include "host/outlook/store.h"
#include "host/posix/store_machine.h"
#include "host/rules/wall_time.h"

#include <sqlite3.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using namespace tavo;
using Clock = std::chrono::steady_clock;

constexpr int kRuns = 41;
constexpr rules::Seconds kLongestItem = 32 * rules::kSecondsPerDay;

// Narrow tables clustered on start, by class of length, and the series whose effective span meets the window.
constexpr const char* kStatement = "SELECT start, length, oid FROM plain WHERE span = 0 AND start BETWEEN ?1 AND ?2"
                                   " AND start + length >= ?3"
                                   " UNION ALL SELECT start, length, oid FROM plain WHERE span = 1"
                                   " AND start BETWEEN ?4 AND ?2 AND start + length >= ?3"
                                   " UNION ALL SELECT first, length, oid FROM series WHERE first <= ?2 AND until >= ?3";

struct Month {
    rules::Seconds From = 0;
    rules::Seconds To = 0; // the last second
    std::u16string Restriction;
};

std::u16string Restrict(const std::string& first, const std::string& last) {
    const std::string restriction = "[Start] <= " + last + " and [End] >= " + first;
    return {restriction.begin(), restriction.end()};
}

Month MakeMonth(int year, int month) {
    const int days = rules::DaysInMonth(year, month);
    const auto write = [&](int day) {
        return std::to_string(month) + "/" + std::to_string(day) + "/" + std::to_string(year);
    };
    return {rules::MakeTime(year, month, 1), rules::MakeTime(year, month, days, 23, 59, 59),
            Restrict(write(1), write(days))};
}

// What was read, so that no reading is left out.
long long& Sink() {
    static long long sink = 0;
    return sink;
}

int RunStatement(sqlite3_stmt* statement, const Month& month) {
    sqlite3_reset(statement);
    sqlite3_bind_int64(statement, 1, month.From - rules::kSecondsPerDay);
    sqlite3_bind_int64(statement, 2, month.To);
    sqlite3_bind_int64(statement, 3, month.From);
    sqlite3_bind_int64(statement, 4, month.From - kLongestItem);
    int rows = 0;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        Sink() += sqlite3_column_int64(statement, 0) + sqlite3_column_int64(statement, 1) +
                  sqlite3_column_int64(statement, 2);
        ++rows;
    }
    return rows;
}

int RunInterfaces(IPOutlookItemCollection& items, const Month& month) {
    ComPtr<IPOutlookItemCollection> found;
    if (Failed(items.Restrict(month.Restriction, found)) || !found || Failed(found->put_IncludeRecurrences(true))) {
        return 0;
    }
    int occurrences = 0;
    ComPtr<IAppointment> item;
    while (Succeeded(found->Item(occurrences + 1, item))) {
        DATE start = 0;
        DATE end = 0;
        Oid oid = 0;
        if (Failed(item->get_Start(start)) || Failed(item->get_End(end)) || Failed(item->get_Oid(oid))) {
            return 0;
        }
        Sink() += static_cast<long long>(start + end) + oid;
        ++occurrences;
    }
    return occurrences;
}

template <class Work> long long Measure(const Work& work) {
    const auto begin = Clock::now();
    work();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now() - begin).count();
}

bool OpenItems(const char* path, ComPtr<IPOutlookApp>& app, ComPtr<IPOutlookItemCollection>& items) {
    ComPtr<IFolder> folder;
    app = outlook::CreateOutlookApp(posix::SystemMachine(), path, {});
    return Succeeded(app->Logon(WindowHandle::None)) && Succeeded(app->GetDefaultFolder(kFolderCalendar, folder)) &&
           Succeeded(folder->get_Items(items));
}

} // namespace

int main(int count, char** arguments) {
    if (count != 4) {
        std::fprintf(stderr, "usage: tavo-month-window STORE YEAR MONTH\n");
        return 2;
    }
    const Month month = MakeMonth(bench::ReadNumber(arguments[2]), bench::ReadNumber(arguments[3]));
    sqlite3* database = nullptr;
    sqlite3_stmt* statement = nullptr;
    ComPtr<IPOutlookApp> app;
    ComPtr<IPOutlookItemCollection> items;
    if (!OpenItems(arguments[1], app, items) ||
        sqlite3_open_v2(arguments[1], &database, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK ||
        sqlite3_exec(database, "PRAGMA cache_size = -65536", nullptr, nullptr, nullptr) != SQLITE_OK ||
        sqlite3_prepare_v2(database, kStatement, -1, &statement, nullptr) != SQLITE_OK) {
        std::fprintf(stderr, "tavo-month-window: cannot open %s: %s\n", arguments[1], sqlite3_errmsg(database));
        return 1;
    }
    int rows = RunStatement(statement, month);
    int occurrences = RunInterfaces(*items, month);
    std::vector<long long> statementTimes;
    std::vector<long long> interfaceTimes;
    for (int run = 0; run < kRuns; ++run) {
        statementTimes.push_back(Measure([&] { rows = RunStatement(statement, month); }));
        interfaceTimes.push_back(Measure([&] { occurrences = RunInterfaces(*items, month); }));
    }
    std::printf("%lld %d %lld %d\n", bench::Median(statementTimes), rows, bench::Median(interfaceTimes), occurrences);
    std::fprintf(stderr, "%s", Sink() == 0 ? "nothing was read\n" : "");
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return 0;
}
