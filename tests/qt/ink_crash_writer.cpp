// Writes one stroke that never ends on an ink control of the desktop, a sample every few milliseconds, until it is
// killed. Tells the number of each sample on standard output before it is sent.
#include "host/posix/root_folder.h"
#include "host/qt/font_preparation.h"
#include "host/qt/host.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTimer>

#include <cstdio>

#include <unistd.h>

namespace {

using namespace tavo;

constexpr int kSampleTime = 5;

WindowHandle MakePaper(IHost& host) {
    WindowDescription description;
    description.Kind = WindowKind::Frame;
    description.ClassName = u"InkClass";
    description.Visible = true;
    const WindowHandle frame = host.Windows().CreateWindowExW(description);
    description.Kind = WindowKind::View;
    description.Parent = frame;
    description.Parent = host.Windows().CreateWindowExW(description);
    description.Kind = WindowKind::Page;
    const WindowHandle page = host.Windows().CreateWindowExW(description);
    ControlDescription paper;
    paper.Kind = ControlKind::Ink;
    paper.Bounds = {0, 0, 240, 244};
    return host.Controls().CreateControl(page, paper);
}

void SendSample(QWidget& paper, QEvent::Type type, int number) {
    // There and back again, so that no sample lies on the one before.
    const QPointF place(20 + number % 150, 20 + number / 2 % 150);
    const bool isPress = type == QEvent::MouseButtonPress;
    QMouseEvent event(type, place, paper.mapToGlobal(place), isPress ? Qt::LeftButton : Qt::NoButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&paper, &event);
}

} // namespace

int main(int argc, char** argv) {
    const posix::RootResult root = posix::OpenDeviceRoot(posix::RootEnvironment::OfProcess());
    QApplication application(argc, argv);
    if (!root.Root.has_value() || !qt::PrepareFonts()) {
        return 1;
    }
    qt::QtHost host({*root.Root, ""});
    const WindowHandle paper = MakePaper(host);
    host.Ink().SendMessageW(paper, kInkSetPenMode, kInkPenDraws, 0);
    host.UpdateWidgets();
    int number = 0;
    QTimer samples;
    QObject::connect(&samples, &QTimer::timeout, &samples, [&] {
        ++number;
        if (write(STDOUT_FILENO, &number, sizeof number) != sizeof number) {
            QCoreApplication::exit(1);
        }
        SendSample(host.Views().FindControl(paper)->Widget(),
                   number == 1 ? QEvent::MouseButtonPress : QEvent::MouseMove, number);
    });
    samples.start(kSampleTime);
    return QCoreApplication::exec();
}
