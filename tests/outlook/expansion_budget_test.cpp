// Items that ask for more work than all others together: refused when they come, left out and named where they are.
#include "host/outlook/diagnosis.h"
#include "host/outlook/occurrence_reader.h"
#include "host/outlook/reminder_finder.h"
#include "host/rules/zone_rules.h"
#include "tests/outlook/planted_rule.h"
#include "tests/outlook/store_fixture.h"
#include "tests/support/processor_time.h"

#include <gmock/gmock.h>

namespace tavo::outlook::test {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

constexpr double kSoon = tavo::test::AtMost(1.0); // seconds

double TimeUsed() {
    return tavo::test::ProcessorTime(RUSAGE_SELF);
}

std::string Numbers(int count) {
    std::string text = "0";
    for (int number = 1; number < count; ++number) {
        text += "," + std::to_string(number);
    }
    return text;
}

std::string EverySecond() {
    return "RRULE:FREQ=DAILY;BYHOUR=" + Numbers(24) + ";BYMINUTE=" + Numbers(60) + ";BYSECOND=" + Numbers(60);
}

std::string Repeat(const std::string& line, int times) {
    std::string lines;
    for (int number = 0; number < times; ++number) {
        lines += (number > 0 ? "\n" : "") + line;
    }
    return lines;
}

struct Attack {
    const char* Name;
    std::string Rule;
    const char* Reason;
    bool LeavesStart = false; // nothing asks for more work than it may, so the start is listed
};

std::vector<Attack> Attacks() {
    return {
        {"three lines of every second", Repeat(EverySecond(), 3), "it recurs more often than 96 times a day"},
        {"thousands of hourly lines", Repeat("RRULE:FREQ=HOURLY", 4900), "it recurs more often than 96 times a day"},
        {"thousands of hourly exceptions", "RRULE:FREQ=DAILY\n" + Repeat("EXRULE:FREQ=HOURLY", 4900),
         "it recurs more often than 96 times a day"},
        {"never, by the hour", "RRULE:FREQ=HOURLY;BYMONTH=2;BYMONTHDAY=30", "its recurrence never takes place", true},
        {"never, by the month", "RRULE:FREQ=MONTHLY;BYMONTH=2;BYMONTHDAY=30", "its recurrence never takes place", true},
        {"never, by position", "RRULE:FREQ=MONTHLY;BYSETPOS=2", "its recurrence never takes place", true},
        {"a count without end", "RRULE:FREQ=HOURLY;COUNT=2000000000",
         "its number of occurrences takes too long to count"},
        {"a year of quarters of an hour for one start",
         "RRULE:FREQ=YEARLY;BYDAY=SU,MO,TU,WE,TH,FR,SA;BYHOUR=" + Numbers(24) +
             ";BYMINUTE=0,15,30,45;BYSETPOS=1;COUNT=1000",
         "its number of occurrences takes too long to count"},
        {"taken out for decades",
         "RRULE:FREQ=DAILY;BYHOUR=" + Numbers(24) +
             ";BYMINUTE=0,30\nEXRULE:FREQ=DAILY;UNTIL=20900101T000000;BYHOUR=" + Numbers(24) + ";BYMINUTE=0,30",
         "its first occurrence takes too long to find"},
    };
}

} // namespace

class HeavyItem : public StoreTest {
  protected:
    static StoredItem Foreign(const std::string& uid, const std::string& rule) {
        StoredItem item = MakeItem(uid, "2026-01-05 09:00", "2026-01-05 10:00", u"Heavy");
        item.Pattern.Type = kRecursForeign;
        item.ForeignRule = rule;
        item.ReminderSet = true;
        item.ReminderMinutes = 15;
        return item;
    }

