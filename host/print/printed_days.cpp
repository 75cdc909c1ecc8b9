// From the store's list of occurrences.
#include "host/print/printed_days.h"

#include "host/locale/harmless_text.h"
#include "host/locale/utf.h"

#include <algorithm>
#include <utility>

namespace tavo::print {
namespace {

using outlook::ListedOccurrence;

constexpr std::u16string_view kNoSubject = u"(no subject)";
constexpr std::u16string_view kAllDay = u"all day";

std::u16string WriteTime(rules::Seconds time) {
    constexpr int minute = 60;
    constexpr int hour = 3600;
    const auto seconds = static_cast<int>(rules::TimeOfDay(time));
    const int minutes = seconds / minute % minute;
    const std::string text = std::to_string(seconds / hour) + (minutes < 10 ? ":0" : ":") + std::to_string(minutes);
    return locale::ToUtf16(text);
}

std::u16string ToLine(std::string_view text) {
    return locale::ToUtf16(locale::MakeHarmless(text));
}

PrintedEntry DescribeOn(const ListedOccurrence& one, DayNumber day, DayNumber lastDay) {
    PrintedEntry entry;
    entry.Subject = one.Subject.empty() ? std::u16string(kNoSubject) : ToLine(one.Subject);
    entry.Location = ToLine(one.Location);
    entry.Kind = one.Kind;
    const bool isFirst = day == rules::DayOf(one.Start);
    const bool isLast = day == lastDay;
    if (one.AllDay || (!isFirst && !isLast)) {
        entry.Time = kAllDay;
        return entry;
    }
    if (isFirst) {
        entry.Start = WriteTime(one.Start);
        entry.Time = one.End > one.Start && isLast ? entry.Start + u" - " + WriteTime(one.End)
                     : isLast                      ? entry.Start
                                                   : entry.Start + u" -";
    } else {
        entry.Time = u"- " + WriteTime(one.End);
    }
    return entry;
}

} // namespace

Status ReadDays(const outlook::StorePtr& store, DayNumber first, DayNumber last, PrintedDays& days) {
    return outlook::OccurrenceReader(store).ListDays(first, last, [&](const ListedOccurrence& one) {
        const DayNumber lastDay = rules::EndDayOf(one.Start, one.End);
        for (DayNumber day = std::max(first, rules::DayOf(one.Start)); day <= std::min(last, lastDay); ++day) {
            days[day].push_back(DescribeOn(one, day, lastDay));
        }
    });
}

} // namespace tavo::print
