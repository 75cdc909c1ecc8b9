// Cuts a calendar file into its entries, one at a time.
#include "host/exchange/piece_reader.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace tavo::exchange {
namespace {

constexpr std::size_t kDeepestNesting = 8;
constexpr std::size_t kLargestPiece = std::size_t{4} * 1024 * 1024;
constexpr std::string_view kCalendarName = "VCALENDAR";
constexpr std::string_view kEventName = "VEVENT";
constexpr std::string_view kTimeZoneName = "VTIMEZONE";
constexpr std::string_view kAlarmName = "VALARM";

// What the import uses of an event. All else is checked for its form and then passed over, which also spares
// the memory of attachments.
constexpr std::array<std::string_view, 12> kNeededNames = {"UID",     "DTSTART",  "DTEND",  "DURATION",
                                                           "RRULE",   "RDATE",    "EXDATE", "EXRULE",
                                                           "TRIGGER", "SEQUENCE", "STATUS", "RECURRENCE-ID"};
// Texts and words that may be empty, which then is the same as missing.
constexpr std::array<std::string_view, 8> kOptionalNames = {
    "SUMMARY", "LOCATION", "DESCRIPTION", "CATEGORIES", "CLASS", "TRANSP", "ACTION", "X-MICROSOFT-CDO-BUSYSTATUS"};

bool IsNameCharacter(char character) {
    const char upper = locale::ToUpperAscii(character);
    return (upper >= 'A' && upper <= 'Z') || (upper >= '0' && upper <= '9') || upper == '-' || upper == '_';
}

template <std::size_t Count> bool Contains(const std::array<std::string_view, Count>& names, std::string_view name) {
    return std::any_of(names.begin(), names.end(),
                       [name](std::string_view candidate) { return EqualsIgnoringCase(candidate, name); });
}

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r") == std::string_view::npos;
}

std::string_view TrimEnd(std::string_view text) {
    return text.substr(0, text.find_last_not_of(" \t\r") + 1);
}

PieceKind FindKind(std::string_view name) {
    if (name == kEventName) {
        return PieceKind::Event;
    }
    return name == kTimeZoneName ? PieceKind::TimeZone : PieceKind::Other;
}

void AppendLine(const CalendarLine& line, bool isRead, CalendarPiece& piece) {
    piece.Lines.push_back({piece.Text.size(), line.Number, isRead});
    piece.Text.append(line.Text);
    piece.Text.push_back('\0');
}

} // namespace

std::string MakeUpper(std::string_view name) {
    std::string upper(name);
    std::transform(upper.begin(), upper.end(), upper.begin(), locale::ToUpperAscii);
    return upper;
}

bool SplitLine(std::string_view line, std::string_view& name, std::string_view& value) {
    std::size_t position = 0;
    while (position < line.size() && IsNameCharacter(line[position])) {
        ++position;
    }
    if (position == 0 || position == line.size() || (line[position] != ':' && line[position] != ';')) {
        return false;
    }
    name = line.substr(0, position);
    bool quoted = false;
    for (; position < line.size(); ++position) {
        if (line[position] == '"') {
            quoted = !quoted;
        } else if (line[position] == ':' && !quoted) {
            value = line.substr(position + 1);
            return true;
        }
    }
    return false;
}

PieceReader::PieceReader(IByteSource& source) : Reader(source) {}

ReadResult PieceReader::Read(CalendarPiece& piece) {
    if (!Fault.Reason.empty()) {
        return ReadResult::Fault;
    }
    CalendarLine line;
    while (Reader.Read(line)) {
        if (IsBlank(line.Text)) {
            continue;
        }
        std::string_view name;
        std::string_view value;
        if (Open.empty() && !CalendarSeen && !SplitLine(line.Text, name, value)) {
            return Fail(line.Number, "this is not an iCalendar file: BEGIN:VCALENDAR is missing");
        }
        if (!CheckLine(line, name, value)) {
            return ReadResult::Fault;
        }
        if (EqualsIgnoringCase(name, "BEGIN") && !Open.empty()) {
            return ReadPiece(line, piece);
        }
        if (EqualsIgnoringCase(name, "BEGIN") && EqualsIgnoringCase(TrimEnd(value), kCalendarName)) {
            Open.push_back({std::string(kCalendarName), line.Number});
            CalendarSeen = true;
        } else if (Open.empty()) {
            return Fail(line.Number, CalendarSeen ? "this line stands outside the calendar"
                                                  : "this is not an iCalendar file: BEGIN:VCALENDAR is missing");
        } else if (EqualsIgnoringCase(name, "END") && !CloseComponent(line, value)) {
            return ReadResult::Fault;
        } else if (EqualsIgnoringCase(name, "VERSION") && TrimEnd(value) == "1.0") {
            return Fail(line.Number, "this is the old vCalendar 1.0 format, which is not understood");
        }
    }
    return FailAtEnd();
}

