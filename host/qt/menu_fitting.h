// How every pop-up menu looks and where it may lie.
#pragma once

#include "host/qt/screen_geometry.h"

class QMenu;

namespace tavo::qt {

void UseMenuFont(QMenu& menu, const ScreenGeometry& geometry);

// A menu that comes on show stays within the device's screen (`screen`: on the desktop), and scrolls where it is too
// long for it.
void FitToScreen(QMenu& menu, const QRect& screen);

} // namespace tavo::qt
