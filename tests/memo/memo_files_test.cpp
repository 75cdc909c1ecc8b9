// Naming, finding, reading and writing memos.
#include "memo/memo_files.h"

#include "tests/support/host_probe.h"
#include "tests/support/test_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::HostProbe;
using test::TestDevice;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::UnorderedElementsAre;

using Bytes = std::vector<std::uint8_t>;

constexpr std::u16string_view kFolder = u"\\My Documents\\TavoCalendar\\";

class MemoFilesTest : public testing::Test {
  protected:
    void GivenFile(std::u16string_view name, const Bytes& bytes = {1, 2, 3}) {
        Device.GivenFile(std::u16string(kFolder).append(name), bytes);
    }

    Bytes BufferBytes() const { return {State.Memo.Bytes().begin(), State.Memo.Bytes().end()}; }

    TestDevice Device;
    HostProbe Host{Device.Host};
    CMessagePump Pump{Host};
    CProgramState State{Pump};
    MemoFiles Memos{State};
};

TEST_F(MemoFilesTest, APathIsFolderAndName) {
    EXPECT_EQ(Memos.MemoPath(u"20040915_101530.pwi"), u"\\My Documents\\TavoCalendar\\20040915_101530.pwi");
    State.DataFolder = u"\\My Documents\\";
    EXPECT_EQ(Memos.MemoPath(u"20040915_101530.pwi"), u"\\My Documents\\\\20040915_101530.pwi");
}

TEST_F(MemoFilesTest, ANewMemoIsNamedByItsDayAndTheTimeItIsSaved) {
    Device.Host.Time.Clock.SetLocalTime({2010, 1, 0, 2, 10, 15, 30, 0});
    EXPECT_EQ(Memos.NewMemoPath(2004, 9, 15), u"\\My Documents\\TavoCalendar\\20040915_101530.pwi");
}

TEST_F(MemoFilesTest, NamesHaveTwoDigitsForEverythingButTheYear) {
    Device.Host.Time.Clock.SetLocalTime({2010, 1, 0, 2, 1, 5, 9, 0});
    EXPECT_EQ(Memos.NewMemoPath(2005, 1, 9), u"\\My Documents\\TavoCalendar\\20050109_010509.pwi");
    EXPECT_EQ(Memos.NewMemoPath(2005, 12, 31), u"\\My Documents\\TavoCalendar\\20051231_010509.pwi");
}

TEST_F(MemoFilesTest, MemosOfTheSameDayAndSecondHaveOneNameAndTheSecondReplacesTheFirst) {
    GivenFile(u"other.txt"); // the folder is there
    Device.Host.Time.Clock.SetLocalTime({2004, 9, 3, 15, 10, 15, 30, 0});
    State.Memo.Fill({1, 1});
    EXPECT_TRUE(Memos.WriteMemo(Memos.NewMemoPath(2004, 9, 15)));
    State.Memo.Fill({2});
    EXPECT_TRUE(Memos.WriteMemo(Memos.NewMemoPath(2004, 9, 15)));
    EXPECT_THAT(Memos.FindMemos(2004, 9, 15), ElementsAre(u"20040915_101530.pwi"));
    EXPECT_THAT(Device.FileBytes(u"\\My Documents\\TavoCalendar\\20040915_101530.pwi"), Optional(Bytes{2}));
}

TEST_F(MemoFilesTest, FindsTheMemosOfADayWithoutTheFolder) {
    GivenFile(u"20040915_101530.pwi");
    GivenFile(u"20040915_235959.pwi");
    GivenFile(u"20040916_000000.pwi");
    EXPECT_THAT(Memos.FindMemos(2004, 9, 15), UnorderedElementsAre(u"20040915_101530.pwi", u"20040915_235959.pwi"));
    EXPECT_THAT(Memos.FindMemos(2004, 9, 16), ElementsAre(u"20040916_000000.pwi"));
    EXPECT_TRUE(Memos.HasMemo(2004, 9, 15));
    EXPECT_FALSE(Memos.HasMemo(2004, 9, 17));
}

TEST_F(MemoFilesTest, GivesThemInTheOrderInWhichTheyAreFound) {
    Host.OwnFiles.Found = {u"20040915_120000.pwi", u"20040915_080000.pwi", u"20040915_100000.pwi"};
    EXPECT_THAT(Memos.FindMemos(2004, 9, 15),
                ElementsAre(u"20040915_120000.pwi", u"20040915_080000.pwi", u"20040915_100000.pwi"));
}

