// Taps and keys on controls.
#include "host/bare/control_touch.h"

#include "host/shell/picker_input.h"

#include <algorithm>

namespace tavo::bare {

namespace {

void TapScrollBar(BareHost& host, WindowHandle control, Point screen) {
    const Rect bounds = host.State.Tree.ScreenBounds(control);
    const ScrollInfo scroll = host.State.Tree.FindControl(control)->Scroll;
    const int track = bounds.Height() - 2 * kScrollArrowHeight;
    const int range = std::max(scroll.Maximum - scroll.Minimum, 1);
    const int thumb = bounds.Top + kScrollArrowHeight + track * (scroll.Position - scroll.Minimum) / range;
    int request = screen.Y < thumb ? SB_PAGEUP : SB_PAGEDOWN;
    if (screen.Y < bounds.Top + kScrollArrowHeight) {
        request = SB_LINEUP;
    } else if (screen.Y >= bounds.Bottom - kScrollArrowHeight) {
        request = SB_LINEDOWN;
    }
    host.ControlActions.Scroll(control, request, 0);
    host.ControlActions.Scroll(control, SB_ENDSCROLL, 0);
}

bool LiesOnArrow(BareHost& host, WindowHandle control, Point screen) {
    return screen.X >= host.State.Tree.ScreenBounds(control).Right - kListArrowWidth;
}

// The part of the date or time that lies there.
void TapPicker(BareHost& host, WindowHandle control, Point screen) {
    const shell::ControlState& state = *host.State.Tree.FindControl(control);
    shell::ITextFace& face = host.Find(FontOf(state.FontPoints));
    const std::vector<double>& ends = face.Ends(shell::FaceOf(*host.State.Tree.Find(control)).Text);
    const int x = screen.X - host.State.Tree.ScreenBounds(control).Left - kEntryMargin;
    const auto right = std::find_if(ends.begin(), ends.end(), [x](double end) { return end > x; });
    host.ControlActions.Touch(control, static_cast<int>(right - ends.begin()));
}

// Replaces what is selected, or what the two ends enclose.
void Replace(BareHost& host, WindowHandle control, int first, int last, std::u16string_view with) {
    std::u16string text = host.State.Tree.Find(control)->Text;
    text.replace(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first), with);
    host.ControlActions.Edit(control, text);
    const int length = static_cast<int>(host.State.Tree.Find(control)->Text.size());
    const int caret = std::min(first + static_cast<int>(with.size()), length);
    host.ControlActions.SelectText(control, caret, caret);
}

bool EditWithKey(BareHost& host, WindowHandle control, int key) {
    const shell::ControlState state = *host.State.Tree.FindControl(control);
    const int length = static_cast<int>(host.State.Tree.Find(control)->Text.size());
    const bool selected = state.SelectionFirst != state.SelectionLast;
    switch (key) {
    case VK_BACK:
        Replace(host, control, selected ? state.SelectionFirst : std::max(state.SelectionFirst - 1, 0),
                state.SelectionLast, u"");
        return true;
    case VK_DELETE:
        Replace(host, control, state.SelectionFirst,
                selected ? state.SelectionLast : std::min(state.SelectionLast + 1, length), u"");
        return true;
    case VK_LEFT: {
        const int caret = selected ? state.SelectionFirst : std::max(state.SelectionFirst - 1, 0);
        host.ControlActions.SelectText(control, caret, caret);
        return true;
    }
    case VK_RIGHT: {
        const int caret = selected ? state.SelectionLast : std::min(state.SelectionLast + 1, length);
        host.ControlActions.SelectText(control, caret, caret);
        return true;
    }
    case VK_HOME:
        host.ControlActions.SelectText(control, 0, 0);
        return true;
    case VK_END:
        host.ControlActions.SelectText(control, length, length);
        return true;
    default:
        return false;
    }
}

bool IsPaper(BareHost& host, WindowHandle control) {
    const shell::ControlState* state = host.State.Tree.FindControl(control);
    return state != nullptr && state->Kind == ControlKind::Ink && host.State.TakesInput(control);
}

// In the middle of the pixel; the stylus of this device tells no pressure.
ink::PenSample SampleAt(BareHost& host, WindowHandle control, Point screen) {
    const Rect bounds = host.State.Tree.ScreenBounds(control);
    ink::PenSample sample;
    sample.Place = {screen.X - bounds.Left + 0.5, screen.Y - bounds.Top + 0.5};
    sample.Time = static_cast<std::uint32_t>(host.State.Source.GetMilliseconds());
    return sample;
}

bool UseKey(BareHost& host, WindowHandle control, int key) {
    const shell::ControlState& state = *host.State.Tree.FindControl(control);
    const bool isButton = state.Kind == ControlKind::CheckBox || state.Kind == ControlKind::RadioButton ||
                          state.Kind == ControlKind::PushButton;
    if (isButton && key == VK_SPACE) {
        host.ControlActions.Click(control, {});
        return true;
    }
    const bool isEnd = key == VK_HOME || key == VK_END;
    if (shell::IsList(state.Kind) &&
        (key == VK_UP || key == VK_DOWN || (isEnd && state.Kind == ControlKind::FixedList))) {
        const int last = static_cast<int>(state.Items.size()) - 1;
        const int beside = key == VK_UP ? std::max(state.Current - 1, 0) : std::min(state.Current + 1, last);
        const int next = key == VK_HOME ? 0 : key == VK_END ? last : beside;
        if (next != state.Current) {
            host.ControlActions.Choose(control, next);
        }
        return true;
    }
    return shell::IsTextControl(state.Kind) && EditWithKey(host, control, key);
}

} // namespace

