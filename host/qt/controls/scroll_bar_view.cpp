// From the widget's actions to scroll requests.
#include "host/qt/controls/scroll_bar_view.h"

#include "platform/messages.h"

#include <optional>

namespace tavo::qt {
namespace {

constexpr int kPage = 5; // how many positions the thumb stands for

std::optional<int> ToRequest(int action) {
    switch (action) {
    case QAbstractSlider::SliderSingleStepSub:
        return SB_LINEUP;
    case QAbstractSlider::SliderSingleStepAdd:
        return SB_LINEDOWN;
    case QAbstractSlider::SliderPageStepSub:
        return SB_PAGEUP;
    case QAbstractSlider::SliderPageStepAdd:
        return SB_PAGEDOWN;
    case QAbstractSlider::SliderMove:
    case QAbstractSlider::SliderToMinimum:
    case QAbstractSlider::SliderToMaximum:
        return SB_THUMBTRACK;
    default:
        return std::nullopt;
    }
}

} // namespace

ScrollBarView::ScrollBarView(Device& device, const shell::WindowRecord& record, QWidget* parent)
    : ControlView(device, record.Handle), Bar(std::make_unique<QScrollBar>(Qt::Vertical, parent)) {
    Bar->setPageStep(kPage);
    Bar->setContextMenuPolicy(Qt::NoContextMenu);
    QObject::connect(Bar.get(), &QScrollBar::actionTriggered, Bar.get(), [this](int action) { Act(action); });
    QObject::connect(Bar.get(), &QScrollBar::sliderReleased, Bar.get(), [this] {
        Shared.Controls.Scroll(Control, SB_THUMBPOSITION, Bar->sliderPosition());
        Shared.Controls.Scroll(Control, SB_ENDSCROLL, 0);
    });
}

void ScrollBarView::Act(int action) {
    const std::optional<int> request = ToRequest(action);
    if (!request.has_value()) {
        return;
    }
    Shared.Controls.Scroll(Control, *request, Bar->sliderPosition());
    if (!Bar->isSliderDown()) {
        Bar->setSliderPosition(Bar->value()); // it moves when the program says so
    }
}

void ScrollBarView::ShowState(const shell::WindowRecord& record) {
    const QSignalBlocker quiet(*Bar);
    const ScrollInfo& scroll = record.Control->Scroll;
    Bar->setRange(scroll.Minimum, scroll.Maximum);
    Bar->setValue(scroll.Position);
    Bar->update();
}

} // namespace tavo::qt
