// A calendar file of this machine, read from any place.
#pragma once

#include "host/exchange/byte_source.h"
#include "host/posix/file_descriptor.h"

#include <memory>

namespace tavo::posix {

// A regular file, opened for reading.
class FileSource final : public exchange::IByteSource {
  public:
    // True on success; otherwise `reason` says why in a few words.
    bool Open(const std::string& path, std::string& reason);
    // Likewise what comes from a descriptor up to its end, a pipe for example: kept in a file without a name, which is
    // gone with this object. Waits until all is there.
    bool OpenCopy(int descriptor, std::string& reason);

    std::ptrdiff_t ReadAt(std::int64_t offset, char* buffer, std::size_t size) override;

    std::int64_t GetSize() const override { return Size; }

  private:
    FileDescriptor File;
    std::int64_t Size = 0;
};

// Null, and a reason, when it cannot be opened.
std::unique_ptr<exchange::IByteSource> OpenFileSource(const std::string& path, std::string& reason);

} // namespace tavo::posix
