// tavo memo: lists the handwritten memos, and has them drawn by the program beside this one, which knows how.
#include "host/locale/harmless_text.h"
#include "host/posix/memo_folder.h"
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/helper_program.h"
#include "tools/output.h"

#include <algorithm>
#include <utility>

namespace tavo::tools {
namespace {

constexpr std::string_view kEnding = ".pwi";
constexpr const char* kExporter = "tavo-ink-export";

int ListMemos(posix::MemoFolder& folder, const std::optional<Day>& date) {
    std::string day = date.has_value() ? WriteIsoDay(*date) : std::string();
    std::erase(day, '-'); // as names are written
    Output output;
    for (const std::string& name : folder.List()) {
        if (name.starts_with(day)) {
            output.Write(locale::MakeHarmless(name) + "\n");
        }
    }
    return output.Finish() ? kExitSuccess : kExitFailure;
}

// The memos' paths; a name may be told without its ending. False when one is missing, which is said.
bool ChooseMemos(posix::MemoFolder& folder, const MemoOptions& options, std::vector<std::string>& paths) {
    const std::vector<std::string> all = folder.List();
    bool areFound = true;
    for (const std::string& name : options.All ? all : options.Names) {
        const auto known = std::find_if(all.begin(), all.end(), [&](const std::string& memo) {
            return memo == name || memo.substr(0, memo.size() - kEnding.size()) == name;
        });
        if (known == all.end()) {
            Complain("There is no memo \"" + name + "\".");
            areFound = false;
        } else {
            paths.push_back(folder.GetPath() + "/" + *known);
        }
    }
    return areFound;
}

int Draw(const MemoOptions& options, const std::vector<std::string>& paths) {
    std::vector<std::string> words{options.Format, options.Folder};
    words.insert(words.end(), paths.begin(), paths.end());
    return RunHelper(kExporter, std::move(words));
}

} // namespace

int RunMemo(const MemoOptions& options) {
    const std::optional<files::DeviceRoot> root = FindRoot();
    if (!root) {
        return kExitFailure;
    }
    posix::MemoFolder folder(*root);
    if (options.Action == MemoAction::List) {
        return ListMemos(folder, options.Date);
    }
    std::vector<std::string> paths;
    if (!ChooseMemos(folder, options, paths)) {
        return kExitFailure;
    }
    return paths.empty() ? kExitSuccess : Draw(options, paths);
}

} // namespace tavo::tools
