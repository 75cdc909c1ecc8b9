// Memos that a killed program left on their way to the Deleted folder.
#include "memo/moving_memos.h"

#include "memo/note_bytes.h"
#include "memo/undo_notes.h"
#include "tests/memo/memo_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace tavo::test {
namespace {

using Names = std::vector<std::u16string>;

constexpr std::u16string_view kFolder = u"\\My Documents\\TavoCalendar\\";
constexpr std::u16string_view kName = u"20040915_101500.pwi";
constexpr std::u16string_view kPlan = u"\\Recovery\\memos.moving";

class MemosOnTheirWay : public testing::Test {
  protected:
    MemosOnTheirWay() {
        EXPECT_EQ(Files().CreateDirectoryW(u"\\My Documents\\TavoCalendar\\Deleted"), ErrorCode::Success);
    }

    IFiles& Files() { return Desk.Device.Host().Files(); }

    static std::u16string PathOf(std::u16string_view name) { return std::u16string(kFolder).append(name); }

    static std::u16string DeletedPathOf(std::u16string_view name) { return PathOf(u"Deleted\\").append(name); }

    void Put(const std::u16string& path, std::uint8_t byte = 1) {
        const std::vector<std::uint8_t> bytes{byte};
        ASSERT_EQ(Files().WriteWholeFile(path, bytes), ErrorCode::Success);
    }

    // 0 where there is no such file.
    int ByteOf(std::u16string_view path) {
        std::vector<std::uint8_t> bytes;
        return Files().ReadWholeFile(path, bytes) == ErrorCode::Success && !bytes.empty() ? bytes.front() : 0;
    }

    void GivenPlan(const Names& names) {
        MovingMemos moving(Desk.State);
        ASSERT_TRUE(moving.Begin(names));
    }

    std::u16string PutAway(std::u16string_view name) {
        std::u16string kept;
        EXPECT_EQ(Files().PutAwayMemo(PathOf(name), kept), ErrorCode::Success);
        return kept;
    }

    // Of one memo, none of whose name was deleted before.
    void WritePlan(std::u16string_view memo) {
        NoteWriter writer;
        writer.PutNumber(1, 1); // the version
        writer.PutText(Desk.State.DataFolder);
        writer.PutNumber(1, 4);
        writer.PutText(memo);
        writer.PutNumber(0, 4);
        EXPECT_NE(Files().CreateDirectoryW(u"\\Recovery"), ErrorCode::AccessDenied);
        ASSERT_EQ(Files().WriteWholeFile(kPlan, writer.Take()), ErrorCode::Success);
    }

    // One memo that a kill left in the Deleted folder, with its plan; its path there.
    std::u16string GivenOneOnItsWay() {
        Put(PathOf(kName));
        GivenPlan({std::u16string(kName)});
        return PutAway(kName);
    }

