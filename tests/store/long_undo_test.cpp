// What a menu says of the newest step, and taking it back together with what the program noted in it.
#include "store/undo.h"

#include "store/change_group.h"
#include "tests/support/outlook_probe.h"
#include "tests/support/test_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace tavo {
namespace {

using test::TestDevice;
using testing::ElementsAre;
using testing::IsEmpty;

// Writes down what it is asked.
class Notebook final : public IUndoNotes {
  public:
    void BringBack(std::span<const std::uint8_t> note) override { There.emplace_back(note.begin(), note.end()); }

    bool TakeAwayNext() override {
        if (There.empty()) {
            return false;
        }
        There.pop_back();
        return true;
    }

    void Settle() override { IsSettled = true; }

    std::vector<std::string> There;
    bool IsSettled = false;
};

class LongUndoTest : public testing::Test {
  protected:
    LongUndoTest() { EXPECT_TRUE(State.Store.OpenStore()); }

    // One step: an item, and two notes.
    void Make(std::u16string_view step = u"Both") {
        ChangeGroup group(State.Store, step);
        ComPtr<IAppointment> item;
        ASSERT_EQ(State.Store.OutlookApp->CreateItem(kItemAppointment, item), Status::Ok);
        ASSERT_EQ(item->put_Start(38294), Status::Ok);
        ASSERT_EQ(item->Save(), Status::Ok);
        for (const std::string note : {"first", "second"}) {
            ASSERT_EQ(
                State.Store.OutlookApp->AddNote({reinterpret_cast<const std::uint8_t*>(note.data()), note.size()}),
                Status::Ok);
        }
        ASSERT_TRUE(group.End());
    }

    int Count() { return State.Store.CountAppointments(); }

    TestDevice Device;
    CProgramState State{Device.Pump};
    Notebook Notes;
};

TEST_F(LongUndoTest, BringsEveryNoteBackNewestFirstAfterTheItems) {
    Make();
    LongUndo undo(State, &Notes);
    int steps = 0;
    while (undo.DoNext()) {
        ++steps;
    }
    EXPECT_TRUE(undo.IsDone());
    EXPECT_EQ(steps, undo.Total());
    EXPECT_EQ(undo.Done(), undo.Total());
    EXPECT_GE(steps, 3);
    EXPECT_EQ(Count(), 0);
    EXPECT_THAT(Notes.There, ElementsAre("second", "first"));
    EXPECT_TRUE(Notes.IsSettled);
}

TEST_F(LongUndoTest, AnAbandonedOneTakesItsNotesAwayAgainAndLeavesTheItems) {
    Make();
    {
        LongUndo undo(State, &Notes);
        while (Notes.There.empty() && undo.DoNext()) {
        }
        EXPECT_THAT(Notes.There, ElementsAre("second"));
        undo.Abandon();
        EXPECT_FALSE(undo.IsDone());
    }
    EXPECT_EQ(Count(), 1);
    EXPECT_THAT(Notes.There, IsEmpty());
    EXPECT_FALSE(Notes.IsSettled);
}

TEST_F(LongUndoTest, WithoutAKeeperNotesArePassedOver) {
    Make();
    LongUndo undo(State);
    while (undo.DoNext()) {
    }
    EXPECT_TRUE(undo.IsDone());
    EXPECT_EQ(Count(), 0);
}

TEST_F(LongUndoTest, ANameGoesOnInSmallLettersWhereItBeginsWithACapital) {
    const std::pair<std::u16string_view, std::u16string_view> names[] = {
        {u"Arrive", u"Undo arrive"},
        {u"Zip", u"Undo zip"},
        {u"delete of alarm One", u"Undo delete of alarm One"},
        {u"@home", u"Undo @home"},
        {u"[draft]", u"Undo [draft]"},
    };
    for (const auto& [name, shown] : names) {
        Make(name);
        EXPECT_EQ(DescribeUndo(State), shown);
    }
}

TEST_F(LongUndoTest, WithoutAStoreThereIsNothingToTakeBack) {
    Make();
    State.Store.CloseStore();
    EXPECT_EQ(DescribeUndo(State), u"Undo");
    EXPECT_FALSE(CanUndo(State));
    LongUndo undo(State);
    EXPECT_TRUE(undo.IsRefused());
    EXPECT_FALSE(undo.DoNext());
}

TEST_F(LongUndoTest, OneThatIsDoneLeavesTheNextStepAlone) {
    Make();
    {
        LongUndo undo(State, &Notes);
        while (undo.DoNext()) {
        }
        EXPECT_TRUE(undo.IsDone());
        EXPECT_FALSE(undo.IsRefused());
        ASSERT_EQ(State.Store.OutlookApp->Begin(u"Next"), Status::Ok);
    }
    EXPECT_EQ(State.Store.OutlookApp->End(), Status::Ok);
}

TEST_F(LongUndoTest, OneThatWasAbandonedLeavesTheNextStepAlone) {
    Make();
    {
        LongUndo undo(State, &Notes);
        EXPECT_TRUE(undo.DoNext());
        undo.Abandon();
        ASSERT_EQ(State.Store.OutlookApp->Begin(u"Next"), Status::Ok);
    }
    EXPECT_EQ(State.Store.OutlookApp->End(), Status::Ok);
    EXPECT_EQ(Count(), 1);
}

TEST_F(LongUndoTest, OneThatIsLeftHalfwayTakesNothingBack) {
    Make();
    {
        LongUndo undo(State, &Notes);
        while (Notes.There.empty() && undo.DoNext()) {
        }
    }
    EXPECT_THAT(Notes.There, IsEmpty());
    EXPECT_EQ(Count(), 1);
    Make(); // the store is free again
    EXPECT_EQ(Count(), 2);
}

// Of a step that was made, on a connection that answers as the test says.
class UnwillingUndo : public LongUndoTest {
  protected:
    UnwillingUndo() {
        Make();
        State.Store.OutlookApp = Outlook.Share();
    }

    ~UnwillingUndo() override { State.Store.OutlookApp = Real; }

    void ExpectRefused(const LongUndo& undo) {
        EXPECT_TRUE(undo.IsRefused());
        EXPECT_FALSE(undo.IsDone());
        EXPECT_THAT(Notes.There, IsEmpty());
        EXPECT_FALSE(Notes.IsSettled);
        EXPECT_EQ(Count(), 1);
        EXPECT_EQ(DescribeUndo(State), u"Undo both"); // still on offer
    }

    ComPtr<IPOutlookApp> Real = State.Store.OutlookApp;
    test::OutlookProbe Outlook{Real};
};

TEST_F(UnwillingUndo, WhereTheNotesCannotBeReadNothingIsTakenBack) {
    Outlook.NotesResult = Status::Locked;
    LongUndo undo(State, &Notes);
    EXPECT_FALSE(undo.DoNext());
    ExpectRefused(undo);
}

TEST_F(UnwillingUndo, WhereAPartCannotBeTakenBackNoneIs) {
    LongUndo undo(State, &Notes);
    while (Notes.There.empty() && undo.DoNext()) {
    }
    Outlook.StepResult = Status::Locked;
    EXPECT_FALSE(undo.DoNext());
    Outlook.StepResult = Status::Ok;
    EXPECT_FALSE(undo.DoNext()); // it is over
    ExpectRefused(undo);
}

TEST_F(UnwillingUndo, WhatCannotBeMadeFinalIsTakenBack) {
    Outlook.EndResult = Status::Locked;
    LongUndo undo(State, &Notes);
    while (undo.DoNext()) {
    }
    ExpectRefused(undo);
}

} // namespace
} // namespace tavo
