// All ink controls of the device, answering the program and fitted into the shell's windows.
#pragma once

#include "host/ink/ink_control.h"
#include "host/ink/recovery_file.h"
#include "host/ink/recovery_folder.h"
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

    // Where ink is kept while it is being written; without a folder it is not.
    void SetRecovery(disk::IDisk& disk, std::string folder) { Recovery.emplace(disk, std::move(folder)); }

    int SendMessageW(WindowHandle ink, MessageNumber number, int first, int second) override;
    std::vector<std::uint8_t> GetData(WindowHandle ink) override;
    bool SetData(WindowHandle ink, std::span<const std::uint8_t> data) override;
    void SetHome(WindowHandle ink, std::span<const std::uint8_t> home) override;
    void LeaveForRecovery(WindowHandle ink) override;
    std::u16string HoldInk(std::span<const std::uint8_t> home, std::span<const std::uint8_t> data) override;
    std::vector<RecoveredInk> FindRecovered() override;
    void EndRecovered(std::u16string_view name, RecoveredInkEnd end) override;

    // Made when it is first asked for. It is as large as the shell's control.
    InkControl& Find(WindowHandle ink) { return *FindEntry(ink).Control; }

    // The control goes.
    void Drop(WindowHandle ink) { Entries.erase(ink); }

    // Brings the recovery files up to what was written since. To be called within a second of a change.
    void SaveRecovery();

    // A person sees all controls now.
    void NoteShown();

    InkShared& Shared() { return Common; }

    // Called with the control that looks different.
    void SetWatch(std::function<void(WindowHandle)> watch) { Watch = std::move(watch); }

  private:
    struct Entry {
        std::unique_ptr<InkControl> Control;
        std::unique_ptr<RecoveryFile> Saved;
        std::vector<std::uint8_t> Home;
        Rect WithBar; // its place after it grew by the recorder bar; empty when it did not
    };

    Entry& FindEntry(WindowHandle ink);
    void Save(Entry& entry);
    void MakeRoomForBar(WindowHandle ink, Entry& entry, bool shown);

    shell::Shell& State;
    InkShared Common;
    IClock* Clock = nullptr;
    std::optional<RecoveryFolder> Recovery;
    std::map<WindowHandle, Entry> Entries;
    std::map<std::u16string, std::unique_ptr<RecoveryFile>, std::less<>> Held; // by name
    std::function<void(WindowHandle)> Watch;
};

} // namespace tavo::ink
