// What an item of a kind always is: an alarm has no length, a holiday or anniversary is one day.
#pragma once

#include "tools/item_times.h"

namespace tavo::tools {

// Makes the times those of the kind. False, with a sentence in `error`, when what was said of the item is against it.
bool FitToKind(ExportKind kind, const ItemOptions& options, ItemTimes& times, std::string& error);

} // namespace tavo::tools
