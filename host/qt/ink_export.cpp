// Strokes as filled outlines.
#include "host/qt/ink_export.h"

#include "host/ink/paper_view.h"
#include "host/ink/stroke_shape.h"
#include "host/posix/replace_file.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>
#include <cmath>

namespace tavo::qt {
namespace {

constexpr int kDotsPerInch = 96;
constexpr int kPictureScale = 2;
constexpr int kVectorDotsPerInch = 9600;
constexpr double kMillimetresPerInch = 25.4;
constexpr double kMargin = 16;       // below and beside the ink
constexpr double kLeastHeight = 268; // of the paper; what the editor shows
constexpr int kMaxSide = 32000;      // of a picture
constexpr double kFineness = 4;      // pieces are cut as if for so many times the size

QPointF PlaceOf(const ink::Nib& nib) {
    return QPointF(nib.X, nib.Y) / kFineness;
}

// One side of the line there, and the other side back.
QPainterPath MakeOutline(const std::vector<ink::Nib>& line) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    QPolygonF there;
    QPolygonF back;
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
        const QPointF from = PlaceOf(line[i]);
        const QPointF to = PlaceOf(line[i + 1]);
        const QPointF way = to - from;
        const double length = std::hypot(way.x(), way.y());
        if (length <= 0) {
            continue;
        }
        const QPointF across(-way.y() / length, way.x() / length);
        const double wide = line[i].Radius / kFineness;
        const double wideNext = line[i + 1].Radius / kFineness;
        there << from + across * wide << to + across * wideNext;
        back << from - across * wide << to - across * wideNext;
    }
    std::reverse(back.begin(), back.end());
    if (!there.isEmpty()) {
        path.addPolygon(there + back);
        path.closeSubpath();
    }
    return path;
}

QPainterPath MakeCentreLine(const std::vector<ink::Nib>& line) {
    QPainterPath path(PlaceOf(line.front()));
    for (const ink::Nib& nib : line) {
        path.lineTo(PlaceOf(nib));
    }
    return path;
}

bool DrawVector(QPainter& painter, const std::vector<ink::PlacedStroke>& strokes, double scale) {
    if (!painter.isActive()) {
        return false;
    }
    painter.scale(scale, scale);
    DrawStrokes(painter, strokes);
    return painter.end();
}

bool WriteSvg(const std::vector<ink::PlacedStroke>& strokes, QSizeF size, QIODevice& file, const QString& title) {
    QSvgGenerator generator;
    generator.setOutputDevice(&file);
    generator.setTitle(title);
    generator.setResolution(kDotsPerInch);
    generator.setSize(size.toSize());
    generator.setViewBox(QRectF(QPointF(), size));
    QPainter painter(&generator);
    return DrawVector(painter, strokes, 1);
}

bool WritePdf(const std::vector<ink::PlacedStroke>& strokes, QSizeF size, QIODevice& file, const QString& title) {
    QPdfWriter writer(&file);
    writer.setTitle(title);
    writer.setResolution(kVectorDotsPerInch);
    writer.setPageSize(QPageSize(size / kDotsPerInch, QPageSize::Inch, title, QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    QPainter painter(&writer);
    return DrawVector(painter, strokes, static_cast<double>(kVectorDotsPerInch) / kDotsPerInch);
}

bool WritePng(const std::vector<ink::PlacedStroke>& strokes, QSizeF size, QIODevice& file) {
    const double longest = std::max(size.width(), size.height());
    const double scale = std::min(static_cast<double>(kPictureScale), kMaxSide / longest);
    QImage image((size * scale).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    image.setDotsPerMeterX(static_cast<int>(std::lround(scale * kDotsPerInch * 1000 / kMillimetresPerInch)));
    image.setDotsPerMeterY(image.dotsPerMeterX());
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    return DrawVector(painter, strokes, scale) && image.save(&file, "PNG");
}

} // namespace

QSizeF PaperSizeFor(const std::vector<ink::PlacedStroke>& strokes) {
    ink::Box box;
    for (const ink::PlacedStroke& stroke : strokes) {
        box = box.United(stroke.Bounds);
    }
    constexpr double ticks = ink::kTicksPerPixel;
    return {std::ceil(std::max(ink::kPaperWidth / ticks, box.Right / ticks + kMargin)),
            std::ceil(std::max(kLeastHeight, box.Bottom / ticks + kMargin))};
}

void DrawStrokes(QPainter& painter, const std::vector<ink::PlacedStroke>& strokes) {
    const ink::PixelScale scale{kFineness / ink::kTicksPerPixel, 0, 0};
    std::vector<ink::Nib> line;
    for (const ink::PlacedStroke& stroke : strokes) {
        const Color ink = ink::kPenColors[static_cast<std::size_t>(stroke.Body->Tool.Color)];
        const QColor color(ink.Red(), ink.Green(), ink.Blue());
        ink::ShapeStroke(stroke, scale, line);
        if (stroke.Body->Tool.HasPressure || stroke.Body->Points.size() == 1) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(color);
            painter.drawPath(MakeOutline(line));
            // The ends are round; where the line turns, its pieces are short enough to look so.
            for (const ink::Nib& nib : {line.front(), line.back()}) {
                painter.drawEllipse(PlaceOf(nib), nib.Radius / kFineness, nib.Radius / kFineness);
            }
        } else {
            painter.setPen(QPen(color, ink::WidthAt(stroke.Body->Tool, 0), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            painter.setBrush(Qt::NoBrush);
            painter.drawPath(MakeCentreLine(line));
        }
    }
}

bool ExportStrokes(const std::vector<ink::PlacedStroke>& strokes, ExportFormat format, const QString& path,
                   const QString& title) {
    QBuffer file;
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    const QSizeF size = PaperSizeFor(strokes);
    bool isDrawn = false;
    switch (format) {
    case ExportFormat::Svg:
        isDrawn = WriteSvg(strokes, size, file, title);
        break;
    case ExportFormat::Png:
        isDrawn = WritePng(strokes, size, file);
        break;
    case ExportFormat::Pdf:
        isDrawn = WritePdf(strokes, size, file, title);
        break;
    }
    // A link that lies under the name is not followed: in a folder of many it may be somebody else's.
    const QByteArray& bytes = file.buffer();
    const auto* first = reinterpret_cast<const std::uint8_t*>(bytes.constData());
    return isDrawn && posix::ReplaceFile(QFile::encodeName(path).toStdString(),
                                         {first, static_cast<std::size_t>(bytes.size())}) == ErrorCode::Success;
}

} // namespace tavo::qt
