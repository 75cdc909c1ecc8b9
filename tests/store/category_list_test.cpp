// One category list, and what the store's mirror is told of it.
#include "store/category_list.h"

#include "store/outlook_session.h"
#include "tests/support/outlook_probe.h"
#include "tests/support/test_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <numeric>
#include <vector>

namespace tavo {

namespace {

using test::OutlookProbe;
using test::TestDevice;
using testing::ElementsAre;
using testing::IsEmpty;

class CategoryListTest : public testing::Test {
  protected:
    CategoryListTest() { Session.OutlookApp = Outlook.Share(); }

    OutlookProbe Outlook; // outlives the session that holds it
    TestDevice Device;
    OutlookSession Session{Device.Pump};
    CategoryList List{TagList::Holiday, Session};
};

TEST_F(CategoryListTest, AppendsAtTheEnd) {
    List.Append(7);
    List.Append(3);
    EXPECT_THAT(List.All(), ElementsAre(7, 3));
    EXPECT_EQ(List.Size(), 2U);
    EXPECT_EQ(List.At(1), 3);
    EXPECT_THAT(Outlook.Mirror.Reports, ElementsAre("insert holiday at 0: 7", "insert holiday at 1: 3"));
}

TEST_F(CategoryListTest, InsertsBeforeAnIndex) {
    List.Append(7);
    List.Append(3);
    List.Insert(1, 5);
    EXPECT_THAT(List.All(), ElementsAre(7, 5, 3));
    EXPECT_EQ(Outlook.Mirror.Reports.back(), "insert holiday at 1: 5");
}

TEST_F(CategoryListTest, ContainsOnlyWhatStandsInIt) {
    EXPECT_FALSE(List.Contains(7));
    List.Append(7);
    EXPECT_TRUE(List.Contains(7));
    EXPECT_FALSE(List.Contains(8));
    List.RemoveAt(0);
    EXPECT_FALSE(List.Contains(7));
}

TEST_F(CategoryListTest, ADuplicateCountsUntilItsLastEntryIsGone) {
    List.Append(7);
    List.Append(3);
    List.Append(7);
    EXPECT_TRUE(List.RemoveFirst(7));
    EXPECT_THAT(List.All(), ElementsAre(3, 7));
    EXPECT_TRUE(List.Contains(7));
    EXPECT_TRUE(List.RemoveFirst(7));
    EXPECT_FALSE(List.Contains(7));
    EXPECT_FALSE(List.RemoveFirst(7));
    EXPECT_THAT(List.All(), ElementsAre(3));
}

TEST_F(CategoryListTest, RemovingClosesTheGap) {
    List.Append(1);
    List.Append(2);
    List.Append(3);
    Outlook.Mirror.Reports.clear();
    List.RemoveAt(1);
    EXPECT_THAT(List.All(), ElementsAre(1, 3));
    EXPECT_THAT(Outlook.Mirror.Reports, ElementsAre("remove holiday at 1: 2"));
}

TEST_F(CategoryListTest, ReplacingIsReportedAsAWhole) {
    List.Append(1);
    Outlook.Mirror.Reports.clear();
    List.Replace({4, 5});
    EXPECT_THAT(List.All(), ElementsAre(4, 5));
    EXPECT_FALSE(List.Contains(1));
    EXPECT_TRUE(List.Contains(5));
    EXPECT_THAT(Outlook.Mirror.Reports, ElementsAre("replace holiday 4 5"));
}

TEST_F(CategoryListTest, RemovingAllOfNothingIsNoChange) {
    List.RemoveAll();
    EXPECT_THAT(Outlook.Mirror.Reports, IsEmpty());
    List.Append(1);
    Outlook.Mirror.Reports.clear();
    List.RemoveAll();
    EXPECT_THAT(List.All(), IsEmpty());
    EXPECT_FALSE(List.Contains(1));
    EXPECT_THAT(Outlook.Mirror.Reports, ElementsAre("replace holiday"));
}

TEST_F(CategoryListTest, ManyChangesAtOnceAreReportedAsAWhole) {
    List.Append(1);
    Outlook.Mirror.Reports.clear();
    {
        const CategoryList::ReportOnce once(List);
        List.Append(2);
        List.Append(3);
        List.RemoveFirst(1);
        EXPECT_THAT(Outlook.Mirror.Reports, IsEmpty());
    }
    EXPECT_THAT(Outlook.Mirror.Reports, ElementsAre("replace holiday 2 3"));
    List.Append(4);
    EXPECT_EQ(Outlook.Mirror.Reports.back(), "insert holiday at 2: 4");
}

TEST_F(CategoryListTest, NoChangeAtAllIsNotReportedAsAWhole) {
    List.Append(1);
    Outlook.Mirror.Reports.clear();
    { const CategoryList::ReportOnce once(List); }
    EXPECT_THAT(Outlook.Mirror.Reports, IsEmpty());
}

TEST_F(CategoryListTest, WhatWasReportedAsAWholeIsNotReportedAgain) {
    {
        const CategoryList::ReportOnce once(List);
        List.Append(1);
    }
    Outlook.Mirror.Reports.clear();
    { const CategoryList::ReportOnce again(List); }
    EXPECT_THAT(Outlook.Mirror.Reports, IsEmpty());
}

TEST_F(CategoryListTest, WithoutAStoreNothingIsReported) {
    Session.OutlookApp.Reset();
    List.Append(1);
    List.RemoveAt(0);
    List.Replace({2});
    EXPECT_THAT(List.All(), ElementsAre(2));
    EXPECT_THAT(Outlook.Mirror.Reports, IsEmpty());
}

// A month may have thousands of marks and each list thousands of entries. Measured in the time of the processor, not of
// the clock, and against a walk of this very machine: a list that walked would take ten times the bound.
TEST_F(CategoryListTest, ALookupDoesNotWalkTheList) {
    std::vector<Oid> oids(100'000);
    std::iota(oids.begin(), oids.end(), 1);
    List.Replace(oids);
    constexpr Oid firstMissing = 100'001;
    constexpr Oid walks = 1'000;
    constexpr Oid lookups = 10 * walks;
    int found = 0;
    const std::clock_t began = std::clock();
    for (Oid oid = firstMissing; oid < firstMissing + walks; ++oid) {
        found += std::find(oids.begin(), oids.end(), oid) != oids.end() ? 1 : 0;
    }
    const std::clock_t walked = std::clock();
    for (Oid oid = firstMissing; oid < firstMissing + lookups; ++oid) {
        found += List.Contains(oid) ? 1 : 0;
    }
    const std::clock_t lookedUp = std::clock();
    EXPECT_EQ(found, 0);
    EXPECT_TRUE(List.Contains(firstMissing - 1));
    EXPECT_LT(lookedUp - walked, walked - began);
}

} // namespace

} // namespace tavo
