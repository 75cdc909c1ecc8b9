// Walks over the windows.
#include "host/shell/window_tree.h"

#include <algorithm>
#include <utility>

namespace tavo::shell {

WindowRecord& WindowTree::Add(WindowRecord record) {
    const WindowHandle handle = record.Handle;
    WindowRecord& added = Records[handle];
    added = std::move(record);
    if (added.Visible) {
        MarkShown(added);
    }
    return added;
}

WindowRecord* WindowTree::Find(WindowHandle window) {
    const auto found = Records.find(window);
    return found == Records.end() ? nullptr : &found->second;
}

const WindowRecord* WindowTree::Find(WindowHandle window) const {
    const auto found = Records.find(window);
    return found == Records.end() ? nullptr : &found->second;
}

ControlState* WindowTree::FindControl(WindowHandle window) {
    WindowRecord* record = Find(window);
    return record == nullptr || !record->Control ? nullptr : &*record->Control;
}

const ControlState* WindowTree::FindControl(WindowHandle window) const {
    const WindowRecord* record = Find(window);
    return record == nullptr || !record->Control ? nullptr : &*record->Control;
}

std::vector<WindowHandle> WindowTree::ChildrenOf(WindowHandle window) const {
    std::vector<WindowHandle> children;
    for (const auto& [handle, record] : Records) {
        if (record.Parent == window) {
            children.push_back(handle);
        }
    }
    return children;
}

std::vector<WindowHandle> WindowTree::Subtree(WindowHandle window) const {
    std::vector<WindowHandle> subtree;
    for (const WindowHandle child : ChildrenOf(window)) {
        const std::vector<WindowHandle> below = Subtree(child);
        subtree.insert(subtree.end(), below.begin(), below.end());
    }
    subtree.push_back(window);
    return subtree;
}

std::vector<WindowHandle> WindowTree::AllParentsFirst() const {
    // Handles count up and a parent is made before its children, so the order of creation has parents first.
    std::vector<WindowHandle> all;
    all.reserve(Records.size());
    for (const auto& [handle, record] : Records) {
        all.push_back(handle);
    }
    return all;
}

bool WindowTree::Lies(WindowHandle window, WindowHandle within) const {
    for (const WindowRecord* record = Find(window); record != nullptr; record = Find(record->Parent)) {
        if (record->Handle == within) {
            return true;
        }
    }
    return false;
}

bool WindowTree::IsVisible(WindowHandle window) const {
    const WindowRecord* record = Find(window);
    if (record == nullptr) {
        return false;
    }
    for (; record != nullptr; record = Find(record->Parent)) {
        if (!record->Visible) {
            return false;
        }
    }
    return true;
}

bool WindowTree::IsEnabled(WindowHandle window) const {
    const WindowRecord* record = Find(window);
    if (record == nullptr) {
        return false;
    }
    for (; record != nullptr; record = Find(record->Parent)) {
        if (!record->Enabled) {
            return false;
        }
        if (record->Kind == WindowKind::Dialog) {
            return true;
        }
    }
    return true;
}

Rect WindowTree::ScreenBounds(WindowHandle window) const {
    const WindowRecord* record = Find(window);
    if (record == nullptr) {
        return {};
    }
    switch (record->Kind) {
    case WindowKind::Frame:
        return Rect::FromSize(0, 0, kScreenSize.Width, kScreenSize.Height);
    case WindowKind::View:
    case WindowKind::Page:
        return kClientArea;
    case WindowKind::Dialog:
        if (record->Bounds.IsEmpty()) {
            return kClientArea;
        }
        return Rect::FromSize(kClientArea.Left + record->Bounds.Left, kClientArea.Top + record->Bounds.Top,
                              record->Bounds.Width(), record->Bounds.Height());
    case WindowKind::Child:
        break;
    }
    const Rect parent = ScreenBounds(record->Parent);
    return Rect::FromSize(parent.Left + record->Bounds.Left, parent.Top + record->Bounds.Top, record->Bounds.Width(),
                          record->Bounds.Height());
}

Size WindowTree::ClientSize(WindowHandle window) const {
    const Rect bounds = ScreenBounds(window);
    return {bounds.Width(), bounds.Height()};
}

Point WindowTree::ToWindow(WindowHandle window, Point screen) const {
    const Rect bounds = ScreenBounds(window);
    return {screen.X - bounds.Left, screen.Y - bounds.Top};
}

WindowHandle WindowTree::Frame() const {
    const auto found = std::find_if(Records.begin(), Records.end(),
                                    [](const auto& entry) { return entry.second.Kind == WindowKind::Frame; });
    return found == Records.end() ? WindowHandle::None : found->first;
}

WindowHandle WindowTree::LastShown(WindowKind kind) const {
    const WindowRecord* last = nullptr;
    for (const auto& [handle, record] : Records) {
        if (record.Kind == kind && IsVisible(handle) && (last == nullptr || record.ShownOrder > last->ShownOrder)) {
            last = &record;
        }
    }
    return last == nullptr ? WindowHandle::None : last->Handle;
}

WindowHandle WindowTree::TopDialog() const {
    return LastShown(WindowKind::Dialog);
}

WindowHandle WindowTree::ShownPage() const {
    return LastShown(WindowKind::Page);
}

WindowHandle WindowTree::Top() const {
    if (const WindowHandle dialog = TopDialog(); dialog != WindowHandle::None) {
        return dialog;
    }
    if (const WindowHandle page = ShownPage(); page != WindowHandle::None) {
        return page;
    }
    return Frame();
}

WindowHandle WindowTree::Ground(WindowHandle window) const {
    const WindowRecord* record = Find(window);
    while (record != nullptr && record->Kind == WindowKind::Child) {
        record = Find(record->Parent);
    }
    return record == nullptr ? WindowHandle::None : record->Handle;
}

WindowHandle WindowTree::HitTest(Point screen) const {
    std::vector<const WindowRecord*> dialogs;
    for (const auto& [handle, record] : Records) {
        if (record.Kind == WindowKind::Dialog && IsVisible(handle) && ScreenBounds(handle).Contains(screen)) {
            dialogs.push_back(&record);
        }
    }
    if (!dialogs.empty()) {
        const auto isBelow = [](const WindowRecord* one, const WindowRecord* other) {
            return one->ShownOrder < other->ShownOrder;
        };
        return HitWithin((*std::max_element(dialogs.begin(), dialogs.end(), isBelow))->Handle, screen);
    }
    if (!kClientArea.Contains(screen)) {
        return WindowHandle::None;
    }
    if (const WindowHandle page = ShownPage(); page != WindowHandle::None) {
        return HitWithin(page, screen);
    }
    return LastShown(WindowKind::View);
}

WindowHandle WindowTree::HitWithin(WindowHandle window, Point screen) const {
    const WindowRecord* top = nullptr;
    for (const WindowHandle child : ChildrenOf(window)) {
        const WindowRecord& record = *Find(child);
        const bool letsThrough = record.Control && record.Control->Kind == ControlKind::Label;
        if (record.Kind == WindowKind::Child && record.Visible && !letsThrough &&
            ScreenBounds(child).Contains(screen) && (top == nullptr || record.ShownOrder > top->ShownOrder)) {
            top = &record;
        }
    }
    return top == nullptr ? window : HitWithin(top->Handle, screen);
}

} // namespace tavo::shell
