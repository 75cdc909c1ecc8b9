// The mirror of the category lists: order, wishes, and tags that come back with their item.
#include "host/outlook/occurrence_reader.h"
#include "host/outlook/store_core.h"
#include "tests/outlook/store_fixture.h"

#include <gmock/gmock.h>

namespace tavo::outlook::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TagMirror : public StoreTest {
  protected:
    std::vector<Oid> List(TagList list) {
        std::vector<Oid> oids;
        Query query(CoreOf(*Store).Db, "SELECT oid FROM tag WHERE list = ? ORDER BY place");
        query.Bind(static_cast<std::int64_t>(list));
        while (query.Next()) {
            oids.push_back(query.Small(0));
        }
        return oids;
    }

    std::vector<TagRequest> Requests() {
        std::vector<TagRequest> requests;
        EXPECT_EQ(App->Tags().GetRequests(requests), Status::Ok);
        return requests;
    }

    MirroredKind KindOf(Oid oid) {
        MirroredKind kind = MirroredKind::Appointment;
        OccurrenceReader reader(Store);
        EXPECT_EQ(reader.ListStarts(At("1900-01-01"), At("2999-12-31"),
                                    [&](const ListedOccurrence& line) { kind = line.Item == oid ? line.Kind : kind; }),
                  Status::Ok);
        return kind;
    }
};

TEST_F(TagMirror, FollowsInsertionsAndRemovalsByPosition) {
    ITagMirror& tags = App->Tags();
    ASSERT_EQ(tags.ReplaceList(TagList::Alarm, std::vector<Oid>{5, 6, 7}), Status::Ok);
    ASSERT_EQ(tags.ReportInserted(TagList::Alarm, 3, 8), Status::Ok);
    ASSERT_EQ(tags.ReportInserted(TagList::Alarm, 0, 4), Status::Ok);
    ASSERT_EQ(tags.ReportInserted(TagList::Alarm, 2, 55), Status::Ok);
    EXPECT_THAT(List(TagList::Alarm), ElementsAre(4, 5, 55, 6, 7, 8));
    ASSERT_EQ(tags.ReportRemoved(TagList::Alarm, 2, 55), Status::Ok);
    ASSERT_EQ(tags.ReportRemoved(TagList::Alarm, 0, 4), Status::Ok);
    EXPECT_THAT(List(TagList::Alarm), ElementsAre(5, 6, 7, 8));
    EXPECT_THAT(List(TagList::Holiday), IsEmpty());
    Reopen();
    EXPECT_THAT(List(TagList::Alarm), ElementsAre(5, 6, 7, 8));
}

TEST_F(TagMirror, TakesManyInsertionsAtOnePlace) {
    ITagMirror& tags = App->Tags();
    ASSERT_EQ(tags.ReplaceList(TagList::Holiday, std::vector<Oid>{1, 2}), Status::Ok);
    for (Oid oid = 100; oid < 160; ++oid) { // more often than a gap can be halved
        ASSERT_EQ(tags.ReportInserted(TagList::Holiday, 1, oid), Status::Ok);
    }
    const std::vector<Oid> list = List(TagList::Holiday);
    ASSERT_EQ(list.size(), 62U);
    EXPECT_EQ(list[0], 1);
    EXPECT_EQ(list[1], 159);
    EXPECT_EQ(list[60], 100);
    EXPECT_EQ(list[61], 2);
}

TEST_F(TagMirror, APositionThatIsOffStillRemovesTheItem) {
    ASSERT_EQ(App->Tags().ReplaceList(TagList::Alarm, std::vector<Oid>{5, 6, 7}), Status::Ok);
    EXPECT_EQ(App->Tags().ReportRemoved(TagList::Alarm, 0, 7), Status::Ok);
    EXPECT_EQ(App->Tags().ReportRemoved(TagList::Alarm, 9, 99), Status::False);
    EXPECT_THAT(List(TagList::Alarm), ElementsAre(5, 6));
}

TEST_F(TagMirror, TheFirstListThatHoldsAnItemIsItsKind) {
    const Oid oid = Add("2026-05-01 10:00", "2026-05-01 11:00");
    EXPECT_EQ(KindOf(oid), MirroredKind::Appointment);
    ASSERT_EQ(App->Tags().ReplaceList(TagList::Anniversary, std::vector<Oid>{oid}), Status::Ok);
    EXPECT_EQ(KindOf(oid), MirroredKind::Anniversary);
    ASSERT_EQ(App->Tags().ReplaceList(TagList::Holiday, std::vector<Oid>{oid}), Status::Ok);
    EXPECT_EQ(KindOf(oid), MirroredKind::Holiday);
    ASSERT_EQ(App->Tags().ReplaceList(TagList::Alarm, std::vector<Oid>{oid}), Status::Ok);
    EXPECT_EQ(KindOf(oid), MirroredKind::Alarm);
}

