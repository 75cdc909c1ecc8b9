// Shows the cards that come in on standard input, a line each, and writes the answers to standard output.
#include "companion/reminder_window.h"

#include <QApplication>
#include <QSocketNotifier>
#include <QStringList>

#include <array>
#include <cstdio>
#include <unistd.h>

namespace {

constexpr char16_t kLineInText = 0x1F;

// "show NUMBER SUMMARY BODY" or "close NUMBER", separated by tabs.
void TakeLine(tavo::companion::ReminderWindow& window, const QByteArray& line) {
    const QStringList words = QString::fromUtf8(line).split(QLatin1Char('\t'));
    if (words.size() >= 4 && words[0] == QLatin1String("show")) {
        QString summary = words[2];
        summary.replace(QChar(kLineInText), QLatin1Char(' '));
        QString body = words[3];
        body.replace(QChar(kLineInText), QLatin1Char('\n'));
        window.ShowCard(words[1].toUInt(), summary, body);
        window.repaint(); // only what was painted is shown
        std::printf("shown\t%s\n", qPrintable(words[1]));
        std::fflush(stdout);
    } else if (words.size() >= 2 && words[0] == QLatin1String("close")) {
        window.CloseCard(words[1].toUInt());
    }
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(true);
    QGuiApplication::setDesktopFileName(QStringLiteral("tavocalendar"));
    tavo::companion::ReminderWindow window([](const QString& answer) {
        std::printf("%s\n", qPrintable(answer));
        std::fflush(stdout);
    });
    QByteArray unread;
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &window, [&] {
        std::array<char, 4096> bytes{};
        const ssize_t count = read(STDIN_FILENO, bytes.data(), bytes.size());
        if (count <= 0) {
            QApplication::quit(); // nobody would take an answer any more
            return;
        }
        unread.append(bytes.data(), count);
        for (qsizetype end = unread.indexOf('\n'); end >= 0; end = unread.indexOf('\n')) {
            TakeLine(window, unread.left(end));
            unread.remove(0, end + 1);
        }
    });
    return QApplication::exec();
}
