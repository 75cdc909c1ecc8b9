// Drafts lie in the folder of what is recovered, beside the ink.
#include "edit/draft_file.h"

#include "framework/format.h"
#include "store/declined_files.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

namespace tavo {

namespace {

constexpr std::u16string_view kPattern = u"\\Recovery\\*.draft";
constexpr int kMostNames = 100; // of one second

} // namespace

std::u16string DraftFile::FreePath() const {
    const SYSTEMTIME now = Host.Clock().GetLocalTime();
    std::u16string path;
    for (int number = 1; number <= kMostNames; ++number) {
        path = FormatText(u"%s\\%04d%02d%02d_%02d%02d%02d_%d.draft", kRecoveryFolder, now.Year, now.Month, now.Day,
                          now.Hour, now.Minute, now.Second, number);
        if (Host.Files().FindFirstFileW(path) == nullptr) {
            break;
        }
    }
    return path;
}

void DraftFile::Write(const AppointmentDraft& draft) {
    std::vector<std::uint8_t> bytes = EncodeDraft(draft);
    if (bytes == Written) {
        return;
    }
    if (Path.empty()) {
        static_cast<void>(
            Host.Files().CreateDirectoryW(kRecoveryFolder)); // what is wrong with it shows when it is written to
        Path = FreePath();
    }
    if (Host.Files().WriteWholeFile(Path, bytes) == ErrorCode::Success) {
        Written = std::move(bytes);
    }
}

void DraftFile::Remove() {
    if (!Path.empty()) {
        static_cast<void>(Host.Files().DeleteFileW(Path)); // one that stays is offered once too often
        Path.clear();
        Written.clear();
    }
}

std::vector<FoundDraft> FindDrafts(IHost& host) {
    std::vector<std::u16string> names;
    const std::unique_ptr<IFileSearch> search = host.Files().FindFirstFileW(kPattern);
    for (bool found = search != nullptr; found; found = search->FindNextFileW()) {
        names.push_back(search->FileName());
    }
    std::sort(names.begin(), names.end()); // they begin with their moment
    std::vector<FoundDraft> drafts;
    for (const std::u16string& name : names) {
        const std::u16string path = FormatText(u"%s\\%s", kRecoveryFolder, name);
        std::vector<std::uint8_t> bytes;
        if (host.Files().ReadWholeFile(path, bytes) != ErrorCode::Success) {
            continue;
        }
        if (std::optional<AppointmentDraft> draft = DecodeDraft(bytes)) {
            drafts.push_back({path, std::move(*draft)});
        } else {
            DeclineDraft(host, path);
        }
    }
    return drafts;
}

void DeclineDraft(IHost& host, const std::u16string& path) {
    PutToDeclined(host.Files(), path);
}

} // namespace tavo
