// Looking at a store file from outside.
#include "host/outlook/store_file.h"

#include "host/outlook/schema.h"
#include "host/posix/private_file.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace tavo::outlook {

namespace {

constexpr std::size_t kHeaderSize = 100;
constexpr char kMagic[] = "SQLite format 3"; // with its closing zero
constexpr std::size_t kVersionAt = 60;
constexpr std::size_t kApplicationAt = 68;

using Header = std::array<unsigned char, kHeaderSize>;

std::uint32_t ReadNumber(const Header& header, std::size_t at) {
    return static_cast<std::uint32_t>(header[at]) << 24 | static_cast<std::uint32_t>(header[at + 1]) << 16 |
           static_cast<std::uint32_t>(header[at + 2]) << 8 | header[at + 3];
}

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

Status CheckHeader(const std::filesystem::path& path) {
    const posix::FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)); // a pipe must not stop us

    struct stat facts {};

    if (!file || fstat(file.Get(), &facts) != 0) {
        return StatusFromErrno(errno);
    }
    if (!S_ISREG(facts.st_mode)) {
        return Status::NotOurs;
    }
    Header header{};
    const ssize_t got = pread(file.Get(), header.data(), header.size(), 0);
    if (got < 0) {
        return StatusFromErrno(errno);
    }
    if (got == 0) {
        return Status::Corrupt; // a store is never empty: it appears complete
    }
    const auto magic = std::min(static_cast<std::size_t>(got), sizeof kMagic);
    if (std::memcmp(header.data(), kMagic, magic) != 0) {
        return Status::NotOurs;
    }
    if (static_cast<std::size_t>(got) < header.size()) {
        return Status::Corrupt;
    }
    if (ReadNumber(header, kApplicationAt) != static_cast<std::uint32_t>(kApplicationId)) {
        return Status::NotOurs;
    }
    if (static_cast<std::int32_t>(ReadNumber(header, kVersionAt)) > kSchemaVersion) {
        return Status::NewerVersion;
    }
    return Status::Ok;
}

bool HasBytes(const std::filesystem::path& path) {
    struct stat facts {};

    return stat(path.c_str(), &facts) == 0 && facts.st_size > 0;
}

using FileIdentity = std::pair<std::uint64_t, std::uint64_t>;

FileIdentity IdentityOf(const std::filesystem::path& path) {
    struct stat facts {};

    return stat(path.c_str(), &facts) == 0 ? FileIdentity(facts.st_dev, facts.st_ino) : FileIdentity(0, 0);
}

// Locks on files belong to the process, so what it has open is known to the process.
struct OpenFiles {
    std::mutex Guard;
    std::multiset<FileIdentity> Identities;

    static OpenFiles& OfProcess() {
        static OpenFiles files;
        return files;
    }
};

// Everybody who has a store with a log open holds a lock on this byte of the file beside it.
constexpr off_t kLogUserByte = 128;

