// The two ways in which `tavo agenda` writes occurrences.
#include "tools/agenda_text.h"

#include "host/locale/harmless_text.h"
#include "tools/item_text.h"
#include "tools/store_days.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace tavo::tools {
namespace {

using outlook::ListedOccurrence;
using outlook::MirroredKind;
using rules::DayNumber;
using rules::Seconds;

constexpr std::string_view kNoSubject = "(no subject)";
constexpr std::size_t kTimeColumn = 17;

std::string_view NameKind(MirroredKind kind) {
    return tools::NameKind(static_cast<ExportKind>(kind));
}

void AppendClock(Seconds time, std::string& text) {
    const auto minutes = static_cast<int>(rules::TimeOfDay(time) / 60);
    const auto digit = [](int number) { return static_cast<char>('0' + number); };
    const std::array<char, 5> clock{digit(minutes / 600), digit(minutes / 60 % 10), ':', digit(minutes % 60 / 10),
                                    digit(minutes % 10)};
    text.append(clock.data(), clock.size());
}

std::string MakeClock(Seconds time) {
    std::string text;
    AppendClock(time, text);
    return text;
}

// When an occurrence is, told on the day that it is listed under.
std::string DescribeTimes(const ListedOccurrence& occurrence, DayNumber day) {
    const DayNumber startDay = rules::DayOf(occurrence.Start);
    const DayNumber lastDay = rules::EndDayOf(occurrence.Start, occurrence.End);
    const std::string lastDayName = WriteShortDay(DayFromNumber(lastDay));
    if (occurrence.AllDay) {
        return lastDay > day ? "all day to " + lastDayName : "all day";
    }
    if (startDay < day) {
        return "to " + (lastDay > day ? lastDayName : MakeClock(occurrence.End));
    }
    if (occurrence.End == occurrence.Start) {
        return MakeClock(occurrence.Start);
    }
    return MakeClock(occurrence.Start) + " - " + (lastDay > day ? lastDayName : MakeClock(occurrence.End));
}

} // namespace

void TabbedAgenda::Add(const ListedOccurrence& occurrence, std::string& text) {
    AddTime(occurrence.Start, text);
    text += '\t';
    AddTime(occurrence.End, text);
    text += '\t';
    text += NameKind(occurrence.Kind);
    text += '\t';
    std::array<char, 16> number{};
    text.append(number.data(), std::to_chars(number.data(), number.data() + number.size(), occurrence.Item).ptr);
    text += '\t';
    locale::AppendHarmless(occurrence.Subject, text);
    text += '\n';
}

void TabbedAgenda::AddTime(Seconds time, std::string& text) {
    if (const DayNumber day = rules::DayOf(time); day != KnownDay) {
        KnownDay = day;
        KnownDate = WriteIsoDay(DayFromNumber(day)) + 'T';
    }
    text += KnownDate;
    AppendClock(time, text);
}

void RecordedAgenda::Add(const ListedOccurrence& occurrence, std::string&) {
    List.Begin();
    List.Add("start", WriteIsoTime(occurrence.Start));
    List.Add("end", WriteIsoTime(occurrence.End));
    List.Add("allDay", occurrence.AllDay);
    List.Add("kind", NameKind(occurrence.Kind));
    List.Add("item", std::int64_t{occurrence.Item});
    List.Add("recurring", occurrence.Recurring);
    List.Add("subject", occurrence.Subject);
    List.Add("location", occurrence.Location);
    List.End();
}

void DailyAgenda::Add(const ListedOccurrence& occurrence, std::string& text) {
    GoTo(std::max(Day, rules::DayOf(occurrence.Start)), text);
    Tell(occurrence, text);
    if (rules::EndDayOf(occurrence.Start, occurrence.End) > Day) {
        Longer.push_back({occurrence, std::string(occurrence.Subject), std::string(occurrence.Location)});
    }
}

void DailyAgenda::Finish(std::string& text) {
    GoTo(LastDay, text);
}

void DailyAgenda::GoTo(DayNumber day, std::string& text) {
    TellLasting(text);
    while (Day < day) {
        // Days on which nothing lasts are passed over at once.
        Day = Longer.empty() ? day : Day + 1;
        HasBegun = false;
        TellLasting(text);
    }
}

void DailyAgenda::TellLasting(std::string& text) {
    if (HasBegun) {
        return;
    }
    HasBegun = true;
    std::erase_if(
        Longer, [this](const Lasting& one) { return rules::EndDayOf(one.Occurrence.Start, one.Occurrence.End) < Day; });
    for (Lasting& one : Longer) {
        one.Occurrence.Subject = one.Subject;
        one.Occurrence.Location = one.Location;
        Tell(one.Occurrence, text);
    }
}

void DailyAgenda::Tell(const ListedOccurrence& occurrence, std::string& text) {
    if (Day != HeadedDay) {
        text += HeadedDay == kNoDay ? "" : "\n";
        text += WriteLongDay(DayFromNumber(Day)) + "\n";
        HeadedDay = Day;
    }
    std::string times = DescribeTimes(occurrence, Day);
    times.resize(std::max(kTimeColumn, times.size() + 1), ' ');
    text += "  " + times;
    locale::AppendHarmless(occurrence.Subject.empty() ? kNoSubject : occurrence.Subject, text);
    if (!occurrence.Location.empty()) {
        text += " (";
        locale::AppendHarmless(occurrence.Location, text);
        text += ')';
    }
    if (occurrence.Kind != MirroredKind::Appointment) {
        text += "  [";
        text += NameKind(occurrence.Kind);
        text += ']';
    }
    text += '\n';
}

} // namespace tavo::tools
