// Starting and ending RSound, and a look at its ledger.
#include "tests/companion/running_companion.h"

#include "host/outlook/store_core.h"
#include "host/rules/wall_time.h"
#include "tests/companion/patience.h"

#include <csignal>
#include <ctime>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavo::companion::test {

CompanionTest::CompanionTest() : Places{"TAVO_HOME=" + Folder.Path.string()}, Program(TAVO_COMPANION) {}

CompanionTest::~CompanionTest() {
    Kill(SIGTERM);
}

void CompanionTest::StartCompanion(const std::string& bus) {
    std::vector<std::string> lines = Places;
    lines.push_back(bus.empty() ? "DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere" : "DBUS_SESSION_BUS_ADDRESS=" + bus);
    lines.insert(lines.end(), {"QT_QPA_PLATFORM=offscreen", "TZ=UTC", "PULSE_SERVER=" + SoundServer});
    std::vector<char*> environment;
    environment.reserve(lines.size() + 1);
    for (std::string& line : lines) {
        environment.push_back(line.data());
    }
    environment.push_back(nullptr);
    Process = fork();
    if (Process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        char* arguments[] = {Program.data(), nullptr};
        execve(Program.c_str(), arguments, environment.data());
        _exit(127);
    }
}

void CompanionTest::Kill(int signal) {
    if (Process > 0) {
        kill(Process, signal);
        waitpid(Process, nullptr, 0);
        Process = -1;
    }
}

Oid CompanionTest::AddReminder(const std::u16string& subject, int secondsAhead, int leadMinutes, std::int32_t options,
                               const std::u16string& sound) {
    return AddReminderAt(Now() + secondsAhead, subject, leadMinutes, options, sound);
}

rules::Seconds CompanionTest::Now() {
    return std::time(nullptr) + rules::kUnixEpochDay * rules::kSecondsPerDay;
}

Oid CompanionTest::AddReminderAt(rules::Seconds start, const std::u16string& subject, int leadMinutes,
                                 std::int32_t options, const std::u16string& sound) {
    ComPtr<IAppointment> item;
    EXPECT_EQ(App->CreateItem(kItemAppointment, item), Status::Ok);
    EXPECT_EQ(item->put_Subject(subject), Status::Ok);
    EXPECT_EQ(item->put_Start(rules::DateFromSeconds(start)), Status::Ok);
    EXPECT_EQ(item->put_End(rules::DateFromSeconds(start + 600)), Status::Ok);
    EXPECT_EQ(item->put_ReminderSet(true), Status::Ok);
    EXPECT_EQ(item->put_ReminderMinutesBeforeStart(leadMinutes), Status::Ok);
    EXPECT_EQ(item->put_ReminderOptions(options), Status::Ok);
    EXPECT_EQ(item->put_ReminderSoundFile(sound), Status::Ok);
    EXPECT_EQ(item->Save(), Status::Ok);
    Oid oid = 0;
    EXPECT_EQ(item->get_Oid(oid), Status::Ok);
    return oid;
}

void CompanionTest::BeOffForADay() {
    EXPECT_EQ(CoreOf(*Store).Db.Run("UPDATE item SET start = start - 7200; UPDATE plain SET start = start - 7200;"
                                    "UPDATE setting SET value = value - 86400 WHERE name LIKE 'reminders_passed%'"),
              Status::Ok);
}

std::string CompanionTest::LedgerStates() {
    outlook::Query query(CoreOf(*Store).Db,
                         "SELECT group_concat(state, ' ') FROM (SELECT state FROM ledger ORDER BY oid)");
    return query.Next() ? std::string(query.Text(0)) : "";
}

bool CompanionTest::WaitForStates(const std::string& states, double seconds) {
    return WaitUntil([&] { return LedgerStates() == states; }, seconds);
}

bool CompanionTest::WaitForState(const std::string& title, int state, double seconds) {
    const auto isThere = [&] {
        outlook::Query query(CoreOf(*Store).Db, "SELECT 1 FROM ledger WHERE title = ? AND state = ?");
        return query.Bind(title).Bind(state).Next();
    };
    return WaitUntil(isThere, seconds);
}

} // namespace tavo::companion::test
