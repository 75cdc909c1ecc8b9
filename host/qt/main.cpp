// Starts the program on the desktop, or says what is missing.
#include "app/start.h"
#include "host/exchange/calendar_export.h"
#include "host/exchange/calendar_import.h"
#include "host/exchange/calendar_lines.h"
#include "host/ink/ink_drawing.h"
#include "host/locale/harmless_text.h"
#include "host/outlook/export_reader.h"
#include "host/outlook/import_writer.h"
#include "host/posix/file_source.h"
#include "host/posix/file_target.h"
#include "host/posix/instance_lock.h"
#include "host/posix/memo_folder.h"
#include "host/posix/root_folder.h"
#include "host/qt/command_line.h"
#include "host/qt/font_preparation.h"
#include "host/qt/host.h"
#include "host/qt/store_link.h"
#include "host/qt/written_files.h"

#include <QApplication>
#include <QMessageBox>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int kCannotStart = 1;
constexpr int kWrongUse = 2;
constexpr std::chrono::seconds kOtherPatience{15}; // with one that runs already, or is about to end

int Refuse(std::string_view problem) {
    std::fprintf(stderr, "tavocalendar: %s\n", tavo::locale::MakeHarmless(problem).c_str());
    return kCannotStart;
}

bool IsSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

// On the screen too: who starts it from a menu sees no terminal.
int RefuseOnScreen(std::string_view problem) {
    const int status = Refuse(problem);
    const std::string words = tavo::locale::MakeHarmless(problem);
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Tavo Calendar"), QString::fromStdString(words));
    box.setTextFormat(Qt::PlainText); // names of folders may look like markup
    QObject::connect(&box, &QMessageBox::finished, qApp, &QApplication::quit);
    box.show();
    static_cast<void>(QApplication::exec()); // how it was closed does not matter
    return status;
}

int Print(std::string_view text) {
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() ? 0 : kCannotStart;
}

bool HasDisplay() {
    return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY") || IsSet("QT_QPA_PLATFORM");
}

// The sounds that came with the program, beside it.
std::string InstalledSounds() {
    return QCoreApplication::applicationDirPath().toStdString() + "/../share/tavocalendar/sounds";
}

// The toolkit aborts when it cannot reach the display it was pointed at.
void TakeToolkitMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
    for (const QString& line : message.split(QLatin1Char('\n'))) {
        std::fprintf(stderr, "%s\n", tavo::locale::MakeHarmless(line.toStdString()).c_str());
    }
    if (type == QtFatalMsg) {
        std::fflush(stderr);
        std::_Exit(Refuse("the display cannot be reached. Start it from a desktop session, or check DISPLAY."));
    }
}

// Found out after the program has begun, but before it showed anything.
[[noreturn]] void RefuseWithoutFonts() {
    std::_Exit(Refuse("there are no fonts. Install a package with fonts, such as fonts-liberation, and start again."));
}

struct Ending {
    int Status = 0;
    const char* Problem = nullptr; // why it did not run, if nobody was told yet
};

// Runs as the only program of its device, or has the one that runs come forward. One that ends meanwhile leaves the
// device to this one.
Ending RunAlone(tavo::qt::QtHost& host, const tavo::CalendarFiles& files) {
    using tavo::posix::LockOutcome;
    while (true) {
        const int status = tavo::RunTavoCalendar(host, files);
        switch (host.RootWindows().Claim().value_or(LockOutcome::ProgramRuns)) {
        case LockOutcome::Held:
            return {status};
        case LockOutcome::Busy:
            return {kCannotStart,
                    "Another process, such as the command line tool, holds the calendar's data file. Wait "
                    "until it has ended, and start again."};
        case LockOutcome::Failed:
            return {kCannotStart, "The file Run/Instance.lock in the calendar's folder cannot be made. Look whether "
                                  "the folder can be written and the disk has room, and start again."};
        case LockOutcome::ProgramRuns:
            break;
        }
        switch (host.RootWindows().WaitForOther(kOtherPatience)) {
        case tavo::qt::OtherAnswer::Comes:
            return {};
        case tavo::qt::OtherAnswer::Silent:
            return {kCannotStart, "The calendar is open already, but it does not answer. Wait until it does, or end "
                                  "that process, and start again."};
        case tavo::qt::OtherAnswer::Ended:
            break;
        }
    }
}

