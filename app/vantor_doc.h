// The document of the frame and its view.
#pragma once

namespace tavo {

// Holds no data: all of it lives in the appointment store and in the process-wide lists.
class CVantorDoc {};

} // namespace tavo
