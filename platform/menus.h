// Menu bars, pop-up menus and message boxes.
#pragma once

#include "platform/geometry.h"
#include "platform/handles.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tavo {

struct MenuItem {
    int Id = 0; // 0 of a separator
    std::u16string Text;
    std::vector<MenuItem> Children; // a submenu when not empty or IsPopup
    bool IsPopup = false;
    bool IsSeparator = false;
    bool Enabled = true;
    bool Checked = false;
    std::u16string Shortcut; // as shown, such as "Ctrl+Z"; empty for none

    friend bool operator==(const MenuItem&, const MenuItem&) = default;
};

// A picture button of a menu bar: `Picture` counts the squares of the bitmap from the left.
struct MenuBarButton {
    int Id = 0;
    int Bitmap = 0;
    int Picture = 0;
    int PictureSize = 16;
    std::u16string Name; // said as a tool tip and to assistive technology
};

enum class MenuAlign { Left, Right }; // which edge of the menu lies at the point

enum class MessageBoxButtons : std::uint32_t { Ok = 0, YesNo = 4 };
enum class MessageBoxIcon : std::uint32_t { None = 0, Exclamation = 0x30 };

struct MessageBoxDescription {
    std::u16string Text;
    std::u16string Caption;
    MessageBoxButtons Buttons = MessageBoxButtons::Ok;
    MessageBoxIcon Icon = MessageBoxIcon::None;
};

class IMenus {
  public:
    virtual ~IMenus() = default;
    // The bar is shown while its page or dialog is on top; None when the device cannot make it. Its choices reach the
    // parent as WM_COMMAND; before a menu opens the parent gets WM_INITMENUPOPUP with the menu's index in Id.
    virtual WindowHandle SHCreateMenuBar(WindowHandle parent, const std::vector<MenuItem>& menus) = 0;
    virtual void AddButtons(WindowHandle menuBar, const std::vector<MenuBarButton>& buttons) = 0;
    virtual void SetMenuItem(WindowHandle menuBar, int id, bool enabled, bool checked) = 0; // item or button
    virtual void SetMenuItemText(WindowHandle menuBar, int id, const std::u16string& text) = 0;

    // Opens the menu at a point of the screen. When it closes the owner gets WM_EXITMENULOOP with the chosen command,
    // or 0. False when another menu is open.
    virtual bool TrackPopupMenu(WindowHandle owner, const std::vector<MenuItem>& items, Point at, MenuAlign align) = 0;
    virtual void EndMenu() = 0; // closes it as if nothing was chosen

    // Opens the box. When it closes the owner gets WM_MESSAGEBOXCLOSED. Owner None: over everything.
    virtual void OpenMessageBox(WindowHandle owner, const MessageBoxDescription& description) = 0;
};

} // namespace tavo
