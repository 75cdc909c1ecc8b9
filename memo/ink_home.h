// What a piece of ink belongs to, so that it can go back there after a crash or a cancelled editor.
#pragma once

#include "platform/outlook.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tavo {

struct InkHome {
    std::u16string Memo; // path of the memo file that it came from; empty: of none
    Oid Item = 0;        // the item whose note it is; 0: of none, or of one that the store does not know yet
    SYSTEMTIME Day;      // where it can go nowhere else it becomes a memo of this day; year 0: of the day it was begun
    std::uint64_t Before = 0; // FingerprintOf what memo or note held when the editor opened

    friend bool operator==(const InkHome&, const InkHome&) = default;
};

// Tells two pieces of ink apart; of no bytes it is 0.
std::uint64_t FingerprintOf(std::span<const std::uint8_t> ink);

std::vector<std::uint8_t> EncodeInkHome(const InkHome& home);
// Nothing when the bytes are not of EncodeInkHome, or of a later program.
std::optional<InkHome> DecodeInkHome(std::span<const std::uint8_t> bytes);

} // namespace tavo
