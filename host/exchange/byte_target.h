// Where the calendar writer puts its bytes: whoever implements it.
#pragma once

#include "platform/status.h"

#include <string_view>

namespace tavo::exchange {

// A file that is new, or replaced, once it is finished; otherwise it leaves no trace.
class IByteTarget {
  public:
    virtual ~IByteTarget() = default;
    // Each after a success of the one before.
    virtual ErrorCode Write(std::string_view bytes) = 0;
    virtual ErrorCode Finish() = 0;
};

} // namespace tavo::exchange
