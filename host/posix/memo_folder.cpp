// The folder of the handwritten memos on this machine.
#include "host/posix/memo_folder.h"

#include "host/locale/ascii.h"
#include "host/posix/replace_file.h"

#include <algorithm>
#include <filesystem>

namespace tavo::posix {
namespace fs = std::filesystem;

std::vector<std::string> MemoFolder::List() {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(Path, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code ignored; // what cannot be looked at is no memo
        const std::string name = entry->path().filename().string();
        if (locale::EqualsIgnoringCase(entry->path().extension().string(), ".pwi") && entry->is_regular_file(ignored)) {
            names.push_back(name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

ErrorCode MemoFolder::Read(const std::string& name, std::vector<std::uint8_t>& ink) {
    return ReadFile(Path + "/" + name, exchange::kLargestMemo, ink);
}

ErrorCode MemoFolder::Write(const std::string& name, std::span<const std::uint8_t> ink) {
    std::error_code error;
    if (fs::create_directories(Path, error)) {
        fs::permissions(Path, fs::perms::owner_all, error);
    }
    return error ? ErrorCodeOf(error.value()) : ReplaceFile(Path + "/" + name, ink);
}

} // namespace tavo::posix
