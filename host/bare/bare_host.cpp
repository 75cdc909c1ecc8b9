// Putting the parts together.
#include "host/bare/bare_host.h"

#include "host/shell/chrome/chrome.h"

namespace tavo::bare {

BareHost::BareHost(disk::IDisk& disk, const files::DeviceFilesPlaces& places, shell::IEventSource& outside,
                   IClock& clock)
    : State(outside, this), OwnFiles(disk, places), OwnClock(clock),
      OwnChrome(std::make_unique<shell::Chrome>(State, Navigation, Stylus, *this)) {
    Papers.SetClock(OwnClock);
    Papers.SetRecovery(disk, places.Root + "/Recovery");
}

BareHost::~BareHost() = default;

shell::Chrome& BareHost::Chrome() {
    static_cast<void>(OwnChrome->Follow());
    return *OwnChrome;
}

bool BareHost::PrepareWait() {
    Papers.NoteShown();
    Papers.SaveRecovery();
    Items.Follow();
    Opened.Follow();
    return !State.Posted.IsEmpty();
}

void BareHost::OnChange(shell::Change change, WindowHandle window) {
    if (change == shell::Change::Destroyed) {
        Papers.Drop(window);
    }
    OwnChrome->Note(change, window);
}

} // namespace tavo::bare
