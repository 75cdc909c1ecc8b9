// What a store needs of the machine on which it lies, apart from what its database does itself.
#pragma once

#include "host/rules/zone_source.h"
#include "platform/status.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <utility>

namespace tavo::outlook {

using FileIdentity = std::pair<std::uint64_t, std::uint64_t>; // the disk, and the file on it

// Learns from the machine, without asking again and again, that something in a folder was written to. Whoever waits for
// that knows which kind of notice it is; the store only starts it and takes it.
class IChangeNotice {
  public:
    virtual ~IChangeNotice() = default;
    // From here on every write, new file and new name in the folder is noticed.
    virtual Status Watch(const std::filesystem::path& folder) = 0;
    // What was noticed so far is known.
    virtual void Take() = 0;
};

// Several stores and threads may use one at once.
class IStoreMachine {
  public:
    virtual ~IStoreMachine() = default;

    // The first bytes of a regular file, as many as there are and there is room for. NotOurs for anything but a file.
    virtual Status ReadBeginning(const std::filesystem::path& path, std::span<unsigned char> room,
                                 std::size_t& count) = 0;
    virtual bool HasBytes(const std::filesystem::path& path) = 0;
    // Two paths with one identity are one file; that of a missing one is all zero.
    virtual FileIdentity Identify(const std::filesystem::path& path) = 0;
    // Whether another process holds a lock on this byte of the file.
    virtual bool IsLocked(const std::filesystem::path& path, std::int64_t byte) = 0;
    virtual bool CanWrite(const std::filesystem::path& path) = 0;
    // On the disk of this file or folder, for people who are no administrators. Nothing when it cannot be told.
    virtual std::optional<std::uint64_t> FreeBytes(const std::filesystem::path& path) = 0;
    // Whether the folder belongs to someone else, or others may write to it. Not one that is missing.
    virtual bool IsExposed(const std::filesystem::path& folder) = 0;
    // Makes the folder, for the user alone, and the file, which `build` fills at the path that it is given and which
    // appears under its own name when that is done. Ok also when somebody else was faster, AccessDenied in an exposed
    // folder.
    virtual Status Create(const std::filesystem::path& path,
                          const std::function<Status(const std::filesystem::path& draft)>& build) = 0;

    // The database's name for the file system on which stores lie; null for the one of the operating system.
    virtual const char* FileSystem() = 0;

    virtual rules::IZoneSource& Zones() = 0;
};

} // namespace tavo::outlook
