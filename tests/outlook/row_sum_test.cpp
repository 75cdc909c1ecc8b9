// A bit that flips in what is stored is noticed by the full check.
#include "host/outlook/diagnosis.h"
#include "host/outlook/row_sum.h"
#include "host/outlook/store_core.h"
#include "host/posix/store_machine.h"
#include "tests/outlook/store_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <set>

namespace tavo::outlook::test {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class RowSum : public StoreFileTest {
  protected:
    // One item of every sort, a zone that came along, a note, and steps of undo.
    void Fill() {
        Plain = Add("2026-05-01 09:00", "2026-05-01 10:00", u"The dentist in the Main Street");
        const ComPtr<IAppointment> item = Get(Plain);
        EXPECT_EQ(item->put_BodyInk(std::vector<std::uint8_t>(5000, 7)), Status::Ok);
        EXPECT_EQ(item->Save(), Status::Ok);
        StoredItem series = MakeItem("uid-series", "2026-05-04 10:00", "2026-05-04 11:00", u"Moved once");
        series.Zone = "Europe/Berlin";
        series.ZoneStart = series.Start;
        series.ZoneEnd = series.End;
        series.Pattern = Weekly(2);
        StoredException moved;
        moved.Original = At("2026-05-11 10:00");
        moved.Kind = ExceptionKind::Moved;
        moved.Start = At("2026-05-12 10:00");
        moved.End = At("2026-05-12 11:00");
        moved.Subject = u"On Tuesday";
        series.Exceptions.push_back(moved);
        Series = Import(series);
        StoredItem foreign = MakeItem("uid-foreign", "2026-05-04 12:00", "2026-05-04 13:00");
        foreign.Pattern.Type = kRecursForeign;
        foreign.ForeignRule = "RRULE:FREQ=MONTHLY;BYDAY=1MO,3MO";
        foreign.Carried = "URL:https://example.org";
        Foreign = Import(foreign);
    }

    // Nothing in it brought lines of another calendar then.
    void MakeVersion4() {
        Run("DROP TABLE carried");
        Run("DELETE FROM setting WHERE name = 'store_identity'");
        Run("UPDATE item SET flags = flags & 7");
        Run(SqlToSum(kSummedTables.front()));
        Run("PRAGMA user_version = 4");
    }

    Diagnosis Check() {
        App.Reset();
        Store.reset();
        return DiagnoseStore(posix::SystemMachine(), File, CheckDepth::Full);
    }

    void Run(const std::string& sql) { EXPECT_EQ(CoreOf(*Store).Db.Run(sql.c_str()), Status::Ok) << sql; }

