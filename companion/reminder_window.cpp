// Cards one above the other, each with its buttons.
#include "companion/reminder_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <cstdio>

namespace tavo::companion {

namespace {

constexpr int kWidth = 340;
constexpr int kScreenGap = 24; // from the corner of the screen
constexpr int kTextWidth = 300;

struct SnoozeChoice {
    const char* Label;
    int Minutes;
};

constexpr std::array<SnoozeChoice, 4> kSnoozes{
    {{"&5 minutes", 5}, {"&10 minutes", 10}, {"&30 minutes", 30}, {"1 &hour", 60}}};

QLabel* MakeText(const QString& text, bool bold) {
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->setWordWrap(true);
    label->setMinimumWidth(kTextWidth);
    QFont font = label->font();
    font.setBold(bold);
    font.setPointSizeF(bold ? font.pointSizeF() + 1 : font.pointSizeF());
    label->setFont(font);
    return label;
}

} // namespace

ReminderWindow::ReminderWindow() : QWidget(nullptr, Qt::Window | Qt::WindowStaysOnTopHint), Stack(new QVBoxLayout) {
    setWindowTitle(QStringLiteral("Tavo Calendar - Reminders"));
    Stack->setSizeConstraint(QLayout::SetFixedSize);
    setLayout(Stack);
    setMinimumWidth(kWidth);
    setAttribute(Qt::WA_ShowWithoutActivating); // what is being typed goes on
}

void ReminderWindow::Answer(quint32 number, const QString& answer) {
    std::printf("%s\n", qPrintable(answer));
    std::fflush(stdout);
    CloseCard(number);
}

QWidget* ReminderWindow::MakeButtons(quint32 number) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const char* label, const QString& answer) {
        auto* button = new QPushButton(QString::fromLatin1(label));
        button->setAutoDefault(true);
        layout->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, number, answer] { Answer(number, answer); });
        return button;
    };
    add("&Dismiss", QStringLiteral("dismiss %1").arg(number));
    auto* snooze = new QPushButton(QStringLiteral("&Snooze"));
    auto* menu = new QMenu(snooze);
    for (const SnoozeChoice& choice : kSnoozes) {
        const QString answer = QStringLiteral("snooze %1 %2").arg(number).arg(choice.Minutes);
        connect(menu->addAction(QString::fromLatin1(choice.Label)), &QAction::triggered, this,
                [this, number, answer] { Answer(number, answer); });
    }
    snooze->setMenu(menu);
    layout->addWidget(snooze);
    add("&Open", QStringLiteral("open %1").arg(number));
    layout->addStretch();
    return row;
}

QWidget* ReminderWindow::MakeCard(quint32 number, const QString& summary, const QString& body) {
    auto* card = new QFrame;
    card->setFrameShape(QFrame::StyledPanel);
    card->setAccessibleName(summary);
    auto* layout = new QVBoxLayout(card);
    layout->addWidget(MakeText(summary, true));
    if (!body.isEmpty()) {
        layout->addWidget(MakeText(body, false));
    }
    layout->addWidget(MakeButtons(number));
    return card;
}

void ReminderWindow::ShowCard(quint32 number, const QString& summary, const QString& body) {
    delete Cards.take(number);
    QWidget* card = MakeCard(number, summary, body);
    Cards.insert(number, card);
    Stack->addWidget(card);
    show();
    adjustSize();
    if (const QScreen* screen = QGuiApplication::primaryScreen(); screen != nullptr) {
        const QRect room = screen->availableGeometry();
        move(std::max(room.left(), room.right() - width() - kScreenGap), room.top() + kScreenGap);
    }
    raise();
}

void ReminderWindow::CloseCard(quint32 number) {
    if (QWidget* card = Cards.take(number); card != nullptr) {
        card->hide();
        card->deleteLater(); // one of its buttons may be calling
    }
    if (Cards.isEmpty()) {
        QApplication::quit();
    }
}

// As with the desktop's own: who closes a reminder has seen it.
void ReminderWindow::DismissAll() {
    const QList<quint32> numbers = Cards.keys();
    for (const quint32 number : numbers) {
        Answer(number, QStringLiteral("dismiss %1").arg(number));
    }
}

void ReminderWindow::closeEvent(QCloseEvent* event) {
    if (event->spontaneous()) { // by a person; the end of the session answers nothing
        DismissAll();
    }
    event->accept();
}

void ReminderWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        DismissAll();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace tavo::companion
