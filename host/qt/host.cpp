// Putting the desktop host together, and following what the shell reports.
#include "host/qt/host.h"

#include "host/qt/accessible.h"
#include "host/qt/font_preparation.h"
#include "host/qt/frame_trace.h"
#include "host/qt/ink_clipboard.h"
#include "host/qt/remembered_size.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QInputDevice>
#include <QInputMethod>
#include <QScreen>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <utility>

namespace tavo::qt {
namespace {

constexpr std::chrono::milliseconds kRecoveryDelay{500}; // what is written is never further behind than a second

ControlStyle* InstallStyle() {
    auto* style = new ControlStyle; // the application takes it over
    QApplication::setStyle(style);
    QApplication::setPalette(ControlStyle::Colors());
    QApplication::setFont(QFont(QStringLiteral("Arial")));
    QApplication::setQuitOnLastWindowClosed(false);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); // the device's
    return style;
}

bool HasTouchScreen() {
    const auto devices = QInputDevice::devices();
    return std::any_of(devices.begin(), devices.end(), [](const QInputDevice* device) {
        return device->type() == QInputDevice::DeviceType::TouchScreen;
    });
}

} // namespace

QtHost::QtHost(HostOptions options)
    : Options(std::move(options)), Style(InstallStyle()),
      OwnFiles(OwnDisk, {Options.Root.Path(), Options.InstalledSounds}),
      OwnRegistry(OwnDisk, Options.Root.RegistryPath(), Options.Root.RunFolder() + "/Registry.lock"),
      OwnBox(new MessageBox(Shared, &OwnDesktop)), OwnWindows(Shared.State, Options.Root.RunFolder()),
      OwnQuitSignals([this] { Shared.Navigation.RequestQuit(kSessionEnds); }) {
    DescribePaintedWidgets();
    OwnViews.SetFrameWatch(MakeFrameTrace(std::getenv("TAVO_TRACE_FRAMES")));
    OwnDesktop.SetKeyboard(OwnViews.Keys());
    OwnDesktop.SetLayoutWatch([this] { FollowLayout(); });
    Shared.Chrome.Menus.SetPanelButton([this] {
        SipInfo info = OwnPanel.SipGetInfo();
        info.Shown = !info.Shown;
        OwnPanel.SipSetInfo(info);
    });
    Shared.Ink.SetClock(OwnClock);
    Shared.Ink.Shared().Copied = CopyPicture;
    Shared.Ink.SetRecovery(OwnDisk, Options.Root.Path() + "/Recovery");
    RecoveryTimer.setSingleShot(true);
    RecoveryTimer.setInterval(kRecoveryDelay);
    QObject::connect(&RecoveryTimer, &QTimer::timeout, &RecoveryTimer, [this] { Shared.Ink.SaveRecovery(); });
    Shared.Ink.SetWatch([this](WindowHandle ink) {
        OwnViews.NoteState(ink);
        if (!RecoveryTimer.isActive()) {
            RecoveryTimer.start();
        }
    });
    Opened.SetFiles(Options.HaveFiles);
    Opened.SetWritten(Options.FindWritten);
    OwnDesktop.SetDropWatch(Options.TakeFiles);
    Events.SetPreparation([this](bool waits) { PrepareWait(waits); });
    OwnDesktop.Start(ChooseDesktopSize(qgetenv("TAVO_SCALE"), ReadRememberedSize(Options.Root.Path()),
                                       QGuiApplication::primaryScreen()->availableSize()));
}

QtHost::~QtHost() {
    if (OwnDesktop.minimumSize() != OwnDesktop.maximumSize()) {
        RememberSize(Options.Root.Path(), OwnDesktop.size());
    }
    OwnDesktop.SetLayoutWatch({});
}

void QtHost::FollowLayout() {
    Style->SetScale(Shared.Geometry.Scale.Factor / Shared.Geometry.Ratio);
    OwnViews.MoveAll();
    OwnBox->Place(kWholeScreen);
}

void QtHost::UpdateWidgets() {
    OwnViews.Update();
    if (Shared.Chrome.Follow()) {
        OwnBox->raise();
    }
}

void QtHost::PrepareWait(bool waits) {
    if (!PrepareFonts() && Options.RefuseWithoutFonts) {
        Options.RefuseWithoutFonts();
    }
    OwnDesktop.FollowRatio();
    UpdateWidgets();
    Shared.Items.Follow();
    // The window appears with its first picture, not white.
    if (FrameChanged && (waits || OwnDrawing.HasPresented())) {
        FrameChanged = false;
        OwnDesktop.FollowFrame();
        FollowPanel();
        IsOnShow = true;
    }
    if (IsOnShow) {
        Requests.Follow(Shared.Navigation.IsQuitRequested() || QuitSignals::HasCome());
        Opened.Follow();
    }
    if (waits) {
        OwnProcesses.StartWaiting();
    }
    if (!Shared.State.Posted.IsEmpty()) {
        QAbstractEventDispatcher::instance()->wakeUp(); // it must not sleep over what was just posted
    }
}

