// The bar at the top of the device's screen: caption, "ok" and ×.
#pragma once

#include "host/qt/device_widget.h"

namespace tavo::qt {

class NavigationBar final : public DeviceWidget {
  public:
    NavigationBar(Device& device, QWidget* parent);

    // Takes caption and buttons from the window on top.
    void Refresh();

    const std::vector<PaintedItem>& Items() const override { return Shown; }

    QString Title() const override { return QString::fromStdU16String(Caption); }

    bool TakesInput() const override;

  protected:
    void Draw(QPainter& painter, const QRect& area) override;
    void StylusDown(Point screen) override;
    void StylusMove(Point screen) override;
    void StylusUp(Point screen) override;

  private:
    enum class Button { None, Ok, Close };

    bool HasButton(Button button) const;
    Button ButtonAt(Point screen) const;
    void SetPressed(bool pressed);

    Font CaptionFont;
    Font ButtonFont;
    std::u16string Caption;
    NavigationButtons Buttons = NavigationButtons::None;
    Button Held = Button::None; // the stylus went down on it
    bool Pressed = false;       // and is still there
    std::vector<PaintedItem> Shown;
};

} // namespace tavo::qt
