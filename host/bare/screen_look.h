// The device's whole screen, as a host without widgets shows it.
#pragma once

#include "host/bare/painted_drawing.h"
#include "host/bare/popup.h"

namespace tavo::bare {

// On a white canvas of the screen's size: windows and controls in their order, and the chrome above them.
void PaintScreen(ICanvas& canvas, BareHost& host, PaintedDrawing& drawing, Popup& popup);

} // namespace tavo::bare