    Oid Plain = 0;
    Oid Series = 0;
    Oid Foreign = 0;
};

TEST_F(RowSum, WhateverWasWrittenIsAsItWasSaved) {
    Fill();
    ASSERT_EQ(Get(Add("2026-05-02 09:00", "2026-05-02 10:00"))->Delete(), Status::Ok);
    std::vector<Oid> restored;
    ASSERT_EQ(App->Undo(restored), Status::Ok);
    ASSERT_EQ(Store->SetDeviceZone("Asia/Tokyo"), Status::Ok);
    const Diagnosis found = Check();
    EXPECT_EQ(found.State, Verdict::Ok);
    EXPECT_THAT(found.Findings, IsEmpty());
}

TEST_F(RowSum, ABitThatFlippedInATextOnTheDiskIsNamedWithItsItem) {
    Add("2026-05-01 09:00", "2026-05-01 10:00", u"The dentist in the Main Street");
    App.Reset();
    Store.reset();
    std::string bytes = BytesOf(File);
    const std::size_t at = bytes.find("dentist in the Main");
    ASSERT_NE(at, std::string::npos);
    ASSERT_EQ(bytes.find("dentist in the Main", at + 1), std::string::npos);
    bytes[at] = static_cast<char>(bytes[at] ^ 1); // "eentist"
    std::ofstream(File, std::ios::binary) << bytes;
    const Diagnosis found = Check();
    EXPECT_EQ(found.State, Verdict::Altered);
    EXPECT_THAT(found.Advice, Not(HasSubstr("backup")));
    EXPECT_THAT(found.Findings, ElementsAre("Item 1 is not as it was saved: a text or time of it has changed by itself "
                                            "on the disk. Look it over, change something in it and save it."));
}

TEST_F(RowSum, AChangedRowOfEveryTableIsFound) {
    struct Flip {
        const char* Sql;
        const char* Words;
        Verdict State = Verdict::Altered;
    };

    constexpr Flip kFlips[] = {
        {"UPDATE item SET zone_start = zone_start | 1 << 9 WHERE oid = 2", "Item 2 is not as it was saved: a text"},
        {"UPDATE item SET reminder_minutes = 4 WHERE oid = 1", "Item 1 is not as it was saved: a text"},
        {"UPDATE item SET body = 'x' WHERE oid = 3", "Item 3 is not as it was saved: a text"},
        {"UPDATE series SET interval = 3 WHERE oid = 2", "Item 2 is not as it was saved: its recurrence"},
        {"UPDATE foreign_rule SET rule = replace(rule, '3MO', '2MO')", "Item 3 is not as it was saved: its recurrence"},
        {"UPDATE exception SET start = start + 64", "Item 2 is not as it was saved: an occurrence"},
        {"UPDATE carried SET lines = 'URL:https://example.net'", "Item 3 is not as it was saved: a line that came"},
        {"UPDATE ink SET data = zeroblob(5000)",
         "its note has changed by itself on the disk. Look it over, change the note"},
        {"UPDATE zone SET name = 'Europe/Merlin'", "The time zone 1 has changed by itself", Verdict::Blemished},
        {"UPDATE journal_change SET image = x'00' WHERE group_id = 2", "Step 2 of undo has changed by itself",
         Verdict::Blemished},
    };
    for (const Flip& flip : kFlips) {
        Fill();
        ASSERT_EQ(Foreign, 3);
        Run(flip.Sql);
        const Diagnosis found = Check();
        EXPECT_EQ(found.State, flip.State) << flip.Sql << testing::PrintToString(found.Findings);
        EXPECT_THAT(found.Findings, Contains(HasSubstr(flip.Words))) << flip.Sql;
        std::filesystem::remove(File);
        Reopen();
    }
}

// The zone's own times are written again for every item of another zone; a changed one must not get a good sum thereby.
TEST_F(RowSum, AnotherZoneOfTheDeviceLeavesWhatChangedByItselfAsItIs) {
    for (const char* flip : {"UPDATE item SET body = 'x' WHERE oid = 2", "UPDATE series SET interval = 3 WHERE oid = 2",
                             "UPDATE exception SET start = start + 64 WHERE oid = 2"}) {
        Fill();
        ASSERT_EQ(Series, 2);
        Run(flip);
        ASSERT_EQ(Store->SetDeviceZone("Asia/Tokyo"), Status::Ok);
        const Diagnosis found = Check();
        EXPECT_EQ(found.State, Verdict::Altered) << flip;
        EXPECT_THAT(found.Findings, Contains(HasSubstr("Item 2 is not as it was saved"))) << flip;
        std::filesystem::remove(File);
        Reopen();
    }
}

TEST_F(RowSum, SavingTheItemAgainMakesItGood) {
    Fill();
    Run("UPDATE item SET subject = 'The dentisu' WHERE oid = 1");
    const ComPtr<IAppointment> item = Get(Plain);
    ASSERT_EQ(item->put_Subject(u"The dentist"), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_EQ(Check().State, Verdict::Ok);
}

TEST_F(RowSum, AStepThatChangedByItselfIsNotTakenBack) {
    const Oid oid = Add("2026-05-01 09:00", "2026-05-01 10:00", u"The dentist");
    const ComPtr<IAppointment> item = Get(oid);
    ASSERT_EQ(item->put_Subject(u"The doctor"), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    std::vector<std::uint8_t> image;
    {
        Query query(CoreOf(*Store).Db, "SELECT image FROM journal_change WHERE group_id = 2");
        ASSERT_TRUE(query.Next());
        image.assign(query.Blob(0).begin(), query.Blob(0).end());
    }
    const std::string word = "dentist";
    const auto at = std::search(image.begin(), image.end(), word.begin(), word.end());
    ASSERT_NE(at, image.end());
    *at ^= 1; // "eentist"
    Query flip(CoreOf(*Store).Db, "UPDATE journal_change SET image = ? WHERE group_id = 2");
    ASSERT_EQ(flip.Bind(std::span<const std::uint8_t>(image)).Finish(), Status::Ok);
    std::vector<Oid> restored;
    EXPECT_EQ(App->Undo(restored), Status::Corrupt);
    EXPECT_EQ(Read(oid).Subject, u"The doctor");
    EXPECT_THAT(Check().Findings, Contains(HasSubstr("Step 2 of undo has changed by itself")));
}

// Else it would be as good as saved, and nobody would ever hear of it.
TEST_F(RowSum, AnotherZoneLeavesWhatChangedByItselfAsItIs) {
    for (const char* flip :
         {"UPDATE item SET subject = 'Moved oncf' WHERE oid = 2", "UPDATE series SET interval = 3 WHERE oid = 2",
          "UPDATE exception SET start = start + 64", "UPDATE zone SET name = 'Europe/Paris'"}) {
        Fill();
        Run(flip);
        const std::vector<std::string> before = Check().Findings;
        ASSERT_EQ(before.size(), 1U) << flip;
        Reopen();
        ASSERT_EQ(Store->SetDeviceZone("Asia/Tokyo"), Status::Ok);
        EXPECT_EQ(Check().Findings, before) << flip;
        std::filesystem::remove(File);
        Reopen();
    }
}

TEST_F(RowSum, TheKindOfAValueCountsToo) {
    Query sums(CoreOf(*Store).Db, "SELECT row_sum('1', 2), row_sum(1, 2), row_sum(12), row_sum(1, 2, NULL), row_sum()");
    ASSERT_TRUE(sums.Next());
    std::set<std::int64_t> different;
    for (int column = 0; column < 5; ++column) {
        different.insert(sums.Integer(column));
    }
    EXPECT_EQ(different.size(), 5U);
}

TEST_F(RowSum, OneWhoReadsAStoreThatHasNoneYetReadsIt) {
    Fill();
    MakeVersion4();
    for (const SummedTable& table : kSummedTablesOfVersion4) {
        Run(std::string("ALTER TABLE ") + table.Name + " DROP COLUMN sum");
    }
    Run("PRAGMA user_version = 3");
    EXPECT_EQ(Check().State, Verdict::Ok);
    StoreOptions options;
    options.Rights = Access::ReadOnly;
    ASSERT_EQ(OpenStore(posix::SystemMachine(), File, options, Store), Status::Ok);
    EXPECT_EQ(Read(Plain).Subject, u"The dentist in the Main Street");
    Reopen(); // for writing: it gets them now
    Run("UPDATE item SET subject = 'x' WHERE oid = 1");
    EXPECT_EQ(Check().State, Verdict::Altered);
}

TEST_F(RowSum, AStoreOfBeforeCarriedLinesIsReadCheckedAndBroughtForward) {
    Fill();
    MakeVersion4();
    EXPECT_EQ(Check().State, Verdict::Ok);
    StoreOptions options;
    options.Rights = Access::ReadOnly;
    ASSERT_EQ(OpenStore(posix::SystemMachine(), File, options, Store), Status::Ok);
    EXPECT_EQ(Read(Foreign).ForeignRule, "RRULE:FREQ=MONTHLY;BYDAY=1MO,3MO");
    Store.reset();
    Reopen(); // for writing
    StoredItem item = MakeItem("uid-new", "2026-05-04 12:00", "2026-05-04 13:00");
    item.Carried = "URL:https://example.org";
    EXPECT_EQ(Read(Import(item)).Carried, item.Carried);
    EXPECT_EQ(Check().State, Verdict::Ok);
}

TEST_F(RowSum, WhatASaveCannotMendIsDamageEvenBesideAnEntryThatChanged) {
    Fill();
    Run("UPDATE item SET subject = 'x' WHERE oid = 1");
    Run("UPDATE plain SET length = length + 60");
    const Diagnosis found = Check();
    EXPECT_EQ(found.State, Verdict::Damaged);
    EXPECT_THAT(found.Findings, Contains(HasSubstr("Item 1 is not as it was saved")));
}

} // namespace tavo::outlook::test
