// tavo-ink-window STROKES: opens the ink editor on a page of so many strokes of 60 points and writes on it with a pen,
// 200 samples a second. Prints the processor time in ns from a sample's arrival at the window to the end of the
// painting it leads to: the median of the samples, and what 95 of 100 stay below.
#include "benchmarks/costs.h"
#include "benchmarks/desktop_device.h"
#include "host/ink/codec.h"
#include "memo/ink_memo_view.h"
#include "tests/ink/handwriting.h"

#include <QPointingDevice>
#include <QTabletEvent>
#include <QTimer>
#include <QWindow>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <optional>
#include <vector>

namespace {

using namespace tavo;

constexpr int kPointsEach = 60;
constexpr int kSamplePause = 5; // milliseconds
constexpr int kSettled = 500;   // the same, until the editor is on show
constexpr int kUncounted = 60;  // the first stroke
constexpr std::size_t kSamples = 600;
constexpr std::size_t kStrokesWritten = (kUncounted + kSamples) / kPointsEach;

// Sends one sample, sleeps until the paper was painted, sends the next.
class Writer : public QObject {
  public:
    explicit Writer(qt::QtHost& host) : Host(host) {}

    void Start(std::function<void()> done) {
        Done = std::move(done);
        Paper = QApplication::widgetAt(Host.Desktop().mapToGlobal(PlaceOf(0).toPoint()));
        if (Paper == nullptr || Paper->accessibleName() != QStringLiteral("Ink")) {
            Done();
            return;
        }
        Paper->installEventFilter(this);
        WriteNext();
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint && Began.has_value()) {
            // Runs when the window has been painted and flushed.
            QTimer::singleShot(0, this, [this] { NotePainted(); });
        }
        return false;
    }

    std::vector<long long> Costs;

  private:
    // Real pixels of the desktop window: lines of small waves.
    QPointF PlaceOf(int number) const {
        const QRect screen = Host.Parts().Geometry.ToolkitPixels(Rect{20, 60, 200, 220});
        const int along = number % kPointsEach;
        const int line = number / kPointsEach % 10;
        return {screen.left() + screen.width() * (along + 0.3) / kPointsEach,
                screen.top() + screen.height() * (line + 0.5 + (along % 7) / 14.0) / 10};
    }

    void Send(QEvent::Type type, int number) {
        QWindow* window = Host.Desktop().windowHandle();
        const QPointF place = PlaceOf(number);
        const bool isMove = type == QEvent::TabletMove;
        const double pressure = type == QEvent::TabletRelease ? 0 : 0.4 + number % 20 / 50.0;
        QTabletEvent event(type, &Pen, place, window->mapToGlobal(place), pressure, 0, 0, 0, 0, 0, Qt::NoModifier,
                           isMove ? Qt::NoButton : Qt::LeftButton,
                           type == QEvent::TabletRelease ? Qt::NoButton : Qt::LeftButton);
        QCoreApplication::sendEvent(window, &event);
    }

    void WriteNext() {
        const int number = Number++;
        Began = bench::ReadProcessorTime();
        if (number % kPointsEach == 0) { // a new stroke now and then, as writing goes
            if (number > 0) {
                Send(QEvent::TabletRelease, number - 1);
            }
            Send(QEvent::TabletPress, number);
        } else {
            Send(QEvent::TabletMove, number);
        }
    }

    void NotePainted() {
        if (!Began.has_value()) {
            return; // painted twice
        }
        const long long cost = bench::ReadProcessorTime() - *Began;
        Began.reset();
        if (Number > kUncounted) {
            Costs.push_back(cost);
        }
        if (Costs.size() < kSamples) {
            QTimer::singleShot(kSamplePause, this, [this] { WriteNext(); });
        } else {
            Done();
        }
    }

    qt::QtHost& Host;
    QPointingDevice Pen{QStringLiteral("pen"),
                        101,
                        QInputDevice::DeviceType::Stylus,
                        QPointingDevice::PointerType::Pen,
                        QInputDevice::Capability::Position | QInputDevice::Capability::Pressure,
                        1,
                        2};
    QWidget* Paper = nullptr;
    std::function<void()> Done;
    std::optional<long long> Began;
    int Number = 0;
};

} // namespace

int main(int count, char** arguments) {
    bench::DesktopDevice device(count, arguments);
    if (count != 2 || !device.IsReady()) {
        std::fprintf(stderr, "usage: TAVO_HOME=FOLDER tavo-ink-window STROKES\n");
        return 2;
    }
    qt::QtHost& host = device.Host();
    CMessagePump pump(host);
    CProgramState state(pump);
    bench::OpenEmptyFrame(pump);
    const auto strokes = static_cast<std::size_t>(bench::ReadNumber(arguments[1]));
    state.Memo.Fill(ink::Encode(ink::WriteByHand(static_cast<int>(strokes), kPointsEach)));
    CInkMemoView editor(pump, state);
    Writer writer(host);
    QTimer::singleShot(kSettled, &writer, [&] {
        writer.Start([&] { host.Queue().PostMessageW({editor.Handle(), WM_COMMAND, IDOK, BN_CLICKED, 0, {}}); });
    });
    static_cast<void>(editor.DoModal()); // what it leaves in the buffer is looked at
    std::vector<ink::PlacedStroke> written;
    const std::vector<long long>& costs = writer.Costs;
    if (costs.size() < kSamples || ink::Decode(state.Memo.Bytes(), written) != ink::Reading::Whole ||
        written.size() != strokes + kStrokesWritten) {
        std::fprintf(stderr, "the strokes did not come onto the paper\n");
        return 1;
    }
    std::printf("%lld %lld\n", bench::Median(costs), bench::Percentile(costs, 95));
    return 0;
}