ReadResult PieceReader::ReadAt(std::int64_t offset, int line, CalendarPiece& piece) {
    Fault = {};
    CalendarSeen = true;
    Open.assign(1, {std::string(kCalendarName), 1});
    Reader.MoveTo(offset, line);
    return Read(piece);
}

ReadResult PieceReader::Fail(int line, std::string reason) {
    Fault = {line, std::move(reason)};
    return ReadResult::Fault;
}

ReadResult PieceReader::ReadPiece(const CalendarLine& begin, CalendarPiece& piece) {
    std::string_view name;
    std::string_view value;
    SplitLine(begin.Text, name, value);
    piece.Name = MakeUpper(TrimEnd(value));
    piece.Kind = FindKind(piece.Name);
    piece.Offset = begin.Offset;
    piece.Line = begin.Number;
    piece.Text.clear();
    piece.Lines.clear();
    const std::size_t depth = Open.size();
    Open.push_back({piece.Name, begin.Number});
    if (piece.Kind != PieceKind::Other) {
        AppendLine(begin, true, piece);
    }
    CalendarLine line;
    while (Open.size() > depth) {
        if (!Reader.Read(line)) {
            return FailAtEnd();
        }
        if (IsBlank(line.Text)) {
            continue;
        }
        if (!CheckLine(line, name, value) || !KeepLine(line, name, value, piece)) {
            return ReadResult::Fault;
        }
        if (EqualsIgnoringCase(name, "BEGIN")) {
            if (Open.size() == kDeepestNesting) {
                return Fail(line.Number, "entries are nested too deeply");
            }
            Open.push_back({MakeUpper(TrimEnd(value)), line.Number});
        } else if (EqualsIgnoringCase(name, "END") && !CloseComponent(line, value)) {
            return ReadResult::Fault;
        }
    }
    return ReadResult::Piece;
}

bool PieceReader::CloseComponent(const CalendarLine& line, std::string_view value) {
    if (!EqualsIgnoringCase(TrimEnd(value), Open.back().Name)) {
        Fail(line.Number, "END:" + std::string(TrimEnd(value).substr(0, 40)) + " does not match BEGIN:" +
                              Open.back().Name + " in line " + std::to_string(Open.back().Line));
        return false;
    }
    Open.pop_back();
    return true;
}

ReadResult PieceReader::FailAtEnd() {
    if (Reader.HasFailed()) {
        return Fail(Reader.GetNextNumber(), "the file cannot be read further");
    }
    const int lastLine = std::max(1, Reader.GetNextNumber() - 1);
    if (!CalendarSeen) {
        return Fail(lastLine, "this is not an iCalendar file: BEGIN:VCALENDAR is missing");
    }
    if (!Open.empty()) {
        return Fail(lastLine, "the file ends inside the " + Open.back().Name + " that began in line " +
                                  std::to_string(Open.back().Line));
    }
    return ReadResult::End;
}

bool PieceReader::CheckLine(const CalendarLine& line, std::string_view& name, std::string_view& value) {
    if (SplitLine(line.Text, name, value)) {
        return true;
    }
    Fail(line.Number, "this line is not of the form NAME:value");
    return false;
}

// Keeps the line if the import needs it; false only when that cannot be done.
bool PieceReader::KeepLine(const CalendarLine& line, std::string_view name, std::string_view value,
                           CalendarPiece& piece) {
    if (piece.Kind == PieceKind::Other) {
        return true;
    }
    const bool frame = EqualsIgnoringCase(name, "BEGIN") || EqualsIgnoringCase(name, "END");
    const bool zone = piece.Kind == PieceKind::TimeZone;
    const bool inAlarm = Open.size() > 2;
    if (inAlarm && !zone && Open[2].Name != kAlarmName) {
        return true;
    }
    if (frame && !zone && !inAlarm && !EqualsIgnoringCase(TrimEnd(value), kAlarmName) &&
        !EqualsIgnoringCase(TrimEnd(value), kEventName)) {
        return true;
    }
    if (!frame && !zone && !Contains(kNeededNames, name) && (!Contains(kOptionalNames, name) || IsBlank(value))) {
        return true;
    }
    if (line.Cut || piece.Text.size() + line.Text.size() > kLargestPiece) {
        Fail(line.Number, "this entry is too large");
        return false;
    }
    if (line.Text.find('\0') != std::string_view::npos) {
        Fail(line.Number, "this line contains a zero byte");
        return false;
    }
    // Most alarms have a text, which nobody shows.
    AppendLine(line, !inAlarm || zone || !EqualsIgnoringCase(name, "DESCRIPTION"), piece);
    return true;
}

} // namespace tavo::exchange
