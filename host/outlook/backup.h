// A copy of the store in a file of its own, with other files of the device inside it.
#pragma once

#include "host/outlook/diagnosis.h"
#include "host/outlook/store.h"
#include "host/outlook/store_machine.h"
#include "host/outlook/terms.h"
#include "platform/outlook.h"
#include "platform/status.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace tavo::outlook {

// A file of the device by its path from the root.
struct KeptFile {
    std::string Name;
    std::vector<std::uint8_t> Bytes;
};

struct BackupContents {
    int Items = 0;
    std::int64_t Time = 0; // when it was made, seconds since 1970
    std::vector<KeptFile> Files;
    std::vector<std::pair<TagList, Oid>> Tags; // in the order of each list
};

// Makes `draft`, for the user alone: the store as it is when that is begun, whoever else uses it, and the files. It is
// read again at the end, each row and file with its checksum.
class BackupWriter {
  public:
    BackupWriter(IStoreMachine& machine, std::filesystem::path store, std::filesystem::path draft);
    ~BackupWriter();
    BackupWriter(const BackupWriter&) = delete;
    BackupWriter& operator=(const BackupWriter&) = delete;

    // The next part. Ok while more remains, False when the draft is whole. Else Problem says why, and the draft is of
    // no use.
    Status Step(std::span<const KeptFile> files);

    int Progress() const { return Done; } // of a thousand

    const std::string& Problem() const { return Reason; } // for people

    // Of a draft that is whole.
    BackupContents& Contents() { return Written; }

  private:
    class Copy;

    Status Begin();
    Status Finish(std::span<const KeptFile> files);

    IStoreMachine& Machine;
    std::filesystem::path Store;
    std::filesystem::path Draft;
    std::unique_ptr<Copy> Pages; // while it is under way
    int Done = 0;
    std::string Reason;
    BackupContents Written;
};

// Looks through all of it, at a depth beyond Quick. Not Ok: it is none, it was cut or has changed, or a newer program
// made it; `problem` says so.
Status ReadBackup(IStoreMachine& machine, const std::filesystem::path& backup, CheckDepth depth,
                  BackupContents& contents, std::string& problem);

// Puts the store of a backup that was read into the place of the live one, in one transaction that everybody who has it
// open sees. `scratch` is a file that is not there, beside the store. Tags stay as the lists have them now: they are
// the program's. So do the reminders that were shown.
Status RestoreStore(IStoreMachine& machine, const std::filesystem::path& backup, const std::filesystem::path& scratch,
                    const std::filesystem::path& store, std::string& problem);

// Which items stand in which lists of the program, in the order of each.
Status ListTags(const StorePtr& store, std::vector<std::pair<TagList, Oid>>& tags);

} // namespace tavo::outlook