TEST_F(MemoFilesTest, TheNinthIsNotTheNineteenth) {
    GivenFile(u"20050119_080000.pwi");
    EXPECT_THAT(Memos.FindMemos(2005, 1, 9), IsEmpty());
    EXPECT_FALSE(Memos.HasMemo(2005, 1, 9));
    EXPECT_TRUE(Memos.HasMemo(2005, 1, 19));
    GivenFile(u"20050109_080000.pwi");
    EXPECT_THAT(Memos.FindMemos(2005, 1, 9), ElementsAre(u"20050109_080000.pwi"));
    EXPECT_THAT(Memos.FindMemos(2005, 1, 19), ElementsAre(u"20050119_080000.pwi"));
}

TEST_F(MemoFilesTest, JanuaryAndNovemberAreToldApart) {
    GivenFile(u"20041101_080000.pwi");
    EXPECT_FALSE(Memos.HasMemo(2004, 1, 1));
    EXPECT_FALSE(Memos.HasMemo(2004, 1, 11));
    EXPECT_TRUE(Memos.HasMemo(2004, 11, 1));
}

TEST_F(MemoFilesTest, OtherFilesOfTheFolderAreNoMemos) {
    GivenFile(u"TavoCalendar.dat");
    GivenFile(u"20040915_101530.txt");
    GivenFile(u"20040915_101530.pwi.bak");
    GivenFile(u"shopping.pwi");
    GivenFile(u"x20040915_101530.pwi");
    EXPECT_THAT(Memos.FindMemos(2004, 9, 15), IsEmpty());
    EXPECT_FALSE(Memos.HasMemo(2004, 9, 15));
}

TEST_F(MemoFilesTest, AnyNameThatBeginsWithTheDateBelongsToTheDay) {
    GivenFile(u"20040915 shopping.pwi");
    EXPECT_THAT(Memos.FindMemos(2004, 9, 15), ElementsAre(u"20040915 shopping.pwi"));
}

TEST_F(MemoFilesTest, NoFolderNoMemos) {
    EXPECT_THAT(Memos.FindMemos(2004, 9, 15), IsEmpty());
    EXPECT_FALSE(Memos.HasMemo(2004, 9, 15));
}

TEST_F(MemoFilesTest, SearchesByTheDate) {
    EXPECT_FALSE(Memos.HasMemo(2004, 9, 5));
    EXPECT_EQ(Host.OwnFiles.LastPattern, u"\\My Documents\\TavoCalendar\\20040905*.pwi");
    Host.OwnFiles.LastPattern.clear();
    EXPECT_THAT(Memos.FindMemos(812, 10, 31), IsEmpty());
    EXPECT_EQ(Host.OwnFiles.LastPattern, u"\\My Documents\\TavoCalendar\\8121031*.pwi");
}

TEST_F(MemoFilesTest, TheDaysWithMemosAreThoseThatHaveOne) {
    for (const std::u16string_view name :
         {u"20040901_080000.pwi", u"20040915 shopping.pwi", u"20040930.pwi", u"20040931_000000.pwi", u"200409.pwi",
          u"2004091.pwi", u"2004091x_080000.pwi", u"20040900_080000.pwi", u"20040942_080000.pwi",
          u"20041002_080000.pwi", u"20040909_080000.pwi", u"20040929_080000.pwi", u"2004090;.pwi",
          u"20040917_080000.txt", u"x20040918_080000.pwi", u"8120905_080000.pwi"}) {
        GivenFile(name);
    }
    MemoDays days(State);
    for (const auto& [year, month] : {std::pair(2004, 9), std::pair(2004, 10), std::pair(812, 9), std::pair(2005, 1)}) {
        for (int day = 1; day <= 31; ++day) {
            EXPECT_EQ(days.Has(year, month, day), Memos.HasMemo(year, month, day))
                << year << ' ' << month << ' ' << day;
        }
    }
    EXPECT_TRUE(days.Has(2004, 9, 15));
    EXPECT_FALSE(days.Has(2004, 9, 18));
}

