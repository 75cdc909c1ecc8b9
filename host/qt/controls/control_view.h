// A native control's widget, kept in step with what the shell knows about the control.
#pragma once

#include "host/qt/device.h"

#include <QWidget>

#include <memory>

namespace tavo::qt {

class ControlView {
  public:
    ControlView(Device& device, WindowHandle control) : Shared(device), Control(control) {}

    ControlView(const ControlView&) = delete;
    ControlView& operator=(const ControlView&) = delete;
    virtual ~ControlView() = default;

    virtual QWidget& Widget() = 0;
    // Text, entries, check, time and the like; the person's own changes come back here too.
    virtual void ShowState(const shell::WindowRecord& record) = 0;

    // The list or month calendar; nothing for controls without one.
    virtual void OpenList() {}

    virtual void CloseList() {}

  protected:
    const shell::WindowRecord* Record() const { return Shared.State.Tree.Find(Control); }

    Device& Shared;
    WindowHandle Control;
};

// The widget for a control, hidden, as a child of the painted window it lies on.
std::unique_ptr<ControlView> MakeControlView(Device& device, const shell::WindowRecord& record, QWidget* parent);

} // namespace tavo::qt
