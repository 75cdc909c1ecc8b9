// A device that passes everything on to another one, but whose controls, files, ink and store can be watched and
// broken.
#pragma once

#include "platform/host.h"
#include "tests/support/controls_probe.h"
#include "tests/support/files_probe.h"
#include "tests/support/ink_probe.h"

#include <functional>
#include <string>
#include <vector>

namespace tavo::test {

class HostProbe final : public IHost {
  public:
    explicit HostProbe(IHost& device)
        : OwnControls(device.Controls()), OwnFiles(device.Files()), OwnInk(device.Ink()), Device(device) {}

    IMessageQueue& Queue() override { return Device.Queue(); }

    IWindows& Windows() override { return Device.Windows(); }

    IDrawing& Drawing() override { return Device.Drawing(); }

    IControls& Controls() override { return OwnControls; }

    IMenus& Menus() override { return Device.Menus(); }

    IInk& Ink() override { return OwnInk; }

    IInputPanel& InputPanel() override { return Panel != nullptr ? *Panel : Device.InputPanel(); }

    IFiles& Files() override { return OwnFiles; }

    IRegistry& Registry() override { return Device.Registry(); }

    IProcesses& Processes() override { return Device.Processes(); }

    ISound& Sound() override { return Device.Sound(); }

    IClock& Clock() override { return Device.Clock(); }

    ILocale& Locale() override { return Device.Locale(); }

    Status CoInitializeEx() override { return Device.CoInitializeEx(); }

    void CoUninitialize() override {
        Calls.emplace_back("CoUninitialize");
        Device.CoUninitialize();
    }

    Status CoCreateInstance(ComPtr<IPOutlookApp>& outlook) override {
        Calls.emplace_back("CoCreateInstance");
        return MakeOutlook ? MakeOutlook(outlook) : Device.CoCreateInstance(outlook);
    }

    ErrorCode GetLastError() override { return LastError; }

    ControlsProbe OwnControls;
    IInputPanel* Panel = nullptr; // stands in for the device's own
    FilesProbe OwnFiles;
    InkProbe OwnInk;
    // Stands in for the device's own CoCreateInstance.
    std::function<Status(ComPtr<IPOutlookApp>&)> MakeOutlook;
    ErrorCode LastError = ErrorCode::Success;
    std::vector<std::string> Calls; // in order

  private:
    IHost& Device;
};

} // namespace tavo::test
