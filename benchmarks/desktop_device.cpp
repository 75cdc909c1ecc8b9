// Setting the desktop host up as the program does.
#include "benchmarks/desktop_device.h"

#include "host/outlook/store.h"
#include "host/posix/root_folder.h"
#include "host/posix/store_machine.h"
#include "host/qt/font_preparation.h"

#include <cstdio>
#include <utility>

// Outside every namespace, as the macro demands.
static void InitPictures() {
    Q_INIT_RESOURCE(tavo_pictures);
}

namespace tavo::bench {

DesktopDevice::DesktopDevice(int& count, char** arguments) : Application(count, arguments) {
    InitPictures();
    const posix::RootResult root = posix::OpenDeviceRoot(posix::RootEnvironment::OfProcess());
    if (!root.Root || !qt::PrepareFonts()) {
        std::fprintf(stderr, "%s\n", root.Root ? "there are no fonts" : root.Problem.c_str());
        return;
    }
    Store = root.Root->StorePath();
    qt::HostOptions options{*root.Root, ""};
    options.ProgramFolder = root.Root->Path(); // no companion lies there that would stay behind
    options.CreateOutlook = [store = Store](ComPtr<IPOutlookApp>& outlook) {
        outlook = outlook::CreateOutlookApp(posix::SystemMachine(), store, {});
        return Status::Ok;
    };
    OwnHost.emplace(std::move(options));
}

void OpenEmptyFrame(CMessagePump& pump) {
    WindowDescription frame;
    frame.Kind = WindowKind::Frame;
    frame.Visible = true;
    pump.SetMainWindow(pump.Host().Windows().CreateWindowExW(frame));
}

} // namespace tavo::bench
