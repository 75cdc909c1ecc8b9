// tavo history and tavo undo: what was changed last, and back.
#include "host/locale/harmless_text.h"
#include "host/locale/utf.h"
#include "host/outlook/history.h"
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/output.h"
#include "tools/records.h"
#include "tools/store_days.h"
#include "tools/tag_file.h"

#include <ctime>

namespace tavo::tools {
namespace {

using outlook::PastChange;
using outlook::PastStep;

// On the clock of where the command runs.
std::string WriteMoment(std::int64_t time) {
    const auto moment = static_cast<std::time_t>(time);
    std::tm local{};
    localtime_r(&moment, &local);
    constexpr int firstYear = 1900;
    const Day day = std::chrono::sys_days(std::chrono::year(firstYear + local.tm_year) /
                                          std::chrono::month(static_cast<unsigned>(local.tm_mon + 1)) /
                                          std::chrono::day(static_cast<unsigned>(local.tm_mday)));
    return WriteIsoDay(day) + " " + WriteClock(local.tm_hour * 60 + local.tm_min);
}

std::string_view NameChange(PastChange change) {
    switch (change) {
    case PastChange::Made:
        return "made";
    case PastChange::Changed:
        return "changed";
    case PastChange::Deleted:
        return "deleted";
    case PastChange::None:
        break;
    }
    return "";
}

void Describe(const PastStep& step, std::string& text) {
    text += WriteMoment(step.Time) + "  " + locale::MakeHarmless(step.Name);
    if (step.Items > 0) {
        text += ": item " + std::to_string(step.First);
        text += step.FirstSubject.empty() ? "" : ", " + locale::MakeHarmless(step.FirstSubject);
        text += step.Items > 1 ? " and " + std::to_string(step.Items - 1) + " more" : "";
    }
    text += step.IsUndone ? "  (taken back)\n" : "\n";
}

void Record(const PastStep& step, Records& records) {
    records.Begin();
    records.Add("time", WriteMoment(step.Time));
    records.Add("name", step.Name);
    records.Add("undone", step.IsUndone);
    records.Add("items", step.Items);
    records.Add("first", std::int64_t{step.First});
    records.Add("change", NameChange(step.FirstChange));
    records.Add("subject", step.FirstSubject);
    records.End();
}

int ComplainKept(const std::string& why) {
    Complain("Nothing was taken back: " + why + ".");
    return kExitFailure;
}

} // namespace

int RunHistory(const HistoryOptions& options) {
    const std::optional<files::DeviceRoot> root = FindRoot();
    const std::optional<outlook::StorePtr> store = root ? OpenStoreToRead(*root) : std::nullopt;
    if (!store) {
        return kExitFailure;
    }
    std::vector<PastStep> steps;
    const Status status = *store ? outlook::ListHistory(*store, options.Steps, steps) : Status::Ok;
    if (Failed(status)) {
        Complain("The calendar cannot be read: " + DescribeFailure(status) + ".");
        return kExitFailure;
    }
    std::string text;
    if (options.Format == ListFormat::People) {
        for (const PastStep& step : steps) {
            Describe(step, text);
        }
        return Print(steps.empty() ? "Nothing was changed yet.\n" : text);
    }
    Records records(options.Format, text);
    for (const PastStep& step : steps) {
        Record(step, records);
    }
    records.Finish();
    return Print(text);
}

int RunUndo(const CheckOptions&) {
    const std::optional<files::DeviceRoot> root = FindRoot();
    outlook::StorePtr store;
    if (!root || OpenStore(*root, outlook::Access::ReadWrite, store) != Opening::Good) {
        return kExitFailure;
    }
    const ComPtr<IPOutlookApp> app = outlook::MakeOutlookApp(store);
    std::u16string name;
    std::vector<std::vector<std::uint8_t>> notes;
    Status status = app->GetUndoName(name);
    if (status == Status::NotFound) {
        return ComplainKept("nothing was changed in the last hour; `tavo restore` brings single items back");
    }
    status = Succeeded(status) ? app->GetUndoNotes(notes) : status;
    const std::string quoted = "\"" + locale::MakeHarmless(locale::ToUtf8(name)) + "\"";
    if (Succeeded(status) && !notes.empty()) {
        return ComplainKept(quoted + " put memos away, which only the calendar's window brings back: use Undo there");
    }
    std::vector<Oid> restored;
    status = Succeeded(status) ? app->Undo(restored) : status;
    if (Failed(status)) {
        return ComplainKept(DescribeFailure(status));
    }
    const bool isTagged = WriteTags(*root, store);
    const std::string items = std::to_string(restored.size()) + (restored.size() == 1 ? " item" : " items");
    const int said = Print("Taken back: " + quoted + ", " + items + ".\n");
    return isTagged ? said : kExitFailure;
}

} // namespace tavo::tools
