// tavo import: brings calendar files into the store, each whole or not at all.
#include "host/exchange/calendar_file.h"
#include "host/exchange/import_words.h"
#include "host/exchange/sink_queue.h"
#include "host/exchange/store_sink.h"
#include "host/locale/harmless_text.h"
#include "host/outlook/import_writer.h"
#include "host/posix/file_source.h"
#include "host/posix/memo_folder.h"
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/import_files.h"
#include "tools/interruption.h"
#include "tools/output.h"
#include "tools/progress_bar.h"
#include "tools/tag_file.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace tavo::tools {
namespace {

using exchange::CountOf;
using exchange::FileFault;
using exchange::FileOutcome;
using exchange::ImportCounts;
using exchange::Remark;
using exchange::StoreSink;
using outlook::ImportWriter;

// What is true when the process is ended at once.
constexpr const char* kNothingOfThisFile =
    "tavo: Interrupted. Nothing of the file that was being read was imported; what was imported before it"
    " stays.\n";
constexpr const char* kWholeOrNot = "tavo: Interrupted while a file was being written: it is in whole or not at all; to"
                                    " import it again does no harm.\n";
constexpr const char* kAllFilesWereRead = "tavo: Interrupted after all files had been read.\n";

std::optional<TagList> ChooseList(ImportTag tag) {
    switch (tag) {
    case ImportTag::Alarm:
        return TagList::Alarm;
    case ImportTag::Holiday:
        return TagList::Holiday;
    case ImportTag::Anniversary:
        return TagList::Anniversary;
    case ImportTag::None:
        break;
    }
    return std::nullopt;
}

void ComplainAbout(const std::string& path, int line, const std::string& reason) {
    const std::string place = line > 0 ? path + ':' + std::to_string(line) : path;
    std::fprintf(stderr, "%s\n", locale::MakeHarmless(place + ": " + reason).c_str());
}

// The import of all files of one command.
class Import {
  public:
    Import(const files::DeviceRoot& root, outlook::StorePtr store, const ImportOptions& options)
        : Memos(root), Store(std::move(store)), Tag(ChooseList(options.Tag)),
          Manner(options.Strict ? exchange::Manner::Strict : exchange::Manner::Lenient) {}

    void Run(const std::vector<ImportFile>& files) {
        for (const ImportFile& file : files) {
            TotalBytes += file.Size;
        }
        for (const ImportFile& file : files) {
            SetLastWords(kNothingOfThisFile);
            ImportOne(file);
            ++FilesDone;
            if (WasInterrupted() || Failed(StoreStatus)) {
                break;
            }
            DoneBytes += file.Size;
        }
        Bar.Clear();
        if (FilesDone == files.size() && !WasStopped && Succeeded(StoreStatus)) {
            SetLastWords(kAllFilesWereRead);
        }
    }

    // What an interruption left undone, as a sentence.
    std::string DescribeInterruption(std::size_t files) const {
        if (WasStopped) {
            return "Interrupted. Nothing of the file that was being read was imported.";
        }
        const std::size_t left = files - FilesDone;
        return left == 0 ? "Interrupted, but all files had been read already."
                         : "Interrupted. " + CountOf(static_cast<int>(left), "file was", "files were") +
                               " not read; nothing of that was imported.";
    }

    int GetBrokenFiles() const { return BrokenFiles; }

    int GetGoodFiles() const { return GoodFiles; }

    const ImportCounts& GetCounts() const { return Counts; }

    Status GetStoreStatus() const { return StoreStatus; }

  private:
    void ImportOne(const ImportFile& file) {
        posix::FileSource source;
        std::string reason;
        const bool isOpen =
            file.IsStandardInput ? source.OpenCopy(STDIN_FILENO, reason) : source.Open(file.Path, reason);
        if (!isOpen) {
            Refuse(file.Path, {0, reason});
            return;
        }
        ImportWriter writer(Store);
        StoreStatus = writer.Begin(exchange::NameImport(file.Path));
        if (Failed(StoreStatus)) {
            return;
        }
        StoreSink sink(writer, Tag, [this, &file](std::int64_t offset) {
            Bar.Show(DoneBytes + offset, TotalBytes, file.Path);
            return !WasInterrupted();
        });
        exchange::SinkQueue queue(sink);
        exchange::CalendarFileReader reader(source, queue, Manner);
        FileFault fault;
        switch (queue.Run([&reader, &fault] { return exchange::ReadCalendarFile(reader, fault); })) {
        case FileOutcome::Broken:
            TakeBack(writer);
            Refuse(file.Path, fault);
            return;
        case FileOutcome::Stopped:
            StoreStatus = sink.GetStoreStatus();
            WasStopped = true;
            TakeBack(writer);
            return;
        case FileOutcome::Read:
            break;
        }
        if (WasInterrupted()) {
            WasStopped = true;
            TakeBack(writer);
            return;
        }
        SetLastWords(kWholeOrNot);
        StoreStatus = Failed(sink.GetStoreStatus()) ? sink.GetStoreStatus() : writer.Commit();
        if (Succeeded(StoreStatus)) {
            for (const exchange::PiecePlace& memo : reader.GetMemos()) {
                sink.TakeMemo(reader, memo, Memos);
            }
            Accept(file, sink);
        }
    }

