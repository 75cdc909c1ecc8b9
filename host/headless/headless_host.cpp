// Putting the scripted device together.
#include "host/headless/headless_host.h"

namespace tavo::headless {

HeadlessHost::HeadlessHost(const DeviceOptions& options)
    : Root(options.Root), Time(options.Now, [this] { OwnQueue.PostQuitMessage(kScriptEnded); }),
      OwnFiles({Root.Path().string(), options.InstalledSounds.string()}), Outlook(options.Outlook) {
    Seen.Watch(State);
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
    if (!Outlook) {
        return Status::Fail;
    }
    return Outlook(Root.Path() / "Outlook.db", outlook);
}

} // namespace tavo::headless
