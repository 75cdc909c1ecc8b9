// One item in words.
#include "tools/item_text.h"

#include "host/locale/harmless_text.h"
#include "host/locale/utf.h"
#include "tools/store_days.h"

namespace tavo::tools {

std::string DescribeSpan(const rules::StoredItem& item) {
    const rules::DayNumber first = rules::DayOf(item.Start);
    const std::string firstDay = WriteDayWithWeekday(DayFromNumber(first));
    if (item.AllDay) {
        const rules::DayNumber last = rules::EndDayOf(item.Start, item.End);
        return firstDay + (last > first ? " - " + WriteDayWithWeekday(DayFromNumber(last)) : "") + ", all day";
    }
    const std::string start = firstDay + " " + WriteClock(MinuteOf(item.Start));
    if (item.End == item.Start) {
        return start;
    }
    const rules::DayNumber last = rules::DayOf(item.End);
    const std::string lastDay = last > first ? WriteDayWithWeekday(DayFromNumber(last)) + " " : "";
    return start + " - " + lastDay + WriteClock(MinuteOf(item.End));
}

std::string DescribeItem(const rules::StoredItem& item) {
    const std::string subject = locale::MakeHarmless(locale::ToUtf8(item.Subject));
    return (subject.empty() ? "(no subject)" : subject) + ", " + DescribeSpan(item);
}

} // namespace tavo::tools
