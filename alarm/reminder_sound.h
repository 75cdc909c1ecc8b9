// Names the sound of the next appointment that will remind in the registry, where the device looks for it.
#pragma once

#include "store/program_state.h"

namespace tavo {

// Looks at one appointment: the first of today and tomorrow that starts after now and reminds. Without one the value
// stays as it was, and nothing is said of failures.
void UpdateReminderSound(CProgramState& state);

} // namespace tavo
