// The Schedule page: its lists, its commands and what it says.
#include "tests/schedule/schedule_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::At;
using test::kNoRow;
using test::ScheduleDesk;
using testing::ElementsAre;
using testing::IsEmpty;

class SchedulePage : public testing::Test {
  protected:
    SchedulePage() { EXPECT_TRUE(Desk.Start()); }

    ScheduleDesk Desk;
};

TEST_F(SchedulePage, ShowsTheAlarmsInTheOrderOfTheirList) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(2);
    Desk.Tag(ItemKind::Alarm, Desk.GivenAppointment(u"Early", At(2004, 11, 1, 8, 5), At(2004, 11, 1, 8, 5)));
    Desk.Show(ItemKind::Alarm);
    EXPECT_THAT(Desk.Rows(), ElementsAre(u"(12:00) Alarm 1, 12:00 PM, Once, from 2004.11.04(Thu)",
                                         u"(12:00) Alarm 2, 12:00 PM, Once, from 2004.11.05(Fri)",
                                         u"(08:05) Early, 08:05 AM, Once, from 2004.11.01(Mon)"));
    EXPECT_EQ(Desk.SelectedRow(), kNoRow);
}

TEST_F(SchedulePage, ATapSelectsTheRowAndDeleteInItsMenuDeletesIt) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(3);
    Desk.Show(ItemKind::Alarm);
    Desk.ChooseInRow(1, kCommandDelete);
    Desk.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.Boxes(), ElementsAre(u"Delete|Are you sure to delete?"));
    EXPECT_THAT(Desk.Headings(), ElementsAre(u"(12:00) Alarm 1", u"(12:00) Alarm 3"));
    EXPECT_FALSE(Desk.Exists(alarms[1]));
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), ElementsAre(alarms[0], alarms[2]));
}

TEST_F(SchedulePage, ADeletionThatIsDeclinedChangesNothing) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(1);
    Desk.Show(ItemKind::Alarm);
    Desk.ChooseInRow(0, kCommandDelete);
    Desk.Device.AnswerBox(IDNO);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_TRUE(Desk.Exists(alarms[0]));
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), ElementsAre(alarms[0]));
    EXPECT_EQ(Desk.SelectedRow(), 0);
}

} // namespace

} // namespace tavo
