// Finds the two programs of the device and starts them apart from us.
#include "host/posix/device_processes.h"

#include "host/files/device_path.h"
#include "host/locale/case_folding.h"
#include "host/locale/utf.h"
#include "platform/device_paths.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <string_view>

#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace tavo::posix {

namespace {

constexpr std::array<const char*, 6> kClockPrograms{"gnome-clocks",       "kclock", "lomiri-clock-app",
                                                    "alarm-clock-applet", "xclock", "oclock"};

bool IsExecutable(const std::string& path) {
    struct stat state {};

    return stat(path.c_str(), &state) == 0 && S_ISREG(state.st_mode) && access(path.c_str(), X_OK) == 0;
}

std::optional<std::string> FindInPath(const std::string& name) {
    if (name.find('/') != std::string::npos) {
        return IsExecutable(name) ? std::optional(name) : std::nullopt;
    }
    const char* variable = std::getenv("PATH");
    std::string_view folders = variable == nullptr ? "/usr/local/bin:/usr/bin:/bin" : variable;
    while (true) {
        const std::string_view folder = folders.substr(0, folders.find(':'));
        // An empty entry would mean the working folder, where nobody expects a clock.
        if (const std::string path = std::string(folder) + '/' + name; !folder.empty() && IsExecutable(path)) {
            return path;
        }
        if (folder.size() == folders.size()) {
            return std::nullopt;
        }
        folders.remove_prefix(folder.size() + 1);
    }
}

// Arguments are separated by blanks; double quotes hold one together.
std::vector<std::string> SplitArguments(const std::string& line) {
    std::vector<std::string> arguments;
    bool isQuoted = false;
    bool isOpen = false;
    for (const char letter : line) {
        if (letter == '"') {
            isQuoted = !isQuoted;
        } else if (letter == ' ' && !isQuoted) {
            isOpen = false;
            continue;
        }
        if (!isOpen) {
            arguments.emplace_back();
        }
        isOpen = true;
        if (letter != '"') {
            arguments.back() += letter;
        }
    }
    return arguments;
}

std::optional<std::vector<std::string>> FindClock() {
    if (const char* wished = std::getenv("TAVO_CLOCK"); wished != nullptr && *wished != '\0') {
        if (IsExecutable(wished)) { // a path with blanks in it
            return std::vector<std::string>{wished};
        }
        std::vector<std::string> command = SplitArguments(wished);
        const std::optional<std::string> program = command.empty() ? std::nullopt : FindInPath(command.front());
        if (!program) {
            return std::nullopt;
        }
        command.front() = *program;
        return command;
    }
    for (const char* name : kClockPrograms) {
        if (const std::optional<std::string> program = FindInPath(name)) {
            return std::vector<std::string>{*program};
        }
    }
    return std::nullopt;
}

std::u16string FoldPath(std::u16string_view path) {
    std::u16string folded;
    for (const std::u16string& part : files::ParseDevicePath(path).value_or(std::vector<std::u16string>())) {
        folded += u'\\' + locale::FoldCase(part);
    }
    return folded;
}

// How the new program begins: apart from our session and terminal, with none of our files and none of our signals'
// settings, as what we ignore it would ignore too.
class ProgramStart {
  public:
    ProgramStart() {
        posix_spawn_file_actions_init(&Files);
        for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
            posix_spawn_file_actions_addopen(&Files, standard, "/dev/null", O_RDWR, 0);
        }
        posix_spawn_file_actions_addclosefrom_np(&Files, STDERR_FILENO + 1);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_init(&Attributes);
        posix_spawnattr_setsigmask(&Attributes, &signals);
        for (const int number : {SIGPIPE, SIGCHLD, SIGHUP, SIGINT, SIGQUIT, SIGTERM}) {
            sigaddset(&signals, number);
        }
        posix_spawnattr_setsigdefault(&Attributes, &signals);
        posix_spawnattr_setflags(&Attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }

    ~ProgramStart() {
        posix_spawnattr_destroy(&Attributes);
        posix_spawn_file_actions_destroy(&Files);
    }

    ProgramStart(const ProgramStart&) = delete;
    ProgramStart& operator=(const ProgramStart&) = delete;

    bool Spawn(char* const* arguments) const {
        pid_t program = 0;
        return posix_spawn(&program, arguments[0], &Files, &Attributes, arguments, environ) == 0;
    }

  private:
    posix_spawn_file_actions_t Files{};
    posix_spawnattr_t Attributes{};
};

} // namespace

bool StartDetached(const std::vector<std::string>& arguments) {
    if (arguments.empty() || !IsExecutable(arguments.front())) {
        return false;
    }
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (const std::string& argument : arguments) {
        pointers.push_back(const_cast<char*>(argument.c_str())); // execv wants it so and does not write
    }
    pointers.push_back(nullptr);
    const ProgramStart start;
    // A process between, so that the program is nobody's child here and leaves no zombie. It shares our memory while we
    // wait: copying the tables of a window's memory would take longer than all the rest.
    const pid_t between = vfork(); // NOLINT(clang-analyzer-security.insecureAPI.vfork): for that
    if (between < 0) {
        return false;
    }
    if (between == 0) {
        _exit(start.Spawn(pointers.data()) ? 0 : 1); // NOLINT(clang-analyzer-unix.Vfork): writes to its own frames only
    }
    int status = 0;
    while (waitpid(between, &status, 0) < 0 && errno == EINTR) {
    }
    return status == 0;
}

bool DeviceProcesses::CreateProcessW(std::u16string_view path, std::u16string_view commandLine) {
    std::optional<std::vector<std::string>> command = Resolve(path, commandLine);
    if (!command || !IsExecutable(command->front())) {
        return false;
    }
    Waiting.push_back(std::move(*command));
    return true;
}

void DeviceProcesses::StartWaiting() {
    for (const std::vector<std::string>& command : std::exchange(Waiting, {})) {
        static_cast<void>(
            StartDetached(command)); // what went away meanwhile is missing, as it would have been a moment later
    }
}

std::optional<std::vector<std::string>> DeviceProcesses::Resolve(std::u16string_view path,
                                                                 std::u16string_view commandLine) const {
    const std::u16string folded = FoldPath(path);
    std::optional<std::vector<std::string>> command;
    if (folded == FoldPath(kClockProgram)) {
        command = FindClock();
    } else if (const std::string companion = FindProgram(ProgramFolder, "RSound");
               folded == FoldPath(kCompanionProgram) && IsExecutable(companion)) {
        command = {companion};
    }
    if (command) {
        for (std::string& argument : SplitArguments(locale::ToUtf8(commandLine))) {
            command->push_back(std::move(argument));
        }
    }
    return command;
}

} // namespace tavo::posix
