// What no ready-made part does.
#include "tests/memory_host/memory_host.h"

#include "host/bare/control_touch.h"
#include "host/bare/screen_look.h"
#include "host/shell/chrome/chrome.h"

namespace tavo::memory {

MemoryHost::MemoryHost(HostOptions options, shell::IEventSource& outside, IClock& clock)
    : BareHost(options.Disk, {options.Root.Path()}, outside, clock), Options(std::move(options)),
      OwnRegistry(Options.Disk, Options.Root.RegistryPath(), Options.Root.RunFolder() + "/Registry.lock") {}

void MemoryHost::SetScale(int scale) {
    Scale = scale;
    State.AnnounceScale();
}

Canvas MemoryHost::Paint() {
    Canvas screen(kScreenSize, Scale);
    PaintScreen(screen, *this, Drawn, Popup);
    return screen;
}

void MemoryHost::PressKey(int key, int modifiers) {
    Chrome().Box.IsOpen() ? Chrome().Box.TakeKey(key, modifiers) : bare::PressKey(*this, key, modifiers);
}

void MemoryHost::OnChange(shell::Change change, WindowHandle window) {
    BareHost::OnChange(change, window);
    Popup.Note(change);
    if (change == shell::Change::Destroyed) {
        Drawn.Forget(window);
    }
}

bool MemoryHost::PlaySoundW(std::u16string_view path) {
    Playing.clear();
    return path.empty() || OwnFiles.ReadWholeFile(path, Playing) == ErrorCode::Success;
}

Status MemoryHost::CoInitializeEx() {
    ++ComUses;
    return Status::Ok;
}

Status MemoryHost::CoCreateInstance(ComPtr<IPOutlookApp>& outlook) {
    return ComUses > 0 ? Options.CreateOutlook(outlook) : Status::Unexpected;
}

} // namespace tavo::memory
