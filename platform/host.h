// The device: hands out its interfaces and owns them.
#pragma once

#include "platform/clock.h"
#include "platform/com_ptr.h"
#include "platform/controls.h"
#include "platform/drawing.h"
#include "platform/files.h"
#include "platform/ink.h"
#include "platform/input_panel.h"
#include "platform/locale.h"
#include "platform/menus.h"
#include "platform/message_queue.h"
#include "platform/outlook.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/sound.h"
#include "platform/status.h"
#include "platform/windows.h"

namespace tavo {

// All references stay valid while the host lives.
class IHost {
  public:
    virtual ~IHost() = default;
    virtual IMessageQueue& Queue() = 0;
    virtual IWindows& Windows() = 0;
    virtual IDrawing& Drawing() = 0;
    virtual IControls& Controls() = 0;
    virtual IMenus& Menus() = 0;
    virtual IInk& Ink() = 0;
    virtual IInputPanel& InputPanel() = 0;
    virtual IFiles& Files() = 0;
    virtual IRegistry& Registry() = 0;
    virtual IProcesses& Processes() = 0;
    virtual ISound& Sound() = 0;
    virtual IClock& Clock() = 0;
    virtual ILocale& Locale() = 0;

    virtual Status CoInitializeEx() = 0;
    virtual void CoUninitialize() = 0;
    // The Pocket Outlook application object (class {05058F22-20BE-11D2-8F18-0000F87A4335}), not logged on.
    virtual Status CoCreateInstance(ComPtr<IPOutlookApp>& outlook) = 0;
    virtual ErrorCode GetLastError() = 0; // of the last store call that failed
};

} // namespace tavo
