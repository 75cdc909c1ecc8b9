// Reads the range of an item's pattern.
#include "store/pattern_range.h"

namespace tavo {

std::optional<PatternRange> LoadPatternRange(Oid oid, OutlookSession& store, ILocale& locale) {
    ComPtr<IAppointment> item;
    if (!store.OutlookApp || Failed(store.OutlookApp->GetItemFromOid(oid, item)) || !item) {
        return std::nullopt;
    }
    bool recurring = false;
    ComPtr<IRecurrencePattern> pattern;
    if (Failed(item->get_IsRecurring(recurring)) || !recurring || Failed(item->GetRecurrencePattern(pattern))) {
        return std::nullopt;
    }
    PatternRange range;
    DATE date = kNoDate;
    if (Failed(pattern->get_PatternStartDate(date)) || !locale.VariantTimeToSystemTime(date, range.First)) {
        return std::nullopt;
    }
    bool noEnd = true;
    SYSTEMTIME last;
    if (Succeeded(pattern->get_NoEndDate(noEnd)) && !noEnd && Succeeded(pattern->get_PatternEndDate(date)) &&
        locale.VariantTimeToSystemTime(date, last)) {
        range.Last = last;
    }
    return range;
}

} // namespace tavo
