// The lists of alarms, of holidays and of anniversaries.
#pragma once

#include "schedule/item_list.h"

namespace tavo {

// A row for every OID of the kind's category list whose appointment can be loaded, in the order of that list.
class CCategoryItemList : public CItemList {
  public:
    CCategoryItemList(CMessagePump& pump, CProgramState& state, IItemListOwner& owner, ItemKind kind);

    // Makes the rows anew; OIDs whose appointments are gone leave the category list. Nothing is selected then.
    void Fill();
    // A new item joins the end of the category list. Of an item that was edited, `record` takes the place of the row
    // and of the OID that it had before. False when the store cannot show it now: it is tagged, without a row.
    bool AddOrReplace(const AppointmentData& record, bool isNew, Oid oldOid);
    bool DeleteSelected() override;

  protected:
    ItemRowText Describe(const AppointmentData& record) override;
    std::vector<MenuItem> MakeMenu(const AppointmentData& record) override;

  private:
    CategoryList& Category();
    void Tag(Oid oid, bool isNew, Oid oldOid);
};

} // namespace tavo
