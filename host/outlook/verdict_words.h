// What each verdict means to a person, and which one a failure of the store is.
#pragma once

#include "host/outlook/diagnosis.h"
#include "platform/status.h"

namespace tavo::outlook {

// Without findings.
Diagnosis DescribeVerdict(Verdict state);
Verdict VerdictOf(Status status);

} // namespace tavo::outlook
