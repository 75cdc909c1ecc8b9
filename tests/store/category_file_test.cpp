// Loading and saving TavoCalendar.dat.
#include "store/category_file.h"

#include "store/program_state.h"
#include "tests/support/host_probe.h"
#include "tests/support/outlook_probe.h"
#include "tests/support/test_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::HostProbe;
using test::OutlookProbe;
using test::TestDevice;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

using Bytes = std::vector<std::uint8_t>;

constexpr std::u16string_view kDataFile = u"\\My Documents\\TavoCalendar\\TavoCalendar.dat";
constexpr std::u16string_view kFirstCopy = u"\\My Documents\\TavoCalendar\\TavoCalendar.dat.damaged1";
constexpr std::u16string_view kSecondCopy = u"\\My Documents\\TavoCalendar\\TavoCalendar.dat.damaged2";
constexpr std::u16string_view kFallbackFile = u"\\My Documents\\TavoCalendar.dat";
const Bytes kEmptyFile{0, 0, 0, 0, 0x3B, 0, 0, 0, 0, 0x3B, 0, 0, 0, 0, 0x3B};
constexpr std::u16string_view kCorruptMessage = u"Tavo Calendar|TavoCalendar.dat corrputed|OK";
constexpr std::u16string_view kCannotOpenMessage = u"|Cannot open TavoCalendar.dat|OK";

class CategoryFileTest : public testing::Test {
  protected:
    CategoryFileTest() { State.Store.OutlookApp = Outlook.Share(); }

    CategoryLists& Lists() { return State.Categories; }

    TestDevice Device;
    HostProbe Host{Device.Host};
    OutlookProbe Outlook; // outlives the state that holds it
    CMessagePump Pump{Host};
    CProgramState State{Pump};
};

TEST_F(CategoryFileTest, AMissingFileIsMadeEmptyAndSilently) {
    EXPECT_TRUE(LoadCategoryFile(State));
    EXPECT_THAT(Device.FileBytes(kDataFile), Optional(kEmptyFile));
    EXPECT_THAT(Lists().AlarmList.All(), IsEmpty());
    EXPECT_THAT(Lists().HolidayList.All(), IsEmpty());
    EXPECT_THAT(Lists().AnniversaryList.All(), IsEmpty());
    EXPECT_THAT(Device.MessagesShown(), IsEmpty());
}

TEST_F(CategoryFileTest, AMissingFileEmptiesTheLists) {
    Lists().AlarmList.Append(4);
    Lists().HolidayList.Append(5);
    Lists().AnniversaryList.Append(6);
    EXPECT_TRUE(LoadCategoryFile(State));
    EXPECT_THAT(Lists().AlarmList.All(), IsEmpty());
    EXPECT_THAT(Lists().HolidayList.All(), IsEmpty());
    EXPECT_THAT(Lists().AnniversaryList.All(), IsEmpty());
    EXPECT_THAT(Device.FileBytes(kDataFile), Optional(kEmptyFile));
}

TEST_F(CategoryFileTest, ReadsAllThreeLists) {
    Device.GivenFile(kDataFile,
                     {2, 0, 0, 0, 9, 0, 0, 0, 7, 0, 0, 0, ';', 0, 0, 0, 0, ';', 1, 0, 0, 0, 0, 1, 0, 0, ';'});
    EXPECT_TRUE(LoadCategoryFile(State));
    EXPECT_THAT(Lists().AlarmList.All(), ElementsAre(9, 7));
    EXPECT_THAT(Lists().HolidayList.All(), IsEmpty());
    EXPECT_THAT(Lists().AnniversaryList.All(), ElementsAre(256));
    EXPECT_THAT(Device.MessagesShown(), IsEmpty());
}

TEST_F(CategoryFileTest, LoadingReplacesWhatTheListsHeld) {
    Device.GivenFile(kDataFile, kEmptyFile);
    Lists().AlarmList.Append(5);
    EXPECT_TRUE(LoadCategoryFile(State));
    EXPECT_FALSE(Lists().IsAlarm(5));
}

