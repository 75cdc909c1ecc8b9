// Calendars by a grammar: zones, events, their repetition and their alarms.
#include "fuzz/calendar_grammar.h"

#include "host/rules/wall_time.h"

namespace tavo::fuzz {
namespace {

using rules::CivilDate;
using rules::CivilFromDay;
using rules::DayFromCivil;
using rules::DayNumber;

constexpr std::array<const char*, 7> kDays = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
constexpr std::array<const char*, 8> kFrequencies = {"DAILY",  "WEEKLY",   "MONTHLY",  "YEARLY",
                                                     "HOURLY", "MINUTELY", "SECONDLY", "NEVER"};
constexpr std::array<const char*, 10> kZones = {
    "",    "Europe/Berlin", "America/New_York", "Pacific/Apia", "Own/One",
    "UTC", "Own/Two",       "Atlantis/Centre",  "Asia/Kolkata", "Own/\x1b[31m"};
constexpr std::array<const char*, 12> kOffsets = {"+0100", "+0200", "-0500",   "+0000",     "+2359", "-2359",
                                                  "+9900", "-2400", "+013030", "+nonsense", "-0930", "+1400"};

std::string Two(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string MakeList(Choices& choices, const char* name, int lowest, int highest, bool fromEnd) {
    std::string text = std::string(";") + name + "=";
    const int count = choices.Once(12) ? highest - lowest + 1 : 1 + choices.Below(4);
    for (int index = 0; index < count; ++index) {
        const int number = count > 4 ? lowest + index : lowest + choices.Below(highest - lowest + 2);
        text += (index > 0 ? "," : "") + std::string(fromEnd && choices.Once(3) ? "-" : "") + std::to_string(number);
    }
    return text;
}

std::string MakeDate(Choices& choices) {
    constexpr std::array<const char*, 8> kYears = {"2026", "2026", "2024", "1970", "1900", "2999", "2582", "0001"};
    return choices.Of(kYears) + Two(1 + choices.Below(12)) + Two(1 + choices.Below(29 + (choices.Once(4) ? 3 : 0)));
}

std::string MakeTimeText(Choices& choices) {
    return MakeDate(choices) + "T" + Two(choices.Below(24)) + Two(choices.Below(60)) + "00" +
           (choices.Once(4) ? "Z" : "");
}

} // namespace

std::string MakeRule(Choices& choices) {
    std::string text;
    if (choices.Once(5)) {
        constexpr std::array<const char*, 5> kScales = {"GREGORIAN", "gregorian", "CHINESE", "HEBREW", "NOWHERE"};
        constexpr std::array<const char*, 4> kSkips = {"", ";SKIP=BACKWARD", ";SKIP=FORWARD", ";SKIP=OMIT"};
        text += "RSCALE=" + choices.Of(kScales) + ";";
        text += "FREQ=" + choices.Of(kFrequencies) + choices.Of(kSkips);
    } else {
        text += "FREQ=" + choices.Of(kFrequencies);
    }
    if (choices.Once(3)) {
        constexpr std::array<const char*, 7> kIntervals = {"2", "7", "24", "999", "0", "-1", "32767"};
        text += ";INTERVAL=" + choices.Of(kIntervals);
    }
    const int parts = choices.Below(5);
    for (int part = 0; part < parts; ++part) {
        switch (choices.Below(10)) {
        case 0:
            text += MakeList(choices, "BYMONTH", 1, 12, false);
            break;
        case 1:
            text += MakeList(choices, "BYMONTHDAY", 1, 31, true);
            break;
        case 2:
            text += ";BYDAY=" + (choices.Once(3) ? std::to_string(choices.Below(60) - 5) : "") + choices.Of(kDays) +
                    (choices.Once(2) ? "," + choices.Of(kDays) : "");
            break;
        case 3:
            text += MakeList(choices, "BYYEARDAY", 1, 366, true);
            break;
        case 4:
            text += MakeList(choices, "BYWEEKNO", 1, 53, true);
            break;
        case 5:
            text += MakeList(choices, "BYHOUR", 0, 23, false);
            break;
        case 6:
            text += MakeList(choices, "BYMINUTE", 0, 59, false);
            break;
        case 7:
            text += MakeList(choices, "BYSECOND", 0, 59, false);
            break;
        case 8:
            text += MakeList(choices, "BYSETPOS", 1, 10, true);
            break;
        default:
            text += ";WKST=" + choices.Of(kDays);
            break;
        }
    }
    if (choices.Once(4)) {
        constexpr std::array<const char*, 5> kCounts = {"3", "1", "400", "2000000000", "0"};
        text += ";COUNT=" + choices.Of(kCounts);
    } else if (choices.Once(4)) {
        text += ";UNTIL=" + (choices.Once(3) ? MakeDate(choices) : MakeTimeText(choices));
    }
    return text + "\r\n";
}

namespace {

std::string MakeStamp(Choices& choices, const char* name) {
    if (choices.Once(5)) {
        return std::string(name) + ";VALUE=DATE:" + MakeDate(choices) + "\r\n";
    }
    const std::string zone = choices.Of(kZones);
    return std::string(name) + (zone.empty() ? "" : ";TZID=" + zone) + ":" + MakeTimeText(choices) + "\r\n";
}

std::string MakeZone(Choices& choices, const char* name) {
    std::string text = std::string("BEGIN:VTIMEZONE\r\nTZID:") + name + "\r\n";
    const int parts = choices.Below(4);
    for (int part = 0; part < parts; ++part) {
        const std::string kind = choices.Once(2) ? "DAYLIGHT" : "STANDARD";
        text += "BEGIN:" + kind + "\r\nDTSTART:" + MakeTimeText(choices) + "\r\nTZOFFSETFROM:" + choices.Of(kOffsets) +
                "\r\nTZOFFSETTO:" + choices.Of(kOffsets) + "\r\n";
        const std::string line = "RRULE:" + MakeRule(choices);
        for (int times = choices.Once(8) ? 300 : choices.Below(3); times > 0; --times) {
            text += line;
        }
        if (choices.Once(4)) {
            text += "RDATE:" + MakeTimeText(choices) + "\r\n";
        }
        text += "END:" + kind + "\r\n";
    }
    return text + "END:VTIMEZONE\r\n";
}

} // namespace

std::string MakeDateList(Choices& choices, const char* name) {
    const int count = choices.Once(4) ? 2000 : 1 + choices.Below(20);
    const DayNumber first = DayFromCivil(2025 + choices.Below(2), 1, 1) + choices.Below(250);
    const DayNumber step = choices.Once(2) ? 7 : 1;
    const std::string time = "T" + Two(choices.Below(24)) + "0000";
    std::string text = std::string(name) + ":";
    for (int index = 0; index < count; ++index) {
        const CivilDate date = CivilFromDay(first + index * step);
        text += (index > 0 ? "," : "") + std::to_string(date.Year) + Two(date.Month) + Two(date.Day) + time;
    }
    return text + "\r\n";
}

namespace {

std::string MakeRepetition(Choices& choices) {
    std::string text;
    const int lines = choices.Below(4);
    for (int line = 0; line < lines; ++line) {
        switch (choices.Below(7)) {
        case 0:
        case 1:
        case 2:
            text += "RRULE:" + MakeRule(choices);
            break;
        case 3:
            text += "EXRULE:" + MakeRule(choices);
            break;
        case 4:
            text += MakeStamp(choices, choices.Once(2) ? "RDATE" : "EXDATE");
            break;
        case 5:
            text += MakeDateList(choices, choices.Once(2) ? "RDATE" : "EXDATE");
            break;
        default:
            text += "RDATE;VALUE=PERIOD:" + MakeTimeText(choices) + "/" + (choices.Once(2) ? "-" : "") + "PT" +
                    std::to_string(choices.Below(60)) + "H\r\n";
            break;
        }
    }
    return text;
}

std::string MakeAlarm(Choices& choices) {
    constexpr std::array<const char*, 8> kLeads = {"-PT15M", "-PT1H",   "-P1D",     "-P60D",
                                                   "-P366D", "-P5000D", "-P20000D", "PT30M"};
    return "BEGIN:VALARM\r\nACTION:DISPLAY\r\nTRIGGER:" + choices.Of(kLeads) + "\r\nEND:VALARM\r\n";
}

// All of an event but its beginning and UID.
std::string MakeBody(Choices& choices) {
    std::string text = MakeStamp(choices, "DTSTART");
    if (choices.Once(3)) {
        text += "DURATION:" + std::string(choices.Once(6) ? "-" : "") + "P" + std::to_string(choices.Below(33)) + "DT" +
                std::to_string(choices.Below(30)) + "H\r\n";
    } else if (choices.Once(3)) {
        text += MakeStamp(choices, "DTEND");
    }
    if (choices.Once(5)) {
        text += MakeStamp(choices, "RECURRENCE-ID");
    } else {
        text += MakeRepetition(choices);
    }
    text += "SUMMARY:" + choices.Raw(40) + "\r\n";
    if (choices.Once(2)) {
        text += MakeAlarm(choices);
    }
    return text + "END:VEVENT\r\n";
}

// One event, or a crowd of it.
std::string MakeEvents(Choices& choices) {
    constexpr std::array<int, 8> kTimes = {1, 1, 1, 1, 1, 1, 8, 40};
    const int times = kTimes[static_cast<std::size_t>(choices.Below(static_cast<int>(kTimes.size())))];
    const std::string uid = "u" + std::to_string(choices.Below(3));
    const std::string body = MakeBody(choices);
    std::string text;
    for (int number = 0; number < times; ++number) {
        text += "BEGIN:VEVENT\r\nUID:" + uid;
        text += number > 0 ? "-" + std::to_string(number) : "";
        text += "\r\n" + body;
    }
    return text;
}

} // namespace

std::string MakeCalendar(Choices& choices) {
    std::string text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n";
    for (const char* zone : {"Own/One", "Own/Two", "Own/\x1b[31m"}) {
        text += choices.Once(2) ? MakeZone(choices, zone) : "";
    }
    for (int events = 1 + choices.Below(5); events > 0; --events) {
        text += MakeEvents(choices);
    }
    return text + "END:VCALENDAR\r\n";
}

} // namespace tavo::fuzz
