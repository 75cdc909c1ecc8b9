// Where the handwritten memos of days lie.
#pragma once

#include "platform/status.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tavo::exchange {

constexpr std::size_t kLargestMemo = std::size_t{4} * 1024 * 1024; // bytes of its ink

// Each memo is a file; the day that it belongs to is what its name begins with.
class IMemoFolder {
  public:
    virtual ~IMemoFolder() = default;
    // In the order of their names.
    virtual std::vector<std::string> List() = 0;
    // One that is too large to be a memo is a failure.
    virtual ErrorCode Read(const std::string& name, std::vector<std::uint8_t>& ink) = 0;
    // Makes the folder where it is missing.
    virtual ErrorCode Write(const std::string& name, std::span<const std::uint8_t> ink) = 0;
};

} // namespace tavo::exchange
