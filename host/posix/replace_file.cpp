// Write beside, synchronise, rename.
#include "host/posix/replace_file.h"

#include "host/posix/private_file.h"

#include <cerrno>
#include <cstdio>
#include <ctime>
#include <memory>
#include <string_view>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace tavo::posix {

namespace {

constexpr std::time_t kUnfinishedAge = 3600; // seconds after which nobody can still be writing

// Success when nothing is there or a regular file that may be read and written.
ErrorCode CheckReplaceable(const FileDescriptor& folder, const std::string& name) {
    const FileDescriptor file(openat(folder.Get(), name.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
    if (!file) {
        return errno == ENOENT ? ErrorCode::Success : ErrorCodeOf(errno);
    }

    struct stat state {};

    if (fstat(file.Get(), &state) != 0) {
        return ErrorCodeOf(errno);
    }
    return S_ISREG(state.st_mode) ? ErrorCode::Success : ErrorCode::AccessDenied;
}

ErrorCode Sync(const FileDescriptor& folder) {
    // Some file systems keep their names safe without being asked and refuse the request.
    return fsync(folder.Get()) != 0 && errno != EINVAL ? ErrorCodeOf(errno) : ErrorCode::Success;
}

} // namespace

ErrorCode ErrorCodeOf(int errnoValue) {
    switch (errnoValue) {
    case 0:
        return ErrorCode::Success;
    case ENOENT:
        return ErrorCode::FileNotFound;
    case ENOTDIR:
        return ErrorCode::PathNotFound;
    case EACCES:
    case EPERM:
    case EISDIR:
    case ELOOP:
    case ETXTBSY:
    case ENXIO:
        return ErrorCode::AccessDenied;
    case EROFS:
        return ErrorCode::WriteProtected;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return ErrorCode::DiskFull;
    case ENAMETOOLONG:
    case EINVAL:
        return ErrorCode::InvalidName;
    case EEXIST:
        return ErrorCode::AlreadyExists;
    default:
        return ErrorCode::CannotComplete;
    }
}

ErrorCode WriteAll(const FileDescriptor& file, std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file.Get(), bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return written < 0 ? ErrorCodeOf(errno) : ErrorCode::CannotComplete;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return ErrorCode::Success;
}

FileReplacement::~FileReplacement() {
    if (!Unfinished.empty()) {
        static_cast<void>(unlinkat(Folder.Get(), Unfinished.c_str(), 0)); // the first failure was the one to tell
    }
}

ErrorCode FileReplacement::Begin(const std::string& path) {
    Folder = OpenFolder(FolderOf(path));
    if (!Folder) {
        return ErrorCodeOf(errno);
    }
    Name = path.substr(path.rfind('/') + 1);
    if (const ErrorCode error = CheckReplaceable(Folder, Name); error != ErrorCode::Success) {
        return error;
    }
    std::string unfinished;
    File = MakeUnfinished(Folder, unfinished);
    if (!File) {
        return ErrorCodeOf(errno);
    }
    Unfinished = std::move(unfinished);
    return ErrorCode::Success;
}

ErrorCode FileReplacement::Write(std::span<const std::uint8_t> bytes) {
    return WriteAll(File, bytes);
}

ErrorCode FileReplacement::Finish(const std::function<ErrorCode()>& beforeRename) {
    if (fsync(File.Get()) != 0 || !File.Close()) {
        return ErrorCodeOf(errno);
    }
    if (const ErrorCode error = beforeRename ? beforeRename() : ErrorCode::Success; error != ErrorCode::Success) {
        return error;
    }
    if (renameat(Folder.Get(), Unfinished.c_str(), Folder.Get(), Name.c_str()) != 0) {
        return ErrorCodeOf(errno);
    }
    Unfinished.clear();
    return Sync(Folder);
}

ErrorCode ReplaceFile(const std::string& path, std::span<const std::uint8_t> bytes,
                      const std::function<ErrorCode()>& beforeRename) {
    FileReplacement replacement;
    ErrorCode error = replacement.Begin(path);
    if (error == ErrorCode::Success) {
        error = replacement.Write(bytes);
    }
    return error == ErrorCode::Success ? replacement.Finish(beforeRename) : error;
}

ErrorCode ReadFile(const std::string& path, std::size_t limit, std::vector<std::uint8_t>& bytes) {
    bytes.clear();
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));

    struct stat state {};

    if (!file || fstat(file.Get(), &state) != 0) {
        return ErrorCodeOf(errno);
    }
    if (!S_ISREG(state.st_mode)) {
        return ErrorCode::AccessDenied;
    }
    if (static_cast<std::uintmax_t>(state.st_size) > limit) {
        return ErrorCode::CannotComplete;
    }
    std::vector<std::uint8_t> whole(static_cast<std::size_t>(state.st_size));
    std::size_t filled = 0;
    while (filled < whole.size()) {
        const ssize_t count = read(file.Get(), whole.data() + filled, whole.size() - filled);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return ErrorCodeOf(errno);
        }
        if (count == 0) {
            break; // someone cut the file while it was read
        }
        filled += static_cast<std::size_t>(count);
    }
    whole.resize(filled);
    bytes = std::move(whole);
    return ErrorCode::Success;
}

ErrorCode SyncFolder(const std::string& folder) {
    const FileDescriptor opened = OpenFolder(folder);
    return opened ? Sync(opened) : ErrorCodeOf(errno);
}

void RemoveUnfinished(const std::string& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir);
    if (!entries) {
        return;
    }
    const std::time_t oldest = std::time(nullptr) - kUnfinishedAge;
    while (const dirent* entry = readdir(entries.get())) {
        struct stat state {};

        if (std::string_view(entry->d_name).starts_with(disk::kUnfinishedPrefix) &&
            fstatat(dirfd(entries.get()), entry->d_name, &state, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(state.st_mode) &&
            state.st_mtime < oldest) {
            static_cast<void>(unlinkat(dirfd(entries.get()), entry->d_name, 0)); // what cannot go stays
        }
    }
}

} // namespace tavo::posix
