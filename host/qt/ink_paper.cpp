// Showing the canvas, and what lies above it.
#include "host/qt/ink_paper.h"

#include "host/ink/recorder_bar.h"
#include "host/qt/device_widget.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>

#include <cmath>

namespace tavo::qt {
namespace {

constexpr QRgb kBorderColor = 0xFFC3CAD2;
constexpr QRgb kBarColor = 0xFFEEF1F5;
constexpr QRgb kChosenColor = 0xFFBFD7F5;
constexpr QRgb kFrameColor = 0xFF2F6FC0;
constexpr QRgb kNoticeColor = 0xFF606870;
constexpr int kLineTicks = 16 * ink::kTicksPerPixel;
constexpr double kSwatchRadius = 7; // of a pen's colour; logical pixels

QColor ToColor(QRgb color) {
    return QColor::fromRgb(color);
}

QColor ToColor(Color color) {
    return {color.Red(), color.Green(), color.Blue()};
}

void PrepareBar(QScrollBar& bar) {
    bar.setContextMenuPolicy(Qt::NoContextMenu);
    bar.setFocusPolicy(Qt::NoFocus);
    bar.setCursor(Qt::ArrowCursor);
}

// Which of the device's keys; 0 for those that mean nothing to the paper.
int ToDeviceKey(int key) {
    switch (key) {
    case Qt::Key_Up:
        return VK_UP;
    case Qt::Key_Down:
        return VK_DOWN;
    case Qt::Key_Left:
        return VK_LEFT;
    case Qt::Key_Right:
        return VK_RIGHT;
    case Qt::Key_PageUp:
        return VK_PRIOR;
    case Qt::Key_PageDown:
        return VK_NEXT;
    case Qt::Key_Delete:
        return VK_DELETE;
    default:
        return key >= Qt::Key_A && key <= Qt::Key_Z ? key : 0; // letters are their own
    }
}

} // namespace

InkPaper::InkPaper(Device& device, WindowHandle control, QWidget* parent)
    : QWidget(parent), Shared(device), Control(control), Pen(device, control, *this), Down(Qt::Vertical, this),
      Sideways(Qt::Horizontal, this) {
    setFocusPolicy(Qt::ClickFocus);
    setAttribute(Qt::WA_AcceptTouchEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(QStringLiteral("Ink"));
    setCursor(Qt::CrossCursor);
    PrepareBar(Down);
    PrepareBar(Sideways);
    connect(&Down, &QScrollBar::valueChanged, this, [this](int value) {
        Ink().ScrollTo({Ink().View().Offset().X, value});
    });
    connect(&Sideways, &QScrollBar::valueChanged, this, [this](int value) {
        Ink().ScrollTo({value, Ink().View().Offset().Y});
    });
}

QRect InkPaper::RealArea(const Rect& inControl) const {
    const Rect bounds = Shared.State.Tree.ScreenBounds(Control);
    return Shared.Geometry.RealPixels({bounds.Left + inControl.Left, bounds.Top + inControl.Top,
                                       bounds.Left + inControl.Right, bounds.Top + inControl.Bottom});
}

QRect InkPaper::OnCanvas(const ink::Box& box) const {
    if (box.IsEmpty()) {
        return {};
    }
    const ink::PixelBox pixels = ink::PixelsOf(box, Canvas.Scale());
    return QRect(QPoint(pixels.Left, pixels.Top), QPoint(pixels.Right, pixels.Bottom))
        .translated(RealArea(Ink().View().Area()).topLeft());
}

void InkPaper::Refresh(const QRect& real) {
    if (!real.isEmpty()) {
        update(Shared.Geometry.ToolkitPixels(real).translated(-mapTo(window(), QPoint())));
    }
}

InkPaper::Overlay InkPaper::MakeOverlay() {
    ink::InkControl& ink = Ink();
    Overlay overlay;
    const ink::Box frame = ink.SelectionFrame();
    overlay.Frame = OnCanvas(frame.IsEmpty() ? frame : frame.Grown(2 * ink::kTicksPerPixel));
    overlay.Lasso = OnCanvas(ink.Lasso());
    overlay.HasNotice = !ink.Notice().empty();
    overlay.Bar = ink.RecorderBar();
    overlay.Chosen = ink.ChosenPen();
    return overlay;
}

void InkPaper::FollowOverlay() {
    const Overlay wanted = MakeOverlay();
    if (wanted == Seen) {
        return;
    }
    const Overlay before = std::exchange(Seen, wanted);
    if (before.HasNotice != Seen.HasNotice || before.Bar != Seen.Bar || !(before.Chosen == Seen.Chosen)) {
        update();
        return;
    }
    for (const QRect& part : {before.Frame, Seen.Frame, before.Lasso, Seen.Lasso}) {
        if (!part.isEmpty()) {
            Refresh(part.adjusted(-4, -4, 4, 4)); // the line around it
        }
    }
}

void InkPaper::FollowBars() {
    const ink::PaperView& view = Ink().View();
    const Rect area = view.Area();
    const QPoint corner = mapTo(window(), QPoint());
    const auto place = [&](QScrollBar& bar, const Rect& inControl, bool isShown, int range, int page, int value) {
        const QSignalBlocker quiet(bar);
        bar.setGeometry(Shared.Geometry.ToolkitPixels(RealArea(inControl)).translated(-corner));
        bar.setRange(0, std::max(range, 0));
        bar.setPageStep(page);
        bar.setSingleStep(kLineTicks);
        bar.setValue(value);
        bar.setVisible(isShown);
    };
    const Size paper = view.PaperSize();
    const Size seen = view.Extent();
    place(Down, {area.Right, area.Top, area.Right + ink::kScrollBarWidth, area.Bottom}, true,
          paper.Height - seen.Height, seen.Height, view.Offset().Y);
    place(Sideways, {area.Left, area.Bottom, area.Right, area.Bottom + ink::kScrollBarWidth}, view.HasSideBar(),
          paper.Width - seen.Width, seen.Width, view.Offset().X);
}

void InkPaper::Follow() {
    ink::InkControl& ink = Ink();
    const QRect area = RealArea(ink.View().Area());
    Canvas.Resize(area.width(), area.height(), Shared.Geometry.Scale.Factor);
    const ink::PixelBox changed = Canvas.Update(ink);
    if (!changed.IsEmpty()) {
        Refresh(QRect(QPoint(changed.Left, changed.Top), QPoint(changed.Right - 1, changed.Bottom - 1))
                    .translated(area.topLeft()));
    }
    FollowOverlay();
    FollowBars();
    setCursor(ink.IsReadOnly() ? Qt::ArrowCursor : Qt::CrossCursor);
}

bool InkPaper::event(QEvent* event) {
    return Pen.Take(*event) || QWidget::event(event);
}

void InkPaper::resizeEvent(QResizeEvent*) {
    Follow();
    update();
}

void InkPaper::keyPressEvent(QKeyEvent* event) {
    const bool hasControl = (event->modifiers() & Qt::ControlModifier) != 0;
    const int key = ToDeviceKey(event->key());
    const bool isPlain = (event->modifiers() & (Qt::AltModifier | Qt::MetaModifier | Qt::ShiftModifier)) == 0;
    if (key == 0 || !isPlain || !Ink().Key(key, hasControl ? kModifierControl : 0)) {
        event->ignore();
    }
}

void InkPaper::paintEvent(QPaintEvent* event) {
    ink::InkControl& ink = Ink();
    ink.NoteShown();
    QPainter painter(this);
    CountRealPixels(painter, *this, Shared.Geometry);
    const Rect bounds = Shared.State.Tree.ScreenBounds(Control);
    const QRect area = RealArea(ink.View().Area());
    const QRect whole = Shared.Geometry.RealPixels(bounds);
    const ink::Picture& shown = Canvas.Shown();
    // Only what is asked for is brought to the screen.
    const QPointF corner = QPointF(mapTo(window(), QPoint())) * Shared.Geometry.Ratio;
    const QRectF asked(QPointF(event->rect().topLeft()) * Shared.Geometry.Ratio + corner,
                       QSizeF(event->rect().size()) * Shared.Geometry.Ratio);
    const QRect wanted = asked.toAlignedRect().intersected(area);
    if (!wanted.isEmpty() && shown.Width() > 0) {
        const QImage image(reinterpret_cast<const uchar*>(shown.Row(0)), shown.Width(), shown.Height(),
                           QImage::Format_RGB32);
        painter.drawImage(wanted.topLeft(), image, wanted.translated(-area.topLeft()));
    }
    painter.fillRect(QRect(QPoint(area.right() + 1, whole.top()), whole.bottomRight()), ToColor(kBarColor));
    painter.fillRect(QRect(QPoint(whole.left(), area.bottom() + 1), whole.bottomRight()), ToColor(kBarColor));
    PaintOverlay(painter);
    PaintRecorderBar(painter);
    painter.fillRect(Shared.Geometry.RealPixels({bounds.Left, bounds.Top, bounds.Right, bounds.Top + 1}),
                     ToColor(kBorderColor));
}

void InkPaper::PaintOverlay(QPainter& painter) const {
    painter.save();
    painter.setClipRect(RealArea(Ink().View().Area()));
    QPen pen(ToColor(kFrameColor), Shared.Geometry.Scale.Factor, Qt::DashLine);
    painter.setPen(pen);
    if (!Seen.Frame.isEmpty()) {
        painter.drawRect(Seen.Frame);
    }
    if (!Seen.Lasso.isEmpty()) {
        painter.fillRect(Seen.Lasso, QColor(47, 111, 192, 30));
        painter.drawRect(Seen.Lasso);
    }
    if (Seen.HasNotice) {
        PaintNotice(painter);
    }
    painter.restore();
}

void InkPaper::PaintNotice(QPainter& painter) const {
    const std::u16string_view notice = Ink().Notice();
    QFont font = painter.font();
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(12 * Shared.Geometry.Scale.Factor))));
    painter.setFont(font);
    painter.setPen(ToColor(kNoticeColor));
    const int margin = Shared.Geometry.Scale.Edge(12);
    painter.drawText(RealArea(Ink().View().Area()).adjusted(margin, 2 * margin, -margin, -margin),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                     QString::fromUtf16(notice.data(), static_cast<qsizetype>(notice.size())));
}

