// tavo backup and tavo restore-backup: everything in one file, and back.
#include "host/backup/device_backup.h"
#include "host/backup/kept_backups.h"
#include "host/exchange/import_words.h"
#include "host/locale/harmless_text.h"
#include "host/outlook/import_writer.h"
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/interruption.h"
#include "tools/output.h"
#include "tools/progress_bar.h"
#include "tools/tag_file.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace tavo::tools {
namespace {

using exchange::CountOf;
using locale::MakeHarmless;

constexpr const char* kOldFileStays = "tavo: Interrupted. The file is as it was before.\n";
constexpr int kWhole = 1000;

std::string Describe(const outlook::BackupContents& contents) {
    const auto memos = std::count_if(contents.Files.begin(), contents.Files.end(), [](const outlook::KeptFile& file) {
        return file.Name.ends_with(".pwi") && file.Name.find("/Deleted/") == std::string::npos;
    });
    return CountOf(contents.Items, "entry", "entries") + " and " + CountOf(static_cast<int>(memos), "memo", "memos");
}

int ListKeptBackups(const files::DeviceRoot& root) {
    Output output;
    for (const std::string& name : backup::ListBackups(root)) {
        output.Write(MakeHarmless(backup::BackupFolder(root) + "/" + name) + "\n");
    }
    return output.Finish() ? kExitSuccess : kExitFailure;
}

// The lists of the kinds as the backup has them; asked of the program, whose they are.
bool RestoreTags(const files::DeviceRoot& root, const outlook::BackupContents& contents) {
    outlook::StorePtr store;
    if (OpenStore(root, outlook::Access::ReadWrite, store) != Opening::Good) {
        return false;
    }
    const std::set<std::pair<TagList, Oid>> wanted(contents.Tags.begin(), contents.Tags.end());
    outlook::ImportWriter writer(store);
    Status status = writer.Begin(u"Restore of the kinds");
    std::vector<std::pair<TagList, Oid>> now;
    status = Succeeded(status) ? outlook::ListTags(store, now) : status;
    for (const auto& [list, oid] : now) {
        if (Succeeded(status) && !wanted.contains({list, oid})) {
            status = writer.RequestTag(list, oid, outlook::TagWish::Leave);
        }
    }
    for (const auto& [list, oid] : contents.Tags) {
        status = Succeeded(status) ? writer.RequestTag(list, oid, outlook::TagWish::Join) : status;
    }
    status = Succeeded(status) ? writer.Commit() : status;
    if (Failed(status)) {
        Complain("The kinds cannot be restored: " + DescribeFailure(status) + ".");
        return false;
    }
    return WriteTags(root, store);
}

} // namespace

int RunBackup(const BackupOptions& options) {
    const std::optional<files::DeviceRoot> root = FindRoot();
    if (!root) {
        return kExitFailure;
    }
    if (options.List) {
        return ListKeptBackups(*root);
    }
    outlook::StorePtr store; // brings one of before forward, and makes one that is missing
    if (OpenStore(*root, outlook::Access::ReadWrite, store) != Opening::Good) {
        return kExitFailure;
    }
    WatchForInterruption();
    SetLastWords(kOldFileStays);
    ProgressBar bar;
    outlook::BackupContents contents;
    std::string problem;
    const bool isMade = backup::BackUp(
        *root, options.File,
        [&bar](int done) {
            bar.Show(done, kWhole, "backup");
            return !WasInterrupted();
        },
        contents, problem);
    bar.Clear();
    if (WasInterrupted() && !isMade) {
        Complain("Interrupted. The file is as it was before.");
        return kExitInterrupted;
    }
    if (!isMade) {
        Complain(MakeHarmless(options.File) + " cannot be made: " + MakeHarmless(problem) +
                 ". What was there before is as it was.");
        return kExitFailure;
    }
    Output output;
    output.Write(MakeHarmless(options.File) + " holds " + Describe(contents) + ".\n");
    return output.Finish() ? kExitSuccess : kExitFailure;
}

int RunRestore(const BackupOptions& options) {
    const std::optional<files::DeviceRoot> root = FindRoot();
    outlook::StorePtr store;
    if (!root || OpenStore(*root, outlook::Access::ReadWrite, store) != Opening::Good) {
        return kExitFailure;
    }
    store.reset();
    backup::Restored restored;
    std::string problem;
    if (!backup::Restore(*root, options.File, restored, problem)) {
        Complain(MakeHarmless(options.File) + " cannot be restored: " + MakeHarmless(problem) + ".");
        return kExitFailure;
    }
    const bool good = RestoreTags(*root, restored.Contents);
    Output output;
    output.Write("Restored: " + Describe(restored.Contents) + ".\n");
    if (!restored.HasSettings) {
        output.Write("The calendar that is open keeps its settings.\n");
    }
    output.Write("What was there before is in " + MakeHarmless(restored.Before) +
                 "; `tavo restore-backup` of that takes this back.\n");
    return output.Finish() && good ? kExitSuccess : kExitFailure;
}

} // namespace tavo::tools
