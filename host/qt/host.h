// The desktop as the device.
#pragma once

#include "host/files/device_files.h"
#include "host/files/device_root.h"
#include "host/files/registry_file.h"
#include "host/locale/us_english_locale.h"
#include "host/posix/device_processes.h"
#include "host/posix/posix_disk.h"
#include "host/posix/system_clock.h"
#include "host/qt/activation.h"
#include "host/qt/control_style.h"
#include "host/qt/desktop_window.h"
#include "host/qt/desktop_windows.h"
#include "host/qt/drawing.h"
#include "host/qt/event_source.h"
#include "host/qt/file_dialogs.h"
#include "host/qt/menu_view.h"
#include "host/qt/message_box.h"
#include "host/qt/quit_signals.h"
#include "host/qt/sound.h"
#include "host/qt/window_views.h"
#include "host/shell/file_request.h"
#include "host/shell/shell_controls.h"
#include "host/shell/shell_input_panel.h"
#include "host/shell/shell_menus.h"
#include "host/shell/shell_queue.h"
#include "platform/host.h"

#include <QTimer>

#include <functional>
#include <memory>

namespace tavo::qt {

struct HostOptions {
    files::DeviceRoot Root;
    std::string InstalledSounds;
    // The store's application object; without it there is no store.
    std::function<Status(ComPtr<IPOutlookApp>& outlook)> CreateOutlook = {};
    std::function<ErrorCode()> LastStoreError = {};
    // Called before anything is shown when the machine has no fonts.
    std::function<void()> RefuseWithoutFonts = {};
    // Called with the calendar files that were opened with the program, and whether some of them wait to be imported.
    TakePaths TakeFiles = {};
    std::function<bool()> HaveFiles = {};
    // Likewise the one file that was chosen to be written.
    TakeWritten WantWritten = {};
    TakePrinter WantPrint = {};
    shell::FindWritten FindWritten = {};
    std::string ProgramFolder = posix::RunningProgramFolder(); // where the companion lies
};

class QtHost final : public IHost, private shell::IShellObserver {
  public:
    // The application object must exist.
    explicit QtHost(HostOptions options);
    ~QtHost() override;

    IMessageQueue& Queue() override { return OwnQueue; }

    IWindows& Windows() override { return OwnWindows; }

    IDrawing& Drawing() override { return OwnDrawing; }

    IControls& Controls() override { return OwnControls; }

    IMenus& Menus() override { return OwnMenus; }

    IInk& Ink() override { return Shared.Ink; }

    IInputPanel& InputPanel() override { return OwnPanel; }

    IFiles& Files() override { return OwnFiles; }

    IRegistry& Registry() override { return OwnRegistry; }

    IProcesses& Processes() override { return OwnProcesses; }

    ISound& Sound() override { return OwnSound; }

    IClock& Clock() override { return OwnClock; }

    ILocale& Locale() override { return OwnLocale; }

    Status CoInitializeEx() override;
    void CoUninitialize() override;
    Status CoCreateInstance(ComPtr<IPOutlookApp>& outlook) override;
    ErrorCode GetLastError() override;

    IFileDialogs& Dialogs() { return OwnDialogs; }

    // Who has the device's root, and how the one that has it answers.
    DesktopWindows& RootWindows() { return OwnWindows; }

    // Brings what the program changed to the widgets; every wait begins with it.
    void UpdateWidgets();

    // For tests, and for what is wired from outside.
    Device& Parts() { return Shared; }

    DesktopWindow& Desktop() { return OwnDesktop; }

    WindowViews& Views() { return OwnViews; }

    MenuView& OpenMenu() { return OwnMenuView; }

    MessageBox& Box() { return *OwnBox; }

  private:
    void OnChange(shell::Change change, WindowHandle window) override;
    void TakeWindowChange(shell::Change change, WindowHandle window);
    void TakeMenuChange(shell::Change change);
    void PrepareWait(bool waits);
    void FollowLayout();
    void FollowPanel();
    void ShowCursor();
    void TakeRequest(const posix::ActivationRequest& request, Activation::Moment moment);

    HostOptions Options;
    posix::PosixDisk OwnDisk;
    EventSource Events;
    Device Shared{Events, *this};
    ControlStyle* Style; // the application's
    posix::SystemClock OwnClock;
    files::DeviceFiles OwnFiles;
    posix::DeviceProcesses OwnProcesses{Options.ProgramFolder};
    files::RegistryFile OwnRegistry;
    locale::UsEnglishLocale OwnLocale;
    qt::Sound OwnSound{OwnFiles};
    DesktopWindow OwnDesktop{Shared};
    FileDialogs OwnDialogs{OwnDesktop, Options.TakeFiles, Options.WantWritten, Options.WantPrint};
    WindowViews OwnViews{Shared, OwnDesktop};
    qt::Drawing OwnDrawing{Shared, OwnViews};
    MenuView OwnMenuView{Shared, OwnDesktop};
    MessageBox* OwnBox; // a child of the desktop window
    shell::ShellQueue OwnQueue{Shared.State};
    DesktopWindows OwnWindows;
    shell::ShellControls OwnControls{Shared.State, OwnClock};
    shell::ShellMenus OwnMenus{Shared.State};
    shell::ShellInputPanel OwnPanel{Shared.State};
    shell::FileRequest Opened{Shared.State};
    QuitSignals OwnQuitSignals;
    QTimer RecoveryTimer;
    Activation Requests{OwnWindows.Instance(), [this](const posix::ActivationRequest& request,
                                                      Activation::Moment moment) { TakeRequest(request, moment); }};
    bool IsOnShow = false; // the window was shown once
    bool FrameChanged = false;
    bool CursorIsWaiting = false;
};

} // namespace tavo::qt