TEST_F(MemoFilesTest, TheFolderIsLookedAtOnceForAMonth) {
    GivenFile(u"20040915_101530.pwi");
    MemoDays days(State);
    EXPECT_FALSE(days.Has(2004, 9, 1));
    EXPECT_EQ(Host.OwnFiles.LastPattern, u"\\My Documents\\TavoCalendar\\200409*.pwi");
    Host.OwnFiles.LastPattern.clear();
    EXPECT_TRUE(days.Has(2004, 9, 15));
    EXPECT_EQ(Host.OwnFiles.LastPattern, u"");
    EXPECT_FALSE(days.Has(2004, 10, 15));
    EXPECT_EQ(Host.OwnFiles.LastPattern, u"\\My Documents\\TavoCalendar\\200410*.pwi");
}

TEST_F(MemoFilesTest, WithoutTheDataFolderTheMemosOfMyDocumentsAreFound) {
    State.DataFolder = u"\\My Documents\\"; // where the data folder cannot be made
    Device.GivenFile(u"\\My Documents\\20040915_101530.pwi", {1, 2, 3});
    Device.GivenFile(u"\\My Documents\\TavoCalendar\\20040916_101530.pwi", {1, 2, 3});
    EXPECT_THAT(Memos.FindMemos(2004, 9, 15), ElementsAre(u"20040915_101530.pwi"));
    // The doubled separator is intended.
    EXPECT_EQ(Host.OwnFiles.LastPattern, u"\\My Documents\\\\20040915*.pwi");
    EXPECT_TRUE(Memos.HasMemo(2004, 9, 15));
    EXPECT_FALSE(Memos.HasMemo(2004, 9, 16));
    EXPECT_TRUE(Memos.ReadMemo(Memos.MemoPath(u"20040915_101530.pwi")));
    EXPECT_EQ(BufferBytes(), (Bytes{1, 2, 3}));
}

TEST_F(MemoFilesTest, ReadingTakesTheWholeFile) {
    GivenFile(u"20040915_101530.pwi", {0, 255, 0, 7});
    State.Memo.Fill({9, 9});
    EXPECT_TRUE(Memos.ReadMemo(Memos.MemoPath(u"20040915_101530.pwi")));
    EXPECT_EQ(BufferBytes(), (Bytes{0, 255, 0, 7}));
}

TEST_F(MemoFilesTest, WhatCannotBeReadLeavesTheBufferEmptyAndSaysNothing) {
    State.Memo.Fill({9, 9});
    EXPECT_FALSE(Memos.ReadMemo(Memos.MemoPath(u"20040915_101530.pwi")));
    EXPECT_TRUE(State.Memo.IsEmpty());
    EXPECT_THAT(Device.MessagesShown(), IsEmpty());
}

TEST_F(MemoFilesTest, EditingKeepsTheName) {
    GivenFile(u"20040915_101530.pwi", {1, 2, 3, 4, 5});
    State.Memo.Fill({7});
    EXPECT_TRUE(Memos.WriteMemo(Memos.MemoPath(u"20040915_101530.pwi")));
    EXPECT_THAT(Memos.FindMemos(2004, 9, 15), ElementsAre(u"20040915_101530.pwi"));
    EXPECT_THAT(Device.FileBytes(u"\\My Documents\\TavoCalendar\\20040915_101530.pwi"), Optional(Bytes{7}));
}

TEST_F(MemoFilesTest, AnEmptyMemoIsNeverWritten) {
    GivenFile(u"20040915_101530.pwi", {1, 2, 3});
    State.Memo.Empty();
    EXPECT_FALSE(Memos.WriteMemo(Memos.MemoPath(u"20040915_101530.pwi")));
    EXPECT_FALSE(Memos.WriteMemo(Memos.MemoPath(u"20040915_101531.pwi")));
    EXPECT_THAT(Device.FileBytes(u"\\My Documents\\TavoCalendar\\20040915_101530.pwi"), Optional(Bytes{1, 2, 3}));
    EXPECT_THAT(Memos.FindMemos(2004, 9, 15), ElementsAre(u"20040915_101530.pwi"));
}

TEST_F(MemoFilesTest, AMemoThatCannotBeWrittenLeavesTheFileAndSaysNothing) {
    GivenFile(u"20040915_101530.pwi", {1, 2, 3});
    State.Memo.Fill({7});
    Host.OwnFiles.WriteResult = ErrorCode::DiskFull;
    EXPECT_FALSE(Memos.WriteMemo(Memos.MemoPath(u"20040915_101530.pwi")));
    EXPECT_THAT(Device.FileBytes(u"\\My Documents\\TavoCalendar\\20040915_101530.pwi"), Optional(Bytes{1, 2, 3}));
    EXPECT_THAT(Device.MessagesShown(), IsEmpty());
}

