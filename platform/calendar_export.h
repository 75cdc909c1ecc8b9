// The calendar on its way out into one file.
#pragma once

#include <optional>
#include <string>

namespace tavo {

// A little at a time, so that the work can be shown and cancelled. The file is replaced whole or not at all.
class ICalendarExport {
  public:
    virtual ~ICalendarExport() = default;

    // Takes the file that was chosen; gives its name for people. Nothing when none was.
    virtual std::optional<std::u16string> NextFile() = 0;
    // How many items there are to be written; of a backup, that were; of a print, its pages.
    virtual int CountItems() const = 0;
    // What other calendars will not understand of them, a sentence for people; may be empty.
    virtual std::u16string Unsaid() const = 0;

    // Writes the next item. False when all are written and the file is in place, and when that cannot be: see Problem.
    virtual bool ExportOn() = 0;
    // Leaves the file. What is not finished leaves no trace.
    virtual void Leave() = 0;

    // How far it is, from 0 to 1000.
    virtual int Progress() const = 0;
    // Why nothing can be written, a phrase for people; empty while there is no reason.
    virtual std::u16string Problem() const = 0;
};

} // namespace tavo
