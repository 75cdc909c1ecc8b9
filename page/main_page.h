// What the four pages of the main view have in common: the page bar, closing, and commands of the whole program.
#pragma once

#include "framework/page.h"
#include "page/main_view.h"
#include "store/program_state.h"

#include <string_view>

namespace tavo {

class CMainPage : public CPage {
  public:
    // `menuId` is the menu of its menu bar.
    CMainPage(CMessagePump& pump, CProgramState& state, IMainView& view, const DialogTemplate& form, int menuId);

    // Makes the page, hidden, and its menu bar. False when the device cannot make it.
    bool CreateOn(WindowHandle view);

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

  protected:
    virtual void OnInitDialog() {}

    // Draws the bar and the highlighted tab of the page on show.
    void DrawPageBar();
    void DeclarePageBar();
    // True when the press was on the page bar: the page it names is then on show.
    bool TakePageBarPress(Point point);
    // True when the key was one of those that go to the next or previous page.
    bool TakePageKey(const Message& key);

    void HandleByDefault(const Message& message) override;

    // True when the person wants the deletion.
    bool ConfirmDeletion();
    // Says that something could not be done.
    void Refuse(std::u16string_view text);

    // A menu of the menu bar is about to open, or one of its shortcuts to be carried out.
    virtual void PrepareMenus();

    WindowHandle MenuBar = WindowHandle::None;

    CProgramState& State;
    IMainView& View;

  private:
    void ClosePage();
    void GoToPage(PageNumber page);

    int MenuId;
};

} // namespace tavo
