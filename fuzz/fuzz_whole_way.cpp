// Goes the whole way of a calendar from outside: a file made by a grammar from any bytes is imported, its store opened
// again, perhaps given rules that no import takes, listed in long and short spans, searched for reminders, exported and
// checked; each of these within a time. What was exported, imported elsewhere and exported again is the same.
#include "fuzz/calendar_grammar.h"
#include "host/exchange/calendar_file.h"
#include "host/exchange/calendar_writer.h"
#include "host/exchange/store_sink.h"
#include "host/outlook/diagnosis.h"
#include "host/outlook/export_reader.h"
#include "host/outlook/import_writer.h"
#include "host/outlook/occurrence_reader.h"
#include "host/outlook/reminder_finder.h"
#include "host/outlook/store_core.h"
#include "host/posix/store_machine.h"
#include "host/rules/restriction.h"
#include "tests/outlook/planted_rule.h"
#include "tests/support/processor_time.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace tavo;
using namespace tavo::outlook;
using fuzz::Choices;

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

// Stops the program when what it stands for takes too much of the processor: what a person would have to wait for.
class Deadline {
  public:
    explicit Deadline(const char* name) : Name(name), Begun(tavo::test::ProcessorTime(RUSAGE_SELF)) {}

    ~Deadline() {
        const double used = tavo::test::ProcessorTime(RUSAGE_SELF) - Begun;
        if (used > tavo::test::AtMost(kSeconds)) {
            std::fprintf(stderr, "%s took %.1f s\n", Name, used);
            std::abort();
        }
    }

    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;

  private:
    static constexpr double kSeconds = 1;
    const char* Name;
    double Begun;
};

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
    Require(Succeeded(OpenStore(posix::SystemMachine(), file, options, store)));
    Require(Succeeded(CoreOf(*store).Db.Run("PRAGMA synchronous = OFF")));
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
    if (exchange::ReadCalendarFile(source, sink, exchange::Manner::Lenient, fault) == exchange::FileOutcome::Read) {
        Require(Succeeded(writer.Commit()));
    } else {
        Require(Succeeded(sink.GetStoreStatus()) && Succeeded(writer.Abandon()));
    }
}

// As a store may hold them from before an import refused them. True when there are any.
bool Plant(const StorePtr& store, Choices& choices) {
    std::vector<Oid> series;
    {
        Query query(CoreOf(*store).Db, "SELECT oid FROM series LIMIT 10");
        while (query.Next()) {
            series.push_back(query.Small(0));
        }
    }
    if (series.empty() || !choices.Once(3)) {
        return false;
    }
    const std::string line = (choices.Once(5) ? "EXRULE:" : "RRULE:") + fuzz::MakeRule(choices);
    constexpr std::array<int, 4> kTimes = {1, 2, 96, 500};
    std::string lines = choices.Once(3) ? fuzz::MakeDateList(choices, "RDATE") : "";
    for (int left = kTimes[static_cast<std::size_t>(choices.Below(4))]; left > 0; --left) {
        lines += line;
    }
    series.resize(choices.Once(3) ? series.size() : 1);
    for (const Oid oid : series) {
        Require(outlook::test::PlantRule(CoreOf(*store), oid, lines));
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
    const double begun = tavo::test::ProcessorTime(RUSAGE_SELF);
    int days = 0;
    DayNumber day = first;
    for (; day <= last && (day < first + kFewDays || tavo::test::ProcessorTime(RUSAGE_SELF) - begun < 0.5); ++day) {
        days += count(day, day);
    }
    const int month = count(first, day - 1);
    Require(!whole || days == month);
}

void Remind(const StorePtr& store) {
    const Deadline soon("the search for reminders");
    outlook::ReminderFinder finder(CoreOf(*store));
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

std::string Write(const StorePtr& store) {
    const Deadline soon("the export");
    ExportReader reader(store);
    std::string file;
    exchange::CalendarWriter writer(
        reader, "20260503T090000Z", [](std::span<const std::uint8_t>) { return std::string(); },
        [&file](std::string_view piece) {
            file += piece;
            return true;
        });
    std::vector<Oid> oids;
    Require(Succeeded(reader.List(oids)) && writer.Begin());
    for (const Oid oid : oids) {
        Status status = Status::Ok;
        Require(writer.Write(oid, status) && Succeeded(status));
    }
    Require(writer.End());
    return file;
}

void RequireTheSame(const std::string& file, const std::string& copy) {
    if (file != copy) {
        std::fprintf(stderr, "exported:\n%s\nfrom the copy:\n%s\n", file.c_str(), copy.c_str());
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::filesystem::path kFolder = MakeFolder();
    static const bool kGoesAtTheEnd = std::atexit([] { std::filesystem::remove_all(kFolder); }) == 0;
    Require(kGoesAtTheEnd);
    const std::filesystem::path file = kFolder / "Outlook.db";
    const std::filesystem::path other = kFolder / "Other.db";
    for (const char* ending : {"", "-wal", "-shm"}) {
        std::filesystem::remove(file.string() + ending);
    }
    std::filesystem::copy_file(MakeEmptyStore(kFolder), file);
    Choices choices(data, size);
    const std::string text = fuzz::MakeCalendar(choices);
    bool planted = false;
    {
        const StorePtr store = Open(file, "Europe/Berlin");
        Import(store, text);
        planted = Plant(store, choices);
    }
    {
        const char* const zone = choices.Once(3) ? "America/New_York" : "Europe/Berlin";
        const StorePtr store = Open(file, zone);
        List(store);
        Remind(store);
        const std::string written = Write(store);
        if (!planted) {
            for (const char* ending : {"", "-wal", "-shm"}) {
                std::filesystem::remove(other.string() + ending);
            }
            std::filesystem::copy_file(MakeEmptyStore(kFolder), other);
            const StorePtr copy = Open(other, zone);
            Import(copy, written);
            RequireTheSame(written, Write(copy));
        }
    }
    const Deadline soon("the check");
    const Diagnosis diagnosis = DiagnoseStore(posix::SystemMachine(), file, CheckDepth::Full);
    const bool isOrdered = diagnosis.State == Verdict::Ok && diagnosis.Findings.empty();
    Require(isOrdered || (planted && diagnosis.State == Verdict::LeavesOut));
    return 0;
}
