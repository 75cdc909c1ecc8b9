// Finding things on the device's screen.
#include "host/headless/device_sight.h"

#include "host/shell/chrome/chrome.h"

#include <algorithm>

namespace tavo::headless {

std::u16string DeviceSight::Caption() const {
    return Host.Chrome().Navigation.Title();
}

bool DeviceSight::IsDialogOpen() const {
    return Host.State.Tree.TopDialog() != WindowHandle::None;
}

WindowHandle DeviceSight::Control(int id) const {
    for (const WindowHandle window : Host.State.Tree.Subtree(Top())) {
        const shell::ControlState* control = Host.State.Tree.FindControl(window);
        if (control != nullptr && control->Id == id && Host.State.Tree.Ground(window) == Top()) {
            return window;
        }
    }
    return WindowHandle::None;
}

bool DeviceSight::IsShown(int id) const {
    return Host.State.Tree.IsVisible(Control(id));
}

bool DeviceSight::IsEnabled(int id) const {
    return Host.State.TakesInput(Control(id));
}

std::u16string DeviceSight::TextOf(int id) const {
    const shell::WindowRecord* record = Host.State.Tree.Find(Control(id));
    return record == nullptr ? std::u16string() : record->Text;
}

bool DeviceSight::IsChecked(int id) const {
    const shell::ControlState* control = Host.State.Tree.FindControl(Control(id));
    return control != nullptr && control->Checked;
}

int DeviceSight::SelectionOf(int id) const {
    const shell::ControlState* control = Host.State.Tree.FindControl(Control(id));
    return control == nullptr ? -1 : control->Current;
}

std::vector<std::u16string> DeviceSight::ListOf(int id) const {
    const shell::ControlState* control = Host.State.Tree.FindControl(Control(id));
    return control == nullptr ? std::vector<std::u16string>() : control->Items;
}

std::optional<Color> DeviceSight::PixelAt(int x, int y) const {
    return ScreenPixelAt({x + kClientArea.Left, y + kClientArea.Top});
}

std::optional<Color> DeviceSight::ScreenPixelAt(Point screen) const {
    const shell::WindowTree& tree = Host.State.Tree;
    for (const shell::WindowRecord* window = tree.Find(tree.HitTest(screen)); window != nullptr;
         window = tree.Find(window->Parent)) {
        const Frame* frame = Host.Drawn.LastFrame(window->Handle);
        const Point inside = tree.ToWindow(window->Handle, screen);
        if (frame != nullptr) {
            const Size size = frame->Picture.GetSize();
            if (Rect::FromSize(0, 0, size.Width, size.Height).Contains(inside)) {
                return frame->Picture.At(inside);
            }
        }
    }
    return std::nullopt;
}

std::vector<PaintedItem> DeviceSight::Items() const {
    const shell::WindowTree& tree = Host.State.Tree;
    std::vector<PaintedItem> items;
    const std::vector<WindowHandle> innermostFirst = tree.Subtree(Top());
    for (auto window = innermostFirst.rbegin(); window != innermostFirst.rend(); ++window) {
        const Frame* frame = Host.Drawn.LastFrame(*window);
        if (frame == nullptr || !tree.IsVisible(*window) || tree.Ground(*window) != Top()) {
            continue;
        }
        const Rect place = tree.ScreenBounds(*window);
        for (PaintedItem item : frame->Items) {
            item.Bounds = Rect::FromSize(item.Bounds.Left + place.Left - kClientArea.Left,
                                         item.Bounds.Top + place.Top - kClientArea.Top, item.Bounds.Width(),
                                         item.Bounds.Height());
            items.push_back(std::move(item));
        }
    }
    return items;
}

std::optional<PaintedItem> DeviceSight::FindItem(PaintedRole role, std::u16string_view name) const {
    for (PaintedItem& item : Items()) {
        if (item.Role == role && item.Name == name) {
            return std::move(item);
        }
    }
    return std::nullopt;
}

std::vector<Placed> DeviceSight::Visible() const {
    const Frame* frame = LastFrame();
    return frame == nullptr ? std::vector<Placed>() : frame->Picture.Visible();
}

bool DeviceSight::ShowsText(std::u16string_view text) const {
    const std::vector<Placed> visible = Visible();
    return std::any_of(visible.begin(), visible.end(),
                       [&](const Placed& placed) { return placed.Bitmap == 0 && placed.Text == text; });
}

bool DeviceSight::ShowsBitmap(int bitmap) const {
    const std::vector<Placed> visible = Visible();
    return std::any_of(visible.begin(), visible.end(), [&](const Placed& placed) { return placed.Bitmap == bitmap; });
}

} // namespace tavo::headless
