// From events of the window system to samples of one pen.
#include "host/qt/ink_pen.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPointingDevice>
#include <QTabletEvent>
#include <QTouchEvent>
#include <QWheelEvent>
#include <QWidget>

#include <cmath>

namespace tavo::qt {
namespace {

constexpr int kWheelStep = 120; // eighths of a degree

int ToPressure(double pressure) {
    return static_cast<int>(std::lround(pressure * ink::kMaxPressure));
}

QPointF MiddleOf(const QTouchEvent& event) {
    QPointF sum;
    for (const QEventPoint& point : event.points()) {
        sum += point.position();
    }
    return sum / static_cast<double>(event.points().size());
}

} // namespace

InkPen::InkPen(Device& device, WindowHandle control, QWidget& paper) : Shared(device), Control(control), Paper(paper) {
    qApp->installEventFilter(this);
}

bool InkPen::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::TabletEnterProximity) {
        Palm.PenIsNear();
        if (HeldBy == Holder::Finger) {
            Cancel(); // it was the palm
        }
    } else if (event->type() == QEvent::TabletLeaveProximity) {
        Palm.PenLeft(Shared.State.Source.GetMilliseconds());
    }
    return false;
}

bool InkPen::Take(QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        return TakeMouse(static_cast<QMouseEvent&>(event));
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
        return TakePen(static_cast<QTabletEvent&>(event));
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        return TakeFinger(static_cast<QTouchEvent&>(event));
    case QEvent::Wheel:
        return TakeWheel(static_cast<QWheelEvent&>(event));
    default:
        return false;
    }
}

ink::PenSample InkPen::SampleAt(QPointF position, int pressure) const {
    const ScreenGeometry& geometry = Shared.Geometry;
    const Rect bounds = Shared.State.Tree.ScreenBounds(Control);
    const QPointF real = Paper.mapTo(Paper.window(), position) * geometry.Ratio - QPointF(geometry.Origin);
    ink::PenSample sample;
    sample.Place = {real.x() / geometry.Scale.Factor - bounds.Left, real.y() / geometry.Scale.Factor - bounds.Top};
    sample.Pressure = pressure;
    sample.Time = static_cast<std::uint32_t>(Shared.State.Source.GetMilliseconds());
    return sample;
}

void InkPen::Press(Holder holder, ink::PenEnd end, QPointF position, int pressure) {
    if (holder != Holder::Mouse) { // what the control filter does for the mouse
        static_cast<void>(Shared.Stylus.Down(Shared.Geometry.ToLogical(Paper.mapTo(Paper.window(), position))));
        if (!Shared.State.TakesInput(Control) || Shared.State.Menus.IsMenuOpen()) {
            return;
        }
        Shared.Controls.Focus(Control);
    }
    Shared.KeyWasLast = false;
    HeldBy = holder;
    Ink().PenDown(end, SampleAt(position, pressure));
}

void InkPen::Move(QPointF position, int pressure) {
    Ink().PenMove(SampleAt(position, pressure));
}

void InkPen::Release(QPointF position, int pressure) {
    HeldBy = Holder::None;
    Ink().PenUp(SampleAt(position, pressure));
}

void InkPen::Cancel() {
    HeldBy = Holder::None;
    Ink().PenCancel();
}

bool InkPen::TakeMouse(QMouseEvent& event) {
    event.accept();
    const bool isButton = event.button() == Qt::LeftButton || event.button() == Qt::RightButton;
    if (event.type() == QEvent::MouseMove) {
        if (HeldBy == Holder::Mouse) {
            Move(event.position(), ink::kNoPressure);
        }
    } else if (event.type() == QEvent::MouseButtonRelease) {
        if (HeldBy == Holder::Mouse && isButton) {
            Release(event.position(), ink::kNoPressure);
        }
    } else if (HeldBy == Holder::None && isButton) {
        Press(Holder::Mouse, event.button() == Qt::RightButton ? ink::PenEnd::Eraser : ink::PenEnd::Tip,
              event.position(), ink::kNoPressure);
    }
    return true;
}

