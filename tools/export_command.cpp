// tavo export: writes the calendar, or parts of it, as one iCalendar file.
#include "host/exchange/calendar_lines.h"
#include "host/exchange/calendar_writer.h"
#include "host/exchange/import_words.h"
#include "host/ink/ink_drawing.h"
#include "host/locale/harmless_text.h"
#include "host/outlook/export_reader.h"
#include "host/outlook/occurrence_reader.h"
#include "host/posix/replace_file.h"
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/interruption.h"
#include "tools/output.h"
#include "tools/progress_bar.h"

#include <algorithm>
#include <chrono>
#include <set>
#include <string>
#include <vector>

namespace tavo::tools {
namespace {

using exchange::CountOf;
using outlook::ExportReader;

constexpr const char* kInterrupted = "tavo: Interrupted.\n";
constexpr const char* kOldFileStays = "tavo: Interrupted. The file is as it was before.\n";

rules::DayNumber NumberOf(Day day) {
    return day.time_since_epoch().count() + rules::kUnixEpochDay;
}

std::string WriteStamp() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const rules::Seconds seconds =
        std::chrono::duration_cast<std::chrono::seconds>(now).count() + rules::kUnixEpochDay * rules::kSecondsPerDay;
    return exchange::WriteDateTime(seconds) + "Z";
}

// The end of a sentence.
const char* DescribeProblem(ErrorCode problem) {
    switch (problem) {
    case ErrorCode::DiskFull:
        return "the disk is full";
    case ErrorCode::FileNotFound:
    case ErrorCode::PathNotFound:
        return "there is no such folder";
    case ErrorCode::AccessDenied:
        return "it is no file, or may not be written";
    case ErrorCode::WriteProtected:
        return "the disk can only be read";
    case ErrorCode::InvalidName:
        return "its name is not allowed";
    default:
        return "the device does not work";
    }
}

// Where the pieces go: standard output, or a file that is replaced at the end.
class Destination {
  public:
    explicit Destination(const std::string& path) : Path(path) {}

    bool Begin() { return Path.empty() || Keep(File.Begin(Path)); }

    bool Write(std::string_view piece) {
        if (Path.empty()) {
            Screen.Write(piece);
            return true;
        }
        Waiting += piece;
        return Waiting.size() < kPieceSize || Flush();
    }

    bool Finish() { return Path.empty() ? Screen.Finish() : Flush() && Keep(File.Finish()); }

    // False after a failure of the file, which is told here.
    bool TellFailure() const {
        if (Problem != ErrorCode::Success) {
            Complain(locale::MakeHarmless(Path) + " cannot be written: " + DescribeProblem(Problem) +
                     ". What was there before is as it was.");
        }
        return Problem == ErrorCode::Success;
    }

  private:
    static constexpr std::size_t kPieceSize = std::size_t{256} * 1024;

    bool Keep(ErrorCode error) {
        Problem = error;
        return error == ErrorCode::Success;
    }

    bool Flush() {
        const bool isWritten =
            Keep(File.Write({reinterpret_cast<const std::uint8_t*>(Waiting.data()), Waiting.size()}));
        Waiting.clear();
        return isWritten;
    }

    std::string Path;
    posix::FileReplacement File;
    Output Screen;
    std::string Waiting;
    ErrorCode Problem = ErrorCode::Success;
};

// What others do not understand of what was written.
struct Unsaid {
    int Kinds = 0;
    int Sounds = 0;
    int Ink = 0;

    void Count(const exchange::ExportItem& item) {
        Kinds += item.Kinds.empty() ? 0 : 1;
        Sounds += item.Item.ReminderSound.empty() ? 0 : 1;
        Ink += item.Item.Ink.empty() ? 0 : 1;
    }

    // One sentence; "" when all was said.
    std::string Describe() const {
        std::string text;
        const auto add = [&text](int count, const char* one, const char* several) {
            if (count > 0) {
                text += (text.empty() ? "" : ", ") + CountOf(count, one, several);
            }
        };
        add(Kinds, "kind (seen as a category)", "kinds (seen as categories)");
        add(Sounds, "sound", "sounds");
        add(Ink, "note of ink (seen as a picture)", "notes of ink (seen as pictures)");
        return text.empty() ? "" : "Other calendars will not understand: " + text + ".";
    }
};

// The items that the options ask for, in the order of their numbers.
class Choice {
  public:
    Choice(const outlook::StorePtr& store, const ExportOptions& options) : Store(store), Options(options) {}

