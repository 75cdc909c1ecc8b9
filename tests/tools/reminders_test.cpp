// What `tavo reminders` lists, and the service that it switches on and off.
#include "tests/tools/command_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <ctime>
#include <sqlite3.h>

#include <fcntl.h>
#include <unistd.h>

namespace tavo::tools {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;

constexpr std::time_t kDay = 86400;
constexpr std::time_t kEpoch = 25569 * kDay; // 1970 in the store's seconds

std::string Write(std::time_t time, const char* format) {
    std::array<char, 32> text{};
    std::tm parts{};
    gmtime_r(&time, &parts);
    return {text.data(), std::strftime(text.data(), text.size(), format, &parts)};
}

std::string Written(std::time_t time) {
    return Write(time, "%Y-%m-%d %H:%M");
}

class Reminders : public testing::Test {
  protected:
    Reminders() {
        Device.Environment["TZ"] = "UTC";
        Device.Environment["XDG_CONFIG_HOME"] = Device.Place("config").string();
        Device.Environment["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=/nowhere";
    }

    ~Reminders() override { Device.Run({"reminders", "off"}); }

    // Each reminds a quarter of an hour before.
    void Import(const std::string& subject, std::time_t start) {
        const std::string event = "BEGIN:VEVENT\nUID:" + subject + "\nDTSTART:" + Write(start, "%Y%m%dT%H%M%S") +
                                  "\nSUMMARY:" + subject +
                                  "\nBEGIN:VALARM\nACTION:DISPLAY\nTRIGGER:-PT15M\nEND:VALARM\nEND:VEVENT\n";
        const CommandResult result = Device.Run({"import", Device.WriteCalendar(subject + ".ics", event)});
        ASSERT_EQ(result.Status, 0) << result.Errors;
    }

    void Change(const std::string& statements) {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(Device.StorePath().c_str(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, statements.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database);
        sqlite3_close(database);
    }

    // As the service leaves it when it ends.
    void GivenServiceEnded(std::time_t at) {
        const std::string value = std::to_string(at + kEpoch);
        Change("INSERT INTO setting(name, value) VALUES ('reminders_passed', " + value +
               "), ('reminders_passed_wall', " + value + ")");
    }

    void GivenRow(std::time_t start, int state, std::time_t until = 0) {
        const std::string due = std::to_string(start - 900 + kEpoch);
        Change("INSERT INTO ledger VALUES (1, 0, " + due + ", " + due + ", " + std::to_string(start + kEpoch) + ", " +
               std::to_string(state) + ", " + std::to_string(until == 0 ? 0 : until + kEpoch) + ", 0, 0, '', '')");
    }

    std::string List(const std::string& days = "7") {
        const CommandResult result = Device.Run({"reminders", "list", "--days", days});
        EXPECT_EQ(result.Status, 0) << result.Errors;
        EXPECT_THAT(result.Errors, IsEmpty());
        return result.Output;
    }

    // That the service holds while it runs.
    int OpenLock() const {
        return open((Device.Home() / "Run" / "RSound.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    }

    bool ServiceRuns() const {
        const int file = OpenLock();

        struct flock lock {};

        lock.l_type = F_WRLCK;
        lock.l_whence = SEEK_SET;
        const bool asked = file >= 0 && fcntl(file, F_GETLK, &lock) == 0;
        close(file);
        return asked && lock.l_type != F_UNLCK;
    }

    std::string EntryPath() const { return Device.Place("config/autostart/tavocalendar-reminders.desktop").string(); }

    CommandDevice Device;
    std::time_t Today = std::time(nullptr) / kDay * kDay;
};

TEST_F(Reminders, WhatWillComeIsListedForSoManyDays) {
    const std::time_t soon = Today + 2 * kDay + std::time_t{9} * 3600;
    const std::time_t later = soon + 30 * kDay;
    Import("Later", later);
    Import("Soon", soon);
    const std::string first = Written(soon - 900) + "  to come  Soon (" + Written(soon) + ")\n";
    EXPECT_EQ(List(), first);
    EXPECT_EQ(List("60"), first + Written(later - 900) + "  to come  Later (" + Written(later) + ")\n");
}

TEST_F(Reminders, WhatNobodyAnsweredStandsBeforeIt) {
    const std::time_t start = Today - kDay;
    Import("Train", start);
    Import("Soon", Today + 2 * kDay);
    GivenRow(start, 4);
    EXPECT_THAT(List(), MatchesRegex(Written(start - 900) + "  missed  Train .*\n.*  to come  Soon .*\n"));
    Change("UPDATE ledger SET state = 3, until = " + std::to_string(Today + kDay + kEpoch));
    EXPECT_THAT(List(), HasSubstr("  snoozed until " + Written(Today + kDay) + "  Train"));
    Change("UPDATE ledger SET state = 5");
    EXPECT_THAT(List(), Not(HasSubstr("Train")));
}

TEST_F(Reminders, WhatCameWhileNobodyServedThemWasMissed) {
    const std::time_t start = Today - kDay;
    Import("Train", start);
    EXPECT_EQ(List(), "No reminders.\n"); // there was no service yet that could have missed it
    GivenServiceEnded(Today - 2 * kDay);
    EXPECT_EQ(List(), Written(start - 900) + "  missed  Train (" + Written(start) + ")\n");
    GivenRow(start, 5);
    EXPECT_EQ(List(), "No reminders.\n"); // it was answered elsewhere
}

TEST_F(Reminders, TheLogTellsWhatHappenedToEach) {
    const std::time_t due = Today - kDay;
    EXPECT_EQ(Device.Run({"reminders", "log"}).Output, "Nothing happened in the last 90 days.\n");
    Import("Train", due + 900);
    const auto happened = [&](std::time_t time, int state, std::time_t until) {
        Change("INSERT INTO ledger_log(time, oid, at, state, until, title) VALUES (" + std::to_string(time + kEpoch) +
               ", 1, " + std::to_string(due + kEpoch) + ", " + std::to_string(state) + ", " +
               std::to_string(until + kEpoch) + ", 'Tra\nin')");
    };
    happened(due, 2, 0);
    happened(due + 60, 3, due + 360);
    happened(due + 420, 5, 0);
    const std::string end = "  Tra␊in (due " + Written(due) + ")\n";
    EXPECT_EQ(Device.Run({"reminders", "log"}).Output, Written(due) + "  shown" + end + Written(due + 60) +
                                                           "  snoozed until " + Written(due + 360) + end +
                                                           Written(due + 420) + "  answered" + end);
}

TEST_F(Reminders, OnStartsTheServiceNowAndAtLoginAndOffEndsBoth) {
    EXPECT_EQ(Device.Run({"reminders", "on"}).Output, "Reminders are on: now, and from each login.\n");
    const std::string entry = ReadWhole(EntryPath());
    EXPECT_THAT(entry, HasSubstr("[Desktop Entry]\nType=Application\n"));
    EXPECT_THAT(entry, HasSubstr("Exec=env \"TAVO_HOME=" + Device.Home().string() + "\" \""));
    EXPECT_THAT(entry, HasSubstr("/RSound\"\n"));
    EXPECT_TRUE(ServiceRuns());
    EXPECT_EQ(Device.Run({"reminders", "on"}).Status, 0); // it runs already
    EXPECT_EQ(Device.Run({"reminders", "off"}).Output,
              "Reminders are off until the calendar is started, or `tavo reminders on`.\n");
    EXPECT_FALSE(ServiceRuns());
    EXPECT_THAT(ReadWhole(EntryPath()), HasSubstr("\nHidden=true\n")); // an entry, so that a start leaves it so
    EXPECT_EQ(Device.Run({"reminders", "off"}).Status, 0);             // nothing to end
}

TEST_F(Reminders, WhileTheyAreServedTheLedgerKnowsAll) {
    Import("Train", Today - kDay); // made when its time was over already
    GivenServiceEnded(Today - 2 * kDay);
    const int place = OpenLock();

    struct flock lock {};

    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    ASSERT_EQ(fcntl(place, F_SETLK, &lock), 0); // as the service holds it
    EXPECT_EQ(List(), "No reminders.\n");
    close(place);
    EXPECT_THAT(List(), HasSubstr("missed  Train"));
}

TEST_F(Reminders, WithoutAStoreThereAreNone) {
    EXPECT_EQ(List(), "No reminders.\n");
    EXPECT_FALSE(std::filesystem::exists(Device.StorePath()));
}

TEST_F(Reminders, AnActionMustBeNamed) {
    EXPECT_EQ(Device.Run({"reminders"}).Status, 2);
    EXPECT_EQ(Device.Run({"reminders", "list", "--days", "0"}).Status, 2);
    EXPECT_EQ(Device.Run({"reminders", "list", "log"}).Status, 2);
}

} // namespace
} // namespace tavo::tools
