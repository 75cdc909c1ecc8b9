// Imports: new, changed, unchanged, refused; exceptions that follow their series; wishes for tags.
#include "host/outlook/item_image.h"
#include "tests/outlook/store_fixture.h"

#include <gmock/gmock.h>

namespace tavo::outlook::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Importing : public StoreTest {
  protected:
    static StoredException Moved(const std::string& original, const std::string& start, const std::string& end) {
        return {At(original), ExceptionKind::Moved, At(start), At(end), std::nullopt, std::nullopt, ""};
    }

    // One file with a series and its moved occurrences.
    std::vector<ImportResult> ImportFile(const StoredItem& item, const std::vector<StoredException>& exceptions) {
        std::vector<ImportResult> results;
        ImportWriter writer(Store);
        ImportOutcome outcome;
        EXPECT_EQ(writer.Begin(u"File"), Status::Ok);
        EXPECT_EQ(writer.Write(item, outcome), Status::Ok);
        results.push_back(outcome.Result);
        for (const StoredException& exception : exceptions) {
            EXPECT_EQ(writer.WriteException(item.Uid, exception, outcome), Status::Ok);
            results.push_back(outcome.Result);
        }
        EXPECT_EQ(writer.Commit(), Status::Ok);
        return results;
    }

    // No part as it is by itself.
    static StoredItem FullItem() {
        StoredItem item = MakeItem("u@example.org", "2026-05-01 09:00", "2026-05-01 10:00", u"Subject");
        item.Location = u"Location";
        item.Categories = u"Categories";
        item.Body = u"Body";
        item.AllDay = true;
        item.BusyStatus = kBusyFree;
        item.Sensitivity = kSensitivityPrivate;
        item.ReminderSet = true;
        item.ReminderMinutes = 15;
        item.ReminderOptions = 29;
        item.ReminderSound = u"a.wav";
        item.Pattern = Until(MonthNth(2, 8, 3), "2028-05-01");
        item.Pattern.DayOfMonth = 7;
        item.Pattern.MonthOfYear = 8;
        item.Ink = {9, 8, 7};
        return item;
    }
};

TEST_F(Importing, TheSameItemTwiceChangesNothing) {
    const StoredItem item = MakeItem("u", "2026-05-01 09:00", "2026-05-01 10:00");
    EXPECT_EQ(TryImport(item).Result, ImportResult::New);
    const ImportOutcome again = TryImport(item);
    EXPECT_EQ(again.Result, ImportResult::Unchanged);
    EXPECT_EQ(again.Item, 1);
    EXPECT_EQ(WalkOids(*Items()).size(), 1U);
    std::vector<Oid> restored;
    ASSERT_EQ(App->Undo(restored), Status::Ok); // the second import was no step
    EXPECT_THAT(WalkOids(*Items()), IsEmpty());
}

TEST_F(Importing, AChangedItemKeepsItsOid) {
    StoredItem item = MakeItem("u", "2026-05-01 09:00", "2026-05-01 10:00", u"Before");
    const Oid oid = Import(item);
    item.Subject = u"After";
    const ImportOutcome outcome = TryImport(item);
    EXPECT_EQ(outcome.Result, ImportResult::Changed);
    EXPECT_EQ(outcome.Item, oid);
    EXPECT_EQ(Read(oid).Subject, u"After");
    EXPECT_EQ(TryImport(item).Result, ImportResult::Unchanged);
}

TEST_F(Importing, TheSameFileDoesNotUndoWhatWasEditedHere) {
    const StoredItem item = MakeItem("u", "2026-05-01 09:00", "2026-05-01 10:00", u"Theirs");
    const Oid oid = Import(item);
    const auto edited = Get(oid);
    ASSERT_EQ(edited->put_Subject(u"Mine"), Status::Ok);
    ASSERT_EQ(edited->put_BodyInk(std::vector<std::uint8_t>{1}), Status::Ok);
    ASSERT_EQ(edited->Save(), Status::Ok);
    EXPECT_EQ(TryImport(item).Result, ImportResult::Unchanged);
    EXPECT_EQ(Read(oid).Subject, u"Mine");
    StoredItem newer = item;
    newer.Subject = u"Theirs, newer";
    EXPECT_EQ(TryImport(newer).Result, ImportResult::Changed);
    EXPECT_EQ(Read(oid).Subject, u"Theirs, newer");
    EXPECT_THAT(Read(oid).Ink, ElementsAre(1)); // the note is ours
}

