// The open menu, list or month of a host that has no widgets for them: rows to choose from.
#pragma once

#include "host/bare/bare_host.h"

namespace tavo::bare {

class Popup {
  public:
    explicit Popup(BareHost& host) : Host(host) {}

    // What the shell reported: something else may be open now.
    void Note(shell::Change change);

    // Where it lies on the screen; nothing when nothing is open.
    Rect Bounds();
    shell::Pieces Draw();
    // Where the row lies that can be chosen and stands for this command or entry, or for the day so many days from the
    // picker's own; nothing when it is not in sight.
    Rect PlaceOf(int number);

    // The row at that point of the screen is chosen; one that cannot be leaves everything as it is.
    void Tap(Point screen);
    // Up is positive.
    void Scroll(int rows);

  private:
    struct Row {
        std::u16string Text;
        int Number = 0; // a menu's command, a list's entry, a picker's days from its own
        bool Enabled = true;
        bool Chosen = false;
        bool IsSeparator = false;
    };

    void Refresh();
    void AddMenu(const std::vector<MenuItem>& items, const std::u16string& indent);
    void AddDays(const shell::ControlState& picker);
    void Place();
    Rect PlaceOfRow(std::size_t row) const;
    void PlaceBeside(const Rect& anchor, int width);

    BareHost& Host;
    std::vector<Row> Rows; // empty when nothing is open
    Rect Area;
    std::size_t First = 0; // the row at the top
    bool IsNew = true;     // not seen yet
};

} // namespace tavo::bare
