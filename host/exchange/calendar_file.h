// Reads a whole calendar file, entry by entry, into a sink.
#pragma once

#include "host/exchange/byte_source.h"
#include "host/exchange/entry_sink.h"
#include "host/exchange/piece_reader.h"

namespace tavo::exchange {

enum class FileOutcome {
    Read,    // to the end
    Broken,  // against the format; what the sink got must not be kept
    Stopped, // the sink did not want to go on
};

// Reads the file twice: first its zones, doubled entries and single occurrences are found, for they may stand anywhere;
// then each entry is read and given to the sink. Broken: `fault` names line and reason.
FileOutcome ReadCalendarFile(IByteSource& source, IEntrySink& sink, FileFault& fault);

} // namespace tavo::exchange
