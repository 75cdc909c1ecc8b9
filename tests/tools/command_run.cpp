// Runs the command `tavo` as a person would, on a device of its own.
#include "tests/tools/command_run.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

extern char** environ; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): the C library's

namespace tavo::tools {
namespace {

std::vector<char*> MakePointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> MakeEnvironment(const std::map<std::string, std::string>& changes) {
    std::vector<std::string> variables;
    for (char** variable = environ; *variable != nullptr; ++variable) {
        const std::string text = *variable;
        if (!changes.contains(text.substr(0, text.find('=')))) {
            variables.push_back(text);
        }
    }
    for (const auto& [name, value] : changes) {
        if (!value.empty()) {
            variables.push_back(std::string(name).append("=").append(value));
        }
    }
    return variables;
}

} // namespace

std::string ReadWhole(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

CommandDevice::CommandDevice() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tavo-command-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    Folder = pattern;
    Environment["TAVO_HOME"] = Home().string();
    Environment["TZ"] = "Europe/Berlin";
    Environment["LC_ALL"] = "C.UTF-8";
}

CommandDevice::~CommandDevice() {
    std::error_code ignored; // a file that stays in the temporary folder hurts nobody
    std::filesystem::remove_all(Folder, ignored);
}

int CommandDevice::Start(const std::vector<std::string>& words) const {
    std::vector<std::string> arguments{TAVO_COMMAND};
    arguments.insert(arguments.end(), words.begin(), words.end());
    std::vector<std::string> variables = MakeEnvironment(Environment);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    constexpr int kNewFile = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_addopen(&actions, 0, Input.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, Place("output").c_str(), kNewFile, 0600);
    posix_spawn_file_actions_addopen(&actions, 2, Place("errors").c_str(), kNewFile, 0600);
    pid_t process = -1;
    const int failed = posix_spawn(&process, TAVO_COMMAND, &actions, nullptr, MakePointers(arguments).data(),
                                   MakePointers(variables).data());
    posix_spawn_file_actions_destroy(&actions);
    return failed == 0 ? process : -1;
}

CommandResult CommandDevice::Run(const std::vector<std::string>& words) const {
    CommandResult result;
    int status = 0;
    const int process = Start(words);
    rusage usage{};
    if (process < 0 || wait4(process, &status, 0, &usage) != process) {
        throw std::runtime_error("the command cannot be started");
    }
    result.Status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.PeakKilobytes = usage.ru_maxrss;
    result.Seconds = static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
                     static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
    result.Output = ReadWhole(Place("output"));
    result.Errors = ReadWhole(Place("errors"));
    return result;
}

std::string CommandDevice::WriteCalendar(const std::string& name, const std::string& events) const {
    return WriteFile(name, "BEGIN:VCALENDAR\nVERSION:2.0\n" + events + "END:VCALENDAR\n");
}

std::string CommandDevice::WriteFile(const std::string& name, const std::string& bytes) const {
    const std::filesystem::path path = Place(name);
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
    return path.string();
}

} // namespace tavo::tools
