// The memo dialogs on a scripted device with a real store, and the words in which their tests work them.
#pragma once

#include "host/headless/device.h"
#include "memo/memo_files.h"
#include "res/resource_ids.h"
#include "tests/support/host_probe.h"
#include "tests/support/test_device.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tavo::test {

constexpr int kLeftOpen = -1; // the script ended before the dialog did

class MemoDesk : public OwnDevice, public StoreWords {
  public:
    explicit MemoDesk(const SYSTEMTIME& now = At(2004, 9, 15, 10, 15));
    ~MemoDesk();

    // Runs the dialog through the script; its result.
    template <class Dialog> int Run(Dialog& dialog) {
        const int result = dialog.DoModal();
        Report();
        return Pump.HasQuit() ? kLeftOpen : result;
    }

    // Steps of the script.
    void Check(std::function<void()> look) { Device.Do(std::move(look)); }

    void Draw(int y = 60); // one stroke across the paper

    ink::InkControl& Paper() { return Device.Host().Papers.Find(Device.See.Control(kInkPaper)); }

    std::size_t Strokes() { return Paper().Ink().Strokes().size(); }

    // What the menu bar of the dialog on top says of a command.
    bool CanChoose(int command);
    bool IsChecked(int command); // of an item or a button

    AppointmentData Load(Oid oid);

    std::vector<std::uint8_t> Buffer() const { return {State.Memo.Bytes().begin(), State.Memo.Bytes().end()}; }

    // All message boxes so far, as "caption|text".
    std::vector<std::u16string> Messages();

    HostProbe Host{Device.Host()};
    CMessagePump Pump{Host};
    CProgramState State{Pump};
    MemoFiles Files{State};

  private:
    const MenuItem* Item(int command);
    void Report();
};

} // namespace tavo::test
