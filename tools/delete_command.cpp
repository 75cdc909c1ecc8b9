// tavo delete and tavo restore: items go by their numbers, all at once or none, and come back.
#include "host/outlook/change_names.h"
#include "host/outlook/history.h"
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

Status DeleteItem(const outlook::StorePtr& store, outlook::ImportWriter& writer, Oid oid) {
    for (const TagList list : {TagList::Alarm, TagList::Holiday, TagList::Anniversary}) {
        if (const Status status = writer.RequestTag(list, oid, exchange::TagWish::Leave); Failed(status)) {
            return status;
        }
    }
    ComPtr<IAppointment> appointment;
    const Status status = outlook::MakeOutlookApp(store)->GetItemFromOid(oid, appointment);
    return Succeeded(status) ? appointment->Delete() : status;
}

// "Deleted item 5: Dentist, Wed 2 December 2026 15:00 - 16:00"
Status Describe(const outlook::StorePtr& store, std::string_view verb, Oid oid, std::string& text) {
    rules::StoredItem item;
    ExportKind kind = ExportKind::Appointment;
    Status status = store->ReadItem(oid, item);
    status = Succeeded(status) ? ReadKind(store, oid, kind) : status;
    if (Succeeded(status)) {
        text += std::string(verb) + " item " + std::to_string(oid) + ": " + DescribeItem(item, kind) + "\n";
    }
    return status;
}

int DeleteSeriesDay(const outlook::StorePtr& store, const NumbersOptions& options) {
    std::string text;
    outlook::ImportWriter writer(store);
    Status status = writer.Begin(outlook::kNameOfDeletion);
    for (const Oid oid : options.Items) {
        ComPtr<IAppointment> occurrence;
        rules::StoredItem item;
        if (Succeeded(status)) {
            status = outlook::FindOccurrence(store, oid, NumberOf(*options.On), occurrence);
        }
        if (status == Status::NotFound || status == Status::InvalidArgument) {
            Complain("Nothing was deleted: " + DescribeNoOccurrence(oid, *options.On, status) + ".");
            return kExitFailure;
        }
        status = Succeeded(status) ? occurrence->Delete() : status;
        status = Succeeded(status) ? store->ReadItem(oid, item) : status;
        text += "Deleted " + WriteDayWithWeekday(*options.On) + " of item " + std::to_string(oid) + ": " +
                DescribeSubject(item) + "\n";
    }
    status = Succeeded(status) ? writer.Commit() : status;
    if (Failed(status)) {
        Complain("Nothing was deleted: " + DescribeFailure(status) + ".");
        return kExitFailure;
    }
    return Print(text);
}

} // namespace

int RunDelete(const NumbersOptions& options) {
    const std::optional<files::DeviceRoot> root = FindRoot();
    outlook::StorePtr store;
    if (!root || OpenStore(*root, outlook::Access::ReadWrite, store) != Opening::Good) {
        return kExitFailure;
    }
    if (options.On) {
        return DeleteSeriesDay(store, options);
    }
    std::string text;
    outlook::ImportWriter writer(store);
    Status status = writer.Begin(outlook::kNameOfDeletion);
    Oid missing = 0;
    for (const Oid oid : options.Items) {
        if (Succeeded(status)) {
            status = Describe(store, "Deleted", oid, text);
            status = Succeeded(status) ? DeleteItem(store, writer, oid) : status;
            missing = status == Status::NotFound ? oid : missing;
        }
    }
    if (Succeeded(status)) {
        status = writer.Commit();
    }
    if (Failed(status)) {
        Complain("Nothing was deleted: " +
                 (missing != 0 ? "there is no item " + std::to_string(missing) : DescribeFailure(status)) + ".");
        return kExitFailure;
    }
    const bool isTagged = WriteTags(*root, store);
    const int said = Print(text);
    return isTagged ? said : kExitFailure;
}

int RunRestoreItems(const NumbersOptions& options) {
    const std::optional<files::DeviceRoot> root = FindRoot();
    outlook::StorePtr store;
    if (!root || OpenStore(*root, outlook::Access::ReadWrite, store) != Opening::Good) {
        return kExitFailure;
    }
    bool allCame = true;
    for (const Oid oid : options.Items) {
        std::string text;
        Status status = outlook::RestoreItem(store, oid);
        allCame = Succeeded(status) && WriteTags(*root, store) && allCame;
        status = Succeeded(status) ? Describe(store, "Restored", oid, text) : status;
        if (Failed(status)) {
            Complain("Item " + std::to_string(oid) + " is not restored: " +
                     (status == Status::NotFound ? "nothing of it is remembered" : DescribeFailure(status)) + ".");
            allCame = false;
        }
        allCame = Print(text) == kExitSuccess && allCame;
    }
    return allCame ? kExitSuccess : kExitFailure;
}

} // namespace tavo::tools