Ending RunOn(const tavo::files::DeviceRoot& root) {
    using namespace tavo;
    qt::StoreLink store(root.StorePath());
    qt::HostOptions options{root, InstalledSounds()};
    options.CreateOutlook = [&](ComPtr<IPOutlookApp>& outlook) { return store.Create(outlook); };
    options.LastStoreError = [&] { return store.LastError(); };
    options.RefuseWithoutFonts = RefuseWithoutFonts;
    posix::MemoFolder memos(root);
    exchange::CalendarImport files([&] { return outlook::MakeImportWriter(store.Store()); }, posix::OpenFileSource,
                                   &memos);
    options.TakeFiles = [&](const std::vector<std::string>& paths) { files.Add(paths); };
    options.HaveFiles = [&] { return files.HasFiles(); };
    exchange::CalendarExport written({[&] { return outlook::MakeExportReader(store.Store()); }, posix::OpenFileTarget,
                                      &memos, ink::DrawAsSvg,
                                      [] { return exchange::WriteMoment(std::chrono::system_clock::now()); }});
    backup::ChosenBackup backup(root);
    qt::PrintJob printed([&] { return store.Store(); });
    qt::ConnectWritten(options, written, backup, printed);
    qt::QtHost host(std::move(options));
    store.SetChanged([&] { host.Parts().State.AnnounceStoreChange(); });
    store.SetReminded([&] { host.Parts().State.AnnounceReminders(); });
    return RunAlone(host, {&files, &written, &host.Dialogs(), &backup, &printed});
}

// The files go the same way whether this copy imports them or one that runs already.
Ending RunWith(const tavo::files::DeviceRoot& root, const tavo::qt::CommandLine& line) {
    using tavo::posix::InstanceLock;
    const std::vector<std::string>& files = line.Files;
    if (line.NewItem != 0) { // without room for the wish the calendar opens all the same
        static_cast<void>(InstanceLock::RequestItem(root.RunFolder(), line.NewItem, ""));
    }
    if (files.empty()) {
        return RunOn(root);
    }
    if (InstanceLock::RequestImport(root.RunFolder(), files) != tavo::ErrorCode::Success) {
        return {kCannotStart,
                "The files cannot be imported: no note of them can be made in the calendar's folder. Look "
                "whether the folder can be written and the disk has room, or open fewer at once."};
    }
    const Ending ending = RunOn(root);
    if (ending.Problem != nullptr) {
        InstanceLock::DropImport(root.RunFolder());
    }
    return ending;
}

} // namespace

int main(int argc, char** argv) {
    using namespace tavo;
    const qt::CommandLine line = qt::ReadCommandLine(std::span<char* const>(argv, argv + argc).subspan(1));
    switch (line.Wanted) {
    case qt::CommandLine::Wish::Help:
        return Print(qt::kHelpText);
    case qt::CommandLine::Wish::Version:
        return Print(qt::kVersionText);
    case qt::CommandLine::Wish::Refusal:
        static_cast<void>(Refuse(line.Problem));
        std::fputs("Try `tavocalendar --help`.\n", stderr);
        return kWrongUse;
    case qt::CommandLine::Wish::Run:
        break;
    }
    if (!line.NamesPlatform && !HasDisplay()) {
        return Refuse("there is no display. Start it from a desktop session, or set DISPLAY or WAYLAND_DISPLAY. The "
                      "command line tool, tavo, works without one.");
    }
    qInstallMessageHandler(TakeToolkitMessage);
    qt::BeginReadingFontSetup();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tavocalendar"));
    QGuiApplication::setDesktopFileName(QStringLiteral("tavocalendar"));
    Q_INIT_RESOURCE(tavo_pictures);
    const posix::RootResult root = posix::OpenDeviceRoot(posix::RootEnvironment::OfProcess());
    if (!root.Root.has_value()) {
        return RefuseOnScreen(root.Problem);
    }
    qt::BeginPreparingFonts();
    const Ending ending = RunWith(*root.Root, line);
    qt::FinishPreparingFonts(); // not given up half done, when a window was there already
    return ending.Problem == nullptr ? ending.Status : RefuseOnScreen(ending.Problem);
}
