// How native controls, menus and lists look: flat, quiet, and as large as the device's screen.
#pragma once

#include <QProxyStyle>

class QStyleOptionMenuItem;
class QStyleOptionSlider;

namespace tavo::qt {

// Of a menu's entry, in logical pixels: beside its text, for a tick or an arrow, and between text and shortcut.
inline constexpr double kMenuMargin = 10;
inline constexpr double kMenuTickWidth = 14;
inline constexpr double kMenuShortcutGap = 16;

class ControlStyle final : public QProxyStyle {
  public:
    ControlStyle();

    // The toolkit's pixels for one logical pixel.
    void SetScale(double scale) { Scale = scale; }

    static QPalette Colors();

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override;

  private:
    int Pixels(double logical) const;
    void DrawIndicator(const QStyleOption& option, QPainter& painter, bool isRound) const;
    void DrawMenuItem(const QStyleOptionMenuItem& item, QPainter& painter) const;
    void DrawList(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const;
    void DrawSpinField(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const;
    void DrawScrollBar(const QStyleOptionSlider& bar, QPainter& painter) const;
    QRect ScrollBarPart(const QStyleOptionSlider& bar, SubControl part) const;

    double Scale = 1.0;
};

} // namespace tavo::qt