void InkPaper::PaintRecorderBar(QPainter& painter) const {
    if (!Seen.Bar.has_value()) {
        return;
    }
    const double scale = Shared.Geometry.Scale.Factor;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (int cell = 0; cell < ink::kPenCells; ++cell) {
        const QRectF place = RealArea(ink::PenCell(*Seen.Bar, cell));
        painter.setPen(Qt::NoPen);
        if (ink::IsChosen(Seen.Chosen, cell)) {
            painter.setBrush(ToColor(kChosenColor));
            painter.drawRoundedRect(place.adjusted(scale, 2 * scale, -scale, -2 * scale), 3 * scale, 3 * scale);
        }
        if (ink::IsColorCell(cell)) {
            painter.setBrush(ToColor(ink::kPenColors[static_cast<std::size_t>(cell)]));
            painter.drawEllipse(place.center(), kSwatchRadius * scale, kSwatchRadius * scale);
        } else {
            const double width = ink::kPenWidths[static_cast<std::size_t>(cell) - ink::kPenColors.size()];
            const QColor color = ToColor(ink::kPenColors[static_cast<std::size_t>(Seen.Chosen.Color)]);
            painter.setPen(QPen(color, width * 1.5 * scale, Qt::SolidLine, Qt::RoundCap));
            const QPointF half(kSwatchRadius * scale, 0);
            painter.drawLine(place.center() - half, place.center() + half);
        }
    }
    painter.restore();
}

} // namespace tavo::qt
