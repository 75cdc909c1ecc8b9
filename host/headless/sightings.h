// What a person would have seen open: message boxes, menus, lists.
#pragma once

#include "host/headless/recorded_drawing.h"
#include "host/shell/shell.h"

namespace tavo::headless {

struct OpenedList {
    int Id = 0;
    std::vector<std::u16string> Items; // as they were when it opened
    int Current = -1;
    friend bool operator==(const OpenedList&, const OpenedList&) = default;
};

struct OpenedBarMenu {
    int Index = 0;
    MenuItem Menu; // with its items as they were when it opened
};

class Sightings : public shell::IShellObserver {
  public:
    explicit Sightings(RecordedDrawing& drawing) : Drawing(drawing) {}

    void Watch(shell::Shell& shell) { State = &shell; }

    void OnChange(shell::Change change, WindowHandle window) override;

    std::vector<MessageBoxDescription> Boxes;
    std::vector<WindowHandle> BoxOwners; // of the boxes, in their order
    std::vector<shell::TrackedMenu> Menus;
    std::vector<OpenedBarMenu> BarMenus;
    std::vector<OpenedList> Lists;
    std::vector<Cursor> Cursors; // each one that the pointer became
    int BroughtForward = 0;

  private:
    RecordedDrawing& Drawing;
    shell::Shell* State = nullptr;
};

} // namespace tavo::headless
