// A part of the device's own chrome as a widget: paints its pieces and hands it the stylus.
#pragma once

#include "host/qt/device_widget.h"

namespace tavo::qt {

class ChromeWidget : public DeviceWidget {
  public:
    ChromeWidget(Device& device, shell::ChromePart& part, QWidget* parent);
    ~ChromeWidget() override;

    const std::vector<PaintedItem>& Items() const override { return Part.Items(); }

    QString Title() const override { return QString::fromStdU16String(Part.Title()); }

    bool TakesInput() const override { return Part.TakesInput(); }

  protected:
    void Draw(QPainter& painter, const QRect& area) override;

    void StylusDown(Point screen) override { Part.Down(screen); }

    void StylusMove(Point screen) override { Part.Move(screen); }

    void StylusUp(Point screen) override { Part.Up(screen); }

    bool event(QEvent* event) override;

  private:
    void TakeChange(shell::PartChange change);

    shell::ChromePart& Part;
};

} // namespace tavo::qt
