// The lines of an event that mean nothing here, kept for an export to give them back.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::exchange {

class CarriedLines {
  public:
    void Clear();

    // Where a component of the event begins: an alarm, or another one.
    void BeginAlarm() { Alarms.emplace_back(); }

    // A line of the event, or of another component than an alarm; BEGIN and END of such a one are `isFrame`. False: it
    // is more than can be kept, and left out.
    bool AddOwn(std::string_view line, bool isFrame) { return Add(Own, line, isFrame); }

    // Likewise, of the alarm that was begun last; after too many nothing is.
    bool AddToAlarm(std::string_view line, bool isFrame) {
        return !Alarms.empty() && Add(Alarms.back(), line, isFrame);
    }

    // All lines, unfolded and joined by line feeds, of the alarms only those of these places among them.
    std::string Join(const std::vector<std::size_t>& alarms) const;

  private:
    bool Add(std::string& lines, std::string_view line, bool isFrame);

    std::string Own;
    std::vector<std::string> Alarms;
    std::size_t Size = 0;
    bool IsFull = false; // also of frames: then nothing is kept, for nothing would be closed
};

// Puts a line behind others, as UTF-8 that a store takes.
void AppendCarried(std::string& lines, std::string_view line);
// Likewise of any number of lines that were carried before.
void AppendCarriedLines(std::string& lines, std::string_view others);

} // namespace tavo::exchange
