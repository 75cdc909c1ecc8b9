// Naming, finding, reading and writing memo files.
#include "memo/memo_files.h"

#include "framework/format.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace tavo {

namespace {

constexpr int kNoDigit = 1000; // makes no day

} // namespace

std::u16string MemoFiles::MemoPath(std::u16string_view name) const {
    return FormatText(u"%s\\%s", State.DataFolder, name);
}

std::u16string MemoFiles::PathOfMoment(const SYSTEMTIME& moment) const {
    return FormatText(u"%s\\%d%02d%02d_%02d%02d%02d.pwi", State.DataFolder, moment.Year, moment.Month, moment.Day,
                      moment.Hour, moment.Minute, moment.Second);
}

std::u16string MemoFiles::NewMemoPath(int year, int month, int day) const {
    SYSTEMTIME moment = State.Host().Clock().GetLocalTime();
    moment.Year = static_cast<std::uint16_t>(year);
    moment.Month = static_cast<std::uint16_t>(month);
    moment.Day = static_cast<std::uint16_t>(day);
    return PathOfMoment(moment);
}

std::u16string MemoFiles::FreeMemoPath(const SYSTEMTIME& written) const {
    constexpr int secondsOfDay = 24 * 60 * 60;
    const int begin = (written.Hour * 60 + written.Minute) * 60 + written.Second;
    SYSTEMTIME moment = written;
    std::u16string path = PathOfMoment(moment);
    for (int tries = 1; tries < secondsOfDay && IsMemo(path); ++tries) {
        const int second = (begin + tries) % secondsOfDay;
        moment.Hour = static_cast<std::uint16_t>(second / 3600);
        moment.Minute = static_cast<std::uint16_t>(second / 60 % 60);
        moment.Second = static_cast<std::uint16_t>(second % 60);
        path = PathOfMoment(moment);
    }
    return path;
}

std::u16string MemoFiles::FreePathBeside(std::u16string_view path) const {
    const std::u16string_view stem = path.substr(0, path.rfind(u'.'));
    std::u16string free;
    int number = 2;
    do {
        free = FormatText(u"%s %d.pwi", stem, number++);
    } while (IsMemo(free));
    return free;
}

bool MemoFiles::BringBack(std::u16string_view kept, std::u16string& path) {
    IFiles& files = State.Host().Files();
    ErrorCode moved = files.MoveFileW(kept, path);
    if (moved == ErrorCode::AlreadyExists) {
        path = FreePathBeside(path);
        moved = files.MoveFileW(kept, path);
    }
    return moved == ErrorCode::Success;
}

bool MemoFiles::IsMemo(std::u16string_view path) const {
    return State.Host().Files().FindFirstFileW(path) != nullptr;
}

std::u16string MemoFiles::DayPattern(int year, int month, int day) const {
    return FormatText(u"%s\\%d%02d%02d*.pwi", State.DataFolder, year, month, day);
}

std::vector<std::u16string> MemoFiles::FindMemos(int year, int month, int day) const {
    std::vector<std::u16string> names;
    const std::unique_ptr<IFileSearch> search = State.Host().Files().FindFirstFileW(DayPattern(year, month, day));
    for (bool found = search != nullptr; found; found = search->FindNextFileW()) {
        names.push_back(search->FileName());
    }
    return names;
}

bool MemoFiles::HasMemo(int year, int month, int day) const {
    return State.Host().Files().FindFirstFileW(DayPattern(year, month, day)) != nullptr;
}

bool MemoFiles::ReadMemo(std::u16string_view path) {
    State.Memo.Empty();
    std::vector<std::uint8_t> bytes;
    if (State.Host().Files().ReadWholeFile(path, bytes) != ErrorCode::Success) {
        return false;
    }
    State.Memo.Fill(std::move(bytes));
    return true;
}

// The next write says whether this helped.
void MemoFiles::MakeDataFolder() {
    const std::u16string& folder = State.DataFolder;
    for (std::size_t end = folder.find(u'\\', 1); end != std::u16string::npos; end = folder.find(u'\\', end + 1)) {
        static_cast<void>(State.Host().Files().CreateDirectoryW(folder.substr(0, end)));
    }
    static_cast<void>(State.Host().Files().CreateDirectoryW(folder));
}

bool MemoFiles::WriteMemo(std::u16string_view path) {
    if (State.Memo.IsEmpty()) {
        return false;
    }
    IFiles& files = State.Host().Files();
    ErrorCode written = files.WriteWholeFile(path, State.Memo.Bytes());
    if (written == ErrorCode::PathNotFound || written == ErrorCode::FileNotFound) {
        // Somebody took the data folder away while the program ran.
        MakeDataFolder();
        written = files.WriteWholeFile(path, State.Memo.Bytes());
    }
    return written == ErrorCode::Success;
}

bool MemoDays::Has(int year, int month, int day) {
    auto known = std::find_if(Known.begin(), Known.end(), [&](const KnownMonth& candidate) {
        return candidate.Year == year && candidate.Month == month;
    });
    if (known == Known.end()) {
        known = Known.insert(Known.end(), {year, month, FindDays(year, month)});
    }
    return (known->Days >> day & 1U) != 0;
}

std::uint32_t MemoDays::FindDays(int year, int month) const {
    const std::u16string begin = FormatText(u"%d%02d", year, month);
    const std::unique_ptr<IFileSearch> search =
        State.Host().Files().FindFirstFileW(FormatText(u"%s\\%s*.pwi", State.DataFolder, begin));
    std::uint32_t days = 0;
    for (bool found = search != nullptr; found; found = search->FindNextFileW()) {
        const std::u16string name = search->FileName();
        const auto digit = [&](std::size_t place) {
            const char16_t character = place < name.size() ? name[place] : u' ';
            return character >= u'0' && character <= u'9' ? character - u'0' : kNoDigit;
        };
        const int day = 10 * digit(begin.size()) + digit(begin.size() + 1);
        if (day >= 1 && day <= 31) {
            days |= std::uint32_t{1} << day;
        }
    }
    return days;
}

} // namespace tavo
