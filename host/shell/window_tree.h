// All windows of the program: who lies in whom, what is seen, what takes input, and what lies at a point.
#pragma once

#include "host/shell/window_record.h"

#include <map>
#include <vector>

namespace tavo::shell {

class WindowTree {
  public:
    // Handles count up and never come again, also those of menu bars.
    WindowHandle NewHandle() { return WindowHandle{++LastHandle}; }

    WindowRecord& Add(WindowRecord record);

    // The window alone; its children must have gone before.
    void Remove(WindowHandle window) { Records.erase(window); }

    WindowRecord* Find(WindowHandle window);
    const WindowRecord* Find(WindowHandle window) const;
    // Null when it is no control.
    ControlState* FindControl(WindowHandle window);
    const ControlState* FindControl(WindowHandle window) const;

    std::vector<WindowHandle> ChildrenOf(WindowHandle window) const; // in order of creation
    std::vector<WindowHandle> AllParentsFirst() const;
    // The window and everything in it, innermost first.
    std::vector<WindowHandle> Subtree(WindowHandle window) const;
    bool Lies(WindowHandle window, WindowHandle within) const; // in it at any depth, or the window itself

    bool IsVisible(WindowHandle window) const; // itself and all its parents
    bool IsEnabled(WindowHandle window) const; // itself and its parents up to its dialog or frame

    // Where it lies on the screen. The frame is the screen; view and pages are the client area.
    Rect ScreenBounds(WindowHandle window) const;
    Size ClientSize(WindowHandle window) const;
    Point ToWindow(WindowHandle window, Point screen) const;

    WindowHandle Frame() const;     // None before it is made
    WindowHandle TopDialog() const; // the visible dialog that was shown last, or None
    WindowHandle ShownPage() const; // the visible page that was shown last, or None
    // Whose caption and buttons the navigation bar shows: top dialog, else shown page, else frame.
    WindowHandle Top() const;
    // The innermost visible window at a point of the client area, or None. Labels let everything through.
    WindowHandle HitTest(Point screen) const;
    // The dialog, page, view or frame that a window lies in, or the window itself when it is one.
    WindowHandle Ground(WindowHandle window) const;

    void MarkShown(WindowRecord& record) { record.ShownOrder = ++ShowCount; }

  private:
    WindowHandle LastShown(WindowKind kind) const;
    WindowHandle HitWithin(WindowHandle window, Point screen) const;

    std::map<WindowHandle, WindowRecord> Records; // in order of creation
    std::uint32_t LastHandle = 0;
    std::uint64_t ShowCount = 0;
};

} // namespace tavo::shell
