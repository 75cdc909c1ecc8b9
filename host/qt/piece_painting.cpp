// One piece of the chrome after the other, by its kind.
#include "host/qt/piece_painting.h"

#include <QPolygonF>

#include <algorithm>

namespace tavo::qt {
namespace {

// From logical pixels of the screen to real ones.
class PiecePainter {
  public:
    PiecePainter(QPainter& painter, Device& device)
        : Target(painter), Geometry(device.Geometry), Fonts(device.ChromeFonts), Pictures(device.Pictures) {}

    void operator()(const shell::FillPiece& piece);
    void operator()(const shell::RoundedFillPiece& piece);
    void operator()(const shell::FramePiece& piece);
    void operator()(const shell::LinePiece& piece);
    void operator()(const shell::PolygonPiece& piece);
    void operator()(const shell::TextPiece& piece);
    void operator()(const shell::PicturePiece& piece);

  private:
    QRectF Exact(const Rect& area) const { return QRectF(Geometry.RealPixels(area)); }

    QPointF Exact(const shell::Spot& spot) const {
        return QPointF(spot.X + 0.5, spot.Y + 0.5) * Geometry.Scale.Factor + QPointF(Geometry.Origin);
    }

    void DrawRounded(const QRectF& area, double radius);

    QPainter& Target;
    const ScreenGeometry& Geometry;
    shell::ChromeFaces<Font>& Fonts;
    qt::Pictures& Pictures;
};

void PiecePainter::DrawRounded(const QRectF& area, double radius) {
    Target.setRenderHint(QPainter::Antialiasing, true);
    Target.drawRoundedRect(area, radius * Geometry.Scale.Factor, radius * Geometry.Scale.Factor);
    Target.setRenderHint(QPainter::Antialiasing, false);
}

void PiecePainter::operator()(const shell::FillPiece& piece) {
    Target.fillRect(Geometry.RealPixels(piece.Area), QColor::fromRgba(piece.Ink));
}

void PiecePainter::operator()(const shell::RoundedFillPiece& piece) {
    Target.setPen(Qt::NoPen);
    Target.setBrush(QColor::fromRgba(piece.Ink));
    DrawRounded(Exact(piece.Area), piece.Radius);
}

void PiecePainter::operator()(const shell::FramePiece& piece) {
    const double width = std::max(1, Geometry.Scale.Edge(1));
    Target.setPen(QPen(QColor::fromRgba(piece.Ink), width));
    Target.setBrush(Qt::NoBrush);
    DrawRounded(Exact(piece.Area).adjusted(width / 2, width / 2, -width / 2, -width / 2), piece.Radius);
}

void PiecePainter::operator()(const shell::LinePiece& piece) {
    Target.setRenderHint(QPainter::Antialiasing, true);
    Target.setPen(QPen(QColor::fromRgba(piece.Ink), piece.Width * Geometry.Scale.Factor, Qt::SolidLine, Qt::RoundCap));
    Target.drawLine(Exact(piece.From), Exact(piece.To));
    Target.setRenderHint(QPainter::Antialiasing, false);
}

void PiecePainter::operator()(const shell::PolygonPiece& piece) {
    QPolygonF corners;
    for (const shell::Spot& corner : piece.Corners) {
        corners.append(Exact(corner));
    }
    const QColor ink = QColor::fromRgba(piece.Ink);
    Target.setRenderHint(QPainter::Antialiasing, true);
    Target.setPen(QPen(ink, piece.Width * Geometry.Scale.Factor, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    Target.setBrush(ink);
    Target.drawPolygon(corners);
    Target.setRenderHint(QPainter::Antialiasing, false);
}

void PiecePainter::operator()(const shell::TextPiece& piece) {
    Font& font = Fonts.Find(piece.Font);
    Target.setPen(QColor::fromRgba(piece.Ink));
    Target.save();
    Target.setClipRect(Geometry.RealPixels(piece.Area), Qt::IntersectClip);
    for (const shell::PlacedLine& line : piece.Lines) {
        const QPoint start(Geometry.Scale.Edge(line.Left), Geometry.Scale.Edge(line.Baseline));
        font.Draw(Target, font.Shape(line.Text), start + Geometry.Origin, Geometry.Scale);
    }
    Target.restore();
}

void PiecePainter::operator()(const shell::PicturePiece& piece) {
    const Rect place = Rect::FromSize(piece.At.X, piece.At.Y, piece.Source.Width(), piece.Source.Height());
    const QRect target = Geometry.RealPixels(place);
    const QImage& picture = Pictures.Render(piece.Bitmap, piece.Source, target.size());
    if (!picture.isNull()) {
        Target.setOpacity(piece.Opacity);
        Target.drawImage(target.topLeft(), picture);
        Target.setOpacity(1.0);
    }
}

} // namespace

void PaintPieces(QPainter& painter, Device& device, const shell::Pieces& pieces) {
    PiecePainter pieceByPiece(painter, device);
    for (const shell::Piece& piece : pieces) {
        std::visit(pieceByPiece, piece);
    }
}

} // namespace tavo::qt
