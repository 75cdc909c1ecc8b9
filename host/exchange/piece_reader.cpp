// Cuts a calendar file into its entries, one at a time.
#include "host/exchange/piece_reader.h"

#include "host/exchange/own_properties.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace tavo::exchange {
namespace {

constexpr std::size_t kDeepestNesting = 8;
constexpr std::size_t kLargestPiece = std::size_t{8} * 1024 * 1024; // of it, a note of ink alone takes up to 5.6
constexpr std::string_view kCalendarName = "VCALENDAR";
constexpr std::string_view kEventName = "VEVENT";
constexpr std::string_view kTimeZoneName = "VTIMEZONE";
constexpr std::string_view kJournalName = "VJOURNAL";
constexpr std::string_view kAlarmName = "VALARM";
constexpr std::array<std::string_view, 5> kEntryNames = {kEventName, kTimeZoneName, "VTODO", kJournalName, "VFREEBUSY"};
constexpr const char* kNoCalendar = "this is not an iCalendar file: BEGIN:VCALENDAR is missing";
constexpr const char* kLeftOut = "it was left out";

// What the import uses of an event. All else is checked for its form and then kept as it came.
constexpr std::array<std::string_view, 12> kNeededNames = {"UID",     "DTSTART",  "DTEND",  "DURATION",
                                                           "RRULE",   "RDATE",    "EXDATE", "EXRULE",
                                                           "TRIGGER", "SEQUENCE", "STATUS", "RECURRENCE-ID"};
// Texts and words that may be empty, which then is the same as missing.
constexpr std::array<std::string_view, 8> kOptionalNames = {
    "SUMMARY", "LOCATION", "DESCRIPTION", "CATEGORIES", "CLASS", "TRANSP", "ACTION", "X-MICROSOFT-CDO-BUSYSTATUS"};

// Said anew by every export.
constexpr std::array<std::string_view, 2> kStamps = {"DTSTAMP", "LAST-MODIFIED"};

bool IsNameCharacter(char character) {
    const char upper = locale::ToUpperAscii(character);
    return (upper >= 'A' && upper <= 'Z') || (upper >= '0' && upper <= '9') || upper == '-' || upper == '_';
}

template <std::size_t Count> bool Contains(const std::array<std::string_view, Count>& names, std::string_view name) {
    return std::any_of(names.begin(), names.end(),
                       [name](std::string_view candidate) { return EqualsIgnoringCase(candidate, name); });
}

// What an export of ours says beside the words that all understand.
bool IsOwn(std::string_view name) {
    return EqualsIgnoringCase(name.substr(0, kOwnPrefix.size()), kOwnPrefix) &&
           !EqualsIgnoringCase(name.substr(0, kOwnWhole.size()), kOwnWhole);
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
    if (name == kTimeZoneName) {
        return PieceKind::TimeZone;
    }
    return name == kJournalName ? PieceKind::Journal : PieceKind::Other;
}

// What an event says that the import does not use. Its number of changes and that it is certain are used in part.
bool IsWorthCarrying(std::string_view name, std::string_view value) {
    if (EqualsIgnoringCase(name, "SEQUENCE")) {
        return TrimEnd(value) != "0";
    }
    if (EqualsIgnoringCase(name, "STATUS")) {
        return EqualsIgnoringCase(TrimEnd(value), "CONFIRMED");
    }
    return !IsOwn(name) && !Contains(kNeededNames, name) && !Contains(kOptionalNames, name) && !Contains(kStamps, name);
}

void AppendLine(std::string_view text, int number, bool isRead, CalendarPiece& piece) {
    piece.Lines.push_back({piece.Text.size(), number, isRead});
    piece.Text.append(text);
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

PieceReader::PieceReader(IByteSource& source, FaultTeller& faults, Extent extent)
    : Reader(source), Faults(faults), Wanted(extent) {}

ReadResult PieceReader::Read(CalendarPiece& piece) {
    if (!Fault.Reason.empty()) {
        return ReadResult::Fault;
    }
    CalendarLine line;
    while (ReadLine(line)) {
        std::string_view name;
        std::string_view value;
        if (!SplitLine(line.Text, name, value)) {
            TakeStrayLine(line.Number);
        } else if (EqualsIgnoringCase(name, "BEGIN")) {
            std::string component = MakeUpper(TrimEnd(value));
            if (component == kCalendarName) {
                OpenCalendar(line);
            } else if (!Open.empty() || Contains(kEntryNames, component)) {
                return ReadPiece(line, std::move(component), piece);
            } else {
                TakeStrayLine(line.Number);
            }
        } else if (Open.empty()) {
            TakeStrayLine(line.Number);
        } else if (EqualsIgnoringCase(name, "END")) {
            Close(line.Number, TrimEnd(value), piece);
        } else if (EqualsIgnoringCase(name, "VERSION") && TrimEnd(value) == "1.0") {
            return Fail(line.Number, "this is the old vCalendar 1.0 format, which is not understood");
        } else if (EqualsIgnoringCase(name, "X-WR-TIMEZONE") && !line.Cut) {
            CalendarZone = TrimEnd(value);
        }
    }
    return FinishFile();
}

ReadResult PieceReader::ReadAt(std::int64_t offset, int line, CalendarPiece& piece) {
    Fault = {};
    PutBack.reset();
    BeginSeen = true;
    CalendarZone.clear();
    Open.assign(1, {std::string(kCalendarName), 1});
    Reader.MoveTo(offset, line);
    return Read(piece);
}

ReadResult PieceReader::Fail(int line, std::string reason) {
    Fault = {line, std::move(reason)};
    return ReadResult::Fault;
}

bool PieceReader::ReadLine(CalendarLine& line) {
    if (PutBack) {
        line = *PutBack; // nothing was read since, so its text is still there
        PutBack.reset();
        return true;
    }
    while (Reader.Read(line)) {
        if (!IsBlank(line.Text)) {
            return true;
        }
    }
    return false;
}

void PieceReader::OpenCalendar(const CalendarLine& line) {
    if (!BeginSeen && FirstStray != 0) {
        Faults.Tell(FirstStray, "there is text before the calendar begins", kLeftOut);
    }
    if (!Open.empty()) {
        Faults.Tell(line.Number,
                    "a calendar begins inside the one that began in line " + std::to_string(Open.front().Line),
                    "that one ends there");
    }
    Open.assign(1, {std::string(kCalendarName), line.Number});
    CalendarZone.clear();
    BeginSeen = true;
    StrayTold = false;
}

// A line that belongs to nothing. Of several outside a calendar the first is told.
void PieceReader::TakeStrayLine(int line) {
    if (!Open.empty()) {
        Faults.Tell(line, "this line is not of the form NAME:value", kLeftOut);
    } else if (!BeginSeen) {
        FirstStray = FirstStray == 0 ? line : FirstStray;
    } else if (!StrayTold) {
        Faults.Tell(line, "this line stands outside the calendar", kLeftOut);
        StrayTold = true;
    }
}

ReadResult PieceReader::ReadPiece(const CalendarLine& begin, std::string name, CalendarPiece& piece) {
    if (Open.empty() && !StrayTold) {
        Faults.Tell(begin.Number, "entries stand outside any calendar", "they were read all the same");
        StrayTold = true;
        BeginSeen = true;
    }
    piece.Name = std::move(name);
    piece.Kind = FindKind(piece.Name);
    piece.Offset = begin.Offset;
    piece.Line = begin.Number;
    piece.CalendarZone = CalendarZone;
    piece.TooLargeLine = 0;
    piece.Text.clear();
    piece.Lines.clear();
    piece.Carried.Clear();
    LeftOutTold = false;
    PieceDepth = Open.size();
    TooDeep = 0;
    Open.push_back({piece.Name, begin.Number});
    if (piece.Kind != PieceKind::Other) {
        AppendLine(begin.Text, begin.Number, true, piece);
    }
    CalendarLine line;
    while (Open.size() > PieceDepth) {
        if (!ReadLine(line)) {
            if (FinishFile() == ReadResult::Fault) {
                return ReadResult::Fault;
            }
            CloseDownTo(PieceDepth, std::max(1, Reader.GetNextNumber() - 1), piece);
            Open.clear();
            return ReadResult::Piece;
        }
        std::string_view property;
        std::string_view value;
        if (!SplitLine(line.Text, property, value)) {
            TakeStrayLine(line.Number);
        } else if (EqualsIgnoringCase(property, "BEGIN")) {
            if (!OpenInner(line, MakeUpper(TrimEnd(value)), piece)) {
                break;
            }
        } else if (EqualsIgnoringCase(property, "END")) {
            Close(line.Number, TrimEnd(value), piece);
        } else if (TooDeep == 0) {
            KeepLine(line, property, value, piece);
        }
    }
    return ReadResult::Piece;
}

bool PieceReader::OpenInner(const CalendarLine& line, std::string name, CalendarPiece& piece) {
    if (name == kCalendarName || Contains(kEntryNames, name)) {
        Faults.Tell(line.Number,
                    "a " + name + " begins inside the " + piece.Name + " that began in line " +
                        std::to_string(piece.Line),
                    "that one ends there");
        CloseDownTo(PieceDepth, line.Number, piece);
        PutBack = line;
        return false;
    }
    if (Open.size() == kDeepestNesting) {
        if (TooDeep == 0) {
            Faults.Tell(line.Number, "entries are nested too deeply", "what lies deeper was left out");
        }
        ++TooDeep;
        return true;
    }
    KeepLine(line, "BEGIN", name, piece);
    Open.push_back({std::move(name), line.Number});
    return true;
}

// Ends what that name began; where others within it were not ended, these too.
void PieceReader::Close(int line, std::string_view name, CalendarPiece& piece) {
    const auto begun = std::find_if(Open.rbegin(), Open.rend(), [name](const OpenComponent& component) {
        return EqualsIgnoringCase(name, component.Name);
    });
    const auto depth = static_cast<std::size_t>(Open.rend() - begun); // 0: nothing of that name is open
    if (TooDeep > 0 && (depth == 0 || depth > PieceDepth + 1)) {
        --TooDeep;
        return;
    }
    TooDeep = 0;
    if (depth != Open.size()) {
        Faults.Tell(line,
                    "END:" + std::string(name.substr(0, 40)) + " does not match BEGIN:" + Open.back().Name +
                        " in line " + std::to_string(Open.back().Line),
                    depth == 0 ? kLeftOut : "both end there");
    }
    if (depth != 0) {
        CloseDownTo(depth - 1, line, piece);
    }
}

void PieceReader::CloseDownTo(std::size_t depth, int line, CalendarPiece& piece) {
    while (Open.size() > depth) {
        if (Open.size() > PieceDepth) {
            CalendarLine end;
            std::string text = "END:" + Open.back().Name;
            std::erase(text, '\0'); // which was told where it began
            end.Text = text;
            end.Number = line;
            KeepLine(end, "END", Open.back().Name, piece);
        }
        Open.pop_back();
    }
}

// Says what the end of the file finds open.
ReadResult PieceReader::FinishFile() {
    if (Reader.HasFailed()) {
        return Fail(Reader.GetNextNumber(), "the file cannot be read further");
    }
    const int lastLine = std::max(1, Reader.GetNextNumber() - 1);
    if (!BeginSeen) {
        return Fail(FirstStray == 0 ? lastLine : FirstStray, kNoCalendar);
    }
    if (!Open.empty()) {
        Faults.Tell(lastLine,
                    "the file ends inside the " + Open.back().Name + " that began in line " +
                        std::to_string(Open.back().Line),
                    "what there is of it was read");
    }
    return ReadResult::End;
}

bool PieceReader::IsNeeded(std::string_view name, std::string_view value, const CalendarPiece& piece) const {
    if (piece.Kind == PieceKind::TimeZone || piece.Kind == PieceKind::Other) {
        return piece.Kind == PieceKind::TimeZone;
    }
    const bool isInner = Open.size() > PieceDepth + 1;
    if (piece.Kind == PieceKind::Journal) {
        return !isInner && IsOwn(name);
    }
    if (isInner && Open[PieceDepth + 1].Name != kAlarmName) {
        return false;
    }
    if (EqualsIgnoringCase(name, "BEGIN") || EqualsIgnoringCase(name, "END")) {
        return isInner || EqualsIgnoringCase(value, kAlarmName) || EqualsIgnoringCase(value, kEventName);
    }
    return IsOwn(name) || Contains(kNeededNames, name) || (Contains(kOptionalNames, name) && !IsBlank(value));
}

void PieceReader::CarryLine(const CalendarLine& line, std::string_view name, std::string_view value,
                            CalendarPiece& piece) {
    const bool isInner = Open.size() > PieceDepth + 1;
    const bool begins = EqualsIgnoringCase(name, "BEGIN");
    const bool isFrame = begins || EqualsIgnoringCase(name, "END");
    const bool isPicture = EqualsIgnoringCase(name, "ATTACH") && line.Text.find(kOwnPicture) < line.Text.find(':');
    if (!isInner && !begins && (isFrame || isPicture || !IsWorthCarrying(name, value))) {
        return;
    }
    const bool isAlarm =
        EqualsIgnoringCase(isInner ? Open[PieceDepth + 1].Name : value, kAlarmName) && (isInner || begins);
    if (isAlarm && !isInner) {
        piece.Carried.BeginAlarm();
    }
    const bool isKept = !line.Cut && (isAlarm ? piece.Carried.AddToAlarm(line.Text, isFrame)
                                              : piece.Carried.AddOwn(line.Text, isFrame));
    if (!isKept && !LeftOutTold) {
        Faults.Mention(line.Number, "this line is too long to be kept, or one too many", kLeftOut);
        LeftOutTold = true;
    }
}

void PieceReader::KeepLine(const CalendarLine& line, std::string_view name, std::string_view value,
                           CalendarPiece& piece) {
    if (Wanted == Extent::AllLines && piece.Kind == PieceKind::Event) {
        CarryLine(line, name, value, piece);
    }
    if (piece.TooLargeLine != 0 || !IsNeeded(name, value, piece)) {
        return;
    }
    if (line.Cut || piece.Text.size() + line.Text.size() > kLargestPiece) {
        if (piece.Kind == PieceKind::Event && Contains(kOptionalNames, name)) {
            Faults.Tell(line.Number, "this text is too large", kLeftOut);
        } else {
            piece.TooLargeLine = line.Number;
        }
        return;
    }
    // Most alarms have a text, which nobody shows.
    const bool isAlarmText =
        piece.Kind == PieceKind::Event && Open.size() > PieceDepth + 1 && EqualsIgnoringCase(name, "DESCRIPTION");
    if (line.Text.find('\0') == std::string_view::npos) {
        AppendLine(line.Text, line.Number, !isAlarmText, piece);
        return;
    }
    Faults.Tell(line.Number, "this line contains a zero byte", kLeftOut);
    std::string text(line.Text);
    std::erase(text, '\0');
    AppendLine(text, line.Number, !isAlarmText, piece);
}

} // namespace tavo::exchange
