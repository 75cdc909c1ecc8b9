// The full check of an open store, and the part of it that a copy needs.
#pragma once

#include "host/outlook/diagnosis.h"

namespace tavo::outlook {

class StoreCore;

// Looks at every page, row and reference; changes nothing. The worst that was found, and all findings, the worst first.
Diagnosis CheckFully(StoreCore& core);

// Only that every row is as it was saved, which takes a fifth of the time.
Diagnosis CheckRows(StoreCore& core);

} // namespace tavo::outlook
