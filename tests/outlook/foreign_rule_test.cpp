// Rules of other calendars: kept whole, expanded as they say.
#include "host/rules/foreign_rule.h"
#include "tests/outlook/planted_rule.h"
#include "tests/outlook/store_fixture.h"

#include <gmock/gmock.h>

namespace tavo::outlook::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ForeignRule : public StoreTest {
  protected:
    static StoredItem Foreign(const std::string& start, const std::string& end, const std::string& rule) {
        StoredItem item = MakeItem("u", start, end);
        item.Pattern.Type = kRecursForeign;
        item.ForeignRule = rule;
        return item;
    }
};

TEST_F(ForeignRule, ExpandsByWhatItSays) {
    Import(Foreign("2026-01-05 09:00", "2026-01-05 10:00", "RRULE:FREQ=MONTHLY;BYMONTHDAY=5,20;COUNT=4"));
    EXPECT_THAT(Occurrences(u"[Start] <= 12/31/2030"),
                ElementsAre("2026-01-05 09:00 > 2026-01-05 10:00", "2026-01-20 09:00 > 2026-01-20 10:00",
                            "2026-02-05 09:00 > 2026-02-05 10:00", "2026-02-20 09:00 > 2026-02-20 10:00"));
}

TEST_F(ForeignRule, ShowsATypeOutsideTheSix) {
    const Oid oid = Import(Foreign("2026-01-05 09:00", "2026-01-05 10:00", "RRULE:FREQ=YEARLY;INTERVAL=2"));
    ComPtr<IRecurrencePattern> pattern;
    ASSERT_EQ(Get(oid)->GetRecurrencePattern(pattern), Status::Ok);
    std::int32_t type = 0;
    ASSERT_EQ(pattern->get_RecurrenceType(type), Status::Ok);
    EXPECT_EQ(type, kRecursForeign);
}

TEST_F(ForeignRule, DatesAreAddedAndTakenOut) {
    Import(Foreign(
        "2026-01-05 09:00", "2026-01-05 10:00",
        "RRULE:FREQ=WEEKLY;UNTIL=20260126T090000\nEXDATE:20260112T090000\nRDATE:20260114T150000,20260112T090000\n"
        "RDATE;VALUE=PERIOD:20260115T100000/PT3H"));
    EXPECT_THAT(Occurrences(u"[Start] <= 12/31/2030"),
                ElementsAre("2026-01-05 09:00 > 2026-01-05 10:00", "2026-01-14 15:00 > 2026-01-14 16:00",
                            "2026-01-15 10:00 > 2026-01-15 13:00", "2026-01-19 09:00 > 2026-01-19 10:00",
                            "2026-01-26 09:00 > 2026-01-26 10:00"));
}

TEST_F(ForeignRule, DatesAloneBeginWithTheStart) {
    Import(Foreign("2026-01-05 09:00", "2026-01-05 10:00", "RDATE:20260301T090000"));
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2030"), ElementsAre("2026-01-05 09:00", "2026-03-01 09:00"));
}

TEST_F(ForeignRule, TheStartIsTheFirstAlsoWhereTheRuleDoesNotMakeIt) {
    Import(Foreign("2026-01-05 09:00", "2026-01-05 10:00", "RRULE:FREQ=WEEKLY;BYDAY=TU;COUNT=3"));
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2030"),
                ElementsAre("2026-01-05 09:00", "2026-01-06 09:00", "2026-01-13 09:00"));
    EXPECT_THAT(Starts(u"[Start] = 1/5/2026"), ElementsAre("2026-01-05 09:00"));
    EXPECT_THAT(Starts(u"[Start] > 1/13/2026 9:00 AM and [Start] <= 12/31/2030"), IsEmpty());
}

TEST_F(ForeignRule, AStartThatTheRuleDoesNotMakeIsAllThatACountOfOneLeaves) {
    Import(Foreign("2026-01-05 09:00", "2026-01-05 10:00", "RRULE:FREQ=WEEKLY;BYDAY=TU;COUNT=1"));
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2030"), ElementsAre("2026-01-05 09:00"));
}

TEST_F(ForeignRule, AStartThatIsTakenOutCountsAllTheSame) {
    Import(
        Foreign("2026-01-05 09:00", "2026-01-05 10:00", "RRULE:FREQ=WEEKLY;BYDAY=TU;COUNT=3\nEXDATE:20260105T090000"));
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2030"), ElementsAre("2026-01-06 09:00", "2026-01-13 09:00"));
}

TEST_F(ForeignRule, WhatACountedRuleTakesOutIsCountedWithoutTheStart) {
    Import(Foreign("2026-01-05 09:00", "2026-01-05 10:00",
                   "RRULE:FREQ=DAILY;COUNT=10\nEXRULE:FREQ=WEEKLY;BYDAY=TU;COUNT=1"));
    EXPECT_THAT(Starts(u"[Start] <= 1/7/2026"), ElementsAre("2026-01-05 09:00", "2026-01-07 09:00"));
}

