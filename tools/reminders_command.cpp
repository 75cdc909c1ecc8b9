// tavo reminders: what will come, what was missed, what happened to each, and whether they come at all.
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/login_start.h"
#include "tools/output.h"

#include "host/locale/harmless_text.h"
#include "host/outlook/store_ledger.h"
#include "host/reminders/scheduler.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::tools {
namespace {

using reminders::LedgerState;
using reminders::Moment;

Moment Now() {
    return std::time(nullptr) + rules::kUnixEpochDay * rules::kSecondsPerDay;
}

std::string WriteWall(std::int64_t wall) {
    const rules::CivilDate date = rules::CivilFromDay(rules::DayOf(wall));
    const auto minutes = static_cast<int>(rules::TimeOfDay(wall) / 60);
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d", date.Year, date.Month, date.Day, minutes / 60,
                  minutes % 60);
    return text.data();
}

const char* NameOf(LedgerState state) {
    switch (state) {
    case LedgerState::Due:
        return "due";
    case LedgerState::Offering:
        return "being shown";
    case LedgerState::Shown:
        return "shown";
    case LedgerState::Snoozed:
        return "snoozed";
    case LedgerState::Listed:
        return "missed";
    case LedgerState::Dismissed:
        return "answered";
    case LedgerState::Withdrawn:
        return "taken back";
    case LedgerState::ToReturn:
        return "to come again";
    }
    return "?";
}

std::string OneLine(std::string_view title) {
    return title.empty() ? "No Subject" : locale::MakeHarmless(title);
}

bool ListOpen(outlook::StoreLedger& ledger, Output& output, bool& any) {
    std::vector<reminders::LedgerRow> rows;
    if (!ledger.ReadOpen(rows)) {
        return false;
    }
    std::sort(rows.begin(), rows.end(), [](const auto& left, const auto& right) { return left.At < right.At; });
    for (const reminders::LedgerRow& row : rows) {
        std::optional<reminders::ReminderText> text;
        if (!ledger.Describe(row.Key, text)) {
            return false;
        }
        if (text) {
            any = true;
            const std::string until =
                row.State == LedgerState::Snoozed ? " until " + WriteWall(ledger.ToWall(row.Until)) : "";
            output.Write(WriteWall(ledger.ToWall(row.At)) + "  " + NameOf(row.State) + until + "  " +
                         OneLine(text->Title) + " (" + WriteWall(text->StartWall) + ")\n");
        }
    }
    return true;
}

// `state`: what is said of a reminder that the ledger does not know.
template <class State>
bool ListDue(outlook::StoreLedger& ledger, Moment after, Moment upTo, const State& state, Output& output, bool& any) {
    std::vector<reminders::DueReminder> found;
    if (!ledger.FindDue(after, upTo, found)) {
        return false;
    }
    std::sort(found.begin(), found.end(), [](const auto& left, const auto& right) { return left.At < right.At; });
    for (const reminders::DueReminder& reminder : found) {
        std::optional<reminders::ReminderText> text;
        if (!ledger.Describe(reminder.Key, text)) {
            return false;
        }
        if (text) {
            any = true;
            output.Write(WriteWall(ledger.ToWall(reminder.At)) + "  " + state(reminder.At) + "  " +
                         OneLine(text->Title) + " (" + WriteWall(text->StartWall) + ")\n");
        }
    }
    return true;
}

// What came due while nobody serves reminders is in no ledger yet.
bool ListUnserved(outlook::StoreLedger& ledger, Moment now, Output& output, bool& any) {
    std::optional<reminders::Progress> progress;
    if (!ledger.ReadProgress(progress)) {
        return false;
    }
    const auto state = [now](Moment at) { return now - at > reminders::kGrace ? "missed" : "due"; };
    return !progress || progress->Passed >= now || ListDue(ledger, progress->Passed, now, state, output, any);
}

bool List(outlook::StoreLedger& ledger, int days, bool isServed, Output& output, bool& any) {
    const Moment now = Now();
    const auto state = [](Moment) { return "to come"; };
    return ListOpen(ledger, output, any) && (isServed || ListUnserved(ledger, now, output, any)) &&
           ListDue(ledger, now, now + days * reminders::kDay, state, output, any);
}

bool WriteLog(outlook::StoreLedger& ledger, Output& output, bool& any) {
    return ledger.ReadLog([&](const outlook::LedgerEvent& event) {
        any = true;
        const std::string until =
            event.State == LedgerState::Snoozed ? " until " + WriteWall(ledger.ToWall(event.Until)) : "";
        output.Write(WriteWall(ledger.ToWall(event.Time)) + "  " + NameOf(event.State) + until + "  " +
                     (event.Title.empty() ? "item " + std::to_string(event.Item) : OneLine(event.Title)) + " (due " +
                     WriteWall(ledger.ToWall(event.At)) + ")\n");
    });
}

int Tell(const RemindersOptions& options) {
    const std::optional<files::DeviceRoot> root = FindRoot();
    const std::optional<outlook::StorePtr> store = root ? OpenStoreToRead(*root) : std::nullopt;
    if (!store) {
        return kExitFailure;
    }
    Output output;
    bool any = false;
    if (*store) {
        outlook::StoreLedger ledger(*store, Now);
        const bool read = options.Action == RemindersAction::Log
                              ? WriteLog(ledger, output, any)
                              : List(ledger, options.Days, FindReminderService(*root).has_value(), output, any);
        if (!read) {
            Complain("The reminders cannot be read.");
            return kExitFailure;
        }
    }
    if (!any) {
        output.Write(options.Action == RemindersAction::Log ? "Nothing happened in the last 90 days.\n"
                                                            : "No reminders.\n");
    }
    return output.Finish() ? kExitSuccess : kExitFailure;
}

int Switch(const RemindersOptions& options) {
    const std::optional<files::DeviceRoot> root = FindRoot();
    if (!root) {
        return kExitFailure;
    }
    const bool on = options.Action == RemindersAction::On;
    const std::string problem = on ? StartAtLogin(*root) : StopAtLogin(*root);
    if (!problem.empty()) {
        Complain(problem);
        return kExitFailure;
    }
    Output output;
    output.Write(on ? "Reminders are on: now, and from each login.\n"
                    : "Reminders are off until the calendar is started, or `tavo reminders on`.\n");
    return output.Finish() ? kExitSuccess : kExitFailure;
}

} // namespace

int RunReminders(const RemindersOptions& options) {
    const bool switches = options.Action == RemindersAction::On || options.Action == RemindersAction::Off;
    return switches ? Switch(options) : Tell(options);
}

} // namespace tavo::tools
