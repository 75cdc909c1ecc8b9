// All ink controls of the device, answering the program and fitted into the shell's windows.
#pragma once

#include "host/ink/ink_control.h"
#include "host/shell/shell.h"
#include "platform/clock.h"

#include <functional>
#include <map>
#include <memory>

namespace tavo::ink {

class InkDesk final : public IInk {
  public:
    explicit InkDesk(shell::Shell& shell) : State(shell) {}

    // Where strokes get their time from.
    void SetClock(IClock& clock);

    int SendMessageW(WindowHandle ink, MessageNumber number, int first, int second) override;
    std::vector<std::uint8_t> GetData(WindowHandle ink) override;
    bool SetData(WindowHandle ink, std::span<const std::uint8_t> data) override;

    // Made when it is first asked for. It is as large as the shell's control.
    InkControl& Find(WindowHandle ink) { return *FindEntry(ink).Control; }

    // The control goes.
    void Drop(WindowHandle ink) { Entries.erase(ink); }

    // A person sees all controls now.
    void NoteShown();

    InkShared& Shared() { return Common; }

    // Called with the control that looks different.
    void SetWatch(std::function<void(WindowHandle)> watch) { Watch = std::move(watch); }

  private:
    struct Entry {
        std::unique_ptr<InkControl> Control;
        Rect WithBar; // its place after it grew by the recorder bar; empty when it did not
    };

    Entry& FindEntry(WindowHandle ink);
    void MakeRoomForBar(WindowHandle ink, Entry& entry, bool shown);

    shell::Shell& State;
    InkShared Common;
    std::map<WindowHandle, Entry> Entries;
    std::function<void(WindowHandle)> Watch;
};

} // namespace tavo::ink
