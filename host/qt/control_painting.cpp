// Fields, arrows, ticks and dots.
#include "host/qt/control_painting.h"

#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace tavo::qt {

ControlPainter::ControlPainter(QPainter& painter, double scale) : Target(painter), Scale(scale) {
    Target.save();
    Target.setRenderHint(QPainter::Antialiasing);
}

ControlPainter::~ControlPainter() {
    Target.restore();
}

void ControlPainter::Field(const QRect& area, QRgb fill, QRgb edge, double radius) {
    const double width = std::max(1.0, std::round(Scale));
    Target.setPen(QPen(QColor::fromRgba(edge), width));
    Target.setBrush(QColor::fromRgba(fill));
    const QRectF middle = QRectF(area).adjusted(width / 2, width / 2, -width / 2, -width / 2);
    Target.drawRoundedRect(middle, radius * Scale, radius * Scale);
}

void ControlPainter::DrawArrow(const QRect& area, Arrow direction, QRgb color) {
    const QPointF middle = QRectF(area).center();
    const double across = 3.5 * Scale;
    const double along = 1.75 * Scale;
    QPolygonF line;
    switch (direction) {
    case Arrow::Up:
        line = {middle + QPointF(-across, along), middle + QPointF(0, -along), middle + QPointF(across, along)};
        break;
    case Arrow::Down:
        line = {middle + QPointF(-across, -along), middle + QPointF(0, along), middle + QPointF(across, -along)};
        break;
    case Arrow::Left:
        line = {middle + QPointF(along, -across), middle + QPointF(-along, 0), middle + QPointF(along, across)};
        break;
    case Arrow::Right:
        line = {middle + QPointF(-along, -across), middle + QPointF(along, 0), middle + QPointF(-along, across)};
        break;
    }
    Target.setPen(QPen(QColor::fromRgba(color), 1.4 * Scale, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    Target.setBrush(Qt::NoBrush);
    Target.drawPolyline(line);
}

void ControlPainter::Tick(const QRect& area, QRgb color) {
    const QPointF middle = QRectF(area).center();
    const QPolygonF line({middle + QPointF(-3.2, 0.2) * Scale, middle + QPointF(-0.9, 2.5) * Scale,
                          middle + QPointF(3.4, -2.6) * Scale});
    Target.setPen(QPen(QColor::fromRgba(color), 1.7 * Scale, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    Target.setBrush(Qt::NoBrush);
    Target.drawPolyline(line);
}

void ControlPainter::Dot(const QRect& area, double radius, QRgb color) {
    Target.setPen(Qt::NoPen);
    Target.setBrush(QColor::fromRgba(color));
    Target.drawEllipse(QRectF(area).center(), radius * Scale, radius * Scale);
}

QRgb EdgeColor(QStyle::State state) {
    return state.testFlag(QStyle::State_HasFocus) ? kFocusedEdgeColor : kFieldEdgeColor;
}

QRgb TextColor(QStyle::State state) {
    return state.testFlag(QStyle::State_Enabled) ? kControlTextColor : kControlGreyedColor;
}

} // namespace tavo::qt
