// Reads the lines of a calendar file: folded lines joined, the place of each remembered.
#pragma once

#include "host/exchange/byte_source.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::exchange {

struct CalendarLine {
    std::string_view Text;   // without line end and folds; valid until the next read
    int Number = 0;          // 1-based, of its first physical line
    std::int64_t Offset = 0; // of its first byte
    bool Cut = false;        // longer than kLongestLine: only its beginning is here
};

constexpr std::size_t kLongestLine = std::size_t{1024} * 1024;

// UTF-8, or UTF-16 by its byte-order mark or because every other byte of its beginning is zero, which is read as UTF-8.
// Lines end with LF, CR LF or, in a file without any LF at its beginning, with CR.
class LineReader {
  public:
    explicit LineReader(IByteSource& source);

    // False at the end of the bytes, and after a failure to read them.
    bool Read(CalendarLine& line);

    bool HasFailed() const { return Failed; }

    int GetNextNumber() const { return NextNumber; }

    std::int64_t GetOffset() const { return WindowOffset + static_cast<std::int64_t>(Position); }

    // Goes on at a line whose offset and number an earlier read has told.
    void MoveTo(std::int64_t offset, int number);

  private:
    enum class Encoding { Utf8, Utf16LittleEndian, Utf16BigEndian };

    void FindEncoding();
    // One physical line without its end; false when there is none. `text` lies in the window, in Long or in Decoded.
    bool ReadPhysical(std::string_view& text, bool& cut);
    // The end of the line that begins at Position, at or behind `from`; nothing when the window does not have it.
    std::optional<std::size_t> FindLineEnd(std::size_t from) const;
    void SkipRestOfLine();
    bool IsFoldNext() const;

    std::size_t UnitSize() const { return Text == Encoding::Utf8 ? 1 : 2; }

    // The byte or UTF-16 unit there.
    char16_t UnitAt(std::size_t position) const;
    std::string_view Decode(std::string_view units);
    void Refill();

    IByteSource& Source;
    std::vector<char> Window;
    std::int64_t WindowOffset = 0;
    std::size_t Position = 0;
    std::size_t Filled = 0;
    int NextNumber = 1;
    bool AtEnd = false;
    bool Failed = false;
    Encoding Text = Encoding::Utf8;
    char LineEnd = '\r'; // until the file's beginning shows another
    std::string Joined;
    std::string Long;
    std::string Decoded;
};

} // namespace tavo::exchange
