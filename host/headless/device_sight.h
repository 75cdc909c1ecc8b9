// Looking at the scripted device: what is on top, what is painted where, what the controls hold.
#pragma once

#include "host/headless/headless_host.h"

namespace tavo::headless {

class DeviceSight {
  public:
    explicit DeviceSight(HeadlessHost& host) : Host(host) {}

    // The dialog on top, else the shown page, else the frame.
    WindowHandle Top() const { return Host.State.Tree.Top(); }

    std::u16string Caption() const;
    bool IsDialogOpen() const;

    // The control with this id in the window on top; None when there is none.
    WindowHandle Control(int id) const;
    bool IsShown(int id) const;   // the control is visible
    bool IsEnabled(int id) const; // the control takes input
    std::u16string TextOf(int id) const;
    bool IsChecked(int id) const;
    int SelectionOf(int id) const;
    std::vector<std::u16string> ListOf(int id) const;

    // What a fill or straight line left at this point of the client area; nothing where none was.
    std::optional<Color> PixelAt(int x, int y) const;
    std::optional<Color> ScreenPixelAt(Point screen) const;

    // What the window on top and the painted windows in it declared, in coordinates of the client area.
    std::vector<PaintedItem> Items() const;
    std::optional<PaintedItem> FindItem(PaintedRole role, std::u16string_view name) const;
    // The texts and bitmaps that are to be seen in the window on top, in its own coordinates.
    std::vector<Placed> Visible() const;
    bool ShowsText(std::u16string_view text) const;
    bool ShowsBitmap(int bitmap) const;

    // Null while nothing was presented.
    const Frame* LastFrame() const { return Host.Drawn.LastFrame(Top()); }

    // The menu bar of the window on top, or null.
    const shell::MenuBarState* MenuBar() const { return Host.State.ShownBar(); }

  private:
    HeadlessHost& Host;
};

} // namespace tavo::headless
