// The category lists together with the store's own mirror of them, other programs and undo.
#include "host/outlook/import_writer.h"
#include "host/outlook/store.h"
#include "host/outlook/store_core.h"
#include "store/category_file.h"
#include "store/program_state.h"
#include "tests/support/store_of.h"
#include "tests/support/test_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using outlook::TagPlace;
using test::At;
using test::TestDevice;
using testing::ElementsAre;
using testing::IsEmpty;

class CategoryMirrorTest : public testing::Test {
  protected:
    CategoryMirrorTest() {
        EXPECT_TRUE(State.Store.OpenStore());
        EXPECT_TRUE(LoadCategoryFile(State));
    }

    CategoryLists& Lists() { return State.Categories; }

    Oid GivenItem(std::u16string_view subject) {
        return Device.GivenAppointment(subject, At(2004, 5, 3, 9, 0), At(2004, 5, 3, 10, 0));
    }

    // Where another program sees the item.
    std::vector<TagPlace> PlacesOf(Oid oid) {
        std::vector<TagPlace> places;
        EXPECT_EQ(CoreOf(*outlook::StoreOf(*Outside)).Tags.FindPlaces(oid, places), Status::Ok);
        return places;
    }

    // Another program asks for a tag.
    void Ask(TagList list, Oid oid, outlook::TagWish wish = outlook::TagWish::Join) {
        outlook::ImportWriter writer(outlook::StoreOf(*Outside));
        EXPECT_EQ(writer.Begin(u"Tag"), Status::Ok);
        EXPECT_EQ(writer.RequestTag(list, oid, wish), Status::Ok);
        EXPECT_EQ(writer.Commit(), Status::Ok);
    }

    std::size_t CountRequests() {
        std::vector<TagRequest> requests;
        EXPECT_EQ(Outside->Tags().GetRequests(requests), Status::Ok);
        return requests.size();
    }

    TestDevice Device;
    ComPtr<IPOutlookApp> Outside = Device.Connect();
    CProgramState State{Device.Pump};
};

TEST_F(CategoryMirrorTest, OthersSeeWhereAnItemStands) {
    const Oid first = GivenItem(u"First");
    const Oid second = GivenItem(u"Second");
    const Oid third = GivenItem(u"Third");
    Lists().AlarmList.Append(first);
    Lists().AlarmList.Append(third);
    Lists().AlarmList.Insert(1, second);
    Lists().HolidayList.Append(third);
    EXPECT_THAT(PlacesOf(second), ElementsAre(TagPlace{TagList::Alarm, 1}));
    EXPECT_THAT(PlacesOf(third), ElementsAre(TagPlace{TagList::Alarm, 2}, TagPlace{TagList::Holiday, 0}));
    Lists().AlarmList.RemoveAt(0);
    EXPECT_THAT(PlacesOf(first), IsEmpty());
    EXPECT_THAT(PlacesOf(second), ElementsAre(TagPlace{TagList::Alarm, 0}));
    Lists().AlarmList.Replace({third, first});
    EXPECT_THAT(PlacesOf(second), IsEmpty());
    EXPECT_THAT(PlacesOf(first), ElementsAre(TagPlace{TagList::Alarm, 1}));
}

TEST_F(CategoryMirrorTest, LoadingRebuildsWhatOthersSeeFromTheFile) {
    const Oid dentist = GivenItem(u"Dentist");
    const Oid lunch = GivenItem(u"Lunch");
    Lists().AlarmList.Append(dentist);
    EXPECT_TRUE(SaveCategoryFile(State));
    Lists().AnniversaryList.Append(lunch); // never saved
    EXPECT_TRUE(LoadCategoryFile(State));
    EXPECT_THAT(PlacesOf(dentist), ElementsAre(TagPlace{TagList::Alarm, 0}));
    EXPECT_THAT(PlacesOf(lunch), IsEmpty());
}

TEST_F(CategoryMirrorTest, AnAskedForTagStaysAskedForUntilTheFileIsSaved) {
    const Oid dentist = GivenItem(u"Dentist");
    Ask(TagList::Holiday, dentist);
    EXPECT_TRUE(Lists().ApplyTagRequests());
    EXPECT_TRUE(Lists().IsHoliday(dentist));
    EXPECT_THAT(PlacesOf(dentist), ElementsAre(TagPlace{TagList::Holiday, 0}));
    EXPECT_EQ(CountRequests(), 1U);
    EXPECT_TRUE(SaveCategoryFile(State));
    EXPECT_EQ(CountRequests(), 0U);
}

TEST_F(CategoryMirrorTest, AfterAnEndWithoutASaveTheNextStartTagsAgain) {
    const Oid dentist = GivenItem(u"Dentist");
    Ask(TagList::Alarm, dentist);
    EXPECT_TRUE(Lists().ApplyTagRequests());
    CProgramState next(Device.Pump);
    EXPECT_TRUE(next.Store.OpenStore());
    EXPECT_TRUE(LoadCategoryFile(next));
    EXPECT_TRUE(next.Categories.IsAlarm(dentist));
}

TEST_F(CategoryMirrorTest, AnAskedForLeaveTakesTheTag) {
    const Oid dentist = GivenItem(u"Dentist");
    Lists().AlarmList.Append(dentist);
    Ask(TagList::Alarm, dentist, outlook::TagWish::Leave);
    EXPECT_TRUE(Lists().ApplyTagRequests());
    EXPECT_FALSE(Lists().IsAlarm(dentist));
    EXPECT_THAT(PlacesOf(dentist), IsEmpty());
}

TEST_F(CategoryMirrorTest, AnUndoneDeletionBringsTheTagBackToItsPlace) {
    const Oid first = GivenItem(u"First");
    const Oid second = GivenItem(u"Second");
    const Oid third = GivenItem(u"Third");
    for (const Oid oid : {first, second, third}) {
        Lists().AlarmList.Append(oid);
    }
    IPOutlookApp& outlook = *State.Store.OutlookApp;
    EXPECT_EQ(outlook.Begin(u"Delete"), Status::Ok);
    EXPECT_TRUE(Lists().AlarmList.RemoveFirst(second));
    State.Store.DeleteAppointment(second);
    EXPECT_EQ(outlook.End(), Status::Ok);
    std::vector<Oid> restored;
    EXPECT_EQ(outlook.Undo(restored), Status::Ok);
    EXPECT_TRUE(Lists().ApplyTagRequests());
    EXPECT_THAT(Lists().AlarmList.All(), ElementsAre(first, second, third));
    AppointmentData record;
    EXPECT_EQ(State.Store.LoadAppointment(second, record), second);
    EXPECT_EQ(record.Subject, u"Second");
}

TEST_F(CategoryMirrorTest, PruningIsSeenByOthers) {
    const Oid gone = GivenItem(u"Gone");
    const Oid stays = GivenItem(u"Stays");
    Lists().AlarmList.Append(gone);
    Lists().AlarmList.Append(stays);
    Device.Delete(gone);
    EXPECT_EQ(LoadAndPrune(Lists().AlarmList, State.Store).size(), 1U);
    EXPECT_THAT(PlacesOf(stays), ElementsAre(TagPlace{TagList::Alarm, 0}));
    EXPECT_THAT(PlacesOf(gone), IsEmpty());
}

} // namespace

} // namespace tavo
