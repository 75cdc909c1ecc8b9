// What the pages that show items have in common: viewing one, and what is asked for there.
#pragma once

#include "edit/edit_request.h"
#include "page/item_viewing.h"
#include "page/main_page.h"
#include "page/series_part.h"

#include <optional>

namespace tavo {

class CItemPage : public CMainPage {
  public:
    using CMainPage::CMainPage;

    IInkNoteEditor* InkEditor = nullptr; // for the edit dialog; may be absent

  protected:
    // The day on which an item was chosen; of a series one is asked then what is meant. Nothing where the item itself
    // was chosen.
    using ChosenDay = std::optional<SYSTEMTIME>;

    // Opens the appointment view on the item, then the edit dialog or the deletion where that was asked for.
    void ViewAndAct(ItemKind kind, const AppointmentData& record, TimesOf times, const ChosenDay& day = {});
    // Opens the edit dialog on an item that is there.
    void ModifyItem(ItemKind kind, const AppointmentData& record, const ChosenDay& day = {});
    // Whole without a question where there is nothing to choose.
    SeriesPart AskPart(const AppointmentData& record, const ChosenDay& day);
    // Deletes one day of the series, and says so when that is refused.
    void DeleteDay(const AppointmentData& record, const SYSTEMTIME& day);

    // Where a menu for the chosen item opens.
    virtual MenuPlace PlaceOfMenu() { return {{kClientArea.Width() / 2, kClientArea.Height() / 2}, MenuAlign::Left}; }

    // Without an item: for a new one.
    EditRequest RequestFor(ItemKind kind, std::optional<AppointmentData> item);
    // Opens the edit dialog.
    virtual void RunEditor(EditRequest request);

    // Told of what the edit dialog saved; null where the page looks for itself.
    virtual IListOwner* ListOwner() { return nullptr; }

  private:
    void ModifyDay(ItemKind kind, const AppointmentData& record, const SYSTEMTIME& day);
    void AskAndDelete(ItemKind kind, const AppointmentData& record, const ChosenDay& day);
};

} // namespace tavo
