// Keeping and showing the last frame.
#include "host/qt/painted_widget.h"

#include <QAccessible>
#include <QPainter>

#include <algorithm>
#include <cstring>

namespace tavo::qt {
namespace {

void CopyPixels(QImage& to, const QImage& from, const QRect& area) {
    const auto bytes = static_cast<std::size_t>(area.width()) * sizeof(QRgb);
    const auto start = static_cast<std::size_t>(area.left()) * sizeof(QRgb);
    for (int y = area.top(); y <= area.bottom(); ++y) {
        std::memcpy(to.scanLine(y) + start, from.constScanLine(y) + start, bytes);
    }
}

} // namespace

PaintedWidget::PaintedWidget(Device& device, WindowHandle window, QWidget* parent)
    : DeviceWidget(device, parent), OwnWindow(window) {}

QString PaintedWidget::Title() const {
    const shell::WindowRecord* record = Shared.State.Tree.Find(OwnWindow);
    return record == nullptr ? QString() : QString::fromStdU16String(record->Text);
}

bool PaintedWidget::TakesInput() const {
    return Shared.State.TakesInput(OwnWindow) && !Shared.State.Menus.IsMenuOpen();
}

void PaintedWidget::Show(const Surface& surface, std::span<const PaintedItem> items) {
    const QImage& image = surface.Image();
    QRect changed = surface.TakeChanged();
    if (FrameSource != surface.Number()) {
        Frame = QImage(image.size(), QImage::Format_RGB32);
        FrameSource = surface.Number();
        FrameScale = surface.GetScale();
        changed = image.rect();
    }
    if (!changed.isEmpty()) {
        CopyPixels(Frame, image, changed);
        FrameIsNew = true;
        if (FrameScale == Shared.Geometry.Scale) {
            const QRect real = changed.translated(Shared.Geometry.RealPixels(Bounds()).topLeft());
            repaint(Shared.Geometry.ToolkitPixels(real).translated(-mapTo(window(), QPoint())));
        } else {
            repaint();
        }
    }
    Declare(items);
}

void PaintedWidget::Declare(std::span<const PaintedItem> items) {
    if (std::equal(items.begin(), items.end(), Declared.begin(), Declared.end())) {
        return;
    }
    Declared.assign(items.begin(), items.end());
    if (QAccessible::isActive()) {
        QAccessibleEvent changed(this, QAccessible::ObjectReorder);
        QAccessible::updateAccessibility(&changed);
    }
}

void PaintedWidget::resizeEvent(QResizeEvent* event) {
    DeviceWidget::resizeEvent(event);
    // Where the edges fall between the toolkit's pixels, what lies beneath shows at them and must be painted too.
    const QRect real = Shared.Geometry.RealPixels(Bounds());
    const double ratio = Shared.Geometry.Ratio;
    setAttribute(Qt::WA_OpaquePaintEvent, QSizeF(size()) * ratio == QSizeF(real.size()));
}

void PaintedWidget::Draw(QPainter& painter, const QRect& area) {
    QRect frame(area.topLeft(), Frame.size());
    if (FrameScale == Shared.Geometry.Scale) {
        painter.drawImage(frame.topLeft(), Frame);
    } else if (!Frame.isNull()) {
        frame.setSize((QSizeF(Frame.size()) * (Shared.Geometry.Scale.Factor / FrameScale.Factor)).toSize());
        painter.drawImage(frame, Frame);
    }
    for (const QRect& rest : QRegion(area).subtracted(frame)) {
        painter.fillRect(rest, Qt::white);
    }
    if (FrameIsNew && FrameWatch) {
        FrameWatch();
    }
    FrameIsNew = false;
}

void PaintedWidget::StylusDown(Point screen) {
    (void)Shared.Stylus.Down(screen);
}

void PaintedWidget::StylusMove(Point screen) {
    Shared.Stylus.Move(screen);
}

void PaintedWidget::StylusUp(Point screen) {
    Shared.Stylus.Up(screen);
}

} // namespace tavo::qt
