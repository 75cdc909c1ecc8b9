// What is written while a memo is open, so that a crash takes no more than the last moment of it.
#pragma once

#include "host/disk/disk.h"
#include "host/ink/ink_control.h"
#include "platform/system_time.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tavo::ink {

// The file goes with the object, and is locked as long as that lives: what is not locked was left by a crash.
class RecoveryFile {
  public:
    // `home` says what the ink belongs to, in the program's own bytes.
    RecoveryFile(disk::IDisk& disk, std::string folder, const SYSTEMTIME& begun, std::vector<std::uint8_t> home = {})
        : Disk(disk), Folder(std::move(folder)), Begun(begun), Home(std::move(home)) {}

    ~RecoveryFile();
    RecoveryFile(const RecoveryFile&) = delete;
    RecoveryFile& operator=(const RecoveryFile&) = delete;

    // Brings the file up to the control's ink, the stroke that is being drawn included. False when it cannot be
    // written; the next call then tries everything again.
    bool Write(const InkControl& control);

    // Puts this ink in place of all that the file holds, as a control would give it.
    bool WriteWhole(std::span<const std::uint8_t> ink);

    // The file outlives the object.
    void Leave() { IsLeft = true; }

    const std::string& Path() const { return OwnPath; }

    // The path without its folder.
    std::string Name() const { return OwnPath.substr(OwnPath.rfind('/') + 1); }

  private:
    bool MakeFile();
    bool Append(int kind, std::span<const std::uint8_t> bytes);
    bool WritePage(std::span<const std::uint8_t> page);
    bool WriteNews(const InkControl& control);

    disk::IDisk& Disk;
    std::string Folder;
    SYSTEMTIME Begun;
    std::vector<std::uint8_t> Home;
    std::string OwnPath;
    std::unique_ptr<disk::IHeldFile> File;
    std::uint64_t Size = 0;
    std::uint64_t WrittenRevision = 0;
    std::optional<std::uint64_t> WrittenReshapes; // none: nothing of use is in the file
    std::size_t WrittenStrokes = 0;
    bool HasLive = false;
    bool IsLeft = false;
    bool IsBroken = false; // it ends in half a record: what is written from now on needs a file of its own
};

struct RecoveryContents {
    SYSTEMTIME Begun;
    std::vector<std::uint8_t> Ink;  // as a control would give it
    std::vector<std::uint8_t> Home; // as the file's owner said it; empty in the files of version 1
};

// Reads as far as the bytes are whole. None when they are no recovery file.
std::optional<RecoveryContents> ReadRecovery(std::span<const std::uint8_t> bytes);

} // namespace tavo::ink
