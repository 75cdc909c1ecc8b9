// What the ledger in the store remembers, and what it forgets.
#include "host/outlook/store_ledger.h"

#include "tests/outlook/store_fixture.h"

#include <gtest/gtest.h>

namespace tavo::outlook::test {
namespace {

using namespace reminders;
using rules::test::At;

class StoreLedgerTest : public StoreTest {
  protected:
    Oid AddReminding(const std::string& start, const std::string& end) {
        const Oid oid = Add(start, end);
        const ComPtr<IAppointment> item = Get(oid);
        EXPECT_EQ(item->put_ReminderSet(true), Status::Ok);
        EXPECT_EQ(item->put_ReminderMinutesBeforeStart(0), Status::Ok);
        EXPECT_EQ(item->Save(), Status::Ok);
        return oid;
    }

    // Of a reminder at its start.
    static LedgerRow MakeRow(Oid item, const std::string& start, LedgerState state, Showing byItself) {
        LedgerRow row;
        row.Key = {item, 0, At(start)};
        row.At = At(start);
        row.Start = At(start);
        row.State = state;
        row.ByItself = byItself;
        return row;
    }

    StoreLedger Open() {
        return {Store, [] { return At("2026-06-01 12:00"); }};
    }

    // With what is still found for it between two moments: "new", "again" or "nothing".
    std::string FoundAs(Oid item, const std::string& after, const std::string& upTo) {
        std::vector<DueReminder> found;
        EXPECT_TRUE(Open().FindDue(At(after), At(upTo), found));
        for (const DueReminder& reminder : found) {
            if (reminder.Key.Item == item) {
                return reminder.Again ? "again" : "new";
            }
        }
        return "nothing";
    }
};

TEST_F(StoreLedgerTest, RowsAndProgressAreReadAsTheyWereWritten) {
    LedgerRow row = MakeRow(7, "2026-06-01 09:00", LedgerState::Snoozed, Showing::Perhaps);
    row.Key.Original = 5;
    row.Until = row.At + kHour;
    row.Card = 0x80000001U;
    row.Service = "a desktop";
    row.Title = "Gr\u00fc\u00dfe";
    ASSERT_TRUE(Open().Commit(std::vector<LedgerRow>{row}, At("2026-06-01 10:00")));
    Reopen();
    std::vector<LedgerRow> rows;
    ASSERT_TRUE(Open().ReadOpen(rows));
    EXPECT_EQ(rows, std::vector<LedgerRow>{row});
    std::optional<Progress> progress;
    ASSERT_TRUE(Open().ReadProgress(progress));
    ASSERT_TRUE(progress.has_value());
    EXPECT_EQ(progress->Passed, At("2026-06-01 10:00"));
    EXPECT_EQ(progress->Wall, At("2026-06-01 10:00"));
}

TEST_F(StoreLedgerTest, AClockSetBackForgetsWhatWasOnlyListedAndLetsReturnWhatIsInDoubt) {
    const Oid listed = AddReminding("2026-06-01 09:00", "2026-06-01 10:00");
    const Oid doubtful = AddReminding("2026-06-01 09:10", "2026-06-01 10:00");
    const Oid shown = AddReminding("2026-06-01 09:20", "2026-06-01 10:00");
    const Oid waiting = AddReminding("2026-06-01 09:30", "2026-06-01 10:00");
    const Oid before = AddReminding("2026-06-01 08:00", "2026-06-01 10:00");
    const std::vector<LedgerRow> rows{
        MakeRow(listed, "2026-06-01 09:00", LedgerState::Dismissed, Showing::Never),
        MakeRow(doubtful, "2026-06-01 09:10", LedgerState::Dismissed, Showing::Perhaps),
        MakeRow(shown, "2026-06-01 09:20", LedgerState::Dismissed, Showing::Surely),
        MakeRow(waiting, "2026-06-01 09:30", LedgerState::Due, Showing::Never),
        MakeRow(before, "2026-06-01 08:00", LedgerState::Listed, Showing::Never),
    };
    ASSERT_TRUE(Open().Commit(rows, At("2026-06-01 10:00")));
    ASSERT_TRUE(Open().GoBack({At("2026-06-01 08:30"), At("2026-06-01 07:30")}));
    const std::string from = "2026-06-01 07:00";
    const std::string to = "2026-06-01 10:00";
    EXPECT_EQ(FoundAs(listed, from, to), "new");
    EXPECT_EQ(FoundAs(doubtful, from, to), "again");
    EXPECT_EQ(FoundAs(shown, from, to), "nothing");
    EXPECT_EQ(FoundAs(waiting, from, to), "nothing");
    EXPECT_EQ(FoundAs(before, from, to), "nothing");
    std::optional<Progress> progress;
    ASSERT_TRUE(Open().ReadProgress(progress));
    EXPECT_EQ(progress->Passed, At("2026-06-01 07:30"));
}

TEST_F(StoreLedgerTest, WhatIsAheadIsToldInTheZoneOfToday) {
    const Oid item = AddReminding("2026-06-01 09:00", "2026-06-01 10:00");
    // Entered where it was due at seven in universal time; here its time is nine.
    LedgerRow row = MakeRow(item, "2026-06-01 09:00", LedgerState::Listed, Showing::Never);
    row.At = At("2026-06-01 07:00");
    ASSERT_TRUE(Open().Commit(std::vector<LedgerRow>{row}, At("2026-06-01 08:00")));
    ASSERT_TRUE(Open().GoBack({At("2026-06-01 08:00"), At("2026-06-01 08:00")}));
    EXPECT_EQ(FoundAs(item, "2026-06-01 08:00", "2026-06-01 10:00"), "new");
    // And where it was due at eleven: it was seen late, and its time is over.
    row.At = At("2026-06-01 11:00");
    ASSERT_TRUE(Open().Commit(std::vector<LedgerRow>{row}, At("2026-06-01 11:00")));
    ASSERT_TRUE(Open().GoBack({At("2026-06-01 10:00"), At("2026-06-01 10:00")}));
    EXPECT_EQ(FoundAs(item, "2026-06-01 08:00", "2026-06-01 10:00"), "nothing");
}

TEST_F(StoreLedgerTest, AnAnsweredOneIsForgottenAfterNinetyDaysThatTheServiceLived) {
    const Oid item = AddReminding("2026-06-01 09:00", "2026-06-01 10:00");
    const std::string from = "2026-06-01 08:00";
    const std::string to = "2026-06-01 10:00";
    ASSERT_TRUE(Open().Commit(
        std::vector<LedgerRow>{MakeRow(item, "2026-06-01 09:00", LedgerState::Dismissed, Showing::Surely)},
        At("2026-06-01 08:00")));
    // The clock jumped: what lies in between is looked through yet.
    ASSERT_TRUE(Open().Purge(At("2027-06-01 09:00")));
    EXPECT_EQ(FoundAs(item, from, to), "nothing");
    ASSERT_TRUE(Open().Commit({}, At("2027-06-01 09:00")));
    ASSERT_TRUE(Open().Purge(At("2027-06-01 09:00")));
    EXPECT_EQ(FoundAs(item, from, to), "new");
}

} // namespace
} // namespace tavo::outlook::test
