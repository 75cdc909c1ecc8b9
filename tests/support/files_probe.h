// Files that fail where a test wants them to, and pass everything else on.
#pragma once

#include "platform/files.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tavo::test {

// Gives these names, in this order.
class NamedFiles final : public IFileSearch {
  public:
    explicit NamedFiles(std::vector<std::u16string> names) : Names(std::move(names)) {}

    std::u16string FileName() const override { return Place < Names.size() ? Names[Place] : std::u16string(); }

    bool FindNextFileW() override { return ++Place < Names.size(); }

  private:
    std::vector<std::u16string> Names;
    std::size_t Place = 0;
};

class FilesProbe final : public IFiles {
  public:
    explicit FilesProbe(IFiles& files) : Files(files) {}

    ErrorCode CreateDirectoryW(std::u16string_view path) override {
        return FolderResult == ErrorCode::Success ? Files.CreateDirectoryW(path) : FolderResult;
    }

    ErrorCode ReadWholeFile(std::u16string_view path, std::vector<std::uint8_t>& bytes) override {
        LastRead = path;
        return ReadResult == ErrorCode::Success ? Files.ReadWholeFile(path, bytes) : ReadResult;
    }

    ErrorCode WriteWholeFile(std::u16string_view path, std::span<const std::uint8_t> bytes) override {
        LastWritten = path;
        return WriteResult == ErrorCode::Success ? Files.WriteWholeFile(path, bytes) : WriteResult;
    }

    ErrorCode DeleteFileW(std::u16string_view path) override {
        if (BeforeDelete) {
            BeforeDelete(path);
        }
        return Files.DeleteFileW(path);
    }

    ErrorCode PutAwayMemo(std::u16string_view path, std::u16string& kept) override {
        return PutAwayResult == ErrorCode::Success ? Files.PutAwayMemo(path, kept) : PutAwayResult;
    }

    ErrorCode MoveFileW(std::u16string_view from, std::u16string_view to) override {
        return MoveResult == ErrorCode::Success ? Files.MoveFileW(from, to) : MoveResult;
    }

    std::unique_ptr<IFileSearch> FindFirstFileW(std::u16string_view pattern) override {
        LastPattern = pattern;
        return Found.empty() ? Files.FindFirstFileW(pattern) : std::make_unique<NamedFiles>(Found);
    }

    // A failure is given back without asking further.
    ErrorCode FolderResult = ErrorCode::Success;
    ErrorCode ReadResult = ErrorCode::Success;
    ErrorCode WriteResult = ErrorCode::Success;
    ErrorCode PutAwayResult = ErrorCode::Success;
    ErrorCode MoveResult = ErrorCode::Success;
    std::function<void(std::u16string_view)> BeforeDelete;
    std::vector<std::u16string> Found; // given instead of what is there
    std::u16string LastRead;
    std::u16string LastWritten;
    std::u16string LastPattern;

  private:
    IFiles& Files;
};

} // namespace tavo::test
