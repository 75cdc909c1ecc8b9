// Sizes and places of the parts of native controls.
#include "host/qt/control_style.h"

#include "host/qt/control_painting.h"

#include <QPalette>
#include <QStyleOption>

#include <algorithm>
#include <cmath>

namespace tavo::qt {
namespace {

constexpr double kArrowWidth = 13;
constexpr double kMenuItemHeight = 22;
constexpr double kListItemHeight = 19;
constexpr double kMenuSeparatorHeight = 7;

} // namespace

ControlStyle::ControlStyle() : QProxyStyle(QStringLiteral("fusion")) {}

QPalette ControlStyle::Colors() {
    QPalette colors;
    const auto set = [&](QPalette::ColorRole role, QRgb color) { colors.setColor(role, QColor::fromRgba(color)); };
    set(QPalette::Window, kFieldColor);
    set(QPalette::Base, kFieldColor);
    set(QPalette::AlternateBase, kFieldGreyedColor);
    set(QPalette::Button, kFieldGreyedColor);
    set(QPalette::WindowText, kControlTextColor);
    set(QPalette::Text, kControlTextColor);
    set(QPalette::ButtonText, kControlTextColor);
    set(QPalette::Highlight, kAccentColor);
    set(QPalette::HighlightedText, kFieldColor);
    set(QPalette::ToolTipBase, kFieldColor);
    set(QPalette::ToolTipText, kControlTextColor);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        colors.setColor(QPalette::Disabled, role, QColor::fromRgba(kControlGreyedColor));
    }
    colors.setColor(QPalette::Disabled, QPalette::Base, QColor::fromRgba(kFieldGreyedColor));
    return colors;
}

int ControlStyle::Pixels(double logical) const {
    return std::max(1, static_cast<int>(std::lround(logical * Scale)));
}

int ControlStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return Pixels(13);
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
        return Pixels(5);
    case PM_ScrollBarExtent:
        return Pixels(15);
    case PM_ScrollBarSliderMin:
        return Pixels(18);
    case PM_DefaultFrameWidth:
    case PM_ComboBoxFrameWidth:
    case PM_SpinBoxFrameWidth:
    case PM_MenuPanelWidth:
        return Pixels(1);
    case PM_MenuHMargin:
        return 0;
    case PM_MenuScrollerHeight:
        return Pixels(14);
    case PM_MenuVMargin:
        return Pixels(3);
    case PM_ButtonMargin:
        return Pixels(4);
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
        return Pixels(14);
    case PM_TextCursorWidth:
        return Pixels(1);
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int ControlStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* returned) const {
    switch (hint) {
    case SH_ComboBox_Popup: // the list opens below, not over the box
    case SH_Menu_FlashTriggeredItem:
    case SH_Menu_FadeOutOnHide:
    case SH_Widget_Animate:
    case SH_Widget_Animation_Duration:
    case SH_UnderlineShortcut:
        return 0;
    case SH_Menu_Scrollable: // else a long menu grows sideways
        return 1;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }
}

QRect ControlStyle::ScrollBarPart(const QStyleOptionSlider& bar, SubControl part) const {
    const QRect area = bar.rect;
    const bool isUpright = bar.orientation == Qt::Vertical;
    const int whole = isUpright ? area.height() : area.width();
    const int end = std::min(Pixels(15), whole / 2);
    const int length = whole - 2 * end;
    const int range = bar.maximum - bar.minimum;
    int thumb = length;
    if (range > 0) {
        const double shown = static_cast<double>(bar.pageStep) / (range + bar.pageStep);
        thumb = std::clamp(static_cast<int>(length * shown), std::min(length, Pixels(18)), length);
    }
    const int start =
        end + sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition, length - thumb, bar.upsideDown);
    const auto piece = [&](int from, int to) {
        return isUpright ? QRect(area.left(), area.top() + from, area.width(), to - from)
                         : QRect(area.left() + from, area.top(), to - from, area.height());
    };
    switch (part) {
    case SC_ScrollBarSubLine:
        return piece(0, end);
    case SC_ScrollBarAddLine:
        return piece(whole - end, whole);
    case SC_ScrollBarSubPage:
        return piece(end, start);
    case SC_ScrollBarAddPage:
        return piece(start + thumb, whole - end);
    case SC_ScrollBarGroove:
        return piece(end, whole - end);
    case SC_ScrollBarSlider:
        return piece(start, start + thumb);
    default:
        return {};
    }
}

QRect ControlStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                   const QWidget* widget) const {
    const QRect area = option->rect;
    const int arrow = Pixels(kArrowWidth);
    const int edge = Pixels(1);
    if (control == CC_ComboBox) {
        switch (part) {
        case SC_ComboBoxArrow:
            return {area.right() + 1 - arrow, area.top(), arrow, area.height()};
        case SC_ComboBoxEditField:
            return area.adjusted(edge, edge, -arrow, -edge);
        default:
            return area;
        }
    }
    if (control == CC_SpinBox) {
        const int half = area.height() / 2;
        switch (part) {
        case SC_SpinBoxUp:
            return {area.right() + 1 - arrow, area.top(), arrow, half};
        case SC_SpinBoxDown:
            return {area.right() + 1 - arrow, area.top() + half, arrow, area.height() - half};
        case SC_SpinBoxEditField:
            return area.adjusted(edge, edge, -arrow, -edge);
        default:
            return area;
        }
    }
    if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
        control == CC_ScrollBar && bar != nullptr) {
        return ScrollBarPart(*bar, part);
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QSize ControlStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                     const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type == CT_MenuItem && item != nullptr) {
        if (item->menuItemType == QStyleOptionMenuItem::Separator) {
            return {Pixels(10), Pixels(kMenuSeparatorHeight)};
        }
        const qsizetype tab = item->text.indexOf(QLatin1Char('\t'));
        int width = item->fontMetrics.size(Qt::TextShowMnemonic, item->text.left(tab)).width();
        width += Pixels(2 * kMenuMargin + kMenuTickWidth);
        if (tab >= 0) {
            width += Pixels(kMenuShortcutGap); // the menu adds a column for the widest shortcut itself
        } else if (item->menuItemType == QStyleOptionMenuItem::SubMenu) {
            width += Pixels(kMenuTickWidth);
        }
        return {width, Pixels(kMenuItemHeight)};
    }
    if (type == CT_ItemViewItem) { // an entry of a list
        const QSize own = QProxyStyle::sizeFromContents(type, option, size, widget);
        return {own.width() + Pixels(4), std::max(own.height(), Pixels(kListItemHeight))};
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

QRect ControlStyle::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
    const QRect area = QProxyStyle::subElementRect(element, option, widget);
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    if (element == SE_LineEditContents && frame != nullptr && frame->lineWidth > 0) {
        return area.adjusted(Pixels(1), 0, -Pixels(1), 0);
    }
    return area;
}

} // namespace tavo::qt
