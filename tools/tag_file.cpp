// Carries tags that were asked for into TavoCalendar.dat while no program is there to do it.
#include "tools/tag_file.h"

#include "host/files/device_files.h"
#include "host/posix/instance_lock.h"
#include "host/posix/posix_disk.h"
#include "platform/device_paths.h"
#include "store/category_codec.h"
#include "tools/device.h"

#include <algorithm>
#include <span>
#include <string>
#include <unordered_set>
#include <vector>

namespace tavo::tools {
namespace {

constexpr std::chrono::milliseconds kPatience{5000};
constexpr std::string_view kKept = " The tags are remembered and set when Tavo Calendar starts the next time.";

std::u16string FindFile(files::DeviceFiles& files) {
    const ErrorCode made = files.CreateDirectoryW(kDataFolder);
    const bool usable = made == ErrorCode::Success || made == ErrorCode::AlreadyExists;
    // Where it is not, the program goes to the folder above.
    return (std::u16string(usable ? kDataFolder : kDocumentsFolder) + u"\\").append(kCategoryFileName);
}

// An absent file is one with empty lists.
bool ReadLists(files::DeviceFiles& files, const std::u16string& path, CategoryFileLists& lists) {
    std::vector<std::uint8_t> bytes;
    const ErrorCode read = files.ReadWholeFile(path, bytes);
    if (read == ErrorCode::FileNotFound || read == ErrorCode::PathNotFound) {
        return true;
    }
    return read == ErrorCode::Success && DecodeCategoryFile(bytes, lists);
}

// One list with the OIDs in it known, for thousands of requests.
class TagSet {
  public:
    explicit TagSet(std::vector<Oid>& list) : List(list), Known(list.begin(), list.end()) {}

    void Apply(const TagRequest& request) {
        if (request.Set && Known.insert(request.Item).second) {
            const auto size = static_cast<std::int32_t>(List.size());
            const std::int32_t place = request.Position < 0 ? size : std::min(request.Position, size);
            List.insert(List.begin() + place, request.Item);
        } else if (!request.Set && Known.erase(request.Item) != 0) {
            std::erase(List, request.Item);
        }
    }

  private:
    std::vector<Oid>& List;
    std::unordered_set<Oid> Known;
};

void ApplyRequests(std::span<const TagRequest> requests, CategoryFileLists& lists) {
    std::array<TagSet, 3> sets{TagSet(lists[0]), TagSet(lists[1]), TagSet(lists[2])};
    for (const TagRequest& request : requests) {
        sets[static_cast<std::size_t>(request.List)].Apply(request);
    }
}

Status ReportLists(ITagMirror& mirror, const CategoryFileLists& lists, std::int64_t lastRequest) {
    for (std::size_t index = 0; index < lists.size(); ++index) {
        if (const Status status = mirror.ReplaceList(static_cast<TagList>(index), lists[index]); Failed(status)) {
            return status;
        }
    }
    return mirror.FinishRequests(lastRequest);
}

bool ComplainKept(const std::string& sentence) {
    Complain(sentence + std::string(kKept));
    return false;
}

bool WriteLocked(const files::DeviceRoot& root, const outlook::StorePtr& store) {
    const ComPtr<IPOutlookApp> app = outlook::MakeOutlookApp(store);
    std::vector<TagRequest> requests;
    if (const Status status = app->Tags().GetRequests(requests); Failed(status)) {
        return ComplainKept("The tags cannot be read: " + DescribeFailure(status) + ".");
    }
    if (requests.empty()) {
        return true;
    }
    posix::PosixDisk disk;
    files::DeviceFiles files(disk, {root.Path()});
    const std::u16string path = FindFile(files);
    CategoryFileLists lists;
    if (!ReadLists(files, path, lists)) {
        Complain("The list of tags, TavoCalendar.dat, is damaged or cannot be read, and was left as it is.");
        return false;
    }
    ApplyRequests(requests, lists);
    if (files.WriteWholeFile(path, EncodeCategoryFile(lists[0], lists[1], lists[2])) != ErrorCode::Success) {
        return ComplainKept("The list of tags, TavoCalendar.dat, cannot be written.");
    }
    if (const Status status = ReportLists(app->Tags(), lists, requests.back().Id); Failed(status)) {
        Complain("The tags are set, but the store does not know it yet: " + DescribeFailure(status) + ".");
        return false;
    }
    return true;
}

} // namespace

bool WriteTags(const files::DeviceRoot& root, const outlook::StorePtr& store) {
    posix::InstanceLock lock(root.RunFolder());
    switch (lock.Acquire(posix::InstanceRole::Tool, kPatience)) {
    case posix::LockOutcome::Held:
        return WriteLocked(root, store);
    case posix::LockOutcome::ProgramRuns:
        return true; // it hears of the requests from the store
    case posix::LockOutcome::Busy:
        return ComplainKept("Another command is setting tags and does not end.");
    case posix::LockOutcome::Failed:
        break;
    }
    return ComplainKept("The folder " + root.RunFolder() + " cannot be used.");
}

} // namespace tavo::tools
