// The calendar written into a file step by step.
#include "host/exchange/calendar_export.h"

#include "host/exchange/short_text.h"
#include "host/locale/failure_text.h"
#include "host/locale/utf.h"

#include <filesystem>

namespace tavo::exchange {
namespace {

constexpr int kWhole = 1000;
constexpr const char* kNotOpen = "the calendar is not open";

} // namespace

// The file that is written.
struct CalendarExport::File {
    File(std::unique_ptr<IItemReader> reader, std::unique_ptr<IByteTarget> target, std::string stamp,
         InkDrawing drawInk)
        : Reader(std::move(reader)), Target(std::move(target)),
          Writer(*Reader, std::move(stamp), std::move(drawInk), [this](std::string_view piece) {
              Written = Target->Write(piece);
              return Written == ErrorCode::Success;
          }) {}

    std::unique_ptr<IItemReader> Reader;
    std::unique_ptr<IByteTarget> Target;
    CalendarWriter Writer;
    ErrorCode Written = ErrorCode::Success;
    std::vector<Oid> Oids;
    std::vector<std::string> Memos;
    exchange::Unsaid Left;
    std::size_t At = 0;
};

CalendarExport::CalendarExport(Means means) : Ways(std::move(means)) {}

CalendarExport::~CalendarExport() = default;

std::optional<std::u16string> CalendarExport::NextFile() {
    Leave();
    if (Chosen.empty()) {
        return std::nullopt;
    }
    const std::string path = std::exchange(Chosen, {});
    ErrorCode problem = ErrorCode::Success;
    std::unique_ptr<IItemReader> reader = Ways.OpenReader();
    std::unique_ptr<IByteTarget> target = reader ? Ways.OpenTarget(path, problem) : nullptr;
    if (target) {
        Current = std::make_unique<File>(std::move(reader), std::move(target), Ways.WriteStamp(), Ways.DrawInk);
        Status status = Current->Reader->List(Current->Oids);
        if (Succeeded(status)) {
            status = Current->Reader->CountUnsaid(Current->Oids, Current->Left);
        }
        if (Ways.Memos != nullptr) {
            Current->Memos = Ways.Memos->List();
            std::erase_if(Current->Memos, [](const std::string& name) { return !FindMemoDay(name); });
            Current->Left.Ink += static_cast<int>(Current->Memos.size());
        }
        if (Failed(status) || !Current->Writer.Begin()) {
            FailWith(status);
        }
    } else {
        Fail(reader ? DescribeWriteFailure(problem) : kNotOpen);
    }
    return ShortenForPeople(std::filesystem::path(path).filename().string(), kLongestName);
}

int CalendarExport::CountItems() const {
    return Current ? static_cast<int>(Current->Oids.size() + Current->Memos.size()) : 0;
}

std::u16string CalendarExport::Unsaid() const {
    return Current ? locale::ToUtf16(Current->Left.Describe()) : std::u16string();
}

bool CalendarExport::ExportOn() {
    if (!Current) {
        return false;
    }
    if (Current->At < Current->Oids.size()) {
        Status status = Status::Ok;
        return Current->Writer.Write(Current->Oids[Current->At++], status) || FailWith(status);
    }
    if (const std::size_t memo = Current->At - Current->Oids.size(); memo < Current->Memos.size()) {
        ++Current->At;
        return WriteMemo(Current->Memos[memo]);
    }
    if (!Current->Writer.End()) {
        return FailWith(Status::Ok);
    }
    Current->Written = Current->Target->Finish();
    return Current->Written != ErrorCode::Success && FailWith(Status::Ok);
}

bool CalendarExport::WriteMemo(const std::string& name) {
    MemoEntry memo{name, {}};
    if (Ways.Memos->Read(name, memo.Ink) != ErrorCode::Success) {
        return Fail("the memo " + name + " cannot be read");
    }
    return Current->Writer.WriteMemo(memo) || FailWith(Status::Ok);
}

void CalendarExport::Leave() {
    Current.reset();
    Reason.clear();
}

bool CalendarExport::Fail(std::string reason) {
    Current.reset();
    Reason = std::move(reason);
    return false;
}

bool CalendarExport::FailWith(Status status) {
    return Fail(Failed(status) ? locale::DescribeFailure(status) : DescribeWriteFailure(Current->Written));
}

int CalendarExport::Progress() const {
    const auto all = static_cast<std::size_t>(CountItems());
    return all == 0 ? 0 : static_cast<int>(Current->At * kWhole / all);
}

std::u16string CalendarExport::Problem() const {
    return locale::ToUtf16(Reason);
}

} // namespace tavo::exchange
