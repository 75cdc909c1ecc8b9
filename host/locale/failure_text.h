// What a store's failure means.
#pragma once

#include "platform/status.h"

#include <string>

namespace tavo::locale {

// A phrase for people, which ends a sentence: "the disk is full".
std::string DescribeFailure(Status status);

} // namespace tavo::locale
