// The scripted device as the program sees it. No screen, no toolkit, no sleeping.
#pragma once

#include "host/files/device_files.h"
#include "host/headless/device_root_folder.h"
#include "host/headless/recorders.h"
#include "host/headless/scripted_time.h"
#include "host/headless/sightings.h"
#include "host/ink/ink_desk.h"
#include "host/locale/us_english_locale.h"
#include "host/shell/control_input.h"
#include "host/shell/file_request.h"
#include "host/shell/item_request.h"
#include "host/shell/key_input.h"
#include "host/shell/shell_controls.h"
#include "host/shell/shell_input_panel.h"
#include "host/shell/shell_menus.h"
#include "host/shell/shell_queue.h"
#include "host/shell/shell_windows.h"
#include "host/shell/stylus_input.h"
#include "platform/host.h"

#include <memory>

namespace tavo::shell {
class Chrome;
}

namespace tavo::headless {

class ChromeFaces;

// Makes the application object of a store; the path is that of the device's store file.
using OutlookFactory = std::function<Status(const std::filesystem::path& store, ComPtr<IPOutlookApp>& outlook)>;

struct DeviceOptions {
    SYSTEMTIME Now{2004, 11, 3, 17, 10, 0, 0, 0};
    std::filesystem::path Root = {}; // empty: a temporary folder
    std::filesystem::path InstalledSounds = {};
    OutlookFactory Outlook = {}; // empty: the real store, in the device's own folder
};

// The exit code when the program waited although the script had ended.
constexpr int kScriptEnded = -32000;

class HeadlessHost : public IHost {
  public:
    explicit HeadlessHost(const DeviceOptions& options);
    ~HeadlessHost() override;

    IMessageQueue& Queue() override { return OwnQueue; }

    IWindows& Windows() override { return OwnWindows; }

    IDrawing& Drawing() override { return Drawn; }

    IControls& Controls() override { return OwnControls; }

    IMenus& Menus() override { return OwnMenus; }

    IInk& Ink() override { return Papers; }

    IInputPanel& InputPanel() override { return Panel; }

    IFiles& Files() override { return OwnFiles; }

    IRegistry& Registry() override { return RegistryCalls; }

    IProcesses& Processes() override { return ProcessCalls; }

    ISound& Sound() override { return SoundCalls; }

    IClock& Clock() override { return Time.Clock; }

    ILocale& Locale() override { return OwnLocale; }

    Status CoInitializeEx() override;
    void CoUninitialize() override;
    Status CoCreateInstance(ComPtr<IPOutlookApp>& outlook) override;

    ErrorCode GetLastError() override { return LastError; }

    // For tests.
    DeviceRootFolder Root;
    ScriptedTime Time;
    RecordedDrawing Drawn;
    Sightings Seen{Drawn};
    shell::Shell State{Time, &Seen};
    shell::NavigationInput Navigation{State};
    shell::StylusInput Stylus{State, Navigation};
    shell::KeyInput Keys{State, Navigation};
    shell::ControlInput ControlActions{State};
    shell::ItemRequest Items{State};
    shell::FileRequest Opened{State};
    ink::InkDesk Papers{State};
    RecordedProcesses ProcessCalls;
    RecordedRegistry RegistryCalls;
    files::DeviceFiles OwnFiles;
    RecordedSound SoundCalls{OwnFiles};
    OutlookFactory Outlook;
    ErrorCode LastError = ErrorCode::Success;
    Status ComStatus = Status::Ok; // what CoInitializeEx answers
    int ComUses = 0;               // CoInitializeEx less CoUninitialize

    // The bars and boxes around the program's windows, as they are now.
    shell::Chrome& Chrome();

    bool HasQuit() const { return OwnQueue.HasQuit(); }

  private:
    shell::ShellQueue OwnQueue{State};
    shell::ShellWindows OwnWindows{State};
    shell::ShellControls OwnControls{State, Time.Clock};
    shell::ShellMenus OwnMenus{State};
    shell::ShellInputPanel Panel{State};
    locale::UsEnglishLocale OwnLocale;
    std::unique_ptr<ChromeFaces> Faces;
    std::unique_ptr<shell::Chrome> OwnChrome;
};

} // namespace tavo::headless
