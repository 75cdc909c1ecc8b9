// One call of the system for one of the disk's, wherever that is possible.
#include "host/posix/posix_disk.h"

#include "host/posix/private_file.h"
#include "host/posix/replace_file.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace tavo::posix {

namespace {

using disk::EntryKind;

constexpr mode_t kPrivateFolder = 0700;
constexpr std::size_t kLargestCopy = 64u << 20; // where the disk knows no second names

class HeldFile final : public disk::IHeldFile {
  public:
    explicit HeldFile(FileDescriptor file) : File(std::move(file)) {}

    ErrorCode Append(std::span<const std::uint8_t> bytes) override { return WriteAll(File, bytes); }

    ErrorCode CutTo(std::uint64_t size) override {
        const auto end = static_cast<off_t>(size);
        const bool isCut = ftruncate(File.Get(), end) == 0 && lseek(File.Get(), end, SEEK_SET) == end;
        return isCut ? ErrorCode::Success : ErrorCodeOf(errno);
    }

  private:
    FileDescriptor File;
};

ErrorCode CodeOf(int result) {
    return result == 0 ? ErrorCode::Success : ErrorCodeOf(errno);
}

EntryKind KindOf(const struct stat& state) {
    switch (state.st_mode & S_IFMT) {
    case S_IFREG:
        return EntryKind::File;
    case S_IFDIR:
        return EntryKind::Folder;
    case S_IFLNK:
        return EntryKind::Link;
    default:
        return EntryKind::Other;
    }
}

// Only some disks tell it with the name.
EntryKind KindOf(const dirent& entry, int folder) {
    switch (entry.d_type) {
    case DT_REG:
        return EntryKind::File;
    case DT_DIR:
        return EntryKind::Folder;
    case DT_LNK:
        return EntryKind::Link;
    case DT_UNKNOWN:
        break;
    default:
        return EntryKind::Other;
    }

    struct stat state {};

    return fstatat(folder, entry.d_name, &state, AT_SYMLINK_NOFOLLOW) == 0 ? KindOf(state) : EntryKind::Other;
}

disk::Moment MomentOf(const timespec& time) {
    return {time.tv_sec, time.tv_nsec};
}

bool LinksAreUnknown(int error) {
    return error == EPERM || error == EOPNOTSUPP || error == ENOSYS || error == EMLINK;
}

ErrorCode CopyNew(const std::string& from, const std::string& to) {
    if (access(to.c_str(), F_OK) == 0) {
        return ErrorCode::AlreadyExists;
    }
    std::vector<std::uint8_t> bytes;
    const ErrorCode error = ReadFile(from, kLargestCopy, bytes);
    return error == ErrorCode::Success ? ReplaceFile(to, bytes) : error;
}

} // namespace

ErrorCode PosixDisk::Look(const std::string& path, disk::LastLink link, disk::Entry& entry) {
    struct stat state {};

    if ((link == disk::LastLink::Follow ? stat(path.c_str(), &state) : lstat(path.c_str(), &state)) != 0) {
        return ErrorCodeOf(errno);
    }
    entry = {KindOf(state), {state.st_dev, state.st_ino, MomentOf(state.st_mtim), MomentOf(state.st_ctim)}};
    return ErrorCode::Success;
}

std::string PosixDisk::Resolve(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> real(realpath(path.c_str(), nullptr), std::free);
    return real ? std::string(real.get()) : std::string();
}

ErrorCode PosixDisk::List(const std::string& folder, const disk::EntryVisitor& visit) {
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir);
    if (!entries) {
        return ErrorCodeOf(errno);
    }
    while (const dirent* entry = readdir(entries.get())) {
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0) {
            visit(entry->d_name, KindOf(*entry, dirfd(entries.get())));
        }
    }
    return ErrorCode::Success;
}

ErrorCode PosixDisk::CheckWritable(const std::string& path) {
    return CodeOf(access(path.c_str(), W_OK));
}

ErrorCode PosixDisk::Read(const std::string& path, std::size_t limit, std::vector<std::uint8_t>& bytes) {
    return ReadFile(path, limit, bytes);
}

ErrorCode PosixDisk::Replace(const std::string& path, std::span<const std::uint8_t> bytes,
                             const std::function<ErrorCode()>& beforeRename) {
    return ReplaceFile(path, bytes, beforeRename);
}

ErrorCode PosixDisk::AddName(const std::string& from, const std::string& to) {
    if (link(from.c_str(), to.c_str()) == 0) {
        return ErrorCode::Success;
    }
    return LinksAreUnknown(errno) ? CopyNew(from, to) : ErrorCodeOf(errno);
}

ErrorCode PosixDisk::Rename(const std::string& from, const std::string& to) {
    return CodeOf(rename(from.c_str(), to.c_str()));
}

ErrorCode PosixDisk::Remove(const std::string& path) {
    return CodeOf(unlink(path.c_str()));
}

void PosixDisk::RemoveAll(const std::string& folder, const disk::NameTest& isUnwanted) {
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir);
    if (!entries) {
        return;
    }
    while (const dirent* entry = readdir(entries.get())) {
        if (isUnwanted(entry->d_name)) {
            static_cast<void>(unlinkat(dirfd(entries.get()), entry->d_name, 0)); // what cannot go stays
        }
    }
}

void PosixDisk::RemoveUnfinished(const std::string& folder) {
    posix::RemoveUnfinished(folder);
}

ErrorCode PosixDisk::MakeFolder(const std::string& path) {
    return CodeOf(mkdir(path.c_str(), kPrivateFolder));
}

ErrorCode PosixDisk::SyncFolder(const std::string& folder) {
    return posix::SyncFolder(folder);
}

std::unique_ptr<disk::IHeldFile> PosixDisk::Hold(const std::string& path) {
    FileDescriptor file = OpenOrMakeFile(path);
    if (!file) {
        return nullptr;
    }
    while (flock(file.Get(), LOCK_EX) != 0 && errno == EINTR) {
    }
    return std::make_unique<HeldFile>(std::move(file));
}

ErrorCode PosixDisk::MakeHeld(const std::string& path, std::unique_ptr<disk::IHeldFile>& file) {
    const FileDescriptor folder = OpenFolder(FolderOf(path));
    if (!folder) {
        return ErrorCodeOf(errno);
    }
    FileDescriptor made = MakeFile(folder, path.substr(path.rfind('/') + 1));
    if (!made) {
        return ErrorCodeOf(errno);
    }
    if (flock(made.Get(), LOCK_EX | LOCK_NB) != 0) {
        return ErrorCode::LockViolation;
    }
    file = std::make_unique<HeldFile>(std::move(made));
    return ErrorCode::Success;
}

bool PosixDisk::IsHeld(const std::string& path) {
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
    return file && flock(file.Get(), LOCK_EX | LOCK_NB) != 0;
}

} // namespace tavo::posix
