// A day's menu by itself: what its commands stand for, and where its entries end.
#include "calendar/day_menu.h"

#include "store/outlook_session.h"
#include "tests/support/test_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tavo::test {
namespace {

using testing::ElementsAre;

class DayMenuEntries : public testing::Test {
  protected:
    static AppointmentData Item(Oid oid, const std::u16string& subject) {
        AppointmentData item;
        item.Oid = oid;
        item.Subject = subject;
        return item;
    }

    // One of each kind, and a memo.
    void GivenFullDay() {
        Categories.AlarmList.Append(1);
        Categories.HolidayList.Append(2);
        Categories.AnniversaryList.Append(3);
        Menu.Fill({Item(1, u"Wake up"), Item(2, u"Fair"), Item(3, u"Wedding"), Item(4, u"Dentist")}, Categories,
                  {u"20040915_101530.pwi"});
    }

    std::vector<std::u16string> Captions() const {
        std::vector<std::u16string> captions;
        for (const MenuItem& item : Menu.Build()) {
            captions.push_back(item.Text);
        }
        return captions;
    }

    TestDevice Device;
    OutlookSession Store{Device.Pump};
    CategoryLists Categories{Store};
    DayMenu Menu;
};

TEST_F(DayMenuEntries, EveryCommandStandsForWhatItsEntryShows) {
    GivenFullDay();
    EXPECT_EQ(Menu.ItemOf(33001)->Subject, u"Wake up");
    EXPECT_EQ(Menu.ItemOf(33201)->Subject, u"Fair");
    EXPECT_EQ(Menu.ItemOf(33401)->Subject, u"Wedding");
    EXPECT_EQ(Menu.ItemOf(33601)->Subject, u"Dentist");
    EXPECT_EQ(*Menu.MemoOf(33801), u"20040915_101530.pwi");
}

TEST_F(DayMenuEntries, ACommandWithoutAnEntryStandsForNothing) {
    GivenFullDay();
    for (const int command : {0, 33000, 33002, 33202, 33402, 33602, 33801, 34001}) {
        EXPECT_EQ(Menu.ItemOf(command), nullptr) << command;
    }
    for (const int command : {0, 33601, 33800, 33802, 34001}) {
        EXPECT_EQ(Menu.MemoOf(command), nullptr) << command;
    }
}

TEST_F(DayMenuEntries, ADayHasNothingOfTheDayBefore) {
    GivenFullDay();
    EXPECT_THAT(Captions(), ElementsAre(u"Alarm: 1", u"Holiday: 1", u"Anniversary: 1", u"Schedule: 1", u"", u"Memo: 1",
                                        u"Add memo...", u"New"));
    Menu.Fill({}, Categories, {});
    EXPECT_THAT(Captions(), ElementsAre(u"Alarm: 0", u"Holiday: 0", u"Anniversary: 0", u"Schedule: 0", u"", u"Memo: 0",
                                        u"Add memo...", u"New"));
}

TEST_F(DayMenuEntries, NewItemsOfFourKindsStandInAMenuOfTheirOwn) {
    const MenuItem entries = Menu.Build().back();
    EXPECT_TRUE(entries.IsPopup);
    EXPECT_TRUE(entries.Enabled);
    std::vector<std::u16string> texts;
    for (const MenuItem& entry : entries.Children) {
        texts.push_back(entry.Text);
    }
    EXPECT_THAT(texts, ElementsAre(u"Alarm...", u"Holiday...", u"Anniversary...", u"Appointment..."));
}

TEST_F(DayMenuEntries, TheEntriesEndWhereTheirIndexPassesTheLastId) {
    Menu.Fill({}, Categories, std::vector<std::u16string>(34'003, u"memo.pwi"));
    const MenuItem memos = Menu.Build()[5];
    EXPECT_EQ(memos.Text, u"Memo: 34003");
    ASSERT_EQ(memos.Children.size(), 34'001U);
    EXPECT_EQ(memos.Children.back().Id, 33801 + 34'000);
}

} // namespace
} // namespace tavo::test
