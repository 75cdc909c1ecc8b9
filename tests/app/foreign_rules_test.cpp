// The window over stores that hold rules which an earlier version took and could not keep its footing on.
#include "host/outlook/store.h"
#include "host/posix/store_machine.h"
#include "tests/outlook/planted_rule.h"
#include "tests/support/running_program.h"

#include <gtest/gtest.h>

#include <ctime>

namespace tavo::test {
namespace {

class ForeignRules : public testing::Test {
  protected:
    // A daily series with an alarm, by these lines from now on.
    void GivenSeriesBy(const std::string& lines) {
        const Oid oid = Program.GivenSeries(u"Foreign", At(2004, 11, 1, 9), At(2004, 11, 1, 10), kRecursDaily);
        outlook::StorePtr store;
        ASSERT_EQ(outlook::OpenStore(posix::SystemMachine(),
                                     Program.DataFolder().parent_path().parent_path() / "Outlook.db", {}, store),
                  Status::Ok);
        ASSERT_TRUE(outlook::test::PlantRule(CoreOf(*store), oid, lines));
    }

    void WalkThroughPages() {
        for (const int page : {2, 1, 3, 0, 2}) {
            Program.ShowPage(page);
        }
    }

    RunningProgram Program;
};

TEST_F(ForeignRules, ARuleThatNamesItsCalendarIsShownAtEveryStart) {
    GivenSeriesBy("RRULE:RSCALE=GREGORIAN;FREQ=DAILY;INTERVAL=2\nRRULE:FREQ=WEEKLY\n"
                  "EXRULE:RSCALE=GREGORIAN;FREQ=WEEKLY;INTERVAL=2;BYDAY=FR");
    ASSERT_TRUE(Program.Start());
    WalkThroughPages();
    EXPECT_EQ(Program.CellName(0, 1), u"2004-11-01: appointment");
    EXPECT_EQ(Program.CellName(0, 2), u"2004-11-02");
    EXPECT_EQ(Program.CellName(0, 3), u"2004-11-03: appointment");
    EXPECT_EQ(Program.CellName(0, 5), u"2004-11-05");
    EXPECT_EQ(Program.CellName(1, 1), u"2004-11-08: appointment");
}

TEST_F(ForeignRules, ARuleWithoutMeasureIsLeftOutAndAllElseIsThere) {
    std::string lines = "RRULE:FREQ=HOURLY";
    for (int line = 1; line < 4900; ++line) {
        lines += "\nRRULE:FREQ=HOURLY";
    }
    GivenSeriesBy(lines);
    Program.GivenAppointment(u"Dentist", At(2004, 11, 3, 9), At(2004, 11, 3, 10));
    const std::clock_t before = std::clock();
    ASSERT_TRUE(Program.Start());
    WalkThroughPages();
    EXPECT_EQ(Program.CellName(0, 2), u"2004-11-02");
    EXPECT_EQ(Program.CellName(0, 3), u"2004-11-03: appointment");
    EXPECT_LT(static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC, 2.0);
}

} // namespace
} // namespace tavo::test