TEST_F(CategoryFileTest, TrailingBytesAreIgnored) {
    Bytes bytes = kEmptyFile;
    bytes.insert(bytes.end(), {'x', 'y', 'z'});
    Device.GivenFile(kDataFile, bytes);
    EXPECT_TRUE(LoadCategoryFile(State));
    EXPECT_THAT(Device.MessagesShown(), IsEmpty());
}

TEST_F(CategoryFileTest, ACutListIsReportedOnceAndKeepsWhatWasRead) {
    Device.GivenFile(kDataFile, {2, 0, 0, 0, 9, 0, 0, 0});
    Device.WillAnswer(IDOK);
    EXPECT_FALSE(LoadCategoryFile(State));
    EXPECT_THAT(Device.MessagesShown(), ElementsAre(kCorruptMessage));
    EXPECT_THAT(Lists().AlarmList.All(), ElementsAre(9));
    EXPECT_THAT(Lists().HolidayList.All(), IsEmpty());
}

TEST_F(CategoryFileTest, ACorruptFileIsKeptBesideTheOneThatReplacesIt) {
    const Bytes corrupt{2, 0, 0, 0, 9, 0, 0, 0};
    Device.GivenFile(kDataFile, corrupt);
    Device.WillAnswer(IDOK);
    EXPECT_FALSE(LoadCategoryFile(State));
    EXPECT_THAT(Device.FileBytes(kFirstCopy), Optional(corrupt));
    EXPECT_TRUE(SaveCategoryFile(State));
    EXPECT_NE(Device.FileBytes(kDataFile), corrupt);
    EXPECT_THAT(Device.FileBytes(kFirstCopy), Optional(corrupt));
}

TEST_F(CategoryFileTest, ASecondCorruptFileDoesNotReplaceTheCopyOfTheFirst) {
    const Bytes first{2, 0, 0, 0, 9, 0, 0, 0};
    const Bytes second{3, 0, 0, 0, 8, 0, 0, 0};
    for (const Bytes& bytes : {first, first, second}) { // the same file read twice is kept once
        Device.GivenFile(kDataFile, bytes);
        Device.WillAnswer(IDOK);
        EXPECT_FALSE(LoadCategoryFile(State));
    }
    EXPECT_THAT(Device.FileBytes(kFirstCopy), Optional(first));
    EXPECT_THAT(Device.FileBytes(kSecondCopy), Optional(second));
}

TEST_F(CategoryFileTest, NineCorruptFilesAreKeptAndNoMore) {
    const auto copyOf = [](char16_t number) {
        return u"\\My Documents\\TavoCalendar\\TavoCalendar.dat.damaged" + std::u16string(1, number);
    };
    for (std::uint8_t number = 1; number <= 10; ++number) {
        Device.GivenFile(kDataFile, {2, 0, 0, 0, number});
        Device.WillAnswer(IDOK);
        EXPECT_FALSE(LoadCategoryFile(State));
    }
    EXPECT_THAT(Device.FileBytes(copyOf(u'9')), Optional(Bytes{2, 0, 0, 0, 9}));
    EXPECT_EQ(Device.FileBytes(copyOf(u'1') + u"0"), std::nullopt);
}

TEST_F(CategoryFileTest, NoCopyIsMadeOfAWholeFile) {
    Device.GivenFile(kDataFile, kEmptyFile);
    EXPECT_TRUE(LoadCategoryFile(State));
    EXPECT_EQ(Device.FileBytes(kFirstCopy), std::nullopt);
}

TEST_F(CategoryFileTest, AWrongFirstSeparatorLeavesTheLaterListsEmpty) {
    Device.GivenFile(kDataFile, {1, 0, 0, 0, 9, 0, 0, 0, ',', 1, 0, 0, 0, 8, 0, 0, 0, ';', 0, 0, 0, 0, ';'});
    Device.WillAnswer(IDOK);
    EXPECT_FALSE(LoadCategoryFile(State));
    EXPECT_THAT(Device.MessagesShown(), ElementsAre(kCorruptMessage));
    EXPECT_THAT(Lists().AlarmList.All(), ElementsAre(9));
    EXPECT_THAT(Lists().HolidayList.All(), IsEmpty());
    EXPECT_THAT(Lists().AnniversaryList.All(), IsEmpty());
}