    std::vector<std::string> ListMonth() {
        std::vector<std::string> lines;
        EXPECT_EQ(OccurrenceReader(Store).ListDays(DayOf(At("2026-03-01")), DayOf(At("2026-03-31")),
                                                   [&lines](const ListedOccurrence& line) {
                                                       lines.push_back(TextOf(line.Start) + " " +
                                                                       std::string(line.Subject));
                                                   }),
                  Status::Ok);
        return lines;
    }

    std::optional<std::string> NextReminder(const std::string& after) {
        std::optional<reminders::Moment> next;
        EXPECT_EQ(outlook::ReminderFinder(CoreOf(*Store)).FindNext(At(after), next), Status::Ok);
        return next ? std::optional(TextOf(*next)) : std::nullopt;
    }
};

TEST_F(HeavyItem, AnAttackIsRefusedAtOnceWithAReason) {
    for (const Attack& attack : Attacks()) {
        const double before = TimeUsed();
        const ImportOutcome outcome = TryImport(Foreign(attack.Name, attack.Rule));
        EXPECT_EQ(outcome.Result, ImportResult::Refused) << attack.Name;
        EXPECT_EQ(outcome.Reason, attack.Reason) << attack.Name;
        EXPECT_LT(TimeUsed() - before, kSoon) << attack.Name;
    }
    EXPECT_THAT(WalkOids(*Items()), IsEmpty());
}

TEST_F(HeavyItem, AStoreThatHoldsOneAlreadyListsRemindsAndIsCheckedWithoutIt) {
    StoredItem plain = MakeItem("plain", "2026-03-14 09:00", "2026-03-14 10:00", u"Plain");
    plain.ReminderSet = true;
    plain.ReminderMinutes = 15;
    Import(plain);
    for (const Attack& attack : Attacks()) {
        const Oid oid = Import(Foreign(attack.Name, "RRULE:FREQ=YEARLY;INTERVAL=2"));
        ASSERT_TRUE(PlantRule(CoreOf(*Store), oid, attack.Rule)) << attack.Name;
        const double before = TimeUsed();
        Reopen();
        EXPECT_THAT(ListMonth(), ElementsAre("2026-03-14 09:00 Plain")) << attack.Name;
        std::vector<std::string> starts{"2026-03-14 09:00"};
        if (attack.LeavesStart) {
            starts.insert(starts.begin(), "2026-01-05 09:00");
        }
        EXPECT_EQ(Starts(u"[Start] >= 1/1/2026 and [Start] <= 12/31/2027"), starts) << attack.Name;
        EXPECT_EQ(NextReminder("2026-01-06"), "2026-03-14 08:45") << attack.Name;
        const Diagnosis diagnosis = DiagnoseStore(Machine, File, CheckDepth::Full);
        EXPECT_EQ(diagnosis.State, Verdict::LeavesOut) << attack.Name;
        EXPECT_THAT(diagnosis.Findings,
                    ElementsAre("Item " + std::to_string(oid) + " (Heavy): " + attack.Reason + "."));
        EXPECT_LT(TimeUsed() - before, kSoon) << attack.Name;
        // It can still be changed, deleted and brought back.
        const auto item = Get(oid);
        ASSERT_EQ(item->put_Subject(u"Still here"), Status::Ok) << attack.Name;
        ASSERT_EQ(item->Save(), Status::Ok) << attack.Name;
        EXPECT_EQ(Read(oid).ForeignRule, attack.Rule);
        ASSERT_EQ(Get(oid)->Delete(), Status::Ok) << attack.Name;
        std::vector<Oid> restored;
        ASSERT_EQ(App->Undo(restored), Status::Ok) << attack.Name;
        EXPECT_EQ(Read(oid).ForeignRule, attack.Rule);
        ASSERT_EQ(Get(oid)->Delete(), Status::Ok) << attack.Name;
    }
    EXPECT_EQ(DiagnoseStore(Machine, File, CheckDepth::Full).State, Verdict::Ok);
}