// As a version left it that did not take the start for an occurrence.
TEST_F(ForeignRule, ASeriesOfBeforeIsUnderstoodAnew) {
    const Oid oid = Import(Foreign("2026-01-05 09:00", "2026-01-05 10:00", "RRULE:FREQ=WEEKLY;BYDAY=TU;COUNT=3"));
    ASSERT_EQ(Query(CoreOf(*Store).Db, "UPDATE series SET first = first + ?1, last_day = last_day + 7 * ?1,"
                                       " until = until + 7 * ?1 WHERE oid = ?2")
                  .Bind(std::int64_t{kSecondsPerDay})
                  .Bind(oid)
                  .Finish(),
              Status::Ok);
    ASSERT_EQ(SumAnew(CoreOf(*Store)), Status::Ok);
    Reopen();
    EXPECT_EQ(Starts(u"[Start] <= 12/31/2030").back(), "2026-01-20 09:00"); // so far it is as it was
    ASSERT_EQ(CoreOf(*Store).Db.Run("UPDATE setting SET value = '' WHERE name = 'device_zone'"), Status::Ok);
    Reopen();
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2030"),
                ElementsAre("2026-01-05 09:00", "2026-01-06 09:00", "2026-01-13 09:00"));
}

TEST_F(ForeignRule, AnExceptedDayWithoutATimeTakesTheDayOut) {
    Import(Foreign("2026-01-05 00:00", "2026-01-05 00:00",
                   "RRULE:FREQ=DAILY;BYHOUR=0;COUNT=3\nEXDATE;VALUE=DATE:20260106"));
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2030"), ElementsAre("2026-01-05 00:00", "2026-01-07 00:00"));
}

TEST_F(ForeignRule, AnEndInUniversalTimeIsMeantOnTheZonesClock) {
    Reopen("Europe/Berlin");
    StoredItem item =
        Foreign("2026-01-05 09:00", "2026-01-05 10:00", "RRULE:FREQ=DAILY;BYDAY=MO,TU,WE;UNTIL=20260107T080000Z");
    item.Zone = "Europe/Berlin";
    item.ZoneStart = At("2026-01-05 09:00");
    item.ZoneEnd = At("2026-01-05 10:00");
    Import(item);
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2030"),
                ElementsAre("2026-01-05 09:00", "2026-01-06 09:00", "2026-01-07 09:00"));
}

TEST_F(ForeignRule, AWindowIsFoundAtOnceAndExactly) {
    Import(Foreign("1990-01-01 09:00", "1990-01-01 10:00", "RRULE:FREQ=DAILY;INTERVAL=10;BYHOUR=9,17"));
    EXPECT_THAT(Starts(u"[Start] >= 5/1/2026 and [Start] <= 5/20/2026"),
                ElementsAre("2026-05-02 09:00", "2026-05-02 17:00", "2026-05-12 09:00", "2026-05-12 17:00"));
}

TEST_F(ForeignRule, WindowsHoldWhatTheWholeWalkHolds) {
    const char* rules[] = {
        "RRULE:FREQ=WEEKLY;INTERVAL=3;BYDAY=MO,TH;WKST=MO",   "RRULE:FREQ=MONTHLY;INTERVAL=5;BYMONTHDAY=1,-1",
        "RRULE:FREQ=MONTHLY;INTERVAL=2;BYDAY=2TU,-1FR",       "RRULE:FREQ=YEARLY;INTERVAL=3;BYMONTH=2,7;BYMONTHDAY=10",
        "RRULE:FREQ=YEARLY;INTERVAL=2;BYWEEKNO=20;BYDAY=WE",  "RRULE:FREQ=DAILY;INTERVAL=7;BYMONTH=1,6",
        "RRULE:FREQ=YEARLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=-1", "RRULE:FREQ=HOURLY;INTERVAL=37"};
    std::string fault;
    const ZoneLookup none = [](const std::string&) { return nullptr; };
    for (const char* text : rules) {
        const auto rule = rules::ForeignRule::Parse(text, At("2001-03-05 08:00"), nullptr, none, fault);
        ASSERT_TRUE(rule) << text << ": " << fault;
        std::vector<RuleOccurrence> all;
        ExpansionBudget budget(kStepsOfExpansion);
        rule->Expand(At("2001-01-01"), At("2031-01-01"), all, budget);
        ASSERT_GT(all.size(), 5U) << text;
        for (int window = 0; window < 120; ++window) {
            const Seconds from = At("2001-02-01") + Seconds{window} * 91 * kSecondsPerDay;
            const Seconds to = from + 75 * kSecondsPerDay;
            std::vector<RuleOccurrence> part;
            rule->Expand(from, to, part, budget);
            std::vector<Seconds> found;
            found.reserve(part.size());
            for (const RuleOccurrence& occurrence : part) {
                found.push_back(occurrence.Start);
            }
            std::vector<Seconds> expected;
            for (const RuleOccurrence& occurrence : all) {
                if (occurrence.Start >= from && occurrence.Start <= to && to <= At("2031-01-01")) {
                    expected.push_back(occurrence.Start);
                }
            }
            if (to <= At("2031-01-01")) {
                ASSERT_EQ(found, expected) << text << " from " << TextOf(from);
            }
        }
    }
}

