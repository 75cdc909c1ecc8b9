// Pen, finger and mouse on the paper of an ink control.
#pragma once

#include "host/ink/palm_guard.h"
#include "host/qt/device.h"

#include <QObject>
#include <QPointF>

class QMouseEvent;
class QTabletEvent;
class QTouchEvent;
class QWheelEvent;
class QWidget;

namespace tavo::qt {

class InkPen final : public QObject {
  public:
    InkPen(Device& device, WindowHandle control, QWidget& paper);

    // True when the event was the pen's.
    bool Take(QEvent& event);

  protected:
    bool eventFilter(QObject* object, QEvent* event) override; // the pen's coming and going is told to the application

  private:
    enum class Holder { None, Mouse, Pen, Finger };

    bool TakeMouse(QMouseEvent& event);
    bool TakePen(QTabletEvent& event);
    bool TakeFinger(QTouchEvent& event);
    bool TakeWheel(QWheelEvent& event);
    void Press(Holder holder, ink::PenEnd end, QPointF position, int pressure);
    void Move(QPointF position, int pressure);
    void Release(QPointF position, int pressure);
    void Cancel();
    void Pan(const QTouchEvent& event);
    ink::PenSample SampleAt(QPointF position, int pressure) const;

    ink::InkControl& Ink() { return Shared.Ink.Find(Control); }

    Device& Shared;
    WindowHandle Control;
    QWidget& Paper;
    ink::PalmGuard Palm;
    Holder HeldBy = Holder::None;
    int FingerId = -1;
    bool IsPanning = false;
    QPointF PanFrom; // the middle of the fingers
    Point PanOffset; // ticks, then
    int WheelRest = 0;
};

} // namespace tavo::qt
