// Ten thousand reminders in the same minute, and what the companion can still do then.
#include "host/outlook/store_core.h"
#include "tests/companion/notification_service.h"
#include "tests/companion/running_companion.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

namespace tavo::companion::test {
namespace {

using ::testing::HasSubstr;

constexpr double kSoon = 10;   // seconds that a busy machine may take
constexpr double kBriefly = 5; // after the last of them was made or came due
constexpr int kCrowd = 10000;
constexpr int kAhead = 4; // seconds until they are due

class Crowd : public CompanionTest {
  protected:
    void SetUp() override {
        StartCompanion(Bus.Address());
        ASSERT_EQ(App->Begin(u"Many"), Status::Ok);
        const double due = std::floor(TimeNow()) + kAhead;
        const rules::Seconds start = Now() + 600 + kAhead;
        for (int index = 0; index < kCrowd; ++index) {
            AddReminderAt(start, u"Item", 10);
        }
        ASSERT_EQ(App->End(), Status::Ok);
        const double from = std::max(due, TimeNow());
        ASSERT_TRUE(Service.WaitFor(1, 6 * kSoon));
        RecordProperty("Shown after milliseconds", static_cast<int>(1000 * (Last().Time - from)));
        EXPECT_LT(Last().Time - from, kBriefly);
    }

    const Notification& Last() const { return Service.Came.back(); }

    int CountOf(int state) {
        outlook::Query query(CoreOf(*Store).Db, "SELECT count(*) FROM ledger WHERE state = ?");
        return query.Bind(state).Next() ? query.Small(0) : 0;
    }

    // How long it took until so many were in a state.
    double TimeUntil(int count, int state) {
        const double from = TimeNow();
        while (CountOf(state) != count && TimeNow() - from < kSoon) {
            Service.Serve(0.02);
        }
        return TimeNow() - from;
    }

    SessionBus Bus;
    NotificationService Service{Bus};
};

TEST_F(Crowd, IsOneListAndHoldsNobodyUp) {
    EXPECT_EQ(Last().Summary, "10000 reminders");
    EXPECT_THAT(Last().Body, HasSubstr("and 9992 more"));
    const std::uint32_t list = Last().Number;
    EXPECT_LT(TimeUntil(kCrowd, 2), kBriefly);
    EXPECT_EQ(Service.Came.size(), 1U);

    AddReminder(u"Train", 600, 30);
    const double made = TimeNow();
    ASSERT_TRUE(Service.WaitFor(2, kSoon));
    EXPECT_EQ(Last().Summary, "Train");
    EXPECT_LT(Last().Time - made, kBriefly);

    Service.Choose(list, "dismiss");
    EXPECT_LT(TimeUntil(kCrowd, 5), kBriefly);
    EXPECT_EQ(Service.Came.size(), 2U);
}

} // namespace
} // namespace tavo::companion::test
