// A recovery file that no control writes.
#include "memo/waiting_ink.h"

#include <utility>

namespace tavo {

void WaitingInk::Hold(const InkHome& home, std::span<const std::uint8_t> ink) {
    const std::u16string before = std::exchange(Name, Host.Ink().HoldInk(EncodeInkHome(home), ink));
    if (!before.empty()) {
        Host.Ink().EndRecovered(before, RecoveredInkEnd::Kept);
    }
}

void WaitingInk::LetGo() {
    if (!Name.empty()) {
        Host.Ink().EndRecovered(std::exchange(Name, {}), RecoveredInkEnd::Kept);
    }
}

} // namespace tavo
