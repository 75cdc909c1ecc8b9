// Feeds any bytes to the reader of restrictions.
#include "host/rules/restriction.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tavo;
    std::u16string text;
    for (std::size_t index = 0; index < size; ++index) {
        // A byte above 0x7F stands for a letter beyond ASCII.
        text += static_cast<char16_t>(data[index] < 0x80 ? data[index] : 0x400 + data[index]);
    }
    rules::Restriction restriction;
    const Status status = rules::ParseRestriction(text, restriction);
    if (Failed(status)) {
        Require(status == Status::InvalidArgument && restriction.Alternatives.empty());
        return 0;
    }
    Require(restriction.BoundsStartFromAbove() == (restriction.HighestStart() < rules::kHighestTime));
    // White space and a line feed at the end change nothing.
    rules::Restriction again;
    Require(Succeeded(rules::ParseRestriction(text + u" \n", again)));
    Require(again.Alternatives.size() == restriction.Alternatives.size());
    Require(again.LowestStart() == restriction.LowestStart() && again.HighestStart() == restriction.HighestStart());
    rules::Restriction both;
    static_cast<void>(rules::CombineRestrictions(restriction, again, both)); // may be too large, never a crash
    return 0;
}
