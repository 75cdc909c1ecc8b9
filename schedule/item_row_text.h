// The words of a row of the item lists.
#pragma once

#include "platform/locale.h"
#include "store/appointment_data.h"
#include "store/item_kind.h"
#include "store/pattern_range.h"

#include <optional>
#include <string>
#include <vector>

namespace tavo {

struct ItemRowText {
    std::u16string Heading;
    std::u16string Date;               // beside the heading; of appointments only
    std::vector<std::u16string> Lines; // below the heading
    std::u16string ShortLine;          // for the last of them, where that does not fit; may be empty

    friend bool operator==(const ItemRowText&, const ItemRowText&) = default;
};

// A row of the alarm, holiday or anniversary list. `range` is that of its pattern; of an item that does not repeat
// (nothing) the row shows its own days.
ItemRowText DescribeTaggedRow(ItemKind kind, const AppointmentData& record, const std::optional<PatternRange>& range,
                              ILocale& locale);

// A row of the appointment list, for the day that it shows of the item. Its first line below the heading says when the
// item takes place, of several days with both ends. A second one is there for an occurrence whose end follows from its
// day and length, and is shown instead.
ItemRowText DescribeAppointmentRow(const AppointmentData& record, const SYSTEMTIME& day, ILocale& locale);

} // namespace tavo
