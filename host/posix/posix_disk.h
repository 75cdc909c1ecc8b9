// The files of this machine.
#pragma once

#include "host/disk/disk.h"

namespace tavo::posix {

// Keeps nothing: any number of them are the same disk.
class PosixDisk final : public disk::IDisk {
  public:
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
};

} // namespace tavo::posix
