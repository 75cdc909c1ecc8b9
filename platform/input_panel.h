// The soft input panel: the on-screen keyboard.
#pragma once

#include "platform/geometry.h"
#include "platform/handles.h"

namespace tavo {

struct SipInfo {
    bool Shown = false;
    Rect VisibleDesktop; // the part of the screen that the panel leaves free
    Rect Panel;          // where the panel lies while it is shown
};

class IInputPanel {
  public:
    virtual ~IInputPanel() = default;
    virtual SipInfo SipGetInfo() = 0;
    virtual void SipSetInfo(const SipInfo& info) = 0;
    virtual void SHSipPreference(WindowHandle window, bool up) = 0;
};

} // namespace tavo
