// The messages of the device, their codes, and the one plain value that carries each of them.
#pragma once

#include "platform/geometry.h"
#include "platform/handles.h"

#include <cstdint>

namespace tavo {

using MessageNumber = std::uint32_t;

constexpr MessageNumber WM_NULL = 0x0000;
constexpr MessageNumber WM_PAINT = 0x000F;
constexpr MessageNumber WM_CLOSE = 0x0010;
constexpr MessageNumber WM_QUERYENDSESSION = 0x0011; // close all, in order; Id is one of the two reasons below
constexpr MessageNumber WM_QUIT = 0x0012;
constexpr MessageNumber WM_NOTIFY = 0x004E;
constexpr MessageNumber WM_DISPLAYCHANGE = 0x007E; // the scale changed: every surface must be made anew
constexpr MessageNumber WM_KEYDOWN = 0x0100;
constexpr MessageNumber WM_KEYUP = 0x0101;
constexpr MessageNumber WM_CHAR = 0x0102;
constexpr MessageNumber WM_COMMAND = 0x0111;
constexpr MessageNumber WM_TIMER = 0x0113;
constexpr MessageNumber WM_VSCROLL = 0x0115;
constexpr MessageNumber WM_INITMENUPOPUP = 0x0117; // a menu of the menu bar is about to open
constexpr MessageNumber WM_MOUSEMOVE = 0x0200;
constexpr MessageNumber WM_LBUTTONDOWN = 0x0201;
constexpr MessageNumber WM_LBUTTONUP = 0x0202;
constexpr MessageNumber WM_MOUSEWHEEL = 0x020A;
constexpr MessageNumber WM_EXITMENULOOP = 0x0212; // a tracked menu closed; Id is the chosen command or 0
constexpr MessageNumber WM_CUT = 0x0300;
constexpr MessageNumber WM_COPY = 0x0301;
constexpr MessageNumber WM_PASTE = 0x0302;
constexpr MessageNumber WM_CLEAR = 0x0303;
constexpr MessageNumber WM_USER = 0x0400;
constexpr MessageNumber WM_APP = 0x8000;
constexpr MessageNumber WM_MESSAGEBOXCLOSED = WM_APP + 1; // Id is the answer: IDOK, IDCANCEL, IDYES or IDNO
constexpr MessageNumber WM_STORECHANGED = WM_APP + 2;     // another process changed items or asked for tags

// Reasons of WM_QUERYENDSESSION.
constexpr int kPersonQuits = 0;
constexpr int kSessionEnds = 1; // nobody is there to answer a question

// Notification codes of WM_COMMAND (menu choices and buttons carry BN_CLICKED).
constexpr int BN_CLICKED = 0;
constexpr int CBN_SELCHANGE = 1;
constexpr int CBN_EDITCHANGE = 5;
constexpr int CBN_DROPDOWN = 7; // the list is about to open; it opens at the next wait
constexpr int CBN_CLOSEUP = 8;
constexpr int EN_SETFOCUS = 0x0100;
constexpr int EN_KILLFOCUS = 0x0200;
constexpr int EN_CHANGE = 0x0300;

// Where a WM_COMMAND comes from, in Message::Value; 0 from a control.
constexpr int kFromMenuOrKey = 1;

// Notification codes of WM_NOTIFY.
constexpr int DTN_CLOSEUP = -753;
constexpr int DTN_DROPDOWN = -754;
constexpr int DTN_DATETIMECHANGE = -759; // by the user only, never by code

// Requests of WM_VSCROLL; Value is the thumb's position for the two thumb requests.
constexpr int SB_LINEUP = 0;
constexpr int SB_LINEDOWN = 1;
constexpr int SB_PAGEUP = 2;
constexpr int SB_PAGEDOWN = 3;
constexpr int SB_THUMBPOSITION = 4;
constexpr int SB_THUMBTRACK = 5;
constexpr int SB_ENDSCROLL = 8;

// Answers of dialogs and message boxes.
constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
constexpr int IDYES = 6;
constexpr int IDNO = 7;

// Keys.
constexpr int VK_BACK = 8;
constexpr int VK_TAB = 9;
constexpr int VK_RETURN = 13;
constexpr int VK_ESCAPE = 27;
constexpr int VK_SPACE = 32;
constexpr int VK_PRIOR = 33;
constexpr int VK_NEXT = 34;
constexpr int VK_END = 35;
constexpr int VK_HOME = 36;
constexpr int VK_LEFT = 37;
constexpr int VK_UP = 38;
constexpr int VK_RIGHT = 39;
constexpr int VK_DOWN = 40;
constexpr int VK_DELETE = 46;
constexpr int VK_F1 = 112; // letters and digits are their own upper-case characters

// Modifier bits, in Message::Code of key messages.
constexpr int kModifierShift = 1;
constexpr int kModifierControl = 2;
constexpr int kModifierAlt = 4;

// One message. Which fields mean something depends on its number.
struct Message {
    WindowHandle Window = WindowHandle::None;
    MessageNumber Number = WM_NULL;
    int Id = 0;     // command, control, timer, key or answer; of WM_CHAR the character
    int Code = 0;   // notification code, scroll request, modifier bits; wheel steps (up is positive)
    int Value = 0;  // scroll position; WM_COMMAND: where it comes from
    Point Position; // stylus: in the window's own pixels

    friend constexpr bool operator==(const Message&, const Message&) = default;
};

} // namespace tavo
