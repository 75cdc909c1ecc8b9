// A repetition that the command line asks for.
#pragma once

#include <string>

namespace tavo::tools {

struct RepeatRule {
    std::string Value;    // of an RRULE
    bool InWords = false; // it says what it means only together with the start
    int WeekdayMask = 0;  // of those that the words name: Sunday 1 .. Saturday 64
};

} // namespace tavo::tools
