// What an export says to people.
#pragma once

#include "platform/status.h"

#include <string>

namespace tavo::exchange {

// What others do not understand of the items of an export.
struct Unsaid {
    int Kinds = 0; // items of a kind
    int Sounds = 0;
    int Ink = 0; // items with a note

    // One sentence; "" when all can be said.
    std::string Describe() const;
};

// Why a file cannot be written: a phrase for people.
const char* DescribeWriteFailure(ErrorCode problem);

} // namespace tavo::exchange
