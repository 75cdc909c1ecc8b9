// Turning signals into events.
#include "host/qt/quit_signals.h"

#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>

#include <atomic>
#include <csignal>
#include <initializer_list>

#include <fcntl.h>
#include <unistd.h>

namespace tavo::qt {
namespace {

constexpr std::initializer_list<int> kQuittingSignals{SIGTERM, SIGINT, SIGHUP};

// All that a signal handler may touch.
volatile std::sig_atomic_t signalPipe = -1; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)
std::atomic<bool> signalHasCome = false;    // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)
static_assert(std::atomic<bool>::is_always_lock_free);

void WriteToPipe(int) {
    signalHasCome = true;
    const char byte = 0;
    static_cast<void>(!write(signalPipe, &byte, 1)); // a full pipe has said enough already
}

} // namespace

QuitSignals::QuitSignals(std::function<void()> asked) : Asked(std::move(asked)) {
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_NONBLOCK | O_CLOEXEC) == 0) {
        ReadEnd = posix::FileDescriptor(ends[0]);
        WriteEnd = posix::FileDescriptor(ends[1]);
        Notifier = std::make_unique<QSocketNotifier>(ReadEnd.Get(), QSocketNotifier::Read);
        connect(Notifier.get(), &QSocketNotifier::activated, this, [this] { TakeSignals(); });
        signalPipe = WriteEnd.Get();
        for (const int number : kQuittingSignals) {
            std::signal(number, WriteToPipe);
        }
    }
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this, [this](QSessionManager&) { Asked(); },
        Qt::DirectConnection);
    qGuiApp->installEventFilter(this);
}

QuitSignals::~QuitSignals() {
    if (WriteEnd) {
        for (const int number : kQuittingSignals) {
            std::signal(number, SIG_DFL);
        }
    }
}

bool QuitSignals::HasCome() {
    return signalHasCome;
}

void QuitSignals::TakeSignals() {
    char bytes[16];
    while (read(ReadEnd.Get(), bytes, sizeof(bytes)) > 0) {
    }
    signalHasCome = false;
    Asked();
}

bool QuitSignals::eventFilter(QObject* object, QEvent* event) {
    if (object == qGuiApp && event->type() == QEvent::Quit) {
        Asked();
        return true;
    }
    return false;
}

} // namespace tavo::qt
