// Keeping and showing the last frame.
#include "host/qt/painted_widget.h"

#include "host/qt/accessible_changes.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace tavo::qt {
namespace {

const QRgb* RowOf(const QImage& image, int y) {
    return reinterpret_cast<const QRgb*>(image.constScanLine(y));
}

// The smallest rectangle within `area` outside of which both pictures are the same. Finding it costs less than bringing
// a whole screen to the display: a clock's tick changes little.
QRect FindDifference(const QImage& one, const QImage& other, QRect area) {
    const auto isSame = [&](int y) {
        return std::equal(RowOf(one, y) + area.left(), RowOf(one, y) + area.right() + 1, RowOf(other, y) + area.left());
    };
    while (!area.isEmpty() && isSame(area.top())) {
        area.setTop(area.top() + 1);
    }
    while (!area.isEmpty() && isSame(area.bottom())) {
        area.setBottom(area.bottom() - 1);
    }
    int left = area.right();
    int right = area.left();
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const QRgb* oneRow = RowOf(one, y);
        const QRgb* otherRow = RowOf(other, y);
        left =
            static_cast<int>(std::mismatch(oneRow + area.left(), oneRow + left, otherRow + area.left()).first - oneRow);
        while (right < area.right() &&
               !std::equal(oneRow + right + 1, oneRow + area.right() + 1, otherRow + right + 1)) {
            ++right;
        }
    }
    return area.isEmpty() ? QRect() : QRect(QPoint(left, area.top()), QPoint(right, area.bottom()));
}

void CopyPixels(QImage& to, const QImage& from, const QRect& area) {
    if (area.isEmpty()) {
        return;
    }
    const qsizetype stride = to.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    QRgb* target = reinterpret_cast<QRgb*>(to.bits()) + area.top() * stride + area.left();
    for (int y = area.top(); y <= area.bottom(); ++y, target += stride) {
        std::copy_n(RowOf(from, y) + area.left(), area.width(), target);
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

bool PaintedWidget::HasKeys() const {
    return TakesInput() && Shared.State.Tree.FindControl(Shared.State.Focus) == nullptr;
}

bool PaintedWidget::IsDialog() const {
    const shell::WindowRecord* record = Shared.State.Tree.Find(OwnWindow);
    return record != nullptr && record->Kind == WindowKind::Dialog;
}

void PaintedWidget::Show(const Surface& surface, std::span<const PaintedItem> items) {
    const QImage& image = surface.Image();
    QRect changed = surface.TakeChanged();
    if (FrameSource != surface.Number() || (Frame.isNull() && !image.isNull())) {
        Frame = image; // shared until the surface is drawn on again
        FrameSource = surface.Number();
        FrameScale = surface.GetScale();
        changed = QRect(QPoint(), Shared.Geometry.RealPixels(Bounds()).size());
    } else {
        changed = FindDifference(Frame, image, changed);
        CopyPixels(Frame, image, changed);
    }
    if (!changed.isEmpty()) {
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
    const std::vector<PaintedItem> before = std::exchange(Declared, {items.begin(), items.end()});
    TellChanges(*this, before);
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
    static_cast<void>(Shared.Stylus.Down(screen));
}

void PaintedWidget::StylusMove(Point screen) {
    Shared.Stylus.Move(screen);
}

void PaintedWidget::StylusUp(Point screen) {
    Shared.Stylus.Up(screen);
}

} // namespace tavo::qt
