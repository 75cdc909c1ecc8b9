// Base class of the recurrence wizard's pages.
#pragma once

#include "framework/form_window.h"

namespace tavo {

enum class Validation { Off, On };

// A child of the wizard's frame. Keys that it and its controls have no use for go to the frame.
class CWizardPage : public CFormWindow {
  public:
    CWizardPage(CMessagePump& pump, const DialogTemplate& form);

    // Makes the page, hidden. False when it is not made from this template, or the device cannot make it.
    bool CreateIn(WindowHandle frame, int templateId);

    void DestroyPage() { Destroy(); }

    // Reads the controls into the page's fields. False when they cannot stand so; a message has then been shown.
    virtual bool UpdateData() = 0;
    // Reads the controls and writes the page's part of the pattern; with validation on, only what may stand so. False
    // when it was not written for that; a message has then been shown.
    virtual bool WriteToPattern(Validation validation) = 0;

    // The focus moved by key.
    void ShowFocus() { Invalidate(); }

  protected:
    virtual void OnInitDialog() = 0;

    void HandleByDefault(const Message& message) override;

  private:
    WindowHandle Frame = WindowHandle::None;
};

} // namespace tavo
