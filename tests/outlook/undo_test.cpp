// Groups of changes, taking them back, and what the journal keeps.
#include "host/outlook/journal.h"
#include "host/outlook/store_core.h"
#include "tests/outlook/undo_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <new>

namespace tavo::outlook::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

TEST_F(Undo, AChangeThatRunsOutOfMemoryLeavesNothingOfItself) {
    const Oid kept = Add("2026-05-04 10:00", "2026-05-04 11:00", u"Kept");
    StoreCore& core = CoreOf(*Store);
    const auto fail = [&]() -> Status {
        EXPECT_EQ(core.DeleteItem(kept), Status::Ok);
        throw std::bad_alloc();
    };
    EXPECT_EQ(core.RunChange(u"Alone", fail), Status::OutOfMemory);
    EXPECT_FALSE(core.Db.InTransaction());
    EXPECT_EQ(Read(kept).Subject, u"Kept");
    ASSERT_EQ(App->Begin(u"Group"), Status::Ok);
    const Oid other = Add("2026-05-05 10:00", "2026-05-05 11:00", u"In the group");
    EXPECT_EQ(core.RunChange(u"Within", fail), Status::OutOfMemory);
    ASSERT_EQ(App->End(), Status::Ok); // the rest of the group stands
    EXPECT_EQ(Read(kept).Subject, u"Kept");
    EXPECT_EQ(Read(other).Subject, u"In the group");
    EXPECT_EQ(core.RunQuietly([]() -> Status { throw std::bad_alloc(); }), Status::OutOfMemory);
    EXPECT_FALSE(core.Db.InTransaction());
}

TEST_F(Undo, NothingToTakeBackIsNotFound) {
    std::u16string name;
    std::vector<Oid> restored;
    EXPECT_EQ(App->GetUndoName(name), Status::NotFound);
    EXPECT_EQ(App->Undo(restored), Status::NotFound);
}

