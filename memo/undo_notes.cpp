// A byte for the kind, then its parts.
#include "memo/undo_notes.h"

#include "memo/note_bytes.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace tavo {

namespace {

constexpr std::uint64_t kPutAway = 1;
constexpr std::uint64_t kCancelled = 2;
constexpr std::u16string_view kMemoEnd = u".pwi";
constexpr std::u16string_view kDeleted = u"\\Deleted";

bool IsMemoName(std::u16string_view path) {
    const std::u16string_view end = path.substr(path.size() - std::min(path.size(), kMemoEnd.size()));
    return path.find(u'/') == std::u16string_view::npos &&
           std::ranges::equal(end, kMemoEnd, [](char16_t one, char16_t other) {
               return (one >= u'A' && one <= u'Z' ? one + (u'a' - u'A') : one) == other;
           });
}

// Without the separators at its end; there may be more than one.
std::u16string_view FolderOf(std::u16string_view path) {
    path = path.substr(0, std::min(path.rfind(u'\\'), path.size()));
    while (path.ends_with(u'\\')) {
        path.remove_suffix(1);
    }
    return path;
}

void PutMoment(NoteWriter& writer, const SYSTEMTIME& moment) {
    writer.PutNumber(moment.Year, 2);
    for (const std::uint16_t part : {moment.Month, moment.Day, moment.Hour, moment.Minute, moment.Second}) {
        writer.PutNumber(part, 1);
    }
}

SYSTEMTIME TakeMoment(NoteReader& reader) {
    SYSTEMTIME moment;
    moment.Year = static_cast<std::uint16_t>(reader.TakeNumber(2));
    for (std::uint16_t* part : {&moment.Month, &moment.Day, &moment.Hour, &moment.Minute, &moment.Second}) {
        *part = static_cast<std::uint16_t>(reader.TakeNumber(1));
    }
    return moment;
}

} // namespace

bool IsFromDeleted(const MemoPutAway& memo) {
    const std::u16string_view kept = FolderOf(memo.Kept);
    return IsMemoName(memo.Path) && IsMemoName(memo.Kept) && kept.ends_with(kDeleted) &&
           FolderOf(kept) == FolderOf(memo.Path);
}

std::vector<std::uint8_t> EncodeNote(const MemoPutAway& note) {
    NoteWriter writer;
    writer.PutNumber(kPutAway, 1);
    writer.PutText(note.Path);
    writer.PutText(note.Kept);
    return writer.Take();
}

std::vector<std::uint8_t> EncodeNote(const InkCancelled& note) {
    const std::vector<std::uint8_t> home = EncodeInkHome(note.Home);
    NoteWriter writer;
    writer.PutNumber(kCancelled, 1);
    PutMoment(writer, note.Begun);
    writer.PutNumber(home.size(), 4);
    writer.PutBytes(home);
    writer.PutBytes(note.Ink);
    return writer.Take();
}

UndoNote DecodeNote(std::span<const std::uint8_t> bytes) {
    NoteReader reader(bytes);
    const std::uint64_t kind = reader.TakeNumber(1);
    if (kind == kPutAway) {
        MemoPutAway note;
        note.Path = reader.TakeText();
        note.Kept = reader.TakeText();
        return reader.IsWhole() && reader.IsAtEnd() ? UndoNote(std::move(note)) : UndoNote();
    }
    if (kind == kCancelled) {
        InkCancelled note;
        note.Begun = TakeMoment(reader);
        const std::span<const std::uint8_t> home = reader.TakeBytes(reader.TakeNumber(4));
        const std::span<const std::uint8_t> ink = reader.TakeRest();
        note.Home = DecodeInkHome(home).value_or(InkHome());
        note.Ink.assign(ink.begin(), ink.end());
        return reader.IsWhole() && !note.Ink.empty() ? UndoNote(std::move(note)) : UndoNote();
    }
    return {};
}

} // namespace tavo
