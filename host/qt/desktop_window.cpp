// Layout, scale changes and the window's own buttons.
#include "host/qt/desktop_window.h"

#include "host/qt/chrome_widget.h"
#include "host/qt/keyboard.h"

#include <QCloseEvent>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>
#include <QUrl>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace tavo::qt {
namespace {

constexpr int kRestMilliseconds = 100;      // after the last change of size, before everything is drawn anew
constexpr QRgb kSurroundColor = 0xFF2B2F34; // beside the screen
constexpr double kComfortableHeight = 0.75; // of the height that the desktop leaves free
constexpr double kComfortableWidth = 0.9;

// On Wayland nobody but the person can bring back a minimised window, and some desktops know none at all. One that is
// hidden and shown again comes to the front with the focus.
bool HidesWhenMinimized() {
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

QSize SizeAt(double scale) {
    return {static_cast<int>(std::lround(kScreenSize.Width * scale)),
            static_cast<int>(std::lround(kScreenSize.Height * scale))};
}

// Of what is dragged, the calendar files of this machine.
std::vector<std::string> FindCalendarFiles(const QMimeData& dragged) {
    std::vector<std::string> paths;
    for (const QUrl& url : dragged.urls()) {
        const QString path = url.toLocalFile();
        const QString suffix = QFileInfo(path).suffix().toLower();
        if (suffix == QLatin1String("ics") || suffix == QLatin1String("ical")) {
            paths.push_back(QFile::encodeName(path).toStdString());
        }
    }
    return paths;
}

} // namespace

DesktopSize ChooseDesktopSize(const QByteArray& wishedScale, QSize remembered, QSize available) {
    bool isNumber = false;
    const double wished = wishedScale.toDouble(&isNumber);
    if (isNumber && wished >= 1.0 && wished <= 16.0) {
        return {SizeAt(wished), true};
    }
    if (remembered.width() >= kScreenSize.Width && remembered.height() >= kScreenSize.Height) {
        return {remembered.boundedTo(available.expandedTo(SizeAt(1.0))), false};
    }
    const double fitting = std::min(available.height() * kComfortableHeight / kScreenSize.Height,
                                    available.width() * kComfortableWidth / kScreenSize.Width);
    return {SizeAt(std::max(1.0, std::floor(fitting * 2) / 2)), false};
}

DesktopWindow::DesktopWindow(Device& device)
    : Shared(device), OwnNavigation(new ChromeWidget(device, device.Chrome.Navigation, this)),
      OwnMenus(new ChromeWidget(device, device.Chrome.Menus, this)) {
    OwnNavigation->setAttribute(Qt::WA_OpaquePaintEvent);
    OwnMenus->setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
    setAcceptDrops(true);
    setFocusPolicy(Qt::ClickFocus); // Tab goes from control to control, and stops at nothing that is none
    setMinimumSize(kScreenSize.Width, kScreenSize.Height);
    Rest.setSingleShot(true);
    Rest.setInterval(kRestMilliseconds);
    connect(&Rest, &QTimer::timeout, this, [this] { TakePaintScale(); });
}

DesktopWindow::~DesktopWindow() = default;

void DesktopWindow::Start(const DesktopSize& size) {
    if (size.IsFixed) {
        setFixedSize(size.Size);
    } else {
        resize(size.Size);
    }
    LayOut();
    Shared.PaintScale = Shared.Geometry.Scale;
}

void DesktopWindow::FollowFrame() {
    const shell::WindowRecord* frame = Shared.State.Tree.Find(Shared.State.Tree.Frame());
    Following = true;
    const bool isHidden = Shared.State.Minimized && HidesWhenMinimized();
    if (frame == nullptr || !frame->Visible || isHidden) {
        hide();
        setWindowState(windowState() & ~Qt::WindowMinimized); // it comes back as a window that is seen
    } else {
        setWindowTitle(QString::fromStdU16String(frame->Text));
        const bool isMinimized = windowState().testFlag(Qt::WindowMinimized);
        if (isMinimized != Shared.State.Minimized) {
            setWindowState(windowState() ^ Qt::WindowMinimized);
        }
        if (!isVisible()) {
            show();
        }
    }
    Following = false;
}

void DesktopWindow::FollowRatio() {
    if (isVisible() && devicePixelRatio() != Shared.Geometry.Ratio) {
        LayOut();
    }
}

void DesktopWindow::BringForward(const QString& token) {
    if (!token.isEmpty()) {
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8()); // where the platform looks for it
    }
    raise();
    activateWindow();
}

QRect DesktopWindow::ScreenOnDesktop() const {
    const QRect screen = Shared.Geometry.ToolkitPixels(kWholeScreen);
    return screen.translated(mapToGlobal(QPoint()));
}

void DesktopWindow::LayOut() {
    const ScreenGeometry fitted = ScreenGeometry::Fit(size(), devicePixelRatio());
    if (IsLaidOut && fitted == Shared.Geometry) {
        return;
    }
    IsLaidOut = true;
    Shared.Geometry = fitted;
    OwnNavigation->Place(kNavigationBar);
    OwnMenus->Place(kMenuBar);
    if (LayoutWatch) {
        LayoutWatch();
    }
    update();
    if (Shared.Geometry.Scale != Shared.PaintScale) {
        Rest.start();
    }
}

void DesktopWindow::TakePaintScale() {
    if (Shared.Geometry.Scale != Shared.PaintScale) {
        Shared.PaintScale = Shared.Geometry.Scale;
        Shared.Pictures.DropRendered();
        Shared.State.AnnounceScale();
    }
}

void DesktopWindow::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect screen = Shared.Geometry.ToolkitPixels(kWholeScreen);
    for (const QRect& beside : event->region().subtracted(screen)) {
        painter.fillRect(beside, QColor::fromRgb(kSurroundColor));
    }
    painter.fillRect(screen & event->rect(), Qt::white);
}

void DesktopWindow::resizeEvent(QResizeEvent*) {
    LayOut();
}

void DesktopWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    Shared.Navigation.RequestClose();
}

void DesktopWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (DropWatch && !FindCalendarFiles(*event->mimeData()).empty()) {
        event->setDropAction(Qt::CopyAction); // the file stays where it is
        event->accept();
    }
}

void DesktopWindow::dropEvent(QDropEvent* event) {
    if (const std::vector<std::string> paths = FindCalendarFiles(*event->mimeData()); DropWatch && !paths.empty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
        DropWatch(paths);
    }
}

void DesktopWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && !Following) {
        Shared.State.SetMinimized(windowState().testFlag(Qt::WindowMinimized));
    }
}

// In a dialog the key comes to the program instead.
bool DesktopWindow::focusNextPrevChild(bool next) {
    return (Keys == nullptr || !Keys->LeavesTabToProgram()) && QWidget::focusNextPrevChild(next);
}

void DesktopWindow::keyPressEvent(QKeyEvent* event) {
    if (Keys != nullptr) {
        Keys->Press(WindowHandle::None, *event);
    }
}

void DesktopWindow::keyReleaseEvent(QKeyEvent* event) {
    if (Keys != nullptr) {
        Keys->Release(*event);
    }
}

} // namespace tavo::qt
