// A recovery file that no control writes.
#include "memo/waiting_ink.h"

#include <utility>

namespace tavo {

void WaitingInk::Hold(const InkHome& home, std::span<const std::uint8_t> ink) {
    std::u16string held = Host.Ink().HoldInk(EncodeInkHome(home), ink);
    if (!held.empty()) {
        LetGo();
        Name = std::move(held);
    }
}

void WaitingInk::LetGo() {
    if (!Name.empty()) {
        Host.Ink().EndRecovered(std::exchange(Name, {}), RecoveredInkEnd::Kept);
    }
}

} // namespace tavo
