// The fixed vocabulary, word for word.
#include "store/text_tables.h"

#include "store/item_kind.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using testing::ElementsAre;

TEST(TextTables, RecurrenceChoices) {
    EXPECT_THAT(kRecurChoiceNames, ElementsAre(u"Once", u"Everyday", u"Weekdays(Mon-Fri)", u"<Edit Pattern...>"));
}

TEST(TextTables, DaysBeginWithSunday) {
    EXPECT_THAT(kDayNames,
                ElementsAre(u"Sunday", u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday"));
    EXPECT_THAT(kDayAbbrevs, ElementsAre(u"Sun.", u"Mon.", u"Tue.", u"Wed.", u"Thu.", u"Fri.", u"Sat."));
}

TEST(TextTables, TheFifthWeekIsTheLast) {
    EXPECT_THAT(kOrdinalNames, ElementsAre(u"1st", u"2nd", u"3rd", u"4th", u"last"));
    EXPECT_EQ(kOrdinalNames[4], u"last");
}

TEST(TextTables, EveryMonthHasAFullStopEvenMay) {
    EXPECT_THAT(kMonthAbbrevs, ElementsAre(u"Jan.", u"Feb.", u"Mar.", u"Apr.", u"May.", u"Jun.", u"Jul.", u"Aug.",
                                           u"Sep.", u"Oct.", u"Nov.", u"Dec."));
}

TEST(TextTables, KindsInHeadingsEmptyListsAndCaptions) {
    EXPECT_THAT(kKindNames, ElementsAre(u"Alarm", u"Holiday", u"Anniversary", u"Appointment"));
    EXPECT_THAT(kEmptyListTexts, ElementsAre(u"No registered alarm", u"No registered holiday",
                                             u"No registered anniversary", u"No schedule"));
    EXPECT_THAT(kKindCaptions, ElementsAre(u"Alarm:", u"Holiday:", u"Anniversary:", u"Schedule:", u"Memo:"));
}

TEST(TextTables, TheOrdinaryKindHasThreeNames) {
    EXPECT_EQ(kKindNames[IndexOf(ItemKind::Appointment)], u"Appointment");
    EXPECT_EQ(kKindCaptions[IndexOf(ItemKind::Appointment)], u"Schedule:");
    EXPECT_EQ(kEmptyListTexts[IndexOf(ItemKind::Appointment)], u"No schedule");
}

TEST(TextTables, AMemoHasACaptionOnly) {
    EXPECT_EQ(kKindCaptions[IndexOf(ItemKind::Memo)], u"Memo:");
    EXPECT_EQ(kKindNames.size(), 4U);
    EXPECT_EQ(kEmptyListTexts.size(), 4U);
}

} // namespace

} // namespace tavo
