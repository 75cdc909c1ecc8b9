// Opens, surveys and imports one file after the other.
#include "host/exchange/calendar_import.h"

#include "host/exchange/calendar_file.h"
#include "host/exchange/import_words.h"
#include "host/exchange/short_text.h"
#include "host/exchange/store_sink.h"
#include "host/locale/failure_text.h"
#include "host/locale/utf.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>

namespace tavo::exchange {
namespace {

constexpr int kWhole = 1000;
// More than these are too much for a small screen.
constexpr std::size_t kNamedRemarks = 2;
constexpr std::size_t kLongestRemark = 64;
constexpr std::size_t kLongestReason = 120;

std::string DescribePlace(int line, const std::string& text) {
    return (line > 0 ? "Line " + std::to_string(line) + ": " : std::string()) + text;
}

std::string DescribeFault(const FileFault& fault) {
    return DescribePlace(fault.Line, fault.Reason);
}

} // namespace

// The file that is worked on.
struct CalendarImport::File {
    File(std::string path, std::unique_ptr<IByteSource> source, std::unique_ptr<IItemWriter> writer)
        : Path(std::move(path)), Source(std::move(source)), Writer(std::move(writer)),
          Sink(*Writer, std::nullopt, [](std::int64_t) { return true; }), Reader(*Source, Sink, Manner::Lenient) {}

    std::string Path;
    std::unique_ptr<IByteSource> Source;
    std::unique_ptr<IItemWriter> Writer; // takes back what was not committed
    StoreSink Sink;
    CalendarFileReader Reader;
    bool HasBegun = false; // to write
    bool IsCommitted = false;
    std::size_t MemosDone = 0;
};

CalendarImport::CalendarImport(OpenWriter openWriter, OpenFile openFile, IMemoFolder* memos)
    : NewWriter(std::move(openWriter)), NewSource(std::move(openFile)), Memos(memos) {}

CalendarImport::~CalendarImport() = default;

void CalendarImport::Add(const std::vector<std::string>& paths) {
    Waiting.insert(Waiting.end(), paths.begin(), paths.end());
}

std::optional<std::u16string> CalendarImport::NextFile() {
    Leave();
    if (Waiting.empty()) {
        return std::nullopt;
    }
    const std::string path = std::move(Waiting.front());
    Waiting.pop_front();
    std::string fault;
    std::unique_ptr<IItemWriter> writer = NewWriter();
    std::unique_ptr<IByteSource> source = writer ? NewSource(path, fault) : nullptr;
    if (source) {
        Current = std::make_unique<File>(path, std::move(source), std::move(writer));
    } else {
        Fail(writer ? fault : "the calendar is not open");
    }
    return ShortenForPeople(std::filesystem::path(path).filename().string(), kLongestName);
}

bool CalendarImport::LookOn() {
    if (!Current) {
        return false;
    }
    switch (Current->Reader.SurveyNext()) {
    case ReadStep::More:
        return true;
    case ReadStep::Broken:
        return Fail(DescribeFault(Current->Reader.GetFault()));
    default:
        return false;
    }
}

int CalendarImport::CountEntries() const {
    return Current ? Current->Reader.CountEntries() : 0;
}

bool CalendarImport::ImportOn() {
    if (!Current) {
        return false;
    }
    if (Current->IsCommitted) {
        return TakeMemo();
    }
    if (!Current->HasBegun) {
        if (const Status status = Current->Writer->Begin(NameImport(Current->Path)); Failed(status)) {
            return FailAs(status);
        }
        Current->HasBegun = true;
    }
    switch (Current->Reader.ReadNext()) {
    case ReadStep::More:
        return true;
    case ReadStep::Broken:
        return Fail(DescribeFault(Current->Reader.GetFault()));
    case ReadStep::Stopped:
        return FailAs(Current->Sink.GetStoreStatus());
    case ReadStep::Done:
        break;
    }
    return Commit();
}

bool CalendarImport::Commit() {
    const Status written = Current->Sink.GetStoreStatus();
    const Status status = Failed(written) ? written : Current->Writer->Commit();
    if (Failed(status)) {
        return FailAs(status);
    }
    Current->IsCommitted = true;
    return Memos != nullptr && !Current->Reader.GetMemos().empty();
}

// They lie in no store; each is there or not.
bool CalendarImport::TakeMemo() {
    const std::vector<PiecePlace>& memos = Current->Reader.GetMemos();
    Current->Sink.TakeMemo(Current->Reader, memos[Current->MemosDone], *Memos);
    return ++Current->MemosDone < memos.size();
}

void CalendarImport::Leave() {
    Current.reset();
    Reason.clear();
}

bool CalendarImport::Fail(const std::string& reason) {
    Current.reset();
    Reason = reason;
    return false;
}

bool CalendarImport::FailAs(Status status) {
    return Fail(locale::DescribeFailure(status));
}

int CalendarImport::Progress() const {
    const std::int64_t size = Current ? Current->Source->GetSize() : 0;
    return size <= 0 ? 0 : static_cast<int>(std::min(Current->Reader.GetOffset(), size) * kWhole / size);
}

std::u16string CalendarImport::Problem() const {
    return ShortenForPeople(Reason, kLongestReason);
}

std::u16string CalendarImport::Outcome() const {
    if (!Current) {
        return {};
    }
    const ImportCounts& counts = Current->Sink.GetCounts();
    std::u16string text = locale::ToUtf16(DescribeCounts(counts) + ".");
    if (const std::string passed = DescribePassedOver(counts); !passed.empty()) {
        text += u"\n" + locale::ToUtf16(passed);
    }
    // What was refused is not there, so it comes first. Of what was passed over the count says enough.
    std::vector<Remark> remarks = Current->Sink.GetRemarks();
    std::erase_if(remarks, [](const Remark& remark) { return remark.What == Remark::Kind::PassedOver; });
    std::stable_partition(remarks.begin(), remarks.end(),
                          [](const Remark& remark) { return remark.What == Remark::Kind::Refused; });
    const std::size_t named = std::min(remarks.size(), kNamedRemarks);
    for (std::size_t index = 0; index < named; ++index) {
        text += u"\n" + ShortenForPeople(DescribePlace(remarks[index].Line, remarks[index].Text) + ".", kLongestRemark);
    }
    if (remarks.size() > named) {
        text += u"\nThe command `tavo import` names them all.";
    }
    return text;
}

} // namespace tavo::exchange
