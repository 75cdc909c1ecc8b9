// Where the calendar reader gets its bytes.
#include "host/exchange/byte_source.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace tavo::exchange {

std::ptrdiff_t MemorySource::ReadAt(std::int64_t offset, char* buffer, std::size_t size) {
    if (offset < 0 || static_cast<std::size_t>(offset) >= Bytes.size()) {
        return 0;
    }
    const std::string_view part = Bytes.substr(static_cast<std::size_t>(offset), size);
    std::copy(part.begin(), part.end(), buffer);
    return static_cast<std::ptrdiff_t>(part.size());
}

FileSource::~FileSource() {
    if (Descriptor >= 0) {
        close(Descriptor);
    }
}

bool FileSource::Open(const std::string& path, std::string& reason) {
    // Not blocking: a pipe with that name must not hold the import for ever.
    Descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (Descriptor < 0) {
        reason = std::strerror(errno);
        return false;
    }

    struct stat facts {};

    if (fstat(Descriptor, &facts) != 0 || !S_ISREG(facts.st_mode)) {
        reason = "is not a regular file";
        return false;
    }
    posix_fadvise(Descriptor, 0, 0, POSIX_FADV_SEQUENTIAL);
    return true;
}

std::ptrdiff_t FileSource::ReadAt(std::int64_t offset, char* buffer, std::size_t size) {
    for (;;) {
        const ssize_t count = pread(Descriptor, buffer, size, offset);
        if (count >= 0 || errno != EINTR) {
            return count;
        }
    }
}

} // namespace tavo::exchange
