// What the pages that show items have in common: viewing one, and what is asked for there.
#pragma once

#include "edit/edit_request.h"
#include "page/item_viewing.h"
#include "page/main_page.h"

#include <optional>

namespace tavo {

class CItemPage : public CMainPage {
  public:
    using CMainPage::CMainPage;

    IInkNoteEditor* InkEditor = nullptr; // for the edit dialog; may be absent

  protected:
    // Opens the appointment view on the item, then the edit dialog or the deletion where that was asked for.
    void ViewAndAct(ItemKind kind, const AppointmentData& record, TimesOf times);
    // Opens the edit dialog on an item that is there.
    void ModifyItem(ItemKind kind, const AppointmentData& record);

    // Without an item: for a new one.
    EditRequest RequestFor(ItemKind kind, std::optional<AppointmentData> item);
    // Opens the edit dialog.
    virtual void RunEditor(EditRequest request);

    // Told of what the edit dialog saved; null where the page looks for itself.
    virtual IListOwner* ListOwner() { return nullptr; }

  private:
    void AskAndDelete(ItemKind kind, const AppointmentData& record);
};

} // namespace tavo
