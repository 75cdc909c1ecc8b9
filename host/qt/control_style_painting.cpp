// The looks of native controls.
#include "host/qt/control_style.h"

#include "host/qt/control_painting.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QStyleOption>

namespace tavo::qt {
namespace {

constexpr QRgb kMenuEdgeColor = 0xFF9AA9BB;
constexpr QRgb kSeparatorColor = 0xFFD5DBE2;

} // namespace

void ControlStyle::DrawIndicator(const QStyleOption& option, QPainter& painter, bool isRound) const {
    const bool isOn = option.state.testFlag(State_On);
    const bool isEnabled = option.state.testFlag(State_Enabled);
    const QRgb mark = isEnabled ? kAccentColor : kControlGreyedColor;
    ControlPainter shapes(painter, Scale);
    shapes.Field(option.rect, isEnabled ? kFieldColor : kFieldGreyedColor, isOn ? mark : EdgeColor(option.state),
                 isRound ? 7 : 2);
    if (isOn && isRound) {
        shapes.Dot(option.rect, 3.2, mark);
    } else if (isOn) {
        shapes.Tick(option.rect, mark);
    }
}

void ControlStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    switch (element) {
    case PE_PanelLineEdit: {
        const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        if (frame != nullptr && frame->lineWidth > 0) { // within lists and pickers it has no edge of its own
            const bool isEnabled = option->state.testFlag(State_Enabled);
            ControlPainter(*painter, Scale)
                .Field(option->rect, isEnabled ? kFieldColor : kFieldGreyedColor, EdgeColor(option->state), 2);
        }
        return;
    }
    case PE_FrameLineEdit:
        return;
    case PE_FrameFocusRect:
        // All others show it by their edges, which a mark within them would hide.
        if (qobject_cast<const QCheckBox*>(widget) != nullptr || qobject_cast<const QRadioButton*>(widget) != nullptr) {
            ControlPainter(*painter, Scale).Field(option->rect, 0, kFocusedEdgeColor, 2);
        }
        return;
    case PE_IndicatorCheckBox:
        DrawIndicator(*option, *painter, false);
        return;
    case PE_IndicatorRadioButton:
        DrawIndicator(*option, *painter, true);
        return;
    case PE_PanelMenu:
        painter->fillRect(option->rect, QColor::fromRgb(kFieldColor));
        return;
    case PE_Frame: // around the entries of a list
    case PE_FrameMenu:
        ControlPainter(*painter, Scale).Field(option->rect, 0, kMenuEdgeColor, 0);
        return;
    case PE_PanelButtonCommand: {
        const bool isDown = option->state.testFlag(State_Sunken);
        ControlPainter(*painter, Scale)
            .Field(option->rect, isDown ? kChosenColor : kFieldGreyedColor, EdgeColor(option->state), 3);
        return;
    }
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void ControlStyle::DrawMenuItem(const QStyleOptionMenuItem& item, QPainter& painter) const {
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        const int middle = item.rect.center().y();
        painter.fillRect(QRect(item.rect.left() + Pixels(6), middle, item.rect.width() - Pixels(12), Pixels(1)),
                         QColor::fromRgb(kSeparatorColor));
        return;
    }
    const bool isActive = item.state.testFlag(State_Selected) && item.state.testFlag(State_Enabled);
    if (isActive) {
        painter.fillRect(item.rect, QColor::fromRgb(kAccentColor));
    }
    const QRgb color = isActive ? kFieldColor : TextColor(item.state);
    const int tick = Pixels(kMenuMargin / 2 + kMenuTickWidth);
    if (item.checkType != QStyleOptionMenuItem::NotCheckable && item.checked) {
        ControlPainter(painter, Scale)
            .Tick(QRect(item.rect.left() + Pixels(3), item.rect.top(), tick, item.rect.height()), color);
    }
    const QRect textArea = item.rect.adjusted(tick + Pixels(kMenuMargin / 2), 0, -Pixels(kMenuMargin), 0);
    const qsizetype tab = item.text.indexOf(QLatin1Char('\t'));
    painter.setFont(item.font);
    painter.setPen(QColor::fromRgb(color));
    const QString text = item.text.left(tab);
    int flags = static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextSingleLine | Qt::TextHideMnemonic;
    if (text.isRightToLeft()) { // dots behind a shortened text stand where its own script ends
        flags |= static_cast<int>(Qt::AlignAbsolute) | Qt::TextForceRightToLeft;
    }
    painter.drawText(textArea, flags, text);
    if (tab >= 0) {
        painter.drawText(textArea, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, item.text.mid(tab + 1));
    }
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
        const int width = Pixels(kMenuTickWidth);
        ControlPainter(painter, Scale)
            .DrawArrow(QRect(item.rect.right() + 1 - width, item.rect.top(), width, item.rect.height()),
                       ControlPainter::Arrow::Right, color);
    }
}

void ControlStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuItem && item != nullptr) {
        DrawMenuItem(*item, *painter);
        return;
    }
    if (const auto* list = qstyleoption_cast<const QStyleOptionComboBox*>(option);
        element == CE_ComboBoxLabel && list != nullptr) {
        QStyleOptionComboBox shown = *list;
        const int width = proxy()->subControlRect(CC_ComboBox, list, SC_ComboBoxEditField, widget).width();
        shown.currentText = list->fontMetrics.elidedText(list->currentText, Qt::ElideRight, width - Pixels(2));
        QProxyStyle::drawControl(element, &shown, painter, widget);
        return;
    }
    if (element == CE_PushButtonBevel) {
        proxy()->drawPrimitive(PE_PanelButtonCommand, option, painter, widget);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void ControlStyle::DrawList(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const {
    const bool isEnabled = option.state.testFlag(State_Enabled);
    ControlPainter shapes(painter, Scale);
    shapes.Field(option.rect, isEnabled ? kFieldColor : kFieldGreyedColor, EdgeColor(option.state), 2);
    shapes.DrawArrow(proxy()->subControlRect(CC_ComboBox, &option, SC_ComboBoxArrow, widget),
                     ControlPainter::Arrow::Down, isEnabled ? kAccentColor : kControlGreyedColor);
}

void ControlStyle::DrawSpinField(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const {
    const bool isEnabled = option.state.testFlag(State_Enabled);
    const QRgb arrow = isEnabled ? kAccentColor : kControlGreyedColor;
    ControlPainter shapes(painter, Scale);
    shapes.Field(option.rect, isEnabled ? kFieldColor : kFieldGreyedColor, EdgeColor(option.state), 2);
    const QRect up = proxy()->subControlRect(CC_SpinBox, &option, SC_SpinBoxUp, widget);
    const QRect down = proxy()->subControlRect(CC_SpinBox, &option, SC_SpinBoxDown, widget);
    shapes.DrawArrow(up.adjusted(0, Pixels(2), 0, 0), ControlPainter::Arrow::Up, arrow);
    shapes.DrawArrow(down.adjusted(0, 0, 0, -Pixels(2)), ControlPainter::Arrow::Down, arrow);
}

void ControlStyle::DrawScrollBar(const QStyleOptionSlider& bar, QPainter& painter) const {
    const bool isUpright = bar.orientation == Qt::Vertical;
    painter.fillRect(bar.rect, QColor::fromRgb(kTroughColor));
    ControlPainter shapes(painter, Scale);
    const QRgb arrow = bar.state.testFlag(State_Enabled) ? kAccentColor : kControlGreyedColor;
    using Arrow = ControlPainter::Arrow;
    shapes.DrawArrow(ScrollBarPart(bar, SC_ScrollBarSubLine), isUpright ? Arrow::Up : Arrow::Left, arrow);
    shapes.DrawArrow(ScrollBarPart(bar, SC_ScrollBarAddLine), isUpright ? Arrow::Down : Arrow::Right, arrow);
    if (bar.maximum > bar.minimum) {
        const int side = Pixels(3);
        const bool isHeld = bar.activeSubControls.testFlag(SC_ScrollBarSlider) && bar.state.testFlag(State_Sunken);
        const QRect thumb = ScrollBarPart(bar, SC_ScrollBarSlider);
        shapes.Field(isUpright ? thumb.adjusted(side, 0, -side, 0) : thumb.adjusted(0, side, 0, -side),
                     isHeld ? kAccentColor : kFieldEdgeColor, isHeld ? kAccentColor : kFieldEdgeColor, 3);
    }
}

void ControlStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                      const QWidget* widget) const {
    if (control == CC_ComboBox) {
        DrawList(*option, *painter, widget);
    } else if (control == CC_SpinBox) {
        DrawSpinField(*option, *painter, widget);
    } else if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
               control == CC_ScrollBar && bar != nullptr) {
        DrawScrollBar(*bar, *painter);
    } else {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}

} // namespace tavo::qt
