// tavo add: puts an item into the calendar.
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/item_change.h"
#include "tools/item_text.h"
#include "tools/output.h"
#include "tools/tag_file.h"

namespace tavo::tools {

int RunAdd(const ItemOptions& options) {
    std::string error;
    const std::optional<ItemPlan> plan = PlanItem(options, error);
    if (!plan) {
        return RefuseWords(error, "add");
    }
    const std::optional<files::DeviceRoot> root = FindRoot();
    outlook::StorePtr store;
    if (!root || OpenStore(*root, outlook::Access::ReadWrite, store) != Opening::Good) {
        return kExitFailure;
    }
    ItemChange change(store, options);
    rules::StoredItem item;
    Status status = change.Make(*plan);
    if (Succeeded(status)) {
        status = change.Finish(item);
    }
    if (Failed(status)) {
        Complain("Nothing was added: " + (change.GetFault().empty() ? DescribeFailure(status) : change.GetFault()) +
                 ".");
        return kExitFailure;
    }
    const bool isTagged = !options.Kind || WriteTags(*root, store);
    const int said = Print("Added item " + std::to_string(item.Item) + ": " + DescribeItem(item, plan->Kind) + "\n");
    return isTagged ? said : kExitFailure;
}

} // namespace tavo::tools
