// Reading and writing the category file: for each list its count and OIDs, little-endian, and a semicolon.
#include "store/category_file.h"

#include "framework/format.h"
#include "res/strings.h"
#include "store/program_state.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tavo {

namespace {

constexpr std::u16string_view kCorrupt = u"TavoCalendar.dat corrputed"; // sic
constexpr std::u16string_view kCannotOpen = u"Cannot open TavoCalendar.dat";
// Kept on purpose: the path in this folder gets a second separator.
constexpr std::u16string_view kFallbackFolder = u"\\My Documents\\";
constexpr std::uint8_t kSectionEnd = ';';
constexpr std::size_t kWordSize = 4;

// Takes numbers from the front of some bytes.
class ByteReader {
  public:
    explicit ByteReader(std::span<const std::uint8_t> bytes) : Rest(bytes) {}

    std::size_t Remaining() const { return Rest.size(); }

    std::optional<std::uint32_t> TakeWord() {
        if (Rest.size() < kWordSize) {
            return std::nullopt;
        }
        const std::uint32_t word = Rest[0] | static_cast<std::uint32_t>(Rest[1]) << 8 |
                                   static_cast<std::uint32_t>(Rest[2]) << 16 |
                                   static_cast<std::uint32_t>(Rest[3]) << 24;
        Rest = Rest.subspan(kWordSize);
        return word;
    }

    bool TakeSectionEnd() {
        if (Rest.empty() || Rest[0] != kSectionEnd) {
            return false;
        }
        Rest = Rest.subspan(1);
        return true;
    }

  private:
    std::span<const std::uint8_t> Rest;
};

bool DecodeSection(ByteReader& reader, std::vector<Oid>& oids) {
    const std::optional<std::uint32_t> count = reader.TakeWord();
    if (!count) {
        return false;
    }
    // The count may claim anything; memory is taken for what is there.
    oids.reserve(std::min<std::size_t>(*count, reader.Remaining() / kWordSize));
    for (std::uint32_t index = 0; index < *count; ++index) {
        const std::optional<std::uint32_t> oid = reader.TakeWord();
        if (!oid) {
            return false;
        }
        oids.push_back(static_cast<Oid>(*oid));
    }
    return reader.TakeSectionEnd();
}

void AppendWord(std::vector<std::uint8_t>& bytes, std::uint32_t word) {
    for (int shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<std::uint8_t>(word >> shift));
    }
}

void AppendSection(std::vector<std::uint8_t>& bytes, std::span<const Oid> oids) {
    AppendWord(bytes, static_cast<std::uint32_t>(oids.size()));
    for (const Oid oid : oids) {
        AppendWord(bytes, static_cast<std::uint32_t>(oid));
    }
    bytes.push_back(kSectionEnd);
}

std::u16string CategoryFilePath(const CProgramState& state) {
    return FormatText(u"%s\\%s", state.DataFolder, state.DataFileName);
}

void MakeDataFolder(CProgramState& state) {
    const ErrorCode made = state.Host().Files().CreateDirectoryW(state.DataFolder);
    if (made != ErrorCode::Success && made != ErrorCode::AlreadyExists) {
        state.DataFolder = kFallbackFolder;
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

bool IsMissing(ErrorCode error) {
    return error == ErrorCode::FileNotFound || error == ErrorCode::PathNotFound;
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
    if (read != ErrorCode::Success) {
        // It may be there and hold tags: no empty file takes its place.
        ShowCannotOpen(state);
        return std::nullopt;
    }
    return bytes;
}

bool ReadLists(CProgramState& state, CategoryFileLists& lists) {
    const std::optional<std::vector<std::uint8_t>> bytes = ReadOrMakeFile(state);
    if (!bytes) {
        return false;
    }
    if (!DecodeCategoryFile(*bytes, lists)) {
        ShowCorrupt(state);
        return false;
    }
    return true;
}

} // namespace

bool DecodeCategoryFile(std::span<const std::uint8_t> bytes, CategoryFileLists& lists) {
    for (std::vector<Oid>& list : lists) {
        list.clear();
    }
    ByteReader reader(bytes);
    return std::all_of(lists.begin(), lists.end(), [&](std::vector<Oid>& list) { return DecodeSection(reader, list); });
}

bool LoadCategoryFile(CProgramState& state) {
    CategoryLists& categories = state.Categories;
    MakeDataFolder(state);
    categories.AlarmList.RemoveAll();
    categories.HolidayList.RemoveAll();
    categories.AnniversaryList.RemoveAll();
    CategoryFileLists lists;
    const bool loaded = ReadLists(state, lists);
    categories.AlarmList.Replace(std::move(lists[0]));
    categories.HolidayList.Replace(std::move(lists[1]));
    categories.AnniversaryList.Replace(std::move(lists[2]));
    static_cast<void>(categories.ApplyTagRequests()); // nothing is shown yet that would have to change
    return loaded;
}

bool SaveCategoryFile(CProgramState& state) {
    std::vector<std::uint8_t> bytes;
    AppendSection(bytes, state.Categories.AlarmList.All());
    AppendSection(bytes, state.Categories.HolidayList.All());
    AppendSection(bytes, state.Categories.AnniversaryList.All());
    if (state.Host().Files().WriteWholeFile(CategoryFilePath(state), bytes) != ErrorCode::Success) {
        ShowCannotOpen(state);
        return false;
    }
    state.Categories.FinishTagRequests();
    return true;
}

} // namespace tavo