TEST_F(HeavyItem, ARuleThatNeverMatchesKeepsNoMovedOccurrenceAwayFromOtherItems) {
    const Oid oid = Import(Foreign("u", "RRULE:FREQ=YEARLY;INTERVAL=2\nRDATE:20260310T090000"));
    ASSERT_TRUE(PlantRule(CoreOf(*Store), oid, "RRULE:FREQ=HOURLY;BYMONTH=2;BYMONTHDAY=30\nRDATE:20260310T090000"));
    const double before = TimeUsed();
    Reopen();
    EXPECT_THAT(ListMonth(), ElementsAre("2026-03-10 09:00 Heavy"));
    EXPECT_EQ(NextReminder("2026-01-06"), "2026-03-10 08:45");
    EXPECT_LT(TimeUsed() - before, kSoon);
    EXPECT_EQ(DiagnoseStore(Machine, File, CheckDepth::Full).State, Verdict::Ok);
}

TEST_F(HeavyItem, ARuleThatNamesItsCalendarIsKeptAndListed) {
    Import(Foreign("a", "RRULE:RSCALE=GREGORIAN;FREQ=DAILY;INTERVAL=20\nRRULE:FREQ=WEEKLY;INTERVAL=4"));
    Import(Foreign("b", "RRULE:FREQ=WEEKLY\nEXRULE:RSCALE=GREGORIAN;FREQ=DAILY;INTERVAL=14"));
    Reopen();
    EXPECT_THAT(ListMonth(), ElementsAre("2026-03-02 09:00 Heavy", "2026-03-06 09:00 Heavy", "2026-03-09 09:00 Heavy",
                                         "2026-03-23 09:00 Heavy", "2026-03-26 09:00 Heavy", "2026-03-30 09:00 Heavy"));
    EXPECT_EQ(NextReminder("2026-01-01"), "2026-01-05 08:45");
    EXPECT_EQ(DiagnoseStore(Machine, File, CheckDepth::Full).State, Verdict::Ok);
}

TEST_F(HeavyItem, AHundredThousandCancelledDaysCostLittle) {
    StoredItem item = MakeItem("u", "2026-01-05 09:00", "2026-01-05 10:00", u"Rare");
    item.Pattern = Daily();
    for (int day = 0; day < 100000; ++day) {
        StoredException exception;
        exception.Original = At("2026-01-05 09:00") + Seconds{day} * kSecondsPerDay;
        item.Exceptions.push_back(exception);
    }
    const double before = TimeUsed();
    Import(item);
    Reopen();
    EXPECT_THAT(ListMonth(), IsEmpty());
    item.Subject = u"Changed";
    EXPECT_EQ(TryImport(item).Result, ImportResult::Changed);
    EXPECT_LT(TimeUsed() - before, 10 * kSoon); // rows are written and journaled one by one
}

// As a rule of its own has them: a list that is read at each listing.
TEST_F(HeavyItem, SixtyThousandCancelledDatesOfARuleOfItsOwnCostLittle) {
    std::string dates;
    for (int day = 0; day < 60000; ++day) {
        const CivilDate date = CivilFromDay(DayOf(At("2026-01-05")) + day);
        const std::string month = (date.Month < 10 ? "0" : "") + std::to_string(date.Month);
        dates += (day > 0 ? "," : "") + std::to_string(date.Year) + month + (date.Day < 10 ? "0" : "") +
                 std::to_string(date.Day) + "T090000";
    }
    const double before = TimeUsed();
    Import(Foreign("u", "RRULE:FREQ=DAILY;BYHOUR=9,10\nEXDATE:" + dates + "\nEXDATE;VALUE=DATE:20260310"));
    Reopen();
    const std::vector<std::string> listed = ListMonth();
    EXPECT_EQ(listed.size(), 30U);
    EXPECT_EQ(listed.front(), "2026-03-01 10:00 Heavy");
    EXPECT_EQ(NextReminder("2026-01-05"), "2026-01-05 09:45");
    EXPECT_LT(TimeUsed() - before, kSoon);
}

