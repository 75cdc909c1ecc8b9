// Goes the whole way of a calendar from outside: a file made by a grammar from any bytes is imported, its store opened
// again, perhaps given rules that no import takes, listed in long and short spans, searched for reminders and checked;
// each of these within a time.
#include "host/exchange/calendar_file.h"
#include "host/exchange/store_sink.h"
#include "host/outlook/diagnosis.h"
#include "host/outlook/occurrence_reader.h"
#include "host/outlook/restriction.h"
#include "host/outlook/store_core.h"
#include "host/reminders/reminder_finder.h"
#include "tests/outlook/planted_rule.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace tavo;
using namespace tavo::outlook;

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

#if defined(__SANITIZE_ADDRESS__)
constexpr double kSlower = 8;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr double kSlower = 8;
#else
constexpr double kSlower = 1;
#endif
#else
constexpr double kSlower = 1;
#endif

// Stops the program when what it stands for takes too much of the processor: what a person would have to wait for.
class Deadline {
  public:
    explicit Deadline(const char* name) : Name(name), Begun(std::clock()) {}

    ~Deadline() {
        const double used = static_cast<double>(std::clock() - Begun) / CLOCKS_PER_SEC;
        if (used > kSeconds * kSlower) {
            std::fprintf(stderr, "%s took %.1f s\n", Name, used);
            std::abort();
        }
    }

    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;

  private:
    static constexpr double kSeconds = 1;
    const char* Name;
    std::clock_t Begun;
};

// Turns the bytes into decisions; at their end everything is the first choice.
class Choices {
  public:
    Choices(const std::uint8_t* data, std::size_t size) : Data(data), Size(size) {}

    int Below(int limit) { return At < Size ? Data[At++] % limit : 0; }

    bool Once(int in) { return Below(in) == in - 1; }

    template <std::size_t Count> std::string Of(const std::array<const char*, Count>& words) {
        return words[static_cast<std::size_t>(Below(static_cast<int>(Count)))];
    }

    // Bytes as they are, as the value of a line.
    std::string Raw(int most) {
        std::string text;
        for (int left = Below(most); left > 0 && At < Size; --left) {
            const char byte = static_cast<char>(Data[At++]);
            text.push_back(byte == '\r' || byte == '\n' || byte == '\0' ? '?' : byte);
        }
        return text;
    }

  private:
    const std::uint8_t* Data;
    std::size_t Size;
    std::size_t At = 0;
};

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

// A list of dates, from one day of the week to the next or from day to day, perhaps long.
std::string MakeDateList(Choices& choices, const char* name) {
    const int count = choices.Once(4) ? 2000 : 1 + choices.Below(20);
    const DayNumber first = DayFromCivil(2025 + choices.Below(2), 1, 1) + choices.Below(250);
    const int step = choices.Once(2) ? 7 : 1;
    const std::string time = "T" + Two(choices.Below(24)) + "0000";
    std::string text = std::string(name) + ":";
    for (int index = 0; index < count; ++index) {
        const CivilDate date = CivilFromDay(first + index * step);
        text += (index > 0 ? "," : "") + std::to_string(date.Year) + Two(date.Month) + Two(date.Day) + time;
    }
    return text + "\r\n";
}

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
        text += "BEGIN:VEVENT\r\nUID:" + uid + (number > 0 ? "-" + std::to_string(number) : "") + "\r\n" + body;
    }
    return text;
}

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

// In memory where there is such a folder: what is looked for is not the disk's.
std::filesystem::path MakeFolder() {
    const char* memory = "/dev/shm";
    const std::filesystem::path base =
        access(memory, W_OK) == 0 ? std::filesystem::path(memory) : std::filesystem::temp_directory_path();
    std::filesystem::path folder = base / ("tavo-fuzz-" + std::to_string(getpid()));
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    return folder;
}

StorePtr Open(const std::filesystem::path& file, const std::string& zone) {
    StoreOptions options;
    options.DeviceZone = zone;
    StorePtr store;
    Require(Succeeded(OpenStore(file, options, store)));
    Require(Succeeded(store->Core().Db.Run("PRAGMA synchronous = OFF")));
    return store;
}

// Made once: its tables take longer than most imports.
const std::filesystem::path& MakeEmptyStore(const std::filesystem::path& folder) {
    static const std::filesystem::path made = [&folder] {
        std::filesystem::path path = folder / "Empty.db";
        Open(path, "Europe/Berlin");
        return path;
    }();
    return made;
}

void Import(const StorePtr& store, const std::string& text) {
    exchange::MemorySource source(text);
    ImportWriter writer(store);
    Require(Succeeded(writer.Begin(u"Import")));
    exchange::StoreSink sink(writer, std::nullopt, [](std::int64_t) { return true; });
    exchange::FileFault fault;
    if (exchange::ReadCalendarFile(source, sink, fault) == exchange::FileOutcome::Read) {
        Require(Succeeded(writer.Commit()));
    } else {
        Require(Succeeded(sink.GetStoreStatus()) && Succeeded(writer.Abandon()));
    }
}

