// Keeps one widget for every window and control of the shell that has been seen.
#pragma once

#include "host/qt/control_filter.h"
#include "host/qt/controls/control_view.h"
#include "host/qt/desktop_window.h"
#include "host/qt/keyboard.h"
#include "host/qt/painted_widget.h"

#include <map>
#include <memory>
#include <set>

namespace tavo::qt {

class WindowViews {
  public:
    WindowViews(Device& device, DesktopWindow& desktop);
    ~WindowViews();
    WindowViews(const WindowViews&) = delete;
    WindowViews& operator=(const WindowViews&) = delete;

    // What changed is noted and brought to the widgets in one go by Update.
    void NotePlaces() { PlacesChanged = true; }

    void NoteState(WindowHandle control) { ChangedStates.insert(control); }

    void NoteFocus() { FocusChanged = true; }

    void Update();
    // Everything lies elsewhere now.
    void MoveAll();
    // The window is about to go, its children have gone.
    void Drop(WindowHandle window);

    // The widget of a painted window that can be seen, or null.
    PaintedWidget* FindPainted(WindowHandle window);
    ControlView* FindControl(WindowHandle control);

    Keyboard& Keys() { return OwnKeyboard; }

    void SetFrameWatch(std::function<void()> watch) { FrameWatch = std::move(watch); }

  private:
    struct View {
        std::unique_ptr<PaintedWidget> Painted;
        std::unique_ptr<ControlView> Control;
    };

    void UpdatePlace(const shell::WindowRecord& record);
    void PlaceControl(const shell::WindowRecord& record, ControlView& view);
    void StackDialogs();
    void UpdateFocus();
    void NameByLabel(const shell::WindowRecord& changed);
    QWidget* ParentFor(const shell::WindowRecord& record);

    Device& Shared;
    DesktopWindow& Desktop;
    Keyboard OwnKeyboard;
    ControlFilter Filter;
    std::map<WindowHandle, View> Views;
    std::set<WindowHandle> ChangedStates;
    std::function<void()> FrameWatch;
    bool PlacesChanged = false;
    bool FocusChanged = false;
};

} // namespace tavo::qt
