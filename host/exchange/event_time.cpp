// The times of an event: on whose clock they are, and whether they are dates only.
#include "host/exchange/event_time.h"

#include "host/rules/calendar_value.h"

namespace tavo::exchange {
namespace {

using rules::kSecondsPerDay;
using rules::Seconds;

constexpr const char* kNoLength = "the entry has no length";

// Days go by the calendar, hours and finer by the clock that runs through a change of daylight saving.
Seconds AddDuration(const EventTime& start, const rules::CalendarDuration& duration) {
    const Seconds nominal = start.Clock + duration.Days * kSecondsPerDay;
    if (start.In == nullptr || duration.Exact == 0) {
        return nominal + duration.Exact;
    }
    return start.In->Rules->ToLocal(start.In->Rules->ToUtc(nominal) + duration.Exact);
}

// An end of whole days names the day after the last. One day is a span of no length in the store.
Seconds EndOfWholeDays(Seconds start, Seconds end) {
    return end >= start && end - start <= kSecondsPerDay ? start : end;
}

} // namespace

Reading ReadTime(const rules::ContentLine& line, std::string_view value, const EntryContext& context, EventTime& time,
                 std::string& reason) {
    const std::optional<rules::CalendarTime> digits = rules::ReadCalendarTime(value);
    if (!digits || !digits->IsReal()) {
        reason = "\"" + std::string(value) + "\" is not a real date and time";
        return Reading::Broken;
    }
    time.Clock = digits->ToSeconds();
    time.DateOnly = digits->DateOnly;
    time.In = nullptr;
    if (time.DateOnly) {
        return Reading::Good;
    }
    if (digits->Utc) {
        time.In = context.Zones.GetUtc();
        return Reading::Good;
    }
    if (const std::string* name = line.FindParameter("TZID"); name != nullptr) {
        time.In = context.Zones.Find(*name);
        if (time.In == nullptr && context.Zones.IsDefined(*name)) {
            reason = context.Zones.DescribeUnknown(*name);
            return Reading::Refused;
        }
        if (time.In == nullptr) {
            context.Zones.TellUnknown(*name, FindLine(context.Piece, line.Name), context.Faults);
        }
    } else if (!context.Piece.CalendarZone.empty()) {
        time.In = context.Zones.Find(context.Piece.CalendarZone);
        if (time.In == nullptr) {
            context.Zones.TellUnknown(context.Piece.CalendarZone, FindLine(context.Piece, line.Name), context.Faults);
        }
    }
    return Reading::Good;
}

Reading ReadEnd(const LineList& event, const EventTime& start, const EntryContext& context, EventTime& end,
                std::string& reason) {
    end = start;
    const rules::ContentLine* line = event.FindFirst("DTEND");
    if (line != nullptr) {
        const Reading reading = ReadTime(*line, line->Value, context, end, reason);
        if (reading == Reading::Refused) {
            return reading;
        }
        if (reading == Reading::Broken) {
            context.Faults.Tell(FindLine(context.Piece, line->Name), reason, kNoLength);
            end = start;
        }
        end.Clock = MoveToZone(end, start.In);
        end.In = start.In;
    } else if (line = event.FindFirst("DURATION"); line != nullptr) {
        // One that cannot be read is no longer among the lines.
        end.Clock = AddDuration(start, rules::ReadDuration(line->Value).value_or(rules::CalendarDuration()));
    }
    if (line != nullptr && end.Clock < start.Clock) {
        context.Faults.Tell(FindLine(context.Piece, line->Name), "it ends before it begins", kNoLength);
        end.Clock = start.Clock;
    }
    if (start.DateOnly) {
        end.Clock = EndOfWholeDays(start.Clock, end.Clock);
        end.DateOnly = true;
    }
    return Reading::Good;
}

Seconds MoveToZone(const EventTime& time, const Zone* zone) {
    if (time.In == nullptr || zone == nullptr || time.In == zone) {
        return time.Clock;
    }
    return zone->Rules->ToLocal(time.In->Rules->ToUtc(time.Clock));
}

} // namespace tavo::exchange
