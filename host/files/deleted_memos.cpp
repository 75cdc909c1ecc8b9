// The moment of deletion stands in the name, since copies and backups change every other stamp of a file.
#include "host/files/deleted_memos.h"

#include "host/locale/calendar_math.h"
#include "host/locale/case_folding.h"
#include "host/locale/utf.h"
#include "host/posix/replace_file.h"

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <memory>
#include <vector>

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tavo::files {

namespace {

constexpr std::string_view kExtension = ".pwi"; // four bytes in any case
constexpr std::string_view kMark = " (deleted ";
constexpr std::size_t kMomentLength = 16; // 20041117T214530Z
constexpr std::size_t kLongestStem = 180; // bytes; with folders, mark, moment and number still a path of the device
constexpr std::size_t kLargestMemo = 64u << 20; // for the copy on disks that know no second names

std::string DeletedFolderOf(const std::string& folder) {
    return folder + '/' + std::string(kDeletedFolderName);
}

ErrorCode MakeDeletedFolder(const std::string& deleted) {
    struct stat state {};

    if (mkdir(deleted.c_str(), 0700) == 0) {
        return ErrorCode::Success;
    }
    if (errno != EEXIST) {
        return posix::ErrorCodeOf(errno);
    }
    // A link would lead the memos out of the device.
    return lstat(deleted.c_str(), &state) == 0 && S_ISDIR(state.st_mode) ? ErrorCode::Success : ErrorCode::AccessDenied;
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

bool LinksAreUnknown(int error) {
    return error == EPERM || error == EOPNOTSUPP || error == ENOSYS || error == EMLINK;
}

ErrorCode CopyNew(const std::string& from, const std::string& target) {
    if (access(target.c_str(), F_OK) == 0) {
        return ErrorCode::AlreadyExists;
    }
    std::vector<std::uint8_t> bytes;
    const ErrorCode error = posix::ReadFile(from, kLargestMemo, bytes);
    return error == ErrorCode::Success ? posix::ReplaceFile(target, bytes) : error;
}

// A second name, or a copy where the disk knows none. AlreadyExists when the name is taken.
ErrorCode AddName(const std::string& from, const std::string& target) {
    if (link(from.c_str(), target.c_str()) == 0) {
        return ErrorCode::Success;
    }
    return LinksAreUnknown(errno) ? CopyNew(from, target) : posix::ErrorCodeOf(errno);
}

ErrorCode NameInDeletedFolder(const std::string& folder, const std::string& name, std::time_t now, std::string& kept) {
    const std::string deleted = DeletedFolderOf(folder);
    if (const ErrorCode error = MakeDeletedFolder(deleted); error != ErrorCode::Success) {
        return error;
    }
    const std::string memo = folder + '/' + name;
    for (int number = 1;; ++number) {
        kept = NameOfDeleted(name, now, number);
        std::string target = deleted;
        target.append(1, '/').append(kept);
        const ErrorCode error = AddName(memo, target);
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

ErrorCode KeepMemo(const std::string& folder, const std::string& name, std::time_t now) {
    std::string kept;
    const ErrorCode error = NameInDeletedFolder(folder, name, now, kept);
    return error == ErrorCode::Success ? posix::SyncFolder(DeletedFolderOf(folder)) : error;
}

ErrorCode MoveMemo(const std::string& folder, const std::string& name, std::time_t now, std::string& kept) {
    // Not synchronised: a deletion that a crash undoes loses nothing, and all memos may be deleted at once.
    if (const ErrorCode error = NameInDeletedFolder(folder, name, now, kept); error != ErrorCode::Success) {
        return error;
    }
    return unlink((folder + '/' + name).c_str()) == 0 ? ErrorCode::Success : posix::ErrorCodeOf(errno);
}

ErrorCode MoveToFreePath(const std::string& from, const std::string& to) {
    if (const ErrorCode error = AddName(from, to); error != ErrorCode::Success) {
        return error;
    }
    return unlink(from.c_str()) == 0 ? ErrorCode::Success : posix::ErrorCodeOf(errno);
}

void PurgeDeletedMemos(const std::string& folder, std::time_t now) {
    constexpr std::time_t kKept = std::time_t{kDaysDeletedMemosAreKept} * locale::kSecondsPerDay;
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(DeletedFolderOf(folder).c_str()), closedir);
    if (!entries) {
        return;
    }
    while (const dirent* entry = readdir(entries.get())) {
        const std::optional<std::time_t> time = TimeOfDeleted(entry->d_name);
        if (time && *time < now - kKept) {
            static_cast<void>(unlinkat(dirfd(entries.get()), entry->d_name, 0)); // what cannot go stays
        }
    }
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
