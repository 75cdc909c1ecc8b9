// A file descriptor that closes itself.
#pragma once

#include <utility>

#include <unistd.h>

namespace tavo::posix {

class FileDescriptor {
  public:
    FileDescriptor() = default;

    explicit FileDescriptor(int number) : Number(number) {}

    FileDescriptor(FileDescriptor&& other) noexcept : Number(std::exchange(other.Number, -1)) {}

    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(Number, other.Number);
        return *this;
    }

    ~FileDescriptor() { Close(); }

    explicit operator bool() const { return Number >= 0; }

    int Get() const { return Number; }

    // False when the file system tells only now that something could not be written.
    bool Close() { return Number < 0 || close(std::exchange(Number, -1)) == 0; }

  private:
    int Number = -1;
};

} // namespace tavo::posix
