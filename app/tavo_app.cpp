// The application object's work.
#include "app/tavo_app.h"

#include "app/about_dialog.h"
#include "app/start.h"
#include "res/resource_ids.h"
#include "res/strings.h"

#include <memory>

namespace tavo {

CTavoApp::CTavoApp(IHost& host) : Device(host), Pump(host), State(Pump) {}

bool CTavoApp::InitInstance() {
    if (ActivateRunningCopy()) {
        return false;
    }
    if (Failed(Device.CoInitializeEx())) {
        return false;
    }
    Device.Registry().SetRegistryKey(kRegistryCompany);
    Frame = std::make_unique<CMainFrame>(Pump, State, *this);
    if (!Frame->Open()) {
        return false;
    }
    Device.Windows().SetWindowTextW(Frame->Handle(), kProgramTitle);
    Frame->Show(ShowCommand::Maximize);
    Frame->View().UpdateFirst();
    return true;
}

bool CTavoApp::ActivateRunningCopy() {
    const WindowHandle running = Device.Windows().FindWindowW(kMainWindowClass, kProgramTitle);
    if (running == WindowHandle::None) {
        return false;
    }
    Device.Windows().ShowWindow(running, ShowCommand::Maximize);
    Device.Windows().SetForegroundWindow(running);
    return true;
}

int CTavoApp::Run() {
    return Pump.Run();
}

void CTavoApp::ExitInstance() {
    Frame.reset();
}

void CTavoApp::TakeCommand(int command) {
    switch (command) {
    case kCommandAbout: {
        CAboutDlg about(Pump, State);
        about.DoModal();
        break;
    }
    case kCommandExit:
        Frame->Quit();
        break;
    default:
        break;
    }
}

int RunTavoCalendar(IHost& host) {
    CTavoApp app(host);
    int status = 0;
    if (app.InitInstance()) {
        status = app.Run();
    }
    app.ExitInstance();
    return status;
}

} // namespace tavo
