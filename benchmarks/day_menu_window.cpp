// tavo-day-menu-window YEARS DAY: taps a day of this month, so many years from now, on the month page of the calendar
// in TAVO_HOME, again and again. Prints the processor time in ns from the tap to the open menu, the median of the
// runs, and how many appointments the menu counts.
#include "app/tavo_app.h"
#include "benchmarks/costs.h"
#include "benchmarks/desktop_device.h"
#include "calendar/month_grid.h"
#include "store/page_number.h"

#include <QAction>
#include <QMenu>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using namespace tavo;

constexpr int kRuns = 21;
constexpr int kScheduleEntry = 3;

// The middle of the day's cell.
Point PlaceOf(int year, int month, int day) {
    using namespace std::chrono;
    const year_month_day first{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                               std::chrono::day(1)};
    const auto cell = static_cast<int>(weekday(sys_days(first)).c_encoding()) + day - 1;
    const Rect place = RectOfCell(cell / kGridColumns, cell % kGridColumns);
    return {(place.Left + place.Right) / 2, (place.Top + place.Bottom) / 2};
}

// Lets the program handle what is posted, for this long.
void Rest(qt::QtHost& host, CMessagePump& pump, int milliseconds) {
    bool done = false;
    QTimer::singleShot(milliseconds, [&] {
        done = true;
        host.Queue().PostMessageW({});
    });
    static_cast<void>(pump.RunUntil(done));
}

// From the tap to the menu on show.
long long TapDay(qt::QtHost& host, CMessagePump& pump, WindowHandle page, Point place, std::string& caption) {
    long long cost = 0;
    QTimer look;
    look.setInterval(1);
    const long long begin = bench::ReadProcessorTime();
    QObject::connect(&look, &QTimer::timeout, [&] {
        QMenu* menu = host.OpenMenu().Current();
        if (cost == 0 && menu != nullptr && menu->isVisible()) {
            cost = bench::ReadProcessorTime() - begin;
            caption = menu->actions().at(kScheduleEntry)->text().toStdString();
            host.Menus().EndMenu();
        }
    });
    look.start();
    host.Queue().PostMessageW({page, WM_LBUTTONDOWN, 0, 0, 0, place});
    host.Queue().PostMessageW({page, WM_LBUTTONUP, 0, 0, 0, place});
    constexpr int enough = 300;
    Rest(host, pump, enough);
    return cost;
}

} // namespace

int main(int count, char** arguments) {
    bench::DesktopDevice device(count, arguments);
    if (count != 3 || !device.IsReady()) {
        std::fprintf(stderr, "usage: TAVO_HOME=FOLDER tavo-day-menu-window YEARS DAY\n");
        return 2;
    }
    qt::QtHost& host = device.Host();
    CTavoApp app(host);
    if (app.InitInstance() != CTavoApp::Start::Running) {
        return 1;
    }
    CMessagePump& pump = app.MessagePump();
    const int years = bench::ReadNumber(arguments[1]);
    const SYSTEMTIME now = host.Clock().GetLocalTime();
    constexpr int tabMiddle = 30 + 60 * static_cast<int>(PageNumber::Calendar);
    constexpr int tabRow = 250;
    constexpr int settled = 500;
    Rest(host, pump, settled);
    host.Queue().PostMessageW({host.Parts().State.Tree.Top(), WM_LBUTTONDOWN, 0, 0, 0, Point{tabMiddle, tabRow}});
    Rest(host, pump, settled);
    const WindowHandle page = host.Parts().State.Tree.Top();
    for (int year = 0; year < years; ++year) {
        host.Queue().PostMessageW({page, WM_KEYDOWN, VK_DOWN, 0, 0, {}});
    }
    Rest(host, pump, settled);
    const Point place = PlaceOf(now.Year + years, now.Month, bench::ReadNumber(arguments[2]));
    std::vector<long long> costs;
    costs.reserve(kRuns);
    std::string caption;
    for (int run = 0; run < kRuns; ++run) {
        costs.push_back(TapDay(host, pump, page, place, caption));
    }
    app.ExitInstance();
    if (std::find(costs.begin(), costs.end(), 0) != costs.end()) {
        std::fprintf(stderr, "a tap opened no menu\n");
        return 1;
    }
    std::printf("%lld %s\n", bench::Median(costs), caption.substr(caption.rfind(' ') + 1).c_str());
    return 0;
}
