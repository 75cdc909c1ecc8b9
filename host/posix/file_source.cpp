// Reading at a place, whatever interrupts it.
#include "host/posix/file_source.h"

#include "host/posix/replace_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace tavo::posix {
namespace {

FileDescriptor OpenNamelessFile() {
    const char* const folder = std::getenv("TMPDIR");
    std::string path = std::string(folder == nullptr || *folder == '\0' ? "/tmp" : folder) + "/tavo-import-XXXXXX";
    FileDescriptor file(mkostemp(path.data(), O_CLOEXEC));
    if (file) {
        unlink(path.c_str());
    }
    return file;
}

} // namespace

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

bool FileSource::OpenCopy(int descriptor, std::string& reason) {
    File = OpenNamelessFile();
    std::vector<std::uint8_t> piece(std::size_t{64} * 1024);
    ssize_t count = File ? 1 : -1;
    while (count > 0) {
        count = read(descriptor, piece.data(), piece.size());
        if (count < 0 && errno == EINTR) {
            count = 1;
        } else if (count > 0) {
            Size += count;
            if (WriteAll(File, {piece.data(), static_cast<std::size_t>(count)}) != ErrorCode::Success) {
                reason = std::string("cannot be kept in a file: ") + std::strerror(errno);
                return false;
            }
        }
    }
    if (count < 0) {
        reason = std::strerror(errno);
    }
    return count == 0;
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
