// The plan names the memos, and what of their names lay in the Deleted folder before: the rest there is what was moved.
#include "memo/moving_memos.h"

#include "framework/format.h"
#include "memo/memo_files.h"
#include "memo/note_bytes.h"
#include "memo/undo_notes.h"
#include "store/declined_files.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace tavo {

namespace {

constexpr std::u16string_view kPlan = u"\\Recovery\\memos.moving";
constexpr std::u16string_view kMark = u" (deleted ";
constexpr std::uint64_t kVersion = 1;
// The device shortens longer names in the Deleted folder, but none to less than this.
constexpr std::size_t kNeverShortened = 60;
constexpr std::size_t kLongestName = 255; // units; a file's name has no more bytes

struct Plan {
    std::u16string Folder;
    std::vector<std::u16string> Memos;                // names
    std::unordered_set<std::u16string> DeletedBefore; // names in its Deleted folder
};

// Names in the Deleted folder by the name that the memo had, without its end.
using DeletedMemos = std::unordered_map<std::u16string, std::vector<std::u16string>>;

DeletedMemos FindDeleted(CProgramState& state, const std::unordered_set<std::u16string>& except = {}) {
    DeletedMemos deleted;
    const std::unique_ptr<IFileSearch> search =
        state.Host().Files().FindFirstFileW(FormatText(u"%s\\Deleted\\*.pwi", state.DataFolder));
    for (bool found = search != nullptr; found; found = search->FindNextFileW()) {
        const std::u16string name = search->FileName();
        if (const std::size_t mark = name.rfind(kMark); mark != std::u16string::npos && !except.contains(name)) {
            deleted[name.substr(0, mark)].push_back(name);
        }
    }
    return deleted;
}

// Null when none of this memo lies there.
std::vector<std::u16string>* FindOf(DeletedMemos& deleted, std::u16string_view memo) {
    const std::u16string_view stem = memo.substr(0, std::min(memo.rfind(u'.'), kLongestName));
    for (std::size_t size = stem.size();; --size) {
        if (const auto found = deleted.find(std::u16string(stem.substr(0, size))); found != deleted.end()) {
            return &found->second;
        }
        if (size <= kNeverShortened) {
            return nullptr;
        }
    }
}

void PutNames(NoteWriter& writer, std::span<const std::u16string> names) {
    writer.PutNumber(names.size(), 4);
    for (const std::u16string& name : names) {
        writer.PutText(name);
    }
}

std::vector<std::u16string> TakeNames(NoteReader& reader) {
    std::vector<std::u16string> names;
    for (std::uint64_t left = reader.TakeNumber(4); left > 0 && reader.IsWhole(); --left) {
        names.push_back(reader.TakeText());
    }
    return names;
}

std::vector<std::uint8_t> EncodePlan(CProgramState& state, std::span<const std::u16string> memos) {
    DeletedMemos deleted = FindDeleted(state);
    std::vector<std::u16string> before;
    for (const std::u16string& memo : memos) {
        if (const std::vector<std::u16string>* names = FindOf(deleted, memo)) {
            before.insert(before.end(), names->begin(), names->end());
        }
    }
    NoteWriter writer;
    writer.PutNumber(kVersion, 1);
    writer.PutText(state.DataFolder);
    PutNames(writer, memos);
    PutNames(writer, before);
    return writer.Take();
}

std::optional<Plan> DecodePlan(std::span<const std::uint8_t> bytes) {
    NoteReader reader(bytes);
    if (reader.TakeNumber(1) != kVersion) {
        return std::nullopt;
    }
    Plan plan;
    plan.Folder = reader.TakeText();
    plan.Memos = TakeNames(reader);
    for (std::u16string& name : TakeNames(reader)) {
        plan.DeletedBefore.insert(std::move(name));
    }
    return reader.IsWhole() && reader.IsAtEnd() ? std::optional(std::move(plan)) : std::nullopt;
}

// The memos of the plan that are gone from their place, and where they lie. Of a plan that was not written here only
// what leads from deleted memos to memos.
std::vector<MemoPutAway> FindMoved(CProgramState& state, const Plan& plan) {
    DeletedMemos deleted = FindDeleted(state, plan.DeletedBefore);
    const MemoFiles files(state);
    std::vector<MemoPutAway> moved;
    for (const std::u16string& memo : plan.Memos) {
        std::vector<std::u16string>* names = FindOf(deleted, memo);
        if (names == nullptr || names->empty()) {
            continue;
        }
        MemoPutAway found{files.MemoPath(memo), FormatText(u"%s\\Deleted\\%s", state.DataFolder, names->back())};
        if (IsFromDeleted(found) && !files.IsMemo(found.Path)) {
            names->pop_back();
            moved.push_back(std::move(found));
        }
    }
    return moved;
}

// Whether the store's last step has them; nothing when the store cannot say.
std::optional<bool> IsFinal(CProgramState& state, std::span<const MemoPutAway> moved) {
    std::vector<std::vector<std::uint8_t>> notes;
    const Status status = state.Store.OutlookApp ? state.Store.OutlookApp->GetUndoNotes(notes) : Status::Unexpected;
    if (Failed(status) && status != Status::NotFound) {
        return std::nullopt;
    }
    std::unordered_set<std::u16string> kept;
    for (const std::vector<std::uint8_t>& note : notes) {
        const UndoNote decoded = DecodeNote(note);
        if (const auto* memo = std::get_if<MemoPutAway>(&decoded)) {
            kept.insert(memo->Kept);
        }
    }
    return std::ranges::any_of(moved, [&](const MemoPutAway& memo) { return kept.contains(memo.Kept); });
}

void RemovePlan(CProgramState& state) {
    static_cast<void>(state.Host().Files().DeleteFileW(kPlan)); // one that stays is looked at again
}

} // namespace

bool MovingMemos::Begin(std::span<const std::u16string> names) {
    IFiles& files = State.Host().Files();
    static_cast<void>(files.CreateDirectoryW(kRecoveryFolder)); // what is wrong with it shows when it is written to
    IsPlanned = files.WriteWholeFile(kPlan, EncodePlan(State, names)) == ErrorCode::Success;
    return IsPlanned;
}

void MovingMemos::End() {
    if (std::exchange(IsPlanned, false)) {
        RemovePlan(State);
    }
}

int BringBackMovedMemos(CProgramState& state) {
    std::vector<std::uint8_t> bytes;
    if (state.Host().Files().ReadWholeFile(kPlan, bytes) != ErrorCode::Success) {
        return 0;
    }
    const std::optional<Plan> plan = DecodePlan(bytes);
    if (plan && plan->Folder != state.DataFolder) {
        return 0; // of a start that could reach another folder
    }
    const std::vector<MemoPutAway> moved = plan ? FindMoved(state, *plan) : std::vector<MemoPutAway>();
    const std::optional<bool> isFinal = moved.empty() ? true : IsFinal(state, moved);
    if (!isFinal) {
        return 0; // the next start asks again
    }
    int missing = 0;
    if (!*isFinal) {
        for (const MemoPutAway& memo : moved) {
            std::u16string path = memo.Path;
            missing += MemoFiles(state).BringBack(memo.Kept, path) ? 0 : 1;
        }
    }
    if (missing == 0) {
        RemovePlan(state);
    }
    return missing;
}

} // namespace tavo