TEST_F(Undo, ASingleSaveIsAGroupOfOne) {
    const Oid oid = Add("2026-05-04 10:00", "2026-05-04 11:00", u"Old");
    const auto item = Get(oid);
    ASSERT_EQ(item->put_Subject(u"New"), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_EQ(UndoName(), "Change of an appointment");
    EXPECT_THAT(TakeBack(), ElementsAre(oid));
    EXPECT_EQ(Read(oid).Subject, u"Old");
    EXPECT_EQ(UndoName(), "New appointment");
    EXPECT_THAT(TakeBack(), ElementsAre(oid));
    EXPECT_FALSE(Exists(oid));
    std::u16string name;
    EXPECT_EQ(App->GetUndoName(name), Status::NotFound);
}

TEST_F(Undo, ANoteStandsInItsGroupAndIsNoStepOfTheStore) {
    const std::vector<std::uint8_t> first{1, 2, 3};
    const std::vector<std::uint8_t> second{4};
    std::vector<std::vector<std::uint8_t>> notes;
    EXPECT_EQ(App->AddNote(first), Status::Unexpected); // there is no group
    EXPECT_EQ(App->GetUndoNotes(notes), Status::NotFound);
    ASSERT_EQ(App->Begin(u"noted"), Status::Ok);
    ASSERT_EQ(App->AddNote(first), Status::Ok);
    const Oid oid = Add("2026-05-04 10:00", "2026-05-04 11:00", u"With notes");
    ASSERT_EQ(App->AddNote(second), Status::Ok);
    ASSERT_EQ(App->End(), Status::Ok);
    ASSERT_EQ(App->GetUndoNotes(notes), Status::Ok);
    EXPECT_THAT(notes, ElementsAre(first, second));
    std::int32_t steps = 0;
    ASSERT_EQ(App->BeginUndo(steps), Status::Ok);
    EXPECT_EQ(steps, 1);
    ASSERT_EQ(App->GetUndoNotes(notes), Status::Ok);
    EXPECT_THAT(notes, SizeIs(2));
    EXPECT_EQ(App->StepUndo(), Status::Ok);
    EXPECT_EQ(App->StepUndo(), Status::False);
    ASSERT_EQ(App->End(), Status::Ok);
    EXPECT_FALSE(Exists(oid));
    EXPECT_EQ(App->GetUndoNotes(notes), Status::NotFound);
}

TEST_F(Undo, AGroupOfNotesAloneIsAStep) {
    ASSERT_EQ(App->Begin(u"noted"), Status::Ok);
    ASSERT_EQ(App->AddNote(std::vector<std::uint8_t>{7}), Status::Ok);
    ASSERT_EQ(App->End(), Status::Ok);
    EXPECT_EQ(UndoName(), "noted");
    EXPECT_THAT(TakeBack(), IsEmpty());
}

TEST_F(Undo, TheEndIsToldAgainWithoutLookingThroughTheNotes) {
    ASSERT_EQ(App->Begin(u"noted"), Status::Ok);
    for (int number = 0; number < 50; ++number) {
        ASSERT_EQ(App->AddNote(std::vector<std::uint8_t>{7}), Status::Ok);
    }
    ASSERT_EQ(App->End(), Status::Ok);
    std::int32_t steps = 0;
    ASSERT_EQ(App->BeginUndo(steps), Status::Ok);
    ASSERT_EQ(App->StepUndo(), Status::False);
    int questions = 0;
    const auto count = [](unsigned, void* counter, void*, void*) {
        ++*static_cast<int*>(counter);
        return 0;
    };
    sqlite3* connection = CoreOf(*Store).Db.Raw();
    ASSERT_EQ(sqlite3_trace_v2(connection, SQLITE_TRACE_STMT, count, &questions), SQLITE_OK);
    for (int number = 0; number < 50; ++number) {
        EXPECT_EQ(App->StepUndo(), Status::False);
    }
    ASSERT_EQ(sqlite3_trace_v2(connection, 0, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(questions, 0); // each would go through all the notes
    ASSERT_EQ(App->End(), Status::Ok);
}

TEST_F(Undo, ANoteOfAnAbandonedGroupIsGone) {
    ASSERT_EQ(App->Begin(u"noted"), Status::Ok);
    ASSERT_EQ(App->AddNote(std::vector<std::uint8_t>{7}), Status::Ok);
    ASSERT_EQ(App->Abandon(), Status::Ok);
    std::vector<std::vector<std::uint8_t>> notes;
    EXPECT_EQ(App->GetUndoNotes(notes), Status::NotFound);
}

TEST_F(Undo, SavingWithoutAChangeIsNoStep) {
    const Oid oid = Add("2026-05-04 10:00", "2026-05-04 11:00", u"Same");
    const auto item = Get(oid);
    ASSERT_EQ(item->put_Subject(u"Same"), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_EQ(UndoName(), "New appointment");
}

TEST_F(Undo, ADeletedItemComesBackWhole) {
    StoredItem item = MakeItem("uid-1", "2026-05-01 09:00", "2026-05-01 10:00", u"All of it");
    item.Zone = "Europe/Berlin";
    item.ZoneStart = At("2026-05-01 11:00");
    item.ZoneEnd = At("2026-05-01 12:00");
    item.Location = u"Here";
    item.Body = u"Words";
    item.ReminderSet = true;
    item.ReminderMinutes = 30;
    item.ReminderSound = u"bell.wav";
    item.Pattern = Counted(Weekly(32), 9);
    item.Exceptions.push_back({At("2026-05-08 11:00"), ExceptionKind::Moved, At("2026-05-09 11:00"),
                               At("2026-05-09 12:00"), u"Moved", std::nullopt, ""});
    item.Exceptions.push_back({At("2026-05-15 11:00"), ExceptionKind::Cancelled, 0, 0, std::nullopt, std::nullopt, ""});
    item.Ink = std::vector<std::uint8_t>(100000, 7);
    const Oid oid = Import(item);
    const StoredItem before = Read(oid);
    ASSERT_EQ(before.Ink.size(), 100000U);
    ASSERT_EQ(before.Exceptions.size(), 2U);
    ASSERT_EQ(Get(oid)->Delete(), Status::Ok);
    EXPECT_FALSE(Exists(oid));
    EXPECT_EQ(UndoName(), "Deletion of an appointment");
    EXPECT_THAT(TakeBack(), ElementsAre(oid));
    EXPECT_EQ(Read(oid), before);
    Reopen();
    EXPECT_EQ(Read(oid), before);
    EXPECT_EQ(TryImport(item).Result, ImportResult::Unchanged);
}

TEST_F(Undo, AGroupIsTakenBackAsOne) {
    const Oid changed = Add("2026-05-04 10:00", "2026-05-04 11:00", u"Changed");
    const Oid deleted = Add("2026-05-05 10:00", "2026-05-05 11:00", u"Deleted");
    ASSERT_EQ(App->Begin(u"Spring cleaning"), Status::Ok);
    const auto item = Get(changed);
    ASSERT_EQ(item->put_Subject(u"Other"), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    ASSERT_EQ(item->put_Subject(u"Yet another"), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    ASSERT_EQ(Get(deleted)->Delete(), Status::Ok);
    const Oid made = Add("2026-05-06 10:00", "2026-05-06 11:00");
    ASSERT_EQ(App->End(), Status::Ok);
    EXPECT_EQ(UndoName(), "Spring cleaning");
    EXPECT_THAT(TakeBack(), UnorderedElementsAre(changed, deleted, made));
    EXPECT_EQ(Read(changed).Subject, u"Changed");
    EXPECT_EQ(Read(deleted).Subject, u"Deleted");
    EXPECT_FALSE(Exists(made));
}

TEST_F(Undo, AnAbandonedGroupLeavesNothing) {
    const Oid oid = Add("2026-05-04 10:00", "2026-05-04 11:00", u"Kept");
    ASSERT_EQ(App->Begin(u"Never mind"), Status::Ok);
    ASSERT_EQ(Get(oid)->Delete(), Status::Ok);
    EXPECT_FALSE(Exists(oid));
    ASSERT_EQ(App->Abandon(), Status::Ok);
    EXPECT_EQ(Read(oid).Subject, u"Kept");
    EXPECT_EQ(UndoName(), "New appointment");
}

TEST_F(Undo, GroupsDoNotNestAndEndOnlyOnce) {
    EXPECT_EQ(App->End(), Status::Unexpected);
    EXPECT_EQ(App->Abandon(), Status::Unexpected);
    ASSERT_EQ(App->Begin(u"One"), Status::Ok);
    EXPECT_EQ(App->Begin(u"Two"), Status::Unexpected);
    std::vector<Oid> restored;
    EXPECT_EQ(App->Undo(restored), Status::Unexpected);
    EXPECT_EQ(App->End(), Status::Ok);
    EXPECT_EQ(App->End(), Status::Unexpected);
}

TEST_F(Undo, AnEmptyGroupIsNoStep) {
    Add("2026-05-04 10:00", "2026-05-04 11:00");
    ASSERT_EQ(App->Begin(u"Nothing"), Status::Ok);
    ASSERT_EQ(App->End(), Status::Ok);
    EXPECT_EQ(UndoName(), "New appointment");
}

TEST_F(Undo, ARefusedSaveLeavesTheRestOfItsGroup) {
    ASSERT_EQ(App->Begin(u"Mixed"), Status::Ok);
    const Oid good = Add("2026-05-04 10:00", "2026-05-04 11:00");
    const auto bad = NewAppointment("2026-05-04 10:00", "2026-05-03 11:00");
    EXPECT_EQ(bad->Save(), Status::InvalidArgument);
    ASSERT_EQ(App->End(), Status::Ok);
    EXPECT_TRUE(Exists(good));
    EXPECT_THAT(WalkOids(*Items()), ElementsAre(good));
}

TEST_F(Undo, AFailureInTheMiddleOfAGroupLeavesTheRestUndoable) {
    const Oid kept = Add("2026-05-04 10:00", "2026-05-04 11:00", u"Kept");
    ASSERT_EQ(App->Begin(u"Group"), Status::Ok);
    // The first step of the group fails after its picture was written.
    EXPECT_EQ(CoreOf(*Store).RunChange(u"",
                                       [&] {
                                           const Status status = CoreOf(*Store).DeleteItem(kept);
                                           return Failed(status) ? status : Status::Fail;
                                       }),
              Status::Fail);
    const auto item = Get(kept);
    ASSERT_EQ(item->put_Subject(u"Changed"), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    ASSERT_EQ(App->End(), Status::Ok);
    EXPECT_THAT(TakeBack(), ElementsAre(kept));
    EXPECT_EQ(Read(kept).Subject, u"Kept");
}

TEST_F(Undo, AnUndoneImportLeavesNothingOfIt) {
    ImportWriter writer(Store);
    ASSERT_EQ(writer.Begin(u"Import of work.ics"), Status::Ok);
    ImportOutcome outcome;
    for (int index = 0; index < 50; ++index) {
        ASSERT_EQ(writer.Write(MakeItem("u" + std::to_string(index), "2026-05-01 09:00", "2026-05-01 10:00"), outcome),
                  Status::Ok);
    }
    ASSERT_EQ(writer.Commit(), Status::Ok);
    EXPECT_EQ(UndoName(), "Import of work.ics");
    EXPECT_EQ(TakeBack().size(), 50U);
    EXPECT_THAT(WalkOids(*Items()), IsEmpty());
}

TEST_F(Undo, GroupsAreTakenBackNewestFirst) {
    const Oid oid = Add("2026-05-04 10:00", "2026-05-04 11:00", u"0");
    const auto item = Get(oid);
    for (const char16_t* subject : {u"1", u"2", u"3"}) {
        ASSERT_EQ(item->put_Subject(subject), Status::Ok);
        ASSERT_EQ(item->Save(), Status::Ok);
    }
    for (const char16_t* subject : {u"2", u"1", u"0"}) {
        TakeBack();
        EXPECT_EQ(Read(oid).Subject, subject);
    }
}

TEST_F(Undo, AChangeOfTheNoteIsTakenBack) {
    const Oid oid = Add("2026-05-04 10:00", "2026-05-04 11:00");
    const auto item = Get(oid);
    ASSERT_EQ(item->put_BodyInk(std::vector<std::uint8_t>{1, 2}), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    ASSERT_EQ(item->put_BodyInk(std::vector<std::uint8_t>{}), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_THAT(Read(oid).Ink, IsEmpty());
    TakeBack();
    EXPECT_THAT(Read(oid).Ink, ElementsAre(1, 2));
    ASSERT_EQ(item->put_Subject(u"Without touching the note"), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_THAT(Read(oid).Ink, ElementsAre(1, 2));
    TakeBack();
    EXPECT_THAT(Read(oid).Ink, ElementsAre(1, 2));
}

TEST_F(Undo, ADamagedPictureIsRefusedAndNothingChanges) {
    const Oid oid = Add("2026-05-04 10:00", "2026-05-04 11:00", u"Old");
    const auto item = Get(oid);
    ASSERT_EQ(item->put_Subject(u"New"), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    ASSERT_EQ(CoreOf(*Store).Db.Run("UPDATE journal_change SET image = substr(image, 1, 20) WHERE kind = 1"),
              Status::Ok);
    std::vector<Oid> restored;
    EXPECT_EQ(App->Undo(restored), Status::Corrupt);
    EXPECT_THAT(restored, IsEmpty());
    EXPECT_EQ(Read(oid).Subject, u"New");
}

TEST_F(Undo, OffersTheLastTwentyGroupsOfTheRunHoweverOldTheyAre) {
    const Oid oid = Add("2026-05-04 10:00", "2026-05-04 11:00", u"0");
    const auto item = Get(oid);
    for (int number = 1; number <= 21; ++number) {
        ASSERT_EQ(item->put_Subject(std::u16string(1, static_cast<char16_t>(u'a' + number))), Status::Ok);
        ASSERT_EQ(item->Save(), Status::Ok);
    }
    ASSERT_EQ(CoreOf(*Store).Db.Run("UPDATE journal_group SET time = time - 7200"), Status::Ok);
    for (int number = 0; number < 20; ++number) {
        TakeBack();
    }
    std::u16string name;
    EXPECT_EQ(App->GetUndoName(name), Status::NotFound);
    EXPECT_EQ(Read(oid).Subject, u"b"); // the first change stays, and so does the item
}

TEST_F(Undo, OffersOfEarlierRunsTheGroupsOfTheLastHour) {
    const Oid older = Add("2026-05-04 10:00", "2026-05-04 11:00", u"Older");
    ASSERT_EQ(CoreOf(*Store).Db.Run("UPDATE journal_group SET time = time - 3700"), Status::Ok);
    const Oid newer = Add("2026-05-04 10:00", "2026-05-04 11:00", u"Newer");
    ASSERT_EQ(CoreOf(*Store).Db.Run("UPDATE journal_group SET time = time - 3500 WHERE id = 2"), Status::Ok);
    Reopen();
    EXPECT_THAT(TakeBack(), ElementsAre(newer));
    std::u16string name;
    std::vector<Oid> restored;
    EXPECT_EQ(App->GetUndoName(name), Status::NotFound);
    EXPECT_EQ(App->Undo(restored), Status::NotFound);
    EXPECT_TRUE(Exists(older));
}

TEST_F(Undo, TheJournalKeepsAThousandGroupsAndTheLastHour) {
    StoreCore& core = CoreOf(*Store);
    const auto countGroups = [&core] {
        Query query(core.Db, "SELECT count(*) FROM journal_group");
        return query.Next() ? query.Integer(0) : -1;
    };
    for (int index = 0; index < 1200; ++index) {
        ASSERT_EQ(core.Db.Run("INSERT INTO journal_group(name, time, undone)"
                              " VALUES ('old', strftime('%s','now') - 7200, 0)"),
                  Status::Ok);
    }
    Add("2026-05-04 10:00", "2026-05-04 11:00");
    EXPECT_EQ(countGroups(), 1000); // older ones are dropped, not one too many
    ASSERT_EQ(core.Db.Run("UPDATE journal_group SET time = strftime('%s','now') - 1800"), Status::Ok);
    for (int index = 0; index < 20; ++index) {
        Add("2026-05-04 10:00", "2026-05-04 11:00");
    }
    EXPECT_EQ(countGroups(), 1020); // the last hour stays whatever its number
}

} // namespace tavo::outlook::test
