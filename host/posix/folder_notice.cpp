// What exactly was written does not matter: the notifier is only emptied.
#include "host/posix/folder_notice.h"

#include <array>
#include <cstddef>
#include <utility>

#include <sys/inotify.h>

namespace tavo::posix {

Status FolderNotice::Watch(const std::filesystem::path& folder) {
    FileDescriptor notifier(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (!notifier || inotify_add_watch(notifier.Get(), folder.c_str(), IN_MODIFY | IN_MOVED_TO | IN_CREATE) < 0) {
        return Status::Fail;
    }
    Notifier = std::move(notifier);
    return Status::Ok;
}

void FolderNotice::Take() {
    std::array<std::byte, 4096> events;
    while (Notifier && read(Notifier.Get(), events.data(), events.size()) > 0) {
    }
}

} // namespace tavo::posix
