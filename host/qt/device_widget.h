// Base of the widgets that are a part of the device's screen: painted in real pixels, worked with a stylus.
#pragma once

#include "host/qt/device.h"
#include "platform/drawing.h"

#include <QWidget>

#include <vector>

class QTouchEvent;

namespace tavo::qt {

// Makes the painter of a widget count real pixels from the desktop window's corner: a real pixel of a picture then
// falls on a real pixel of the screen.
void CountRealPixels(QPainter& painter, const QWidget& widget, const ScreenGeometry& geometry);

// Pen, finger and mouse all arrive as the stylus.
class DeviceWidget : public QWidget {
  public:
    DeviceWidget(Device& device, QWidget* parent);

    // Where it lies on the device's screen.
    const Rect& Bounds() const { return LogicalBounds; }

    void Place(const Rect& screen);

    // Where a part of the screen lies in the desktop window.
    QRect ToolkitPlace(const Rect& screen) const { return Shared.Geometry.ToolkitPixels(screen); }

    // What it shows, for assistive technology; in logical pixels of its own.
    virtual const std::vector<PaintedItem>& Items() const = 0;
    // Its own name, for assistive technology.
    virtual QString Title() const = 0;
    // Whether a tap would reach it now.
    virtual bool TakesInput() const = 0;

    // Whether keys would reach it now: no native control and no menu has them.
    virtual bool HasKeys() const { return false; }

    virtual bool IsDialog() const { return false; }

    // As if the stylus had tapped the middle of the item.
    void TapItem(std::size_t index);

  protected:
    // Draws in real pixels counted from the desktop window's corner; `area` is where the widget lies.
    virtual void Draw(QPainter& painter, const QRect& area) = 0;

    virtual void StylusDown(Point screen) = 0;
    virtual void StylusMove(Point screen) = 0;
    virtual void StylusUp(Point screen) = 0;

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    Device& Shared;

  private:
    bool TakeMouse(QMouseEvent& event);
    bool TakePen(QTabletEvent& event);
    bool TakeFinger(QTouchEvent& event);
    void TakeWheel(QWheelEvent& event);
    Point ToScreen(QPointF position) const;
    void Press(Point screen);
    void Release(Point screen);

    Rect LogicalBounds;
    bool Down = false;
    int FingerId = -1;
    int WheelRest = 0; // eighths of a degree not yet handed on
};

} // namespace tavo::qt
