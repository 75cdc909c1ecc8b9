// tavo edit: changes what is said of an item, and leaves the rest of it as it is.
#include "host/locale/utf.h"
#include "host/outlook/occurrence_finder.h"
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/item_change.h"
#include "tools/item_text.h"
#include "tools/output.h"
#include "tools/store_days.h"
#include "tools/tag_file.h"

namespace tavo::tools {
namespace {

int ComplainUnchanged(const std::string& why) {
    Complain("Nothing was changed: " + why + ".");
    return kExitFailure;
}

int ComplainOfChange(const ItemChange& change, Status status) {
    return ComplainUnchanged(change.GetFault().empty() ? DescribeFailure(status) : change.GetFault());
}

int EditSeriesDay(const outlook::StorePtr& store, const ItemOptions& options, rules::StoredItem item, ExportKind kind) {
    ComPtr<IAppointment> occurrence;
    DATE start = 0;
    DATE end = 0;
    Status status = outlook::FindOccurrence(store, options.Item, NumberOf(*options.On), occurrence);
    if (status == Status::NotFound || status == Status::InvalidArgument) {
        return ComplainUnchanged(DescribeNoOccurrence(options.Item, *options.On, status));
    }
    status = Succeeded(status) ? occurrence->get_Start(start) : status;
    status = Succeeded(status) ? occurrence->get_End(end) : status;
    if (Failed(status)) {
        return ComplainUnchanged(DescribeFailure(status));
    }
    item.Start = rules::SecondsFromDate(start);
    item.End = rules::SecondsFromDate(end);
    item.Pattern = {};
    item.ForeignRule.clear();
    std::string error;
    const std::optional<ItemPlan> plan = PlanChange(options, item, kind, error);
    if (!plan) {
        return RefuseWords(error, "edit");
    }
    if (plan->Times.AllDay != item.AllDay) {
        return RefuseWords("Whether there are times is the whole series'.", "edit");
    }
    ItemChange change(store, options);
    rules::StoredItem series;
    status = change.ChangeOccurrence(*occurrence, *plan);
    if (Succeeded(status)) {
        status = change.Finish(series);
    }
    if (Failed(status)) {
        return ComplainOfChange(change, status);
    }
    item.Start = plan->Times.Start;
    item.End = plan->Times.End;
    item.Subject = options.Subject ? locale::ToUtf16(*options.Subject) : item.Subject;
    return Print("Changed " + WriteDayWithWeekday(*options.On) + " of item " + std::to_string(options.Item) + ": " +
                 DescribeItem(item, kind) + "\n");
}

} // namespace

int RunEdit(const ItemOptions& options) {
    const std::optional<files::DeviceRoot> root = FindRoot();
    outlook::StorePtr store;
    if (!root || OpenStore(*root, outlook::Access::ReadWrite, store) != Opening::Good) {
        return kExitFailure;
    }
    rules::StoredItem item;
    ExportKind kind = ExportKind::Appointment;
    Status status = store->ReadItem(options.Item, item);
    if (status == Status::NotFound) {
        return ComplainUnchanged("there is no item " + std::to_string(options.Item));
    }
    status = Succeeded(status) ? ReadKind(store, options.Item, kind) : status;
    if (Failed(status)) {
        return ComplainUnchanged(DescribeFailure(status));
    }
    if (options.On) {
        return EditSeriesDay(store, options, std::move(item), kind);
    }
    std::string error;
    const std::optional<ItemPlan> plan = PlanChange(options, item, kind, error);
    if (!plan) {
        return RefuseWords(error, "edit");
    }
    if (options.Sound && !options.Remind && !item.ReminderSet && plan->Kind != ExportKind::Alarm) {
        return RefuseWords("A sound is that of a reminder: say --remind too.", "edit");
    }
    ItemChange change(store, options);
    status = change.Change(*plan);
    if (Succeeded(status)) {
        status = change.Finish(item);
    }
    if (Failed(status)) {
        return ComplainOfChange(change, status);
    }
    const bool isTagged = !options.Kind || WriteTags(*root, store);
    const int said = Print("Changed item " + std::to_string(item.Item) + ": " + DescribeItem(item, plan->Kind) + "\n");
    return isTagged ? said : kExitFailure;
}

} // namespace tavo::tools
