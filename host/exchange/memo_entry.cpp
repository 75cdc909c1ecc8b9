// A memo leaves with its day, its picture and its ink, and comes back by its ink alone.
#include "host/exchange/memo_entry.h"

#include "host/exchange/calendar_lines.h"
#include "host/exchange/ink_lines.h"
#include "host/exchange/own_properties.h"

#include <algorithm>
#include <charconv>

namespace tavo::exchange {
namespace {

constexpr std::string_view kEnding = ".pwi";
constexpr std::size_t kDayDigits = 8;
constexpr std::size_t kLongestMemoName = 64;
constexpr int kMostNames = 1000; // beside one that is taken

int ReadDigits(std::string_view digits) {
    int number = -1;
    const auto [stop, problem] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return problem == std::errc() && stop == digits.data() + digits.size() ? number : -1;
}

std::string NameBeside(const std::string& name, int number) {
    const std::size_t stem = name.size() - kEnding.size();
    return name.substr(0, stem) + " " + std::to_string(number) + name.substr(stem);
}

} // namespace

std::optional<rules::DayNumber> FindMemoDay(std::string_view name) {
    const bool isPlain = std::all_of(name.begin(), name.end(), [](char character) {
        const char upper = locale::ToUpperAscii(character);
        return (upper >= 'A' && upper <= 'Z') || (upper >= '0' && upper <= '9') || character == ' ' ||
               character == '.' || character == '_' || character == '-' || character == '(' || character == ')';
    });
    if (!isPlain || name.size() > kLongestMemoName || name.size() < kDayDigits + kEnding.size() ||
        !EqualsIgnoringCase(name.substr(name.size() - kEnding.size()), kEnding)) {
        return std::nullopt;
    }
    const int year = ReadDigits(name.substr(0, 4));
    const int month = ReadDigits(name.substr(4, 2));
    const int day = ReadDigits(name.substr(6, 2));
    if (year < 1 || month < 1 || month > 12 || day < 1 || day > rules::DaysInMonth(year, month)) {
        return std::nullopt;
    }
    const rules::DayNumber number = rules::DayFromCivil(year, month, day);
    return number >= rules::kFirstStoredDay && number <= rules::kLastStoredDay ? std::optional(number) : std::nullopt;
}

void WriteMemoEntry(const MemoEntry& memo, std::string_view uid, const EventWords& words, std::string& file) {
    const std::optional<rules::DayNumber> day = FindMemoDay(memo.Name);
    if (!day) {
        return;
    }
    AppendFolded("BEGIN:VJOURNAL", file);
    AppendFolded("UID:" + std::string(uid), file);
    AppendFolded("DTSTAMP:" + words.Stamp, file);
    AppendFolded("DTSTART;VALUE=DATE:" + WriteDate(rules::MidnightOf(*day)), file);
    AppendFolded("SUMMARY:Memo", file);
    AppendFolded(std::string(kOwnMemo) + ":" + memo.Name, file);
    AppendInk(memo.Ink, words.DrawInk, file);
    AppendFolded("END:VJOURNAL", file);
}

bool IsMemoEntry(const CalendarPiece& piece) {
    for (std::size_t index = 0; index < piece.Lines.size(); ++index) {
        std::string_view name;
        std::string_view value;
        if (SplitLine(piece.GetLine(index), name, value) && EqualsIgnoringCase(name, kOwnMemo)) {
            return true;
        }
    }
    return false;
}

std::optional<MemoEntry> ReadMemoEntry(const CalendarPiece& piece, std::string& reason) {
    MemoEntry memo;
    for (std::size_t index = 0; index < piece.Lines.size(); ++index) {
        std::string_view name;
        std::string_view value;
        SplitLine(piece.GetLine(index), name, value);
        if (EqualsIgnoringCase(name, kOwnMemo)) {
            memo.Name = value.substr(0, value.find_last_not_of(" \t\r") + 1);
        } else if (EqualsIgnoringCase(name, kOwnInk)) {
            AppendBase64(value, memo.Ink);
        }
    }
    if (piece.TooLargeLine != 0 || memo.Ink.size() > kLargestMemo) {
        reason = "this memo is too large";
        return std::nullopt;
    }
    if (!FindMemoDay(memo.Name) || memo.Ink.empty()) {
        reason = memo.Ink.empty() ? "this memo has no ink" : "this is no name of a memo";
        return std::nullopt;
    }
    return memo;
}

ErrorCode KeepMemo(IMemoFolder& folder, const MemoEntry& memo, ImportResult& result) {
    const std::vector<std::string> taken = folder.List();
    result = ImportResult::Refused;
    std::string name = memo.Name;
    for (int number = 2; number < kMostNames; ++number) {
        if (!std::binary_search(taken.begin(), taken.end(), name)) {
            const ErrorCode error = folder.Write(name, memo.Ink);
            result = error == ErrorCode::Success ? ImportResult::New : ImportResult::Refused;
            return error;
        }
        std::vector<std::uint8_t> ink;
        if (folder.Read(name, ink) == ErrorCode::Success && ink == memo.Ink) {
            result = ImportResult::Unchanged;
            return ErrorCode::Success;
        }
        name = NameBeside(memo.Name, number);
    }
    return ErrorCode::AccessDenied;
}

} // namespace tavo::exchange
