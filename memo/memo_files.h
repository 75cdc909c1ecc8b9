// Memo files: handwritten notes, one per file, found by the day in their names.
#pragma once

#include "store/program_state.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavo {

// Names and paths of a day's memos. A memo belongs to the day that its name begins with; the rest of the name is the
// time at which it was first saved.
class MemoFiles {
  public:
    explicit MemoFiles(CProgramState& state) : State(state) {}

    std::u16string MemoPath(std::u16string_view name) const;
    // For a memo of this day that is first saved now.
    std::u16string NewMemoPath(int year, int month, int day) const;

    // For a memo that was written at this time; no other memo has this name.
    std::u16string FreeMemoPath(const SYSTEMTIME& written) const;
    // "x 2.pwi" beside "x.pwi", or the next number that nobody has.
    std::u16string FreePathBeside(std::u16string_view path) const;

    // Moves a memo that was put away from `kept` to `path`, or beside what took its place meanwhile; `path` then says
    // where it is. False when it could not be moved: it is where it was, or nobody has it any more.
    [[nodiscard]] bool BringBack(std::u16string_view kept, std::u16string& path);

    // Whether there is such a file.
    bool IsMemo(std::u16string_view path) const;

    // The names of the day's memos, without the folder, in the order in which the device finds them.
    std::vector<std::u16string> FindMemos(int year, int month, int day) const;
    bool HasMemo(int year, int month, int day) const;

    // Reads the whole file into the memo buffer. A file that cannot be read leaves the buffer empty.
    bool ReadMemo(std::u16string_view path);
    // Writes the memo buffer; an empty one is never written. False when nothing was.
    bool WriteMemo(std::u16string_view path);

  private:
    void MakeDataFolder();
    std::u16string PathOfMoment(const SYSTEMTIME& moment) const;
    std::u16string DayPattern(int year, int month, int day) const;

    CProgramState& State;
};

// Which days have memos. What it says of a month is what was there when the month was first asked for: one look at the
// folder then, where a look for every day would cost more than drawing the month.
class MemoDays {
  public:
    explicit MemoDays(CProgramState& state) : State(state) {}

    bool Has(int year, int month, int day);

  private:
    struct KnownMonth {
        int Year = 0;
        int Month = 0;
        std::uint32_t Days = 0; // bit d for day d
    };

    std::uint32_t FindDays(int year, int month) const;

    CProgramState& State;
    std::vector<KnownMonth> Known;
};

} // namespace tavo
