// Memos as standard files: vectors or a picture, at the size of the paper.
#pragma once

#include "host/ink/stroke.h"

#include <QSizeF>
#include <QString>

#include <vector>

class QPainter;

namespace tavo::qt {

enum class ExportFormat { Svg, Png, Pdf };

// Of the paper that holds these strokes; pixels of zoom 100, of which 96 are an inch.
QSizeF PaperSizeFor(const std::vector<ink::PlacedStroke>& strokes);

// Draws each stroke as one shape. The painter counts pixels of zoom 100.
void DrawStrokes(QPainter& painter, const std::vector<ink::PlacedStroke>& strokes);

// False when the file cannot be written.
bool ExportStrokes(const std::vector<ink::PlacedStroke>& strokes, ExportFormat format, const QString& path,
                   const QString& title);

} // namespace tavo::qt
