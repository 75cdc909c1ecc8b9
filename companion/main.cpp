// RSound: one for each user and root folder.
#include "companion/companion.h"
#include "companion/companion_lock.h"

#include <cstdio>
#include <exception>
#include <sqlite3.h>

int main() {
    using namespace tavo;
    // One thread, and small: no memory is set aside for bookkeeping.
    (void)sqlite3_config(SQLITE_CONFIG_SINGLETHREAD);
    (void)sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 128, 32);
    try {
        const files::RootResult root = files::OpenDeviceRoot(files::RootEnvironment::OfProcess());
        if (!root.Root.has_value()) {
            std::fprintf(stderr, "RSound: %s\n", root.Problem.c_str());
            return 1;
        }
        const companion::CompanionLock lock(root.Root->RunFolder());
        return lock.IsHeld() ? companion::Companion(*root.Root).Run() : 0; // another one is at work
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "RSound: %s\n", problem.what());
        return 1;
    }
}
