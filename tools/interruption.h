// Ctrl+C as a question that the work in hand asks itself.
#pragma once

namespace tavo::tools {

// From now on Ctrl+C and a polite kill do not end the process but make WasInterrupted true. A second one ends it.
void WatchForInterruption();
bool WasInterrupted();

// Work that does not come to ask in time is ended within a second of the signal with these words on standard error.
// They must live as long as the process.
void SetLastWords(const char* words);

} // namespace tavo::tools
