// Where the calendar reader gets its bytes: from whoever implements it, or from memory in tests and fuzzers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tavo::exchange {

// Bytes that can be read from any place, again and again.
class IByteSource {
  public:
    virtual ~IByteSource() = default;
    // Fills the buffer from `offset` on; the number of bytes read, 0 at the end, -1 on failure.
    virtual std::ptrdiff_t ReadAt(std::int64_t offset, char* buffer, std::size_t size) = 0;
    // How many bytes there were when it was opened.
    virtual std::int64_t GetSize() const = 0;
};

class MemorySource final : public IByteSource {
  public:
    explicit MemorySource(std::string_view bytes) : Bytes(bytes) {}

    std::ptrdiff_t ReadAt(std::int64_t offset, char* buffer, std::size_t size) override;

    std::int64_t GetSize() const override { return static_cast<std::int64_t>(Bytes.size()); }

  private:
    std::string_view Bytes;
};

} // namespace tavo::exchange
