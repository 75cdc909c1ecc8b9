// Painting in real pixels; pen, finger and mouse as one stylus.
#include "host/qt/device_widget.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPointingDevice>
#include <QTabletEvent>
#include <QTouchEvent>
#include <QWheelEvent>

#include <cmath>

namespace tavo::qt {
namespace {

constexpr int kWheelStep = 120; // eighths of a degree

} // namespace

void CountRealPixels(QPainter& painter, const QWidget& widget, const ScreenGeometry& geometry) {
    const QTransform toDevice = painter.deviceTransform();
    const QPointF corner = QPointF(widget.mapTo(widget.window(), QPoint())) * geometry.Ratio;
    const QTransform wanted =
        QTransform::fromTranslate(std::round(toDevice.dx() - corner.x()), std::round(toDevice.dy() - corner.y()));
    painter.setWorldTransform(wanted * toDevice.inverted());
}

DeviceWidget::DeviceWidget(Device& device, QWidget* parent) : QWidget(parent), Shared(device) {
    setAttribute(Qt::WA_AcceptTouchEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
}

void DeviceWidget::Place(const Rect& screen) {
    LogicalBounds = screen;
    QPoint parentCorner;
    for (const QWidget* up = parentWidget(); up != nullptr && !up->isWindow(); up = up->parentWidget()) {
        parentCorner += up->pos();
    }
    const QRect area = Shared.Geometry.ToolkitPixels(screen).translated(-parentCorner);
    if (area != geometry()) {
        setGeometry(area);
    }
}

void DeviceWidget::TapItem(std::size_t index) {
    if (index >= Items().size()) {
        return;
    }
    const Rect& item = Items()[index].Bounds;
    const Point middle{LogicalBounds.Left + (item.Left + item.Right) / 2,
                       LogicalBounds.Top + (item.Top + item.Bottom) / 2};
    StylusDown(middle);
    StylusUp(middle);
}

void DeviceWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    CountRealPixels(painter, *this, Shared.Geometry);
    Draw(painter, Shared.Geometry.RealPixels(LogicalBounds));
}

Point DeviceWidget::ToScreen(QPointF position) const {
    return Shared.Geometry.ToLogical(mapTo(window(), position));
}

void DeviceWidget::Press(Point screen) {
    if (Down) { // the last release got lost
        Release(screen);
    }
    Down = true;
    Shared.KeyWasLast = false;
    StylusDown(screen);
}

void DeviceWidget::Release(Point screen) {
    if (Down) {
        Down = false;
        StylusUp(screen);
    }
}

bool DeviceWidget::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        return TakeMouse(*static_cast<QMouseEvent*>(event));
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
        return TakePen(*static_cast<QTabletEvent*>(event));
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        return TakeFinger(*static_cast<QTouchEvent*>(event));
    case QEvent::Wheel:
        TakeWheel(*static_cast<QWheelEvent*>(event));
        return true;
    default:
        return QWidget::event(event);
    }
}

bool DeviceWidget::TakeMouse(QMouseEvent& event) {
    event.accept();
    const Point place = ToScreen(event.position());
    if (event.type() == QEvent::MouseMove) {
        if (Down && (event.buttons() & Qt::LeftButton) != 0) {
            StylusMove(place);
        }
    } else if (event.button() == Qt::LeftButton) {
        event.type() == QEvent::MouseButtonRelease ? Release(place) : Press(place);
    }
    return true;
}

bool DeviceWidget::TakePen(QTabletEvent& event) {
    event.accept(); // no mouse event is made of an accepted one
    const Point place = ToScreen(event.position());
    if (event.type() == QEvent::TabletMove) {
        if (Down) {
            StylusMove(place);
        }
    } else if (event.button() == Qt::LeftButton) {
        event.type() == QEvent::TabletRelease ? Release(place) : Press(place);
    }
    return true;
}

bool DeviceWidget::TakeFinger(QTouchEvent& event) {
    event.accept();
    if (event.type() == QEvent::TouchCancel || event.points().size() > 1) {
        if (Down) {
            Down = false;
            Shared.Stylus.Cancel();
        }
        return true;
    }
    const QEventPoint& finger = event.points().front();
    const Point place = ToScreen(finger.position());
    if (event.type() == QEvent::TouchBegin) {
        FingerId = finger.id();
        Press(place);
    } else if (finger.id() == FingerId && finger.state() == QEventPoint::Released) {
        Release(place);
    } else if (finger.id() == FingerId && Down) {
        StylusMove(place);
    }
    return true;
}

void DeviceWidget::TakeWheel(QWheelEvent& event) {
    event.accept();
    WheelRest += event.angleDelta().y();
    const int steps = WheelRest / kWheelStep;
    WheelRest -= steps * kWheelStep;
    if (steps != 0) {
        Shared.Stylus.Wheel(ToScreen(event.position()), steps);
    }
}

} // namespace tavo::qt
