// The menu of the two parts.
#include "page/series_part.h"

#include "res/resource_ids.h"

#include <vector>

namespace tavo {

namespace {

MenuItem MakeEntry(int command, std::u16string_view text) {
    MenuItem entry;
    entry.Id = command;
    entry.Text = text;
    return entry;
}

} // namespace

SeriesPart AskSeriesPart(CMessagePump& pump, WindowHandle owner, const MenuPlace& place) {
    const std::vector<MenuItem> menu{MakeEntry(kCommandThisDay, u"This day"),
                                     MakeEntry(kCommandWholeSeries, u"The whole series")};
    switch (pump.TrackPopupMenu(owner, menu, place.At, place.Align)) {
    case kCommandThisDay:
        return SeriesPart::ThisDay;
    case kCommandWholeSeries:
        return SeriesPart::Whole;
    default:
        return SeriesPart::Neither;
    }
}

} // namespace tavo
