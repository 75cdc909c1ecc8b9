// The three lists together: kinds, tags asked for from outside, pruning.
#include "store/category_lists.h"

#include "store/outlook_session.h"
#include "tests/support/outlook_probe.h"
#include "tests/support/test_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::At;
using test::OutlookProbe;
using test::TestDevice;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class CategoryListsTest : public testing::Test {
  protected:
    CategoryListsTest() { Session.OutlookApp = Outlook.Share(); }

    TestDevice Device;
    OutlookProbe Outlook{Device.Connect()}; // outlives the session that holds it
    OutlookSession Session{Device.Pump};
    CategoryLists Lists{Session};
};

TEST_F(CategoryListsTest, EachListMakesItsOwnKind) {
    Lists.AlarmList.Append(1);
    Lists.HolidayList.Append(2);
    Lists.AnniversaryList.Append(3);
    EXPECT_TRUE(Lists.IsAlarm(1));
    EXPECT_FALSE(Lists.IsHoliday(1));
    EXPECT_FALSE(Lists.IsAnniversary(1));
    EXPECT_TRUE(Lists.IsHoliday(2));
    EXPECT_FALSE(Lists.IsAlarm(2));
    EXPECT_TRUE(Lists.IsAnniversary(3));
    EXPECT_FALSE(Lists.IsHoliday(3));
    EXPECT_FALSE(Lists.IsAlarm(4));
}

TEST_F(CategoryListsTest, AnItemMayBeOfTwoKinds) {
    Lists.AlarmList.Append(1);
    Lists.HolidayList.Append(1);
    EXPECT_TRUE(Lists.IsAlarm(1));
    EXPECT_TRUE(Lists.IsHoliday(1));
}

TEST_F(CategoryListsTest, EveryListReportsUnderItsName) {
    Lists.AlarmList.Append(1);
    Lists.HolidayList.Append(2);
    Lists.AnniversaryList.Append(3);
    EXPECT_THAT(Outlook.Mirror.Reports,
                ElementsAre("insert alarm at 0: 1", "insert holiday at 0: 2", "insert anniversary at 0: 3"));
    EXPECT_EQ(&Lists.ListOf(TagList::Alarm), &Lists.AlarmList);
    EXPECT_EQ(&Lists.ListOf(TagList::Holiday), &Lists.HolidayList);
    EXPECT_EQ(&Lists.ListOf(TagList::Anniversary), &Lists.AnniversaryList);
}

TEST_F(CategoryListsTest, ARequestTags) {
    Lists.HolidayList.Append(4);
    Outlook.Mirror.Requests = {{1, TagList::Holiday, 9, true}};
    EXPECT_TRUE(Lists.ApplyTagRequests());
    EXPECT_THAT(Lists.HolidayList.All(), ElementsAre(4, 9));
}

TEST_F(CategoryListsTest, ManyRequestsAreOneReportForEachListTheyChange) {
    Outlook.Mirror.Requests = {
        {1, TagList::Holiday, 9, true}, {2, TagList::Alarm, 5, true}, {3, TagList::Holiday, 7, true}};
    EXPECT_TRUE(Lists.ApplyTagRequests());
    EXPECT_THAT(Outlook.Mirror.Reports, UnorderedElementsAre("replace holiday 9 7", "replace alarm 5"));
}

TEST_F(CategoryListsTest, ARequestToTagWhatIsTaggedChangesNothing) {
    Lists.AlarmList.Append(9);
    Outlook.Mirror.Requests = {{1, TagList::Alarm, 9, true}};
    EXPECT_FALSE(Lists.ApplyTagRequests());
    EXPECT_THAT(Lists.AlarmList.All(), ElementsAre(9));
}

TEST_F(CategoryListsTest, ARequestTakesATagAwayWithAllItsDuplicates) {
    for (const Oid oid : {9, 4, 9}) {
        Lists.AnniversaryList.Append(oid);
    }
    Outlook.Mirror.Requests = {{1, TagList::Anniversary, 9, false}};
    EXPECT_TRUE(Lists.ApplyTagRequests());
    EXPECT_THAT(Lists.AnniversaryList.All(), ElementsAre(4));
}

TEST_F(CategoryListsTest, ARequestToTakeAwayWhatIsNotThereChangesNothing) {
    Outlook.Mirror.Requests = {{1, TagList::Alarm, 9, false}};
    EXPECT_FALSE(Lists.ApplyTagRequests());
}

TEST_F(CategoryListsTest, AnUndoneTagComesBackToItsPlace) {
    for (const Oid oid : {1, 2, 3}) {
        Lists.AlarmList.Append(oid);
    }
    Outlook.Mirror.Requests = {
        {1, TagList::Alarm, 9, true, 1}, {2, TagList::Alarm, 8, true, 70}, {3, TagList::Alarm, 7, true, 0}};
    EXPECT_TRUE(Lists.ApplyTagRequests());
    EXPECT_THAT(Lists.AlarmList.All(), ElementsAre(7, 1, 9, 2, 3, 8));
}

