// A month with its own header: the toolkit's has a menu that waits for its own end.
#include "host/qt/controls/month_popup.h"

#include "host/qt/call_later.h"
#include "host/qt/control_painting.h"

#include <QAbstractButton>
#include <QCalendarWidget>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QTextCharFormat>
#include <QVBoxLayout>

#include <algorithm>

namespace tavo::qt {
namespace {

constexpr double kHeaderHeight = 22;

// One step back or on.
class StepButton final : public QAbstractButton {
  public:
    StepButton(QWidget* parent, double scale, ControlPainter::Arrow direction, const QString& name)
        : QAbstractButton(parent), Scale(scale), Direction(direction) {
        setAccessibleName(name);
        setFocusPolicy(Qt::NoFocus);
        const int size = static_cast<int>(kHeaderHeight * scale);
        setFixedSize(size, size);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        ControlPainter(painter, Scale).DrawArrow(rect(), Direction, kFieldColor);
    }

  private:
    double Scale;
    ControlPainter::Arrow Direction;
};

} // namespace

MonthPopup::MonthPopup(QWidget* owner, double scale)
    : QFrame(owner, Qt::Popup), Calendar(new QCalendarWidget(this)), Title(new QLabel(this)) {
    setFrameShape(QFrame::Box);
    setFont(owner->font());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
    layout->addWidget(MakeHeader(scale));
    layout->addWidget(Calendar);
    Calendar->setNavigationBarVisible(false);
    Calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    Calendar->setHorizontalHeaderFormat(QCalendarWidget::SingleLetterDayNames);
    Calendar->setFirstDayOfWeek(Qt::Sunday);
    Calendar->setWeekdayTextFormat(Qt::Saturday, QTextCharFormat()); // only Sunday is red
    connect(Calendar, &QCalendarWidget::currentPageChanged, this, [this] { ShowMonth(); });
    connect(Calendar, &QCalendarWidget::clicked, this, [this](QDate date) { Choose(date); });
    connect(Calendar, &QCalendarWidget::activated, this, [this](QDate date) { Choose(date); });
}

QWidget* MonthPopup::MakeHeader(double scale) {
    auto* header = new QWidget(this);
    header->setAutoFillBackground(true);
    QPalette colors = header->palette();
    colors.setColor(QPalette::Window, QColor::fromRgb(kAccentColor));
    colors.setColor(QPalette::WindowText, QColor::fromRgb(kFieldColor));
    header->setPalette(colors);
    auto* layout = new QHBoxLayout(header);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* back = new StepButton(header, scale, ControlPainter::Arrow::Left, QStringLiteral("Previous month"));
    auto* on = new StepButton(header, scale, ControlPainter::Arrow::Right, QStringLiteral("Next month"));
    QFont bold = font();
    bold.setBold(true);
    Title->setFont(bold);
    Title->setAlignment(Qt::AlignCenter);
    layout->addWidget(back);
    layout->addWidget(Title, 1);
    layout->addWidget(on);
    connect(back, &QAbstractButton::clicked, Calendar, &QCalendarWidget::showPreviousMonth);
    connect(on, &QAbstractButton::clicked, Calendar, &QCalendarWidget::showNextMonth);
    return header;
}

void MonthPopup::ShowMonth() {
    const QString month = QLocale().standaloneMonthName(Calendar->monthShown());
    Title->setText(QStringLiteral("%1 %2").arg(month).arg(Calendar->yearShown()));
}

void MonthPopup::Choose(QDate date) {
    if (Chosen) {
        Chosen(date);
    }
    hide();
}

void MonthPopup::Open(QDate date, const QRect& screen) {
    Calendar->setSelectedDate(date);
    ShowMonth();
    adjustSize();
    const QRect owner(parentWidget()->mapToGlobal(QPoint()), parentWidget()->size());
    QPoint place(owner.left(), owner.bottom() + 1);
    if (place.y() + height() > screen.bottom() + 1) {
        place.setY(std::max(screen.top(), owner.top() - height()));
    }
    place.setX(std::max(screen.left(), std::min(place.x(), screen.right() + 1 - width())));
    move(place);
    show();
    Calendar->setFocus();
}

void MonthPopup::hideEvent(QHideEvent* event) {
    QFrame::hideEvent(event);
    // A choice is told first.
    CallLater(this, [this] {
        if (Closed) {
            Closed();
        }
    });
}

} // namespace tavo::qt
