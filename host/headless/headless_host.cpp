// Putting the scripted device together.
#include "host/headless/headless_host.h"

#include "host/outlook/store.h"
#include "host/posix/store_machine.h"

namespace tavo::headless {

namespace {

Status MakeRealStore(const std::filesystem::path& store, ComPtr<IPOutlookApp>& outlook) {
    outlook::StoreOptions options;
    options.DeviceZone = "UTC"; // whatever the zone of the machine that runs the test
    outlook = outlook::CreateOutlookApp(posix::SystemMachine(), store, options);
    return outlook ? Status::Ok : Status::Fail;
}

} // namespace

HeadlessHost::HeadlessHost(const DeviceOptions& options)
    : ScriptedPlace(options, [this] { Queue().PostQuitMessage(kScriptEnded); }),
      BareHost(options.Disk == nullptr ? OwnDisk : *options.Disk,
               {Root.Path().string(), options.InstalledSounds.string()}, Time, Time.Clock),
      Outlook(options.Outlook ? options.Outlook : MakeRealStore) {
    Seen.Watch(State);
    Time.SetWaited([this] { return PrepareWait(); });
}

void HeadlessHost::OnChange(shell::Change change, WindowHandle window) {
    Seen.OnChange(change, window);
    BareHost::OnChange(change, window);
}

Status HeadlessHost::CoInitializeEx() {
    if (Succeeded(ComStatus)) {
        ++ComUses;
    }
    return ComStatus;
}

void HeadlessHost::CoUninitialize() {
    --ComUses;
}

Status HeadlessHost::CoCreateInstance(ComPtr<IPOutlookApp>& outlook) {
    return Outlook(Root.Path() / "Outlook.db", outlook);
}

} // namespace tavo::headless