TEST_F(MemoFilesTest, TheWayToTheDataFolderIsMadeAnewWhereSomebodyTookItAway) {
    State.DataFolder = u"\\Taken\\Away\\TavoCalendar";
    State.Memo.Fill({7});
    EXPECT_TRUE(Memos.WriteMemo(Memos.MemoPath(u"20040915_101530.pwi")));
    EXPECT_THAT(Device.FileBytes(u"\\Taken\\Away\\TavoCalendar\\20040915_101530.pwi"), Optional(Bytes{7}));
}

// Any other failure is not one that a folder mends.
TEST_F(MemoFilesTest, TheDataFolderIsMadeAnewOnlyWhereItIsMissing) {
    State.Memo.Fill({7});
    const auto isMade = [this](ErrorCode failure, const std::u16string& folder) {
        State.DataFolder = folder;
        Host.OwnFiles.WriteResult = failure;
        EXPECT_FALSE(Memos.WriteMemo(Memos.MemoPath(u"20040915_101530.pwi")));
        return Device.Host.Files().CreateDirectoryW(folder) == ErrorCode::AlreadyExists;
    };
    EXPECT_TRUE(isMade(ErrorCode::PathNotFound, u"\\A"));
    EXPECT_TRUE(isMade(ErrorCode::FileNotFound, u"\\B"));
    EXPECT_FALSE(isMade(ErrorCode::DiskFull, u"\\C"));
    EXPECT_FALSE(isMade(ErrorCode::AccessDenied, u"\\D"));
}

TEST_F(MemoFilesTest, AMemoThatFindsItsSecondTakenIsNamedByTheNextFreeOne) {
    const auto free = [this](int hour, int minute, int second) {
        SYSTEMTIME written = test::At(2004, 9, 15, hour, minute);
        written.Second = static_cast<std::uint16_t>(second);
        return Memos.FreeMemoPath(written);
    };
    EXPECT_EQ(free(10, 15, 30), u"\\My Documents\\TavoCalendar\\20040915_101530.pwi");
    GivenFile(u"20040915_101530.pwi");
    GivenFile(u"20040915_101531.pwi");
    EXPECT_EQ(free(10, 15, 30), u"\\My Documents\\TavoCalendar\\20040915_101532.pwi");
    GivenFile(u"20040915_105959.pwi");
    EXPECT_EQ(free(10, 59, 59), u"\\My Documents\\TavoCalendar\\20040915_110000.pwi");
    GivenFile(u"20040915_235959.pwi");
    EXPECT_EQ(free(23, 59, 59), u"\\My Documents\\TavoCalendar\\20040915_000000.pwi"); // of the same day
}

TEST_F(MemoFilesTest, WhereEverySecondIsTakenTheLastOneTriedIsGiven) {
    Host.OwnFiles.Found = {u"taken"};
    EXPECT_EQ(Memos.FreeMemoPath(test::At(2004, 9, 15, 10, 15)), u"\\My Documents\\TavoCalendar\\20040915_101459.pwi");
}

TEST_F(MemoFilesTest, BesideAMemoTheFirstFreeNumberIsTaken) {
    const std::u16string path = Memos.MemoPath(u"20040915_101530.pwi");
    EXPECT_EQ(Memos.FreePathBeside(path), u"\\My Documents\\TavoCalendar\\20040915_101530 2.pwi");
    GivenFile(u"20040915_101530 2.pwi");
    GivenFile(u"20040915_101530 3.pwi");
    EXPECT_EQ(Memos.FreePathBeside(path), u"\\My Documents\\TavoCalendar\\20040915_101530 4.pwi");
}

TEST_F(MemoFilesTest, TheBufferHoldsOneBlockAtATime) {
    EXPECT_TRUE(State.Memo.IsEmpty());
    State.Memo.Fill({1, 2});
    EXPECT_FALSE(State.Memo.IsEmpty());
    State.Memo.Fill({3});
    EXPECT_EQ(BufferBytes(), (Bytes{3}));
    State.Memo.Empty();
    EXPECT_TRUE(State.Memo.IsEmpty());
}

} // namespace

} // namespace tavo
