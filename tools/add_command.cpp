// tavo add: makes an item.
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/item_change.h"
#include "tools/item_text.h"
#include "tools/output.h"

namespace tavo::tools {

int RunAdd(const ItemOptions& options) {
    std::string error;
    const std::optional<ItemTimes> times = WorkOutTimes(options, nullptr, GetNow(), error);
    if (!times) {
        Complain(error);
        return kExitUsage;
    }
    const std::optional<files::DeviceRoot> root = FindRoot();
    outlook::StorePtr store;
    if (!root || OpenStore(*root, outlook::Access::ReadWrite, store) != Opening::Good) {
        return kExitFailure;
    }
    ItemChange change(store, options);
    rules::StoredItem item;
    Status status = change.Make(*times);
    if (Succeeded(status)) {
        status = change.Finish(item);
    }
    if (Failed(status)) {
        Complain(change.GetFault().empty() ? "Nothing was added: " + DescribeFailure(status) + "." : change.GetFault());
        return kExitFailure;
    }
    Output output;
    output.Write("Added item " + std::to_string(item.Item) + ": " + DescribeItem(item) + "\n");
    return output.Finish() ? kExitSuccess : kExitFailure;
}

} // namespace tavo::tools
