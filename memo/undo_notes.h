// What the program notes in a group of changes about ink and memos, which the store itself does not know.
#pragma once

#include "memo/ink_home.h"

#include <cstdint>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace tavo {

// A memo file that lies in the Deleted folder now.
struct MemoPutAway {
    std::u16string Path; // where it was
    std::u16string Kept; // where it lies
};

// Whether it leads from a folder's deleted memos to its memos, as every note that this program writes.
bool IsFromDeleted(const MemoPutAway& memo);

// Ink that was drawn in an editor which was then cancelled.
struct InkCancelled {
    InkHome Home;
    SYSTEMTIME Begun;
    std::vector<std::uint8_t> Ink;
};

// Neither: a note of a later program, or none of ours.
using UndoNote = std::variant<std::monostate, MemoPutAway, InkCancelled>;

std::vector<std::uint8_t> EncodeNote(const MemoPutAway& note);
std::vector<std::uint8_t> EncodeNote(const InkCancelled& note);
UndoNote DecodeNote(std::span<const std::uint8_t> bytes);

} // namespace tavo
