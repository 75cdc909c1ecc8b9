// Page after page, as the program asks for them.
#include "host/qt/print_job.h"

#include "host/print/page_layout.h"
#include "host/qt/page_printing.h"

#include <QFileInfo>
#include <QLocale>

#include <algorithm>
#include <utility>

namespace tavo::qt {
namespace {

constexpr int kPointsPerInch = 72;
constexpr int kDaysOfWeek = 7;
constexpr int kWhole = 1000;
constexpr std::u16string_view kNoStore = u"the calendar cannot be read";
constexpr std::u16string_view kNoPrinter = u"the printer, or the file, cannot be written to";

// The margins that the person chose lie in it.
print::PrintRequest RequestFor(const QPrinter& printer, const SYSTEMTIME& day) {
    QSizeF sheet = printer.pageLayout().fullRect(QPageLayout::Point).size();
    if (sheet.width() > sheet.height()) {
        sheet.transpose();
    }
    const QMarginsF margins = printer.pageLayout().margins(QPageLayout::Point);
    print::PrintRequest request;
    request.First = rules::DayFromCivil(day.Year, day.Month, day.Day);
    request.FirstWeekday = static_cast<int>(QLocale::system().firstDayOfWeek()) % kDaysOfWeek; // Qt's Sunday is 7
    request.Sheet = {sheet.width(), sheet.height()};
    request.Margin = std::max({request.Margin, margins.left(), margins.top(), margins.right(), margins.bottom()});
    return request;
}

} // namespace

void PrintJob::Choose(std::shared_ptr<QPrinter> printer, const SYSTEMTIME& day) {
    Chosen = std::move(printer);
    Day = day;
}

std::optional<std::u16string> PrintJob::NextFile() {
    Leave();
    if (!Chosen) {
        return std::nullopt;
    }
    Printer = std::exchange(Chosen, nullptr);
    const QString file = Printer->outputFileName();
    const QString name = file.isEmpty() ? Printer->printerName() : QFileInfo(file).fileName();
    const outlook::StorePtr store = FindStore();
    const print::PrintRequest request = RequestFor(*Printer, Day);
    print::PrintedDays days;
    const auto [first, last] = print::DaysOf(request);
    if (!store || Failed(print::ReadDays(store, first, last, days))) {
        Reason = kNoStore;
    } else {
        Pages = print::LayOutPages(request, days, {});
    }
    return name.toStdU16String();
}

bool PrintJob::Fail(std::u16string_view reason) {
    Leave();
    Reason = reason;
    return false;
}

bool PrintJob::Begin() {
    Printer->setPageOrientation(QPageLayout::Landscape);
    Printer->setFullPage(true); // the pages have margins of their own
    Painter = std::make_unique<QPainter>(Printer.get());
    return Painter->isActive();
}

bool PrintJob::ExportOn() {
    if (!Printer || Next >= Pages.size()) {
        return false;
    }
    if (!(Painter ? Printer->newPage() : Begin())) {
        return Fail(kNoPrinter);
    }
    Painter->resetTransform();
    const double scale = static_cast<double>(Printer->resolution()) / kPointsPerInch;
    Painter->scale(scale, scale);
    DrawPage(*Painter, Pages[Next]);
    ++Next;
    if (Next < Pages.size()) {
        return true;
    }
    const bool isDone = Painter->end() && Printer->printerState() != QPrinter::Error;
    Painter.reset();
    return isDone ? false : Fail(kNoPrinter);
}

void PrintJob::Leave() {
    if (Painter) {
        Printer->abort();
    }
    Painter.reset();
    Printer.reset();
    Pages.clear();
    Next = 0;
    Reason.clear();
}

int PrintJob::Progress() const {
    return Pages.empty() ? 0 : static_cast<int>(Next * kWhole / Pages.size());
}

} // namespace tavo::qt
