// Looking at store files from outside, and making them.
#include "host/posix/store_machine.h"

#include "host/posix/private_file.h"
#include "host/posix/zone_database.h"

#include <cerrno>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

namespace tavo::posix {

namespace {

constexpr mode_t kPrivateFolder = 0700;

Status StatusFromErrno(int error) {
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return Status::NotFound;
    case EACCES:
    case EPERM:
    case EROFS:
        return Status::AccessDenied;
    case ENOSPC:
    case EDQUOT:
        return Status::DiskFull;
    default:
        return Status::Fail;
    }
}

// Every missing folder on the way, each for its owner only.
Status MakeFolders(const std::filesystem::path& folder) {
    if (folder.empty() || mkdir(folder.c_str(), kPrivateFolder) == 0 || errno == EEXIST) {
        return Status::Ok;
    }
    if (errno != ENOENT) {
        return StatusFromErrno(errno);
    }
    const Status status = MakeFolders(folder.parent_path());
    if (Failed(status)) {
        return status;
    }
    return mkdir(folder.c_str(), kPrivateFolder) == 0 || errno == EEXIST ? Status::Ok : StatusFromErrno(errno);
}

class StoreMachine final : public outlook::IStoreMachine {
  public:
    Status ReadBeginning(const std::filesystem::path& path, std::span<unsigned char> room, std::size_t& count) override;
    bool HasBytes(const std::filesystem::path& path) override;
    outlook::FileIdentity Identify(const std::filesystem::path& path) override;
    bool IsLocked(const std::filesystem::path& path, std::int64_t byte) override;

    bool CanWrite(const std::filesystem::path& path) override { return access(path.c_str(), W_OK) == 0; }

    std::optional<std::uint64_t> FreeBytes(const std::filesystem::path& path) override;

    bool IsExposed(const std::filesystem::path& folder) override {
        const FolderKeeping keeping = LookAtFolder(folder.string());
        return keeping == FolderKeeping::OfSomebodyElse || keeping == FolderKeeping::OpenToOthers;
    }

    Status Create(const std::filesystem::path& path,
                  const std::function<Status(const std::filesystem::path& draft)>& build) override;

    const char* FileSystem() override { return nullptr; }

    rules::IZoneSource& Zones() override { return SystemZones(); }
};

Status StoreMachine::ReadBeginning(const std::filesystem::path& path, std::span<unsigned char> room,
                                   std::size_t& count) {
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)); // a pipe must not stop us

    struct stat facts {};

    if (!file || fstat(file.Get(), &facts) != 0) {
        return StatusFromErrno(errno);
    }
    if (!S_ISREG(facts.st_mode)) {
        return Status::NotOurs;
    }
    const ssize_t got = pread(file.Get(), room.data(), room.size(), 0);
    if (got < 0) {
        return StatusFromErrno(errno);
    }
    count = static_cast<std::size_t>(got);
    return Status::Ok;
}

bool StoreMachine::HasBytes(const std::filesystem::path& path) {
    struct stat facts {};

    return stat(path.c_str(), &facts) == 0 && facts.st_size > 0;
}

outlook::FileIdentity StoreMachine::Identify(const std::filesystem::path& path) {
    struct stat facts {};

    return stat(path.c_str(), &facts) == 0 ? outlook::FileIdentity(facts.st_dev, facts.st_ino)
                                           : outlook::FileIdentity();
}

bool StoreMachine::IsLocked(const std::filesystem::path& path, std::int64_t byte) {
    const FileDescriptor file(open(path.c_str(), O_RDWR | O_CLOEXEC));

    struct flock lock {};

    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = byte;
    lock.l_len = 1;
    return file && fcntl(file.Get(), F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

std::optional<std::uint64_t> StoreMachine::FreeBytes(const std::filesystem::path& path) {
    struct statvfs facts {};

    if (statvfs(path.c_str(), &facts) != 0) {
        return std::nullopt;
    }
    return std::uint64_t{facts.f_bavail} * facts.f_frsize;
}

Status StoreMachine::Create(const std::filesystem::path& path,
                            const std::function<Status(const std::filesystem::path& draft)>& build) {
    if (const Status status = MakeFolders(path.parent_path()); Failed(status)) {
        return status;
    }
    const FileDescriptor folder = OpenFolder(path.parent_path().string());
    if (!folder) {
        return StatusFromErrno(errno);
    }
    if (LookAtFolder(folder) != FolderKeeping::Ours) {
        return Status::AccessDenied;
    }
    std::string draft;
    if (!MakeUnfinished(folder, draft, ".db")) {
        return StatusFromErrno(errno);
    }
    const std::string name = path.filename().string();
    Status status = build(path.parent_path() / draft);
    if (Succeeded(status) && linkat(folder.Get(), draft.c_str(), folder.Get(), name.c_str(), 0) != 0 &&
        errno != EEXIST) {
        // A file system without links: take the name if it is still free.
        const bool isTaken = faccessat(folder.Get(), name.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0;
        status = isTaken || renameat(folder.Get(), draft.c_str(), folder.Get(), name.c_str()) == 0
                     ? Status::Ok
                     : StatusFromErrno(errno);
    }
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
        static_cast<void>(unlinkat(folder.Get(), (draft + suffix).c_str(), 0)); // most were never made
    }
    const bool isSafe = fsync(folder.Get()) == 0 || errno == EINVAL; // not every file system can do it for folders
    return Failed(status) || isSafe ? status : StatusFromErrno(errno);
}

} // namespace

outlook::IStoreMachine& SystemMachine() {
    static StoreMachine machine;
    return machine;
}

} // namespace tavo::posix
