// This machine as the appointment store sees it.
#pragma once

#include "host/outlook/store_machine.h"

namespace tavo::posix {

// The one of this process.
outlook::IStoreMachine& SystemMachine();

} // namespace tavo::posix
