// What the pages ask of the main view, which lies above them.
#pragma once

#include "platform/handles.h"
#include "platform/menus.h"
#include "store/page_number.h"

namespace tavo {

class IMainView {
  public:
    // Hides all pages and shows one; a number that is no page's leaves all hidden.
    virtual void ShowPage(PageNumber page) = 0;
    // Saves the category file and minimises the program, which stays in memory.
    virtual void ClosePages() = 0;
    // Says that appointments or category lists changed: the pages that show them will follow.
    virtual void PostChangeNotice() = 0;
    // Gives the page its menu bar; None when the device cannot make it.
    virtual WindowHandle CreatePageMenuBar(WindowHandle page, int menuId) = 0;
    // A command that the page has no handler for.
    virtual void RouteCommand(int command) = 0;

  protected:
    ~IMainView() = default;
};

} // namespace tavo