TEST_F(CategoryFileTest, WhatWasReadIsInTheListsWhileTheMessageShows) {
    Device.GivenFile(kDataFile, {1, 0, 0, 0, 9, 0, 0, 0, ';', 2, 0, 0, 0, 8, 0, 0, 0});
    Lists().AnniversaryList.Append(5);
    bool looked = false;
    Device.Host.Time.Script.Add([&] {
        looked = true;
        EXPECT_THAT(Device.MessagesShown(), ElementsAre(kCorruptMessage));
        EXPECT_THAT(Lists().AlarmList.All(), ElementsAre(9));
        EXPECT_THAT(Lists().HolidayList.All(), ElementsAre(8));
        EXPECT_THAT(Lists().AnniversaryList.All(), IsEmpty());
        EXPECT_TRUE(Device.Host.Navigation.AnswerBox(IDOK));
    });
    EXPECT_FALSE(LoadCategoryFile(State));
    EXPECT_TRUE(looked);
    EXPECT_THAT(Lists().HolidayList.All(), ElementsAre(8));
}

TEST_F(CategoryFileTest, ATagAskedForWhileTheMessageShowsIsNotLost) {
    Device.GivenFile(kDataFile, {1, 0, 0, 0, 9, 0, 0, 0, ',', 0, 0, 0, 0, ';', 0, 0, 0, 0, ';'});
    Device.Host.Time.Script.Add([&] {
        Outlook.Mirror.Requests = {{4, TagList::Holiday, 77, true}};
        EXPECT_TRUE(Lists().ApplyTagRequests()); // as the main view does when another process asks
        EXPECT_TRUE(Device.Host.Navigation.AnswerBox(IDOK));
    });
    EXPECT_FALSE(LoadCategoryFile(State));
    EXPECT_THAT(Lists().AlarmList.All(), ElementsAre(9));
    EXPECT_THAT(Lists().HolidayList.All(), ElementsAre(77));
    EXPECT_TRUE(SaveCategoryFile(State));
    EXPECT_THAT(Device.FileBytes(kDataFile),
                Optional(Bytes{1, 0, 0, 0, 9, 0, 0, 0, ';', 1, 0, 0, 0, 77, 0, 0, 0, ';', 0, 0, 0, 0, ';'}));
    EXPECT_EQ(Outlook.Mirror.Reports.back(), "finish 4");
}

TEST_F(CategoryFileTest, ACutCountIsReportedToo) {
    Device.GivenFile(kDataFile, {0, 0, 0, 0, ';', 1, 0});
    Device.WillAnswer(IDOK);
    EXPECT_FALSE(LoadCategoryFile(State));
    EXPECT_THAT(Device.MessagesShown(), ElementsAre(kCorruptMessage));
}

TEST_F(CategoryFileTest, AClaimOfFourThousandMillionEntriesIsReported) {
    Device.GivenFile(kDataFile, {0, 0, 0, 0, ';', 0xFF, 0xFF, 0xFF, 0xFF, 9, 0, 0, 0});
    Device.WillAnswer(IDOK);
    EXPECT_FALSE(LoadCategoryFile(State));
    EXPECT_THAT(Device.MessagesShown(), ElementsAre(kCorruptMessage));
    EXPECT_THAT(Lists().HolidayList.All(), ElementsAre(9));
}

TEST_F(CategoryFileTest, ACorruptFileIsLeftAsItIs) {
    const Bytes corrupt{2, 0, 0, 0, 9, 0, 0, 0};
    Device.GivenFile(kDataFile, corrupt);
    Device.WillAnswer(IDOK);
    EXPECT_FALSE(LoadCategoryFile(State));
    EXPECT_THAT(Device.FileBytes(kDataFile), Optional(corrupt));
}

