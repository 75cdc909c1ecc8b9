// Feeds any bytes to the readers of what the program notes about ink and memos in recovery files and the store's
// journal.
#include "memo/undo_notes.h"

#include <algorithm>
#include <cstdlib>

namespace {

using namespace tavo;

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span<const std::uint8_t> bytes(data, size);
    // What was read is written as the same bytes.
    if (const std::optional<InkHome> home = DecodeInkHome(bytes); home.has_value()) {
        Require(std::ranges::equal(EncodeInkHome(*home), bytes));
    }
    const UndoNote note = DecodeNote(bytes);
    if (const auto* memo = std::get_if<MemoPutAway>(&note)) {
        Require(std::ranges::equal(EncodeNote(*memo), bytes));
    } else if (const auto* ink = std::get_if<InkCancelled>(&note)) {
        Require(!ink->Ink.empty() && ink->Ink.size() < size);
        const UndoNote again = DecodeNote(EncodeNote(*ink));
        const auto* same = std::get_if<InkCancelled>(&again);
        Require(same != nullptr && same->Home == ink->Home && same->Begun == ink->Begun && same->Ink == ink->Ink);
    }
    return 0;
}