TEST_F(CategoryListsTest, RequestsAreCarriedOutInTheirOrder) {
    Outlook.Mirror.Requests = {{1, TagList::Alarm, 9, true}, {2, TagList::Alarm, 9, false}};
    EXPECT_TRUE(Lists.ApplyTagRequests());
    EXPECT_THAT(Lists.AlarmList.All(), IsEmpty());
}

TEST_F(CategoryListsTest, ARequestThatWaitsForTheSaveIsNotCarriedOutTwice) {
    Outlook.Mirror.Requests = {{5, TagList::Alarm, 9, true}};
    EXPECT_TRUE(Lists.ApplyTagRequests());
    Lists.AlarmList.RemoveFirst(9);
    EXPECT_FALSE(Lists.ApplyTagRequests());
    EXPECT_FALSE(Lists.IsAlarm(9));
}

TEST_F(CategoryListsTest, ALaterRequestIsCarriedOutWhileAnEarlierOneWaits) {
    Outlook.Mirror.Requests = {{5, TagList::Alarm, 9, true}};
    EXPECT_TRUE(Lists.ApplyTagRequests());
    Outlook.Mirror.Requests.push_back({6, TagList::Holiday, 10, true});
    EXPECT_TRUE(Lists.ApplyTagRequests());
    EXPECT_THAT(Lists.AlarmList.All(), ElementsAre(9));
    EXPECT_THAT(Lists.HolidayList.All(), ElementsAre(10));
}

TEST_F(CategoryListsTest, FinishingNamesTheNewestRequestOnce) {
    Outlook.Mirror.Requests = {{5, TagList::Alarm, 9, true}, {7, TagList::Alarm, 10, true}};
    Lists.FinishTagRequests();
    EXPECT_THAT(Outlook.Mirror.Reports, IsEmpty());
    EXPECT_TRUE(Lists.ApplyTagRequests());
    Outlook.Mirror.Reports.clear();
    Lists.FinishTagRequests();
    Lists.FinishTagRequests();
    EXPECT_THAT(Outlook.Mirror.Reports, ElementsAre("finish 7"));
}

TEST_F(CategoryListsTest, WithoutAStoreThereAreNoRequests) {
    Session.OutlookApp.Reset();
    EXPECT_FALSE(Lists.ApplyTagRequests());
    Lists.FinishTagRequests();
    EXPECT_THAT(Outlook.Mirror.Reports, IsEmpty());
}

TEST_F(CategoryListsTest, PruningDropsWhatIsGoneAndGoesOnWithTheNext) {
    const Oid dentist = Device.GivenAppointment(u"Dentist", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 10, 0));
    const Oid gone = Device.GivenAppointment(u"Gone", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 10, 0));
    const Oid goneToo = Device.GivenAppointment(u"Gone too", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 10, 0));
    const Oid lunch = Device.GivenAppointment(u"Lunch", At(2004, 5, 3, 12, 0), At(2004, 5, 3, 13, 0));
    const Oid goneLast = Device.GivenAppointment(u"Gone last", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 10, 0));
    for (const Oid oid : {dentist, gone, goneToo, lunch, goneLast}) {
        Lists.AlarmList.Append(oid);
    }
    for (const Oid oid : {gone, goneToo, goneLast}) {
        Device.Delete(oid);
    }
    Outlook.Mirror.Reports.clear();
    const std::vector<AppointmentData> records = LoadAndPrune(Lists.AlarmList, Session);
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0].Subject, u"Dentist");
    EXPECT_EQ(records[1].Subject, u"Lunch");
    EXPECT_THAT(Lists.AlarmList.All(), ElementsAre(dentist, lunch));
    EXPECT_EQ(Outlook.Mirror.Reports.size(), 1U);
    EXPECT_EQ(Device.FileBytes(u"\\My Documents\\TavoCalendar\\TavoCalendar.dat"),
              std::nullopt); // the next save's work
}

TEST_F(CategoryListsTest, PruningKeepsTagsWhileTheStoreCannotAnswer) {
    const Oid dentist = Device.GivenAppointment(u"Dentist", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 10, 0));
    Lists.AlarmList.Append(dentist);
    Outlook.ItemResult = Status::Locked;
    EXPECT_THAT(LoadAndPrune(Lists.AlarmList, Session), IsEmpty());
    EXPECT_THAT(Lists.AlarmList.All(), ElementsAre(dentist));
}

} // namespace

} // namespace tavo
