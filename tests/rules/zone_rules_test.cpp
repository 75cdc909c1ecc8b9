// Time zones: their offsets, from the machine's database and from components.
#include "host/posix/zone_database.h"
#include "host/rules/zones.h"
#include "tests/rules/item_words.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>

namespace tavo::rules::test {

namespace {

class ZonesOfTheMachine : public ::testing::Test {
  protected:
    posix::ZoneDatabase Database;
};

} // namespace

TEST_F(ZonesOfTheMachine, FollowTheDatabase) {
    const auto berlin = LoadZone(Database, "Europe/Berlin");
    ASSERT_TRUE(berlin);
    EXPECT_EQ(TextOf(berlin->ToLocal(At("2026-01-15 12:00"))), "2026-01-15 13:00");
    EXPECT_EQ(TextOf(berlin->ToLocal(At("2026-07-15 12:00"))), "2026-07-15 14:00");
    EXPECT_EQ(TextOf(berlin->ToLocal(At("2026-03-29 00:59:59"))), "2026-03-29 01:59:59");
    EXPECT_EQ(TextOf(berlin->ToLocal(At("2026-03-29 01:00"))), "2026-03-29 03:00");
    EXPECT_EQ(TextOf(berlin->ToUtc(At("2026-07-15 14:00"))), "2026-07-15 12:00");
    const auto kolkata = LoadZone(Database, "Asia/Kolkata");
    ASSERT_TRUE(kolkata);
    EXPECT_EQ(TextOf(kolkata->ToLocal(At("2026-07-15 12:00"))), "2026-07-15 17:30");
    const auto sydney = LoadZone(Database, "Australia/Sydney");
    ASSERT_TRUE(sydney);
    EXPECT_EQ(TextOf(sydney->ToLocal(At("2026-01-15 12:00"))), "2026-01-15 23:00");
    EXPECT_EQ(TextOf(sydney->ToLocal(At("2026-07-15 12:00"))), "2026-07-15 22:00");
}

TEST_F(ZonesOfTheMachine, ReadASkippedTimeWithTheOffsetBeforeAndATwofoldOneAsTheFirst) {
    const auto berlin = LoadZone(Database, "Europe/Berlin");
    ASSERT_TRUE(berlin);
    EXPECT_EQ(TextOf(berlin->ToUtc(At("2026-03-29 02:30"))), "2026-03-29 01:30");
    EXPECT_EQ(TextOf(berlin->ToUtc(At("2026-10-25 02:30"))), "2026-10-25 00:30");
    EXPECT_EQ(TextOf(berlin->ToUtc(At("2026-10-25 03:00"))), "2026-10-25 02:00");
}

TEST_F(ZonesOfTheMachine, GoOnThroughTheCenturies) {
    const auto berlin = LoadZone(Database, "Europe/Berlin");
    ASSERT_TRUE(berlin);
    EXPECT_EQ(TextOf(berlin->ToLocal(At("2100-07-15 12:00"))), "2100-07-15 14:00");
    EXPECT_EQ(TextOf(berlin->ToLocal(At("2750-07-15 12:00"))), "2750-07-15 14:00");
    EXPECT_EQ(TextOf(berlin->ToLocal(At("2750-01-15 12:00"))), "2750-01-15 13:00");
    EXPECT_EQ(TextOf(berlin->ToUtc(At("2999-12-31 23:00"))), "2999-12-31 22:00");
}

TEST(DeviceZone, ThatIsNoZoneOfTheDatabaseIsUniversalTime) {
    class SetTo final : public IZoneSource {
      public:
        explicit SetTo(std::string name) : Name(std::move(name)) {}

        std::optional<std::string> ReadZone(const std::string& name) override { return Database.ReadZone(name); }

        std::string GetDeviceZone() override { return Name; }

        std::string GetRelease() override { return Database.GetRelease(); }

      private:
        std::string Name;
        posix::ZoneDatabase Database;
    };

    for (const char* name : {"", "Atlantis/Centre", "../../../etc/passwd", "Europe", "CET-1CEST", "UTC"}) {
        SetTo source(name);
        EXPECT_EQ(FindDeviceZone(source), "UTC") << name;
    }
    SetTo berlin("Europe/Berlin");
    EXPECT_EQ(FindDeviceZone(berlin), "Europe/Berlin");
}

TEST(ZoneRules, AreReadFromAComponent) {
    std::string fault;
    const auto office = ParseZoneComponent(kOfficeZone, fault);
    ASSERT_TRUE(office);
    EXPECT_EQ(TextOf(office->ToLocal(At("2026-01-15 12:00"))), "2026-01-15 13:00");
    EXPECT_EQ(TextOf(office->ToLocal(At("2026-03-29 01:00"))), "2026-03-29 03:00");
    EXPECT_EQ(TextOf(office->ToLocal(At("2026-10-25 00:59"))), "2026-10-25 02:59");
    EXPECT_EQ(TextOf(office->ToLocal(At("2026-10-25 01:00"))), "2026-10-25 02:00");
    EXPECT_FALSE(ParseZoneComponent("BEGIN:VEVENT\r\nEND:VEVENT\r\n", fault));
    EXPECT_FALSE(ParseZoneComponent("nonsense", fault));
}

TEST_F(ZonesOfTheMachine, NamesCannotLeaveTheDatabase) {
    EXPECT_FALSE(LoadZone(Database, "../../../etc/passwd"));
    EXPECT_FALSE(LoadZone(Database, "/etc/passwd"));
    EXPECT_FALSE(LoadZone(Database, "Atlantis/Centre"));
    EXPECT_FALSE(LoadZone(Database, ""));
    EXPECT_TRUE(LoadZone(Database, "UTC"));
    EXPECT_FALSE(ParseZoneFile("TZif2 but cut"));
}

} // namespace tavo::rules::test
