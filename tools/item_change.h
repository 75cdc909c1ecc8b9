// Makes and changes items from the command line: each change is one step of undo.
#pragma once

#include "host/outlook/import_writer.h"
#include "host/outlook/store.h"
#include "tools/item_times.h"

#include <string>

namespace tavo::tools {

// What becomes of an item.
struct ItemPlan {
    ItemTimes Times;
    ExportKind Kind = ExportKind::Appointment;
    bool IsMoved = false;                           // the times are put
    std::optional<rules::StoredPattern> OldPattern; // of a series that goes to other days
    rules::StoredPattern NewPattern;
};

// Works out what becomes of a new item. Nothing, with a sentence in `error`, when the options are against each other.
std::optional<ItemPlan> PlanItem(const ItemOptions& options, std::string& error);

// The same of a stored one, of this kind.
std::optional<ItemPlan> PlanChange(const ItemOptions& options, const rules::StoredItem& stored, ExportKind kind,
                                   std::string& error);

// What Make or Change does stays when Finish was called and succeeded.
class ItemChange {
  public:
    ItemChange(const outlook::StorePtr& store, const ItemOptions& options);

    // InvalidArgument with a reason in GetFault for what the store cannot keep.
    Status Make(const ItemPlan& plan);
    // Of the item that the options name; NotFound when it is gone.
    Status Change(const ItemPlan& plan);
    // Of one occurrence of it, which FindOccurrence gave.
    Status ChangeOccurrence(IAppointment& occurrence, const ItemPlan& plan);

    // `item` is what the store has now. Its kind follows once the requests for tags are carried out.
    Status Finish(rules::StoredItem& item);

    // A phrase for people; "" when nothing was refused.
    const std::string& GetFault() const { return Fault; }

  private:
    Status Put(IAppointment& appointment, const ItemPlan& plan);
    Status PutTexts(IAppointment& appointment);
    Status PutTimes(IAppointment& appointment, const ItemPlan& plan);
    Status PutReminder(IAppointment& appointment, const ItemPlan& plan);
    Status PutRule();
    Status PutKind(ExportKind kind);

    outlook::StorePtr Store;
    const ItemOptions& Options;
    outlook::ImportWriter Writer;
    Oid Item = 0;
    std::string Fault;
};

// By the store's mirror of the lists: the first that it stands in.
Status ReadKind(const outlook::StorePtr& store, Oid oid, ExportKind& kind);

} // namespace tavo::tools