bool InkPen::TakePen(QTabletEvent& event) {
    event.accept(); // no mouse event is made of an accepted one
    Palm.PenIsNear();
    const bool tellsPressure = event.pointingDevice()->capabilities().testFlag(QInputDevice::Capability::Pressure);
    const int pressure = tellsPressure ? ToPressure(event.pressure()) : ink::kNoPressure;
    if (event.type() == QEvent::TabletMove) {
        if (HeldBy == Holder::Pen) {
            Move(event.position(), pressure);
        }
    } else if (event.type() == QEvent::TabletRelease) {
        if (HeldBy == Holder::Pen) {
            // Leaving the paper it presses no more: the line keeps the width it had.
            HeldBy = Holder::None;
            Ink().PenUp(SampleAt(event.position(), ink::kNoPressure));
        }
    } else {
        if (HeldBy == Holder::Finger) {
            Cancel();
        }
        const bool erases =
            event.pointerType() == QPointingDevice::PointerType::Eraser || event.button() == Qt::RightButton;
        Press(Holder::Pen, erases ? ink::PenEnd::Eraser : ink::PenEnd::Tip, event.position(), pressure);
    }
    return true;
}

bool InkPen::TakeFinger(QTouchEvent& event) {
    event.accept();
    const bool ends = event.type() == QEvent::TouchEnd || event.type() == QEvent::TouchCancel;
    if (event.points().size() > 1) {
        if (HeldBy == Holder::Finger) {
            Cancel();
        }
        ends ? void(IsPanning = false) : Pan(event);
        return true;
    }
    if (event.type() == QEvent::TouchCancel || event.points().isEmpty()) {
        if (HeldBy == Holder::Finger) {
            Cancel();
        }
        IsPanning = false;
        return true;
    }
    const QEventPoint& finger = event.points().front();
    if (event.type() == QEvent::TouchBegin) {
        IsPanning = false;
        if (HeldBy == Holder::None && Palm.TakesTouch(Shared.State.Source.GetMilliseconds())) {
            FingerId = finger.id();
            Press(Holder::Finger, ink::PenEnd::Tip, finger.position(), ink::kNoPressure);
        }
    } else if (HeldBy == Holder::Finger && finger.id() == FingerId) {
        ends ? Release(finger.position(), ink::kNoPressure) : Move(finger.position(), ink::kNoPressure);
    }
    IsPanning = IsPanning && !ends;
    return true;
}

// Two fingers push the paper.
void InkPen::Pan(const QTouchEvent& event) {
    if (!Palm.TakesTouch(Shared.State.Source.GetMilliseconds())) {
        return;
    }
    const QPointF middle = MiddleOf(event);
    if (!IsPanning) {
        IsPanning = true;
        PanFrom = middle;
        PanOffset = Ink().View().Offset();
        return;
    }
    const double ticks = ink::kTicksPerPixel * 100.0 / Ink().View().Zoom();
    const QPointF way = (middle - PanFrom) * Shared.Geometry.Ratio / Shared.Geometry.Scale.Factor * ticks;
    Ink().ScrollTo({PanOffset.X - static_cast<int>(way.x()), PanOffset.Y - static_cast<int>(way.y())});
}

bool InkPen::TakeWheel(QWheelEvent& event) {
    event.accept();
    const bool isSideways = (event.modifiers() & Qt::ShiftModifier) != 0 || event.angleDelta().y() == 0;
    WheelRest += event.angleDelta().y() != 0 ? event.angleDelta().y() : event.angleDelta().x();
    const int steps = WheelRest / kWheelStep;
    WheelRest -= steps * kWheelStep;
    if (steps != 0) {
        isSideways ? Ink().WheelSideways(steps) : Ink().Wheel(steps);
    }
    return true;
}

} // namespace tavo::qt
