// A machine under a store on which every file lies in memory.
#pragma once

#include "host/outlook/store_machine.h"

#include <filesystem>
#include <map>
#include <memory>
#include <string>

struct sqlite3;

namespace tavo::outlook::test {

// A store is there as long as the machine that it was made on, however often it is closed and opened. Nothing is ever
// full, locked by another process or exposed to others.
class MemoryMachine final : public IStoreMachine {
  public:
    // The zones outlive it.
    explicit MemoryMachine(rules::IZoneSource& zones);
    ~MemoryMachine() override;
    MemoryMachine(const MemoryMachine&) = delete;
    MemoryMachine& operator=(const MemoryMachine&) = delete;

    // A file of no other machine; it need not be there.
    std::filesystem::path File(const std::string& name) const { return Folder / name; }

    Status ReadBeginning(const std::filesystem::path& path, std::span<unsigned char> room, std::size_t& count) override;

    bool HasBytes(const std::filesystem::path& path) override { return Stores.contains(path); }

    FileIdentity Identify(const std::filesystem::path& path) override;

    bool IsLocked(const std::filesystem::path&, std::int64_t) override { return false; }

    bool CanWrite(const std::filesystem::path& path) override { return path == Folder || Stores.contains(path); }

    std::optional<std::uint64_t> FreeBytes(const std::filesystem::path&) override { return std::nullopt; }

    bool IsExposed(const std::filesystem::path&) override { return false; }

    Status Create(const std::filesystem::path& path,
                  const std::function<Status(const std::filesystem::path& draft)>& build) override;

    const char* FileSystem() override { return "memdb"; }

    rules::IZoneSource& Zones() override { return OwnZones; }

  private:
    struct Closer {
        void operator()(sqlite3* connection) const;
    };

    // What lies in memory goes with its last connection, so each store has one that stays.
    using Connection = std::unique_ptr<sqlite3, Closer>;

    rules::IZoneSource& OwnZones;
    std::filesystem::path Folder;
    std::map<std::filesystem::path, Connection> Stores;
};

} // namespace tavo::outlook::test
