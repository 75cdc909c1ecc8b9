// Memo files by the pattern of their names.
#include "settings/memo_list.h"

#include "framework/format.h"

#include <memory>

namespace tavo {

std::vector<std::u16string> FindAllMemos(CProgramState& state) {
    std::vector<std::u16string> names;
    const std::unique_ptr<IFileSearch> search =
        state.Host().Files().FindFirstFileW(FormatText(u"%s\\*.pwi", state.DataFolder));
    bool found = search != nullptr;
    while (found) {
        names.push_back(search->FileName());
        found = search->FindNextFileW();
    }
    return names;
}

} // namespace tavo
