// Readings of one moment.
#include "tests/outlook/child_process.h"
#include "tests/outlook/store_fixture.h"

#include <unistd.h>

#include <memory>
#include <string>
#include <vector>

namespace tavo::outlook::test {
namespace {

class Reading : public StoreFileTest {
  protected:
    // What another process puts into the store in the middle of a reading, and what is seen of it before and after.
    void AddElsewhere() {
        Other->Tell('a');
        ASSERT_EQ(Other->Hear(), 'd');
    }

    void StartOther() {
        App.Reset(); // locks belong to a process, so a child must open its own
        Store.reset();
        Other = std::make_unique<ChildProcess>([this](ChildProcess::Link& link) {
            Reopen();
            for (int day = 2; link.Hear() != 0; ++day) {
                Add("2026-05-0" + std::to_string(day) + " 10:00", "2026-05-0" + std::to_string(day) + " 11:00");
                link.Tell('d');
            }
            _exit(0);
        });
        Reopen();
    }

    std::size_t Count() { return WalkOids(*Items()).size(); }

    std::unique_ptr<ChildProcess> Other;
};

TEST_F(Reading, SeesTheStoreAsItWasWhenItFirstLooked) {
    StartOther();
    ASSERT_EQ(App->BeginReading(), Status::Ok);
    EXPECT_EQ(Count(), 0U);
    AddElsewhere();
    EXPECT_EQ(Count(), 0U);
    EXPECT_EQ(App->EndReading(), Status::Ok);
    EXPECT_EQ(Count(), 1U);
}

TEST_F(Reading, NestsAndEndsWithTheOutermost) {
    StartOther();
    ASSERT_EQ(App->BeginReading(), Status::Ok);
    ASSERT_EQ(App->BeginReading(), Status::Ok);
    EXPECT_EQ(Count(), 0U);
    EXPECT_EQ(App->EndReading(), Status::Ok);
    AddElsewhere();
    EXPECT_EQ(Count(), 0U);
    EXPECT_EQ(App->EndReading(), Status::Ok);
    EXPECT_EQ(Count(), 1U);
    EXPECT_EQ(App->EndReading(), Status::Unexpected);
}

TEST_F(Reading, AChangeEndsItAndIsKept) {
    StartOther();
    ASSERT_EQ(App->BeginReading(), Status::Ok);
    EXPECT_EQ(Count(), 0U);
    AddElsewhere(); // what was seen is old now, and would not let us write
    const Oid own = Add("2026-05-20 10:00", "2026-05-20 11:00");
    EXPECT_EQ(Count(), 2U);
    AddElsewhere();
    EXPECT_EQ(Count(), 3U);
    EXPECT_EQ(App->EndReading(), Status::Ok);
    EXPECT_TRUE(Exists(own));
    Reopen();
    EXPECT_EQ(Count(), 3U);
}

TEST_F(Reading, AnUndoAndANoteOfTagsEndItToo) {
    const Oid own = Add("2026-05-20 10:00", "2026-05-20 11:00");
    ASSERT_EQ(App->BeginReading(), Status::Ok);
    EXPECT_EQ(Count(), 1U);
    EXPECT_EQ(App->Tags().ReportInserted(TagList::Alarm, 0, own), Status::Ok);
    EXPECT_EQ(App->EndReading(), Status::Ok);
    ASSERT_EQ(App->BeginReading(), Status::Ok);
    EXPECT_EQ(Count(), 1U);
    std::vector<Oid> restored;
    EXPECT_EQ(App->Undo(restored), Status::Ok);
    EXPECT_EQ(Count(), 0U);
    EXPECT_EQ(App->EndReading(), Status::Ok);
    Reopen();
    EXPECT_EQ(Count(), 0U);
}

TEST_F(Reading, WithinAGroupItIsPartOfIt) {
    ASSERT_EQ(App->Begin(u"Group"), Status::Ok);
    const Oid own = Add("2026-05-20 10:00", "2026-05-20 11:00");
    ASSERT_EQ(App->BeginReading(), Status::Ok);
    EXPECT_TRUE(Exists(own));
    EXPECT_EQ(App->EndReading(), Status::Ok);
    EXPECT_EQ(App->Abandon(), Status::Ok);
    EXPECT_FALSE(Exists(own));
}

TEST_F(Reading, NeedsAStore) {
    ASSERT_EQ(App->Logoff(), Status::Ok);
    EXPECT_EQ(App->BeginReading(), Status::Unexpected);
    EXPECT_EQ(App->EndReading(), Status::Unexpected);
}

} // namespace
} // namespace tavo::outlook::test
