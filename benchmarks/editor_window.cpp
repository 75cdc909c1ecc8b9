// tavo-editor-window OID: opens the editor on an item of the store in TAVO_HOME and saves it, again and again.
// Prints: processor time in ns from opening to the first frame, time in ns from OK to closed, time in ns of a
// synchronised SQLite transaction of one row in the same folder. Each is the median of the runs, which take turns.
#include "benchmarks/costs.h"
#include "benchmarks/desktop_device.h"
#include "edit/appointment_dlg.h"

#include <sqlite3.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace tavo;
using Clock = std::chrono::steady_clock;

constexpr int kRuns = 21;

template <class Work> long long Measure(const Work& work) {
    const auto begin = Clock::now();
    work();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now() - begin).count();
}

// The yardstick: a file beside the store, written as safely as the store is.
class PlainFile {
  public:
    explicit PlainFile(const std::string& path) : Path(path) {
        sqlite3_open(path.c_str(), &Database);
        Run("PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL; CREATE TABLE row(id INTEGER PRIMARY KEY, text TEXT);"
            "INSERT INTO row VALUES(1, '')");
    }

    ~PlainFile() {
        sqlite3_close(Database);
        std::remove(Path.c_str());
    }

    PlainFile(const PlainFile&) = delete;
    PlainFile& operator=(const PlainFile&) = delete;

    void Write(int run) { Run("UPDATE row SET text = 'run " + std::to_string(run) + "'"); }

  private:
    void Run(const std::string& statements) {
        if (sqlite3_exec(Database, statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
            std::fprintf(stderr, "%s\n", sqlite3_errmsg(Database));
            std::exit(1);
        }
    }

    std::string Path;
    sqlite3* Database = nullptr;
};

struct Cost {
    long long FirstFrame = 0;
    long long Saved = 0;
};

// One opening, and OK as soon as the first frame is there.
bool OpenAndSave(qt::QtHost& host, CMessagePump& pump, CProgramState& state, Oid oid, int run, Cost& cost) {
    AppointmentData item;
    if (state.Store.LoadAppointment(oid, item) != oid) {
        return false;
    }
    item.Subject = u"Run " + std::u16string(1 + static_cast<std::size_t>(run) % 7, u'!');
    Clock::time_point ok;
    bool isShown = false;
    const long long begin = bench::ReadProcessorTime();
    EditRequest request;
    request.Item = item;
    CAppointmentDlg editor(pump, state, std::move(request));
    host.Views().SetFrameWatch([&] {
        if (!isShown) {
            isShown = true;
            cost.FirstFrame = bench::ReadProcessorTime() - begin;
            ok = Clock::now();
            host.Queue().PostMessageW({editor.Handle(), WM_COMMAND, IDOK, BN_CLICKED, 0, {}});
        }
    });
    const bool saved = editor.DoModal() == IDOK;
    cost.Saved = std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now() - ok).count();
    host.Views().SetFrameWatch({});
    return saved && isShown;
}

} // namespace

int main(int count, char** arguments) {
    bench::DesktopDevice device(count, arguments);
    if (count != 2 || !device.IsReady()) {
        std::fprintf(stderr, "usage: TAVO_HOME=FOLDER tavo-editor-window OID\n");
        return 2;
    }
    qt::QtHost& host = device.Host();
    CMessagePump pump(host);
    CProgramState state(pump);
    bench::OpenEmptyFrame(pump);
    if (!state.Store.OpenStore()) {
        return 1;
    }
    PlainFile file(device.StorePath() + "-yardstick");
    std::vector<long long> opened;
    std::vector<long long> saved;
    std::vector<long long> written;
    for (int run = 0; run < kRuns; ++run) {
        Cost cost;
        if (!OpenAndSave(host, pump, state, bench::ReadNumber(arguments[1]), run, cost)) {
            std::fprintf(stderr, "the item was not saved\n");
            return 1;
        }
        opened.push_back(cost.FirstFrame);
        saved.push_back(cost.Saved);
        written.push_back(Measure([&] { file.Write(run); }));
    }
    std::printf("%lld %lld %lld\n", bench::Median(opened), bench::Median(saved), bench::Median(written));
    state.Store.CloseStore();
    return 0;
}
