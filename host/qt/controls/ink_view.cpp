// Empty paper, ruled or plain.
#include "host/qt/controls/ink_view.h"

#include "host/qt/device_widget.h"
#include "platform/ink.h"

#include <QPainter>

namespace tavo::qt {
namespace {

constexpr int kRuleDistance = 16; // at zoom 100
constexpr QRgb kRuleColor = 0xFFC8D8EC;
constexpr QRgb kBorderColor = 0xFFC3CAD2;

} // namespace

class InkView::Paper final : public QWidget {
  public:
    Paper(Device& device, WindowHandle control, QWidget* parent) : QWidget(parent), Shared(device), Control(control) {
        setFocusPolicy(Qt::ClickFocus);
        setAccessibleName(QStringLiteral("Ink"));
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        CountRealPixels(painter, *this, Shared.Geometry);
        const Rect bounds = Shared.State.Tree.ScreenBounds(Control);
        painter.fillRect(Shared.Geometry.RealPixels(bounds), Qt::white);
        const ink::InkControl& ink = Shared.Ink.Find(Control);
        const int distance = std::max(1, kRuleDistance * ink.View().Zoom() / 100);
        const bool isGrid = (ink.PageStyle() & kInkStyleGrid) != 0;
        if (isGrid || (ink.PageStyle() & kInkStyleRuled) != 0) {
            for (int y = bounds.Top + distance; y < bounds.Bottom; y += distance) {
                Fill(painter, {bounds.Left, y, bounds.Right, y + 1}, kRuleColor);
            }
        }
        for (int x = bounds.Left + distance; isGrid && x < bounds.Right; x += distance) {
            Fill(painter, {x, bounds.Top, x + 1, bounds.Bottom}, kRuleColor);
        }
        Fill(painter, {bounds.Left, bounds.Top, bounds.Right, bounds.Top + 1}, kBorderColor);
    }

  private:
    void Fill(QPainter& painter, const Rect& area, QRgb color) const {
        painter.fillRect(Shared.Geometry.RealPixels(area), QColor::fromRgba(color));
    }

    Device& Shared;
    WindowHandle Control;
};

InkView::InkView(Device& device, const shell::WindowRecord& record, QWidget* parent)
    : ControlView(device, record.Handle), OwnPaper(std::make_unique<Paper>(device, record.Handle, parent)) {}

InkView::~InkView() = default;

QWidget& InkView::Widget() {
    return *OwnPaper;
}

void InkView::ShowState(const shell::WindowRecord&) {
    OwnPaper->update();
}

} // namespace tavo::qt
