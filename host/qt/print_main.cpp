// tavo-print month|week|day|list FIRST LAST auto|a4|letter FILE, of the calendar that TAVO_HOME names: draws pages into
// a PDF file. `tavo print` starts it, and with it needs no toolkit itself. Days are counted as the store counts them.
#include "host/locale/harmless_text.h"
#include "host/posix/memo_folder.h"
#include "host/posix/root_folder.h"
#include "host/posix/store_machine.h"
#include "host/print/page_layout.h"
#include "host/print/page_words.h"
#include "host/print/printed_memos.h"
#include "host/qt/page_printing.h"

#include <QGuiApplication>
#include <QLocale>

#include <cstdio>
#include <map>
#include <optional>

namespace {

using namespace tavo;

constexpr int kWords = 6;
constexpr int kFailure = 1;
constexpr int kUsage = 2;
constexpr int kDaysOfWeek = 7;
const QString kAuto = QStringLiteral("auto");

bool Complain(const std::string& sentence) {
    std::fprintf(stderr, "tavo: %s\n", locale::MakeHarmless(sentence).c_str());
    return false;
}

std::optional<print::PrintRequest> ReadRequest(const QStringList& words) {
    const std::map<QString, print::PrintKind> kinds{{QStringLiteral("month"), print::PrintKind::Month},
                                                    {QStringLiteral("week"), print::PrintKind::Week},
                                                    {QStringLiteral("day"), print::PrintKind::Day},
                                                    {QStringLiteral("list"), print::PrintKind::List}};
    const std::map<QString, print::Paper> papers{{QStringLiteral("a4"), print::kA4},
                                                 {QStringLiteral("letter"), print::kLetter}};
    if (words.size() != kWords || !kinds.contains(words[1]) || (!papers.contains(words[4]) && words[4] != kAuto)) {
        return std::nullopt;
    }
    print::PrintRequest request;
    request.Kind = kinds.at(words[1]);
    request.First = words[2].toInt();
    request.Last = words[3].toInt();
    const bool isImperial = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    request.Sheet = words[4] != kAuto ? papers.at(words[4]) : isImperial ? print::kLetter : print::kA4;
    request.FirstWeekday = static_cast<int>(QLocale::system().firstDayOfWeek()) % kDaysOfWeek; // Qt's Sunday is 7
    return request;
}

bool Print(const print::PrintRequest& request, const QString& path) {
    const posix::RootResult found = posix::OpenDeviceRoot(posix::RootEnvironment::OfProcess());
    if (!found.Root) {
        return Complain(found.Problem);
    }
    const files::DeviceRoot& root = *found.Root;
    outlook::StoreOptions options;
    options.Rights = outlook::Access::ReadOnly;
    outlook::StorePtr store;
    print::PrintedDays days;
    const auto [first, last] = print::DaysOf(request);
    Status status = outlook::OpenStore(posix::SystemMachine(), root.StorePath(), options, store);
    status = Succeeded(status) ? print::ReadDays(store, first, last, days) : status;
    if (Failed(status) && status != Status::NotFound) { // a calendar without a store is empty
        return Complain("The calendar cannot be read. `tavo check` says why.");
    }
    print::MemosOfDay memos;
    if (request.Kind == print::PrintKind::Day) {
        std::vector<std::string> unreadable;
        posix::MemoFolder folder(root);
        memos = print::ReadMemos(folder, request.First, unreadable);
        for (const std::string& name : unreadable) {
            Complain("The memo " + name + " cannot be read and is not printed.");
        }
    }
    QSizeF sheet(request.Sheet.Width, request.Sheet.Height);
    if (print::IsAcross(request.Kind)) {
        sheet.transpose();
    }
    const QString title = QString::fromStdU16String(print::WriteDate(request.First, u"MMMM d, yyyy"));
    return qt::WritePdfFile(print::LayOutPages(request, days, memos), sheet, title, path) ||
           Complain("The file " + path.toStdString() + " cannot be written. What was there before is as it was.");
}

// What the toolkit remarks about the machine is of no use to who prints; what ends the program is.
void TakeToolkitMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        Complain(message.toStdString());
    }
}

} // namespace

int main(int count, char** arguments) {
    qInstallMessageHandler(TakeToolkitMessage);
    qputenv("QT_QPA_PLATFORM", "offscreen"); // it needs fonts, and no screen
    const QGuiApplication application(count, arguments);
    const QStringList words = QCoreApplication::arguments();
    const std::optional<print::PrintRequest> request = ReadRequest(words);
    if (!request) {
        std::fprintf(stderr, "usage: tavo-print month|week|day|list FIRST LAST auto|a4|letter FILE\n");
        return kUsage;
    }
    return Print(*request, words[kWords - 1]) ? 0 : kFailure;
}
