// What a print tells of what the store holds.
#include "host/ink/codec.h"
#include "host/locale/utf.h"
#include "host/print/printed_days.h"
#include "host/print/printed_memos.h"
#include "tests/exchange/memory_memos.h"
#include "tests/ink/handwriting.h"
#include "tests/outlook/store_fixture.h"

#include <gmock/gmock.h>

namespace tavo::print {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PrintedDaysTest : public outlook::test::StoreTest {
  protected:
    // "time|start|subject", of a day.
    std::vector<std::string> Tell(const std::string& date) {
        PrintedDays days;
        EXPECT_EQ(ReadDays(Store, rules::DayOf(outlook::test::At("2026-11-01")),
                           rules::DayOf(outlook::test::At("2026-11-30")), days),
                  Status::Ok);
        std::vector<std::string> told;
        for (const PrintedEntry& entry : days[rules::DayOf(outlook::test::At(date))]) {
            told.push_back(locale::ToUtf8(entry.Time) + "|" + locale::ToUtf8(entry.Start) + "|" +
                           locale::ToUtf8(entry.Subject));
        }
        return told;
    }
};

TEST_F(PrintedDaysTest, TimesAreThoseOfTheDay) {
    Add("2026-11-03 09:30", "2026-11-03 10:05", u"Dentist");
    Add("2026-11-03 12:00", "2026-11-03 12:00", u"Noon");
    Add("2026-11-03 22:00", "2026-11-05 07:00", u"Night train");
    EXPECT_THAT(Tell("2026-11-03"),
                ElementsAre("9:30 - 10:05|9:30|Dentist", "12:00|12:00|Noon", "22:00 -|22:00|Night train"));
    EXPECT_THAT(Tell("2026-11-04"), ElementsAre("all day||Night train"));
    EXPECT_THAT(Tell("2026-11-05"), ElementsAre("- 7:00||Night train"));
    EXPECT_THAT(Tell("2026-11-06"), IsEmpty());
}

TEST_F(PrintedDaysTest, SubjectsAreHarmlessAndNeverEmpty) {
    Add("2026-11-03 09:00", "2026-11-03 10:00", u"");
    Add("2026-11-03 10:00", "2026-11-03 11:00", u"a\x1b[31mb");
    const std::vector<std::string> told = Tell("2026-11-03");
    ASSERT_EQ(told.size(), 2U);
    EXPECT_EQ(told[0], "9:00 - 10:00|9:00|(no subject)");
    EXPECT_EQ(told[1].find('\x1b'), std::string::npos);
}

TEST(PrintedMemos, AreThoseOfTheDayAndBadOnesAreNamed) {
    exchange::MemoryMemos memos;
    memos.Files = {{"20261103_080000.pwi", ink::Encode(ink::WriteByHand(3, 10))},
                   {"20261103_090000.pwi", {1, 2, 3}},
                   {"20261104_080000.pwi", ink::Encode(ink::WriteByHand(5, 10))}};
    std::vector<std::string> unreadable;
    const MemosOfDay read = ReadMemos(memos, rules::DayFromCivil(2026, 11, 3), unreadable);
    ASSERT_EQ(read.size(), 1U);
    EXPECT_EQ(read[0].size(), 3U);
    EXPECT_THAT(unreadable, ElementsAre("20261103_090000.pwi"));
}

} // namespace
} // namespace tavo::print
