// The nightly round of the real companion, and when it is due.
#include "companion/night_round.h"

#include "host/outlook/store_core.h"
#include "host/rules/wall_time.h"
#include "tests/companion/notification_service.h"
#include "tests/companion/running_companion.h"
#include "tests/outlook/planted_rule.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

namespace tavo::companion::test {
namespace {

namespace fs = std::filesystem;
using outlook::test::At;
using outlook::test::TextOf;

constexpr double kSoon = 20;
constexpr std::int64_t kDay = 86400;

std::string Next(const std::string& last, const std::string& now) {
    return TextOf(NextRound(At(last), At(now)));
}

TEST(NextRound, IsAtThreeInTheNightAfterTheLast) {
    EXPECT_EQ(Next("2026-11-21 14:00", "2026-11-21 15:00"), "2026-11-22 03:00");
    EXPECT_EQ(Next("2026-11-21 02:59", "2026-11-21 02:59"), "2026-11-21 03:00");
    EXPECT_EQ(Next("2026-11-21 03:00", "2026-11-21 03:00"), "2026-11-22 03:00");
}

TEST(NextRound, OfANightThatWasMissedIsOver) {
    EXPECT_EQ(Next("2026-11-18 14:00", "2026-11-21 15:00"), "2026-11-19 03:00");
}

TEST(NextRound, GoesByTheClockThatWasSetBack) {
    EXPECT_EQ(Next("2027-11-21 14:00", "2026-11-21 15:00"), "2026-11-22 03:00");
}

class NightRoundTest : public CompanionTest {
  protected:
    void NoteCheck(std::int64_t when) { ASSERT_EQ(Store->NoteFullCheck(when), Status::Ok); }

    bool WaitForCheck() {
        const std::time_t start = std::time(nullptr);
        return ServeUntil([&] { return Store->LastFullCheck().value_or(0) >= start - 1; });
    }

    // The companion asks the service of notifications at its start, and waits for an answer.
    template <class Done> bool ServeUntil(const Done& done) {
        const double end = TimeNow() + kSoon;
        while (!done() && TimeNow() < end) {
            Service.Serve(0.1);
        }
        return done();
    }

    fs::path Write(const std::string& name) const {
        fs::path path = Folder.File(name);
        fs::create_directories(path.parent_path());
        std::ofstream(path) << "bytes";
        return path;
    }

    static void MakeOld(const fs::path& path) {
        fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::hours(30));
    }

