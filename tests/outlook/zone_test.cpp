// Time zones: offsets, items that keep their zone, and a device that travels.
#include "host/outlook/change_watcher.h"
#include "host/outlook/store_core.h"
#include "host/posix/folder_notice.h"
#include "host/rules/zone_rules.h"
#include "tests/outlook/planted_rule.h"
#include "tests/outlook/store_fixture.h"

#include <gmock/gmock.h>

namespace tavo::outlook::test {

using ::testing::ElementsAre;

class ZonedItem : public StoreFileTest {
  protected:
    static StoredItem Zoned(const std::string& uid, const std::string& zone, const std::string& start,
                            const std::string& end) {
        StoredItem item = MakeItem(uid, "1900-01-01", "1900-01-01");
        item.Zone = zone;
        item.ZoneStart = At(start);
        item.ZoneEnd = At(end);
        return item;
    }
};

TEST_F(ZonedItem, ShowsTheDevicesWallClockAndKeepsItsOwn) {
    Reopen("Europe/Berlin");
    const Oid oid = Import(Zoned("u", "America/New_York", "2026-05-04 18:00", "2026-05-04 19:00"));
    const StoredItem item = Read(oid);
    EXPECT_EQ(TextOf(item.Start), "2026-05-05 00:00");
    EXPECT_EQ(TextOf(item.End), "2026-05-05 01:00");
    EXPECT_EQ(item.Zone, "America/New_York");
    EXPECT_EQ(TextOf(item.ZoneStart), "2026-05-04 18:00");
}

TEST_F(ZonedItem, EachOccurrenceIsConvertedByTheRulesOfItsOwnDate) {
    Reopen("Europe/Berlin");
    StoredItem item = Zoned("u", "America/New_York", "2026-03-01 09:00", "2026-03-01 10:00");
    item.Pattern = Weekly(1);
    Import(item);
    // New York changes its clocks on 8 March, Berlin on the 29th.
    EXPECT_THAT(Starts(u"[Start] <= 4/6/2026"),
                ElementsAre("2026-03-01 15:00", "2026-03-08 14:00", "2026-03-15 14:00", "2026-03-22 14:00",
                            "2026-03-29 15:00", "2026-04-05 15:00"));
}

TEST_F(ZonedItem, WhenTheDeviceTravelsWallTimesFollow) {
    Reopen("Europe/Berlin");
    const Oid zoned = Import(Zoned("u", "UTC", "2026-05-04 18:00", "2026-05-04 19:00"));
    const Oid floating = Add("2026-05-04 18:00", "2026-05-04 19:00");
    StoredItem series = Zoned("s", "Europe/Berlin", "2026-06-01 09:00", "2026-06-01 10:00");
    series.Pattern = Counted(Daily(), 2);
    Import(series);
    EXPECT_EQ(TextOf(Read(zoned).Start), "2026-05-04 20:00");
    ASSERT_EQ(Store->SetDeviceZone("Asia/Tokyo"), Status::Ok);
    EXPECT_EQ(TextOf(Read(zoned).Start), "2026-05-05 03:00");
    EXPECT_EQ(TextOf(Read(floating).Start), "2026-05-04 18:00");
    EXPECT_THAT(Oids(u"[Start] = 5/5/2026"), ElementsAre(zoned));
    EXPECT_THAT(Starts(u"[Start] >= 6/1/2026 and [Start] <= 6/30/2026"),
                ElementsAre("2026-06-01 16:00", "2026-06-02 16:00"));
    Reopen("America/New_York");
    EXPECT_EQ(TextOf(Read(zoned).Start), "2026-05-04 14:00");
    EXPECT_THAT(Starts(u"[Start] >= 6/1/2026 and [Start] <= 6/30/2026"),
                ElementsAre("2026-06-01 03:00", "2026-06-02 03:00"));
    EXPECT_EQ(Store->SetDeviceZone("Atlantis/Centre"), Status::InvalidArgument);
}

TEST_F(ZonedItem, WhenAnotherConnectionTakesTheDeviceElsewhereListingsFollow) {
    Reopen("Europe/Berlin");
    Import(Zoned("u", "UTC", "2026-06-01 08:00", "2026-06-01 09:00"));
    StoredItem series = Zoned("s", "Europe/Berlin", "2026-06-01 09:00", "2026-06-01 10:00");
    series.Pattern = Counted(Daily(), 2);
    Import(series);
    const std::u16string june = u"[Start] >= 6/1/2026 and [Start] <= 6/30/2026";
    for (int look = 0; look < 3; ++look) { // from the second on series come from memory
        EXPECT_THAT(Starts(june), ElementsAre("2026-06-01 09:00", "2026-06-01 10:00", "2026-06-02 09:00"));
    }
    posix::FolderNotice notice;
    ChangeWatcher watcher(Store, notice);
    ASSERT_EQ(watcher.Start(), Status::Ok);
    StorePtr other;
    StoreOptions options;
    options.DeviceZone = "Europe/Berlin";
    ASSERT_EQ(OpenStore(Machine, File, options, other), Status::Ok);
    ASSERT_EQ(other->SetDeviceZone("Asia/Tokyo"), Status::Ok);
    EXPECT_TRUE(watcher.TakeItemChange());
    for (int look = 0; look < 3; ++look) {
        EXPECT_THAT(Starts(june), ElementsAre("2026-06-01 16:00", "2026-06-01 17:00", "2026-06-02 16:00"));
    }
    EXPECT_FALSE(watcher.TakeItemChange());
}

TEST_F(ZonedItem, WhatIsSavedBeforeTheNewsOfAnotherZoneArrivesIsMeantInTheNewOne) {
    Reopen("Europe/Berlin");
    StorePtr other;
    StoreOptions options;
    options.DeviceZone = "Asia/Tokyo";
    ASSERT_EQ(OpenStore(Machine, File, options, other), Status::Ok);
    const Oid oid = Import(Zoned("u", "UTC", "2026-06-01 08:00", "2026-06-01 09:00"));
    EXPECT_EQ(TextOf(Read(oid).Start), "2026-06-01 17:00");
}

TEST_F(ZonedItem, WhatIsTakenBackBeforeTheNewsOfAnotherZoneArrivesIsMeantInTheNewOne) {
    Reopen("Europe/Berlin");
    const Oid oid = Import(Zoned("u", "UTC", "2026-06-01 08:00", "2026-06-01 09:00"));
    ASSERT_EQ(Get(oid)->Delete(), Status::Ok);
    StorePtr other;
    StoreOptions options;
    options.DeviceZone = "Asia/Tokyo";
    ASSERT_EQ(OpenStore(Machine, File, options, other), Status::Ok);
    std::vector<Oid> restored;
    ASSERT_EQ(App->Undo(restored), Status::Ok);
    EXPECT_THAT(restored, ElementsAre(oid));
    EXPECT_EQ(TextOf(Read(oid).Start), "2026-06-01 17:00");
}

TEST_F(ZonedItem, AnEditOfTheTextLeavesItsTimesToTheLetter) {
    Reopen("Europe/Berlin");
    const Oid oid = Import(Zoned("u", "America/New_York", "2026-05-04 18:00", "2026-05-04 19:00"));
    const auto item = Get(oid);
    ASSERT_EQ(item->put_Subject(u"Renamed"), Status::Ok);
    ASSERT_EQ(item->put_Start(DateAt("2026-05-05 00:00")), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_EQ(TextOf(Read(oid).ZoneStart), "2026-05-04 18:00");
    ASSERT_EQ(item->put_Start(DateAt("2026-05-05 06:00")), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_EQ(TextOf(Read(oid).ZoneStart), "2026-05-05 00:00");
    EXPECT_EQ(TextOf(Read(oid).ZoneEnd), "2026-05-05 01:00");
    EXPECT_EQ(Read(oid).Zone, "America/New_York");
}

TEST_F(ZonedItem, ARuleThatIsPutHereIsMeantOnThisClock) {
    Reopen("Europe/Berlin");
    const Oid oid = Import(Zoned("u", "America/New_York", "2026-05-04 20:00", "2026-05-04 21:00"));
    const auto item = Get(oid);
    ComPtr<IRecurrencePattern> pattern;
    ASSERT_EQ(item->GetRecurrencePattern(pattern), Status::Ok);
    ASSERT_EQ(pattern->put_RecurrenceType(kRecursWeekly), Status::Ok);
    ASSERT_EQ(pattern->put_DayOfWeekMask(4), Status::Ok); // Tuesday, which it is in Berlin and not in New York
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_THAT(Starts(u"[Start] <= 5/13/2026"), ElementsAre("2026-05-05 02:00", "2026-05-12 02:00"));
}

TEST_F(ZonedItem, AZoneThatCameAlongIsKept) {
    Reopen("Europe/Berlin");
    ImportWriter writer(Store);
    ASSERT_EQ(writer.Begin(u"Import"), Status::Ok);
    ASSERT_EQ(writer.DefineZone("Office Standard Time", kOfficeZone), Status::Ok);
    ImportOutcome outcome;
    ASSERT_EQ(writer.Write(Zoned("u", "Office Standard Time", "2026-07-04 18:00", "2026-07-04 19:00"), outcome),
              Status::Ok);
    EXPECT_EQ(outcome.Result, ImportResult::New) << outcome.Reason;
    ASSERT_EQ(writer.Commit(), Status::Ok);
    Reopen("UTC");
    EXPECT_EQ(TextOf(Read(outcome.Item).Start), "2026-07-04 16:00");
    EXPECT_EQ(Read(outcome.Item).Zone, "Office Standard Time");
}

// As in a store whose rules for it an earlier program could read, and this one cannot.
TEST_F(ZonedItem, OfAZoneThatIsNotUnderstoodAnyMoreAnItemKeepsItsTimes) {
    Reopen("Europe/Berlin");
    const Oid oid = Import(Zoned("u", "America/New_York", "2026-05-04 18:00", "2026-05-04 19:00"));
    ASSERT_EQ(CoreOf(*Store).Db.Run("UPDATE zone SET name = 'Odd', component = 'BEGIN:VTIMEZONE'"), Status::Ok);
    ASSERT_EQ(SumAnew(CoreOf(*Store)), Status::Ok);
    Reopen("Europe/Berlin");
    EXPECT_EQ(TextOf(Read(oid).Start), "2026-05-05 00:00");
    ASSERT_EQ(Store->SetDeviceZone("Asia/Tokyo"), Status::Ok);
    EXPECT_EQ(TextOf(Read(oid).Start), "2026-05-05 00:00");
    EXPECT_EQ(TextOf(Read(oid).End), "2026-05-05 01:00");
    EXPECT_THAT(Oids(u"[Start] = 5/5/2026"), ElementsAre(oid));
}

TEST_F(ZonedItem, ANameForTwoZonesStaysTwoZones) {
    std::string other = kOfficeZone;
    for (std::size_t at = 0; (at = other.find(":+0", at)) != std::string::npos; ++at) {
        other[at + 3] = static_cast<char>(other[at + 3] + 4);
    }
    std::vector<Oid> oids;
    for (const std::string& component : {std::string(kOfficeZone), other, std::string(kOfficeZone)}) {
        ImportWriter writer(Store);
        ASSERT_EQ(writer.Begin(u"Import"), Status::Ok);
        ASSERT_EQ(writer.DefineZone("Office Standard Time", component), Status::Ok);
        ImportOutcome outcome;
        ASSERT_EQ(writer.Write(Zoned("", "Office Standard Time", "2026-01-04 18:00", "2026-01-04 19:00"), outcome),
                  Status::Ok);
        ASSERT_EQ(writer.Commit(), Status::Ok);
        oids.push_back(outcome.Item);
    }
    EXPECT_EQ(TextOf(Read(oids[0]).Start), "2026-01-04 17:00");
    EXPECT_EQ(TextOf(Read(oids[1]).Start), "2026-01-04 13:00");
    EXPECT_EQ(TextOf(Read(oids[2]).Start), "2026-01-04 17:00");
}

TEST_F(ZonedItem, AnUnknownZoneIsRefusedWithItsName) {
    const ImportOutcome outcome = TryImport(Zoned("u", "Atlantis/Centre", "2026-05-04 18:00", "2026-05-04 19:00"));
    EXPECT_EQ(outcome.Result, ImportResult::Refused);
    EXPECT_EQ(outcome.Reason, "its time zone is not known: Atlantis/Centre");
}

} // namespace tavo::outlook::test
