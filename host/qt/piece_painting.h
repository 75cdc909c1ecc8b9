// Painting the device's own chrome.
#pragma once

#include "host/qt/device.h"

#include <QPainter>

namespace tavo::qt {

// Paints the pieces one after the other on a painter that counts real pixels.
void PaintPieces(QPainter& painter, Device& device, const shell::Pieces& pieces);

} // namespace tavo::qt
