// One item in words.
#include "tools/item_text.h"

#include "host/locale/harmless_text.h"
#include "host/locale/utf.h"
#include "tools/repeat_text.h"
#include "tools/store_days.h"

#include <array>

namespace tavo::tools {
namespace {

// In the greatest unit of which it is a whole number.
std::string DescribeMinutes(int minutes) {
    constexpr int perHour = 60;
    constexpr int perDay = 24 * perHour;
    const int unit = minutes % perDay == 0 ? perDay : (minutes % perHour == 0 ? perHour : 1);
    const std::string name = unit == perDay ? "day" : (unit == perHour ? "hour" : "minute");
    return std::to_string(minutes / unit) + " " + name + (minutes == unit ? "" : "s");
}

} // namespace

std::string DescribeSpan(const rules::StoredItem& item) {
    const rules::DayNumber first = rules::DayOf(item.Start);
    const std::string firstDay = WriteDayWithWeekday(DayFromNumber(first));
    if (item.AllDay) {
        const rules::DayNumber last = rules::EndDayOf(item.Start, item.End);
        return firstDay + (last > first ? " - " + WriteDayWithWeekday(DayFromNumber(last)) : "") + ", all day";
    }
    std::string start = firstDay + " " + WriteClock(MinuteOf(item.Start));
    if (item.End == item.Start) {
        return start;
    }
    const rules::DayNumber last = rules::DayOf(item.End);
    const std::string lastDay = last > first ? WriteDayWithWeekday(DayFromNumber(last)) + " " : "";
    return start + " - " + lastDay + WriteClock(MinuteOf(item.End));
}

std::string DescribeReminder(const rules::StoredItem& item) {
    if (!item.ReminderSet) {
        return {};
    }
    return "reminder " +
           (item.ReminderMinutes == 0 ? "at its start" : DescribeMinutes(item.ReminderMinutes) + " before");
}

std::string DescribeSound(const rules::StoredItem& item) {
    const bool rings = item.ReminderSet && (item.ReminderOptions & kReminderSound) != 0 && !item.ReminderSound.empty();
    return rings ? "with " + locale::MakeHarmless(locale::ToUtf8(item.ReminderSound)) : std::string();
}

std::string DescribeItem(const rules::StoredItem& item, ExportKind kind) {
    std::string text = DescribeSubject(item);
    const std::string reminder = kind == ExportKind::Alarm ? std::string() : DescribeReminder(item);
    for (const std::string& part : {DescribeSpan(item), DescribeRepetition(item), reminder, DescribeSound(item)}) {
        text += part.empty() ? "" : ", " + part;
    }
    return text + (kind == ExportKind::Appointment ? "" : "  [" + std::string(NameKind(kind)) + "]");
}

std::string DescribeSubject(const rules::StoredItem& item) {
    return item.Subject.empty() ? "(no subject)" : locale::MakeHarmless(locale::ToUtf8(item.Subject));
}

std::string DescribeNoOccurrence(Oid item, Day day, Status why) {
    const std::string number = "item " + std::to_string(item);
    return why == Status::InvalidArgument ? number + " takes place once: leave --on away"
                                          : number + " does not begin on " + WriteDayWithWeekday(day);
}

std::string WriteIsoTime(rules::Seconds time) {
    return WriteIsoDay(DayFromNumber(rules::DayOf(time))) + "T" + WriteClock(MinuteOf(time));
}

std::string_view NameKind(ExportKind kind) {
    constexpr std::array<std::string_view, 4> names = {"Alarm", "Holiday", "Anniversary", "Appointment"};
    return names[static_cast<std::size_t>(kind)];
}

} // namespace tavo::tools
