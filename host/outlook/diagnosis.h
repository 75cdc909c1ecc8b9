// Says in words what state a store file is in and what to do about it, without changing a byte of it.
#pragma once

#include "host/outlook/store_machine.h"

#include <filesystem>
#include <string>
#include <vector>

namespace tavo::outlook {

enum class Verdict {
    Ok,
    LeavesOut, // works, but something in it is not shown
    Blemished, // works, but something beside the entries has changed by itself
    Altered,   // works, but entries have changed by themselves
    Missing,
    Damaged, // not to be trusted as a whole
    Newer,
    NotOurs,
    Locked,
    ReadOnly,
    DiskFull,
    Unreadable,
    Exposed
};

struct Diagnosis {
    Verdict State = Verdict::Ok;
    std::string What;                  // one sentence
    std::string Advice;                // one sentence; "" when all is well
    std::vector<std::string> Findings; // of the full check: each a line; empty when all is well
};

enum class CheckDepth {
    Quick, // what opening looks at: identity, version, schema, locks, rights
    Rows,  // and that every row is as it was saved
    Full,  // every page, index and reference of the file, and the store's own rules
};

Diagnosis DiagnoseStore(IStoreMachine& machine, const std::filesystem::path& path, CheckDepth depth,
                        int lockPatience = 5000);

} // namespace tavo::outlook
