// tavo month: a small grid whose days bear marks.
#include "host/outlook/occurrence_reader.h"
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/output.h"
#include "tools/store_days.h"

#include <unistd.h>

#include <array>
#include <cstdlib>

namespace tavo::tools {
namespace {

using outlook::ListedOccurrence;
using outlook::MirroredKind;

constexpr std::size_t kKinds = 4;
constexpr std::size_t kMostDays = 31;

// What there is on each day: of the kinds, by their bits.
using Marks = std::array<unsigned, kMostDays>;

struct Mark {
    std::string_view Sign;
    std::string_view Colour; // of the terminal's own, so that its scheme is kept
    std::string_view Name;
};

// The first of them that a day has is shown.
constexpr std::array<std::pair<MirroredKind, Mark>, kKinds> kMarks{{
    {MirroredKind::Holiday, {"*", "\x1b[31m", "holiday"}},
    {MirroredKind::Anniversary, {"+", "\x1b[35m", "anniversary"}},
    {MirroredKind::Alarm, {"!", "\x1b[33m", "alarm"}},
    {MirroredKind::Appointment, {".", "\x1b[36m", "appointment"}},
}};
constexpr std::string_view kToday = "\x1b[7m";
constexpr std::string_view kPlain = "\x1b[0m";

bool WantsColour() {
    const char* refused = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    const bool isDumb = terminal == nullptr || std::string_view(terminal) == "dumb";
    return (refused == nullptr || *refused == '\0') && !isDumb && isatty(STDOUT_FILENO) != 0;
}

Status ReadMarks(const outlook::StorePtr& store, Day first, Day last, Marks& marks) {
    const rules::DayNumber begin = NumberOf(first);
    const rules::DayNumber end = NumberOf(last);
    return outlook::OccurrenceReader(store).ListDays(begin, end, [&](const ListedOccurrence& one) {
        const rules::DayNumber from = std::max(begin, rules::DayOf(one.Start));
        const rules::DayNumber to = std::min(end, rules::EndDayOf(one.Start, one.End));
        for (rules::DayNumber day = from; day <= to; ++day) {
            marks[static_cast<std::size_t>(day - begin)] |= 1U << static_cast<unsigned>(one.Kind);
        }
    });
}

const Mark* FindMark(unsigned kinds) {
    for (const auto& [kind, mark] : kMarks) {
        if ((kinds >> static_cast<unsigned>(kind) & 1) != 0) {
            return &mark;
        }
    }
    return nullptr;
}

// "12." of four columns, the colour not counted.
std::string DrawDay(unsigned day, unsigned kinds, bool isToday, bool inColour) {
    const Mark* mark = FindMark(kinds);
    const std::string number = (day < 10 ? " " : "") + std::to_string(day);
    const std::string sign(mark != nullptr ? mark->Sign : (isToday && !inColour ? "<" : " "));
    if (!inColour || (mark == nullptr && !isToday)) {
        return " " + number + sign;
    }
    return " " + std::string(mark != nullptr ? mark->Colour : "") + std::string(isToday ? kToday : "") + number +
           std::string(kPlain) + std::string(mark != nullptr ? mark->Colour : "") + sign + std::string(kPlain);
}

std::string DrawLegend(const Marks& marks, bool inColour) {
    unsigned all = 0;
    for (const unsigned kinds : marks) {
        all |= kinds;
    }
    std::string text;
    for (const auto& [kind, mark] : kMarks) {
        if ((all >> static_cast<unsigned>(kind) & 1) != 0) {
            text += (text.empty() ? "\n " : "  ") + std::string(inColour ? mark.Colour : "") + std::string(mark.Sign) +
                    std::string(inColour ? kPlain : "") + " " + std::string(mark.Name);
        }
    }
    return text.empty() ? text : text + "\n";
}

std::string DrawMonth(Day first, const Marks& marks, bool inColour) {
    constexpr std::size_t width = 28;
    const std::chrono::year_month_day date(first);
    const std::string title = std::string(NameMonth(static_cast<unsigned>(date.month()))) + " " +
                              std::to_string(static_cast<int>(date.year()));
    std::string text((width - std::min(width, title.size())) / 2 + 1, ' ');
    text += title + "\n  Mo  Tu  We  Th  Fr  Sa  Su\n";
    auto column = static_cast<unsigned>((std::chrono::weekday(first) - std::chrono::Monday).count());
    text.append(std::size_t{4} * column, ' ');
    const Day today = GetToday();
    for (Day day = first; std::chrono::year_month_day(day).month() == date.month(); day += std::chrono::days(1)) {
        const auto number = static_cast<unsigned>(std::chrono::year_month_day(day).day());
        text += DrawDay(number, marks[number - 1], day == today, inColour);
        column = (column + 1) % 7;
        text += column == 0 ? "\n" : "";
    }
    return text + (column == 0 ? "" : "\n") + DrawLegend(marks, inColour);
}

} // namespace

int RunMonth(const AgendaOptions& options) {
    if (options.Format != ListFormat::People) {
        return RunAgenda(options);
    }
    const std::optional<files::DeviceRoot> root = FindRoot();
    const std::optional<outlook::StorePtr> store = root ? OpenStoreToRead(*root) : std::nullopt;
    if (!store) {
        return kExitFailure;
    }
    Marks marks{};
    const Status status = *store ? ReadMarks(*store, *options.From, *options.To, marks) : Status::Ok;
    if (Failed(status)) {
        Complain("The calendar cannot be read: " + DescribeFailure(status) + ".");
        return kExitFailure;
    }
    return Print(DrawMonth(*options.From, marks, WantsColour()));
}

} // namespace tavo::tools