TEST_F(Importing, ItemsWithoutAUidAreAlwaysNew) {
    const StoredItem item = MakeItem("", "2026-05-01 09:00", "2026-05-01 10:00");
    EXPECT_EQ(TryImport(item).Result, ImportResult::New);
    EXPECT_EQ(TryImport(item).Result, ImportResult::New);
    EXPECT_EQ(WalkOids(*Items()).size(), 2U);
}

TEST_F(Importing, ARefusedItemSaysWhyAndTheOthersStay) {
    ImportWriter writer(Store);
    ImportOutcome outcome;
    ASSERT_EQ(writer.Begin(u"File"), Status::Ok);
    ASSERT_EQ(writer.Write(MakeItem("a", "2026-05-01 09:00", "2026-05-01 10:00"), outcome), Status::Ok);
    ASSERT_EQ(writer.Write(MakeItem("b", "2026-05-01 09:00", "2026-04-01 10:00"), outcome), Status::Ok);
    EXPECT_EQ(outcome.Result, ImportResult::Refused);
    EXPECT_EQ(outcome.Reason, "it ends before it starts");
    EXPECT_EQ(outcome.Item, 0);
    ASSERT_EQ(writer.Write(MakeItem("c", "2026-05-01 09:00", "2026-06-02 10:00"), outcome), Status::Ok);
    EXPECT_EQ(outcome.Reason, "it lasts longer than 31 days");
    ASSERT_EQ(writer.Write(MakeItem("d", "3000-05-01 09:00", "3000-05-01 10:00"), outcome), Status::Ok);
    EXPECT_EQ(outcome.Reason, "a date lies outside the years 1900 to 2999");
    ASSERT_EQ(writer.Commit(), Status::Ok);
    EXPECT_EQ(WalkOids(*Items()).size(), 1U);
}

TEST_F(Importing, WhatIsNotCommittedLeavesNothing) {
    {
        ImportWriter writer(Store);
        ImportOutcome outcome;
        ASSERT_EQ(writer.Begin(u"File"), Status::Ok);
        ASSERT_EQ(writer.Write(MakeItem("a", "2026-05-01 09:00", "2026-05-01 10:00"), outcome), Status::Ok);
        EXPECT_EQ(outcome.Result, ImportResult::New);
    }
    EXPECT_THAT(WalkOids(*Items()), IsEmpty());
    EXPECT_EQ(TryImport(MakeItem("a", "2026-05-01 09:00", "2026-05-01 10:00")).Result, ImportResult::New);
}

TEST_F(Importing, CallsOutsideATransactionAreUnexpected) {
    ImportWriter writer(Store);
    ImportOutcome outcome;
    EXPECT_EQ(writer.Write(MakeItem("a", "2026-05-01 09:00", "2026-05-01 10:00"), outcome), Status::Unexpected);
    EXPECT_EQ(writer.Commit(), Status::Unexpected);
    EXPECT_EQ(writer.Abandon(), Status::Unexpected);
    EXPECT_EQ(writer.RequestTag(TagList::Alarm, 1), Status::Unexpected);
}

TEST_F(Importing, MovedOccurrencesFollowTheirSeries) {
    StoredItem item = MakeItem("u", "2026-05-01 09:00", "2026-05-01 10:00");
    item.Pattern = Counted(Daily(), 3);
    item.Exceptions.push_back({At("2026-05-03 09:00"), ExceptionKind::Cancelled, 0, 0, std::nullopt, std::nullopt, ""});
    const auto moved = Moved("2026-05-02 09:00", "2026-05-02 12:00", "2026-05-02 13:00");
    EXPECT_THAT(ImportFile(item, {moved}), ElementsAre(ImportResult::New, ImportResult::Changed));
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2026"), ElementsAre("2026-05-01 09:00", "2026-05-02 12:00"));
    EXPECT_THAT(ImportFile(item, {moved}), ElementsAre(ImportResult::Unchanged, ImportResult::Unchanged));
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2026"), ElementsAre("2026-05-01 09:00", "2026-05-02 12:00"));
}

TEST_F(Importing, AMovedOccurrenceThatIsNoLongerOfferedGoesBack) {
    StoredItem item = MakeItem("u", "2026-05-01 09:00", "2026-05-01 10:00");
    item.Pattern = Counted(Daily(), 2);
    ImportFile(item, {Moved("2026-05-02 09:00", "2026-05-02 12:00", "2026-05-02 13:00")});
    ImportFile(item, {});
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2026"), ElementsAre("2026-05-01 09:00", "2026-05-02 09:00"));
}

