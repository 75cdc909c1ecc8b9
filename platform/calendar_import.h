// Calendar files that somebody opens with the program, and the work of bringing them into the store.
#pragma once

#include <optional>
#include <string>

namespace tavo {

// One file after the other, and each a little at a time, so that the work can be shown and cancelled.
class ICalendarImport {
  public:
    virtual ~ICalendarImport() = default;

    // Goes to the next file that was opened; gives its name for people. Nothing when there is none.
    virtual std::optional<std::u16string> NextFile() = 0;

    // Looks at the next entry of the file. False when all were looked at, and when it cannot be read: see Problem.
    virtual bool LookOn() = 0;
    // How many there are to be imported; known after LookOn.
    virtual int CountEntries() const = 0;

    // Brings the next entry into the store. False when all of them are in it, as one step of undo, and when that cannot
    // be: then none is, see Problem.
    virtual bool ImportOn() = 0;
    // Leaves the file. What is not final is taken back.
    virtual void Leave() = 0;

    // How far the present time through the file is, from 0 to 1000.
    virtual int Progress() const = 0;
    // Why nothing of the file can be imported, a phrase for people; empty while there is no reason.
    virtual std::u16string Problem() const = 0;
    // After the import: how many entries are new, changed and refused, and why; one to a few lines for people.
    virtual std::u16string Outcome() const = 0;
};

} // namespace tavo
