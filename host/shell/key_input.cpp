// From keys to messages, commands and controls.
#include "host/shell/key_input.h"

#include "host/shell/picker_input.h"

#include <optional>
#include <string>

namespace tavo::shell {

namespace {

// As menus show it: "Ctrl+Z", "Shift+F1", "Del".
std::u16string ShortcutText(int key, int modifiers) {
    std::u16string text;
    if ((modifiers & kModifierControl) != 0) {
        text += u"Ctrl+";
    }
    if ((modifiers & kModifierAlt) != 0) {
        text += u"Alt+";
    }
    if ((modifiers & kModifierShift) != 0) {
        text += u"Shift+";
    }
    constexpr int functionKeys = 12;
    if (key == VK_DELETE) {
        text += u"Del";
    } else if (key >= VK_F1 && key < VK_F1 + functionKeys) {
        const std::string number = std::to_string(key - VK_F1 + 1);
        text += u'F';
        text.append(number.begin(), number.end());
    } else if ((key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9')) {
        text += static_cast<char16_t>(key);
    } else {
        return {};
    }
    return text;
}

// The command of the item with this shortcut, in it or below it.
std::optional<int> FindShortcut(const MenuItem& item, const std::u16string& shortcut) {
    if (item.Shortcut == shortcut && item.Children.empty()) {
        return item.Id;
    }
    for (const MenuItem& child : item.Children) {
        if (const std::optional<int> below = FindShortcut(child, shortcut)) {
            return below;
        }
    }
    return std::nullopt;
}

constexpr bool IsArrow(int key) {
    return key >= VK_LEFT && key <= VK_DOWN;
}

// What it means comes with its character.
constexpr bool MakesCharacter(int key) {
    return key == VK_SPACE || (key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z');
}

// Where text is typed these keys edit it.
bool EditsText(int key, int modifiers) {
    if (modifiers == 0) {
        return key == VK_DELETE;
    }
    return modifiers == kModifierControl &&
           std::u16string_view(u"ACVXYZ").find(static_cast<char16_t>(key)) != std::u16string_view::npos;
}

} // namespace

WindowHandle KeyInput::Down(int key, int modifiers) {
    Held[key] = WindowHandle::None;
    if (key == 'Q' && modifiers == kModifierControl) {
        Navigation.RequestQuit();
        return WindowHandle::None;
    }
    if (TakeForBoxOrMenu(key)) {
        return WindowHandle::None;
    }
    if (key == VK_ESCAPE) {
        static_cast<void>(Navigation.PressEscape()); // with nothing to close it does nothing
        return WindowHandle::None;
    }
    if (TakeShortcut(key, modifiers, State.KeyTarget())) {
        return WindowHandle::None;
    }
    const WindowHandle control = Give({WindowHandle::None, WM_KEYDOWN, key, modifiers, 0, {}});
    if (control != WindowHandle::None) {
        Held.erase(key);
    } else {
        Held[key] = State.KeyTarget();
    }
    return control;
}

void KeyInput::Up(int key, int modifiers) {
    const auto held = Held.find(key);
    const WindowHandle target = held == Held.end() ? State.KeyTarget() : held->second;
    if (held != Held.end()) {
        Held.erase(held);
    }
    if (target != WindowHandle::None && State.Tree.FindControl(target) == nullptr) {
        State.Post({target, WM_KEYUP, key, modifiers, 0, {}}, MessageOrigin::Person);
    }
}

WindowHandle KeyInput::Character(char16_t character) {
    if (!State.Menus.Boxes.empty() || State.Menus.IsMenuOpen()) {
        return WindowHandle::None;
    }
    return Give({WindowHandle::None, WM_CHAR, character, 0, 0, {}});
}

void KeyInput::Unused(WindowHandle control, int key, int modifiers) {
    if (key == VK_ESCAPE) {
        static_cast<void>(Navigation.PressEscape()); // as above
        return;
    }
    if (const WindowRecord* record = State.Tree.Find(control); record != nullptr) {
        State.Post({record->Parent, WM_KEYDOWN, key, modifiers, 0, {}}, MessageOrigin::Person);
    }
}

bool KeyInput::TakeForBoxOrMenu(int key) {
    if (!State.Menus.Boxes.empty()) {
        if (key == VK_RETURN) {
            const bool asks = State.Menus.Boxes.back().Description.Buttons == MessageBoxButtons::YesNo;
            Navigation.AnswerBox(asks ? IDYES : IDOK);
        } else if (key == VK_ESCAPE) {
            static_cast<void>(Navigation.PressEscape()); // a question stays
        }
        return true;
    }
    if (State.Menus.IsMenuOpen()) {
        if (key == VK_ESCAPE) {
            State.CloseMenu(0);
        }
        return true;
    }
    return false;
}

bool KeyInput::TakeShortcut(int key, int modifiers, WindowHandle target) {
    const MenuBarState* bar = State.ShownBar();
    const std::u16string shortcut = ShortcutText(key, modifiers);
    if (bar == nullptr || shortcut.empty() || !State.TakesInput(bar->Parent)) {
        return false;
    }
    const ControlState* control = State.Tree.FindControl(target);
    if (control != nullptr && IsTextControl(control->Kind) && EditsText(key, modifiers)) {
        return false;
    }
    for (std::size_t index = 0; index < bar->Menus.size(); ++index) {
        if (const std::optional<int> command = FindShortcut(bar->Menus[index], shortcut)) {
            FinishPicker(State);
            // The program brings the menu up to date first, as if it opened.
            State.Announce({bar->Parent, WM_INITMENUPOPUP, static_cast<int>(index), 0, 0, {}},
                           {OpeningKind::Shortcut, bar->Handle, *command});
            return true;
        }
    }
    return false;
}

WindowHandle KeyInput::Give(const Message& key) {
    const WindowHandle target = State.KeyTarget();
    if (target == WindowHandle::None) {
        return WindowHandle::None;
    }
    if (const ControlState* control = State.Tree.FindControl(target); control != nullptr) {
        const bool isPicker = IsPicker(control->Kind);
        State.MoveFocus(target);
        return isPicker ? GiveToPicker(target, key) : target;
    }
    Message message = key;
    message.Window = target;
    State.Post(message, MessageOrigin::Person);
    return WindowHandle::None;
}

WindowHandle KeyInput::GiveToPicker(WindowHandle picker, const Message& key) {
    if (key.Number == WM_CHAR) {
        TypeIntoPicker(State, picker, static_cast<char16_t>(key.Id));
        return WindowHandle::None;
    }
    if (State.OpenList == picker) {
        return picker; // the month calendar has the keys
    }
    // A page goes by its arrows wherever the focus is: a picker on it has no use for them.
    const bool isPages = IsArrow(key.Id) && LiesOnPage(picker);
    if (!isPages && key.Code == 0 && PressInPicker(State, picker, key.Id)) {
        return WindowHandle::None;
    }
    if ((key.Code & ~kModifierShift) == 0 && MakesCharacter(key.Id)) {
        return WindowHandle::None;
    }
    FinishPicker(State);
    return picker;
}

bool KeyInput::LiesOnPage(WindowHandle control) const {
    const WindowRecord* ground = State.Tree.Find(State.Tree.Ground(control));
    return ground != nullptr && ground->Kind == WindowKind::Page;
}

} // namespace tavo::shell
