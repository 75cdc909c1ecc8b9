// Files and folders as the device's files, its registry and its ink need them. Whose disk it is does not show: paths
// are absolute, their parts are separated by "/", and every call says in the device's own codes what became of it.
#pragma once

#include "platform/status.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::disk {

// A file that a crash left unfinished has a name with this beginning; no other file has.
inline constexpr const char* kUnfinishedPrefix = ".~tavo-";

enum class EntryKind { File, Folder, Link, Other };

enum class LastLink { Follow, Keep }; // whether a link that a path ends with leads on

struct Moment {
    std::int64_t Seconds = 0; // since the beginning of 1970
    std::int64_t Nanoseconds = 0;

    bool operator==(const Moment&) const = default;
};

// What is another one after a change of a folder's names. It moves in steps: two changes within one step leave the
// same.
struct Stamp {
    std::uint64_t Disk = 0;
    std::uint64_t Number = 0; // of the folder on its disk
    Moment Modified;
    Moment Changed;

    bool operator==(const Stamp&) const = default;
};

struct Entry {
    EntryKind Kind = EntryKind::Other;
    Stamp Seen;
};

using EntryVisitor = std::function<void(std::string_view name, EntryKind kind)>;
using NameTest = std::function<bool(std::string_view name)>;

// A file that nobody else can hold as long as this lives, however that ends.
class IHeldFile {
  public:
    virtual ~IHeldFile() = default;
    // Behind what is there. After a failure some of the bytes may be there.
    virtual ErrorCode Append(std::span<const std::uint8_t> bytes) = 0;
    // What comes next is written behind the first `size` bytes, and nothing stands there meanwhile.
    virtual ErrorCode CutTo(std::uint64_t size) = 0;
};

// What is missing is FileNotFound, or PathNotFound where a file stands for a folder of the path.
class IDisk {
  public:
    virtual ~IDisk() = default;

    virtual ErrorCode Look(const std::string& path, LastLink link, Entry& entry) = 0;
    // The path without any link; empty when something of it is missing.
    virtual std::string Resolve(const std::string& path) = 0;
    // Every name in the folder but "." and "..", in no order. Links are not followed.
    virtual ErrorCode List(const std::string& folder, const EntryVisitor& visit) = 0;
    virtual ErrorCode CheckWritable(const std::string& path) = 0;

    // A regular file of at most `limit` bytes, whole; anything else is a failure and leaves `bytes` empty.
    virtual ErrorCode Read(const std::string& path, std::size_t limit, std::vector<std::uint8_t>& bytes) = 0;
    // Whatever happens, the path names the old bytes or the new ones, for the user alone. Only a regular file that we
    // may read and write is replaced. `beforeRename` runs when the new bytes are safe and may still stop it.
    virtual ErrorCode Replace(const std::string& path, std::span<const std::uint8_t> bytes,
                              const std::function<ErrorCode()>& beforeRename) = 0;
    // A second name for the file, or a copy where the disk knows none. AlreadyExists when the name is taken.
    virtual ErrorCode AddName(const std::string& from, const std::string& to) = 0;
    // In place of whatever file has that path.
    virtual ErrorCode Rename(const std::string& from, const std::string& to) = 0;
    virtual ErrorCode Remove(const std::string& path) = 0; // of a link, the link
    // All files of the folder with such names; what cannot go stays.
    virtual void RemoveAll(const std::string& folder, const NameTest& isUnwanted) = 0;
    // What a crash left of replacements in the folder; younger ones may still be at work.
    virtual void RemoveUnfinished(const std::string& folder) = 0;

    // For the user alone. AlreadyExists when anything has the path.
    virtual ErrorCode MakeFolder(const std::string& path) = 0;
    // Makes the names in a folder safe.
    virtual ErrorCode SyncFolder(const std::string& folder) = 0;

    // A file that lasts and only serves to be held: waits for whoever holds it, and makes it if need be. Null when that
    // cannot be; a disk on which nothing can be held gives it all the same.
    virtual std::unique_ptr<IHeldFile> Hold(const std::string& path) = 0;
    // A new file for the user alone, never through a link. AlreadyExists when anything has the path, LockViolation when
    // somebody else was faster to hold it.
    virtual ErrorCode MakeHeld(const std::string& path, std::unique_ptr<IHeldFile>& file) = 0;
    // Whether somebody holds this file.
    virtual bool IsHeld(const std::string& path) = 0;
};

} // namespace tavo::disk