    Status Make(ExportReader& reader, std::vector<Oid>& oids) {
        std::vector<Oid> all;
        Status status = reader.List(all);
        std::set<Oid> inSpan;
        if (Succeeded(status) && (Options.From || Options.To)) {
            const rules::DayNumber first = Options.From ? NumberOf(*Options.From) : rules::kFirstStoredDay;
            const rules::DayNumber last = Options.To ? NumberOf(*Options.To) : rules::kLastStoredDay;
            status = outlook::OccurrenceReader(Store).ListDays(
                first, last, [&inSpan](const outlook::ListedOccurrence& one) { inSpan.insert(one.Item); });
        }
        const std::set<Oid> named(Options.Items.begin(), Options.Items.end());
        for (const Oid oid : all) {
            const bool isAsked =
                (named.empty() || named.contains(oid)) && ((!Options.From && !Options.To) || inSpan.contains(oid));
            if (isAsked && Succeeded(status) && IsOfKind(reader, oid, status)) {
                oids.push_back(oid);
            }
        }
        return status;
    }

  private:
    bool IsOfKind(ExportReader& reader, Oid oid, Status& status) const {
        if (!Options.Kind) {
            return true;
        }
        std::vector<TagList> kinds;
        status = reader.ReadKinds(oid, kinds);
        return *Options.Kind == ExportKind::Appointment
                   ? kinds.empty()
                   : std::find(kinds.begin(), kinds.end(), static_cast<TagList>(*Options.Kind)) != kinds.end();
    }

    const outlook::StorePtr& Store;
    const ExportOptions& Options;
};

// Reads for the writer, and counts on the way.
class CountingReader final : public exchange::IItemReader {
  public:
    explicit CountingReader(ExportReader& reader) : Reader(reader) {}

    Status Read(Oid oid, exchange::ExportItem& item) override {
        const Status status = Reader.Read(oid, item);
        if (Succeeded(status)) {
            Left.Count(item);
        }
        return status;
    }

    exchange::ExportZone ReadZone(const std::string& name) override { return Reader.ReadZone(name); }

    std::string NameItem(Oid oid) const override { return Reader.NameItem(oid); }

    const Unsaid& GetUnsaid() const { return Left; }

  private:
    ExportReader& Reader;
    Unsaid Left;
};

bool ComplainAboutStore(Status status) {
    if (Failed(status)) {
        Complain("The calendar cannot be read: " + DescribeFailure(status) + ".");
    }
    return Succeeded(status);
}

int Export(const outlook::StorePtr& store, const ExportOptions& options) {
    ExportReader reader(store);
    std::vector<Oid> oids;
    if (!ComplainAboutStore(Choice(store, options).Make(reader, oids))) {
        return kExitFailure;
    }
    CountingReader counting(reader);
    Destination destination(options.File);
    exchange::CalendarWriter writer(
        counting, WriteStamp(), [](std::span<const std::uint8_t> ink) { return ink::DrawAsSvg(ink); },
        [&destination](std::string_view piece) { return destination.Write(piece); });
    ProgressBar bar;
    Status status = Status::Ok;
    bool goesOn = destination.Begin() && writer.Begin();
    for (std::size_t index = 0; goesOn && index < oids.size() && !WasInterrupted(); ++index) {
        goesOn = writer.Write(oids[index], status);
        bar.Show(static_cast<std::int64_t>(index), static_cast<std::int64_t>(oids.size()), "export");
    }
    bar.Clear();
    if (WasInterrupted()) {
        Complain(options.File.empty() ? "Interrupted." : "Interrupted. The file is as it was before.");
        return kExitInterrupted;
    }
    const bool isWritten = goesOn && writer.End() && destination.Finish();
    if (!ComplainAboutStore(status) || !destination.TellFailure() || !isWritten) {
        return kExitFailure;
    }
    if (const std::string unsaid = counting.GetUnsaid().Describe(); !unsaid.empty()) {
        Complain(unsaid);
    }
    return kExitSuccess;
}

} // namespace

int RunExport(const ExportOptions& options) {
    const std::optional<files::DeviceRoot> root = FindRoot();
    outlook::StorePtr store;
    // For writing, so that a store of before is brought forward and has a name for its items.
    if (!root || OpenStore(*root, outlook::Access::ReadWrite, store) != Opening::Good) {
        return kExitFailure;
    }
    WatchForInterruption();
    SetLastWords(options.File.empty() ? kInterrupted : kOldFileStays);
    return Export(store, options);
}

} // namespace tavo::tools