bool IsLogInUse(const std::filesystem::path& shared) {
    const posix::FileDescriptor file(open(shared.c_str(), O_RDWR | O_CLOEXEC));

    struct flock lock {};

    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = kLogUserByte;
    lock.l_len = 1;
    return file && fcntl(file.Get(), F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

std::filesystem::path Beside(const std::filesystem::path& path, const char* suffix) {
    std::filesystem::path beside = path;
    beside += suffix;
    return beside;
}

// Every missing folder on the way, each for its owner only.
Status MakeFolders(const std::filesystem::path& folder) {
    if (folder.empty() || mkdir(folder.c_str(), 0700) == 0 || errno == EEXIST) {
        return Status::Ok;
    }
    if (errno != ENOENT) {
        return StatusFromErrno(errno);
    }
    const Status status = MakeFolders(folder.parent_path());
    if (Failed(status)) {
        return status;
    }
    return mkdir(folder.c_str(), 0700) == 0 || errno == EEXIST ? Status::Ok : StatusFromErrno(errno);
}

Status BuildStore(const std::filesystem::path& path) {
    Database database;
    Status status = database.Open(StoreUri(path, "mode=rw"), SQLITE_OPEN_READWRITE | SQLITE_OPEN_URI, 0);
    if (Succeeded(status)) {
        // The tables go into the file itself; only then does it get its log.
        status = database.Run("PRAGMA synchronous=FULL");
    }
    if (Succeeded(status)) {
        status = CreateSchema(database);
    }
    return Succeeded(status) ? database.Run("PRAGMA journal_mode=WAL") : status;
}

} // namespace

std::filesystem::path AbsolutePath(const std::filesystem::path& path) {
    std::error_code error;
    std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute;
}

std::filesystem::path RealPath(const std::filesystem::path& path) {
    std::error_code error;
    std::filesystem::path real = std::filesystem::canonical(path, error);
    return error ? path : real;
}

bool IsFolderExposed(const std::filesystem::path& path) {
    const posix::FolderKeeping keeping = posix::LookAtFolder(AbsolutePath(path).parent_path().string());
    return keeping == posix::FolderKeeping::OfSomebodyElse || keeping == posix::FolderKeeping::OpenToOthers;
}

std::string StoreUri(const std::filesystem::path& path, const char* parameters) {
    std::string uri = "file:";
    for (const char c : AbsolutePath(path).string()) {
        constexpr char kHex[] = "0123456789ABCDEF";
        if (c == '?' || c == '#' || c == '%') {
            const auto byte = static_cast<unsigned char>(c);
            uri += {'%', kHex[byte >> 4], kHex[byte & 15]};
        } else {
            uri += c;
        }
    }
    return uri + "?" + parameters;
}

OpenFileMark::OpenFileMark(const std::filesystem::path& path) : Identity(IdentityOf(path)) {
    OpenFiles& files = OpenFiles::OfProcess();
    const std::lock_guard lock(files.Guard);
    files.Identities.insert(Identity);
}

OpenFileMark::~OpenFileMark() {
    OpenFiles& files = OpenFiles::OfProcess();
    const std::lock_guard lock(files.Guard);
    files.Identities.erase(files.Identities.find(Identity));
}

bool OpenFileMark::IsOpenHere(const std::filesystem::path& path) {
    OpenFiles& files = OpenFiles::OfProcess();
    const std::lock_guard lock(files.Guard);
    return files.Identities.contains(IdentityOf(path));
}

Status InspectHeader(const std::filesystem::path& path, FileFacts& facts) {
    if (OpenFileMark::IsOpenHere(path)) {
        facts.HasLog = true;
        facts.Version = kSchemaVersion;
        return Status::Ok;
    }
    facts.HasLog = HasBytes(Beside(path, "-wal"));
    facts.LeftUnclosed = facts.HasLog && !IsLogInUse(Beside(path, "-shm"));
    return CheckHeader(path);
}

Status InspectStoreFile(const std::filesystem::path& path, int lockPatience, FileFacts& facts) {
    if (const Status status = InspectHeader(path, facts); Failed(status) || OpenFileMark::IsOpenHere(path)) {
        return status;
    }
    // Without a log the file says everything and is read as if it could not change: no locks, no files beside it.
    // With one, the newest tables may be in the log; who cannot write does not empty it into the file.
    Database database;
    Status status = database.Open(StoreUri(path, facts.HasLog ? "mode=ro" : "mode=ro&immutable=1"),
                                  SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, lockPatience);
    if (Succeeded(status)) {
        status = ReadSchema(database, facts.Version);
    }
    if (Failed(status) && !facts.HasLog && HasBytes(Beside(path, "-wal"))) {
        // Somebody began to write while it was read as unchanging.
        return InspectStoreFile(path, lockPatience, facts);
    }
    return status;
}

Status CreateStoreFile(const std::filesystem::path& path) {
    const std::filesystem::path place = AbsolutePath(path);
    if (const Status status = MakeFolders(place.parent_path()); Failed(status)) {
        return status;
    }
    const posix::FileDescriptor folder = posix::OpenFolder(place.parent_path().string());
    if (!folder) {
        return StatusFromErrno(errno);
    }
    if (posix::LookAtFolder(folder) != posix::FolderKeeping::Ours) {
        return Status::AccessDenied;
    }
    std::string draft;
    if (!posix::MakeUnfinished(folder, draft, ".db")) {
        return StatusFromErrno(errno);
    }
    const std::string name = place.filename().string();
    Status status = BuildStore(place.parent_path() / draft);
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

} // namespace tavo::outlook
