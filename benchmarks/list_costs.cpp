// tavo-list-costs: what the Schedule page's lists and the Settings page's deletion take, on the scripted device.
//
// fill HOME KIND YEAR MONTH DAY: fills a list from the store of this folder and paints it; of appointments for the 31
// days from this day on. Prints the median ns of processor time, and the rows.
//
// delete HOME: deletes all ordinary appointments, and takes that back. Prints the items, and the ns of both.
//
// bare STORE: deletes all untagged items in one SQLite transaction, with a copy of their rows in the journal. Prints
// the items and ns.
#include "benchmarks/costs.h"
#include "host/headless/headless_host.h"
#include "host/outlook/store.h"
#include "schedule/appointment_item_list.h"
#include "schedule/category_item_list.h"
#include "schedule/item_days.h"
#include "settings/mass_deletion.h"
#include "store/category_file.h"
#include "store/midnight.h"
#include "store/undo.h"

#include <sqlite3.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using namespace tavo;
using Clock = std::chrono::steady_clock;

constexpr int kRuns = 21;
constexpr int kPeriodDays = 31;

long long NanosecondsSince(Clock::time_point begin) {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now() - begin).count();
}

[[noreturn]] void Fail(const std::string& what) {
    std::fprintf(stderr, "error: %s\n", what.c_str());
    std::exit(1);
}

// The program's state on the scripted device, logged on and with its lists.
struct Desk final : IItemListOwner {
    explicit Desk(const std::string& home) : Host(OptionsFor(home)), Pump(Host), State(Pump) {
        if (!State.Store.OpenStore() || !LoadCategoryFile(State)) {
            Fail("no calendar in " + home);
        }
        WindowDescription frame;
        frame.Kind = WindowKind::Frame;
        frame.Visible = true;
        frame.Bounds = Rect::FromSize(0, 0, kScreenSize.Width, kScreenSize.Height);
        Frame = Host.Windows().CreateWindowExW(frame);
    }

    static headless::DeviceOptions OptionsFor(const std::string& home) {
        headless::DeviceOptions options;
        options.Root = home;
        return options;
    }

    void OnListScrolled() override {}

    void ScrollListBy(int) override {}

    void TakeListCommand(int) override {}

    void TakeListKey(const Message&) override {}

    WindowHandle MenuOwner() const override { return Frame; }

    headless::HeadlessHost Host;
    CMessagePump Pump;
    CProgramState State;
    WindowHandle Frame = WindowHandle::None;
};

template <class List, class Fill> void Measure(Desk& desk, List& list, Fill fill) {
    if (!list.CreateOn(desk.Frame, Rect::FromSize(0, 0, 240, 204))) {
        Fail("no window");
    }
    list.Show(ShowCommand::Show);
    Message paint;
    paint.Window = list.Handle();
    paint.Number = WM_PAINT;
    std::vector<long long> costs;
    for (int run = 0; run < kRuns; ++run) {
        const long long begin = bench::ReadProcessorTime();
        fill();
        list.HandleMessage(paint);
        costs.push_back(bench::ReadProcessorTime() - begin);
    }
    std::nth_element(costs.begin(), costs.begin() + kRuns / 2, costs.end());
    std::printf("%lld %d\n", costs[kRuns / 2], list.Count());
}

void RunFill(const std::string& home, ItemKind kind, const SYSTEMTIME& first) {
    Desk desk(home);
    if (kind == ItemKind::Appointment) {
        CAppointmentItemList list(desk.Pump, desk.State, desk);
        const SYSTEMTIME last = DayAfter(first, kPeriodDays, desk.Host.Locale());
        Measure(desk, list, [&] { list.Fill(first, last); });
    } else {
        CCategoryItemList list(desk.Pump, desk.State, desk, kind);
        Measure(desk, list, [&] { list.Fill(); });
    }
    static_cast<void>(SaveCategoryFile(desk.State)); // so that the next run has no tags left to carry out
}

