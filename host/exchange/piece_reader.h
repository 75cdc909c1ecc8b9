// Cuts a calendar file into its entries, one at a time, so that a file of any size is read in little memory.
#pragma once

#include "host/exchange/line_reader.h"
#include "host/locale/ascii.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::exchange {

// What is wrong with a file, and where; line 0 is the file as a whole.
struct FileFault {
    int Line = 0;
    std::string Reason;
};

enum class PieceKind { Event, TimeZone, Other };

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
    std::string Text;
    std::vector<LinePlace> Lines;

    const char* GetLine(std::size_t index) const { return Text.c_str() + Lines[index].Begin; }
};

enum class ReadResult { Piece, End, Fault };

class PieceReader {
  public:
    explicit PieceReader(IByteSource& source);

    // The next entry of the file. After a fault nothing more can be read.
    ReadResult Read(CalendarPiece& piece);
    // The entry that began at a place which an earlier read has told; reading in order goes on behind it.
    ReadResult ReadAt(std::int64_t offset, int line, CalendarPiece& piece);

    const FileFault& GetFault() const { return Fault; }

    std::int64_t GetOffset() const { return Reader.GetOffset(); }

  private:
    struct OpenComponent {
        std::string Name;
        int Line = 0;
    };

    ReadResult Fail(int line, std::string reason);
    ReadResult ReadPiece(const CalendarLine& begin, CalendarPiece& piece);
    bool CloseComponent(const CalendarLine& line, std::string_view value);
    ReadResult FailAtEnd();
    bool CheckLine(const CalendarLine& line, std::string_view& name, std::string_view& value);
    bool KeepLine(const CalendarLine& line, std::string_view name, std::string_view value, CalendarPiece& piece);

    LineReader Reader;
    std::vector<OpenComponent> Open;
    bool CalendarSeen = false;
    FileFault Fault;
};

// The parts of a line NAME;parameters:value; false when it has not this form.
bool SplitLine(std::string_view line, std::string_view& name, std::string_view& value);

std::string MakeUpper(std::string_view name);

using locale::EqualsIgnoringCase; // of names, as a calendar file writes them

} // namespace tavo::exchange
