// Painting, tool tips and what assistive technology is told.
#include "host/qt/chrome_widget.h"

#include "host/qt/piece_painting.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QToolTip>

namespace tavo::qt {

ChromeWidget::ChromeWidget(Device& device, shell::ChromePart& part, QWidget* parent)
    : DeviceWidget(device, parent), Part(part) {
    Part.SetWatch([this](shell::PartChange change) { TakeChange(change); });
}

ChromeWidget::~ChromeWidget() {
    Part.SetWatch({});
}

void ChromeWidget::TakeChange(shell::PartChange change) {
    if (change == shell::PartChange::Items && QAccessible::isActive()) {
        QAccessibleEvent changed(this, QAccessible::ObjectReorder);
        QAccessible::updateAccessibility(&changed);
    }
    update();
}

void ChromeWidget::Draw(QPainter& painter, const QRect&) {
    PaintPieces(painter, Shared, Part.Draw());
}

bool ChromeWidget::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto& help = *static_cast<QHelpEvent*>(event);
        const Point place = Shared.Geometry.ToLogical(mapTo(window(), QPointF(help.pos())));
        QToolTip::showText(help.globalPos(), QString::fromStdU16String(Part.TipAt(place)), this);
        return true;
    }
    return DeviceWidget::event(event);
}

} // namespace tavo::qt
