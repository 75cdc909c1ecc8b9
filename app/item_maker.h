// Making new items: the editor, and the list that gives a saved item its kind.
#pragma once

#include "edit/list_owner.h"
#include "framework/message_pump.h"
#include "store/item_kind.h"
#include "store/program_state.h"

namespace tavo {

class ItemMaker : public IListOwner {
  public:
    ItemMaker(CMessagePump& pump, CProgramState& state) : Pump(pump), State(state) {}

    // Opens the editor on a new item. True when it was saved.
    bool Make(ItemKind kind);

    // A new item goes to the end of its kind's list; an ordinary appointment is in none.
    void UpdateOwnerList(const AppointmentData& record, bool isNew, Oid oid) override;

  private:
    CMessagePump& Pump;
    CProgramState& State;
    ItemKind Kind = ItemKind::Appointment; // of the item in the editor
};

} // namespace tavo
