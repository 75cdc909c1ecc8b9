// How every pop-up menu looks and where it may lie.
#pragma once

#include "host/qt/screen_geometry.h"

class QFont;
class QMenu;

namespace tavo::qt {

void UseMenuFont(QMenu& menu, const ScreenGeometry& geometry);

// The same font at scale 1, unhinted: what texts are shortened by.
QFont LogicalMenuFont(const QMenu& menu);

// A menu that comes on show stays within the device's screen (`screen`: on the desktop).
void FitToScreen(QMenu& menu, const QRect& screen);

} // namespace tavo::qt
