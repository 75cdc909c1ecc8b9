// The few words that the program takes.
#include "host/qt/command_line.h"

#include "platform/activation.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

namespace tavo::qt {
namespace {

using Wish = CommandLine::Wish;

constexpr std::string_view kNewOption = "--new";
constexpr std::array<std::string_view, 3> kToolkitOptions{"-platform", "-display", "-session"}; // each with a value

CommandLine Refuse(std::string problem) {
    return {Wish::Refusal, std::move(problem)};
}

// The toolkit takes its options with one dash or with two.
std::optional<std::string_view> FindToolkitOption(std::string_view word) {
    const std::string_view single = word.starts_with("--") ? word.substr(1) : word;
    const auto found = std::find(kToolkitOptions.begin(), kToolkitOptions.end(), single);
    return found == kToolkitOptions.end() ? std::nullopt : std::optional(*found);
}

// 0 for a word that is none of them.
std::int32_t FindWish(std::string_view kind) {
    constexpr std::array<std::pair<std::string_view, NewItemWish>, 4> wishes{
        {{"alarm", NewItemWish::Alarm},
         {"holiday", NewItemWish::Holiday},
         {"anniversary", NewItemWish::Anniversary},
         {"appointment", NewItemWish::Appointment}}};
    const auto found =
        std::find_if(wishes.begin(), wishes.end(), [kind](const auto& wish) { return wish.first == kind; });
    return found == wishes.end() ? 0 : static_cast<std::int32_t>(found->second);
}

// The copy that runs may have been started elsewhere. Nothing for no name, or where nobody knows the folder.
std::optional<std::string> MakeAbsolute(std::string_view name) {
    std::error_code error;
    const std::filesystem::path path = std::filesystem::absolute(name, error);
    return name.empty() || error ? std::nullopt : std::optional(path.string());
}

} // namespace

const std::string_view kHelpText = R"(Tavo Calendar: appointments, alarms and handwritten notes.

  tavocalendar               opens the calendar; one that is open already comes forward
  tavocalendar FILE...       the same, and asks whether to import these calendar files (iCalendar, .ics)
  tavocalendar --new KIND    the same, and makes a new appointment, alarm, holiday or anniversary
  tavocalendar --help        shows this
  tavocalendar --version     shows the version

The calendar lies in the folder that TAVO_HOME names, by default in $XDG_DATA_HOME/tavocalendar.
TAVO_SCALE=2 makes the window twice the size of the device's screen, and fixes it.
The command line tool is tavo; see tavo --help.
)";

const std::string_view kVersionText = "tavocalendar " TAVO_VERSION "\n";

CommandLine ReadCommandLine(std::span<char* const> arguments) {
    CommandLine line;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view word = arguments[i];
        if (word == "--help" || word == "-h") {
            return {Wish::Help};
        }
        if (word == "--version") {
            return {Wish::Version};
        }
        if (const auto option = FindToolkitOption(word)) {
            if (++i == arguments.size()) {
                return Refuse("The option " + std::string(word) + " needs a value.");
            }
            line.NamesPlatform = line.NamesPlatform || *option != "-session";
            continue;
        }
        if (word == "--new" || word.starts_with("--new=")) {
            const bool hasValue = word.size() > kNewOption.size() || ++i < arguments.size();
            const std::string_view kind = word == kNewOption && hasValue
                                              ? std::string_view(arguments[i])
                                              : word.substr(std::min(word.size(), kNewOption.size() + 1));
            line.NewItem = FindWish(kind);
            if (line.NewItem == 0) {
                return Refuse("Say what is to be new: --new appointment, alarm, holiday or anniversary.");
            }
            continue;
        }
        if (word.starts_with('-')) {
            return Refuse("There is no option " + std::string(word) + ".");
        }
        std::optional<std::string> file = MakeAbsolute(word);
        if (!file) {
            return Refuse("There is no file without a name.");
        }
        line.Files.push_back(std::move(*file));
    }
    return line;
}

} // namespace tavo::qt
