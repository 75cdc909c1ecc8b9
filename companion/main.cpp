// RSound: one for each user and root folder.
#include "companion/companion.h"
#include "companion/companion_lock.h"
#include "companion/night_round.h"
#include "host/locale/harmless_text.h"
#include "host/outlook/store.h"
#include "host/posix/installed_parts.h"
#include "host/posix/login_entry.h"
#include "host/posix/root_folder.h"

#include <cstdio>
#include <exception>
#include <string_view>

namespace {

using namespace tavo;

int Refuse(std::string_view problem) {
    std::fprintf(stderr, "RSound: %s\n", locale::MakeHarmless(problem).c_str());
    return 1;
}

// Whoever has used the calendar is reminded after the next login too, unless they switched that off. A device in a
// place of its own is somebody's trial.
void EnterAtLogin(const posix::RootEnvironment& environment) {
    posix::LoginEntry entry;
    if (environment.TavoHome.empty() && !entry.IsDecided()) {
        // Where it cannot be written, reminders come once the calendar is started.
        static_cast<void>(entry.SwitchOn(posix::FindProgram(posix::RunningProgramFolder(), "RSound"), ""));
    }
}

} // namespace

int main(int count, char** words) {
    const std::string_view word = count > 1 ? words[1] : "";
    if (count > 2 || (count == 2 && word != "--round")) {
        const bool asked = word == "--help" || word == "-h";
        std::fputs("RSound reminds of what is in the calendar. The calendar starts it, and `tavo reminders on`.\n",
                   asked ? stdout : stderr);
        return asked ? 0 : 2;
    }
    outlook::PrepareStores(outlook::StoreUse::Service);
    try {
        const posix::RootEnvironment environment = posix::RootEnvironment::OfProcess();
        const posix::RootResult root = posix::OpenDeviceRoot(environment);
        if (!root.Root.has_value()) {
            return Refuse(root.Problem);
        }
        if (word == "--round") {
            return static_cast<int>(companion::GoRound(*root.Root)); // started by the one that waits
        }
        const companion::CompanionLock lock(root.Root->RunFolder());
        if (!lock.IsHeld()) {
            return 0; // another one is at work
        }
        EnterAtLogin(environment);
        return companion::Companion(*root.Root).Run();
    } catch (const std::exception& problem) {
        return Refuse(problem.what());
    }
}
