// The recurrence wizard's frame: shows its pages one after the other.
#pragma once

#include "edit/wizard_page.h"
#include "framework/dialog.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavo {

// OK when it was finished, Cancel otherwise. The pages, which its opener owns, write the pattern themselves.
class CRecurrenceWizard : public CDialog {
  public:
    explicit CRecurrenceWizard(CMessagePump& pump);

    // Pages come in the order in which they are added, before DoModal. They must outlive it.
    void AddPage(std::u16string_view name, CWizardPage& page, int templateId);

    std::u16string Title = u"Recurrence";

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

  protected:
    void OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    // Of the page on show, then the buttons.
    std::vector<WindowHandle> FocusStops() const override;
    void WalkFocus(int step) override;

  private:
    int LastPage() const { return static_cast<int>(Pages.size()) - 1; }

    CWizardPage& PageAt(int index) const { return *Pages[static_cast<std::size_t>(index)]; }

    void PlaceButtons();
    void CreatePages();
    // Stays where it is when the page on show does not validate.
    void SetActivePage(int page);
    void GoNext();
    void GoBack();
    void Finish();
    void Leave(int result);
    void DestroyPages();
    void MakeRoomForPanel();
    bool TakeKey(const Message& key);

    std::vector<CWizardPage*> Pages;
    std::vector<std::u16string> PageNames;
    std::vector<int> PageTemplates;
    int Current = -1; // the page on show; -1 before the first is
};

} // namespace tavo
