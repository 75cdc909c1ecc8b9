// Reading which fonts the machine has, ahead of their first use.
#pragma once

namespace tavo::qt {

// Begins on a thread of its own: it takes as long as opening the store, which needs no fonts. The application object
// must exist, and PrepareFonts be called before it goes.
void BeginPreparingFonts();

// Names what stands in for fonts that are not installed, once; waits for what was begun. False: there is no font at
// all.
bool PrepareFonts();

} // namespace tavo::qt
