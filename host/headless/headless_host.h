// The scripted device as the program sees it. No screen, no toolkit, no sleeping.
#pragma once

#include "host/bare/bare_host.h"
#include "host/bare/scripted_time.h"
#include "host/headless/device_root_folder.h"
#include "host/headless/measured_face.h"
#include "host/headless/recorders.h"
#include "host/headless/sightings.h"
#include "host/posix/posix_disk.h"
#include "host/shell/chrome/chrome_faces.h"

namespace tavo::headless {

// Makes the application object of a store; the path is that of the device's store file.
using OutlookFactory = std::function<Status(const std::filesystem::path& store, ComPtr<IPOutlookApp>& outlook)>;

struct DeviceOptions {
    SYSTEMTIME Now{2004, 11, 3, 17, 10, 0, 0, 0};
    std::filesystem::path Root = {}; // empty: a temporary folder
    std::filesystem::path InstalledSounds = {};
    disk::IDisk* Disk = nullptr; // null: this machine's
    OutlookFactory Outlook = {}; // empty: the real store, in the device's own folder
};

// The exit code when the program waited although the script had ended.
constexpr int kScriptEnded = -32000;

// Where and when the device is. Inherited first, it is there before the host.
struct ScriptedPlace {
    ScriptedPlace(const DeviceOptions& options, std::function<void()> onEnd)
        : Root(options.Root), Time(options.Now, std::move(onEnd)) {}

    DeviceRootFolder Root;
    posix::PosixDisk OwnDisk;
    bare::ScriptedTime Time;
};

class HeadlessHost : public ScriptedPlace, public bare::BareHost {
  public:
    explicit HeadlessHost(const DeviceOptions& options);

    IDrawing& Drawing() override { return Drawn; }

    IRegistry& Registry() override { return RegistryCalls; }

    IProcesses& Processes() override { return ProcessCalls; }

    ISound& Sound() override { return SoundCalls; }

    Status CoInitializeEx() override;
    void CoUninitialize() override;
    Status CoCreateInstance(ComPtr<IPOutlookApp>& outlook) override;

    ErrorCode GetLastError() override { return LastError; }

    MeasuredFace& Find(shell::ChromeFont font) override { return Faces.Find(font); }

    // For tests.
    RecordedDrawing Drawn;
    Sightings Seen{Drawn};
    RecordedProcesses ProcessCalls;
    RecordedRegistry RegistryCalls;
    RecordedSound SoundCalls{OwnFiles};
    OutlookFactory Outlook;
    ErrorCode LastError = ErrorCode::Success;
    Status ComStatus = Status::Ok; // what CoInitializeEx answers
    int ComUses = 0;               // CoInitializeEx less CoUninitialize

  private:
    void OnChange(shell::Change change, WindowHandle window) override;

    shell::ChromeFaces<MeasuredFace> Faces;
};

} // namespace tavo::headless
