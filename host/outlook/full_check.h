// The full check of an open store.
#pragma once

#include "host/outlook/diagnosis.h"

namespace tavo::outlook {

class StoreCore;

// Looks at every page, row and reference; changes nothing. The worst that was found, and all findings, the worst first.
Diagnosis CheckFully(StoreCore& core);

} // namespace tavo::outlook
