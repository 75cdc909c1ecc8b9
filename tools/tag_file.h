// Carries tags that were asked for into TavoCalendar.dat while no program is there to do it.
#pragma once

#include "host/files/device_root.h"
#include "host/outlook/store.h"

namespace tavo::tools {

// A program that runs applies them itself, and this does nothing. False, with a sentence on standard error, when
// the file cannot be read or written; what was asked for is kept then, and the program applies it at its next start.
bool WriteTags(const files::DeviceRoot& root, const outlook::StorePtr& store);

} // namespace tavo::tools
