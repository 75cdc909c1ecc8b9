// Collections: restricting, walking, including recurrences, deleting while walking.
#include "tests/outlook/store_fixture.h"

#include <gmock/gmock.h>

namespace tavo::outlook::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ItemCollection : public StoreTest {};

TEST_F(ItemCollection, WalksInOrderOfStartThenOid) {
    const Oid late = Add("2026-05-04 10:00", "2026-05-04 11:00");
    const Oid early = Add("2026-05-03 10:00", "2026-05-03 11:00");
    const Oid second = Add("2026-05-03 10:00", "2026-05-03 10:30");
    EXPECT_THAT(WalkOids(*Items()), ElementsAre(early, second, late));
}

TEST_F(ItemCollection, IndexIsOneBasedAndEndsWithInvalidArgument) {
    Add("2026-05-04 10:00", "2026-05-04 11:00");
    const auto items = Items();
    ComPtr<IAppointment> item;
    EXPECT_EQ(items->Item(0, item), Status::InvalidArgument);
    EXPECT_EQ(items->Item(-1, item), Status::InvalidArgument);
    EXPECT_EQ(items->Item(1, item), Status::Ok);
    EXPECT_EQ(items->Item(2, item), Status::InvalidArgument);
}

TEST_F(ItemCollection, CountsWithoutAndAfterWalking) {
    Add("2026-05-04 10:00", "2026-05-04 11:00");
    AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Daily());
    const auto items = Items();
    std::int32_t count = 0;
    ASSERT_EQ(items->get_Count(count), Status::Ok);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(Walk(*items).size(), 2U);
    ASSERT_EQ(items->get_Count(count), Status::Ok);
    EXPECT_EQ(count, 2);
}

TEST_F(ItemCollection, AWalkThroughOnePointerShowsEachItemAsItIs) {
    Add("2026-05-03 10:00", "2026-05-03 11:00", u"early");
    Add("2026-05-04 10:00", "2026-05-04 11:00", u"late");
    const auto items = Items();
    ComPtr<IAppointment> item;
    std::u16string subject;
    ASSERT_EQ(items->Item(1, item), Status::Ok);
    ASSERT_EQ(item->get_Subject(subject), Status::Ok);
    EXPECT_EQ(subject, u"early");
    ASSERT_EQ(item->put_Subject(u"never saved"), Status::Ok);
    ASSERT_EQ(items->Item(2, item), Status::Ok);
    ASSERT_EQ(item->get_Subject(subject), Status::Ok);
    EXPECT_EQ(subject, u"late");
    ASSERT_EQ(items->Item(1, item), Status::Ok);
    ASSERT_EQ(item->get_Subject(subject), Status::Ok);
    EXPECT_EQ(subject, u"early");
}

TEST_F(ItemCollection, AnItemThatSomeoneHoldsStaysTheSameWhileTheWalkGoesOn) {
    const Oid early = Add("2026-05-03 10:00", "2026-05-03 11:00");
    const Oid late = Add("2026-05-04 10:00", "2026-05-04 11:00");
    const auto items = Items();
    ComPtr<IAppointment> item;
    ASSERT_EQ(items->Item(1, item), Status::Ok);
    const ComPtr<IAppointment> held = item;
    ASSERT_EQ(items->Item(2, item), Status::Ok);
    Oid oid = 0;
    ASSERT_EQ(held->get_Oid(oid), Status::Ok);
    EXPECT_EQ(oid, early);
    ASSERT_EQ(item->get_Oid(oid), Status::Ok);
    EXPECT_EQ(oid, late);
}

TEST_F(ItemCollection, NoMatchIsSuccessAndANullCollection) {
    Add("2026-05-04 10:00", "2026-05-04 11:00");
    ComPtr<IPOutlookItemCollection> items = Items();
    EXPECT_EQ(Items()->Restrict(u"[Start] >= 5/5/2026", items), Status::Ok);
    EXPECT_FALSE(items);
}

TEST_F(ItemCollection, NoMatchIsACollectionWhereSeriesMayMatchLater) {
    AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Daily());
    const auto items = Restrict(u"[Start] >= 6/1/2026 and [Start] <= 6/2/2026");
    ASSERT_TRUE(items);
    std::int32_t count = -1;
    ASSERT_EQ(items->get_Count(count), Status::Ok);
    EXPECT_EQ(count, 0);
    ASSERT_EQ(items->put_IncludeRecurrences(true), Status::Ok);
    EXPECT_THAT(Walk(*items),
                ElementsAre("2026-06-01 09:00 > 2026-06-01 09:30", "2026-06-02 09:00 > 2026-06-02 09:30"));
}

TEST_F(ItemCollection, WithoutRecurrencesASeriesCountsOnceOnItsFirstDay) {
    AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Daily());
    EXPECT_THAT(Walk(*Restrict(u"[Start] <= 5/20/2026")), ElementsAre("2026-05-01 09:00 > 2026-05-01 09:30"));
    EXPECT_THAT(Walk(*Restrict(u"[Start] >= 5/2/2026")), IsEmpty());
}