void QtHost::OnChange(shell::Change change, WindowHandle window) {
    Shared.Chrome.Note(change, window);
    switch (change) {
    case shell::Change::MenuBar:
    case shell::Change::BarMenuOpened:
    case shell::Change::MenuTracked:
    case shell::Change::MenuClosed:
    case shell::Change::BoxOpened:
    case shell::Change::BoxClosed:
        TakeMenuChange(change);
        break;
    case shell::Change::FrameState:
        FrameChanged = true;
        break;
    case shell::Change::BroughtForward:
        FrameChanged = true;
        OwnDesktop.BringForward({});
        break;
    case shell::Change::Cursor:
        ShowCursor();
        break;
    case shell::Change::InputPanel:
        FollowPanel();
        break;
    default:
        TakeWindowChange(change, window);
        break;
    }
}

void QtHost::TakeWindowChange(shell::Change change, WindowHandle window) {
    const bool isFrame = window == Shared.State.Tree.Frame();
    switch (change) {
    case shell::Change::Destroyed:
        OwnViews.Drop(window);
        Shared.Ink.Drop(window);
        FrameChanged = FrameChanged || isFrame;
        break;
    case shell::Change::Created:
    case shell::Change::Bounds:
    case shell::Change::Visibility:
    case shell::Change::Enabled:
    case shell::Change::Top:
        OwnViews.NotePlaces();
        FrameChanged = FrameChanged || isFrame;
        break;
    case shell::Change::Text:
        OwnViews.NoteState(window);
        FrameChanged = FrameChanged || isFrame;
        break;
    case shell::Change::TextSelection:
    case shell::Change::Content:
        OwnViews.NoteState(window);
        break;
    case shell::Change::ListOpened:
    case shell::Change::ListClosed:
        OwnViews.Update();
        if (ControlView* view = OwnViews.FindControl(window); view != nullptr) {
            change == shell::Change::ListOpened ? view->OpenList() : view->CloseList();
        }
        break;
    case shell::Change::Focus:
        OwnViews.NoteFocus();
        break;
    default: // a paint that will come needs nothing
        break;
    }
}

void QtHost::TakeMenuChange(shell::Change change) {
    switch (change) {
    case shell::Change::BarMenuOpened:
        OwnMenuView.OpenBarMenu();
        break;
    case shell::Change::MenuTracked:
        OwnMenuView.OpenTracked();
        break;
    case shell::Change::MenuClosed:
        OwnMenuView.Close();
        break;
    case shell::Change::BoxOpened:
    case shell::Change::BoxClosed:
        OwnBox->Follow();
        OwnViews.NoteFocus();
        break;
    default: // a bar takes its contents before the next wait
        break;
    }
}

void QtHost::FollowPanel() {
    const bool isWanted = HasTouchScreen();
    const bool isShown = OwnPanel.SipGetInfo().Shown;
    Shared.Chrome.Menus.SetPanelState(isWanted, isShown);
    if (isWanted) {
        QGuiApplication::inputMethod()->setVisible(isShown);
    }
}

void QtHost::ShowCursor() {
    const bool isWaiting = Shared.State.Cursor == Cursor::Wait;
    if (isWaiting != CursorIsWaiting) {
        CursorIsWaiting = isWaiting;
        isWaiting ? QApplication::setOverrideCursor(Qt::WaitCursor) : QApplication::restoreOverrideCursor();
    }
}

void QtHost::TakeRequest(const posix::ActivationRequest& request, Activation::Moment moment) {
    Shared.State.SetMinimized(false);
    OwnDesktop.FollowFrame();
    OwnDesktop.BringForward(QString::fromStdString(request.Token));
    if (!request.Files.empty() && Options.TakeFiles) {
        Options.TakeFiles(request.Files);
    }
    if (request.Item != 0 && moment == Activation::Moment::Start) {
        Shared.Items.MakeAtStart(request.Item);
    } else if (request.Item != 0) {
        Shared.Items.Make(request.Item);
    }
}

Status QtHost::CoInitializeEx() {
    return Status::Ok;
}

void QtHost::CoUninitialize() {}

Status QtHost::CoCreateInstance(ComPtr<IPOutlookApp>& outlook) {
    return Options.CreateOutlook ? Options.CreateOutlook(outlook) : Status::Fail;
}

ErrorCode QtHost::GetLastError() {
    return Options.LastStoreError ? Options.LastStoreError() : ErrorCode::Success;
}

} // namespace tavo::qt
