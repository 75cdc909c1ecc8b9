// Native controls: the host's own widgets, placed over the painted page.
#pragma once

#include "platform/geometry.h"
#include "platform/handles.h"
#include "platform/system_time.h"

#include <span>
#include <string>
#include <string_view>

namespace tavo {

enum class ControlKind {
    Label,
    Edit,         // one line; scrolls
    NumberEdit,   // digits only, right aligned
    FixedList,    // drop-down list; only its entries can be chosen
    EditableList, // drop-down list; any text can be typed
    DatePicker,   // short date, with a month calendar
    TimePicker,
    CheckBox,
    RadioButton,
    PushButton,
    PictureButton, // shows one of two pictures, by its check state
    ScrollBar,     // vertical
    Ink,           // paper to write on; see platform/ink.h
};

struct ControlDescription {
    ControlKind Kind = ControlKind::Label;
    int Id = 0;
    std::u16string Text;
    Rect Bounds; // in the parent's pixels
    int FontPoints = 10;
    int PictureOff = 0; // bitmap numbers of picture buttons
    int PictureOn = 0;
    bool StartsGroup = false; // the first radio button of a group
    bool Visible = true;
};

struct ScrollInfo {
    int Minimum = 0;
    int Maximum = 0;
    int Position = 0;
    friend constexpr bool operator==(const ScrollInfo&, const ScrollInfo&) = default;
};

// A control is a window too: it is moved, shown, enabled and focused through IWindows. What the user does to it reaches
// its parent as WM_COMMAND, WM_NOTIFY or WM_VSCROLL; a key it does not use, as WM_KEYDOWN. Changes by code send
// nothing.
class IControls {
  public:
    virtual ~IControls() = default;
    // None when the device cannot make it.
    virtual WindowHandle CreateControl(WindowHandle parent, const ControlDescription& description) = 0;
    virtual std::u16string GetWindowTextW(WindowHandle control) = 0; // its text; set with IWindows::SetWindowTextW
    virtual void SetTextLimit(WindowHandle control, int characters) = 0;
    // Selects from the first to before the second character (0 to -1: all) and scrolls the caret into view.
    virtual void SetTextSelection(WindowHandle control, int first, int last) = 0;
    virtual void SetListItems(WindowHandle control, std::span<const std::u16string> items) = 0; // drops the selection
    virtual int GetCurSel(WindowHandle control) = 0;                                            // -1: none
    virtual void SetCurSel(WindowHandle control, int index) = 0;
    virtual bool GetCheck(WindowHandle control) = 0;
    virtual void SetCheck(WindowHandle control, bool checked) = 0; // clears the other radio buttons of its group
    virtual SYSTEMTIME GetSystemtime(WindowHandle control) = 0;
    virtual bool SetSystemtime(WindowHandle control, const SYSTEMTIME& time) = 0; // false: impossible date
    virtual ScrollInfo GetScrollInfo(WindowHandle control) = 0;
    virtual void SetScrollInfo(WindowHandle control, const ScrollInfo& info) = 0;
};

} // namespace tavo
