// Tags that could not be written to the data file, kept elsewhere.
#include "store/unsaved_tags.h"

#include "store/category_file.h"
#include "store/program_state.h"
#include "tests/support/host_probe.h"
#include "tests/support/outlook_probe.h"
#include "tests/support/test_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

namespace tavo {

namespace {

using test::At;
using test::HostProbe;
using test::TestDevice;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::u16string_view kDataFile = u"\\My Documents\\TavoCalendar\\TavoCalendar.dat";
constexpr std::u16string_view kKept = u"\\Recovery\\TavoCalendar.dat.unsaved";
constexpr std::u16string_view kKeptInDocuments = u"\\My Documents\\TavoCalendar.dat.unsaved";
constexpr std::u16string_view kKeptInRoot = u"\\TavoCalendar.dat.unsaved";
constexpr std::u16string_view kOfSession = u"\\Recovery\\TavoCalendar.dat.session";
constexpr std::u16string_view kCannotOpenMessage = u"|Cannot open TavoCalendar.dat|OK";

class UnsavedTags : public testing::Test {
  protected:
    UnsavedTags() { EXPECT_TRUE(State.Store.OpenStore()); }

    Oid GivenItem() { return Device.GivenAppointment(u"Item", At(2004, 11, 3, 9), At(2004, 11, 3, 10)); }

    std::vector<Oid> Found(TagList list) { return FindUnsavedTags(State)[static_cast<std::size_t>(list)]; }

    void GivenKept(std::u16string_view path, const std::vector<Oid>& alarms, const std::vector<Oid>& holidays = {}) {
        Device.GivenFile(path, EncodeCategoryFile(alarms, holidays, {}));
    }

    // What the file holds of one list.
    std::vector<Oid> Kept(std::u16string_view path, TagList list) {
        CategoryFileLists lists;
        EXPECT_TRUE(DecodeCategoryFile(Device.FileBytes(path).value_or(std::vector<std::uint8_t>()), lists));
        return lists[static_cast<std::size_t>(list)];
    }

    bool IsThere(std::u16string_view path) { return Device.FileBytes(path).has_value(); }

