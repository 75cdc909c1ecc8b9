// Taking a long group back in steps: its end, its abandoning, and what may not happen meanwhile.
#include "host/outlook/store_core.h"
#include "tests/outlook/undo_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tavo::outlook::test {

using ::testing::SizeIs;

// Twelve items in one group: two created, of which one is changed, and ten deleted.
class UndoInSteps : public Undo {
  protected:
    UndoInSteps() {
        for (int number = 0; number < 10; ++number) {
            Before.push_back(Add("2026-05-04 10:00", "2026-05-04 11:00", u"Before"));
        }
        EXPECT_EQ(App->Begin(u"Much"), Status::Ok);
        Made = {Add("2026-05-05 10:00", "2026-05-05 11:00"), Add("2026-05-06 10:00", "2026-05-06 11:00")};
        const auto item = Get(Made[1]);
        EXPECT_EQ(item->put_Subject(u"Changed"), Status::Ok);
        EXPECT_EQ(item->Save(), Status::Ok);
        for (const Oid oid : Before) {
            EXPECT_EQ(Get(oid)->Delete(), Status::Ok);
        }
        EXPECT_EQ(App->End(), Status::Ok);
    }

    int CountThere(const std::vector<Oid>& oids) {
        return static_cast<int>(std::count_if(oids.begin(), oids.end(), [&](Oid oid) { return Exists(oid); }));
    }

    std::vector<Oid> Before;
    std::vector<Oid> Made;
};

TEST_F(UndoInSteps, AsManyAsWereToldBringEverythingBack) {
    std::int32_t steps = 0;
    ASSERT_EQ(App->BeginUndo(steps), Status::Ok);
    EXPECT_EQ(steps, 13);
    for (int step = 0; step < steps; ++step) {
        EXPECT_EQ(App->StepUndo(), Status::Ok) << step;
    }
    EXPECT_EQ(App->StepUndo(), Status::False);
    EXPECT_EQ(App->End(), Status::Ok);
    EXPECT_EQ(CountThere(Before), 10);
    EXPECT_EQ(CountThere(Made), 0);
    EXPECT_EQ(UndoName(), "New appointment");
    EXPECT_EQ(App->StepUndo(), Status::Unexpected);
}

TEST_F(UndoInSteps, AbandonedInTheMiddleItLeavesEverythingAndCanBeginAgain) {
    std::int32_t steps = 0;
    ASSERT_EQ(App->BeginUndo(steps), Status::Ok);
    for (int step = 0; step < 5; ++step) {
        ASSERT_EQ(App->StepUndo(), Status::Ok);
    }
    EXPECT_EQ(CountThere(Before), 5);
    EXPECT_EQ(App->Abandon(), Status::Ok);
    EXPECT_EQ(CountThere(Before), 0);
    EXPECT_EQ(CountThere(Made), 2);
    EXPECT_EQ(UndoName(), "Much");
    EXPECT_THAT(TakeBack(), SizeIs(12));
    EXPECT_EQ(CountThere(Before), 10);
}

TEST_F(UndoInSteps, HalfOfAGroupIsNotMadeFinal) {
    std::int32_t steps = 0;
    ASSERT_EQ(App->BeginUndo(steps), Status::Ok);
    ASSERT_EQ(App->StepUndo(), Status::Ok);
    EXPECT_EQ(App->End(), Status::Fail);
    EXPECT_EQ(CountThere(Before), 0);
    EXPECT_EQ(UndoName(), "Much");
}

TEST_F(UndoInSteps, LetsNothingElseBeChangedMeanwhile) {
    std::int32_t steps = 0;
    ASSERT_EQ(App->BeginUndo(steps), Status::Ok);
    EXPECT_EQ(App->BeginUndo(steps), Status::Unexpected);
    EXPECT_EQ(App->Begin(u"Other"), Status::Unexpected);
    const auto item = Get(Made[0]);
    ASSERT_EQ(item->put_Subject(u"Meanwhile"), Status::Ok);
    EXPECT_EQ(item->Save(), Status::Unexpected);
    EXPECT_EQ(App->Abandon(), Status::Ok);
    EXPECT_EQ(item->Save(), Status::Ok);
}

TEST_F(UndoInSteps, TheEndOfTheConnectionLeavesEverything) {
    std::int32_t steps = 0;
    ASSERT_EQ(App->BeginUndo(steps), Status::Ok);
    ASSERT_EQ(App->StepUndo(), Status::Ok);
    Reopen();
    EXPECT_EQ(CountThere(Before), 0);
    EXPECT_EQ(UndoName(), "Much");
}

TEST_F(UndoInSteps, ABrokenStepIsTheLast) {
    ASSERT_EQ(CoreOf(*Store).Db.Run("UPDATE journal_change SET image = substr(image, 1, 20) WHERE step = 7"),
              Status::Ok);
    std::int32_t steps = 0;
    ASSERT_EQ(App->BeginUndo(steps), Status::Ok);
    Status status = Status::Ok;
    while (status == Status::Ok) {
        status = App->StepUndo();
    }
    EXPECT_EQ(status, Status::Corrupt);
    EXPECT_EQ(App->StepUndo(), Status::Fail);
    EXPECT_EQ(App->End(), Status::Fail);
    EXPECT_EQ(CountThere(Before), 0);
}

} // namespace tavo::outlook::test
