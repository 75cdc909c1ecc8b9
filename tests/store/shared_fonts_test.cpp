// The shared fonts, at 96 dots per inch unless said.
#include "store/shared_fonts.h"

#include "tests/support/ruled_drawing.h"

#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::KnownFont;
using test::RuledDrawing;

TEST(SharedFonts, FacesWeightsAndSizes) {
    RuledDrawing drawing;
    const SharedFonts fonts(drawing);
    EXPECT_EQ(drawing.FontOf(fonts.FontArial11Bold), (KnownFont{u"Arial", -14, 0, 700}));
    EXPECT_EQ(drawing.FontOf(fonts.FontArial9Bold), (KnownFont{u"Arial", -12, 0, 700}));
    EXPECT_EQ(drawing.FontOf(fonts.FontArial10Bold), (KnownFont{u"Arial", -13, 0, 700}));
    EXPECT_EQ(drawing.FontOf(fonts.FontArial10), (KnownFont{u"Arial", -13, 0, 400}));
    EXPECT_EQ(drawing.FontOf(fonts.FontArial7), (KnownFont{u"Arial", -9, 0, 400}));
    EXPECT_EQ(drawing.FontOf(fonts.FontComic13Bold), (KnownFont{u"Comic Sans MS", -17, 0, 700}));
    EXPECT_EQ(drawing.FontOf(fonts.FontComicHuge), (KnownFont{u"Comic Sans MS", -133, -33, 700}));
    EXPECT_EQ(drawing.FontOf(fonts.FontComic20), (KnownFont{u"Comic Sans MS", -26, -26, 700}));
    EXPECT_EQ(drawing.Fonts.size(), 8U);
}

TEST(SharedFonts, SizesFollowTheDotsPerInchInWholeSteps) {
    RuledDrawing drawing(10, 131);
    const SharedFonts fonts(drawing);
    EXPECT_EQ(drawing.FontOf(fonts.FontArial7).Height, -12);     // 12.7
    EXPECT_EQ(drawing.FontOf(fonts.FontComicHuge).Height, -181); // 181.9
    EXPECT_EQ(drawing.FontOf(fonts.FontComicHuge).Width, -45);   // 45.5
}

TEST(SharedFonts, AreGivenBack) {
    RuledDrawing drawing;
    { const SharedFonts fonts(drawing); }
    ASSERT_EQ(drawing.Fonts.size(), 8U);
    for (const KnownFont& font : drawing.Fonts) {
        EXPECT_TRUE(font.Deleted) << font.Height;
    }
}

} // namespace

} // namespace tavo
