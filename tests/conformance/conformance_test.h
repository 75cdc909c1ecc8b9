// The scratch program on the host under test.
#pragma once

#include "tests/conformance/driver_steps.h"
#include "tests/conformance/scratch_program.h"

#include <gtest/gtest.h>

namespace tavo::conformance {

class ConformanceTest : public ::testing::Test {
  protected:
    ConformanceTest();

    // A tap on the page opens the dialog; `Dialog` is it while it is open.
    void OpenDialogOnTap();

    void TapControl(int control) { Steps.TapScreen(PlaceOf(control)); }

    // To be called from within a step: ends the dialog, and wakes the program so that it sees that.
    void End(int result);

    WindowHandle DialogItem(int control) const {
        return Dialog == nullptr ? WindowHandle::None : Dialog->Item(control);
    }

    std::unique_ptr<IDeviceDriver> Driver = MakeDriver();
    IHost& Host = Driver->Host();
    DriverSteps Steps{*Driver};
    CMessagePump Pump{Host};
    ScratchWindow Frame{Pump};
    ScratchWindow View{Pump};
    ScratchPage Page{Pump};
    ScratchDialog* Dialog = nullptr;
    std::function<void(ScratchDialog&)> Prepare; // before the dialog opens
    std::vector<int> Results;                    // of the dialogs that ended
    MessageLog Ended;                            // the last dialog's log
};

} // namespace tavo::conformance
