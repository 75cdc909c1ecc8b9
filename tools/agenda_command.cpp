// tavo agenda: lists occurrences.
#include "tools/agenda_text.h"
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/output.h"

#include <algorithm>

namespace tavo::tools {
namespace {

constexpr std::size_t kFlushSize = std::size_t{64} * 1024;

struct Days {
    Day First;
    Day Last;
};

// A day that was not given is today, but never on the wrong side of the one that was.
Days ChooseDays(const AgendaOptions& options) {
    if (options.From && options.To) {
        return {*options.From, *options.To};
    }
    const Day today = GetToday();
    const Day first = options.From.value_or(options.To ? std::min(today, *options.To) : today);
    return {first, options.To.value_or(std::max(today, first))};
}

outlook::DayNumber NumberOf(Day day) {
    return day.time_since_epoch().count() + outlook::kUnixEpochDay;
}

std::string DescribeNothing(const Days& days) {
    const std::string first = WriteLongDay(days.First);
    return days.First == days.Last ? "Nothing on " + first + ".\n"
                                   : "Nothing from " + first + " to " + WriteLongDay(days.Last) + ".\n";
}

template <class Agenda>
Status List(const outlook::StorePtr& store, const Days& days, Agenda agenda, Output& output, bool& any) {
    outlook::OccurrenceReader reader(store);
    std::string text;
    const Status status =
        reader.ListDays(NumberOf(days.First), NumberOf(days.Last), [&](const outlook::ListedOccurrence& occurrence) {
            agenda.Add(occurrence, text);
            any = true;
            if (text.size() > kFlushSize) {
                output.Write(text);
                text.clear();
            }
        });
    output.Write(text);
    return status;
}

} // namespace

int RunAgenda(const AgendaOptions& options) {
    const Days days = ChooseDays(options);
    const std::optional<files::DeviceRoot> root = FindRoot();
    const std::optional<outlook::StorePtr> store = root ? OpenStoreToRead(*root) : std::nullopt;
    if (!store) {
        return kExitFailure;
    }
    Output output;
    bool any = false;
    if (*store) {
        const Status status = options.TabSeparated ? List(*store, days, TabbedAgenda(), output, any)
                                                   : List(*store, days, DailyAgenda(NumberOf(days.First)), output, any);
        if (Failed(status)) {
            Complain("The calendar cannot be read: " + DescribeFailure(status) + ".");
            return kExitFailure;
        }
    }
    if (!any && !options.TabSeparated) {
        output.Write(DescribeNothing(days));
    }
    return output.Finish() ? kExitSuccess : kExitFailure;
}

} // namespace tavo::tools