TEST_F(ItemCollection, WithoutRecurrencesASeriesStandsForItsFirstOccurrence) {
    // Friday; the first Tuesday after it is the 5th.
    AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Weekly(4));
    EXPECT_THAT(Walk(*Items()), ElementsAre("2026-05-05 09:00 > 2026-05-05 09:30"));
}

TEST_F(ItemCollection, OccurrencesAreMergedWithPlainItems) {
    const Oid plain = Add("2026-05-02 09:00", "2026-05-02 10:00");
    const Oid series = AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Daily());
    EXPECT_THAT(Oids(u"[Start] >= 5/1/2026 and [Start] <= 5/3/2026"), ElementsAre(series, plain, series, series));
}

TEST_F(ItemCollection, AnOccurrenceShowsItsOwnTimesAndItsSeriesOid) {
    const Oid oid = AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Daily(), u"Morning");
    const auto items = Restrict(u"[Start] = 5/9/2026");
    ASSERT_EQ(items->put_IncludeRecurrences(true), Status::Ok);
    ComPtr<IAppointment> item;
    ASSERT_EQ(items->Item(1, item), Status::Ok);
    bool recurring = false;
    std::u16string subject;
    DATE start = 0;
    Oid its = 0;
    EXPECT_EQ(item->get_IsRecurring(recurring), Status::Ok);
    EXPECT_EQ(item->get_Subject(subject), Status::Ok);
    EXPECT_EQ(item->get_Start(start), Status::Ok);
    EXPECT_EQ(item->get_Oid(its), Status::Ok);
    EXPECT_TRUE(recurring);
    EXPECT_EQ(subject, u"Morning");
    EXPECT_EQ(TextOf(SecondsFromDate(start)), "2026-05-09 09:00");
    EXPECT_EQ(its, oid);
    ASSERT_EQ(Get(oid)->get_Start(start), Status::Ok);
    EXPECT_EQ(TextOf(SecondsFromDate(start)), "2026-05-01 09:00");
}

TEST_F(ItemCollection, AnUnboundedStartCannotBeExpanded) {
    AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Daily());
    EXPECT_EQ(Items()->put_IncludeRecurrences(true), Status::InvalidArgument);
    EXPECT_EQ(Restrict(u"[Start] >= 5/1/2026")->put_IncludeRecurrences(true), Status::InvalidArgument);
    EXPECT_EQ(Restrict(u"[Start] <= 6/1/2026 or [Subject] = \"Series\"")->put_IncludeRecurrences(true),
              Status::InvalidArgument);
    EXPECT_EQ(Restrict(u"[End] <= 6/1/2026")->put_IncludeRecurrences(true), Status::Ok);
    EXPECT_EQ(Restrict(u"[Start] >= 5/1/2026")->put_IncludeRecurrences(false), Status::Ok);
}

TEST_F(ItemCollection, DayQueryFindsWhatTouchesTheDay) {
    Add("2026-05-02 23:00", "2026-05-03 01:00", u"over midnight");
    Add("2026-05-03 00:00", "2026-05-04 00:00", u"all day");
    Add("2026-05-02 00:00", "2026-05-03 00:00", u"the day before");
    Add("2026-04-20 10:00", "2026-05-20 10:00", u"a month");
    Add("2026-05-02 22:00", "2026-05-03 00:00", u"until midnight");
    Add("2026-05-03 00:00", "2026-05-03 00:00", u"all of one day");
    EXPECT_THAT(Occurrences(u"[Start] <= 5/3/2026 and [End] >= 5/3/2026"),
                ElementsAre("2026-04-20 10:00 > 2026-05-20 10:00", "2026-05-02 22:00 > 2026-05-03 00:00",
                            "2026-05-02 23:00 > 2026-05-03 01:00", "2026-05-03 00:00 > 2026-05-04 00:00",
                            "2026-05-03 00:00 > 2026-05-03 00:00"));
}

TEST_F(ItemCollection, LongOccurrencesReachIntoTheDay) {
    AddSeries("2026-01-01 10:00", "2026-01-20 10:00", Monthly(1));
    EXPECT_THAT(Starts(u"[Start] <= 5/15/2026 and [End] >= 5/15/2026"), ElementsAre("2026-05-01 10:00"));
    EXPECT_THAT(Starts(u"[Start] <= 5/25/2026 and [End] >= 5/25/2026"), IsEmpty());
}

