// Two bytes of one lock file: the window's, which only a program takes, and the data file's, which a tool takes too.
#include "host/posix/instance_lock.h"

#include "host/posix/private_file.h"
#include "host/posix/replace_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <system_error>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tavo::posix {

namespace {

constexpr off_t kWindowByte = 0;
constexpr off_t kDataByte = 1;
constexpr std::chrono::milliseconds kBetweenTries{20};
constexpr std::size_t kLongestToken = 4096;
constexpr std::size_t kLongestOid = 16;           // and what is between
constexpr std::size_t kLongestImport = 1'000'000; // bytes of all paths
constexpr char kBetween = '\n';
constexpr double kItemPatience = 60; // seconds; who asked has given up by then

std::string LockPath(const std::string& runFolder) {
    return runFolder + "/Instance.lock";
}

std::string RequestPath(const std::string& runFolder) {
    return runFolder + "/Activate";
}

// A file of its own: a start that is handed over at the same moment does not take its place.
std::string ItemPath(const std::string& runFolder) {
    return runFolder + "/OpenItem";
}

// One for each process that asks: none takes the place of another's.
constexpr std::string_view kImportPrefix = "Import.";

std::string ImportPath(const std::string& runFolder) {
    return runFolder + '/' + std::string(kImportPrefix) + std::to_string(getpid());
}

// Also not of a time to come: the clock was set back, and nobody knows how long ago that was.
bool IsYoung(const std::string& path) {
    struct stat status {};

    return stat(path.c_str(), &status) == 0 &&
           std::abs(std::difftime(std::time(nullptr), status.st_mtime)) <= kItemPatience;
}

std::int32_t ParseOid(std::string_view text) {
    std::int32_t oid = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), oid);
    return error == std::errc() && end == text.data() + text.size() ? oid : 0;
}

// Of a request for an item: its number, and the token behind it.
std::int32_t ParseItem(std::string_view request, std::string& token) {
    const std::size_t end = std::min(request.find(kBetween), request.size());
    token = request.substr(std::min(end + 1, request.size()));
    return ParseOid(request.substr(0, end));
}

ErrorCode WriteRequest(const std::string& path, std::string_view text) {
    const std::vector<std::uint8_t> bytes(text.begin(), text.end());
    return ReplaceFile(path, bytes);
}

std::optional<std::string> TakeFile(const std::string& path) {
    std::vector<std::uint8_t> bytes;
    if (ReadFile(path, kLongestToken, bytes) != ErrorCode::Success) {
        return std::nullopt;
    }
    if (unlink(path.c_str()) != 0) {
        return std::nullopt; // a request that cannot be removed would come again without end
    }
    return std::string(bytes.begin(), bytes.end());
}

