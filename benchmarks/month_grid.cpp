// The yardstick of the start: a plain Qt program that paints the grid of this month. Like the calendar it appends a
// line to the file named by TAVO_TRACE_FRAMES for each frame shown: monotonic clock and processor time, in nanoseconds.
#include <QApplication>
#include <QDate>
#include <QLocale>
#include <QPaintEvent>
#include <QPainter>
#include <QWidget>

#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace {

constexpr int kWidth = 480; // twice the device's screen, as the calendar starts on a common monitor
constexpr int kHeight = 640;
constexpr int kColumns = 7;
constexpr int kRows = 6;
constexpr int kHeaderHeight = 52;
constexpr int kWeekdaysHeight = 32;

long long ReadNanoseconds(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

class MonthGrid final : public QWidget {
  public:
    MonthGrid() {
        setWindowTitle("Month grid");
        resize(kWidth, kHeight);
        if (const char* path = std::getenv("TAVO_TRACE_FRAMES"); path != nullptr) {
            Trace = std::fopen(path, "a");
        }
    }

    ~MonthGrid() override {
        if (Trace != nullptr) {
            std::fclose(Trace);
        }
    }

    MonthGrid(const MonthGrid&) = delete;
    MonthGrid& operator=(const MonthGrid&) = delete;

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        PaintHeader(painter);
        PaintDays(painter);
        painter.end();
        if (Trace != nullptr) {
            std::fprintf(Trace, "%lld %lld\n", ReadNanoseconds(CLOCK_MONOTONIC),
                         ReadNanoseconds(CLOCK_PROCESS_CPUTIME_ID));
            std::fflush(Trace);
        }
    }

  private:
    void PaintHeader(QPainter& painter) const {
        QFont font("Liberation Sans", 18, QFont::Bold);
        painter.setFont(font);
        painter.setPen(Qt::black);
        painter.drawText(QRect(0, 0, width(), kHeaderHeight), Qt::AlignCenter,
                         QLocale::c().toString(Today, "MMMM yyyy"));
    }

    void PaintDays(QPainter& painter) const {
        painter.setFont(QFont("Liberation Sans", 12));
        const int cellWidth = width() / kColumns;
        const int cellHeight = (height() - kHeaderHeight - kWeekdaysHeight) / kRows;
        const QDate first(Today.year(), Today.month(), 1);
        const QDate shown = first.addDays(-(first.dayOfWeek() % kColumns));
        for (int column = 0; column < kColumns; ++column) {
            const QRect cell(column * cellWidth, kHeaderHeight, cellWidth, kWeekdaysHeight);
            painter.setPen(column == 0 ? Qt::red : column == 6 ? Qt::blue : Qt::black);
            painter.drawText(cell, Qt::AlignCenter,
                             QLocale::c().dayName(column == 0 ? 7 : column, QLocale::ShortFormat));
        }
        for (int index = 0; index < kColumns * kRows; ++index) {
            const QDate day = shown.addDays(index);
            const QRect cell(index % kColumns * cellWidth,
                             kHeaderHeight + kWeekdaysHeight + index / kColumns * cellHeight, cellWidth, cellHeight);
            painter.setPen(QColor(200, 200, 200));
            painter.drawRect(cell);
            painter.setPen(day.month() == Today.month() ? Qt::black : Qt::gray);
            painter.drawText(cell.adjusted(4, 2, -4, -2), Qt::AlignTop | Qt::AlignLeft, QString::number(day.day()));
        }
    }

    QDate Today = QDate::currentDate();
    std::FILE* Trace = nullptr;
};

} // namespace

int main(int count, char** arguments) {
    QApplication application(count, arguments);
    MonthGrid grid;
    grid.show();
    return QApplication::exec();
}
