// Reading and writing the category file, and what people are told when that fails.
#include "store/category_file.h"

#include "framework/format.h"
#include "res/strings.h"
#include "store/program_state.h"
#include "store/unsaved_tags.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tavo {

namespace {

constexpr std::u16string_view kCorrupt = u"TavoCalendar.dat corrputed"; // sic
constexpr std::u16string_view kCannotOpen = u"Cannot open TavoCalendar.dat";

std::u16string CategoryFilePath(const CProgramState& state) {
    return FormatText(u"%s\\%s", state.DataFolder, state.DataFileName);
}

bool IsMissing(ErrorCode error) {
    return error == ErrorCode::FileNotFound || error == ErrorCode::PathNotFound;
}

// The lists will be saved over a file of which only a part could be read: its bytes are kept beside it, at most a few
// times. Without a copy the start goes on all the same.
void KeepCorruptFile(CProgramState& state, const std::vector<std::uint8_t>& bytes) {
    constexpr int mostCopies = 9;
    IFiles& files = state.Host().Files();
    for (int number = 1; number <= mostCopies; ++number) {
        const std::u16string path = FormatText(u"%s.damaged%d", CategoryFilePath(state), number);
        std::vector<std::uint8_t> kept;
        const ErrorCode read = files.ReadWholeFile(path, kept);
        if (IsMissing(read)) {
            static_cast<void>(files.WriteWholeFile(path, bytes));
            return;
        }
        if (read == ErrorCode::Success && kept == bytes) {
            return; // from a start before
        }
    }
}

void MakeDataFolder(CProgramState& state) {
    const ErrorCode made = state.Host().Files().CreateDirectoryW(state.DataFolder);
    if (made != ErrorCode::Success && made != ErrorCode::AlreadyExists) {
        // Kept on purpose: the path in this folder gets a second separator.
        state.DataFolder = FormatText(u"%s\\", kDocumentsFolder);
    }
}

void ShowCannotOpen(CProgramState& state) {
    MessageBoxDescription box;
    box.Text = kCannotOpen;
    state.Pump.ShowMessageBox(state.MainView, box);
}

void ShowCorrupt(CProgramState& state) {
    MessageBoxDescription box;
    box.Text = kCorrupt;
    box.Caption = kProgramTitle;
    state.Pump.ShowMessageBox(WindowHandle::None, box);
}

// The bytes of the file, which is made when there is none. Nothing after a message.
std::optional<std::vector<std::uint8_t>> ReadOrMakeFile(CProgramState& state) {
    IFiles& files = state.Host().Files();
    std::vector<std::uint8_t> bytes;
    ErrorCode read = files.ReadWholeFile(CategoryFilePath(state), bytes);
    if (IsMissing(read)) {
        if (!SaveCategoryFile(state)) {
            return std::nullopt;
        }
        read = files.ReadWholeFile(CategoryFilePath(state), bytes);
    }
    state.IsDataFileUnread = read != ErrorCode::Success;
    if (state.IsDataFileUnread) {
        ShowCannotOpen(state);
        return std::nullopt;
    }
    return bytes;
}

void TakeLists(CategoryLists& categories, CategoryFileLists lists) {
    categories.AlarmList.Replace(std::move(lists[0]));
    categories.HolidayList.Replace(std::move(lists[1]));
    categories.AnniversaryList.Replace(std::move(lists[2]));
}

bool WriteLists(CProgramState& state) {
    const CategoryLists& categories = state.Categories;
    const std::vector<std::uint8_t> bytes =
        EncodeCategoryFile(categories.AlarmList.All(), categories.HolidayList.All(), categories.AnniversaryList.All());
    if (state.IsDataFileUnread ||
        state.Host().Files().WriteWholeFile(CategoryFilePath(state), bytes) != ErrorCode::Success) {
        return false;
    }
    state.Categories.FinishTagRequests();
    return true;
}

} // namespace

bool LoadCategoryFile(CProgramState& state) {
    CategoryLists& categories = state.Categories;
    MakeDataFolder(state);
    categories.AlarmList.RemoveAll();
    categories.HolidayList.RemoveAll();
    categories.AnniversaryList.RemoveAll();
    const std::optional<std::vector<std::uint8_t>> bytes = ReadOrMakeFile(state);
    bool isWhole = false;
    if (bytes) {
        CategoryFileLists lists;
        isWhole = DecodeCategoryFile(*bytes, lists);
        TakeLists(categories, std::move(lists));
    }
    static_cast<void>(categories.ApplyTagRequests()); // nothing is shown yet that would have to change
    if (bytes && !isWhole) {
        KeepCorruptFile(state, *bytes);
        ShowCorrupt(state); // last: while it waits, other programs may ask for tags
    }
    return isWhole;
}

bool SaveCategoryFile(CProgramState& state) {
    const bool isWritten = WriteLists(state);
    if (!isWritten) {
        ShowCannotOpen(state);
    }
    return isWritten;
}

bool SaveOrKeepTags(CProgramState& state, SaveTrouble trouble) {
    if (WriteLists(state)) {
        DropSavedTags(state);
        return true;
    }
    KeepUnsavedTags(state); // first: the message may be the last that people see of the program
    if (trouble == SaveTrouble::Tell) {
        ShowCannotOpen(state);
    }
    return false;
}

} // namespace tavo
