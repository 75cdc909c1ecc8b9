// Copied ink as a picture for other programs.
#pragma once

#include "host/ink/stroke.h"

#include <QImage>

#include <vector>

namespace tavo::qt {

// The strokes alone, on white, at this many real pixels to a pixel of zoom 100.
QImage PaintStrokes(const std::vector<ink::PlacedStroke>& strokes, double scale);

// Puts the strokes' picture on the desktop's clipboard.
void CopyPicture(const std::vector<ink::PlacedStroke>& strokes);

} // namespace tavo::qt