    SessionBus Bus;
    NotificationService Service{Bus};
};

TEST_F(NightRoundTest, OneThatWasMissedIsMadeAtOnceAndClearsAway) {
    const std::string memos = "My Documents/TavoCalendar/";
    const fs::path oldMemo = Write(memos + "Deleted/a (deleted 20200101T000000Z).pwi");
    const fs::path foreign = Write(memos + "Deleted/foreign.txt");
    const fs::path memo = Write(memos + "20200101_000000.pwi");
    const fs::path leftover = Write(".~tavo-1-1");
    const fs::path leftoverMemo = Write(memos + ".~tavo-1-2");
    const fs::path leftoverRequest = Write("Run/.~tavo-1-3");
    const fs::path young = Write(".~tavo-1-4");
    for (const fs::path& path : {foreign, memo, leftover, leftoverMemo, leftoverRequest}) {
        MakeOld(path);
    }
    const fs::path cutShort = Write("Backups/night 2020-01-01 030000.tavo.unfinished");
    NoteCheck(std::time(nullptr) - 2 * kDay);
    StartCompanion(Bus.Address());
    ASSERT_TRUE(WaitForCheck());
    EXPECT_FALSE(fs::exists(oldMemo));
    EXPECT_FALSE(fs::exists(leftover));
    EXPECT_FALSE(fs::exists(leftoverMemo));
    EXPECT_FALSE(fs::exists(leftoverRequest));
    EXPECT_TRUE(fs::exists(foreign));
    EXPECT_TRUE(fs::exists(memo));
    EXPECT_TRUE(fs::exists(young));
    EXPECT_TRUE(Service.Came.empty());
    const fs::path backups = Folder.Path / "Backups";
    const auto isMade = [&backups] {
        const fs::directory_iterator all(backups);
        return std::count_if(begin(all), end(all), [](const fs::directory_entry& entry) {
                   const std::string name = entry.path().filename().string();
                   return name.starts_with("night 20") && name.ends_with(".tavo");
               }) == 1;
    };
    EXPECT_TRUE(ServeUntil(isMade));
    EXPECT_FALSE(fs::exists(cutShort));
}

TEST_F(NightRoundTest, OfANewStoreWaitsForItsNight) {
    const fs::path old = Write(".~tavo-1-1");
    MakeOld(old);
    StartCompanion(Bus.Address());
    ASSERT_TRUE(ServeUntil([&] { return Store->LastFullCheck().has_value(); }));
    Service.Serve(1.5);
    EXPECT_TRUE(fs::exists(old)); // nothing was gone round for
}

TEST_F(NightRoundTest, AnUncleanEndIsFollowedByAFullCheck) {
    NoteCheck(std::time(nullptr));
    App.Reset();
    Store.reset();
    const pid_t killed = fork();
    if (killed == 0) {
        Reopen();
        Add("2026-05-05 10:00", "2026-05-05 11:00");
        _exit(0); // without closing
    }
    waitpid(killed, nullptr, 0);
    Reopen(); // whoever comes first finds it
    ASSERT_EQ(Store->LastFullCheck(), 0);
    StartCompanion(Bus.Address());
    EXPECT_TRUE(WaitForCheck());
}

TEST_F(NightRoundTest, DamageIsTold) {
    Add("2026-05-05 10:00", "2026-05-05 11:00", u"Dentist");
    ASSERT_EQ(CoreOf(*Store).Db.Run("UPDATE plain SET length = length + 60"), Status::Ok);
    NoteCheck(0);
    StartCompanion(Bus.Address());
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    EXPECT_EQ(Service.Came.back().Summary, "The calendar's store is damaged.");
    EXPECT_TRUE(Service.Came.back().Actions.empty()); // there is nothing to open or to put off
    EXPECT_TRUE(WaitForCheck());
    Service.Serve(1.5);
    EXPECT_EQ(Service.Came.size(), 1U);
}

TEST_F(NightRoundTest, WhatCannotBeShownIsNoReasonToCheckAgain) {
    rules::StoredItem item = outlook::test::MakeItem("u", "2026-01-05 09:00", "2026-01-05 10:00", u"Foreign");
    item.Pattern = outlook::test::Daily();
    ASSERT_TRUE(outlook::test::PlantRule(CoreOf(*Store), Import(item), "RRULE:FREQ=DAILY;BYMONTH=2;BYMONTHDAY=30"));
    NoteCheck(0);
    StartCompanion(Bus.Address());
    EXPECT_TRUE(WaitForCheck());
    EXPECT_TRUE(Service.Came.empty());
}

TEST_F(NightRoundTest, AnEntryThatChangedByItselfIsToldWithoutAlarm) {
    Add("2026-05-05 10:00", "2026-05-05 11:00", u"Dentist");
    ASSERT_EQ(CoreOf(*Store).Db.Run("UPDATE item SET subject = 'Eentist'"), Status::Ok); // and its sum stays
    NoteCheck(0);
    StartCompanion(Bus.Address());
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    EXPECT_EQ(Service.Came.back().Summary, "An entry of the calendar has changed by itself.");
    EXPECT_TRUE(WaitForCheck());
    Service.Serve(1.5);
    EXPECT_EQ(Service.Came.size(), 1U);
}

TEST_F(NightRoundTest, AStepOfUndoThatChangedByItselfIsNoNews) {
    Add("2026-05-05 10:00", "2026-05-05 11:00", u"Dentist");
    ASSERT_EQ(CoreOf(*Store).Db.Run("UPDATE journal_change SET image = x'00'"), Status::Ok);
    NoteCheck(0);
    StartCompanion(Bus.Address());
    EXPECT_TRUE(WaitForCheck());
    EXPECT_TRUE(Service.Came.empty());
}

TEST_F(NightRoundTest, KeepsNoReminderWaiting) {
    ASSERT_EQ(App->Begin(u"Many"), Status::Ok);
    for (int item = 0; item < 20000; ++item) {
        Add("2026-05-05 10:00", "2026-05-05 11:00", u"A subject of ordinary length");
    }
    ASSERT_EQ(App->End(), Status::Ok);
    StartCompanion(Bus.Address());
    ASSERT_TRUE(ServeUntil([&] { return Store->LastFullCheck().has_value(); })); // its first look is over
    NoteCheck(0);
    AddReminder(u"Train", 2); // wakes it, and with it the round
    const double due = std::floor(TimeNow()) + 2;
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    EXPECT_EQ(Service.Came.back().Summary, "Train");
    EXPECT_LE(Service.Came.back().Time, due + 1.5);
    EXPECT_TRUE(ServeUntil([&] { return Store->LastFullCheck() > 0; }));
}

} // namespace
} // namespace tavo::companion::test
