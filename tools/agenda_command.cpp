// tavo agenda: lists occurrences.
#include "tools/agenda_text.h"
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/output.h"
#include "tools/store_days.h"

#include "host/locale/harmless_text.h"
#include "host/outlook/export_reader.h"

#include <algorithm>
#include <string>
#include <vector>

namespace tavo::tools {
namespace {

constexpr std::string_view kHowToBegin =
    "The calendar is empty. `tavo import` brings calendar files into it, `tavo add`"
    " an appointment.\n";
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

std::string DescribeNothing(const Days& days) {
    const std::string first = WriteLongDay(days.First);
    return days.First == days.Last ? "Nothing on " + first + ".\n"
                                   : "Nothing from " + first + " to " + WriteLongDay(days.Last) + ".\n";
}

// Whether there is nothing at all in the calendar; null is none yet.
bool HoldsNothing(const outlook::StorePtr& store) {
    std::vector<Oid> all;
    return !store || (Succeeded(outlook::ExportReader(store).List(all)) && all.empty());
}

// One sentence; "" when nothing was left out.
std::string DescribeLeftOut(outlook::OccurrenceReader& reader) {
    constexpr std::size_t kNamed = 3;
    const std::vector<Oid>& leftOut = reader.GetLeftOut();
    std::string names;
    for (std::size_t index = 0; index < std::min(leftOut.size(), kNamed); ++index) {
        const std::string subject = locale::MakeHarmless(reader.ReadSubject(leftOut[index]));
        names += (index > 0 ? ", " : " ") + (subject.empty() ? "No Subject" : subject) + " (item " +
                 std::to_string(leftOut[index]) + ")";
    }
    if (names.empty()) {
        return "";
    }
    names += leftOut.size() > kNamed ? " and " + std::to_string(leftOut.size() - kNamed) + " more" : "";
    return "Left out, because it cannot be worked out when they recur, or would take too long:" + names +
           ". See `tavo check`.";
}

template <class Agenda> Status List(const outlook::StorePtr& store, const Days& days, Agenda& agenda, std::string& text,
                                    Output& output, bool& any) {
    outlook::OccurrenceReader reader(store);
    const Status status =
        reader.ListDays(NumberOf(days.First), NumberOf(days.Last), [&](const outlook::ListedOccurrence& occurrence) {
            agenda.Add(occurrence, text);
            any = true;
            if (text.size() > kFlushSize) {
                output.Write(text);
                text.clear();
            }
        });
    if (const std::string leftOut = DescribeLeftOut(reader); Succeeded(status) && !leftOut.empty()) {
        Complain(leftOut);
    }
    return status;
}

// `store` is null when there is none yet.
Status ListAs(ListFormat format, const outlook::StorePtr& store, const Days& days, Output& output) {
    std::string text;
    Records records(format, text);
    RecordedAgenda recorded(records);
    TabbedAgenda tabbed;
    DailyAgenda daily(NumberOf(days.First), NumberOf(days.Last));
    bool any = false;
    Status status = Status::Ok;
    switch (format) {
    case ListFormat::Json:
        status = store ? List(store, days, recorded, text, output, any) : status;
        records.Finish();
        break;
    case ListFormat::Tabbed:
        status = store ? List(store, days, tabbed, text, output, any) : status;
        break;
    case ListFormat::People:
        status = store ? List(store, days, daily, text, output, any) : status;
        daily.Finish(text);
        text += any ? "" : DescribeNothing(days) + std::string(HoldsNothing(store) ? kHowToBegin : "");
        break;
    }
    if (Succeeded(status)) {
        output.Write(text);
    }
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
    if (const Status status = ListAs(options.Format, *store, days, output); Failed(status)) {
        Complain("The calendar cannot be read: " + DescribeFailure(status) + ".");
        return kExitFailure;
    }
    return output.Finish() ? kExitSuccess : kExitFailure;
}

} // namespace tavo::tools