TEST_F(Importing, AMovedOccurrenceKeepsItsPlaceWhenItsSeriesChanges) {
    StoredItem item = MakeItem("u", "2026-05-01 09:00", "2026-05-01 10:00");
    item.Pattern = Counted(Daily(), 2);
    const auto moved = Moved("2026-05-02 09:00", "2026-05-02 12:00", "2026-05-02 13:00");
    ImportFile(item, {moved});
    item.Subject = u"Renamed";
    EXPECT_THAT(ImportFile(item, {moved}), ElementsAre(ImportResult::Changed, ImportResult::Unchanged));
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2026"), ElementsAre("2026-05-01 09:00", "2026-05-02 12:00"));
}

TEST_F(Importing, ANewlyCancelledOccurrenceIsAChange) {
    StoredItem item = MakeItem("u", "2026-05-01 09:00", "2026-05-01 10:00");
    item.Pattern = Counted(Daily(), 3);
    Import(item);
    item.Exceptions.push_back({At("2026-05-02 09:00"), ExceptionKind::Cancelled, 0, 0, std::nullopt, std::nullopt, ""});
    EXPECT_EQ(TryImport(item).Result, ImportResult::Changed);
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2026"), ElementsAre("2026-05-01 09:00", "2026-05-03 09:00"));
    EXPECT_EQ(TryImport(item).Result, ImportResult::Unchanged);
    item.Exceptions.clear();
    EXPECT_EQ(TryImport(item).Result, ImportResult::Changed);
    EXPECT_EQ(Starts(u"[Start] <= 12/31/2026").size(), 3U);
}

TEST_F(Importing, TheSameFileLeavesOccurrencesThatWereMovedHere) {
    StoredItem item = MakeItem("u", "2026-05-01 09:00", "2026-05-01 10:00");
    item.Pattern = Counted(Daily(), 4);
    const auto theirs = Moved("2026-05-02 09:00", "2026-05-02 12:00", "2026-05-02 13:00");
    ImportFile(item, {theirs});
    const auto items = Restrict(u"[Start] <= 12/31/2026");
    ASSERT_EQ(items->put_IncludeRecurrences(true), Status::Ok);
    for (const std::int32_t index : {2, 3}) { // theirs, and one that they never moved
        ComPtr<IAppointment> occurrence;
        ASSERT_EQ(items->Item(index, occurrence), Status::Ok);
        ASSERT_EQ(occurrence->put_Duration(15), Status::Ok);
        ASSERT_EQ(occurrence->Save(), Status::Ok);
    }
    const auto edited = Occurrences(u"[Start] <= 12/31/2026");
    EXPECT_THAT(ImportFile(item, {theirs}), ElementsAre(ImportResult::Unchanged, ImportResult::Unchanged));
    EXPECT_EQ(Occurrences(u"[Start] <= 12/31/2026"), edited);
    item.Subject = u"Renamed over there";
    EXPECT_THAT(ImportFile(item, {theirs}), ElementsAre(ImportResult::Changed, ImportResult::Unchanged));
    EXPECT_EQ(Occurrences(u"[Start] <= 12/31/2026"), edited); // the rule is the same
    item.Pattern.Interval = 2;
    ImportFile(item, {});
    EXPECT_THAT(Starts(u"[Start] <= 12/31/2026"),
                ElementsAre("2026-05-01 09:00", "2026-05-03 09:00", "2026-05-05 09:00", "2026-05-07 09:00"));
}

TEST_F(Importing, AnOccurrenceWithoutItsSeriesIsToBeOfferedAgain) {
    ImportWriter writer(Store);
    ImportOutcome outcome;
    ASSERT_EQ(writer.Begin(u"File"), Status::Ok);
    const auto moved = Moved("2026-05-02 09:00", "2026-05-02 12:00", "2026-05-02 13:00");
    ASSERT_EQ(writer.WriteException("u", moved, outcome), Status::Ok);
    EXPECT_EQ(outcome.Result, ImportResult::Refused);
    EXPECT_EQ(outcome.Reason, ImportWriter::kNoSuchSeries);
}

TEST_F(Importing, AllPartsOfAnItemAreKept) {
    const StoredItem item = FullItem();
    const Oid oid = Import(item);
    StoredItem expected = item;
    expected.Item = oid;
    expected.Pattern.Occurrences = 8;
    EXPECT_EQ(Read(oid), expected);
}