TEST_F(CategoryFileTest, SavedListsOfOneNoneAndTwoTake27Bytes) {
    EXPECT_TRUE(LoadCategoryFile(State));
    Lists().AlarmList.Append(0x01020304);
    Lists().AnniversaryList.Append(8);
    Lists().AnniversaryList.Append(7);
    EXPECT_TRUE(SaveCategoryFile(State));
    const Bytes expected{1, 0, 0, 0, 4, 3, 2, 1, ';', 0, 0, 0, 0, ';', 2, 0, 0, 0, 8, 0, 0, 0, 7, 0, 0, 0, ';'};
    EXPECT_EQ(expected.size(), 27U);
    EXPECT_THAT(Device.FileBytes(kDataFile), Optional(expected));
}

TEST_F(CategoryFileTest, WhatIsSavedIsLoadedAgain) {
    EXPECT_TRUE(LoadCategoryFile(State));
    Lists().AlarmList.Append(3);
    Lists().HolidayList.Append(2147483647);
    Lists().HolidayList.Append(3);
    EXPECT_TRUE(SaveCategoryFile(State));
    CProgramState next(Pump);
    EXPECT_TRUE(LoadCategoryFile(next));
    EXPECT_THAT(next.Categories.AlarmList.All(), ElementsAre(3));
    EXPECT_THAT(next.Categories.HolidayList.All(), ElementsAre(2147483647, 3));
    EXPECT_THAT(next.Categories.AnniversaryList.All(), IsEmpty());
}

TEST_F(CategoryFileTest, AShorterListLeavesNothingOfTheLongerFile) {
    EXPECT_TRUE(LoadCategoryFile(State));
    Lists().AlarmList.Replace({1, 2, 3, 4});
    EXPECT_TRUE(SaveCategoryFile(State));
    Lists().AlarmList.RemoveAll();
    EXPECT_TRUE(SaveCategoryFile(State));
    EXPECT_THAT(Device.FileBytes(kDataFile), Optional(kEmptyFile));
}

TEST_F(CategoryFileTest, ChangesAreNotWrittenUntilTheSave) {
    EXPECT_TRUE(LoadCategoryFile(State));
    Lists().AlarmList.Append(3);
    EXPECT_THAT(Device.FileBytes(kDataFile), Optional(kEmptyFile));
}

TEST_F(CategoryFileTest, AFolderThatExistsIsUsed) {
    EXPECT_TRUE(LoadCategoryFile(State));
    EXPECT_TRUE(LoadCategoryFile(State));
    EXPECT_EQ(State.DataFolder, u"\\My Documents\\TavoCalendar");
}

TEST_F(CategoryFileTest, WithoutAFolderTheFileIsLookedForInMyDocuments) {
    Device.GivenFile(kFallbackFile, {1, 0, 0, 0, 9, 0, 0, 0, ';', 0, 0, 0, 0, ';', 0, 0, 0, 0, ';'});
    Host.OwnFiles.FolderResult = ErrorCode::AccessDenied;
    EXPECT_TRUE(LoadCategoryFile(State));
    EXPECT_EQ(State.DataFolder, u"\\My Documents\\");
    // The doubled separator is intended.
    EXPECT_EQ(Host.OwnFiles.LastRead, u"\\My Documents\\\\TavoCalendar.dat");
    EXPECT_THAT(Lists().AlarmList.All(), ElementsAre(9));
    EXPECT_TRUE(SaveCategoryFile(State));
    EXPECT_EQ(Host.OwnFiles.LastWritten, u"\\My Documents\\\\TavoCalendar.dat");
}

TEST_F(CategoryFileTest, ThatTheFileCannotBeOpenedIsSaidOverTheMainView) {
    WindowDescription view;
    view.Kind = WindowKind::Frame;
    view.Bounds = Rect::FromSize(0, 0, 240, 320);
    view.Visible = true;
    State.MainView = Device.Host.Windows().CreateWindowExW(view);
    ASSERT_NE(State.MainView, WindowHandle::None);
    Host.OwnFiles.WriteResult = ErrorCode::AccessDenied;
    Device.WillAnswer(IDOK);
    EXPECT_FALSE(SaveCategoryFile(State));
    EXPECT_THAT(Device.MessagesShown(), ElementsAre(kCannotOpenMessage));
    EXPECT_THAT(Device.Host.Seen.BoxOwners, ElementsAre(State.MainView));
}