    // The file's transaction ends without a trace; should even that fail, the store itself drops it on closing.
    static void TakeBack(ImportWriter& writer) { static_cast<void>(writer.Abandon()); }

    void Accept(const ImportFile& file, const StoreSink& sink) {
        ++GoodFiles;
        Counts.Add(sink.GetCounts());
        if (!sink.GetRemarks().empty()) {
            Bar.Clear();
        }
        for (const Remark& remark : sink.GetRemarks()) {
            const char* const what = remark.What == Remark::Kind::Refused  ? "refused: "
                                     : remark.What == Remark::Kind::Mended ? "mended: "
                                                                           : "passed over: ";
            ComplainAbout(file.Path, remark.Line, what + remark.Text);
        }
        TellOfMore(file.Path, sink.GetCounts().Refused, "refused");
        TellOfMore(file.Path, sink.GetCounts().Mended, "mended");
        TellOfMore(file.Path, sink.GetCounts().OlderVersions, "passed over");
    }

    static void TellOfMore(const std::string& path, int count, const char* what) {
        if (count > exchange::kMostRemarks) {
            ComplainAbout(path, 0, std::to_string(count - exchange::kMostRemarks) + " more were " + what);
        }
    }

    void Refuse(const std::string& path, const FileFault& fault) {
        ++BrokenFiles;
        Bar.Clear();
        ComplainAbout(path, fault.Line, fault.Reason + "; nothing of this file was imported");
    }

    posix::MemoFolder Memos;
    outlook::StorePtr Store;
    std::optional<TagList> Tag;
    exchange::Manner Manner;
    ProgressBar Bar;
    std::int64_t TotalBytes = 0;
    std::int64_t DoneBytes = 0;
    std::size_t FilesDone = 0;
    bool WasStopped = false;
    int GoodFiles = 0;
    int BrokenFiles = 0;
    ImportCounts Counts;
    Status StoreStatus = Status::Ok;
};

std::string Summarise(const Import& import, std::size_t files) {
    const ImportCounts& counts = import.GetCounts();
    std::string text = exchange::DescribeCounts(counts);
    if (files != 1) {
        text += " in " + CountOf(import.GetGoodFiles(), "file", "files");
    }
    text += ".\n";
    if (const std::string passed = exchange::DescribePassedOver(counts); !passed.empty()) {
        text += passed + "\n";
    }
    if (import.GetBrokenFiles() > 0) {
        text += CountOf(import.GetBrokenFiles(), "file", "files") + " could not be imported.\n";
    }
    return text;
}

} // namespace

int RunImport(const ImportOptions& options) {
    std::vector<ImportFile> files;
    std::vector<PathProblem> problems;
    CollectFiles(options.Paths, files, problems);
    for (const PathProblem& problem : problems) {
        ComplainAbout(problem.Path, 0, problem.Reason);
    }
    const std::optional<files::DeviceRoot> root = FindRoot();
    outlook::StorePtr store;
    if (!root || OpenStore(*root, outlook::Access::ReadWrite, store) != Opening::Good) {
        return kExitFailure;
    }
    WatchForInterruption();
    Import import(*root, store, options);
    import.Run(files);
    Output output;
    output.Write(Summarise(import, files.size()));
    const bool isAllThere =
        std::none_of(problems.begin(), problems.end(), [](const PathProblem& problem) { return problem.IsAskedFor; });
    bool good = isAllThere && import.GetBrokenFiles() == 0 && import.GetCounts().Refused == 0;
    if (Failed(import.GetStoreStatus())) {
        Complain("The import stopped: " + DescribeFailure(import.GetStoreStatus()) +
                 ". Nothing of the file that was being read was imported.");
        good = false;
    }
    if (options.Tag != ImportTag::None || import.GetCounts().Tagged > 0) {
        good = WriteTags(*root, store) && good;
    }
    if (WasInterrupted()) {
        Complain(import.DescribeInterruption(files.size()));
        return kExitInterrupted;
    }
    return output.Finish() && good ? kExitSuccess : kExitFailure;
}

} // namespace tavo::tools
