// Buttons: the shell keeps their checks, the widgets follow.
#include "host/qt/controls/button_view.h"

#include "host/qt/device_widget.h"

#include <QCheckBox>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>

namespace tavo::qt {
namespace {

// Shows one of two pictures, by its check.
class PictureButton final : public QAbstractButton {
  public:
    PictureButton(Device& device, const shell::WindowRecord& record, QWidget* parent)
        : QAbstractButton(parent), Shared(device), Control(record.Handle), PictureOff(record.Control->PictureOff),
          PictureOn(record.Control->PictureOn) {}

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        CountRealPixels(painter, *this, Shared.Geometry);
        const Rect bounds = Shared.State.Tree.ScreenBounds(Control);
        const QRect area = Shared.Geometry.RealPixels(bounds);
        const Rect source = Rect::FromSize(0, 0, bounds.Width(), bounds.Height());
        const QImage& picture = Shared.Pictures.Render(isChecked() ? PictureOn : PictureOff, source, area.size());
        painter.setOpacity(isEnabled() ? 1.0 : 0.4);
        painter.drawImage(area.topLeft(), picture);
    }

  private:
    Device& Shared;
    WindowHandle Control;
    int PictureOff;
    int PictureOn;
};

std::unique_ptr<QAbstractButton> MakeButton(Device& device, const shell::WindowRecord& record, QWidget* parent) {
    switch (record.Control->Kind) {
    case ControlKind::CheckBox:
        return std::make_unique<QCheckBox>(parent);
    case ControlKind::RadioButton: {
        auto radio = std::make_unique<QRadioButton>(parent);
        radio->setAutoExclusive(false); // the shell knows the groups
        return radio;
    }
    case ControlKind::PictureButton: {
        auto button = std::make_unique<PictureButton>(device, record, parent);
        button->setCheckable(true);
        button->setFocusPolicy(Qt::TabFocus); // a tap leaves the focus where it is, as the shell does
        return button;
    }
    default:
        return std::make_unique<QPushButton>(parent);
    }
}

} // namespace

ButtonView::ButtonView(Device& device, const shell::WindowRecord& record, QWidget* parent)
    : ControlView(device, record.Handle), Button(MakeButton(device, record, parent)) {
    QObject::connect(Button.get(), &QAbstractButton::clicked, Button.get(), [this] {
        const shell::WindowRecord* now = Record();
        if (now == nullptr) {
            return;
        }
        const Rect& bounds = now->Bounds;
        Shared.Controls.Click(Control, {(bounds.Left + bounds.Right) / 2, (bounds.Top + bounds.Bottom) / 2});
        ShowState(*now);
    });
}

void ButtonView::ShowState(const shell::WindowRecord& record) {
    Button->setText(QString::fromStdU16String(record.Text));
    if (Button->isCheckable()) {
        Button->setChecked(record.Control->Checked);
    }
}

} // namespace tavo::qt