TEST_F(CategoryFileTest, AFileThatCannotBeMadeIsReported) {
    Host.OwnFiles.WriteResult = ErrorCode::DiskFull;
    Device.WillAnswer(IDOK);
    EXPECT_FALSE(LoadCategoryFile(State));
    EXPECT_THAT(Device.MessagesShown(), ElementsAre(kCannotOpenMessage));
}

TEST_F(CategoryFileTest, AFileThatCannotBeReadIsReportedAndNotReplaced) {
    const Bytes tagged{1, 0, 0, 0, 9, 0, 0, 0, ';', 0, 0, 0, 0, ';', 0, 0, 0, 0, ';'};
    Device.GivenFile(kDataFile, tagged);
    Host.OwnFiles.ReadResult = ErrorCode::AccessDenied;
    Device.WillAnswer(IDOK);
    EXPECT_FALSE(LoadCategoryFile(State));
    EXPECT_THAT(Device.MessagesShown(), ElementsAre(kCannotOpenMessage));
    EXPECT_THAT(Device.FileBytes(kDataFile), Optional(tagged));
    Device.WillAnswer(IDOK);
    EXPECT_FALSE(SaveCategoryFile(State));
    EXPECT_EQ(Device.MessagesShown().size(), 2U);
    EXPECT_THAT(Device.FileBytes(kDataFile), Optional(tagged));
}

TEST_F(CategoryFileTest, OnceReadAgainTheFileIsSavedAgain) {
    Device.GivenFile(kDataFile, {1, 0, 0, 0, 9, 0, 0, 0, ';', 0, 0, 0, 0, ';', 0, 0, 0, 0, ';'});
    Host.OwnFiles.ReadResult = ErrorCode::AccessDenied;
    Device.WillAnswer(IDOK);
    EXPECT_FALSE(LoadCategoryFile(State));
    Host.OwnFiles.ReadResult = ErrorCode::Success;
    EXPECT_TRUE(LoadCategoryFile(State));
    Lists().AlarmList.RemoveAll();
    EXPECT_TRUE(SaveCategoryFile(State));
    EXPECT_THAT(Device.FileBytes(kDataFile), Optional(kEmptyFile));
}

TEST_F(CategoryFileTest, ASaveThatFailsIsReportedAndFinishesNoRequest) {
    EXPECT_TRUE(LoadCategoryFile(State));
    Outlook.Mirror.Requests = {{4, TagList::Alarm, 9, true}};
    EXPECT_TRUE(Lists().ApplyTagRequests());
    Outlook.Mirror.Reports.clear();
    Host.OwnFiles.WriteResult = ErrorCode::DiskFull;
    Device.WillAnswer(IDOK);
    EXPECT_FALSE(SaveCategoryFile(State));
    EXPECT_THAT(Device.MessagesShown(), ElementsAre(kCannotOpenMessage));
    EXPECT_THAT(Outlook.Mirror.Reports, IsEmpty());
}

TEST_F(CategoryFileTest, LoadingRebuildsTheMirror) {
    Device.GivenFile(kDataFile,
                     {2, 0, 0, 0, 9, 0, 0, 0, 7, 0, 0, 0, ';', 0, 0, 0, 0, ';', 1, 0, 0, 0, 8, 0, 0, 0, ';'});
    EXPECT_TRUE(LoadCategoryFile(State));
    EXPECT_THAT(Outlook.Mirror.Reports, ElementsAre("replace alarm 9 7", "replace holiday", "replace anniversary 8"));
}

TEST_F(CategoryFileTest, TagsAskedForBeforeTheStartAreCarriedOutAndFinishedByTheSave) {
    Device.GivenFile(kDataFile, kEmptyFile);
    Outlook.Mirror.Requests = {{4, TagList::Holiday, 9, true}};
    EXPECT_TRUE(LoadCategoryFile(State));
    EXPECT_TRUE(Lists().IsHoliday(9));
    EXPECT_THAT(Outlook.Mirror.Reports,
                ElementsAre("replace alarm", "replace holiday", "replace anniversary", "replace holiday 9"));
    EXPECT_TRUE(SaveCategoryFile(State));
    EXPECT_EQ(Outlook.Mirror.Reports.back(), "finish 4");
}

} // namespace

} // namespace tavo