TEST_F(ItemCollection, WhenAnItemIsDeletedTheNextMovesToItsIndex) {
    const Oid first = Add("2026-05-01 10:00", "2026-05-01 11:00");
    const Oid second = Add("2026-05-02 10:00", "2026-05-02 11:00");
    const Oid third = Add("2026-05-03 10:00", "2026-05-03 11:00");
    const auto items = Items();
    EXPECT_THAT(WalkOids(*items), ElementsAre(first, second, third));
    ComPtr<IAppointment> item;
    ASSERT_EQ(items->Item(2, item), Status::Ok);
    ASSERT_EQ(item->Delete(), Status::Ok);
    EXPECT_THAT(WalkOids(*items), ElementsAre(first, third));
    ASSERT_EQ(Get(first)->Delete(), Status::Ok);
    EXPECT_THAT(WalkOids(*items), ElementsAre(third));
    std::int32_t count = 0;
    ASSERT_EQ(items->get_Count(count), Status::Ok);
    EXPECT_EQ(count, 1);
}

TEST_F(ItemCollection, DeletingAnywhereKeepsTheOthersInOrder) {
    for (const std::size_t index : {1U, 4U, 8U, 0U}) {
        std::vector<Oid> oids = WalkOids(*Items());
        while (oids.size() < 10) {
            oids.push_back(Add("2026-05-01 10:00", "2026-05-01 11:00"));
        }
        const auto items = Items();
        ASSERT_EQ(WalkOids(*items), oids);
        ASSERT_EQ(Get(oids[index])->Delete(), Status::Ok);
        oids.erase(oids.begin() + static_cast<std::ptrdiff_t>(index));
        EXPECT_EQ(WalkOids(*items), oids);
    }
}

TEST_F(ItemCollection, ManyOfOneStartAreInOrderOfOid) {
    std::vector<Oid> expected;
    expected.reserve(300);
    for (int index = 0; index < 300; ++index) { // plain items and occurrences in turn
        expected.push_back(index % 2 == 0 ? Add("2026-05-02 09:00", "2026-05-02 10:00")
                                          : AddSeries("2026-05-01 09:00", "2026-05-01 10:00", Daily()));
    }
    Add("2026-05-02 08:59", "2026-05-02 10:00");
    std::vector<Oid> found = Oids(u"[Start] = 5/2/2026");
    ASSERT_EQ(found.size(), 301U);
    EXPECT_EQ(found.front(), 301);
    found.erase(found.begin());
    EXPECT_EQ(found, expected);
}

TEST_F(ItemCollection, WalkingAtOneIndexAndDeletingEmptiesTheFolder) {
    for (int day = 1; day <= 28; ++day) {
        Add("2026-02-" + std::to_string(day) + " 10:00", "2026-02-" + std::to_string(day) + " 11:00");
    }
    AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Daily());
    const auto items = Items();
    ComPtr<IAppointment> item;
    int deleted = 0;
    while (Succeeded(items->Item(1, item))) {
        ASSERT_EQ(item->Delete(), Status::Ok);
        ++deleted;
    }
    EXPECT_EQ(deleted, 29);
    EXPECT_THAT(WalkOids(*Items()), IsEmpty());
}

TEST_F(ItemCollection, DeletingASeriesTakesAllItsOccurrencesOut) {
    const Oid plain = Add("2026-05-02 12:00", "2026-05-02 13:00");
    const Oid series = AddSeries("2026-05-01 09:00", "2026-05-01 09:30", Daily());
    const auto items = Restrict(u"[Start] <= 5/4/2026");
    ASSERT_EQ(items->put_IncludeRecurrences(true), Status::Ok);
    EXPECT_THAT(WalkOids(*items), ElementsAre(series, series, plain, series, series));
    ASSERT_EQ(Get(series)->Delete(), Status::Ok);
    EXPECT_THAT(WalkOids(*items), ElementsAre(plain));
}

TEST_F(ItemCollection, RestrictingARestrictedCollectionKeepsBoth) {
    Add("2026-05-01 10:00", "2026-05-01 11:00", u"A");
    const Oid wanted = Add("2026-05-02 10:00", "2026-05-02 11:00", u"A");
    Add("2026-05-02 10:00", "2026-05-02 11:00", u"B");
    const auto items = Restrict(u"[Start] >= 5/2/2026");
    ComPtr<IPOutlookItemCollection> both;
    ASSERT_EQ(items->Restrict(u"[Subject] = \"A\"", both), Status::Ok);
    ASSERT_TRUE(both);
    EXPECT_THAT(WalkOids(*both), ElementsAre(wanted));
}

TEST_F(ItemCollection, SeriesOverAllTimeAreReadAsFarAsTheyAreWalked) {
    AddSeries("1900-01-01 09:00", "1900-01-01 09:30", Daily());
    const auto items = Restrict(u"[Start] <= 12/31/9999");
    ASSERT_EQ(items->put_IncludeRecurrences(true), Status::Ok);
    ComPtr<IAppointment> item;
    ASSERT_EQ(items->Item(1000, item), Status::Ok);
    DATE start = 0;
    ASSERT_EQ(item->get_Start(start), Status::Ok);
    EXPECT_EQ(TextOf(SecondsFromDate(start)), "1902-09-27 09:00");
    std::int32_t count = 0;
    ASSERT_EQ(items->get_Count(count), Status::Ok);
    EXPECT_EQ(count, 401767); // every day from 1900 to 2999
}

} // namespace tavo::outlook::test