TEST_F(TagMirror, ATagOfADeletedItemIsWishedBackToItsPlace) {
    const Oid oid = Add("2026-05-01 10:00", "2026-05-01 11:00");
    ASSERT_EQ(App->Tags().ReplaceList(TagList::Holiday, std::vector<Oid>{70, oid, 80}), Status::Ok);
    // As the program deletes: the tag goes first, then the item.
    ASSERT_EQ(App->Tags().ReportRemoved(TagList::Holiday, 1, oid), Status::Ok);
    ASSERT_EQ(Get(oid)->Delete(), Status::Ok);
    std::vector<Oid> restored;
    ASSERT_EQ(App->Undo(restored), Status::Ok);
    EXPECT_THAT(restored, ElementsAre(oid));
    const auto requests = Requests();
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].List, TagList::Holiday);
    EXPECT_EQ(requests[0].Item, oid);
    EXPECT_TRUE(requests[0].Set);
    EXPECT_EQ(requests[0].Position, 1);
}

TEST_F(TagMirror, ATagOfAnItemThatAnotherProcessDeletedComesBackToo) {
    const Oid oid = Add("2026-05-01 10:00", "2026-05-01 11:00");
    ASSERT_EQ(App->Tags().ReplaceList(TagList::Alarm, std::vector<Oid>{70, 71, oid}), Status::Ok);
    ASSERT_EQ(Get(oid)->Delete(), Status::Ok); // the lists still hold it
    std::vector<Oid> restored;
    ASSERT_EQ(App->Undo(restored), Status::Ok);
    const auto requests = Requests();
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].Position, 2);
}

TEST_F(TagMirror, TagsOfAGroupAreTakenBackWithIt) {
    const Oid oid = Add("2026-05-01 10:00", "2026-05-01 11:00");
    ASSERT_EQ(App->Tags().ReplaceList(TagList::Alarm, std::vector<Oid>{oid}), Status::Ok);
    ASSERT_EQ(App->Begin(u"From alarm to holiday"), Status::Ok);
    ASSERT_EQ(App->Tags().ReportRemoved(TagList::Alarm, 0, oid), Status::Ok);
    ASSERT_EQ(App->Tags().ReportInserted(TagList::Holiday, 0, oid), Status::Ok);
    ASSERT_EQ(App->End(), Status::Ok);
    std::vector<Oid> restored;
    ASSERT_EQ(App->Undo(restored), Status::Ok);
    const auto requests = Requests();
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[0].List, TagList::Holiday);
    EXPECT_FALSE(requests[0].Set);
    EXPECT_EQ(requests[1].List, TagList::Alarm);
    EXPECT_TRUE(requests[1].Set);
    EXPECT_EQ(requests[1].Position, 0);
}

TEST_F(TagMirror, AListThatIsEmptiedInAGroupIsWishedBackInItsOrder) {
    ASSERT_EQ(App->Tags().ReplaceList(TagList::Alarm, std::vector<Oid>{7, 5, 6}), Status::Ok);
    ASSERT_EQ(App->Begin(u"All alarms"), Status::Ok);
    ASSERT_EQ(App->Tags().ReplaceList(TagList::Alarm, {}), Status::Ok);
    ASSERT_EQ(App->End(), Status::Ok);
    EXPECT_THAT(List(TagList::Alarm), IsEmpty());
    std::vector<Oid> restored;
    ASSERT_EQ(App->Undo(restored), Status::Ok);
    const auto requests = Requests();
    ASSERT_EQ(requests.size(), 3U);
    for (std::int32_t position = 0; position < 3; ++position) {
        EXPECT_EQ(requests[static_cast<std::size_t>(position)].Item,
                  (std::vector<Oid>{7, 5, 6})[static_cast<std::size_t>(position)]);
        EXPECT_EQ(requests[static_cast<std::size_t>(position)].Position, position);
        EXPECT_TRUE(requests[static_cast<std::size_t>(position)].Set);
    }
}

TEST_F(TagMirror, AnAbandonedGroupLeavesTheMirrorAsItWas) {
    ASSERT_EQ(App->Tags().ReplaceList(TagList::Alarm, std::vector<Oid>{5}), Status::Ok);
    ASSERT_EQ(App->Begin(u"Never mind"), Status::Ok);
    ASSERT_EQ(App->Tags().ReportRemoved(TagList::Alarm, 0, 5), Status::Ok);
    ASSERT_EQ(App->Abandon(), Status::Ok);
    EXPECT_THAT(List(TagList::Alarm), ElementsAre(5));
}

TEST_F(TagMirror, RequestsGoOnlyWhenTheyAreFinished) {
    ImportWriter writer(Store);
    ASSERT_EQ(writer.Begin(u"File"), Status::Ok);
    for (const Oid oid : {1, 2, 3}) {
        ASSERT_EQ(writer.RequestTag(TagList::Alarm, oid), Status::Ok);
    }
    ASSERT_EQ(writer.Commit(), Status::Ok);
    Reopen();
    const auto requests = Requests();
    ASSERT_EQ(requests.size(), 3U);
    EXPECT_LT(requests[0].Id, requests[1].Id);
    ASSERT_EQ(App->Tags().FinishRequests(requests[1].Id), Status::Ok);
    const auto left = Requests();
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].Item, 3);
}

} // namespace tavo::outlook::test
