// The shapes that native controls are drawn with.
#pragma once

#include <QColor>
#include <QPainter>
#include <QRect>
#include <QStyle>

namespace tavo::qt {

constexpr QRgb kFieldColor = 0xFFFFFFFF;
constexpr QRgb kFieldEdgeColor = 0xFF9AA9BB;
constexpr QRgb kFieldGreyedColor = 0xFFF2F5F9;
constexpr QRgb kAccentColor = 0xFF2664B4;
constexpr QRgb kFocusedEdgeColor = 0xFF46A3FA;
constexpr QRgb kControlTextColor = 0xFF1E252C;
constexpr QRgb kControlGreyedColor = 0xFF9AA5B1;
constexpr QRgb kChosenColor = 0xFFD3E2F4;
constexpr QRgb kTroughColor = 0xFFEDF1F5;

// Draws at a scale: lengths are logical.
class ControlPainter {
  public:
    ControlPainter(QPainter& painter, double scale);
    ~ControlPainter();
    ControlPainter(const ControlPainter&) = delete;
    ControlPainter& operator=(const ControlPainter&) = delete;

    // A field with an edge one logical pixel wide.
    void Field(const QRect& area, QRgb fill, QRgb edge, double radius);
    enum class Arrow { Up, Down, Left, Right };
    void DrawArrow(const QRect& area, Arrow direction, QRgb color);
    void Tick(const QRect& area, QRgb color);
    void Dot(const QRect& area, double radius, QRgb color);

  private:
    QPainter& Target;
    double Scale;
};

// The colour of an edge, by the state of what it surrounds.
QRgb EdgeColor(QStyle::State state);
QRgb TextColor(QStyle::State state);

} // namespace tavo::qt
