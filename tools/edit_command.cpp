// tavo edit: changes what is said of an item, and leaves the rest of it as it is.
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/item_change.h"
#include "tools/item_text.h"
#include "tools/output.h"
#include "tools/tag_file.h"

namespace tavo::tools {
namespace {

int ComplainUnchanged(const std::string& why) {
    Complain("Nothing was changed: " + why + ".");
    return kExitFailure;
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
        return ComplainUnchanged(change.GetFault().empty() ? DescribeFailure(status) : change.GetFault());
    }
    const bool isTagged = !options.Kind || WriteTags(*root, store);
    const int said = Print("Changed item " + std::to_string(item.Item) + ": " + DescribeItem(item, plan->Kind) + "\n");
    return isTagged ? said : kExitFailure;
}

} // namespace tavo::tools
