// Listings without item objects.
#include "host/outlook/occurrence_reader.h"
#include "tests/outlook/store_fixture.h"

#include <gmock/gmock.h>

namespace tavo::outlook::test {

using ::testing::ElementsAre;

class Listing : public StoreTest {
  protected:
    std::vector<std::string> Days(const std::string& first, const std::string& last) {
        std::vector<std::string> lines;
        OccurrenceReader reader(Store);
        EXPECT_EQ(reader.ListDays(DayOf(At(first)), DayOf(At(last)),
                                  [&](const ListedOccurrence& line) {
                                      lines.push_back(TextOf(line.Start) + " > " + TextOf(line.End) + " " +
                                                      std::to_string(line.Item) + " " + std::string(line.Subject));
                                  }),
                  Status::Ok);
        return lines;
    }
};

TEST_F(Listing, HoldsBothDaysAndWhatReachesIntoThem) {
    Add("2026-04-30 20:00", "2026-05-01 01:00", u"night");
    Add("2026-04-30 00:00", "2026-05-01 00:00", u"the day before");
    Add("2026-05-02 23:59", "2026-05-03 10:00", u"late");
    Add("2026-05-03 00:00", "2026-05-03 00:00", u"after");
    AddSeries("2026-04-01 09:00", "2026-04-01 10:00", Weekly(32), u"Größe");
    EXPECT_THAT(Days("2026-05-01", "2026-05-02"), ElementsAre("2026-04-30 20:00 > 2026-05-01 01:00 1 night",
                                                              "2026-05-01 09:00 > 2026-05-01 10:00 5 Größe",
                                                              "2026-05-02 23:59 > 2026-05-03 10:00 3 late"));
}

TEST_F(Listing, IsInOrderOfStartThenOid) {
    AddSeries("2026-05-01 09:00", "2026-05-01 10:00", Daily(), u"a");
    Add("2026-05-02 09:00", "2026-05-02 09:10", u"b");
    AddSeries("2026-05-01 09:00", "2026-05-01 10:00", Daily(), u"c");
    EXPECT_THAT(Days("2026-05-02", "2026-05-02"),
                ElementsAre("2026-05-02 09:00 > 2026-05-02 10:00 1 a", "2026-05-02 09:00 > 2026-05-02 09:10 2 b",
                            "2026-05-02 09:00 > 2026-05-02 10:00 3 c"));
}

TEST_F(Listing, SaysTheSameAsARestrictedCollection) {
    for (int index = 0; index < 300; ++index) {
        const Seconds start = At("2026-01-01") + Seconds{index} * 7919 * 60;
        StoredItem item;
        item.Start = start;
        item.End = start + Seconds{index % 40} * 50000;
        item.Pattern = index % 7 == 0 ? Weekly(1 + index % 127, 1 + index % 3) : StoredPattern();
        Import(item);
    }
    std::vector<std::string> expected = Occurrences(u"[Start] <= 9/20/2026 and [End] >= 9/1/2026");
    std::vector<std::string> lines = Days("2026-09-01", "2026-09-20");
    for (std::string& line : lines) {
        line.resize(line.find(' ', line.find(" > ") + 14));
    }
    EXPECT_GT(lines.size(), 50U);
    EXPECT_EQ(lines, expected);
}

TEST_F(Listing, AMovedOccurrenceShowsItsOwnSubject) {
    StoredItem item = MakeItem("u", "2026-05-01 09:00", "2026-05-01 10:00", u"Series");
    item.Pattern = Counted(Daily(), 2);
    item.Exceptions.push_back({At("2026-05-02 09:00"), ExceptionKind::Moved, At("2026-05-02 11:00"),
                               At("2026-05-02 12:00"), u"Own", std::nullopt, ""});
    Import(item);
    EXPECT_THAT(Days("2026-05-01", "2026-05-31"), ElementsAre("2026-05-01 09:00 > 2026-05-01 10:00 1 Series",
                                                              "2026-05-02 11:00 > 2026-05-02 12:00 1 Own"));
}

TEST_F(Listing, StartsAreBoundedToTheSecond) {
    Add("2026-05-01 09:00", "2026-05-01 10:00");
    Add("2026-05-01 09:00:01", "2026-05-01 10:00");
    std::vector<Oid> found;
    OccurrenceReader reader(Store);
    ASSERT_EQ(reader.ListStarts(At("2026-05-01 09:00:01"), At("2026-05-01 09:00:01"),
                                [&](const ListedOccurrence& line) { found.push_back(line.Item); }),
              Status::Ok);
    EXPECT_THAT(found, ElementsAre(2));
}

} // namespace tavo::outlook::test
