// Looking at a store file from outside.
#include "host/outlook/store_file.h"

#include "host/outlook/schema.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <mutex>
#include <set>

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

Status CheckHeader(IStoreMachine& machine, const std::filesystem::path& path) {
    Header header{};
    std::size_t got = 0;
    if (const Status status = machine.ReadBeginning(path, header, got); Failed(status)) {
        return status;
    }
    if (got == 0) {
        return Status::Corrupt; // a store is never empty: it appears complete
    }
    const std::size_t magic = std::min(got, sizeof kMagic);
    if (std::memcmp(header.data(), kMagic, magic) != 0) {
        return Status::NotOurs;
    }
    if (got < header.size()) {
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
constexpr std::int64_t kLogUserByte = 128;

std::filesystem::path Beside(const std::filesystem::path& path, const char* suffix) {
    std::filesystem::path beside = path;
    beside += suffix;
    return beside;
}

Status BuildStore(IStoreMachine& machine, const std::filesystem::path& path) {
    Database database;
    Status status = database.Open(StoreUri(machine, path, "mode=rw"), SQLITE_OPEN_READWRITE | SQLITE_OPEN_URI, 0);
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

bool IsFolderExposed(IStoreMachine& machine, const std::filesystem::path& path) {
    return machine.IsExposed(AbsolutePath(path).parent_path());
}

std::string StoreUri(IStoreMachine& machine, const std::filesystem::path& path, const char* parameters) {
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
    uri = uri + "?" + parameters;
    return machine.FileSystem() == nullptr ? uri : uri + "&vfs=" + machine.FileSystem();
}

OpenFileMark::OpenFileMark(IStoreMachine& machine, const std::filesystem::path& path)
    : Identity(machine.Identify(path)) {
    OpenFiles& files = OpenFiles::OfProcess();
    const std::lock_guard lock(files.Guard);
    files.Identities.insert(Identity);
}

OpenFileMark::~OpenFileMark() {
    OpenFiles& files = OpenFiles::OfProcess();
    const std::lock_guard lock(files.Guard);
    files.Identities.erase(files.Identities.find(Identity));
}

bool OpenFileMark::IsOpenHere(IStoreMachine& machine, const std::filesystem::path& path) {
    OpenFiles& files = OpenFiles::OfProcess();
    const std::lock_guard lock(files.Guard);
    return files.Identities.contains(machine.Identify(path));
}

Status InspectHeader(IStoreMachine& machine, const std::filesystem::path& path, FileFacts& facts) {
    if (OpenFileMark::IsOpenHere(machine, path)) {
        facts.HasLog = true;
        facts.Version = kSchemaVersion;
        return Status::Ok;
    }
    facts.HasLog = machine.HasBytes(Beside(path, "-wal"));
    facts.LeftUnclosed = facts.HasLog && !machine.IsLocked(Beside(path, "-shm"), kLogUserByte);
    return CheckHeader(machine, path);
}

Status InspectStoreFile(IStoreMachine& machine, const std::filesystem::path& path, int lockPatience, FileFacts& facts) {
    if (const Status status = InspectHeader(machine, path, facts);
        Failed(status) || OpenFileMark::IsOpenHere(machine, path)) {
        return status;
    }
    // Without a log the file says everything and is read as if it could not change: no locks, no files beside it.
    // With one, the newest tables may be in the log; who cannot write does not empty it into the file.
    Database database;
    Status status = database.Open(StoreUri(machine, path, facts.HasLog ? "mode=ro" : "mode=ro&immutable=1"),
                                  SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, lockPatience);
    if (Succeeded(status)) {
        status = ReadSchema(database, facts.Version);
    }
    if (Failed(status) && !facts.HasLog && machine.HasBytes(Beside(path, "-wal"))) {
        // Somebody began to write while it was read as unchanging.
        return InspectStoreFile(machine, path, lockPatience, facts);
    }
    return status;
}

Status CreateStoreFile(IStoreMachine& machine, const std::filesystem::path& path) {
    return machine.Create(AbsolutePath(path),
                          [&machine](const std::filesystem::path& draft) { return BuildStore(machine, draft); });
}

} // namespace tavo::outlook
