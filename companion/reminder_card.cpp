// A title, its lines, and three buttons.
#include "companion/reminder_card.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

namespace tavo::companion {

namespace {

constexpr int kLineGap = 3;       // so that a line that goes on in the next is told from a new one
constexpr int kButtonHeight = 30; // for a pen
constexpr qsizetype kLongestLine = 300;
constexpr qsizetype kLongestWord = 20;     // goes into a line
constexpr char16_t kMayBreakHere = 0x200B; // where a line is full
constexpr char16_t kAndSoOn = 0x2026;

struct SnoozeChoice {
    const char* Label;
    int Minutes;
};

constexpr std::array<SnoozeChoice, 4> kSnoozes{
    {{"&5 minutes", 5}, {"&10 minutes", 10}, {"&30 minutes", 30}, {"1 &hour", 60}}};

// Any text fits: none is wider than the card or fills the screen.
QString ShortenLine(const QString& text) {
    QString line;
    qsizetype inWord = 0;
    for (const QChar letter : text.left(kLongestLine)) {
        inWord = letter.isSpace() ? 0 : inWord + 1;
        if (inWord > kLongestWord && !letter.isLowSurrogate() && !letter.isMark()) {
            line += QChar(kMayBreakHere);
            inWord = 1;
        }
        line += letter;
    }
    return text.size() > kLongestLine ? line + QChar(kAndSoOn) : line;
}

QLabel* MakeLine(const QString& text) {
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setText(ShortenLine(text));
    label->setWordWrap(true);
    label->setMinimumWidth(1);
    return label;
}

QPushButton* MakeButton(const char* label) {
    auto* button = new QPushButton(QString::fromLatin1(label));
    button->setAutoDefault(true); // Enter works it
    button->setMinimumHeight(kButtonHeight);
    return button;
}

} // namespace

ReminderCard::ReminderCard(quint32 number, const QString& summary, const QString& body, Listener listener)
    : OwnNumber(number), Told(std::move(listener)) {
    setFrameShape(QFrame::StyledPanel);
    setAccessibleName(summary);
    setBackgroundRole(QPalette::Base);
    setForegroundRole(QPalette::Text);
    setAutoFillBackground(true);
    auto* layout = new QVBoxLayout(this);
    AddText(*layout, summary, body);
    layout->addWidget(MakeButtons());
}

void ReminderCard::AddText(QVBoxLayout& layout, const QString& summary, const QString& body) {
    QLabel* title = MakeLine(summary);
    QFont font = title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() + 1);
    title->setFont(font);
    layout.addWidget(title);
    if (body.isEmpty()) {
        return;
    }
    auto* lines = new QVBoxLayout;
    lines->setSpacing(kLineGap);
    for (const QString& line : body.split(QLatin1Char('\n'))) {
        lines->addWidget(MakeLine(line));
    }
    layout.addLayout(lines);
}

QWidget* ReminderCard::MakeButtons() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    QPushButton* dismiss = MakeButton("&Dismiss");
    connect(dismiss, &QPushButton::clicked, this, [this] { Dismiss(); });
    QPushButton* snooze = MakeButton("&Snooze");
    auto* menu = new QMenu(snooze);
    for (const SnoozeChoice& choice : kSnoozes) {
        const QString answer = QStringLiteral("snooze %1 %2").arg(OwnNumber).arg(choice.Minutes);
        connect(menu->addAction(QString::fromLatin1(choice.Label)), &QAction::triggered, this,
                [this, answer] { Answer(answer); });
    }
    snooze->setMenu(menu);
    QPushButton* open = MakeButton("&Open");
    connect(open, &QPushButton::clicked, this, [this] { Answer(QStringLiteral("open %1").arg(OwnNumber)); });
    for (QPushButton* button : {dismiss, snooze, open}) {
        layout->addWidget(button);
    }
    layout->addStretch();
    setFocusProxy(dismiss);
    return row;
}

void ReminderCard::Answer(const QString& answer) {
    Told(OwnNumber, answer);
}

void ReminderCard::Dismiss() {
    Answer(QStringLiteral("dismiss %1").arg(OwnNumber));
}

} // namespace tavo::companion
