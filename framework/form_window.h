// Base class of windows made from a dialog template: their controls by id, and a surface behind them.
#pragma once

#include "framework/dialog_template.h"
#include "framework/painted_window.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace tavo {

class CFormWindow : public CPaintedWindow {
  public:
    CFormWindow(CMessagePump& pump, const DialogTemplate& form, Size surfaceSize);

    // The control with this id, None when the template has none (or the device could not make it).
    WindowHandle Item(int id) const;

    // What Tab walks through, in this order: the controls of the template that can be used now.
    virtual std::vector<WindowHandle> FocusStops() const;

  protected:
    // Moves the focus to the next stop, or with -1 to the one before, around the ends.
    virtual void WalkFocus(int step);

    // The stop after this one, or with -1 the one before it, around the ends; the first or the last for what is none of
    // them. There is at least one.
    template <class Stop> static Stop NextStop(const std::vector<Stop>& stops, Stop from, int step) {
        const auto count = static_cast<std::ptrdiff_t>(stops.size());
        const auto found = std::find(stops.begin(), stops.end(), from);
        std::ptrdiff_t next = step > 0 ? 0 : count - 1;
        if (found != stops.end()) {
            next = (found - stops.begin() + step + count) % count;
        }
        return stops[static_cast<std::size_t>(next)];
    }

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
