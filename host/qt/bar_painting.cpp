// Drawing the device's bars.
#include "host/qt/bar_painting.h"

#include "host/shell/chrome/text_placement.h"

#include <algorithm>

namespace tavo::qt {
namespace {

QPointF ToPoint(const shell::Spot& spot) {
    return {spot.X, spot.Y};
}

// One piece after the other, by its kind.
class PiecePainter {
  public:
    PiecePainter(QPainter& painter, Device& device) : Painter(painter, device.Geometry), Shared(device) {}

    void operator()(const shell::FillPiece& piece) { Painter.Fill(piece.Area, piece.Ink); }

    void operator()(const shell::RoundedFillPiece& piece) { Painter.RoundedFill(piece.Area, piece.Radius, piece.Ink); }

    void operator()(const shell::FramePiece& piece) { Painter.Frame(piece.Area, piece.Radius, piece.Ink); }

    void operator()(const shell::LinePiece& piece) {
        Painter.Line(ToPoint(piece.From), ToPoint(piece.To), piece.Width, piece.Ink);
    }

    void operator()(const shell::PolygonPiece& piece) {
        QPolygonF corners;
        for (const shell::Spot& corner : piece.Corners) {
            corners.append(ToPoint(corner));
        }
        Painter.Polygon(corners, piece.Width, piece.Ink);
    }

    void operator()(const shell::TextPiece& piece) {
        Painter.Lines(Shared.ChromeFonts.Find(piece.Font), piece.Lines, piece.Area, piece.Ink);
    }

    void operator()(const shell::PicturePiece& piece) {
        Painter.Picture(Shared.Pictures, piece.Bitmap, piece.At, piece.Source, piece.Opacity);
    }

  private:
    BarPainter Painter;
    Device& Shared;
};

} // namespace

QRectF BarPainter::Exact(const Rect& area) const {
    return QRectF(Geometry.RealPixels(area));
}

void BarPainter::Fill(const Rect& area, QRgb color) {
    Target.fillRect(Geometry.RealPixels(area), QColor::fromRgba(color));
}

QPointF BarPainter::Exact(QPointF middle) const {
    return (middle + QPointF(0.5, 0.5)) * Geometry.Scale.Factor + QPointF(Geometry.Origin);
}

void BarPainter::Text(Font& font, std::u16string_view text, const Rect& area, QRgb color, bool isCentred) {
    const std::uint32_t format = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | (isCentred ? DT_CENTER : DT_LEFT);
    Lines(font, PlaceText(font, text, area, format), area, color);
}

void BarPainter::Paragraph(Font& font, std::u16string_view text, const Rect& area, QRgb color) {
    Lines(font, PlaceText(font, text, area, DT_WORDBREAK | DT_NOPREFIX), area, color);
}

void BarPainter::Lines(Font& font, const std::vector<shell::PlacedLine>& lines, const Rect& area, QRgb color) {
    Target.setPen(QColor::fromRgba(color));
    Target.save();
    Target.setClipRect(Geometry.RealPixels(area), Qt::IntersectClip);
    for (const shell::PlacedLine& line : lines) {
        const QPoint start(Geometry.Scale.Edge(line.Left), Geometry.Scale.Edge(line.Baseline));
        font.Draw(Target, font.Shape(line.Text), start + Geometry.Origin, Geometry.Scale);
    }
    Target.restore();
}

void BarPainter::Line(QPointF from, QPointF to, double width, QRgb color) {
    Target.setRenderHint(QPainter::Antialiasing, true);
    Target.setPen(QPen(QColor::fromRgba(color), width * Geometry.Scale.Factor, Qt::SolidLine, Qt::RoundCap));
    Target.drawLine(Exact(from), Exact(to));
    Target.setRenderHint(QPainter::Antialiasing, false);
}

void BarPainter::Polygon(const QPolygonF& points, double width, QRgb color) {
    QPolygonF exact;
    for (const QPointF& point : points) {
        exact.append(Exact(point));
    }
    const QColor ink = QColor::fromRgba(color);
    Target.setRenderHint(QPainter::Antialiasing, true);
    Target.setPen(QPen(ink, width * Geometry.Scale.Factor, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    Target.setBrush(ink);
    Target.drawPolygon(exact);
    Target.setRenderHint(QPainter::Antialiasing, false);
}

void BarPainter::RoundedFill(const Rect& area, double radius, QRgb color) {
    Target.setRenderHint(QPainter::Antialiasing, true);
    Target.setPen(Qt::NoPen);
    Target.setBrush(QColor::fromRgba(color));
    Target.drawRoundedRect(Exact(area), radius * Geometry.Scale.Factor, radius * Geometry.Scale.Factor);
    Target.setRenderHint(QPainter::Antialiasing, false);
}

void BarPainter::Frame(const Rect& area, double radius, QRgb color) {
    const double width = std::max(1, Geometry.Scale.Edge(1));
    Target.setRenderHint(QPainter::Antialiasing, true);
    Target.setPen(QPen(QColor::fromRgba(color), width));
    Target.setBrush(Qt::NoBrush);
    const QRectF middle = Exact(area).adjusted(width / 2, width / 2, -width / 2, -width / 2);
    Target.drawRoundedRect(middle, radius * Geometry.Scale.Factor, radius * Geometry.Scale.Factor);
    Target.setRenderHint(QPainter::Antialiasing, false);
}

void BarPainter::Picture(Pictures& pictures, int bitmap, Point at, const Rect& source, double opacity) {
    const QRect target = Geometry.RealPixels(Rect::FromSize(at.X, at.Y, source.Width(), source.Height()));
    const QImage& picture = pictures.Render(bitmap, source, target.size());
    if (!picture.isNull()) {
        Target.setOpacity(opacity);
        Target.drawImage(target.topLeft(), picture);
        Target.setOpacity(1.0);
    }
}

void PaintPieces(QPainter& painter, Device& device, const shell::Pieces& pieces) {
    PiecePainter pieceByPiece(painter, device);
    for (const shell::Piece& piece : pieces) {
        std::visit(pieceByPiece, piece);
    }
}

} // namespace tavo::qt
