// What a native control holds, apart from being a window.
#pragma once

#include "host/shell/picker_entry.h"

#include <limits>
#include <string>
#include <vector>

namespace tavo::shell {

constexpr int kNoTextLimit = std::numeric_limits<int>::max();

struct ControlState {
    ControlKind Kind = ControlKind::Label;
    int Id = 0;
    int FontPoints = 10;
    int PictureOff = 0;
    int PictureOn = 0;
    bool StartsGroup = false;
    int TextLimit = kNoTextLimit;
    int SelectionFirst = 0; // of the text: from the first to before the last character
    int SelectionLast = 0;
    std::vector<std::u16string> Items;
    int Current = -1; // selected entry
    bool Checked = false;
    SYSTEMTIME Time;
    PickerEntry Entry; // of a picker, while it is typed into
    ScrollInfo Scroll;
};

// Text can be typed into it.
constexpr bool IsTextControl(ControlKind kind) {
    return kind == ControlKind::Edit || kind == ControlKind::NumberEdit || kind == ControlKind::EditableList;
}

constexpr bool IsList(ControlKind kind) {
    return kind == ControlKind::FixedList || kind == ControlKind::EditableList;
}

constexpr bool IsPicker(ControlKind kind) {
    return kind == ControlKind::DatePicker || kind == ControlKind::TimePicker;
}

// Keys mean something to it even when nobody tapped it.
constexpr bool TakesKeys(ControlKind kind) {
    return IsTextControl(kind) || IsList(kind) || IsPicker(kind);
}

// A tap on it gives it the focus.
constexpr bool TakesFocus(ControlKind kind) {
    return TakesKeys(kind) || kind == ControlKind::CheckBox || kind == ControlKind::RadioButton ||
           kind == ControlKind::PushButton || kind == ControlKind::Ink;
}

} // namespace tavo::shell
