// Taking a step back together with what the program noted in it.
#include "store/change_group.h"
#include "store/program_state.h"
#include "store/undo.h"
#include "tests/support/test_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
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
    void Make() {
        ChangeGroup group(State.Store, u"Both");
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

} // namespace
} // namespace tavo
