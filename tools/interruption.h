// Ctrl+C as a question that the work in hand asks itself.
#pragma once

namespace tavo::tools {

// From now on Ctrl+C and a polite kill do not end the process but make WasInterrupted true. A second one ends it.
void WatchForInterruption();
bool WasInterrupted();

} // namespace tavo::tools
