// A lock of the process: it goes with it, and the system tells others who holds it.
#include "companion/companion_lock.h"

#include "host/posix/private_file.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace tavo::companion {

CompanionLock::CompanionLock(const std::string& runFolder) {
    static_cast<void>(mkdir(runFolder.c_str(), 0700)); // when it is missing and cannot be made, opening the file tells
    posix::FileDescriptor file = posix::OpenOrMakeFile(runFolder + "/RSound.lock");

    struct flock lock {};

    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    if (file && fcntl(file.Get(), F_SETLK, &lock) == 0) {
        File = std::move(file);
    }
}

} // namespace tavo::companion
