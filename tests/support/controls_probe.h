// Controls that write down which text was selected and cannot be made where a test says so; all else is passed on.
#pragma once

#include "platform/controls.h"

#include <optional>
#include <utility>
#include <vector>

namespace tavo::test {

class ControlsProbe final : public IControls {
  public:
    explicit ControlsProbe(IControls& controls) : Real(controls) {}

    WindowHandle CreateControl(WindowHandle parent, const ControlDescription& description) override {
        return description.Kind == Unknown ? WindowHandle::None : Real.CreateControl(parent, description);
    }

    std::u16string GetWindowTextW(WindowHandle control) override { return Real.GetWindowTextW(control); }

    void SetTextLimit(WindowHandle control, int characters) override { Real.SetTextLimit(control, characters); }

    void SetTextSelection(WindowHandle control, int first, int last) override {
        Selections.emplace_back(first, last);
        Real.SetTextSelection(control, first, last);
    }

    void SetListItems(WindowHandle control, std::span<const std::u16string> items) override {
        Real.SetListItems(control, items);
    }

    int GetCurSel(WindowHandle control) override { return Real.GetCurSel(control); }

    void SetCurSel(WindowHandle control, int index) override { Real.SetCurSel(control, index); }

    bool GetCheck(WindowHandle control) override { return Real.GetCheck(control); }

    void SetCheck(WindowHandle control, bool checked) override { Real.SetCheck(control, checked); }

    SYSTEMTIME GetSystemtime(WindowHandle control) override { return Real.GetSystemtime(control); }

    bool SetSystemtime(WindowHandle control, const SYSTEMTIME& time) override {
        return Real.SetSystemtime(control, time);
    }

    ScrollInfo GetScrollInfo(WindowHandle control) override { return Real.GetScrollInfo(control); }

    void SetScrollInfo(WindowHandle control, const ScrollInfo& info) override { Real.SetScrollInfo(control, info); }

    std::optional<ControlKind> Unknown; // to the device: none of these can be made
    std::vector<std::pair<int, int>> Selections;

  private:
    IControls& Real;
};

} // namespace tavo::test