TEST_F(ForeignRule, SurvivesEditsThatDoNotTouchRecurrence) {
    const std::string rule = "RRULE:FREQ=YEARLY;INTERVAL=2;UNTIL=20300101T090000\nEXDATE:20280105T090000";
    const Oid oid = Import(Foreign("2026-01-05 09:00", "2026-01-05 10:00", rule));
    const auto item = Get(oid);
    ASSERT_EQ(item->put_Subject(u"Renamed"), Status::Ok);
    ASSERT_EQ(item->put_Start(DateAt("2026-01-05 09:00")), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_EQ(Read(oid).ForeignRule, rule);
    // At another time of day its exceptions and its end move along.
    ASSERT_EQ(item->put_Start(DateAt("2026-01-05 11:00")), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_EQ(Read(oid).ForeignRule, "RRULE:FREQ=YEARLY;INTERVAL=2;UNTIL=20300101T110000\nEXDATE:20280105T110000");
}

TEST_F(ForeignRule, AnotherRecurrenceReplacesIt) {
    const Oid oid = Import(Foreign("2026-01-05 09:00", "2026-01-05 10:00", "RRULE:FREQ=YEARLY;INTERVAL=2"));
    const auto item = Get(oid);
    ComPtr<IRecurrencePattern> pattern;
    ASSERT_EQ(item->GetRecurrencePattern(pattern), Status::Ok);
    ASSERT_EQ(pattern->put_RecurrenceType(kRecursDaily), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_EQ(Read(oid).ForeignRule, "");
    EXPECT_EQ(Starts(u"[Start] <= 1/8/2026").size(), 4U);
    std::vector<Oid> restored;
    ASSERT_EQ(App->Undo(restored), Status::Ok);
    EXPECT_EQ(Read(oid).ForeignRule, "RRULE:FREQ=YEARLY;INTERVAL=2");
}

TEST_F(ForeignRule, ItsOccurrencesCanBeCancelled) {
    Import(Foreign("2026-01-05 09:00", "2026-01-05 10:00", "RRULE:FREQ=MONTHLY;BYMONTHDAY=5,20;COUNT=3"));
    const auto items = Restrict(u"[Start] <= 12/31/2030");
    ASSERT_EQ(items->put_IncludeRecurrences(true), Status::Ok);
    ComPtr<IAppointment> item;
    ASSERT_EQ(items->Item(1, item), Status::Ok);
    ASSERT_EQ(item->Delete(), Status::Ok);
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2030"), ElementsAre("2026-01-20 09:00", "2026-02-05 09:00"));
    EXPECT_THAT(Walk(*Items()), ElementsAre("2026-01-20 09:00 > 2026-01-20 10:00"));
}

TEST_F(ForeignRule, OneThatIsNotWalkedTakesPlaceOnItsFirstDayAndOnThoseThatWereAdded) {
    for (const char* rule : {"RRULE:FREQ=SECONDLY", "RRULE:FREQ=MINUTELY;INTERVAL=90;COUNT=3",
                             "RRULE:RSCALE=CHINESE;FREQ=YEARLY", "RRULE:FREQ=DAILY\nEXRULE:FREQ=MINUTELY;BYHOUR=10"}) {
        SCOPED_TRACE(rule);
        const Oid oid = Import(Foreign("2026-01-05 09:00", "2026-01-05 10:00", rule));
        EXPECT_THAT(Starts(u"[Start] <= 12/31/2030"), ElementsAre("2026-01-05 09:00"));
        EXPECT_EQ(Read(oid).ForeignRule, rule);
        ASSERT_EQ(Get(oid)->Delete(), Status::Ok);
    }
    Import(Foreign("2026-01-05 09:00", "2026-01-05 10:00",
                   "RRULE:FREQ=MINUTELY\nRDATE:20260301T090000\nEXDATE:20260105T090000"));
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2030"), ElementsAre("2026-03-01 09:00"));
}

TEST_F(ForeignRule, WhatCannotBeReadIsRefusedWithAReason) {
    const auto reason = [this](const std::string& rule) {
        const ImportOutcome outcome = TryImport(Foreign("2026-01-05 09:00", "2026-01-05 10:00", rule));
        return outcome.Result == ImportResult::Refused ? outcome.Reason : "taken";
    };
    EXPECT_EQ(reason("RRULE:nonsense"), "the recurrence line cannot be read: RRULE:nonsense");
    EXPECT_EQ(reason("EXDATE:yesterday"), "the recurrence line cannot be read: EXDATE:yesterday");
    EXPECT_EQ(reason("SUMMARY:x"), "the recurrence line cannot be read: SUMMARY:x");
    EXPECT_EQ(reason(""), "its kind of recurrence is not known");
    EXPECT_THAT(WalkOids(*Items()), IsEmpty());
}

} // namespace tavo::outlook::test