// As a store may hold them from before an import refused them. True when there are any.
bool Plant(const StorePtr& store, Choices& choices) {
    std::vector<Oid> series;
    {
        Query query(store->Core().Db, "SELECT oid FROM series LIMIT 10");
        while (query.Next()) {
            series.push_back(query.Small(0));
        }
    }
    if (series.empty() || !choices.Once(3)) {
        return false;
    }
    const std::string line = (choices.Once(5) ? "EXRULE:" : "RRULE:") + MakeRule(choices);
    constexpr std::array<int, 4> kTimes = {1, 2, 96, 500};
    std::string lines = choices.Once(3) ? MakeDateList(choices, "RDATE") : "";
    for (int left = kTimes[static_cast<std::size_t>(choices.Below(4))]; left > 0; --left) {
        lines += line;
    }
    series.resize(choices.Once(3) ? series.size() : 1);
    for (const Oid oid : series) {
        Require(outlook::test::PlantRule(store->Core(), oid, lines));
    }
    return true;
}

void List(const StorePtr& store) {
    OccurrenceReader reader(store);
    const DayNumber first = DayFromCivil(2026, 3, 1);
    const DayNumber last = first + 30;
    bool whole = true;
    Seconds latest = kLowestTime;
    {
        const Deadline soon("the list of a month");
        Require(Succeeded(reader.ListDays(first, last, [&latest](const ListedOccurrence& line) {
            Require(line.Start >= latest && line.End >= line.Start);
            latest = line.Start;
        })));
    }
    const auto count = [&](DayNumber from, DayNumber to) {
        const Deadline soon("a list of starts");
        int lines = 0;
        Require(Succeeded(reader.ListStarts(MidnightOf(from), MidnightOf(to + 1) - 1,
                                            [&lines](const ListedOccurrence&) { ++lines; })));
        whole = whole && reader.GetLeftOut().empty();
        return lines;
    };
    // What starts in a month, or in as much of it as one has time for, is what starts on each of its days, unless
    // something takes too long.
    constexpr DayNumber kFewDays = 3;
    const std::clock_t begun = std::clock();
    int days = 0;
    DayNumber day = first;
    for (; day <= last && (day < first + kFewDays || std::clock() - begun < CLOCKS_PER_SEC / 2); ++day) {
        days += count(day, day);
    }
    const int month = count(first, day - 1);
    Require(!whole || days == month);
}

void Remind(const StorePtr& store) {
    const Deadline soon("the search for reminders");
    reminders::ReminderFinder finder(store->Core());
    const reminders::Moment now = MakeTime(2026, 3, 10, 12);
    std::optional<reminders::Moment> next;
    Require(Succeeded(finder.FindNext(now, next)));
    Require(!next || *next > now);
    const auto describe = [&](const reminders::DueReminder& reminder) {
        Require(reminder.At <= now + 30 * reminders::kDay);
    };
    Require(Succeeded(finder.FindDue(now, now + 30 * reminders::kDay, describe)));
    Require(Succeeded(finder.FindAhead(now, describe)));
    if (next) {
        // Nothing is due before the next.
        Require(Succeeded(finder.FindDue(now, std::min(*next - 1, now + 40 * reminders::kDay),
                                         [](const reminders::DueReminder&) { Require(false); })));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::filesystem::path kFolder = MakeFolder();
    static const bool kGoesAtTheEnd = std::atexit([] { std::filesystem::remove_all(kFolder); }) == 0;
    Require(kGoesAtTheEnd);
    const std::filesystem::path file = kFolder / "Outlook.db";
    for (const char* ending : {"", "-wal", "-shm"}) {
        std::filesystem::remove(file.string() + ending);
    }
    std::filesystem::copy_file(MakeEmptyStore(kFolder), file);
    Choices choices(data, size);
    const std::string text = MakeCalendar(choices);
    bool planted = false;
    {
        const StorePtr store = Open(file, "Europe/Berlin");
        Import(store, text);
        planted = Plant(store, choices);
    }
    {
        const StorePtr store = Open(file, choices.Once(3) ? "America/New_York" : "Europe/Berlin");
        List(store);
        Remind(store);
    }
    const Deadline soon("the check");
    const Diagnosis diagnosis = DiagnoseStore(file, CheckDepth::Full);
    const bool isOrdered = diagnosis.State == Verdict::Ok && diagnosis.Findings.empty();
    Require(isOrdered || (planted && diagnosis.State == Verdict::LeavesOut));
    return 0;
}
