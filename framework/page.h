// Base class of the full-screen pages: a child of the view with the whole client area and a menu bar.
#pragma once

#include "framework/form_window.h"

namespace tavo {

// Row 267 of the client area stays white: the surface is one row shorter.
constexpr Size kPageSurface{240, 267};

class CPage : public CFormWindow {
  public:
    CPage(CMessagePump& pump, const DialogTemplate& form) : CFormWindow(pump, form, kPageSurface) {}

  protected:
    // Makes the page hidden, with × in the navigation bar. False when the device cannot make it.
    bool CreatePage(WindowHandle view) {
        WindowDescription description;
        description.Kind = WindowKind::Page;
        description.Title = Form().Title;
        description.Parent = view;
        description.Bounds = Rect::FromSize(0, 0, kClientArea.Width(), kClientArea.Height());
        description.Buttons = NavigationButtons::Close;
        return CreateForm(description);
    }
};

} // namespace tavo
