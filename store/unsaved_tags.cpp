// Where such files may lie, and what of them still matters.
#include "store/unsaved_tags.h"

#include "framework/format.h"
#include "store/declined_files.h"
#include "store/program_state.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <unordered_set>
#include <utility>

namespace tavo {

namespace {

constexpr TagList kLists[]{TagList::Alarm, TagList::Holiday, TagList::Anniversary};

// Of the session that runs, exactly as its lists are.
std::u16string PathOfSession(const CProgramState& state) {
    return FormatText(u"%s\\%s.session", kRecoveryFolder, state.DataFileName);
}

// The first is the place for them, the others are for where nothing can be written there. None is the folder of the
// data file: that holds every memo, and looking there for what is mostly absent means reading all their names at each
// start. The last is what a killed session left.
std::vector<std::u16string> PathsOf(const CProgramState& state) {
    const std::u16string name = FormatText(u"%s.unsaved", state.DataFileName);
    return {FormatText(u"%s\\%s", kRecoveryFolder, name), FormatText(u"%s\\%s", kDocumentsFolder, name),
            FormatText(u"\\%s", name), PathOfSession(state)};
}

void AppendMissing(std::vector<Oid>& oids, std::span<const Oid> more) {
    std::unordered_set<Oid> known(oids.begin(), oids.end());
    for (const Oid oid : more) {
        if (known.insert(oid).second) {
            oids.push_back(oid);
        }
    }
}

// Of a damaged file what came before the fault.
CategoryFileLists ReadLists(CProgramState& state, std::u16string_view path) {
    CategoryFileLists lists;
    std::vector<std::uint8_t> bytes;
    if (state.Host().Files().ReadWholeFile(path, bytes) == ErrorCode::Success) {
        static_cast<void>(DecodeCategoryFile(bytes, lists));
    }
    return lists;
}

CategoryFileLists ReadAll(CProgramState& state) {
    CategoryFileLists all;
    for (const std::u16string& path : PathsOf(state)) {
        const CategoryFileLists lists = ReadLists(state, path);
        for (std::size_t list = 0; list < all.size(); ++list) {
            AppendMissing(all[list], lists[list]);
        }
    }
    return all;
}

bool IsEmpty(const CategoryFileLists& lists) {
    return std::ranges::all_of(lists, [](const std::vector<Oid>& oids) { return oids.empty(); });
}

std::vector<std::uint8_t> Encode(const CategoryLists& lists) {
    return EncodeCategoryFile(lists.AlarmList.All(), lists.HolidayList.All(), lists.AnniversaryList.All());
}

} // namespace

// The first time there may be something that a killed session left, and that nobody was asked about.
void TagKeeper::Begin() {
    if (!Seen.empty()) {
        static_cast<void>(State.Host().Files().DeleteFileW(PathOfSession(State))); // mostly there is none
    }
    Seen = Encode(State.Categories);
}

void TagKeeper::TakeChange() {
    std::vector<std::uint8_t> now = Encode(State.Categories);
    if (Seen.empty() || now == Seen) {
        return;
    }
    // Where it cannot be written, the end of the page keeps them still.
    static_cast<void>(State.Host().Files().CreateDirectoryW(kRecoveryFolder));
    static_cast<void>(State.Host().Files().WriteWholeFile(PathOfSession(State), now));
    Seen = std::move(now);
}

void KeepUnsavedTags(CProgramState& state) {
    CategoryFileLists all = ReadAll(state);
    for (const TagList list : kLists) {
        AppendMissing(all[static_cast<std::size_t>(list)], state.Categories.ListOf(list).All());
    }
    if (IsEmpty(all)) {
        return;
    }
    const std::vector<std::uint8_t> bytes = EncodeCategoryFile(all[0], all[1], all[2]);
    static_cast<void>(state.Host().Files().CreateDirectoryW(kRecoveryFolder)); // mostly it is there
    for (const std::u16string& path : PathsOf(state)) {
        if (state.Host().Files().WriteWholeFile(path, bytes) == ErrorCode::Success) {
            return;
        }
    }
    // Where nothing at all can be written, the message about the data file has said so.
}

CategoryFileLists FindUnsavedTags(CProgramState& state) {
    CategoryFileLists found = ReadAll(state);
    for (const TagList list : kLists) {
        std::erase_if(found[static_cast<std::size_t>(list)], [&](Oid oid) {
            AppointmentData record;
            return state.Categories.ListOf(list).Contains(oid) ||
                   (state.Store.LoadAppointment(oid, record) == 0 && state.Store.LastStoreResult == Status::NotFound);
        });
    }
    return found;
}

void DropSavedTags(CProgramState& state) {
    if (!IsEmpty(FindUnsavedTags(state))) {
        return;
    }
    for (const std::u16string& path : PathsOf(state)) {
        static_cast<void>(state.Host().Files().DeleteFileW(path)); // mostly there is none
    }
}

void DeclineUnsavedTags(CProgramState& state) {
    for (const std::u16string& path : PathsOf(state)) {
        PutToDeclined(state.Host().Files(), path); // mostly there is none
    }
}

} // namespace tavo
