// A month on its sheet.
#include "tests/print/print_desk.h"

#include <gmock/gmock.h>

namespace tavo::print::test {
namespace {

using testing::Contains;

class MonthSheet : public testing::Test {
  protected:
    PrintedPage LayOut() {
        const std::vector<PrintedPage> pages = LayOutPages(Request, Days, {});
        EXPECT_EQ(pages.size(), 1U);
        ExpectInsideMargins(pages[0], Request.Sheet.Height, Request.Sheet.Width, Request.Margin);
        return pages[0];
    }

    // The number of this day of the month, bold.
    const PrintedText& Number(const PrintedPage& page, std::u16string_view number) {
        static const PrintedText none;
        for (const PrintedText& text : page.Texts) {
            if (text.Text == number && text.IsBold) {
                return text;
            }
        }
        ADD_FAILURE() << "no such number";
        return none;
    }

    PrintRequest Request{PrintKind::Month, At(2026, 11, 24), 0, 1, kA4, 28.35};
    PrintedDays Days;
};

TEST_F(MonthSheet, NamesTheMonthAndTheWeekdaysInTheirOrder) {
    const PrintedPage page = LayOut();
    EXPECT_EQ(Find(page, u"November 2026").IsBold, true);
    EXPECT_LT(Find(page, u"Monday").Place.Left, Find(page, u"Tuesday").Place.Left);
    EXPECT_LT(Find(page, u"Saturday").Place.Left, Find(page, u"Sunday").Place.Left);
    Request.FirstWeekday = 0;
    const PrintedPage american = LayOut();
    EXPECT_LT(Find(american, u"Sunday").Place.Left, Find(american, u"Monday").Place.Left);
}

TEST_F(MonthSheet, EachDayStandsBelowItsWeekday) {
    const PrintedPage page = LayOut();
    const PrintedText& tuesday = Find(page, u"Tuesday");
    const PrintedText& number = Number(page, u"24");
    EXPECT_GE(number.Place.Left, tuesday.Place.Left);
    EXPECT_LE(number.Place.Right(), tuesday.Place.Right());
    EXPECT_EQ(Number(page, u"17").Place.Left, number.Place.Left);
    EXPECT_LT(Number(page, u"17").Place.Top, number.Place.Top);
}

TEST_F(MonthSheet, HasAsManyWeeksAsTheMonth) {
    const std::pair<DayNumber, DayNumber> november = DaysOf(Request);
    EXPECT_EQ(november, std::pair(At(2026, 10, 26), At(2026, 12, 6)));
    Request.First = At(2027, 2, 1); // 28 days, from a Monday on
    const std::pair<DayNumber, DayNumber> february = DaysOf(Request);
    EXPECT_EQ(february, std::pair(At(2027, 2, 1), At(2027, 2, 28)));
}

TEST_F(MonthSheet, EntriesStandInTheirCellsWithTimeAndSign) {
    Days[At(2026, 11, 24)] = {Entry(u"Dentist", u"9:30"), Entry(u"Grandma", u"", outlook::MirroredKind::Anniversary),
                              Entry(u"Wake up", u"6:30", outlook::MirroredKind::Alarm)};
    const PrintedPage page = LayOut();
    const PrintedText& dentist = Find(page, u"9:30 Dentist");
    EXPECT_EQ(dentist.Place.Left, Number(page, u"24").Place.Left);
    EXPECT_GT(dentist.Place.Top, Number(page, u"24").Place.Top);
    EXPECT_LT(dentist.Place.Top, Number(page, u"30").Place.Top);
    EXPECT_GE(Find(page, u"+ Grandma").Place.Top, dentist.Place.Bottom() - kSlack);
    Find(page, u"! 6:30 Wake up");
    Find(page, u"* holiday   + anniversary   ! alarm");
}

TEST_F(MonthSheet, AHolidayIsRedAndSigned) {
    Days[At(2026, 11, 30)] = {Entry(u"St Andrew", u"", outlook::MirroredKind::Holiday)};
    const PrintedPage page = LayOut();
    EXPECT_EQ(Number(page, u"30").Ink, Color::FromRgb(176, 0, 0));
    EXPECT_EQ(Find(page, u"* St Andrew").Ink, Color::FromRgb(176, 0, 0));
    EXPECT_EQ(Number(page, u"29").Ink, Color::FromRgb(0, 0, 0));
}

TEST_F(MonthSheet, WhatDoesNotFitIsCounted) {
    for (int number = 0; number < 40; ++number) {
        Days[At(2026, 11, 24)].push_back(Entry(u"Item", u"9:00"));
    }
    const PrintedPage page = LayOut();
    const std::vector<std::u16string> texts = TextsOf(page);
    const auto shown = std::count(texts.begin(), texts.end(), u"9:00 Item");
    EXPECT_GT(shown, 2);
    const std::string more = "+" + std::to_string(40 - shown) + " more";
    const PrintedText& rest = Find(page, std::u16string(more.begin(), more.end()));
    EXPECT_LE(rest.Place.Bottom(), Number(page, u"30").Place.Top + 15 * 7) << "in its own cell";
}

TEST_F(MonthSheet, DaysBesideTheMonthAreQuiet) {
    Days[At(2026, 10, 31)] = {Entry(u"Before", u"9:00")};
    const PrintedPage page = LayOut();
    EXPECT_NE(Find(page, u"9:00 Before").Ink, Color::FromRgb(0, 0, 0));
}

TEST_F(MonthSheet, EveryMonthFitsOnBothPapers) {
    for (const Paper& paper : {kA4, kLetter}) {
        for (int month = 1; month <= 12; ++month) {
            Request.Sheet = paper;
            Request.First = At(2026, month, 15);
            const PrintedPage page = LayOut();
            EXPECT_THAT(TextsOf(page), Contains(u"15"));
        }
    }
}

} // namespace
} // namespace tavo::print::test
