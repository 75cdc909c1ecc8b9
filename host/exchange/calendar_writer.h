// Writes a whole calendar file, item by item.
#pragma once

#include "host/exchange/event_writer.h"
#include "host/exchange/memo_entry.h"

#include <functional>
#include <map>
#include <set>
#include <string>

namespace tavo::exchange {

class CalendarWriter {
  public:
    // Takes pieces of the file in their order; false ends the writing.
    using Take = std::function<bool(std::string_view)>;

    // `stamp` is the moment of the export, "20260503T090000Z". The reader must outlive it.
    CalendarWriter(IItemReader& reader, std::string stamp, InkDrawing drawInk, Take take);
    CalendarWriter(const CalendarWriter&) = delete;
    CalendarWriter& operator=(const CalendarWriter&) = delete;

    // False when the pieces are no longer taken; so with the others.
    bool Begin();
    // The item, behind the zones that it names and the file has not defined yet. One that is gone is passed over.
    bool Write(Oid oid, Status& status);
    bool WriteMemo(const MemoEntry& memo);
    bool End();

  private:
    const WrittenZone& FindZone(const std::string& name);
    bool Flush();

    IItemReader& Reader;
    EventWords Words;
    Take TakePiece;
    std::string Zones; // components that are still to be written
    std::string Piece;
    std::map<std::string, std::unique_ptr<rules::ZoneRules>> Rules;
    std::map<std::string, WrittenZone> Names;
    std::set<std::string> Given; // names that the file has given to zones
};

} // namespace tavo::exchange