// Takes one process's request for an import.
void TakeImport(const std::string& path, std::vector<std::string>& files) {
    const bool isWanted = IsYoung(path);
    std::vector<std::uint8_t> bytes;
    const bool isRead = ReadFile(path, kLongestImport, bytes) == ErrorCode::Success;
    if (unlink(path.c_str()) != 0 || !isRead || !isWanted) {
        return;
    }
    std::string_view rest(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\0'), rest.size());
        if (rest.front() == '/') { // it was written by somebody else's program otherwise
            files.emplace_back(rest.substr(0, end));
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

std::vector<std::string> TakeImports(const std::string& runFolder) {
    std::vector<std::string> requests;
    std::error_code error; // without the folder there are no requests
    for (std::filesystem::directory_iterator entry(runFolder, error), end; !error && entry != end;
         entry.increment(error)) {
        if (entry->path().filename().string().starts_with(kImportPrefix)) {
            requests.push_back(entry->path().string());
        }
    }
    std::sort(requests.begin(), requests.end());
    std::vector<std::string> files;
    for (const std::string& request : requests) {
        TakeImport(request, files);
    }
    return files;
}

struct flock WriteLockOf(off_t byte) {
    struct flock lock {};

    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = byte;
    lock.l_len = 1;
    return lock;
}

// Locks of the open file, not of the process: they are not lost when some library opens and closes the same file, and
// asking who holds one does not take it, so a question never makes a starting program believe that another runs.
bool TryLock(const FileDescriptor& file, off_t byte) {
    struct flock lock = WriteLockOf(byte);
    return fcntl(file.Get(), F_OFD_SETLK, &lock) == 0;
}

bool IsHeldByAnother(const FileDescriptor& file, off_t byte) {
    struct flock lock = WriteLockOf(byte);
    return fcntl(file.Get(), F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

bool IsTaken(int error) {
    return error == EAGAIN || error == EACCES;
}

FileDescriptor OpenLock(const std::string& runFolder) {
    static_cast<void>(mkdir(runFolder.c_str(), 0700)); // when it is missing and cannot be made, opening the file tells
    return OpenOrMakeFile(LockPath(runFolder));
}

} // namespace

LockOutcome InstanceLock::Acquire(InstanceRole role, std::chrono::milliseconds patience) {
    Release();
    const auto fail = [this] {
        LastProblem = ErrorCodeOf(errno);
        return LockOutcome::Failed;
    };
    FileDescriptor file = OpenLock(RunFolder);
    if (!file) {
        return fail();
    }
    if (role == InstanceRole::Program && !TryLock(file, kWindowByte)) {
        return IsTaken(errno) ? LockOutcome::ProgramRuns : fail();
    }
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!TryLock(file, kDataByte)) {
        if (!IsTaken(errno)) {
            return fail();
        }
        if (role == InstanceRole::Tool && IsHeldByAnother(file, kWindowByte)) {
            return LockOutcome::ProgramRuns;
        }
        if (std::chrono::steady_clock::now() >= end) {
            return LockOutcome::Busy;
        }
        std::this_thread::sleep_for(kBetweenTries);
    }
    LastProblem = ErrorCode::Success;
    LockFile = std::move(file);
    return LockOutcome::Held;
}

void InstanceLock::Release() {
    LockFile = FileDescriptor();
}

bool InstanceLock::ProgramRuns(const std::string& runFolder) {
    const FileDescriptor file(open(LockPath(runFolder).c_str(), O_RDWR | O_CLOEXEC));
    return file && IsHeldByAnother(file, kWindowByte);
}

ErrorCode InstanceLock::RequestActivation(const std::string& runFolder, std::string_view token) {
    const ErrorCode error = WriteRequest(RequestPath(runFolder), token.substr(0, kLongestToken));
    // An empty file takes no room on a full disk, and the bare wish counts for more than the desktop's leave.
    return error == ErrorCode::Success || token.empty() ? error : WriteRequest(RequestPath(runFolder), {});
}

bool InstanceLock::HasActivationRequest(const std::string& runFolder) {
    return access(RequestPath(runFolder).c_str(), F_OK) == 0;
}

ErrorCode InstanceLock::RequestItem(const std::string& runFolder, std::int32_t oid, std::string_view token) {
    static_cast<void>(mkdir(runFolder.c_str(), 0700)); // when it is missing and cannot be made, the request tells
    std::string text = std::to_string(oid);
    if (!token.empty() && token.size() <= kLongestToken - kLongestOid) {
        text.append(1, kBetween).append(token);
    }
    return WriteRequest(ItemPath(runFolder), text);
}

ErrorCode InstanceLock::RequestImport(const std::string& runFolder, const std::vector<std::string>& paths) {
    std::string text;
    for (const std::string& path : paths) {
        text.append(path).append(1, '\0');
    }
    if (text.size() > kLongestImport) {
        return ErrorCode::CannotComplete;
    }
    static_cast<void>(mkdir(runFolder.c_str(), 0700)); // when it is missing and cannot be made, the request tells
    return WriteRequest(ImportPath(runFolder), text);
}

void InstanceLock::DropImport(const std::string& runFolder) {
    static_cast<void>(unlink(ImportPath(runFolder).c_str())); // mostly it was taken
}

ErrorCode InstanceLock::WatchActivation() {
    Watch = FileDescriptor(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (!Watch || inotify_add_watch(Watch.Get(), RunFolder.c_str(), IN_MOVED_TO | IN_ONLYDIR) < 0) {
        const ErrorCode error = ErrorCodeOf(errno);
        Watch = FileDescriptor();
        return error;
    }
    return ErrorCode::Success;
}

std::optional<ActivationRequest> InstanceLock::TakeActivation() {
    std::array<char, 4096> events{};
    while (Watch && read(Watch.Get(), events.data(), events.size()) > 0) {
        // Which name moved does not matter: the request files themselves tell.
    }
    const bool isItemWanted = IsYoung(ItemPath(RunFolder));
    const std::optional<std::string> item = TakeFile(ItemPath(RunFolder));
    const std::optional<std::string> token = TakeFile(RequestPath(RunFolder));
    std::vector<std::string> imports = TakeImports(RunFolder);
    const bool hasItem = isItemWanted && item.has_value();
    if (!hasItem && !token && imports.empty()) {
        return std::nullopt;
    }
    ActivationRequest request{token.value_or(""), 0, std::move(imports)};
    if (hasItem) {
        std::string itemToken;
        request.Item = ParseItem(*item, itemToken);
        request.Token = itemToken.empty() ? request.Token : itemToken;
    }
    return request;
}

} // namespace tavo::posix
