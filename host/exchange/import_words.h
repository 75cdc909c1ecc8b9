// What became of an import, in words.
#pragma once

#include "host/exchange/store_sink.h"

#include <string>
#include <string_view>

namespace tavo::exchange {

// "2 new, 0 changed, 1 unchanged, 0 refused", and ", 3 mended" where something was.
std::string DescribeCounts(const ImportCounts& counts);
// A sentence; empty when nothing was passed over.
std::string DescribePassedOver(const ImportCounts& counts);
// "1 file", "3 files"
std::string CountOf(int number, std::string_view one, std::string_view several);
// The name of the step of undo that the import of this file is.
std::u16string NameImport(const std::string& path);

} // namespace tavo::exchange
