// What lies on and around the ink of a paper: bars, frames, a notice, the row of pens.
#pragma once

#include "host/bare/bare_host.h"

namespace tavo::bare {

// Places are those of the screen.
shell::Pieces DrawPaperBars(BareHost& host, WindowHandle paper);

} // namespace tavo::bare
