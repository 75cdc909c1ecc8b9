// The device as a window would show it, without a window: the whole screen, painted into memory.
#pragma once

#include "host/bare/painted_drawing.h"
#include "host/bare/popup.h"
#include "host/bare/screen_touch.h"
#include "host/files/device_root.h"
#include "host/files/registry_file.h"
#include "tests/memory_host/canvas.h"

namespace tavo::memory {

struct HostOptions {
    disk::IDisk& Disk; // this and the next but one must outlive the host
    files::DeviceRoot Root;
    IProcesses& Processes;
    std::function<Status(ComPtr<IPOutlookApp>& outlook)> CreateOutlook; // makes the store's application object
    std::function<ErrorCode()> LastStoreError;
};

class MemoryHost final : public bare::BareHost, private bare::IPaintKit, private ISound {
  public:
    // `outside` lets in what people do.
    MemoryHost(HostOptions options, shell::IEventSource& outside, IClock& clock);

    bare::PaintedDrawing& Drawing() override { return Drawn; }

    IRegistry& Registry() override { return OwnRegistry; }

    IProcesses& Processes() override { return Options.Processes; }

    ISound& Sound() override { return *this; }

    Status CoInitializeEx() override;

    void CoUninitialize() override { --ComUses; }

    Status CoCreateInstance(ComPtr<IPOutlookApp>& outlook) override;

    ErrorCode GetLastError() override { return Options.LastStoreError(); }

    shell::ITextFace& Find(shell::ChromeFont font) override { return Drawn.Find(font); }

    // A logical pixel is that many real ones wide from now on.
    void SetScale(int scale);
    // The screen as it is now.
    Canvas Paint();

    void PressKey(int key, int modifiers);

    bare::Popup Popup{*this}; // the open menu or list
    bare::ScreenTouch Touch{*this, &Popup};

  private:
    double PixelsPerPixel() override { return Scale; }

    std::unique_ptr<bare::ICanvas> MakeCanvas(Size size) override { return std::make_unique<Canvas>(size, Scale); }

    std::unique_ptr<shell::ITextFace> MakeFace(const LogFont& font) override { return std::make_unique<Face>(font); }

    bool PlaySoundW(std::u16string_view path) override; // into memory too: the file is what plays
    void OnChange(shell::Change change, WindowHandle window) override;

    HostOptions Options;
    files::RegistryFile OwnRegistry;
    bare::PaintedDrawing Drawn{*this};
    std::vector<std::uint8_t> Playing;
    int Scale = 1;
    int ComUses = 0; // CoInitializeEx less CoUninitialize
};

} // namespace tavo::memory
