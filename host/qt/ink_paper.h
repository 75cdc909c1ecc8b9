// The widget of an ink control: paper, scroll bars, the row of pens.
#pragma once

#include "host/ink/ink_canvas.h"
#include "host/qt/ink_pen.h"

#include <QScrollBar>
#include <QWidget>

class QPainter;

namespace tavo::qt {

class InkPaper final : public QWidget {
  public:
    InkPaper(Device& device, WindowHandle control, QWidget* parent);

    // Brings what changed in the control to the screen.
    void Follow();

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    struct Overlay {
        QRect Frame; // around the selection
        QRect Lasso;
        bool HasNotice = false;
        std::optional<Rect> Bar;
        ink::Pen Chosen;
        friend bool operator==(const Overlay&, const Overlay&) = default;
    };

    QRect RealArea(const Rect& inControl) const; // real pixels of the desktop window
    QRect OnCanvas(const ink::Box& box) const;   // the same
    void Refresh(const QRect& real);             // asks for painting
    Overlay MakeOverlay();
    void FollowBars();
    void FollowOverlay();
    void PaintOverlay(QPainter& painter) const;
    void PaintNotice(QPainter& painter) const;
    void PaintRecorderBar(QPainter& painter) const;

    ink::InkControl& Ink() const { return Shared.Ink.Find(Control); }

    Device& Shared;
    WindowHandle Control;
    InkPen Pen;
    ink::InkCanvas Canvas;
    Overlay Seen;
    QScrollBar Down;
    QScrollBar Sideways;
};

} // namespace tavo::qt
