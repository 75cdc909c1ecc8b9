// A message box inside the device's screen. It covers the screen, so nothing beneath takes a tap.
#pragma once

#include "host/qt/bar_painting.h"
#include "host/qt/device_widget.h"

namespace tavo::qt {

class MessageBox final : public DeviceWidget {
  public:
    MessageBox(Device& device, QWidget* parent);

    // Shows the innermost box of the shell, or hides when there is none.
    void Follow();

    const std::vector<PaintedItem>& Items() const override { return Shown; }

    QString Title() const override { return QString::fromStdU16String(Caption); }

    bool TakesInput() const override { return true; }

  protected:
    void Draw(QPainter& painter, const QRect& area) override;
    void StylusDown(Point screen) override;
    void StylusMove(Point screen) override;
    void StylusUp(Point screen) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    struct Choice {
        int Answer = 0;
        std::u16string Name;
        Rect Area;
    };

    void LayOut(const MessageBoxDescription& box);
    void Declare();
    void DrawIcon(BarPainter& painter) const;
    int ChoiceAt(Point screen) const;
    void Select(int choice);

    Font CaptionFont;
    Font TextFont;
    std::u16string Caption;
    std::u16string Text;
    MessageBoxIcon Icon = MessageBoxIcon::None;
    Rect Frame;
    Rect TextArea;
    std::vector<Choice> Choices;
    std::vector<PaintedItem> Shown;
    int Selected = 0;
    int Held = -1;
    bool Pressed = false;
};

} // namespace tavo::qt
