// Names and the nodes that they stand for.
#include "tests/support/memory_disk.h"

#include <algorithm>
#include <stdexcept>

namespace tavo::test {

namespace {

using disk::EntryKind;

constexpr std::int64_t kLongAgo = 1'000'000'000; // so a folder's stamp can be believed at once

std::string FolderOf(const std::string& path) {
    return path.substr(0, path.rfind('/'));
}

std::string PathOf(const std::string& folder, const std::string& name) {
    return folder + '/' + name;
}

} // namespace

class MemoryDisk::HeldFile final : public disk::IHeldFile {
  public:
    HeldFile(MemoryDisk& disk, std::shared_ptr<Node> node) : Disk(disk), Held(std::move(node)) { Held->IsHeld = true; }

    ~HeldFile() override { Held->IsHeld = false; }

    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

    ErrorCode Append(std::span<const std::uint8_t> bytes) override {
        const ErrorCode error = Disk.Count();
        const std::span<const std::uint8_t> written =
            error == ErrorCode::Success ? bytes : bytes.first(bytes.size() / 2);
        Held->Bytes.insert(Held->Bytes.end(), written.begin(), written.end());
        return error;
    }

    ErrorCode CutTo(std::uint64_t size) override {
        const ErrorCode error = Disk.Count();
        if (error == ErrorCode::Success) {
            Held->Bytes.resize(size);
        }
        return error;
    }

