// A host without widgets of its own: everything but what paints, sounds, and starts other programs.
#pragma once

#include "host/files/device_files.h"
#include "host/ink/ink_desk.h"
#include "host/locale/us_english_locale.h"
#include "host/shell/chrome/piece.h"
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

namespace tavo::bare {

// The host that derives from it gives the fonts of the chrome, in which controls are shown too.
class BareHost : public IHost, public shell::IChromeFonts, protected shell::IShellObserver {
  public:
    // The device's files lie in the folders at these places of the disk. `outside` lets in what people do. All three
    // must outlive the host.
    BareHost(disk::IDisk& disk, const files::DeviceFilesPlaces& places, shell::IEventSource& outside, IClock& clock);
    ~BareHost() override;

    IMessageQueue& Queue() override { return OwnQueue; }

    IWindows& Windows() override { return OwnWindows; }

    IControls& Controls() override { return OwnControls; }

    IMenus& Menus() override { return OwnMenus; }

    IInk& Ink() override { return Papers; }

    IInputPanel& InputPanel() override { return Panel; }

    IFiles& Files() override { return OwnFiles; }

    IClock& Clock() override { return OwnClock; }

    ILocale& Locale() override { return OwnLocale; }

    shell::Shell State;
    shell::NavigationInput Navigation{State};
    shell::StylusInput Stylus{State, Navigation};
    shell::KeyInput Keys{State, Navigation};
    shell::ControlInput ControlActions{State};
    shell::ItemRequest Items{State};
    shell::FileRequest Opened{State};
    ink::InkDesk Papers{State};
    files::DeviceFiles OwnFiles;

    // The bars and boxes around the program's windows, as they are now.
    shell::Chrome& Chrome();

    // To be called when the program has nothing left to do and is about to wait for the outside. True when there is
    // something for it to do first.
    bool PrepareWait();

    bool HasQuit() const { return OwnQueue.HasQuit(); }

  protected:
    void OnChange(shell::Change change, WindowHandle window) override;

  private:
    IClock& OwnClock;
    shell::ShellQueue OwnQueue{State};
    shell::ShellWindows OwnWindows{State};
    shell::ShellControls OwnControls{State, OwnClock};
    shell::ShellMenus OwnMenus{State};
    shell::ShellInputPanel Panel{State};
    locale::UsEnglishLocale OwnLocale;
    std::unique_ptr<shell::Chrome> OwnChrome;
};

} // namespace tavo::bare
