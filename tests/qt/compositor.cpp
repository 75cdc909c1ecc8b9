// Starting the desktop, and asking it what it shows.
#include "tests/qt/compositor.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLibraryInfo>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <grp.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tavo::qt {
namespace {

constexpr uid_t kNobody = 65534;
constexpr int kTries = 200; // of 50 ms

constexpr const char* kConfiguration = R"(xwayland disable
output HEADLESS-1 resolution 1280x1024
for_window [app_id=".*"] floating enable
)";

// It does not run for root.
bool BecomeSomebody() {
    return geteuid() != 0 || (setgroups(0, nullptr) == 0 && setgid(kNobody) == 0 && setuid(kNobody) == 0);
}

std::optional<QJsonObject> FindIn(const QJsonObject& node, int process) {
    if (node.value(QLatin1String("pid")).toInt() == process) {
        return node;
    }
    for (const char* list : {"nodes", "floating_nodes"}) {
        const QJsonArray children = node.value(QLatin1String(list)).toArray();
        for (const QJsonValue child : children) {
            if (auto found = FindIn(child.toObject(), process)) {
                return found;
            }
        }
    }
    return std::nullopt;
}

} // namespace

bool Compositor::IsInstalled() {
    const QString plugins = QLibraryInfo::path(QLibraryInfo::PluginsPath) + QLatin1String("/platforms");
    const bool canShow = !QDir(plugins).entryList({QStringLiteral("libqwayland*.so")}).isEmpty();
    return canShow && std::system("command -v sway >/dev/null && command -v swaymsg >/dev/null") == 0;
}

Compositor::Compositor() {
    Folder.Put("config", kConfiguration);
    std::filesystem::permissions(Folder.Path(), std::filesystem::perms::owner_all);
    if (geteuid() == 0) {
        static_cast<void>(
            !chown(Folder.Path().c_str(), kNobody, kNobody)); // without it nothing starts, and that is told
        std::filesystem::permissions(Folder / "config", std::filesystem::perms::others_read,
                                     std::filesystem::perm_options::add);
    }
    Process = fork();
    if (Process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        static_cast<void>(!freopen((Folder / "log").c_str(), "w", stderr));
        if (!BecomeSomebody()) {
            _exit(126);
        }
        prctl(PR_SET_PDEATHSIG, SIGKILL); // gone with the change of user
        setenv("XDG_RUNTIME_DIR", Folder.Path().c_str(), 1);
        setenv("HOME", Folder.Path().c_str(), 1);
        setenv("WLR_BACKENDS", "headless", 1);
        setenv("WLR_LIBINPUT_NO_DEVICES", "1", 1);
        setenv("WLR_RENDERER", "pixman", 1);
        execlp("sway", "sway", "-c", (Folder / "config").c_str(), nullptr);
        _exit(127);
    }
    for (int i = 0; i < kTries && Control.empty(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        for (const std::string& name : Folder.NamesIn(".")) {
            if (name.starts_with("sway-ipc.") && Folder.Has("wayland-1")) {
                Control = Folder / name;
            }
        }
    }
    setenv("XDG_RUNTIME_DIR", Folder.Path().c_str(), 1);
    setenv("WAYLAND_DISPLAY", "wayland-1", 1);
    setenv("QT_QPA_PLATFORM", "wayland", 1);
}

Compositor::~Compositor() {
    kill(Process, SIGTERM);
    waitpid(Process, nullptr, 0);
}

std::string Compositor::Tell(const std::string& words) const {
    std::FILE* answer = popen(("swaymsg -s '" + Control + "' -r " + words).c_str(), "r");
    std::string text;
    std::array<char, 4096> part{};
    while (std::fgets(part.data(), part.size(), answer) != nullptr) {
        text += part.data();
    }
    pclose(answer);
    return text;
}

std::optional<QJsonObject> Compositor::FindWindow(int process) const {
    return FindIn(QJsonDocument::fromJson(QByteArray::fromStdString(Tell("-t get_tree"))).object(), process);
}

} // namespace tavo::qt
