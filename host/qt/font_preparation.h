// Reading which fonts the machine has, ahead of their first use.
#pragma once

namespace tavo::qt {

// Has the system's description of its fonts read on a thread of its own, which takes longer than making the application
// object: to be called before that. Nothing is lost without it but time.
void BeginReadingFontSetup();

// Begins on a thread of its own: it takes as long as opening the store, which needs no fonts. The application object
// must exist, and FinishPreparingFonts be called before it goes.
void BeginPreparingFonts();

// Names what stands in for fonts that are not installed, once; waits for what was begun. False: there is no font at
// all.
bool PrepareFonts();

// Nothing is under way any more.
void FinishPreparingFonts();

} // namespace tavo::qt
