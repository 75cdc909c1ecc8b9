// Base class of windows made from a dialog template: their controls by id, and a surface behind them.
#pragma once

#include "framework/dialog_template.h"
#include "framework/painted_window.h"

#include <string>
#include <unordered_map>

namespace tavo {

class CFormWindow : public CPaintedWindow {
  public:
    CFormWindow(CMessagePump& pump, const DialogTemplate& form, Size surfaceSize);

    // The control with this id, None when the template has none (or the device could not make it).
    WindowHandle Item(int id) const;

  protected:
    // Makes the window and the template's controls, hidden ones hidden. False when the device cannot make the window.
    bool CreateForm(const WindowDescription& description);

    const DialogTemplate& Form() const { return Template; }

    // Makes one more control, such as a scroll bar that the template does not have.
    WindowHandle AddControl(const ControlDescription& description);

    std::u16string ItemText(int id) const;
    void SetItemText(int id, std::u16string_view text);
    void ShowItem(int id, bool show);
    void EnableItem(int id, bool enable);
    void MoveItem(int id, const Rect& pixels);

    void RepaintAll() override {}

    // White, under the controls.
    void Paint() override;

  private:
    const DialogTemplate& Template;
    std::unordered_map<int, WindowHandle> Items;
};

} // namespace tavo
