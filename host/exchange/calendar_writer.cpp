// The frame of the file, and its zones before what is in them.
#include "host/exchange/calendar_writer.h"

#include "host/exchange/calendar_lines.h"
#include "host/exchange/zone_writer.h"
#include "host/rules/content_line.h"

#include <utility>

namespace tavo::exchange {
namespace {

constexpr const char* kUtcName = "UTC";
constexpr std::string_view kNameOfZone = "TZID:";

// The lines of a component that came along, folded, and under another name where its own is taken.
std::string CopyComponent(std::string_view component, const std::string& tzid) {
    std::string copy;
    while (!component.empty()) {
        const std::string line = rules::TakeUnfoldedLine(component);
        if (!line.empty()) {
            AppendFolded(line.starts_with(kNameOfZone) ? std::string(kNameOfZone) + tzid : line, copy);
        }
    }
    return copy;
}

std::string ReadTzid(std::string_view component) {
    while (!component.empty()) {
        if (const std::string line = rules::TakeUnfoldedLine(component); line.starts_with(kNameOfZone)) {
            return line.substr(kNameOfZone.size());
        }
    }
    return {};
}

} // namespace

CalendarWriter::CalendarWriter(IItemReader& reader, std::string stamp, InkDrawing drawInk, Take take)
    : Reader(reader), Words{std::move(stamp), [this](const std::string& name) { return FindZone(name); },
                            std::move(drawInk)},
      TakePiece(std::move(take)) {}

bool CalendarWriter::Begin() {
    Piece = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Tavo//Tavo Calendar//EN\r\nCALSCALE:GREGORIAN\r\n";
    return Flush();
}

bool CalendarWriter::Write(Oid oid, Status& status) {
    ExportItem item;
    status = Reader.Read(oid, item);
    if (Failed(status)) {
        const bool isGone = status == Status::NotFound;
        status = isGone ? Status::Ok : status;
        return isGone;
    }
    std::string events;
    WriteEvents(item, item.Item.Uid.empty() ? Reader.NameItem(oid) : item.Item.Uid, Words, events);
    Piece = std::exchange(Zones, {}) + events;
    return Flush();
}

bool CalendarWriter::WriteMemo(const MemoEntry& memo) {
    WriteMemoEntry(memo, Reader.NameMemo(memo.Name), Words, Piece);
    return Flush();
}

bool CalendarWriter::End() {
    Piece = "END:VCALENDAR\r\n";
    return Flush();
}

const WrittenZone& CalendarWriter::FindZone(const std::string& name) {
    if (const auto known = Names.find(name); known != Names.end()) {
        return known->second;
    }
    ExportZone zone = Reader.ReadZone(name);
    WrittenZone& written = Names[name];
    written.Rules = zone.Rules.get();
    if (name != kUtcName && zone.Rules != nullptr) {
        const std::string own = zone.Component.empty() ? name : ReadTzid(zone.Component);
        written.Tzid = Given.insert(own).second ? own : name;
        Given.insert(written.Tzid);
        Zones += zone.Component.empty() ? WriteZone(name, *zone.Rules) : CopyComponent(zone.Component, written.Tzid);
    }
    Rules[name] = std::move(zone.Rules);
    return written;
}

bool CalendarWriter::Flush() {
    return TakePiece(std::exchange(Piece, {}));
}

} // namespace tavo::exchange