// However many there are that ask for much: an even share is left to each, so little is always there.
TEST_F(HeavyItem, ACrowdTakesNothingFromThoseThatAskForLittle) {
    const Oid first = Import(Foreign("0", "RRULE:FREQ=YEARLY;INTERVAL=2"));
    for (int number = 1; number < 400; ++number) {
        Import(Foreign(std::to_string(number), "RRULE:FREQ=YEARLY;INTERVAL=2"));
    }
    StoredItem honest = Foreign("honest", "RRULE:FREQ=WEEKLY;BYDAY=TU;BYHOUR=10,15");
    honest.Subject = u"Honest";
    Import(honest);
    const std::string heavy =
        Repeat("RRULE:FREQ=YEARLY;BYDAY=SU,MO,TU,WE,TH,FR,SA;BYSETPOS=100;BYHOUR=" + Numbers(6), 16);
    for (Oid oid = first; oid < first + 400; ++oid) {
        ASSERT_TRUE(PlantRule(CoreOf(*Store), oid, heavy));
    }
    const double before = TimeUsed();
    Reopen();
    EXPECT_THAT(ListMonth(),
                ElementsAre("2026-03-03 10:00 Honest", "2026-03-03 15:00 Honest", "2026-03-10 10:00 Honest",
                            "2026-03-10 15:00 Honest", "2026-03-17 10:00 Honest", "2026-03-17 15:00 Honest",
                            "2026-03-24 10:00 Honest", "2026-03-24 15:00 Honest", "2026-03-31 10:00 Honest",
                            "2026-03-31 15:00 Honest"));
    EXPECT_EQ(NextReminder("2026-03-11"), "2026-03-17 09:45");
    std::vector<std::string> due;
    EXPECT_EQ(outlook::ReminderFinder(CoreOf(*Store))
                  .FindDue(At("2026-03-11"), At("2026-03-18"),
                           [&due](const reminders::DueReminder& reminder) { due.push_back(TextOf(reminder.At)); }),
              Status::Ok);
    EXPECT_THAT(due, ElementsAre("2026-03-17 09:45", "2026-03-17 14:45"));
    EXPECT_LT(TimeUsed() - before, 3 * kSoon);
}

// A store from before the end of a count was kept, or one that another program wrote.
TEST_F(HeavyItem, ACountWhoseEndIsNotKeptEndsAllTheSame) {
    const Oid oid = Import(Foreign("u", "RRULE:FREQ=DAILY;BYHOUR=9,10;COUNT=130"));
    const std::vector<std::string> listed = ListMonth();
    EXPECT_EQ(listed.size(), 20U);
    EXPECT_EQ(listed.back(), "2026-03-10 10:00 Heavy");
    ASSERT_EQ(CoreOf(*Store).Db.Run(("UPDATE series SET last_day = 0 WHERE oid = " + std::to_string(oid)).c_str()),
              Status::Ok);
    Reopen();
    EXPECT_EQ(ListMonth(), listed);
}

TEST_F(HeavyItem, RemindersAreSoughtInStretchesWhereThatTakesLong) {
    for (int number = 0; number < 60; ++number) {
        const Oid oid = Import(Foreign(std::to_string(number), "RRULE:FREQ=YEARLY;INTERVAL=2"));
        // Took place once, and never again.
        ASSERT_TRUE(PlantRule(CoreOf(*Store), oid, "RDATE:20260105T090000\nRRULE:FREQ=DAILY;BYMONTH=2;BYMONTHDAY=30"));
    }
    const double before = TimeUsed();
    const std::optional<std::string> next = NextReminder("2026-02-01");
    ASSERT_TRUE(next); // nothing is due then, but it is to be asked again
    EXPECT_GT(*next, "2026-02-02");
    EXPECT_LT(TimeUsed() - before, kSoon);
    EXPECT_EQ(NextReminder("2026-01-05 08:00"), "2026-01-05 08:45");
}