  private:
    MemoryDisk& Disk;
    std::shared_ptr<Node> Held;
};

MemoryDisk::MemoryDisk(const std::string& folder) {
    for (std::size_t end = 0; end != std::string::npos;) {
        end = folder.find('/', end + 1);
        Make(folder.substr(0, end), EntryKind::Folder);
    }
}

void MemoryDisk::Fail(std::size_t call, ErrorCode error, FaultSpan span) {
    Calls = 0;
    FailingCall = call;
    Error = error;
    Span = span;
    Failed = false;
}

void MemoryDisk::Mend() {
    FailingCall = 0;
}

void MemoryDisk::Put(const std::string& path, std::string_view bytes) {
    Make(path, EntryKind::File).Bytes.assign(bytes.begin(), bytes.end());
}

std::optional<std::string> MemoryDisk::Get(const std::string& path) const {
    const Node* node = Find(path);
    if (node == nullptr || node->Kind != EntryKind::File) {
        return std::nullopt;
    }
    return std::string(node->Bytes.begin(), node->Bytes.end());
}

std::vector<std::string> MemoryDisk::NamesIn(const std::string& folder) const {
    std::vector<std::string> names;
    for (const auto& [path, node] : Nodes) {
        if (FolderOf(path) == folder && path.size() > folder.size()) {
            names.push_back(path.substr(folder.size() + 1));
        }
    }
    return names;
}

std::vector<std::string> MemoryDisk::FilesIn(const std::string& folder) const {
    std::vector<std::string> files;
    for (const std::string& name : NamesIn(folder)) {
        if (const std::optional<std::string> bytes = Get(PathOf(folder, name))) {
            files.push_back(*bytes);
        }
    }
    return files;
}

ErrorCode MemoryDisk::Count() {
    ++Calls;
    const bool fails = FailingCall != 0 && (Span == FaultSpan::Once ? Calls == FailingCall : Calls >= FailingCall);
    Failed = Failed || fails;
    return fails ? Error : ErrorCode::Success;
}

MemoryDisk::Node* MemoryDisk::Find(const std::string& path) const {
    const auto found = Nodes.find(path);
    return found == Nodes.end() ? nullptr : found->second.get();
}

ErrorCode MemoryDisk::FindFile(const std::string& path, Node*& file) const {
    file = Find(path);
    if (file == nullptr) {
        return ErrorCode::FileNotFound;
    }
    return file->Kind == EntryKind::File ? ErrorCode::Success : ErrorCode::AccessDenied;
}

ErrorCode MemoryDisk::CheckPlace(const std::string& path) const {
    const Node* folder = Find(FolderOf(path));
    if (folder == nullptr) {
        return ErrorCode::FileNotFound;
    }
    return folder->Kind == EntryKind::Folder ? ErrorCode::Success : ErrorCode::PathNotFound;
}

ErrorCode MemoryDisk::CheckFree(const std::string& path) const {
    if (const ErrorCode error = CheckPlace(path); error != ErrorCode::Success) {
        return error;
    }
    return Find(path) == nullptr ? ErrorCode::Success : ErrorCode::AlreadyExists;
}

void MemoryDisk::Note(const std::string& path) {
    if (Node* folder = Find(FolderOf(path)); folder != nullptr) {
        folder->Seen.Modified = {kLongAgo, static_cast<std::int64_t>(++Changes)};
    }
}

MemoryDisk::Node& MemoryDisk::Make(const std::string& path, EntryKind kind) {
    auto node = std::make_shared<Node>();
    node->Kind = kind;
    node->Seen.Number = ++Changes;
    node->Seen.Modified = {kLongAgo, static_cast<std::int64_t>(Changes)};
    Node& made = *node;
    Nodes[path] = std::move(node);
    Note(path);
    return made;
}

ErrorCode MemoryDisk::Look(const std::string& path, disk::LastLink, disk::Entry& entry) {
    if (const ErrorCode error = Count(); error != ErrorCode::Success) {
        return error;
    }
    const Node* node = Find(path);
    if (node == nullptr) {
        return ErrorCode::FileNotFound;
    }
    entry = {node->Kind, node->Seen};
    return ErrorCode::Success;
}

std::string MemoryDisk::Resolve(const std::string& path) {
    return Count() == ErrorCode::Success && Find(path) != nullptr ? path : std::string();
}

ErrorCode MemoryDisk::List(const std::string& folder, const disk::EntryVisitor& visit) {
    if (const ErrorCode error = Count(); error != ErrorCode::Success) {
        return error;
    }
    const Node* node = Find(folder);
    if (node == nullptr || node->Kind != EntryKind::Folder) {
        return node == nullptr ? ErrorCode::FileNotFound : ErrorCode::PathNotFound;
    }
    for (const std::string& name : NamesIn(folder)) {
        visit(name, Find(PathOf(folder, name))->Kind);
    }
    return ErrorCode::Success;
}

ErrorCode MemoryDisk::CheckWritable(const std::string& path) {
    if (const ErrorCode error = Count(); error != ErrorCode::Success) {
        return error;
    }
    return Find(path) == nullptr ? ErrorCode::FileNotFound : ErrorCode::Success;
}

ErrorCode MemoryDisk::Read(const std::string& path, std::size_t limit, std::vector<std::uint8_t>& bytes) {
    bytes.clear();
    if (const ErrorCode error = Count(); error != ErrorCode::Success) {
        return error;
    }
    Node* file = nullptr;
    if (const ErrorCode error = FindFile(path, file); error != ErrorCode::Success) {
        return error;
    }
    if (file->Bytes.size() > limit) {
        return ErrorCode::CannotComplete;
    }
    bytes = file->Bytes;
    return ErrorCode::Success;
}

ErrorCode MemoryDisk::Replace(const std::string& path, std::span<const std::uint8_t> bytes,
                              const std::function<ErrorCode()>& beforeRename) {
    if (const ErrorCode error = CheckPlace(path); error != ErrorCode::Success) {
        return error;
    }
    if (const Node* before = Find(path); before != nullptr && before->Kind != EntryKind::File) {
        return ErrorCode::AccessDenied;
    }
    if (const ErrorCode error = Count(); error != ErrorCode::Success) {
        return error;
    }
    if (const ErrorCode error = beforeRename ? beforeRename() : ErrorCode::Success; error != ErrorCode::Success) {
        return error;
    }
    if (const ErrorCode error = Count(); error != ErrorCode::Success) {
        return error;
    }
    Make(path, EntryKind::File).Bytes.assign(bytes.begin(), bytes.end());
    return Count();
}

ErrorCode MemoryDisk::AddName(const std::string& from, const std::string& to) {
    if (const ErrorCode error = Count(); error != ErrorCode::Success) {
        return error;
    }
    Node* file = nullptr;
    ErrorCode error = FindFile(from, file);
    if (error == ErrorCode::Success) {
        error = CheckPlace(to);
    }
    if (error == ErrorCode::Success && Find(to) != nullptr) {
        error = ErrorCode::AlreadyExists;
    }
    if (error == ErrorCode::Success) {
        Nodes[to] = Nodes[from];
        Note(to);
    }
    return error;
}

ErrorCode MemoryDisk::Rename(const std::string& from, const std::string& to) {
    if (const ErrorCode error = Count(); error != ErrorCode::Success) {
        return error;
    }
    Node* file = nullptr;
    ErrorCode error = FindFile(from, file);
    if (error == ErrorCode::Success) {
        error = CheckPlace(to);
    }
    if (const Node* there = Find(to);
        error == ErrorCode::Success && there != nullptr && there->Kind != EntryKind::File) {
        error = ErrorCode::AccessDenied;
    }
    if (error == ErrorCode::Success) {
        Nodes[to] = Nodes[from];
        Nodes.erase(from);
        Note(from);
        Note(to);
    }
    return error;
}

ErrorCode MemoryDisk::Remove(const std::string& path) {
    if (const ErrorCode error = Count(); error != ErrorCode::Success) {
        return error;
    }
    Node* file = nullptr;
    const ErrorCode error = FindFile(path, file);
    if (error == ErrorCode::Success) {
        Nodes.erase(path);
        Note(path);
    }
    return error;
}

void MemoryDisk::RemoveAll(const std::string& folder, const disk::NameTest& isUnwanted) {
    for (const std::string& name : NamesIn(folder)) {
        if (isUnwanted(name)) {
            static_cast<void>(Remove(PathOf(folder, name))); // what cannot go stays
        }
    }
}

// Nothing is ever left unfinished here.
void MemoryDisk::RemoveUnfinished(const std::string&) {
    static_cast<void>(Count());
}

ErrorCode MemoryDisk::MakeFolder(const std::string& path) {
    if (const ErrorCode error = Count(); error != ErrorCode::Success) {
        return error;
    }
    if (const ErrorCode error = CheckFree(path); error != ErrorCode::Success) {
        return error;
    }
    Make(path, EntryKind::Folder);
    return ErrorCode::Success;
}

ErrorCode MemoryDisk::SyncFolder(const std::string& folder) {
    if (const ErrorCode error = Count(); error != ErrorCode::Success) {
        return error;
    }
    return Find(folder) == nullptr ? ErrorCode::FileNotFound : ErrorCode::Success;
}

std::unique_ptr<disk::IHeldFile> MemoryDisk::Hold(const std::string& path) {
    if (Count() != ErrorCode::Success || CheckPlace(path) != ErrorCode::Success) {
        return nullptr;
    }
    if (Find(path) == nullptr) {
        Make(path, EntryKind::File);
    }
    if (Find(path)->IsHeld) {
        throw std::logic_error("whoever holds the file waits for it too"); // there is one thread
    }
    return std::make_unique<HeldFile>(*this, Nodes[path]);
}

ErrorCode MemoryDisk::MakeHeld(const std::string& path, std::unique_ptr<disk::IHeldFile>& file) {
    if (const ErrorCode error = Count(); error != ErrorCode::Success) {
        return error;
    }
    if (const ErrorCode error = CheckFree(path); error != ErrorCode::Success) {
        return error;
    }
    Make(path, EntryKind::File);
    file = std::make_unique<HeldFile>(*this, Nodes[path]);
    return ErrorCode::Success;
}

bool MemoryDisk::IsHeld(const std::string& path) {
    const Node* file = Find(path);
    return Count() == ErrorCode::Success && file != nullptr && file->IsHeld;
}

} // namespace tavo::test
