// Which reminders the store holds, and when each is due.
#include "host/outlook/reminder_finder.h"

#include "tests/outlook/store_fixture.h"

#include <gtest/gtest.h>

#include <ctime>

namespace tavo::outlook::test {
namespace {

using namespace reminders;
using rules::test::At;
using rules::test::TextOf;

class ReminderFinderTest : public outlook::test::StoreTest {
  protected:
    void GivenReminder(Oid oid, int minutes) {
        const ComPtr<IAppointment> item = Get(oid);
        ASSERT_EQ(item->put_ReminderSet(true), Status::Ok);
        ASSERT_EQ(item->put_ReminderMinutesBeforeStart(minutes), Status::Ok);
        ASSERT_EQ(item->Save(), Status::Ok);
    }

    std::vector<std::string> Due(const std::string& after, const std::string& upTo) {
        std::vector<std::string> found;
        ReminderFinder finder(CoreOf(*Store));
        EXPECT_EQ(finder.FindDue(At(after), At(upTo),
                                 [&](const DueReminder& reminder) { found.push_back(TextOf(reminder.At)); }),
                  Status::Ok);
        return found;
    }

    // In universal time.
    std::string Next(const std::string& after) {
        std::optional<Moment> next;
        ReminderFinder finder(CoreOf(*Store));
        EXPECT_EQ(finder.FindNext(At(after), next), Status::Ok);
        return next ? TextOf(*next) : "none";
    }
};

TEST_F(ReminderFinderTest, ALeadOfFortyDaysIsFound) {
    GivenReminder(Add("2026-06-01 09:00", "2026-06-01 10:00"), 40 * 24 * 60);
    EXPECT_EQ(Next("2026-01-01 00:00"), "2026-04-22 09:00");
    EXPECT_EQ(Next("2026-04-22 08:59"), "2026-04-22 09:00");
    EXPECT_EQ(Next("2026-04-22 09:00"), "none");
}

TEST_F(ReminderFinderTest, TheNextOneMayHaveALaterStart) {
    GivenReminder(Add("2026-06-01 09:00", "2026-06-01 10:00"), 5);
    GivenReminder(Add("2026-06-03 09:00", "2026-06-03 10:00"), 3 * 24 * 60);
    EXPECT_EQ(Next("2026-05-30 00:00"), "2026-05-31 09:00");
    EXPECT_EQ(Next("2026-05-31 09:00"), "2026-06-01 08:55");
}

TEST_F(ReminderFinderTest, ALeadBelowZeroIsNone) {
    GivenReminder(Add("2026-06-01 09:00", "2026-06-01 10:00"), -15);
    EXPECT_EQ(Next("2026-05-30 00:00"), "2026-06-01 09:00");
    EXPECT_EQ(Due("2026-06-01 08:00", "2026-06-01 09:00"), std::vector<std::string>{"2026-06-01 09:00"});
}

// As one mailed file can bring them.
TEST_F(ReminderFinderTest, TwentyThousandLeadsHoldNobodyUp) {
    const Oid train = Add("2026-06-01 09:00", "2026-06-01 10:00");
    GivenReminder(train, 10);
    const std::string copies =
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 20000)"
        " INSERT INTO item SELECT 1000 + i, NULL, source, start + i * 120, length, zone, zone_start,"
        " zone_length, flags, busy, sensitivity, 20 + i, reminder_options, reminder_sound, subject,"
        " location, categories, body, sum FROM item, n WHERE oid = " +
        std::to_string(train);
    ASSERT_EQ(CoreOf(*Store).Db.Run(copies.c_str()), Status::Ok);
    ReminderFinder finder(CoreOf(*Store));
    int found = 0;
    const auto count = [&found](const DueReminder&) { ++found; };
    const std::clock_t before = std::clock();
    std::optional<Moment> next;
    ASSERT_EQ(finder.FindNext(At("2026-05-01 00:00"), next), Status::Ok);
    ASSERT_EQ(finder.FindDue(At("2026-06-01 08:00"), At("2026-06-01 10:00"), count), Status::Ok);
    ASSERT_EQ(finder.FindAhead(At("2026-06-01 09:10"), count), Status::Ok);
    const double seconds = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    RecordProperty("Milliseconds", static_cast<int>(1000 * seconds));
    EXPECT_EQ(next ? TextOf(*next) : "none", "2026-06-01 08:41");
    EXPECT_GT(found, 0);
    EXPECT_LT(seconds, 0.5);
}

TEST_F(ReminderFinderTest, OccurrencesRemindEach) {
    GivenReminder(AddSeries("2026-06-01 09:00", "2026-06-01 10:00", rules::test::Daily(2)), 15);
    EXPECT_EQ(Due("2026-06-01 00:00", "2026-06-06 00:00"),
              (std::vector<std::string>{"2026-06-01 08:45", "2026-06-03 08:45", "2026-06-05 08:45"}));
    EXPECT_EQ(Next("2030-01-01 00:00"), "2030-01-01 08:45");
}

// A lead of fifty years: every occurrence of that time is owed already.
TEST_F(ReminderFinderTest, OfASeriesOnlyTheNearestAreAhead) {
    constexpr int kLead = 19000 * 24 * 60;
    for (const bool often : {false, true}) {
        rules::StoredItem item = rules::test::MakeItem("u", "2026-06-01 09:00", "2026-06-01 10:00");
        item.Pattern = rules::test::Daily();
        if (often) {
            item.Pattern.Type = kRecursForeign;
            item.ForeignRule = "RRULE:FREQ=HOURLY;BYMINUTE=0,15,30,45";
        }
        item.ReminderSet = true;
        item.ReminderMinutes = kLead;
        Import(item);
        std::vector<std::string> starts;
        ReminderFinder finder(CoreOf(*Store));
        const std::clock_t before = std::clock();
        ASSERT_EQ(
            finder.FindAhead(At("2026-06-10 09:00"),
                             [&starts](const DueReminder& reminder) { starts.push_back(TextOf(reminder.Start)); }),
            Status::Ok);
        EXPECT_LT(static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC, 0.5);
        ASSERT_EQ(starts.size(), 64U);
        EXPECT_EQ(starts.front(), often ? "2026-06-10 09:15" : "2026-06-11 09:00");
        EXPECT_EQ(starts.back(), often ? "2026-06-11 01:00" : "2026-08-13 09:00");
    }
}

TEST_F(ReminderFinderTest, AnItemWithoutAReminderIsNotFound) {
    Add("2026-06-01 09:00", "2026-06-01 10:00");
    EXPECT_EQ(Next("2026-01-01 00:00"), "none");
}

TEST_F(ReminderFinderTest, HalfAnHourIsHalfAnHourWhereTheClockChangesInBetween) {
    Reopen("Europe/Berlin");
    // At two the clock goes to three.
    GivenReminder(Add("2026-03-29 03:15", "2026-03-29 04:00"), 30);
    EXPECT_EQ(Next("2026-03-28 00:00"), "2026-03-29 00:45");
}

TEST_F(ReminderFinderTest, ADayBeforeIsTheSameTimeOfDayWhereTheClockChangesInBetween) {
    Reopen("Europe/Berlin");
    GivenReminder(Add("2026-03-29 09:00", "2026-03-29 10:00"), 24 * 60);
    EXPECT_EQ(Next("2026-03-27 00:00"), "2026-03-28 08:00"); // nine o'clock in winter
    GivenReminder(Add("2026-10-25 09:00", "2026-10-25 10:00"), 24 * 60);
    EXPECT_EQ(Next("2026-10-20 00:00"), "2026-10-24 07:00"); // and in summer
}

TEST_F(ReminderFinderTest, AMovedItemsOldReminderStandsNoMore) {
    const Oid oid = Add("2026-06-01 09:00", "2026-06-01 10:00");
    GivenReminder(oid, 15);
    const ReminderKey key{oid, 0, At("2026-06-01 08:45")};
    ReminderFinder finder(CoreOf(*Store));
    std::optional<ReminderText> text;
    ASSERT_EQ(finder.Describe(key, text), Status::Ok);
    ASSERT_TRUE(text.has_value());
    EXPECT_EQ(text->Title, "Item");
    EXPECT_EQ(TextOf(text->StartWall), "2026-06-01 09:00");
    const ComPtr<IAppointment> item = Get(oid);
    ASSERT_EQ(item->put_Start(rules::test::DateAt("2026-06-01 09:30")), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    ASSERT_EQ(finder.Describe(key, text), Status::Ok);
    EXPECT_FALSE(text.has_value());
}

TEST_F(ReminderFinderTest, ACancelledOccurrenceDoesNotRemind) {
    const Oid oid = AddSeries("2026-06-01 09:00", "2026-06-01 10:00", rules::test::Daily());
    GivenReminder(oid, 15);
    const ComPtr<IPOutlookItemCollection> items = Restrict(u"[Start] >= 6/2/2026 and [Start] <= 6/2/2026");
    ASSERT_EQ(items->put_IncludeRecurrences(true), Status::Ok);
    ComPtr<IAppointment> second;
    ASSERT_EQ(items->Item(1, second), Status::Ok);
    ASSERT_EQ(second->Delete(), Status::Ok);
    EXPECT_EQ(Due("2026-06-01 00:00", "2026-06-04 00:00"),
              (std::vector<std::string>{"2026-06-01 08:45", "2026-06-03 08:45"}));
}

TEST_F(ReminderFinderTest, OneWhoseTimeIsOverAndWhoseStartIsAheadIsOwed) {
    GivenReminder(Add("2026-06-01 09:00", "2026-06-01 10:00"), 60);
    GivenReminder(Add("2026-06-01 08:00", "2026-06-01 10:00"), 60);
    std::vector<std::string> found;
    ReminderFinder finder(CoreOf(*Store));
    ASSERT_EQ(finder.FindAhead(At("2026-06-01 08:30"),
                               [&](const DueReminder& reminder) { found.push_back(TextOf(reminder.Start)); }),
              Status::Ok);
    EXPECT_EQ(found, std::vector<std::string>{"2026-06-01 09:00"});
}

} // namespace
} // namespace tavo::outlook::test
