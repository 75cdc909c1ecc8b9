// Bytes that are there already.
#include "host/exchange/byte_source.h"

#include <algorithm>

namespace tavo::exchange {

std::ptrdiff_t MemorySource::ReadAt(std::int64_t offset, char* buffer, std::size_t size) {
    if (offset < 0 || static_cast<std::size_t>(offset) >= Bytes.size()) {
        return 0;
    }
    const std::string_view part = Bytes.substr(static_cast<std::size_t>(offset), size);
    std::copy(part.begin(), part.end(), buffer);
    return static_cast<std::ptrdiff_t>(part.size());
}

} // namespace tavo::exchange