void RunDeletion(const std::string& home) {
    Desk desk(home);
    Clock::time_point begin = Clock::now();
    int deleted = 0;
    {
        DeletionClasses classes;
        classes.Appointments = true;
        MassDeletion deletion(desk.State, classes);
        while (deletion.DoNext()) {
        }
        deleted = deletion.Done();
    }
    const long long deletion = NanosecondsSince(begin);
    begin = Clock::now();
    LongUndo undo(desk.State);
    while (undo.DoNext()) {
    }
    if (undo.IsRefused()) {
        Fail("the deletion could not be taken back");
    }
    std::printf("%d %lld %lld\n", deleted, deletion, NanosecondsSince(begin));
}

void Run(sqlite3* store, const char* sql) {
    if (sqlite3_exec(store, sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
        Fail(sqlite3_errmsg(store));
    }
}

sqlite3_stmt* Prepare(sqlite3* store, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(store, sql, -1, &statement, nullptr) != SQLITE_OK) {
        Fail(sqlite3_errmsg(store));
    }
    return statement;
}

void RunBare(const std::string& path) {
    sqlite3* store = nullptr;
    if (sqlite3_open(path.c_str(), &store) != SQLITE_OK) {
        Fail(sqlite3_errmsg(store));
    }
    Run(store, "PRAGMA foreign_keys=ON; PRAGMA synchronous=FULL; PRAGMA cache_size=-16384");
    const Clock::time_point begin = Clock::now();
    Run(store,
        "BEGIN IMMEDIATE; INSERT INTO journal_group(name, time, undone) VALUES ('bare', strftime('%s','now'), 0)");
    std::vector<int> oids;
    sqlite3_stmt* list = Prepare(store, "SELECT oid FROM item WHERE oid NOT IN (SELECT oid FROM tag)");
    while (sqlite3_step(list) == SQLITE_ROW) {
        oids.push_back(sqlite3_column_int(list, 0));
    }
    sqlite3_finalize(list);
    sqlite3_stmt* steps[] = {
        Prepare(store, "INSERT INTO journal_change(group_id, step, kind, oid, last_oid, image)"
                       " SELECT (SELECT max(id) FROM journal_group), oid, 2, oid, oid, CAST(ifnull(uid, '') || subject"
                       " || location || body || categories || reminder_sound || start || length || flags || busy"
                       " || sensitivity || reminder_minutes || reminder_options || ifnull(source, '')"
                       " || ifnull((SELECT data FROM ink WHERE ink.oid = item.oid), '') AS BLOB)"
                       " FROM item WHERE oid = ?1"),
        Prepare(store, "DELETE FROM plain WHERE (span, start, oid) ="
                       " (SELECT length > 86400, start, oid FROM item WHERE oid = ?1)"),
        Prepare(store, "DELETE FROM item WHERE oid = ?1")};
    for (const int oid : oids) {
        for (sqlite3_stmt* step : steps) {
            sqlite3_reset(step);
            sqlite3_bind_int(step, 1, oid);
            if (sqlite3_step(step) != SQLITE_DONE) {
                Fail(sqlite3_errmsg(store));
            }
        }
    }
    for (sqlite3_stmt* step : steps) {
        sqlite3_finalize(step);
    }
    Run(store, "COMMIT");
    std::printf("%zu %lld\n", oids.size(), NanosecondsSince(begin));
    sqlite3_close(store);
}

} // namespace

int main(int count, char** words) {
    const std::string what = count > 2 ? words[1] : "";
    if (what == "fill" && count == 7) {
        RunFill(words[2], static_cast<ItemKind>(bench::ReadNumber(words[3])),
                MidnightOf(bench::ReadNumber(words[4]), bench::ReadNumber(words[5]), bench::ReadNumber(words[6])));
    } else if (what == "delete" && count == 3) {
        RunDeletion(words[2]);
    } else if (what == "bare" && count == 3) {
        RunBare(words[2]);
    } else {
        Fail("usage: tavo-list-costs fill HOME KIND YEAR MONTH DAY | delete HOME | bare STORE");
    }
}
