// What SQLite shares between the connections of a process, shown as files.
#include "tests/outlook/memory_machine.h"

#include <sqlite3.h>

#include <algorithm>
#include <atomic>
#include <cstring>

namespace tavo::outlook::test {

namespace {

std::uint64_t NextNumber() {
    static std::atomic<std::uint64_t> last = 0;
    return ++last;
}

struct Freed {
    void operator()(unsigned char* bytes) const { sqlite3_free(bytes); }
};

} // namespace

MemoryMachine::MemoryMachine(rules::IZoneSource& zones)
    : OwnZones(zones), Folder("/memory-" + std::to_string(NextNumber())) {}

MemoryMachine::~MemoryMachine() = default;

void MemoryMachine::Closer::operator()(sqlite3* connection) const {
    sqlite3_close_v2(connection);
}

Status MemoryMachine::ReadBeginning(const std::filesystem::path& path, std::span<unsigned char> room,
                                    std::size_t& count) {
    const auto found = Stores.find(path);
    if (found == Stores.end()) {
        return Status::NotFound;
    }
    sqlite3_int64 size = 0;
    const std::unique_ptr<unsigned char, Freed> bytes(sqlite3_serialize(found->second.get(), "main", &size, 0));
    if (!bytes) {
        return Status::Fail;
    }
    count = std::min(room.size(), static_cast<std::size_t>(size));
    std::memcpy(room.data(), bytes.get(), count);
    return Status::Ok;
}

// Connections stay where they are, so their addresses tell files apart, in this machine and in all of the process.
FileIdentity MemoryMachine::Identify(const std::filesystem::path& path) {
    const auto found = Stores.find(path);
    return found == Stores.end() ? FileIdentity()
                                 : FileIdentity(1, reinterpret_cast<std::uintptr_t>(found->second.get()));
}

Status MemoryMachine::Create(const std::filesystem::path& path,
                             const std::function<Status(const std::filesystem::path& draft)>& build) {
    if (Stores.contains(path)) {
        return Status::Ok;
    }
    sqlite3* opened = nullptr;
    const std::string name = "file:" + path.string() + "?vfs=" + FileSystem();
    const int code =
        sqlite3_open_v2(name.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_URI, nullptr);
    Connection connection(opened);
    if (code != SQLITE_OK) {
        return Status::Fail;
    }
    const Status status = build(path);
    if (Succeeded(status)) {
        Stores.emplace(path, std::move(connection));
    }
    return status;
}

} // namespace tavo::outlook::test
