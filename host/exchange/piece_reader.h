// Cuts a calendar file into its entries, one at a time, so that a file of any size is read in little memory.
#pragma once

#include "host/exchange/carried_lines.h"
#include "host/exchange/fault_teller.h"
#include "host/exchange/line_reader.h"
#include "host/locale/ascii.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::exchange {

enum class PieceKind { Event, TimeZone, Journal, Other };

// One entry between BEGIN and END of the calendar: the lines that the import uses, in their order.
struct CalendarPiece {
    struct LinePlace {
        std::size_t Begin = 0; // in Text, where each line ends with a zero
        int Number = 0;
        bool IsRead = true; // false: only part of what tells entries without a UID apart
    };

    PieceKind Kind = PieceKind::Other;
    std::string Name; // in upper case: "VEVENT"
    std::int64_t Offset = 0;
    int Line = 0;
    int TooLargeLine = 0; // where it became larger than can be kept: not all of its lines are here then
    std::string Text;
    std::vector<LinePlace> Lines;
    std::string CalendarZone; // that its calendar names for times without one (X-WR-TIMEZONE); may be ""
    CarriedLines Carried;     // of an event, where all lines are asked for: those that the import does not use

    const char* GetLine(std::size_t index) const { return Text.c_str() + Lines[index].Begin; }
};

enum class Extent { UsedLines, AllLines };

enum class ReadResult { Piece, End, Fault };

// What is against the format is told, and the smallest part left out that can be: an entry ends where another begins or
// the file ends, or what it is in; entries may stand outside any calendar.
class PieceReader {
  public:
    // Both must outlive it.
    PieceReader(IByteSource& source, FaultTeller& faults, Extent extent);

    // The next entry of the file. After a fault, that of a file that is no calendar or cannot be read, nothing more can
    // be.
    ReadResult Read(CalendarPiece& piece);
    // The entry that began at a place which an earlier read has told; reading in order goes on behind it. What its
    // calendar says is not known then.
    ReadResult ReadAt(std::int64_t offset, int line, CalendarPiece& piece);

    const FileFault& GetFault() const { return Fault; }

    std::int64_t GetOffset() const { return Reader.GetOffset(); }

  private:
    struct OpenComponent {
        std::string Name;
        int Line = 0;
    };

    ReadResult Fail(int line, std::string reason);
    // The next line that is not blank.
    bool ReadLine(CalendarLine& line);
    void OpenCalendar(const CalendarLine& line);
    void TakeStrayLine(int line);
    ReadResult ReadPiece(const CalendarLine& begin, std::string name, CalendarPiece& piece);
    // False where the entry ends before the line.
    bool OpenInner(const CalendarLine& line, std::string name, CalendarPiece& piece);
    void Close(int line, std::string_view name, CalendarPiece& piece);
    void CloseDownTo(std::size_t depth, int line, CalendarPiece& piece);
    ReadResult FinishFile();
    bool IsNeeded(std::string_view name, std::string_view value, const CalendarPiece& piece) const;
    // A line that the import does not use, for an export to give it back.
    void CarryLine(const CalendarLine& line, std::string_view name, std::string_view value, CalendarPiece& piece);
    void KeepLine(const CalendarLine& line, std::string_view name, std::string_view value, CalendarPiece& piece);

    LineReader Reader;
    FaultTeller& Faults;
    std::vector<OpenComponent> Open;
    std::string CalendarZone; // of the calendar that is open
    const Extent Wanted;
    std::size_t PieceDepth = 0;          // how many components are open around an entry
    int TooDeep = 0;                     // components open beyond what is looked at
    std::optional<CalendarLine> PutBack; // is read again first
    int FirstStray = 0;                  // line of the first one before anything began
    bool BeginSeen = false;
    bool LeftOutTold = false; // of the lines of this entry that are too many to be carried
    bool StrayTold = false;   // of those that follow one another
    FileFault Fault;
};

// The parts of a line NAME;parameters:value; false when it has not this form.
bool SplitLine(std::string_view line, std::string_view& name, std::string_view& value);

std::string MakeUpper(std::string_view name);

using locale::EqualsIgnoringCase; // of names, as a calendar file writes them

} // namespace tavo::exchange
