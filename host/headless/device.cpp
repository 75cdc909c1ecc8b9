// Each thing a person does, as a step of the script.
#include "host/headless/device.h"

#include "host/bare/control_touch.h"
#include "host/locale/utf.h"
#include "host/shell/chrome/chrome.h"

#include <algorithm>
#include <utility>

namespace tavo::headless {

namespace {

constexpr Point ToScreen(int x, int y) {
    return {x + kClientArea.Left, y + kClientArea.Top};
}

constexpr Point Middle(const Rect& area) {
    return {(area.Left + area.Right) / 2, (area.Top + area.Bottom) / 2};
}

// Taps something in the menu strip. False when that does nothing: there is no such thing (then its place is the whole
// strip), it takes no input, or something lies over it.
bool TapStrip(HeadlessHost& host, bare::ScreenTouch& touch, const Rect& place) {
    shell::Chrome& chrome = host.Chrome();
    const Point middle = Middle(place);
    if (place == kMenuBar || chrome.PartAt(middle) != &chrome.Menus || !chrome.Menus.CanPress(middle) ||
        host.State.Menus.Tracked.has_value()) {
        return false;
    }
    touch.Tap(middle);
    return true;
}

} // namespace

Device::Device(const DeviceOptions& options) : OwnHost(options) {}

void Device::Do(std::function<void()> step) {
    OwnHost.Time.Script.Add(std::move(step));
}

void Device::Expect(bool done, const std::string& problem) {
    if (!done) {
        Problems.push_back(problem);
    }
}

void Device::TapScreen(Point screen) {
    Do([this, screen] { Touch.Down(screen); });
    Do([this, screen] { Touch.Up(screen); });
}

void Device::Tap(int x, int y) {
    TapScreen(ToScreen(x, y));
}

void Device::Press(int x, int y) {
    Do([this, x, y] { Touch.Down(ToScreen(x, y)); });
}

void Device::MoveTo(int x, int y) {
    Do([this, x, y] { Touch.Move(ToScreen(x, y)); });
}

void Device::Release(int x, int y) {
    Do([this, x, y] { Touch.Up(ToScreen(x, y)); });
}

void Device::Wheel(int x, int y, int steps) {
    Do([this, x, y, steps] { OwnHost.Stylus.Wheel(ToScreen(x, y), steps); });
}

void Device::TapItem(PaintedRole role, std::u16string name) {
    Do([this, role, name = std::move(name)] {
        const std::optional<PaintedItem> item = See.FindItem(role, name);
        Expect(item.has_value(), "nothing painted is called " + locale::ToUtf8(name));
        if (item) {
            const Point middle = Middle(item->Bounds);
            Tap(middle.X, middle.Y);
        }
    });
}

void Device::KeyDown(int key, int modifiers) {
    Do([this, key, modifiers] { bare::PressKey(OwnHost, key, modifiers); });
}

void Device::KeyUp(int key, int modifiers) {
    Do([this, key, modifiers] { OwnHost.Keys.Up(key, modifiers); });
}

void Device::Key(int key, int modifiers) {
    KeyDown(key, modifiers);
    KeyUp(key, modifiers);
}

void Device::Type(std::u16string_view text) {
    for (const char16_t character : text) {
        Do([this, character] { bare::TypeCharacter(OwnHost, character); });
    }
}

void Device::OnControl(int id, const std::string& action, std::function<void(WindowHandle)> act) {
    Do([this, id, action, act = std::move(act)] {
        const WindowHandle control = See.Control(id);
        const bool takesInput = OwnHost.State.TakesInput(control);
        Expect(takesInput, "cannot " + action + " control " + std::to_string(id));
        if (takesInput) {
            act(control);
        }
    });
}

void Device::TapControl(int id) {
    OnControl(id, "tap", [this](WindowHandle control) { TapScreen(Middle(OwnHost.State.Tree.ScreenBounds(control))); });
}

void Device::TypeInto(int id, std::u16string_view text) {
    OnControl(id, "type into", [this](WindowHandle control) {
        OwnHost.ControlActions.Focus(control);
        OwnHost.ControlActions.SelectText(control, 0, static_cast<int>(OwnHost.State.Tree.Find(control)->Text.size()));
    });
    Type(text);
}

void Device::OpenList(int id) {
    OnControl(id, "open", [this](WindowHandle control) {
        OwnHost.ControlActions.Focus(control);
        OwnHost.ControlActions.OpenList(control);
    });
}

void Device::CloseList(int id) {
    OnControl(id, "close", [this](WindowHandle control) { OwnHost.ControlActions.CloseList(control); });
}

void Device::Choose(int id, int index) {
    OpenList(id);
    OnControl(id, "choose in", [this, id, index](WindowHandle control) {
        const auto count = static_cast<int>(OwnHost.State.Tree.FindControl(control)->Items.size());
        Expect(OwnHost.State.OpenList == control && index < count,
               "list " + std::to_string(id) + " has no entry " + std::to_string(index) + " open");
        OwnHost.ControlActions.Choose(control, index);
    });
}

void Device::Choose(int id, std::u16string entry) {
    OpenList(id);
    OnControl(id, "choose in", [this, id, entry = std::move(entry)](WindowHandle control) {
        const std::vector<std::u16string>& items = OwnHost.State.Tree.FindControl(control)->Items;
        const auto found = std::find(items.begin(), items.end(), entry);
        Expect(OwnHost.State.OpenList == control && found != items.end(),
               "list " + std::to_string(id) + " has no entry " + locale::ToUtf8(entry) + " open");
        if (found != items.end()) {
            OwnHost.ControlActions.Choose(control, static_cast<int>(found - items.begin()));
        }
    });
}

void Device::PickDate(int id, int year, int month, int day) {
    OnControl(id, "pick a date in", [this, year, month, day](WindowHandle control) {
        SYSTEMTIME date;
        date.Year = static_cast<std::uint16_t>(year);
        date.Month = static_cast<std::uint16_t>(month);
        date.Day = static_cast<std::uint16_t>(day);
        OwnHost.ControlActions.Pick(control, date);
    });
}

void Device::PickTime(int id, int hour, int minute, int second) {
    OnControl(id, "pick a time in", [this, hour, minute, second](WindowHandle control) {
        SYSTEMTIME time;
        time.Hour = static_cast<std::uint16_t>(hour);
        time.Minute = static_cast<std::uint16_t>(minute);
        time.Second = static_cast<std::uint16_t>(second);
        OwnHost.ControlActions.Pick(control, time);
    });
}

void Device::Scroll(int id, int request, int position) {
    OnControl(id, "scroll", [this, request, position](WindowHandle control) {
        OwnHost.ControlActions.Scroll(control, request, position);
    });
}

int Device::FindMenu(std::u16string_view menu) const {
    const shell::MenuBarState* bar = See.MenuBar();
    if (bar == nullptr) {
        return -1;
    }
    const auto found =
        std::find_if(bar->Menus.begin(), bar->Menus.end(), [&](const MenuItem& item) { return item.Text == menu; });
    return found == bar->Menus.end() ? -1 : static_cast<int>(found - bar->Menus.begin());
}

void Device::OpenMenu(std::u16string menu) {
    Do([this, menu = std::move(menu)] {
        const shell::MenuStrip& strip = OwnHost.Chrome().Menus;
        Expect(TapStrip(OwnHost, Touch, strip.MenuPlace(FindMenu(menu))),
               "no menu " + locale::ToUtf8(menu) + " can be opened");
    });
}

void Device::ChooseMenu(std::u16string menu, int command) {
    OpenMenu(std::move(menu));
    Do([this, command] {
        Expect(OwnHost.State.Menus.BarMenu.has_value() && OwnHost.Navigation.ChooseCommand(command),
               "command " + std::to_string(command) + " cannot be chosen from the menu");
        OwnHost.Navigation.CloseBarMenu();
    });
}

void Device::PressBarButton(int command) {
    Do([this, command] {
        const shell::MenuStrip& strip = OwnHost.Chrome().Menus;
        Expect(TapStrip(OwnHost, Touch, strip.ButtonPlace(command)),
               "button " + std::to_string(command) + " cannot be pressed");
    });
}

void Device::ChooseTracked(int command) {
    Do([this, command] {
        Expect(OwnHost.Navigation.ChooseTracked(command),
               "command " + std::to_string(command) + " is not in an open menu");
    });
}

void Device::AnswerBox(int answer) {
    Do([this, answer] {
        const Rect button = OwnHost.Chrome().Box.ButtonPlace(answer);
        Expect(!button.IsEmpty(), "no message box takes the answer " + std::to_string(answer));
        if (!button.IsEmpty()) {
            Touch.Tap(Middle(button));
        }
    });
}

void Device::PressOk() {
    Do([this] { Touch.Tap(Middle(shell::kOkButton)); });
}

void Device::PressClose() {
    Do([this] { Touch.Tap(Middle(shell::kCloseButton)); });
}

void Device::CloseWindow() {
    Do([this] { OwnHost.Navigation.RequestClose(); });
}

void Device::Quit() {
    Do([this] { OwnHost.Navigation.RequestQuit(); });
}

void Device::EndSession() {
    Do([this] { OwnHost.Navigation.RequestQuit(kSessionEnds); });
}

void Device::AdvanceClock(shell::Milliseconds span) {
    Do([this, span] { OwnHost.Time.Pass(span); });
}

void Device::SetClock(const SYSTEMTIME& now) {
    Do([this, now] { Expect(OwnHost.Time.Clock.SetLocalTime(now), "the clock was set to an impossible time"); });
}

void Device::Minimize() {
    Do([this] { OwnHost.State.SetMinimized(true); });
}

void Device::Restore() {
    Do([this] { OwnHost.State.SetMinimized(false); });
}

void Device::ChangeScale() {
    Do([this] { OwnHost.State.AnnounceScale(); });
}

void Device::ChangeStore() {
    Do([this] { OwnHost.State.AnnounceStoreChange(); });
}

void Device::GoOnReminding() {
    Do([this] { OwnHost.State.AnnounceReminders(); });
}

void Device::RequestItem(std::int32_t oid) {
    Do([this, oid] {
        OwnHost.State.SetMinimized(false);
        OwnHost.Items.Make(oid);
    });
}

void Device::RequestItemAtStart(std::int32_t oid) {
    OwnHost.Items.MakeAtStart(oid);
}

} // namespace tavo::headless
