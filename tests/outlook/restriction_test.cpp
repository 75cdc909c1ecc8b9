// What a restriction selects.
#include "tests/outlook/store_fixture.h"

#include <gmock/gmock.h>

namespace tavo::outlook::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Restricting : public StoreTest {};

TEST_F(Restricting, WithoutATimeWholeDaysAreCompared) {
    Add("2026-05-01 23:59:59", "2026-05-02 00:30");
    const std::string line = "2026-05-01 23:59:59 > 2026-05-02 00:30";
    EXPECT_THAT(Occurrences(u"[Start] <= 5/1/2026"), ElementsAre(line));
    EXPECT_THAT(Occurrences(u"[Start] = 5/1/2026"), ElementsAre(line));
    EXPECT_THAT(Occurrences(u"[End] = 5/2/2026"), ElementsAre(line));
    EXPECT_THAT(Occurrences(u"[Start] < 5/1/2026"), IsEmpty());
    EXPECT_THAT(Oids(u"[Start] <> 5/1/2026 and [Start] < 1/1/2030"), IsEmpty());
    EXPECT_THAT(Oids(u"[Start] > 5/1/2026 and [Start] < 1/1/2030"), IsEmpty());
}

TEST_F(Restricting, WithATimeSecondsAreCompared) {
    Add("2026-05-01 14:00", "2026-05-01 15:00");
    EXPECT_EQ(Oids(u"[Start] = 5/1/2026 2:00 PM").size(), 1U);
    EXPECT_EQ(Oids(u"[Start] = 5/1/2026 14:00").size(), 1U);
    EXPECT_EQ(Oids(u"[Start] <= 5/1/2026 14:00:00").size(), 1U);
    EXPECT_THAT(Oids(u"[Start] < 5/1/2026 14:00"), IsEmpty());
    EXPECT_THAT(Oids(u"[End] > 5/1/2026 3:00 PM and [Start] < 1/1/2030"), IsEmpty());
    EXPECT_EQ(Oids(u"[End] > 5/1/2026 2:59 pm and [Start] < 1/1/2030").size(), 1U);
    Add("2026-06-01 00:00", "2026-06-02 00:00");
    EXPECT_EQ(Oids(u"[End] = 6/2/2026 12:00 AM").size(), 1U);
}

TEST_F(Restricting, AMidnightEndCountsForTheDayBeforeOnlyAfterAMidnightStart) {
    const Oid allDay = Add("2026-05-03 00:00", "2026-05-04 00:00");
    const Oid evening = Add("2026-05-03 20:00", "2026-05-04 00:00");
    const Oid point = Add("2026-05-04 00:00", "2026-05-04 00:00");
    const Oid days = Add("2026-05-01 00:00", "2026-05-04 00:00");
    EXPECT_THAT(Oids(u"[End] = 5/3/2026"), ElementsAre(days, allDay));
    EXPECT_THAT(Oids(u"[End] = 5/4/2026"), ElementsAre(evening, point));
}

TEST_F(Restricting, AndBindsTighterThanOr) {
    const Oid first = Add("2026-05-01 10:00", "2026-05-01 11:00", u"A");
    const Oid second = Add("2026-05-02 10:00", "2026-05-02 11:00", u"B");
    Add("2026-05-03 10:00", "2026-05-03 11:00", u"B");
    EXPECT_THAT(WalkOids(*Restrict(u"[Subject] = \"A\" or [Subject] = \"B\" and [Start] = 5/2/2026")),
                ElementsAre(first, second));
}

TEST_F(Restricting, TextsNumbersAndFlagsAreCompared) {
    const auto item = NewAppointment("2026-05-01 10:00", "2026-05-01 11:00", u"Say \"hi\"");
    ASSERT_EQ(item->put_ReminderSet(true), Status::Ok);
    ASSERT_EQ(item->put_BusyStatus(kBusyTentative), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_TRUE(Restrict(u"[Subject] = \"Say \"\"hi\"\"\""));
    EXPECT_TRUE(Restrict(u"[Subject] > \"Sa\""));
    EXPECT_FALSE(Restrict(u"[Subject] = \"say \"\"hi\"\"\""));
    EXPECT_TRUE(Restrict(u"[ReminderSet] = TRUE"));
    EXPECT_TRUE(Restrict(u"[ReminderSet] = -1"));
    EXPECT_FALSE(Restrict(u"[ReminderSet] = false"));
    EXPECT_TRUE(Restrict(u"[BusyStatus] = 1"));
    EXPECT_TRUE(Restrict(u"[Duration] >= 60 and [Duration] < 61"));
    EXPECT_FALSE(Restrict(u"[IsRecurring] = 1"));
    EXPECT_FALSE(Restrict(u"[Sensitivity] > 0"));
}

TEST_F(Restricting, AnItemWithoutAValueNeverMatches) {
    Add("2026-05-01 10:00", "2026-05-01 11:00");
    EXPECT_FALSE(Restrict(u"[Location] = \"\""));
    EXPECT_FALSE(Restrict(u"[Location] <> \"Room\""));
}

TEST_F(Restricting, EachOccurrenceIsJudgedByItself) {
    AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Daily());
    EXPECT_THAT(Starts(u"[Start] <= 5/2/2026 or [Start] = 5/9/2026"),
                ElementsAre("2026-05-01 09:00", "2026-05-02 09:00", "2026-05-09 09:00"));
}

TEST_F(Restricting, DatesFarOutsideTheStoredOnesAreJustEmpty) {
    Add("1900-01-01 00:00", "1900-01-01 01:00");
    EXPECT_EQ(Oids(u"[Start] >= 11/1/1899 and [Start] <= 2/4/1900 and [End] >= 12/31/1899\n").size(), 1U);
    EXPECT_THAT(Oids(u"[Start] >= 1/1/1601 and [Start] <= 12/31/1899"), IsEmpty());
    EXPECT_THAT(Oids(u"[Start] >= 1/1/3000 and [Start] <= 12/31/9999"), IsEmpty());
}

} // namespace tavo::outlook::test
