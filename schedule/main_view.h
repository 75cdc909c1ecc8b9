// What the pages ask of the main view, which lies above them.
#pragma once

#include "platform/handles.h"
#include "platform/menus.h"

namespace tavo {

// The pages by number, in the order of their tabs.
constexpr int kClockPage = 0;
constexpr int kSchedulePage = 1;
constexpr int kCalendarPage = 2;
constexpr int kSettingsPage = 3;
constexpr int kScheduleAgainPage = 4; // shows the Schedule page as well

class IMainView {
  public:
    // Hides all pages and shows one; an index outside 0..4 leaves all hidden (4 is the Schedule page as well).
    virtual void ShowPage(int page) = 0;
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
