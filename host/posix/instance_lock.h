// One running program for each device root, and the way a second start reaches the first.
#pragma once

#include "host/posix/file_descriptor.h"
#include "platform/status.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::posix {

enum class InstanceRole {
    Program, // the one with the window
    Tool,    // holds TavoCalendar.dat for a moment while no program runs
};

enum class LockOutcome {
    Held,
    ProgramRuns, // another program has the root
    Busy,        // a tool has the data file and did not let go in time
    Failed,      // the lock file cannot be made; see Problem()
};

// What brings the running program forward.
struct ActivationRequest {
    std::string Token;                   // the desktop's activation token, perhaps empty
    std::int32_t Item = 0;               // OID of the item to show, a NewItemWish, or 0
    std::vector<std::string> Files = {}; // paths of calendar files to import
};

// Record locks of an open file: they end with the process, however it ends, and asking about them takes nothing away.
class InstanceLock {
  public:
    explicit InstanceLock(std::string runFolder) : RunFolder(std::move(runFolder)) {}

    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    // `patience`: how long to wait for a tool. Held until Release or the end of the object.
    LockOutcome Acquire(InstanceRole role, std::chrono::milliseconds patience);
    void Release();

    ErrorCode Problem() const { return LastProblem; }

    // Whether a program runs on this root; one of this process counts too.
    static bool ProgramRuns(const std::string& runFolder);

    // For the second start: asks the running program to come forward. `token` is the desktop's activation token;
    // where the disk has no room for it, the request goes without.
    static ErrorCode RequestActivation(const std::string& runFolder, std::string_view token);
    // Whether nobody has taken it yet.
    static bool HasActivationRequest(const std::string& runFolder);
    // Asks for an item (its OID, or a NewItemWish), of a program that runs or is about to be started. Forgotten when
    // nobody takes it in a minute. `token` as above, perhaps empty.
    static ErrorCode RequestItem(const std::string& runFolder, std::int32_t oid, std::string_view token);

    // Asks to import files, of a program that runs or is about to be started; forgotten like an item. Absolute paths.
    // CannotComplete: they are more than a million bytes.
    static ErrorCode RequestImport(const std::string& runFolder, const std::vector<std::string>& paths);
    // Takes back what this process asked for, if nobody has taken it yet.
    static void DropImport(const std::string& runFolder);

    // For the first: from now on ActivationFd is readable when a request arrives. Look once with TakeActivation right
    // after this call, because a request may have come before it.
    ErrorCode WatchActivation();

    int ActivationFd() const { return Watch.Get(); }

    // The newest requests as one; nothing when there is none. Makes the descriptor unreadable.
    std::optional<ActivationRequest> TakeActivation();

  private:
    std::string RunFolder;
    FileDescriptor LockFile;
    FileDescriptor Watch;
    ErrorCode LastProblem = ErrorCode::Success;
};

} // namespace tavo::posix
