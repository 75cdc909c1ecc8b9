// The moment of deletion stands in the name, since copies and backups change every other stamp of a file.
#include "host/files/deleted_memos.h"

#include "host/locale/calendar_math.h"
#include "host/locale/case_folding.h"
#include "host/locale/utf.h"

#include <charconv>
#include <cstdio>

namespace tavo::files {

namespace {

constexpr std::string_view kExtension = ".pwi"; // four bytes in any case
constexpr std::string_view kMark = " (deleted ";
constexpr std::size_t kMomentLength = 16; // 20041117T214530Z
constexpr std::size_t kLongestStem = 180; // bytes; with folders, mark, moment and number still a path of the device

std::string DeletedFolderOf(const std::string& folder) {
    return folder + '/' + std::string(kDeletedFolderName);
}

ErrorCode MakeDeletedFolder(disk::IDisk& disk, const std::string& deleted) {
    if (const ErrorCode error = disk.MakeFolder(deleted); error != ErrorCode::AlreadyExists) {
        return error;
    }
    // A link would lead the memos out of the device.
    disk::Entry there;
    const bool isFolder =
        disk.Look(deleted, disk::LastLink::Keep, there) == ErrorCode::Success && there.Kind == disk::EntryKind::Folder;
    return isFolder ? ErrorCode::Success : ErrorCode::AccessDenied;
}

// Cuts at a character's beginning.
std::string ShortenStem(std::string stem) {
    if (stem.size() <= kLongestStem) {
        return stem;
    }
    std::size_t end = kLongestStem;
    while (end > 0 && (static_cast<unsigned char>(stem[end]) & 0xC0) == 0x80) {
        --end;
    }
    stem.resize(end);
    return stem;
}

bool TakeNumber(std::string_view text, std::size_t at, std::size_t digits, int& number) {
    const char* end = text.data() + at + digits;
    const auto [stop, error] = std::from_chars(text.data() + at, end, number);
    return error == std::errc() && stop == end && number >= 0;
}

ErrorCode NameInDeletedFolder(disk::IDisk& disk, const std::string& folder, const std::string& name, std::time_t now,
                              std::string& kept) {
    const std::string deleted = DeletedFolderOf(folder);
    if (const ErrorCode error = MakeDeletedFolder(disk, deleted); error != ErrorCode::Success) {
        return error;
    }
    const std::string memo = folder + '/' + name;
    for (int number = 1;; ++number) {
        kept = NameOfDeleted(name, now, number);
        std::string target = deleted;
        target.append(1, '/').append(kept);
        const ErrorCode error = disk.AddName(memo, target);
        if (error != ErrorCode::AlreadyExists) {
            return error;
        }
    }
}

} // namespace

bool IsKeptMemo(const std::string& folder, const std::string& name) {
    const std::u16string folded = locale::FoldCase(locale::ToUtf16(name));
    const std::string inFolder = folder.substr(folder.rfind('/') + 1);
    return folded.ends_with(u".pwi") && !locale::EqualWithoutCase(locale::ToUtf16(inFolder), u"Deleted");
}

ErrorCode KeepMemo(disk::IDisk& disk, const std::string& folder, const std::string& name, std::time_t now) {
    std::string kept;
    const ErrorCode error = NameInDeletedFolder(disk, folder, name, now, kept);
    return error == ErrorCode::Success ? disk.SyncFolder(DeletedFolderOf(folder)) : error;
}

ErrorCode MoveMemo(disk::IDisk& disk, const std::string& folder, const std::string& name, std::time_t now,
                   std::string& kept) {
    // Not synchronised: a deletion that a crash undoes loses nothing, and all memos may be deleted at once.
    if (const ErrorCode error = NameInDeletedFolder(disk, folder, name, now, kept); error != ErrorCode::Success) {
        return error;
    }
    return disk.Remove(folder + '/' + name);
}

ErrorCode MoveToFreePath(disk::IDisk& disk, const std::string& from, const std::string& to) {
    const ErrorCode error = disk.AddName(from, to);
    return error == ErrorCode::Success ? disk.Remove(from) : error;
}

void PurgeDeletedMemos(disk::IDisk& disk, const std::string& folder, std::time_t now) {
    constexpr std::time_t kKept = std::time_t{kDaysDeletedMemosAreKept} * locale::kSecondsPerDay;
    disk.RemoveAll(DeletedFolderOf(folder), [&](std::string_view name) {
        const std::optional<std::time_t> time = TimeOfDeleted(name);
        return time && *time < now - kKept;
    });
}

std::string NameOfDeleted(const std::string& name, std::time_t now, int number) {
    const std::size_t stemLength = name.size() - kExtension.size();
    const auto day = static_cast<int>(now / locale::kSecondsPerDay);
    const auto second = static_cast<int>(now % locale::kSecondsPerDay);
    const locale::CivilDate date = locale::DateOfDayNumber(locale::kUnixEpochDay + day);
    char moment[64];
    static_cast<void>(std::snprintf(moment, sizeof moment, "%04d%02d%02dT%02d%02d%02dZ", date.Year, date.Month,
                                    date.Day, second / 3600, second / 60 % 60, second % 60));
    return ShortenStem(name.substr(0, stemLength)) + std::string(kMark) + moment +
           (number > 1 ? ' ' + std::to_string(number) : std::string()) + ')' + name.substr(stemLength);
}

std::optional<std::time_t> TimeOfDeleted(std::string_view name) {
    const std::size_t mark = name.rfind(kMark);
    if (mark == std::string_view::npos || name.size() < mark + kMark.size() + kMomentLength + 1) {
        return std::nullopt;
    }
    const std::string_view moment = name.substr(mark + kMark.size(), kMomentLength);
    const char after = name[mark + kMark.size() + kMomentLength];
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    if (moment[8] != 'T' || moment[15] != 'Z' || (after != ')' && after != ' ') || !TakeNumber(moment, 0, 4, year) ||
        !TakeNumber(moment, 4, 2, month) || !TakeNumber(moment, 6, 2, day) || !TakeNumber(moment, 9, 2, hour) ||
        !TakeNumber(moment, 11, 2, minute) || !TakeNumber(moment, 13, 2, second) || year < 1970 ||
        !locale::IsDate(year, month, day)) {
        return std::nullopt;
    }
    const std::time_t daysSince1970 = locale::DayNumberOf(year, month, day) - locale::kUnixEpochDay;
    return daysSince1970 * locale::kSecondsPerDay + std::time_t{hour} * 3600 + std::time_t{minute} * 60 + second;
}

} // namespace tavo::files
