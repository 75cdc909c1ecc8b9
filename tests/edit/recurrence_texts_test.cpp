// The texts of the recurrence list.
#include "edit/recurrence_texts.h"

#include <gtest/gtest.h>

namespace tavo {
namespace {

std::vector<std::u16string> TextsOf(int month, int day, int dayOfWeek) {
    SYSTEMTIME start;
    start.Year = 2026;
    start.Month = static_cast<std::uint16_t>(month);
    start.Day = static_cast<std::uint16_t>(day);
    start.DayOfWeek = static_cast<std::uint16_t>(dayOfWeek);
    return MakeRecurrenceTexts(start);
}

TEST(RecurrenceTexts, NameTheStartsDay) {
    const std::vector<std::u16string> expected{u"Once",
                                               u"Everyday",
                                               u"Every Monday",
                                               u"Weekdays(Mon-Fri)",
                                               u"Day 9 of every month",
                                               u"The 2nd Mon. of every month",
                                               u"Mar. 9 of every year",
                                               u"The 2nd Mon. of every Mar.",
                                               u"<Edit Pattern...>"};
    EXPECT_EQ(TextsOf(3, 9, 1), expected);
}

TEST(RecurrenceTexts, FromThe29thOnTheWeekIsTheLast) {
    for (const int day : {29, 30, 31}) {
        EXPECT_EQ(TextsOf(5, day, 0)[5], u"The last Sun. of every month") << day;
        EXPECT_EQ(TextsOf(5, day, 0)[7], u"The last Sun. of every May.") << day;
    }
}

TEST(RecurrenceTexts, FromThe22ndToThe28thItIsThe4th) {
    EXPECT_EQ(TextsOf(12, 21, 6)[5], u"The 3rd Sat. of every month");
    for (int day = 22; day <= 28; ++day) {
        EXPECT_EQ(TextsOf(12, day, 6)[5], u"The 4th Sat. of every month") << day;
        EXPECT_EQ(TextsOf(12, day, 6)[7], u"The 4th Sat. of every Dec.") << day;
    }
}

} // namespace
} // namespace tavo
