// A disk that lies in memory, and fails when a test wants it to.
#pragma once

#include "host/disk/disk.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::test {

enum class FaultSpan { Once, FromThenOn };

// A replacement counts as three calls, since a disk may fail at each: writing the new bytes, giving them their name,
// and making the name safe. It has folders and files, each with any number of names, and no links.
class MemoryDisk final : public disk::IDisk {
  public:
    // With this folder, an absolute path, and those above it.
    explicit MemoryDisk(const std::string& folder);

    // Counts anew from here: this call, the first being 1, fails with the error.
    void Fail(std::size_t call, ErrorCode error, FaultSpan span = FaultSpan::Once);
    // From here on nothing fails.
    void Mend();

    // Whether a call has failed since Fail.
    bool HasFailed() const { return Failed; }

    // What lies there, with no call counted.
    void Put(const std::string& path, std::string_view bytes);
    std::optional<std::string> Get(const std::string& path) const;
    std::vector<std::string> NamesIn(const std::string& folder) const;
    std::vector<std::string> FilesIn(const std::string& folder) const; // their bytes, in the order of their names

    ErrorCode Look(const std::string& path, disk::LastLink link, disk::Entry& entry) override;
    std::string Resolve(const std::string& path) override;
    ErrorCode List(const std::string& folder, const disk::EntryVisitor& visit) override;
    ErrorCode CheckWritable(const std::string& path) override;
    ErrorCode Read(const std::string& path, std::size_t limit, std::vector<std::uint8_t>& bytes) override;
    ErrorCode Replace(const std::string& path, std::span<const std::uint8_t> bytes,
                      const std::function<ErrorCode()>& beforeRename) override;
    ErrorCode AddName(const std::string& from, const std::string& to) override;
    ErrorCode Rename(const std::string& from, const std::string& to) override;
    ErrorCode Remove(const std::string& path) override;
    void RemoveAll(const std::string& folder, const disk::NameTest& isUnwanted) override;
    void RemoveUnfinished(const std::string& folder) override;
    ErrorCode MakeFolder(const std::string& path) override;
    ErrorCode SyncFolder(const std::string& folder) override;
    std::unique_ptr<disk::IHeldFile> Hold(const std::string& path) override;
    ErrorCode MakeHeld(const std::string& path, std::unique_ptr<disk::IHeldFile>& file) override;
    bool IsHeld(const std::string& path) override;

  private:
    class HeldFile;

    struct Node {
        disk::EntryKind Kind = disk::EntryKind::File;
        std::vector<std::uint8_t> Bytes = {};
        disk::Stamp Seen = {};
        bool IsHeld = false;
    };

    ErrorCode Count(); // one more call; what becomes of it
    Node* Find(const std::string& path) const;
    ErrorCode FindFile(const std::string& path, Node*& file) const;
    ErrorCode CheckFree(const std::string& path) const;  // for something new
    ErrorCode CheckPlace(const std::string& path) const; // where a new name is to be
    void Note(const std::string& path);                  // the names of its folder have changed
    Node& Make(const std::string& path, disk::EntryKind kind);

    std::map<std::string, std::shared_ptr<Node>> Nodes;
    std::uint64_t Changes = 0;
    std::size_t Calls = 0;
    std::size_t FailingCall = 0; // 0: none
    ErrorCode Error = ErrorCode::Success;
    FaultSpan Span = FaultSpan::Once;
    bool Failed = false;
};

} // namespace tavo::test
