// Weeks, days and lists on their pages.
#include "tests/ink/handwriting.h"
#include "tests/print/print_desk.h"

#include <gmock/gmock.h>

namespace tavo::print::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr std::u16string_view kLegend = u"* holiday   + anniversary   ! alarm";

class ListSheets : public testing::Test {
  protected:
    std::vector<PrintedPage> LayOut() {
        std::vector<PrintedPage> pages = LayOutPages(Request, Days, Memos);
        for (const PrintedPage& page : pages) {
            ExpectInsideMargins(page, Request.Sheet.Width, Request.Sheet.Height, Request.Margin);
        }
        return pages;
    }

    PrintRequest Request{PrintKind::Week, At(2026, 11, 26), 0, 1, kA4, 28.35};
    PrintedDays Days;
    MemosOfDay Memos;
};

TEST_F(ListSheets, AWeekNamesEachOfItsDays) {
    Days[At(2026, 11, 24)] = {Entry(u"Dentist", u"9:30")};
    Days[At(2026, 11, 24)][0].Location = u"Main Street";
    const std::vector<PrintedPage> pages = LayOut();
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_THAT(TextsOf(pages[0]),
                ElementsAre(u"November 23, 2026 - November 29, 2026", u"Monday, November 23, 2026", u"No entries",
                            u"Tuesday, November 24, 2026", u"9:30", u"Dentist", u"Main Street",
                            u"Wednesday, November 25, 2026", u"No entries", u"Thursday, November 26, 2026",
                            u"No entries", u"Friday, November 27, 2026", u"No entries", u"Saturday, November 28, 2026",
                            u"No entries", u"Sunday, November 29, 2026", u"No entries", kLegend));
    EXPECT_LT(Find(pages[0], u"Dentist").Place.Right(), Find(pages[0], u"Main Street").Place.Left);
}

TEST_F(ListSheets, AListNamesOnlyDaysWithEntries) {
    Request = {PrintKind::List, At(2026, 11, 24), At(2026, 12, 24), 1, kLetter, 28.35};
    Days[At(2026, 12, 6)] = {Entry(u"St Nicholas", u"", outlook::MirroredKind::Holiday)};
    EXPECT_THAT(TextsOf(LayOut().at(0)), ElementsAre(u"November 24, 2026 - December 24, 2026",
                                                     u"Sunday, December 6, 2026", u"* St Nicholas", kLegend));
    Days.clear();
    EXPECT_THAT(TextsOf(LayOut().at(0)), ElementsAre(u"November 24, 2026 - December 24, 2026", u"No entries", kLegend));
}

TEST_F(ListSheets, ALongListGoesOnOnNumberedPagesAndLosesNothing) {
    Request = {PrintKind::List, At(2026, 1, 1), At(2026, 12, 31), 1, kA4, 28.35};
    for (int day = 0; day < 365; ++day) {
        Days[At(2026, 1, 1) + day] = {Entry(u"Item"), Entry(u"Item")};
    }
    const std::vector<PrintedPage> pages = LayOut();
    EXPECT_GT(pages.size(), 10U);
    std::ptrdiff_t items = 0;
    for (std::size_t page = 0; page < pages.size(); ++page) {
        const std::vector<std::u16string> texts = TextsOf(pages[page]);
        items += std::count(texts.begin(), texts.end(), u"Item");
        const std::string number = std::to_string(page + 1) + " / " + std::to_string(pages.size());
        EXPECT_EQ(texts.back(), std::u16string(number.begin(), number.end()));
        EXPECT_FALSE(texts[texts.size() - 3].ends_with(u", 2026")) << "a day is not left alone at the end of a page";
    }
    EXPECT_EQ(items, 730);
}

TEST_F(ListSheets, ADayHasItsInkBelowItsEntries) {
    Request = {PrintKind::Day, At(2026, 11, 26), 0, 1, kA4, 28.35};
    Days[At(2026, 11, 26)] = {Entry(u"Dentist", u"9:30")};
    Memos = {ink::WriteByHand(10, 40), {}, ink::WriteByHand(300, 40)};
    const std::vector<PrintedPage> pages = LayOut();
    ASSERT_EQ(pages.size(), 2U) << "the second memo is long, and is not cut";
    EXPECT_THAT(TextsOf(pages[0]), Contains(u"Thursday, November 26, 2026"));
    ASSERT_EQ(pages[0].Inks.size(), 1U);
    EXPECT_GT(pages[0].Inks[0].Place.Top, Find(pages[0], u"Dentist").Place.Bottom());
    EXPECT_EQ(pages[0].Inks[0].Strokes.size(), 10U);
    ASSERT_EQ(pages[1].Inks.size(), 1U);
    EXPECT_EQ(pages[1].Inks[0].Strokes.size(), 300U);
}

TEST_F(ListSheets, ADayWithoutAnythingSaysSo) {
    Request = {PrintKind::Day, At(2026, 11, 26), 0, 1, kA4, 28.35};
    EXPECT_THAT(TextsOf(LayOut().at(0)), ElementsAre(u"Thursday, November 26, 2026", u"No entries", kLegend));
}

} // namespace
} // namespace tavo::print::test