namespace {

std::string ZoneOf(const std::string& from, const std::string& to, const std::string& lines) {
    return "BEGIN:VTIMEZONE\r\nTZID:Odd\r\nBEGIN:STANDARD\r\nDTSTART:19701025T030000\r\nTZOFFSETFROM:" + from +
           "\r\nTZOFFSETTO:" + to + "\r\n" + lines + "END:STANDARD\r\nEND:VTIMEZONE\r\n";
}

} // namespace

TEST_F(HeavyItem, AZoneOfImpossibleLinesIsRefusedAtOnce) {
    std::string many;
    std::string few;
    for (int line = 0; line < 60000; ++line) {
        (line < 4000 ? few : many) += "RRULE:FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30\r\n";
    }
    for (const std::string& lines : {few, few + many}) {
        const double before = TimeUsed();
        std::string fault;
        EXPECT_EQ(ParseZoneComponent(ZoneOf("+0200", "+0100", lines), fault), nullptr);
        EXPECT_EQ(fault, "changes its clock in more ways than can be worked out");
        EXPECT_LT(TimeUsed() - before, kSoon);
    }
}

// Left out silently, the clock would be wrong from some day on.
TEST_F(HeavyItem, AZoneOfMoreChangesThanAreKeptIsRefused) {
    std::string few;
    std::string many;
    for (int day = 0; day < 30000; ++day) {
        const CivilDate date = CivilFromDay(DayFromCivil(1971, 1, 1) + day);
        const std::string month = (date.Month < 10 ? "0" : "") + std::to_string(date.Month);
        const std::string text =
            std::to_string(date.Year) + month + (date.Day < 10 ? "0" : "") + std::to_string(date.Day) + "T030000";
        (day < 19000 ? few : many) += (day % 100 == 0 ? "\r\nRDATE:" : ",") + text;
    }
    std::string fault;
    EXPECT_NE(ParseZoneComponent(ZoneOf("+0200", "+0100", few.substr(2) + "\r\n"), fault), nullptr) << fault;
    EXPECT_EQ(ParseZoneComponent(ZoneOf("+0200", "+0100", few.substr(2) + many + "\r\n"), fault), nullptr);
    EXPECT_EQ(fault, "changes its clock in more ways than can be worked out");
}

TEST_F(HeavyItem, AZoneADayAwayFromUniversalTimeIsRefusedAndNamedWhereItIs) {
    std::string fault;
    for (const char* offset : {"+2400", "-2400", "+9900", "-9959"}) {
        EXPECT_EQ(ParseZoneComponent(ZoneOf("+0100", offset, ""), fault), nullptr) << offset;
        EXPECT_EQ(fault, "is 24 hours or more away from universal time");
        EXPECT_EQ(ParseZoneComponent(ZoneOf(offset, "+0100", ""), fault), nullptr) << offset;
    }
    EXPECT_NE(ParseZoneComponent(ZoneOf("+2359", "-2359", ""), fault), nullptr);
    // One that an earlier import took.
    ASSERT_EQ(CoreOf(*Store).Db.Run(
                  ("INSERT INTO zone(name, component) VALUES ('Odd\x1b[31m', '" + ZoneOf("+0100", "+9900", "") + "')")
                      .c_str()),
              Status::Ok);
    ASSERT_EQ(SumAnew(CoreOf(*Store)), Status::Ok);
    const Diagnosis diagnosis = DiagnoseStore(Machine, File, CheckDepth::Full);
    EXPECT_EQ(diagnosis.State, Verdict::LeavesOut);
    EXPECT_THAT(diagnosis.Findings,
                ElementsAre(AllOf(HasSubstr("is 24 hours or more away"), ::testing::Not(HasSubstr("\x1b")))));
}

} // namespace tavo::outlook::test
