// Cards one above the other, newest last, on as much of the screen as they need.
#include "companion/reminder_window.h"

#include "companion/reminder_card.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace tavo::companion {

namespace {

constexpr int kWidth = 360;
constexpr int kScreenGap = 24; // from the edges of the screen
constexpr int kTitleRoom = 32; // that the window's frame takes above it

QRect RoomOnScreen() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QRect all = screen == nullptr ? QRect(0, 0, kWidth, kWidth) : screen->availableGeometry();
    return all.adjusted(kScreenGap, kScreenGap, -kScreenGap, -kScreenGap - kTitleRoom);
}

} // namespace

ReminderWindow::ReminderWindow(Listener listener)
    : QWidget(nullptr, Qt::Dialog | Qt::WindowStaysOnTopHint), Told(std::move(listener)), Scroll(new QScrollArea(this)),
      Board(new QWidget), Stack(new QVBoxLayout(Board)) {
    setWindowTitle(QStringLiteral("Tavo Calendar - Reminders"));
    setAttribute(Qt::WA_ShowWithoutActivating); // what is being typed goes on
    setAttribute(Qt::WA_QuitOnClose);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(Scroll);
    Stack->addStretch(); // where the window is larger than it asked to be
    Scroll->setFrameShape(QFrame::NoFrame);
    Scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Scroll->setWidgetResizable(true);
    Scroll->setFocusPolicy(Qt::NoFocus); // the keys are for the buttons
    Scroll->setWidget(Board);
}

qsizetype ReminderWindow::PlaceOf(quint32 number) const {
    const auto found =
        std::find_if(Cards.begin(), Cards.end(), [&](const ReminderCard* card) { return card->Number() == number; });
    return found == Cards.end() ? -1 : found - Cards.begin();
}

void ReminderWindow::Answer(quint32 number, const QString& answer) {
    Told(answer);
    CloseCard(number);
}

void ReminderWindow::ShowCard(quint32 number, const QString& summary, const QString& body) {
    auto* card = new ReminderCard(number, summary, body,
                                  [this](quint32 answered, const QString& answer) { Answer(answered, answer); });
    const qsizetype old = PlaceOf(number);
    const qsizetype place = old >= 0 ? old : Cards.size();
    Stack->insertWidget(static_cast<int>(place), card);
    card->show(); // else it counts only from the next turn of the loop
    Cards.insert(place, card);
    if (old >= 0) {
        ReminderCard* before = Cards.takeAt(place + 1);
        const bool hadFocus = before->isAncestorOf(focusWidget());
        before->hide();
        before->deleteLater(); // one of its menus may be open
        if (hadFocus) {
            card->setFocus();
        }
    } else if (Cards.size() == 1) {
        card->setFocus();
    }
    Fit();
    show();
    Fit(); // once more, with the fonts of the screen that it came to
    raise();
    if (!isActiveWindow()) { // else somebody works at another card
        Scroll->ensureWidgetVisible(card);
    }
}

void ReminderWindow::Fit() {
    const QRect room = RoomOnScreen();
    const int wanted = Stack->totalHeightForWidth(kWidth);
    const bool scrolls = wanted > room.height();
    setFixedSize(kWidth + (scrolls ? Scroll->verticalScrollBar()->sizeHint().width() : 0),
                 std::min(wanted, room.height()));
    Stack->activate();
    Board->resize(Scroll->viewport()->width(), wanted); // now, so that a card can be scrolled to
    if (!isVisible()) {
        move(std::max(room.left(), room.right() - width()), room.top());
    } else if (frameGeometry().bottom() > room.bottom() + kTitleRoom) {
        move(x(), std::max(room.top(), room.bottom() + kTitleRoom - frameGeometry().height()));
    }
}

void ReminderWindow::CloseCard(quint32 number) {
    const qsizetype place = PlaceOf(number);
    if (place < 0) {
        return;
    }
    ReminderCard* card = Cards.takeAt(place);
    const bool hadFocus = card->isAncestorOf(focusWidget());
    card->hide();
    Stack->removeWidget(card);
    card->deleteLater(); // one of its buttons may be calling
    if (Cards.isEmpty()) {
        close();
        return;
    }
    if (hadFocus) {
        Cards.at(std::min(place, Cards.size() - 1))->setFocus();
    }
    Fit();
}

// As with the desktop's own: who closes a reminder has seen it.
void ReminderWindow::closeEvent(QCloseEvent* event) {
    if (event->spontaneous()) { // by a person; the end of the session answers nothing
        const QList<ReminderCard*> cards = Cards;
        for (ReminderCard* card : cards) {
            card->Dismiss();
        }
    }
    event->accept();
}

void ReminderWindow::DismissFocused() {
    for (ReminderCard* card : Cards) {
        if (card->isAncestorOf(focusWidget())) {
            card->Dismiss();
            return;
        }
    }
}

void ReminderWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        DismissFocused(); // the others were perhaps not read
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace tavo::companion