    MemoDesk Desk;
};

TEST_F(MemosOnTheirWay, GoBackToTheirPlacesAndThePlanIsDone) {
    Put(PathOf(u"20040915_101500.pwi"), 1);
    Put(PathOf(u"20040916_101500.pwi"), 2);
    Put(PathOf(u"20040917_101500.pwi"), 3);
    GivenPlan({u"20040915_101500.pwi", u"20040916_101500.pwi", u"20040917_101500.pwi"});
    PutAway(u"20040915_101500.pwi");
    PutAway(u"20040916_101500.pwi");
    EXPECT_EQ(BringBackMovedMemos(Desk.State), 0);
    EXPECT_EQ(ByteOf(PathOf(u"20040915_101500.pwi")), 1);
    EXPECT_EQ(ByteOf(PathOf(u"20040916_101500.pwi")), 2);
    EXPECT_EQ(ByteOf(PathOf(u"20040917_101500.pwi")), 3);
    EXPECT_EQ(ByteOf(kPlan), 0);
}

TEST_F(MemosOnTheirWay, WithoutAPlanNothingMoves) {
    Put(PathOf(u"20040915_101500.pwi"));
    const std::u16string kept = PutAway(u"20040915_101500.pwi");
    EXPECT_EQ(BringBackMovedMemos(Desk.State), 0);
    EXPECT_EQ(ByteOf(kept), 1);
}

TEST_F(MemosOnTheirWay, APlanThatWasEndedIsNone) {
    Put(PathOf(u"20040915_101500.pwi"));
    MovingMemos moving(Desk.State);
    moving.End(); // there is none yet
    const Names names{u"20040915_101500.pwi"};
    ASSERT_TRUE(moving.Begin(names));
    EXPECT_NE(ByteOf(kPlan), 0);
    const std::u16string kept = PutAway(u"20040915_101500.pwi");
    moving.End();
    EXPECT_EQ(ByteOf(kPlan), 0);
    EXPECT_EQ(BringBackMovedMemos(Desk.State), 0);
    EXPECT_EQ(ByteOf(kept), 1);
}

TEST_F(MemosOnTheirWay, WhatWasDeletedBeforeStaysDeleted) {
    Put(PathOf(u"20040915_101500.pwi"), 1);
    const std::u16string before = PutAway(u"20040915_101500.pwi");
    GivenPlan({u"20040915_101500.pwi"}); // its file is gone: somebody else was faster
    EXPECT_EQ(BringBackMovedMemos(Desk.State), 0);
    EXPECT_EQ(ByteOf(before), 1);
    EXPECT_EQ(ByteOf(PathOf(u"20040915_101500.pwi")), 0);
}

TEST_F(MemosOnTheirWay, OneThatIsInItsPlaceAgainKeepsIt) {
    const std::u16string kept = GivenOneOnItsWay();
    Put(PathOf(u"20040915_101500.pwi"), 2); // written meanwhile
    EXPECT_EQ(BringBackMovedMemos(Desk.State), 0);
    EXPECT_EQ(ByteOf(PathOf(u"20040915_101500.pwi")), 2);
    EXPECT_EQ(ByteOf(kept), 1);
}

TEST_F(MemosOnTheirWay, OneWhoseNameWasShortenedIsFound) {
    const std::u16string name = u"20040915" + std::u16string(200, u'x') + u".pwi";
    Put(PathOf(name), 4);
    GivenPlan({name});
    EXPECT_LT(PutAway(name).size(), PathOf(u"Deleted\\").size() + name.size());
    EXPECT_EQ(BringBackMovedMemos(Desk.State), 0);
    EXPECT_EQ(ByteOf(PathOf(name)), 4);
}

TEST_F(MemosOnTheirWay, AShortNameIsNotTakenForAShortenedOne) {
    const std::u16string stem = u"20040915" + std::u16string(52, u'x'); // 60 characters: none is cut to fewer
    const std::u16string shorter = DeletedPathOf(stem.substr(0, 59) + u" (deleted 20040915_101500).pwi");
    GivenPlan({stem + u".pwi"});
    Put(shorter, 5);
    EXPECT_EQ(BringBackMovedMemos(Desk.State), 0);
    EXPECT_EQ(ByteOf(shorter), 5);
    EXPECT_EQ(ByteOf(PathOf(stem + u".pwi")), 0);
}

TEST_F(MemosOnTheirWay, ANameCutToTheShortestIsFound) {
    const std::u16string stem = u"20040915" + std::u16string(52, u'x');
    const std::u16string cut = DeletedPathOf(stem + u" (deleted 20040915_101500).pwi");
    GivenPlan({stem + u"yyy.pwi"});
    Put(cut, 6);
    EXPECT_EQ(BringBackMovedMemos(Desk.State), 0);
    EXPECT_EQ(ByteOf(PathOf(stem + u"yyy.pwi")), 6);
}

TEST_F(MemosOnTheirWay, OfAnotherDataFolderWaitForIt) {
    const std::u16string kept = GivenOneOnItsWay();
    const std::u16string folder = Desk.State.DataFolder;
    Desk.State.DataFolder = u"\\My Documents\\";
    EXPECT_EQ(BringBackMovedMemos(Desk.State), 0);
    EXPECT_EQ(ByteOf(kept), 1);
    EXPECT_NE(ByteOf(kPlan), 0);
    Desk.State.DataFolder = folder;
    EXPECT_EQ(BringBackMovedMemos(Desk.State), 0);
    EXPECT_EQ(ByteOf(PathOf(u"20040915_101500.pwi")), 1);
}

TEST_F(MemosOnTheirWay, AnUnreadablePlanMovesNothingAndGoes) {
    const std::u16string kept = GivenOneOnItsWay();
    std::vector<std::uint8_t> bytes;
    ASSERT_EQ(Files().ReadWholeFile(kPlan, bytes), ErrorCode::Success);
    std::vector<std::uint8_t> cut(bytes.begin(), bytes.end() - 1);
    std::vector<std::uint8_t> longer = bytes;
    longer.push_back(0);
    std::vector<std::uint8_t> ofAnotherVersion = bytes;
    ++ofAnotherVersion.front();
    for (const std::vector<std::uint8_t>& damaged : {cut, longer, ofAnotherVersion}) {
        ASSERT_EQ(Files().WriteWholeFile(kPlan, damaged), ErrorCode::Success);
        EXPECT_EQ(BringBackMovedMemos(Desk.State), 0);
        EXPECT_EQ(ByteOf(kept), 1);
        EXPECT_EQ(ByteOf(kPlan), 0);
    }
}

TEST_F(MemosOnTheirWay, OfAStepThatTheStoreHasStayDeleted) {
    const std::u16string kept = GivenOneOnItsWay();
    IPOutlookApp& outlook = *Desk.State.Store.OutlookApp;
    const Oid oid = Desk.GivenAppointment(u"Gone", At(2004, 9, 15, 9), At(2004, 9, 15, 10));
    ASSERT_EQ(outlook.Begin(u"Delete"), Status::Ok);
    ComPtr<IAppointment> item;
    ASSERT_EQ(outlook.GetItemFromOid(oid, item), Status::Ok);
    ASSERT_EQ(item->Delete(), Status::Ok);
    ASSERT_EQ(outlook.AddNote(EncodeNote(MemoPutAway{PathOf(u"20040915_101500.pwi"), kept})), Status::Ok);
    ASSERT_EQ(outlook.End(), Status::Ok);
    EXPECT_EQ(BringBackMovedMemos(Desk.State), 0);
    EXPECT_EQ(ByteOf(kept), 1);
    EXPECT_EQ(ByteOf(kPlan), 0);
}

TEST_F(MemosOnTheirWay, ThatCannotBeMovedAreCountedAndWait) {
    const std::u16string kept = GivenOneOnItsWay();
    Desk.Host.OwnFiles.MoveResult = ErrorCode::AccessDenied;
    EXPECT_EQ(BringBackMovedMemos(Desk.State), 1);
    EXPECT_EQ(ByteOf(kept), 1);
    EXPECT_NE(ByteOf(kPlan), 0);
    Desk.Host.OwnFiles.MoveResult = ErrorCode::Success;
    EXPECT_EQ(BringBackMovedMemos(Desk.State), 0);
    EXPECT_EQ(ByteOf(PathOf(kName)), 1);
    EXPECT_EQ(ByteOf(kPlan), 0);
}

TEST_F(MemosOnTheirWay, ThatAreNamedTwiceComeBackOnce) {
    Put(PathOf(kName));
    GivenPlan({std::u16string(kName), std::u16string(kName)});
    PutAway(kName);
    EXPECT_EQ(BringBackMovedMemos(Desk.State), 0);
    EXPECT_EQ(ByteOf(PathOf(kName)), 1);
}

TEST_F(MemosOnTheirWay, OfAnEarlierProgramsPlanGoBackAsWell) {
    const std::u16string kept = DeletedPathOf(u"20040915_101500 (deleted 20040915_101500).pwi");
    Put(kept, 7);
    WritePlan(kName);
    EXPECT_EQ(BringBackMovedMemos(Desk.State), 0);
    EXPECT_EQ(ByteOf(PathOf(kName)), 7);
}

TEST_F(MemosOnTheirWay, TakeNoOtherFilesPlaceWhateverAPlanSays) {
    const std::u16string kept = DeletedPathOf(u"TavoCalendar (deleted 20040915_101500).pwi");
    Put(kept, 7);
    WritePlan(u"TavoCalendar.dat");
    EXPECT_EQ(BringBackMovedMemos(Desk.State), 0);
    EXPECT_EQ(ByteOf(kept), 7);
    EXPECT_EQ(ByteOf(PathOf(u"TavoCalendar.dat")), 0);
}

TEST_F(MemosOnTheirWay, APlanIsEndedByThatWhichBeganIt) {
    MovingMemos first(Desk.State);
    ASSERT_TRUE(first.Begin(Names{std::u16string(kName)}));
    first.End();
    GivenPlan({std::u16string(kName)});
    first.End(); // again
    EXPECT_NE(ByteOf(kPlan), 0);
}

TEST_F(MemosOnTheirWay, WaitWhereTheStoreCannotSayWhetherItHasTheStep) {
    const std::u16string kept = GivenOneOnItsWay();
    Desk.State.Store.CloseStore();
    EXPECT_EQ(BringBackMovedMemos(Desk.State), 0);
    EXPECT_EQ(ByteOf(kept), 1);
    EXPECT_NE(ByteOf(kPlan), 0);
    ASSERT_TRUE(Desk.State.Store.OpenStore());
    EXPECT_EQ(BringBackMovedMemos(Desk.State), 0);
    EXPECT_EQ(ByteOf(PathOf(u"20040915_101500.pwi")), 1);
}

TEST_F(MemosOnTheirWay, AreNotMovedWhereThePlanCannotBeWritten) {
    ASSERT_EQ(Files().CreateDirectoryW(u"\\Recovery"), ErrorCode::Success);
    ASSERT_EQ(Files().CreateDirectoryW(kPlan), ErrorCode::Success); // a folder is no file
    const Names names{u"20040915_101500.pwi"};
    EXPECT_FALSE(MovingMemos(Desk.State).Begin(names));
}

} // namespace
} // namespace tavo::test
