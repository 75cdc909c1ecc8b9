// The store as a file: what can be said of it before SQLite may write to it, and making a new one.
#pragma once

#include "host/outlook/database.h"
#include "host/outlook/store_machine.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace tavo::outlook {

struct FileFacts {
    bool HasLog = false;       // a write-ahead log with something in it lies beside the store
    bool LeftUnclosed = false; // and nobody has it open: its last user ended without closing it
    std::int32_t Version = 0;
};

// A file that this process has open already. Closing any second descriptor of such a file would take SQLite's locks
// away from the whole process, so it must not be looked at from outside; it was, when it was opened.
class OpenFileMark {
  public:
    OpenFileMark(IStoreMachine& machine, const std::filesystem::path& path);
    ~OpenFileMark();
    OpenFileMark(const OpenFileMark&) = delete;
    OpenFileMark& operator=(const OpenFileMark&) = delete;

    static bool IsOpenHere(IStoreMachine& machine, const std::filesystem::path& path);

  private:
    FileIdentity Identity;
};

// Reads identity and version from the file's first bytes. What InspectStoreFile does first.
Status InspectHeader(IStoreMachine& machine, const std::filesystem::path& path, FileFacts& facts);

// Reads identity, version and tables without changing a byte of the file: NotFound, NotOurs, NewerVersion, Corrupt,
// AccessDenied, Locked, or Ok. A file that this process has open is Ok.
Status InspectStoreFile(IStoreMachine& machine, const std::filesystem::path& path, int lockPatience, FileFacts& facts);

// In a working folder that is gone, the path as it is.
std::filesystem::path AbsolutePath(const std::filesystem::path& path);

// Where the file is to which the path leads: SQLite keeps its own files beside that one, not beside a link. Of a file
// that is missing the path as it is.
std::filesystem::path RealPath(const std::filesystem::path& path);

// Whether the store's folder belongs to someone else or others may write to it: they could exchange the store, or plant
// a log that is played into it. Not of a folder that is missing.
bool IsFolderExposed(IStoreMachine& machine, const std::filesystem::path& path);

// Makes the folder and a new, empty store that appears under its name only when it is complete, both for the user
// alone. Ok also when another process was faster. AccessDenied in a folder into which others can put files.
Status CreateStoreFile(IStoreMachine& machine, const std::filesystem::path& path);

// The form of a path that SQLite opens, with parameters.
std::string StoreUri(IStoreMachine& machine, const std::filesystem::path& path, const char* parameters);

} // namespace tavo::outlook
