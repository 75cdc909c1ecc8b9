// Files are made relative to a folder that is open, so that nobody can exchange a folder on the way.
#include "host/posix/private_file.h"

#include <atomic>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace tavo::posix {

namespace {

constexpr mode_t kPrivateFile = 0600;
constexpr mode_t kWritableByOthers = S_IWGRP | S_IWOTH;
constexpr int kMostTries = 1000; // names left behind by a killed process of the same number

FolderKeeping KeepingOf(const struct stat& state) {
    if (!S_ISDIR(state.st_mode)) {
        errno = ENOTDIR;
        return FolderKeeping::Missing;
    }
    if (state.st_uid != geteuid()) {
        return FolderKeeping::OfSomebodyElse;
    }
    return (state.st_mode & kWritableByOthers) != 0 ? FolderKeeping::OpenToOthers : FolderKeeping::Ours;
}

std::string NameOf(const std::string& path) {
    return path.substr(path.rfind('/') + 1); // of a bare name, all of it
}

} // namespace

FolderKeeping LookAtFolder(const std::string& path) {
    struct stat state {};

    return stat(path.c_str(), &state) == 0 ? KeepingOf(state) : FolderKeeping::Missing;
}

FolderKeeping LookAtFolder(const FileDescriptor& folder) {
    struct stat state {};

    return fstat(folder.Get(), &state) == 0 ? KeepingOf(state) : FolderKeeping::Missing;
}

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) {
        return ".";
    }
    return slash == 0 ? "/" : path.substr(0, slash);
}

FileDescriptor OpenFolder(const std::string& path) {
    return FileDescriptor(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

FileDescriptor MakeFile(const FileDescriptor& folder, const std::string& name) {
    return FileDescriptor(
        openat(folder.Get(), name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kPrivateFile));
}

FileDescriptor MakeUnfinished(const FileDescriptor& folder, std::string& name, const std::string& ending) {
    static std::atomic<unsigned> counter{0};
    for (int attempt = 0; attempt < kMostTries; ++attempt) {
        name = disk::kUnfinishedPrefix + std::to_string(getpid()) + '-' + std::to_string(counter.fetch_add(1)) + ending;
        FileDescriptor file = MakeFile(folder, name);
        if (file || errno != EEXIST) {
            return file;
        }
    }
    return FileDescriptor();
}

FileDescriptor OpenOrMakeFile(const std::string& path) {
    const FileDescriptor folder = OpenFolder(FolderOf(path));
    if (!folder) {
        return FileDescriptor();
    }
    const std::string name = NameOf(path);
    for (int attempt = 0; attempt < kMostTries; ++attempt) {
        FileDescriptor there(openat(folder.Get(), name.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));

        struct stat state {};

        if (there && fstat(there.Get(), &state) == 0 && !S_ISREG(state.st_mode)) {
            errno = EACCES;
            return FileDescriptor();
        }
        if (there || errno != ENOENT) {
            return there;
        }
        FileDescriptor made = MakeFile(folder, name);
        if (made || errno != EEXIST) { // else somebody was faster
            return made;
        }
    }
    return FileDescriptor();
}

} // namespace tavo::posix
