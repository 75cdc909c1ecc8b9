// The real companion on stores that hold rules which an earlier version took and stumbled over.
#include "tests/companion/notification_service.h"
#include "tests/companion/running_companion.h"
#include "tests/outlook/planted_rule.h"

#include <gmock/gmock.h>

namespace tavo::companion::test {
namespace {

constexpr double kSoon = 10; // seconds that a busy machine may take

class ForeignRules : public CompanionTest {
  protected:
    void GivenSeriesBy(const std::string& lines) {
        rules::StoredItem item = outlook::test::MakeItem("u", "2026-01-05 09:00", "2026-01-05 10:00", u"Foreign");
        item.Pattern = outlook::test::Daily();
        item.ReminderSet = true;
        item.ReminderMinutes = 15;
        ASSERT_TRUE(outlook::test::PlantRule(CoreOf(*Store), Import(item), lines));
    }

    // Another item's reminder comes, and the companion lives on.
    void ExpectTheOthersCome() {
        AddReminder(u"Train", 600, 30);
        StartCompanion(Bus.Address());
        ASSERT_TRUE(Service.WaitFor(1, kSoon));
        EXPECT_EQ(Service.Came.front().Summary, "Train");
        EXPECT_TRUE(WaitForState("Train", 2, kSoon));
        AddReminder(u"Tea", 600, 30);
        ASSERT_TRUE(Service.WaitFor(2, kSoon));
        EXPECT_TRUE(Runs());
    }

    SessionBus Bus;
    NotificationService Service{Bus};
};

TEST_F(ForeignRules, ThatNameTheirCalendarStopNoReminder) {
    GivenSeriesBy("RRULE:RSCALE=GREGORIAN;FREQ=YEARLY;COUNT=3\nRRULE:FREQ=YEARLY;UNTIL=20260101T000000");
    ExpectTheOthersCome();
}

TEST_F(ForeignRules, WithoutMeasureStopNoReminder) {
    std::string lines = "RRULE:FREQ=HOURLY";
    for (int line = 1; line < 4900; ++line) {
        lines += "\nRRULE:FREQ=HOURLY";
    }
    GivenSeriesBy(lines);
    ExpectTheOthersCome();
}

} // namespace
} // namespace tavo::companion::test