TEST_F(Importing, LinesThatMeanNothingHereAreKeptAndUndone) {
    StoredItem item = FullItem();
    item.Carried = "URL:https://example.org/a\nATTENDEE;CN=Ann:mailto:ann@example.org";
    item.Exceptions.push_back(Moved("2026-08-03 09:00", "2026-08-04 12:00", "2026-08-04 13:00"));
    item.Exceptions.back().Carried = "COMMENT:Once only";
    const Oid oid = Import(item);
    EXPECT_EQ(Read(oid).Carried, item.Carried);
    ASSERT_EQ(Read(oid).Exceptions.size(), 1U);
    EXPECT_EQ(Read(oid).Exceptions[0].Carried, "COMMENT:Once only");
    const ComPtr<IAppointment> edited = Get(oid);
    EXPECT_EQ(edited->put_Subject(u"Edited"), Status::Ok);
    EXPECT_EQ(edited->Save(), Status::Ok);
    EXPECT_EQ(Read(oid).Carried, item.Carried);
    EXPECT_EQ(edited->Delete(), Status::Ok);
    std::vector<Oid> restored;
    ASSERT_EQ(App->Undo(restored), Status::Ok);
    EXPECT_EQ(Read(oid).Carried, item.Carried);
    EXPECT_EQ(Read(oid).Exceptions[0].Carried, "COMMENT:Once only");
    item.Carried.clear();
    item.Exceptions[0].Carried.clear();
    EXPECT_EQ(TryImport(item).Result, ImportResult::Changed);
    EXPECT_EQ(Read(oid).Carried, "");
}

TEST_F(Importing, AFileWhoseLinesWereNotKeptBeforeBringsThemAndLeavesEditsAlone) {
    StoredItem item = FullItem();
    const Oid oid = Import(item);
    const ComPtr<IAppointment> edited = Get(oid);
    EXPECT_EQ(edited->put_Subject(u"Edited"), Status::Ok);
    EXPECT_EQ(edited->Save(), Status::Ok);
    item.Carried = "URL:https://example.org/a";
    EXPECT_EQ(TryImport(item).Result, ImportResult::Changed);
    EXPECT_EQ(Read(oid).Carried, item.Carried);
    EXPECT_EQ(Read(oid).Subject, u"Edited");
    EXPECT_EQ(TryImport(item).Result, ImportResult::Unchanged);
    item.Carried = "URL:https://example.org/b";
    EXPECT_EQ(TryImport(item).Result, ImportResult::Changed); // now the file itself did
    EXPECT_EQ(Read(oid).Subject, u"Subject");
}

// A store compares what comes with the fingerprint of what came years ago: with another one every item of an old file
// would seem changed, and be put over what was edited here since.
TEST_F(Importing, AFingerprintNeverChangesFromVersionToVersion) {
    EXPECT_EQ(FingerprintOf(FullItem()), -6026676215550743401);
    EXPECT_EQ(FingerprintOf(MakeItem("u", "2026-05-01 09:00", "2026-05-01 10:00", u"Before")), 5631705138331539651);
    EXPECT_EQ(FingerprintOf(Moved("2026-05-02 09:00", "2026-05-02 12:00", "2026-05-02 13:00")), -3461563824589258281);
}

TEST_F(Importing, TagsAreWishedForOnceEach) {
    ImportWriter writer(Store);
    ImportOutcome outcome;
    ASSERT_EQ(writer.Begin(u"File"), Status::Ok);
    ASSERT_EQ(writer.Write(MakeItem("a", "2026-05-01 09:00", "2026-05-01 10:00"), outcome), Status::Ok);
    ASSERT_EQ(writer.RequestTag(TagList::Holiday, outcome.Item), Status::Ok);
    ASSERT_EQ(writer.Commit(), Status::Ok);
    std::vector<TagRequest> requests;
    ASSERT_EQ(App->Tags().GetRequests(requests), Status::Ok);
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].List, TagList::Holiday);
    EXPECT_EQ(requests[0].Item, outcome.Item);
    EXPECT_TRUE(requests[0].Set);
    EXPECT_EQ(requests[0].Position, -1);
    ASSERT_EQ(App->Tags().ReportInserted(TagList::Holiday, 0, outcome.Item), Status::Ok);
    ASSERT_EQ(App->Tags().FinishRequests(requests[0].Id), Status::Ok);
    ASSERT_EQ(writer.Begin(u"File"), Status::Ok);
    ASSERT_EQ(writer.RequestTag(TagList::Holiday, outcome.Item), Status::Ok); // it stands there already
    ASSERT_EQ(writer.Commit(), Status::Ok);
    ASSERT_EQ(App->Tags().GetRequests(requests), Status::Ok);
    EXPECT_THAT(requests, IsEmpty());
}

} // namespace tavo::outlook::test