    TestDevice Device;
    HostProbe Host{Device.Host};
    CMessagePump Pump{Host};
    CProgramState State{Pump};
};

TEST_F(UnsavedTags, AreKeptWhereTheDataFileCannotBeWritten) {
    EXPECT_TRUE(LoadCategoryFile(State));
    const Oid alarm = GivenItem();
    const Oid birthday = GivenItem();
    State.Categories.AlarmList.Append(alarm);
    State.Categories.AnniversaryList.Append(birthday);
    ASSERT_EQ(Device.Host.Files().DeleteFileW(kDataFile), ErrorCode::Success);
    ASSERT_EQ(Device.Host.Files().CreateDirectoryW(kDataFile), ErrorCode::Success); // a folder is no file
    EXPECT_FALSE(SaveOrKeepTags(State, SaveTrouble::Quiet));
    EXPECT_THAT(Device.MessagesShown(), IsEmpty());
    EXPECT_THAT(Kept(kKept, TagList::Alarm), ElementsAre(alarm));
    EXPECT_THAT(Kept(kKept, TagList::Holiday), IsEmpty());
    EXPECT_THAT(Kept(kKept, TagList::Anniversary), ElementsAre(birthday));
    Device.WillAnswer(IDOK);
    EXPECT_FALSE(SaveOrKeepTags(State, SaveTrouble::Tell));
    EXPECT_THAT(Device.MessagesShown(), ElementsAre(kCannotOpenMessage));
}

TEST_F(UnsavedTags, GoWhenTheDataFileHasThem) {
    EXPECT_TRUE(LoadCategoryFile(State));
    const Oid alarm = GivenItem();
    State.Categories.AlarmList.Append(alarm);
    for (const std::u16string_view path : {kKept, kKeptInDocuments, kKeptInRoot, kOfSession}) {
        GivenKept(path, {alarm});
    }
    EXPECT_TRUE(SaveOrKeepTags(State, SaveTrouble::Tell));
    for (const std::u16string_view path : {kKept, kKeptInDocuments, kKeptInRoot, kOfSession}) {
        EXPECT_FALSE(IsThere(path));
    }
    EXPECT_THAT(Kept(kDataFile, TagList::Alarm), ElementsAre(alarm));
}

TEST_F(UnsavedTags, StayWhileTheListsLackOneOfThem) {
    EXPECT_TRUE(LoadCategoryFile(State));
    const Oid alarm = GivenItem();
    const Oid other = GivenItem();
    State.Categories.AlarmList.Append(alarm);
    GivenKept(kKept, {alarm, other});
    EXPECT_TRUE(SaveOrKeepTags(State, SaveTrouble::Tell));
    EXPECT_THAT(Kept(kKept, TagList::Alarm), ElementsAre(alarm, other));
}

TEST_F(UnsavedTags, AreThoseThatAreNewToTheListsAndWhoseItemsAreThere) {
    const Oid tagged = GivenItem();
    const Oid missing = GivenItem();
    const Oid gone = GivenItem();
    Device.Delete(gone);
    State.Categories.AlarmList.Append(tagged);
    GivenKept(kKept, {tagged, missing, gone}, {tagged});
    EXPECT_THAT(Found(TagList::Alarm), ElementsAre(missing));
    EXPECT_THAT(Found(TagList::Holiday), ElementsAre(tagged)); // each list for itself
}

TEST_F(UnsavedTags, AreFoundWhileTheStoreCannotAnswer) {
    test::OutlookProbe outlook;
    outlook.ItemResult = Status::Locked;
    const ComPtr<IPOutlookApp> real = std::exchange(State.Store.OutlookApp, outlook.Share());
    GivenKept(kKept, {7});
    EXPECT_THAT(Found(TagList::Alarm), ElementsAre(7));
    State.Store.OutlookApp = real;
}

TEST_F(UnsavedTags, AreFoundInAllPlacesEachOnce) {
    const Oid one = GivenItem();
    const Oid two = GivenItem();
    const Oid three = GivenItem();
    const Oid four = GivenItem();
    GivenKept(kKept, {one});
    GivenKept(kKeptInDocuments, {two, one});
    GivenKept(kKeptInRoot, {three});
    GivenKept(kOfSession, {four, two});
    EXPECT_THAT(Found(TagList::Alarm), ElementsAre(one, two, three, four));
}

TEST_F(UnsavedTags, OfADamagedFileWhatCameBeforeTheFaultIsFound) {
    const Oid alarm = GivenItem();
    const Oid holiday = GivenItem();
    std::vector<std::uint8_t> bytes = EncodeCategoryFile({{alarm}}, {{holiday}}, {});
    bytes.resize(bytes.size() - 6);
    Device.GivenFile(kKept, bytes);
    EXPECT_THAT(Found(TagList::Alarm), ElementsAre(alarm));
}

TEST_F(UnsavedTags, WhatIsKeptAlreadyStaysBesideWhatIsKeptNow) {
    GivenKept(kKept, {7});
    State.Categories.AlarmList.Append(9);
    State.Categories.AlarmList.Append(7);
    KeepUnsavedTags(State);
    EXPECT_THAT(Kept(kKept, TagList::Alarm), ElementsAre(7, 9));
}

TEST_F(UnsavedTags, WithoutAnyTagNoFileIsMade) {
    KeepUnsavedTags(State);
    EXPECT_FALSE(IsThere(kKept));
}

TEST_F(UnsavedTags, AreKeptInTheNextPlaceWhereTheFirstCannotBeWritten) {
    Device.GivenFile(u"\\Recovery", {1}); // no folder can be made of that name
    Device.GivenFile(u"\\My Documents\\other.txt", {1});
    State.Categories.AlarmList.Append(9);
    KeepUnsavedTags(State);
    EXPECT_FALSE(IsThere(kKept));
    EXPECT_THAT(Kept(kKeptInDocuments, TagList::Alarm), ElementsAre(9));
    EXPECT_FALSE(IsThere(kKeptInRoot));
}

TEST_F(UnsavedTags, ThatNobodyWantsAreNotFoundAgain) {
    const Oid alarm = GivenItem();
    GivenKept(kKept, {alarm});
    GivenKept(kKeptInRoot, {alarm});
    DeclineUnsavedTags(State);
    EXPECT_FALSE(IsThere(kKept));
    EXPECT_FALSE(IsThere(kKeptInRoot));
    EXPECT_THAT(Found(TagList::Alarm), IsEmpty());
}

TEST_F(UnsavedTags, AKillLeavesTheTagsOfTheSession) {
    TagKeeper keeper(State);
    keeper.TakeChange();
    EXPECT_FALSE(IsThere(kOfSession)); // nothing is kept before the lists were read
    keeper.Begin();
    keeper.TakeChange();
    EXPECT_FALSE(IsThere(kOfSession)); // nothing has changed
    State.Categories.HolidayList.Append(9);
    keeper.TakeChange();
    EXPECT_THAT(Kept(kOfSession, TagList::Holiday), ElementsAre(9));
    State.Categories.HolidayList.RemoveAll();
    keeper.TakeChange();
    EXPECT_THAT(Kept(kOfSession, TagList::Holiday), IsEmpty());
}

TEST_F(UnsavedTags, WhatIsSavedOfTheSessionIsKeptNoLonger) {
    TagKeeper keeper(State);
    GivenKept(kOfSession, {8}); // of a session before, which nobody was asked about yet
    keeper.Begin();
    EXPECT_TRUE(IsThere(kOfSession));
    State.Categories.AlarmList.Append(9);
    keeper.TakeChange();
    keeper.Begin();
    EXPECT_FALSE(IsThere(kOfSession));
    keeper.TakeChange();
    EXPECT_FALSE(IsThere(kOfSession));
}

} // namespace

} // namespace tavo
