// What an item of a kind always is.
#include "tools/item_kind.h"

namespace tavo::tools {
namespace {

bool Refuse(const char* sentence, std::string& error) {
    error = sentence;
    return false;
}

bool FitAlarm(const ItemOptions& options, ItemTimes& times, std::string& error) {
    if (times.AllDay) {
        return Refuse("An alarm has a time: say it with --start.", error);
    }
    if (options.End || (options.For && options.For->Minutes > 0)) {
        return Refuse("An alarm has no length: leave --end and --for away.", error);
    }
    if (options.NoRemind || options.Remind.value_or(0) > 0) {
        return Refuse("An alarm reminds at its own time: leave --remind and --no-remind away.", error);
    }
    times.End = times.Start;
    return true;
}

bool FitDay(const ItemOptions& options, ItemTimes& times, std::string& error) {
    if ((options.Start && options.Start->Minute) || (options.End && options.End->Minute)) {
        return Refuse("Holidays and anniversaries last all day: leave the time away.", error);
    }
    if (options.For || (options.End && times.End != times.Start)) {
        return Refuse("Holidays and anniversaries are one day: leave --end and --for away.", error);
    }
    times.AllDay = true;
    times.Start = rules::MidnightOf(rules::DayOf(times.Start));
    times.End = times.Start;
    return true;
}

} // namespace

bool FitToKind(ExportKind kind, const ItemOptions& options, ItemTimes& times, std::string& error) {
    switch (kind) {
    case ExportKind::Alarm:
        return FitAlarm(options, times, error);
    case ExportKind::Holiday:
    case ExportKind::Anniversary:
        return FitDay(options, times, error);
    case ExportKind::Appointment:
        break;
    }
    return true;
}

} // namespace tavo::tools
