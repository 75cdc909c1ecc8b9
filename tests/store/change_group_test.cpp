// Groups of changes that end well, break off, or follow one another.
#include "store/change_group.h"

#include "store/program_state.h"
#include "tests/support/test_device.h"

#include <gtest/gtest.h>

#include <optional>

namespace tavo {

namespace {

using test::TestDevice;

class ChangeGroups : public testing::Test {
  protected:
    ChangeGroups() { EXPECT_TRUE(State.Store.OpenStore()); }

    void Make() {
        ComPtr<IAppointment> item;
        ASSERT_EQ(State.Store.OutlookApp->CreateItem(kItemAppointment, item), Status::Ok);
        ASSERT_EQ(item->put_Start(38294), Status::Ok);
        ASSERT_EQ(item->Save(), Status::Ok);
    }

    int Count() { return State.Store.CountAppointments(); }

    TestDevice Device;
    CProgramState State{Device.Pump};
};

TEST_F(ChangeGroups, AnEndedGroupStays) {
    {
        ChangeGroup group(State.Store, u"Two");
        ASSERT_TRUE(group.IsOpen());
        Make();
        Make();
        EXPECT_TRUE(group.End());
        EXPECT_FALSE(group.IsOpen());
    }
    EXPECT_EQ(Count(), 2);
}

TEST_F(ChangeGroups, AGroupThatBreaksOffLeavesNothing) {
    {
        const ChangeGroup group(State.Store, u"Two");
        Make();
        Make();
    }
    EXPECT_EQ(Count(), 0);
}

TEST_F(ChangeGroups, AGroupEndsOnce) {
    ChangeGroup group(State.Store, u"One");
    Make();
    EXPECT_TRUE(group.End());
    EXPECT_FALSE(group.End());
}

TEST_F(ChangeGroups, OneThatHasEndedLeavesTheNextAlone) {
    std::optional<ChangeGroup> first(std::in_place, State.Store, u"One");
    Make();
    EXPECT_TRUE(first->End());
    ChangeGroup second(State.Store, u"Other");
    ASSERT_TRUE(second.IsOpen());
    Make();
    first.reset();
    EXPECT_TRUE(second.End());
    EXPECT_EQ(Count(), 2);
}

TEST_F(ChangeGroups, DoNotNest) {
    ChangeGroup outer(State.Store, u"Outer");
    Make();
    {
        ChangeGroup inner(State.Store, u"Inner");
        EXPECT_FALSE(inner.IsOpen());
        EXPECT_EQ(State.Store.LastStoreResult, Status::Unexpected);
        EXPECT_FALSE(inner.End());
    }
    EXPECT_TRUE(outer.End());
    EXPECT_EQ(Count(), 1);
}

TEST_F(ChangeGroups, WithoutAStoreThereIsNone) {
    State.Store.CloseStore();
    ChangeGroup group(State.Store, u"One");
    EXPECT_FALSE(group.IsOpen());
    EXPECT_EQ(State.Store.LastStoreResult, Status::Unexpected);
    EXPECT_FALSE(group.End());
}

TEST_F(ChangeGroups, ThatLoseTheirStoreDoNotEndWell) {
    ChangeGroup group(State.Store, u"One");
    State.Store.CloseStore();
    EXPECT_FALSE(group.End());
    EXPECT_EQ(State.Store.LastStoreResult, Status::Unexpected);
}

} // namespace

} // namespace tavo
