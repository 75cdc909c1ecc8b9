// What the device's two bars have in common: their colours, their font, and drawing on them in logical pixels.
#pragma once

#include "host/qt/device.h"

#include <QColor>
#include <QPainter>
#include <QPolygonF>

#include <string_view>

namespace tavo::qt {

constexpr QRgb kBarColor = 0xFF2664B4; // the navigation bar
constexpr QRgb kBarPressedColor = 0xFF1B4C8C;
constexpr QRgb kBarTextColor = 0xFFFFFFFF;
constexpr QRgb kMenuBarColor = 0xFFEDF1F5;
constexpr QRgb kMenuBarEdgeColor = 0xFFC3CAD2;
constexpr QRgb kMenuBarPressedColor = 0xFFD3E2F4;
constexpr QRgb kMenuBarTextColor = 0xFF333D47;
constexpr QRgb kMenuBarGreyedColor = 0xFF9AA5B1;

// Draws in logical pixels of the screen on a painter that counts real ones.
class BarPainter {
  public:
    BarPainter(QPainter& painter, const ScreenGeometry& geometry) : Target(painter), Geometry(geometry) {}

    void Fill(const Rect& area, QRgb color);
    // On one line, in the middle of the height; from the left edge, or centred.
    void Text(Font& font, std::u16string_view text, const Rect& area, QRgb color, bool isCentred);
    // Whole words on as many lines as it takes.
    void Paragraph(Font& font, std::u16string_view text, const Rect& area, QRgb color);
    // Lines that have their places, cut at the area.
    void Lines(Font& font, const std::vector<shell::PlacedLine>& lines, const Rect& area, QRgb color);
    // A smooth line between the middles of two logical pixels.
    void Line(QPointF from, QPointF to, double width, QRgb color);
    // Filled, with corners rounded by a line of this width; points are the middles of logical pixels.
    void Polygon(const QPolygonF& points, double width, QRgb color);
    void RoundedFill(const Rect& area, double radius, QRgb color);
    void Frame(const Rect& area, double radius, QRgb color);
    void Picture(Pictures& pictures, int bitmap, Point at, const Rect& source, double opacity);

  private:
    QPointF Exact(QPointF middle) const;
    QRectF Exact(const Rect& area) const;

    QPainter& Target;
    const ScreenGeometry& Geometry;
};

// Pieces of the device's chrome, one after the other.
void PaintPieces(QPainter& painter, Device& device, const shell::Pieces& pieces);

} // namespace tavo::qt
