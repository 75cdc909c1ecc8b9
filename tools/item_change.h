// Puts what the command line says of an item into the store, in one step of undo.
#pragma once

#include "host/outlook/import_writer.h"
#include "tools/arguments.h"
#include "tools/item_times.h"

#include <string_view>

namespace tavo::tools {

// What becomes of an item.
struct ItemPlan {
    ItemTimes Times;
    ExportKind Kind = ExportKind::Appointment;
};

// Works out what becomes of a new item. Nothing, with a sentence in `error`, when the options are against each other.
std::optional<ItemPlan> PlanItem(const ItemOptions& options, std::string& error);

// What Make does stays when Finish was called and succeeded.
class ItemChange {
  public:
    ItemChange(const outlook::StorePtr& store, const ItemOptions& options);

    // InvalidArgument with a reason in GetFault for what the store cannot keep.
    Status Make(const ItemPlan& plan);

    // `item` is what the store has now. Its kind follows once the requests for tags are carried out.
    Status Finish(rules::StoredItem& item);

    // A phrase for people; "" when nothing was refused.
    const std::string& GetFault() const { return Fault; }

  private:
    Status Put(IAppointment& appointment, const ItemPlan& plan);
    Status PutTexts(IAppointment& appointment);
    Status PutTimes(IAppointment& appointment, const ItemTimes& times);
    Status PutReminder(IAppointment& appointment, ExportKind kind);
    Status PutRule();
    Status PutKind(ExportKind kind);

    outlook::StorePtr Store;
    const ItemOptions& Options;
    outlook::ImportWriter Writer;
    Oid Item = 0;
    std::string Fault;
};

} // namespace tavo::tools