void PressControl(BareHost& host, WindowHandle control, Point screen) {
    if (IsPaper(host, control)) {
        host.ControlActions.Focus(control);
        host.Papers.Find(control).PenDown(ink::PenEnd::Tip, SampleAt(host, control, screen));
    }
}

void MoveOnControl(BareHost& host, WindowHandle control, Point screen) {
    if (IsPaper(host, control)) {
        host.Papers.Find(control).PenMove(SampleAt(host, control, screen));
    }
}

void ReleaseControl(BareHost& host, WindowHandle control, Point screen) {
    if (IsPaper(host, control)) {
        host.Papers.Find(control).PenUp(SampleAt(host, control, screen));
    }
}

void TapControl(BareHost& host, WindowHandle control, Point screen) {
    const ControlKind kind = host.State.Tree.FindControl(control)->Kind;
    host.ControlActions.Focus(control);
    if (kind == ControlKind::ScrollBar) {
        TapScrollBar(host, control, screen);
    } else if (shell::IsList(kind) || (kind == ControlKind::DatePicker && LiesOnArrow(host, control, screen))) {
        host.ControlActions.OpenList(control);
    } else if (shell::IsPicker(kind)) {
        TapPicker(host, control, screen);
    } else {
        const WindowHandle parent = host.State.Tree.Find(control)->Parent;
        host.ControlActions.Click(control, host.State.Tree.ToWindow(parent, screen));
    }
}

void PressKey(BareHost& host, int key, int modifiers) {
    const WindowHandle control = host.Keys.Down(key, modifiers);
    if (control == WindowHandle::None) {
        return;
    }
    const ControlKind kind = host.State.Tree.FindControl(control)->Kind;
    if (IsPaper(host, control) && host.Papers.Find(control).Key(key, modifiers)) {
        return;
    }
    const bool opens = shell::IsList(kind) || kind == ControlKind::DatePicker;
    if (opens && key == VK_DOWN && modifiers == kModifierAlt) {
        host.ControlActions.OpenList(control);
    } else if (modifiers != 0 || !UseKey(host, control, key)) {
        host.Keys.Unused(control, key, modifiers);
    }
}

void TypeCharacter(BareHost& host, char16_t character) {
    const WindowHandle control = host.Keys.Character(character);
    const shell::ControlState* state = host.State.Tree.FindControl(control);
    if (state != nullptr && shell::IsTextControl(state->Kind)) {
        Replace(host, control, state->SelectionFirst, state->SelectionLast, std::u16string_view(&character, 1));
    }
}

} // namespace tavo::bare
