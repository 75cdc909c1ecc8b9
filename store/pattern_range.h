// From when until when a series repeats.
#pragma once

#include "platform/locale.h"
#include "store/outlook_session.h"

#include <optional>

namespace tavo {

struct PatternRange {
    SYSTEMTIME First;
    std::optional<SYSTEMTIME> Last; // nothing: it repeats without end

    friend bool operator==(const PatternRange&, const PatternRange&) = default;
};

// Nothing when the item is gone or does not recur.
std::optional<PatternRange> LoadPatternRange(Oid oid, OutlookSession& store, ILocale& locale);

} // namespace tavo
