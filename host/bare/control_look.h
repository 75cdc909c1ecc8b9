// What native controls look like on a host that has none: plainly, as pieces to paint.
#pragma once

#include "host/bare/bare_host.h"

namespace tavo::bare {

// Places are those of the screen. Of paper it is what lies on and around the ink; the ink itself is the host's to show.
shell::Pieces DrawControl(BareHost& host, const shell::WindowRecord& control);

} // namespace tavo::bare
