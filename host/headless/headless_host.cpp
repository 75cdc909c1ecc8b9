// Putting the scripted device together.
#include "host/headless/headless_host.h"

#include "host/headless/chrome_faces.h"
#include "host/outlook/store.h"
#include "host/shell/chrome/chrome.h"

namespace tavo::headless {

namespace {

Status MakeRealStore(const std::filesystem::path& store, ComPtr<IPOutlookApp>& outlook) {
    outlook::StoreOptions options;
    options.DeviceZone = "UTC"; // whatever the zone of the machine that runs the test
    outlook = outlook::CreateOutlookApp(store, options);
    return outlook ? Status::Ok : Status::Fail;
}

} // namespace

HeadlessHost::HeadlessHost(const DeviceOptions& options)
    : Root(options.Root), Time(options.Now, [this] { OwnQueue.PostQuitMessage(kScriptEnded); }),
      OwnFiles({Root.Path().string(), options.InstalledSounds.string()}),
      Outlook(options.Outlook ? options.Outlook : MakeRealStore), Faces(std::make_unique<ChromeFaces>()),
      OwnChrome(std::make_unique<shell::Chrome>(State, Navigation, Stylus, *Faces)) {
    Seen.Watch(State);
    Seen.SetChanged([this](shell::Change change, WindowHandle window) {
        if (change == shell::Change::Destroyed) {
            Papers.Drop(window);
        }
        OwnChrome->Note(change, window);
    });
    Papers.SetClock(Time.Clock);
    Papers.SetRecovery((Root.Path() / "Recovery").string());
    Time.SetWaited([this] {
        Papers.NoteShown();
        Papers.SaveRecovery();
        Items.Follow();
        Opened.Follow();
        return !State.Posted.IsEmpty();
    });
}

HeadlessHost::~HeadlessHost() = default;

shell::Chrome& HeadlessHost::Chrome() {
    static_cast<void>(OwnChrome->Follow());
    return *OwnChrome;
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
