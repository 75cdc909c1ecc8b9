// Starts the program on the desktop, or says what is missing.
#include "app/start.h"
#include "host/locale/harmless_text.h"
#include "host/qt/font_preparation.h"
#include "host/qt/host.h"
#include "host/qt/store_link.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

constexpr int kCannotStart = 1;

int Refuse(std::string_view problem) {
    std::fprintf(stderr, "tavocalendar: %s\n", tavo::locale::MakeHarmless(problem).c_str());
    return kCannotStart;
}

bool IsSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

bool HasDisplay(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (std::string_view(argv[i]) == "-platform") {
            return true;
        }
    }
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

} // namespace

int main(int argc, char** argv) {
    using namespace tavo;
    if (!HasDisplay(argc, argv)) {
        return Refuse("there is no display. Start it from a desktop session, or set DISPLAY or WAYLAND_DISPLAY. The "
                      "command line tool, tavo, works without one.");
    }
    const files::RootResult root = files::OpenDeviceRoot(files::RootEnvironment::OfProcess());
    if (!root.Root.has_value()) {
        return Refuse(root.Problem);
    }
    qInstallMessageHandler(TakeToolkitMessage);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tavocalendar"));
    QGuiApplication::setDesktopFileName(QStringLiteral("tavocalendar"));
    Q_INIT_RESOURCE(tavo_pictures);
    qt::BeginPreparingFonts();
    qt::StoreLink store(root.Root->StorePath());
    qt::HostOptions options{*root.Root, InstalledSounds()};
    options.CreateOutlook = [&](ComPtr<IPOutlookApp>& outlook) { return store.Create(outlook); };
    options.LastStoreError = [&] { return store.LastError(); };
    options.RefuseWithoutFonts = RefuseWithoutFonts;
    qt::QtHost host(std::move(options));
    store.SetChanged([&] { host.Parts().State.AnnounceStoreChange(); });
    store.SetReminded([&] { host.Parts().State.AnnounceReminders(); });
    const int status = RunTavoCalendar(host);
    (void)qt::PrepareFonts(); // not given up half done, when a window was there already
    return status;
}
