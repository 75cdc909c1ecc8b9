// Ink that an item is to be saved with, safe from a crash until then.
#pragma once

#include "memo/ink_home.h"
#include "platform/host.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tavo {

// Holds one piece of ink at most; lets go of it at its own end.
class WaitingInk {
  public:
    explicit WaitingInk(IHost& host) : Host(host) {}

    ~WaitingInk() { LetGo(); }

    WaitingInk(const WaitingInk&) = delete;
    WaitingInk& operator=(const WaitingInk&) = delete;

    // In place of what it held before. Where nothing can be written it goes on holding that.
    void Hold(const InkHome& home, std::span<const std::uint8_t> ink);

    // Goes on with ink that an earlier run of the program held.
    void Take(std::u16string_view name) { Name = name; }

    // Its name among recovered ink; empty when nothing is held.
    const std::u16string& HeldName() const { return Name; }

    // It was saved, or nobody wants it.
    void LetGo();

    // The next start asks what is to become of it.
    void LeaveForRecovery() { Name.clear(); }

  private:
    IHost& Host;
    std::u16string Name; // empty: nothing is held
};

} // namespace tavo
