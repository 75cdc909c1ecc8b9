// Reading at a place, whatever interrupts it.
#include "host/posix/file_source.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace tavo::posix {

bool FileSource::Open(const std::string& path, std::string& reason) {
    // Not blocking: a pipe with that name must not hold the import for ever.
    File = FileDescriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (File.Get() < 0) {
        reason = std::strerror(errno);
        return false;
    }

    struct stat facts {};

    if (fstat(File.Get(), &facts) != 0 || !S_ISREG(facts.st_mode)) {
        reason = "is not a regular file";
        return false;
    }
    Size = facts.st_size;
    posix_fadvise(File.Get(), 0, 0, POSIX_FADV_SEQUENTIAL);
    return true;
}

std::ptrdiff_t FileSource::ReadAt(std::int64_t offset, char* buffer, std::size_t size) {
    for (;;) {
        const ssize_t count = pread(File.Get(), buffer, size, offset);
        if (count >= 0 || errno != EINTR) {
            return count;
        }
    }
}

std::unique_ptr<exchange::IByteSource> OpenFileSource(const std::string& path, std::string& reason) {
    auto source = std::make_unique<FileSource>();
    return source->Open(path, reason) ? std::move(source) : nullptr;
}

} // namespace tavo::posix
