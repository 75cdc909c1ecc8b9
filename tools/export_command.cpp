// tavo export: writes the calendar, or parts of it, as one iCalendar file.
#include "host/exchange/calendar_lines.h"
#include "host/exchange/calendar_writer.h"
#include "host/exchange/export_words.h"
#include "host/ink/ink_drawing.h"
#include "host/locale/harmless_text.h"
#include "host/outlook/export_reader.h"
#include "host/outlook/occurrence_reader.h"
#include "host/posix/file_target.h"
#include "host/posix/memo_folder.h"
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/interruption.h"
#include "tools/output.h"
#include "tools/progress_bar.h"
#include "tools/store_days.h"

#include <algorithm>
#include <chrono>
#include <set>
#include <string>
#include <vector>

namespace tavo::tools {
namespace {

using outlook::ExportReader;

constexpr const char* kInterrupted = "tavo: Interrupted.\n";
constexpr const char* kOldFileStays = "tavo: Interrupted. The file is as it was before.\n";

// Where the pieces go: standard output, or a file that is replaced at the end.
class Destination {
  public:
    explicit Destination(const std::string& path) : Path(path) {}

    bool Begin() { return Path.empty() || Keep(File.Open(Path)); }

    bool Write(std::string_view piece) {
        if (Path.empty()) {
            Screen.Write(piece);
            return true;
        }
        return Keep(File.Write(piece));
    }

    bool Finish() { return Path.empty() ? Screen.Finish() : Keep(File.Finish()); }

    // False after a failure of the file, which is told here.
    bool TellFailure() const {
        if (Problem != ErrorCode::Success) {
            Complain(locale::MakeHarmless(Path) + " cannot be written: " + exchange::DescribeWriteFailure(Problem) +
                     ". What was there before is as it was.");
        }
        return Problem == ErrorCode::Success;
    }

  private:
    bool Keep(ErrorCode error) {
        Problem = error;
        return error == ErrorCode::Success;
    }

    std::string Path;
    posix::FileTarget File;
    Output Screen;
    ErrorCode Problem = ErrorCode::Success;
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

bool ComplainAboutStore(Status status) {
    if (Failed(status)) {
        Complain("The calendar cannot be read: " + DescribeFailure(status) + ".");
    }
    return Succeeded(status);
}

// The memos of the days that are asked for; whoever asks for kinds or items means no memos.
std::vector<std::string> ChooseMemos(posix::MemoFolder& folder, const ExportOptions& options) {
    std::vector<std::string> names;
    if (options.Kind || !options.Items.empty()) {
        return names;
    }
    for (const std::string& name : folder.List()) {
        const std::optional<rules::DayNumber> day = exchange::FindMemoDay(name);
        if (day && (!options.From || *day >= NumberOf(*options.From)) &&
            (!options.To || *day <= NumberOf(*options.To))) {
            names.push_back(name);
        }
    }
    return names;
}

int Export(const files::DeviceRoot& root, const outlook::StorePtr& store, const ExportOptions& options) {
    posix::MemoFolder folder(root);
    const std::vector<std::string> memos = ChooseMemos(folder, options);
    bool isWhole = true;
    ExportReader reader(store);
    std::vector<Oid> oids;
    exchange::Unsaid unsaid;
    if (!ComplainAboutStore(reader.HoldMoment()) || !ComplainAboutStore(Choice(store, options).Make(reader, oids)) ||
        !ComplainAboutStore(reader.CountUnsaid(oids, unsaid))) {
        return kExitFailure;
    }
    unsaid.Ink += static_cast<int>(memos.size());
    if (const std::string words = unsaid.Describe(); !words.empty()) {
        Complain(words);
    }
    Destination destination(options.File);
    exchange::CalendarWriter writer(
        reader, exchange::WriteMoment(std::chrono::system_clock::now()),
        [](std::span<const std::uint8_t> ink) { return ink::DrawAsSvg(ink); },
        [&destination](std::string_view piece) { return destination.Write(piece); });
    ProgressBar bar;
    Status status = Status::Ok;
    bool goesOn = destination.Begin() && writer.Begin();
    for (std::size_t index = 0; goesOn && index < oids.size() && !WasInterrupted(); ++index) {
        goesOn = writer.Write(oids[index], status);
        bar.Show(static_cast<std::int64_t>(index), static_cast<std::int64_t>(oids.size()), "export");
    }
    for (std::size_t index = 0; goesOn && index < memos.size() && !WasInterrupted(); ++index) {
        exchange::MemoEntry memo{memos[index], {}};
        if (folder.Read(memo.Name, memo.Ink) == ErrorCode::Success) {
            goesOn = writer.WriteMemo(memo);
        } else {
            Complain("The memo " + locale::MakeHarmless(memo.Name) + " cannot be read and was left out.");
            isWhole = false;
        }
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
    return isWhole ? kExitSuccess : kExitFailure;
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
    return Export(*root, store, options);
}

} // namespace tavo::tools
