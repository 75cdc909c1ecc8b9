// Reads the lines of a calendar file: folded lines joined, the place of each remembered.
#pragma once

#include "host/exchange/byte_source.h"

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
    // One physical line without its end; false when there is none. `text` lies in the window or in Long.
    bool ReadPhysical(std::string_view& text, bool& cut);
    void SkipRestOfLine();
    bool IsFoldNext() const;
    void Refill();

    IByteSource& Source;
    std::vector<char> Window;
    std::int64_t WindowOffset = 0;
    std::size_t Position = 0;
    std::size_t Filled = 0;
    int NextNumber = 1;
    bool AtEnd = false;
    bool Failed = false;
    std::string Joined;
    std::string Long;
};

} // namespace tavo::exchange
