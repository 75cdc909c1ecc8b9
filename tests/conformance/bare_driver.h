// What the suite's hands and eyes on hosts without widgets have in common.
#pragma once

#include "host/bare/bare_host.h"
#include "tests/conformance/device_driver.h"

namespace tavo::conformance {

class BareDriver : public IDeviceDriver {
  public:
    void PressKey(int key, int modifiers) override;
    void ReleaseKey(int key, int modifiers) override;
    void TypeCharacter(char16_t character) override;
    void Pick(WindowHandle control, const SYSTEMTIME& time) override;
    void Scroll(WindowHandle control, int request, int position) override;
    void RequestClose() override;
    void RequestQuit() override;
    void Minimize(bool minimized) override;

    std::u16string Caption() override;
    bool IsListOpen(WindowHandle control) override;
    std::vector<std::u16string> EntriesOf(WindowHandle control) override;
    std::u16string ShownTextOf(WindowHandle control) override;
    bool IsControlShown(WindowHandle control) override;
    std::vector<MenuItem> TrackedItems() override;
    std::vector<MenuItem> OpenBarItems() override;
    std::u16string BoxText() override;

  protected:
    virtual bare::BareHost& Real() = 0;
};

} // namespace tavo::conformance
