// A window that the program paints: shows the last frame it was given.
#pragma once

#include "host/qt/device_widget.h"
#include "host/qt/surface.h"

#include <QImage>

#include <functional>
#include <span>

namespace tavo::qt {

class PaintedWidget final : public DeviceWidget {
  public:
    PaintedWidget(Device& device, WindowHandle window, QWidget* parent);

    WindowHandle Window() const { return OwnWindow; }

    // Takes what the surface looks like now and shows it at once.
    void Show(const Surface& surface, std::span<const PaintedItem> items);

    // Called after a new frame came to the screen.
    void SetFrameWatch(std::function<void()> watch) { FrameWatch = std::move(watch); }

    const std::vector<PaintedItem>& Items() const override { return Declared; }

    QString Title() const override;
    bool TakesInput() const override;
    bool HasKeys() const override;
    bool IsDialog() const override;

  protected:
    void Draw(QPainter& painter, const QRect& area) override;
    void StylusDown(Point screen) override;
    void StylusMove(Point screen) override;
    void StylusUp(Point screen) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Declare(std::span<const PaintedItem> items);

    WindowHandle OwnWindow;
    QImage Frame;
    Scale FrameScale;
    std::uint64_t FrameSource = 0; // number of the surface it was copied from
    std::vector<PaintedItem> Declared;
    std::function<void()> FrameWatch;
    bool FrameIsNew = false;
};

} // namespace tavo::qt
