// What must be known of a calendar file before its first entry can be read.
#include "host/exchange/file_survey.h"

#include "host/exchange/memo_entry.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <tuple>

namespace tavo::exchange {
namespace {

std::uint64_t HashUid(const std::string& uid) {
    return std::hash<std::string>()(uid);
}

// What of an event decides how it is to be read. Lines of its alarms are not looked at.
struct EventMarks {
    bool Occurrence = false;
    bool Repeats = false;
    int Sequence = 0;
};

EventMarks FindMarks(const CalendarPiece& piece) {
    EventMarks marks;
    int depth = 0;
    for (std::size_t index = 0; index < piece.Lines.size(); ++index) {
        std::string_view name;
        std::string_view value;
        SplitLine(piece.GetLine(index), name, value);
        if (EqualsIgnoringCase(name, "BEGIN")) {
            ++depth;
        } else if (EqualsIgnoringCase(name, "END")) {
            --depth;
        } else if (depth == 1 && EqualsIgnoringCase(name, "RECURRENCE-ID")) {
            marks.Occurrence = true;
        } else if (depth == 1 && (EqualsIgnoringCase(name, "RRULE") || EqualsIgnoringCase(name, "RDATE"))) {
            marks.Repeats = true;
        } else if (depth == 1 && EqualsIgnoringCase(name, "SEQUENCE")) {
            std::from_chars(value.data(), value.data() + value.size(), marks.Sequence);
        }
    }
    return marks;
}

} // namespace

void FileSurvey::Take(const CalendarPiece& piece, ZoneTable& zones, FaultTeller& faults) {
    if (piece.Kind == PieceKind::TimeZone) {
        zones.Add(piece, faults);
    } else if (piece.Kind == PieceKind::Event && piece.TooLargeLine == 0) {
        AddEvent(piece);
    } else if (piece.Kind == PieceKind::Journal && IsMemoEntry(piece)) {
        Memos.push_back({piece.Offset, piece.Line, {}});
    }
}

void FileSurvey::AddEvent(const CalendarPiece& piece) {
    const EventMarks marks = FindMarks(piece);
    const std::string uid = FindUid(piece);
    if (marks.Occurrence) {
        Occurrences[uid].push_back({piece.Offset, piece.Line, piece.CalendarZone});
    } else {
        Masters.push_back({HashUid(uid), marks.Sequence, piece.Line, marks.Repeats});
    }
}

void FileSurvey::Close() {
    std::sort(Masters.begin(), Masters.end(), [](const Master& a, const Master& b) {
        return std::tie(a.UidHash, a.Sequence, a.Line) < std::tie(b.UidHash, b.Sequence, b.Line);
    });
    std::size_t doubled = 0;
    for (std::size_t index = 1; index < Masters.size(); ++index) {
        if (Masters[index].UidHash == Masters[index - 1].UidHash) {
            Winners[Masters[index].UidHash] = Masters[index].Line; // the last of the run stays
            ++doubled;
        }
    }
    std::unordered_set<std::uint64_t> changed;
    for (const auto& [uid, places] : Occurrences) {
        changed.insert(HashUid(uid));
    }
    for (const Master& master : Masters) {
        if (master.Repeats && changed.contains(master.UidHash)) {
            SeriesOfOccurrences.insert(master.UidHash);
        }
    }
    std::size_t entries = Masters.size() - doubled;
    for (const auto& [uid, places] : Occurrences) {
        entries += HasSeries(uid) ? 0 : places.size();
    }
    EntryCount = static_cast<int>(entries + Memos.size());
    Masters = {};
}

bool FileSurvey::HasSeries(const std::string& uid) const {
    return SeriesOfOccurrences.contains(HashUid(uid));
}

const std::vector<PiecePlace>& FileSurvey::FindOccurrences(const std::string& uid) const {
    static const std::vector<PiecePlace> kNone;
    const auto found = Occurrences.find(uid);
    return found == Occurrences.end() ? kNone : found->second;
}

int FileSurvey::FindBetter(const std::string& uid, int line) const {
    if (Winners.empty()) {
        return 0;
    }
    const auto found = Winners.find(HashUid(uid));
    return found == Winners.end() || found->second == line ? 0 : found->second;
}

} // namespace tavo::exchange
