// The real RSound on a root folder and a bus of the test's own.
#pragma once

#include "tests/companion/session_bus.h"
#include "tests/outlook/store_fixture.h"

#include <string>
#include <sys/types.h>
#include <vector>

namespace tavo::companion::test {

class CompanionTest : public outlook::test::StoreFileTest {
  protected:
    CompanionTest();
    ~CompanionTest() override;

    // Starts RSound; `bus` is its session bus, "" for none.
    void StartCompanion(const std::string& bus);
    void Kill(int signal);

    bool Runs() const { return Process > 0; }

    // An item that starts so many seconds from now and reminds so many minutes before, with these options.
    Oid AddReminder(const std::u16string& subject, int secondsAhead, int leadMinutes = 0, std::int32_t options = 5,
                    const std::u16string& sound = u"");
    Oid AddReminderAt(rules::Seconds start, const std::u16string& subject, int leadMinutes, std::int32_t options = 5,
                      const std::u16string& sound = u"");
    // As if the machine had been off since yesterday, and all items were two hours earlier.
    void BeOffForADay();
    static rules::Seconds Now();
    // The states of the ledger, in order of OID: "0 1 2".
    std::string LedgerStates();
    // Waits until the ledger says so, serving nobody meanwhile.
    bool WaitForStates(const std::string& states, double seconds);
    // Waits until the reminder of this title has come so far.
    bool WaitForState(const std::string& title, int state, double seconds);

    pid_t Process = -1;
    std::vector<std::string> Places; // of the environment, for the next start: where the device and settings are
    std::string Program;             // for the next start; the built RSound, or a copy of it
    std::string SoundServer = "unix:/nowhere"; // for the next start
};

} // namespace tavo::companion::test
