// Lines of text in a rectangle: where they begin, where they break.
#include "host/shell/chrome/text_placement.h"

#include "platform/drawing.h"
#include "tests/shell/square_face.h"

#include <gtest/gtest.h>

namespace tavo::shell {

namespace {

class TextPlacementTest : public ::testing::Test {
  protected:
    std::vector<std::u16string> Texts(std::u16string_view text, int width, std::uint32_t format = DT_WORDBREAK) {
        std::vector<std::u16string> texts;
        for (const PlacedLine& line : PlaceText(Face, text, {0, 0, width, 100}, format)) {
            texts.push_back(line.Text);
        }
        return texts;
    }

    using Lines = std::vector<std::u16string>;

    SquareFace Face;
};

TEST_F(TextPlacementTest, FlagsSayWhereALineLies) {
    const Rect area{20, 10, 120, 50};
    const int width = 5 * SquareFace::kAdvance;
    EXPECT_EQ(PlaceText(Face, u"Today", area, DT_SINGLELINE)[0].Left, 20);
    EXPECT_EQ(PlaceText(Face, u"Today", area, DT_SINGLELINE | DT_RIGHT)[0].Left, 120 - width);
    EXPECT_EQ(PlaceText(Face, u"Today", area, DT_SINGLELINE | DT_CENTER)[0].Left, 20 + (100 - width) / 2);
    EXPECT_EQ(PlaceText(Face, u"Today", area, DT_SINGLELINE)[0].Baseline, 10 + 9);
    EXPECT_EQ(PlaceText(Face, u"Today", area, DT_SINGLELINE | DT_VCENTER)[0].Baseline, 10 + 14 + 9);
    EXPECT_EQ(PlaceText(Face, u"Today", area, DT_SINGLELINE | DT_BOTTOM)[0].Baseline, 50 - 12 + 9);
    EXPECT_EQ(PlaceText(Face, u"Today", area, DT_VCENTER)[0].Baseline, 10 + 9); // of several lines it means nothing
}

TEST_F(TextPlacementTest, WordsBreakAtBlanksAndLongOnesAnywhere) {
    EXPECT_EQ(Texts(u"ab cd ef", 5 * SquareFace::kAdvance), Lines({u"ab cd", u"ef"}));
    EXPECT_EQ(Texts(u"ab cd ef", 5 * SquareFace::kAdvance - 1), Lines({u"ab", u"cd", u"ef"}));
    EXPECT_EQ(Texts(u"abcdefg", 3 * SquareFace::kAdvance), Lines({u"abc", u"def", u"g"}));
    EXPECT_EQ(Texts(u"abc", 1), Lines({u"a", u"b", u"c"})); // no line is left empty
    EXPECT_EQ(Texts(u"", 60), Lines({u""}));
}

TEST_F(TextPlacementTest, LineFeedsBreakUnlessALineIsSingle) {
    EXPECT_EQ(Texts(u"one\r\ntwo\n", 600), Lines({u"one", u"two", u""}));
    EXPECT_EQ(Texts(u"one\ntwo", 600, DT_SINGLELINE), Lines({u"one\ntwo"}));
    EXPECT_EQ(PlaceText(Face, u"a\nb", {0, 7, 50, 50}, 0)[1].Baseline, 7 + 12 + 9);
}

TEST_F(TextPlacementTest, AnAmpersandMarksTheNextCharacter) {
    const PlacedLine marked = PlaceText(Face, u"A&bc && d", {0, 0, 200, 20}, DT_SINGLELINE)[0];
    EXPECT_EQ(marked.Text, u"Abc & d");
    EXPECT_EQ(marked.Underlined, 1);
    const PlacedLine plain = PlaceText(Face, u"A&b", {0, 0, 200, 20}, DT_SINGLELINE | DT_NOPREFIX)[0];
    EXPECT_EQ(plain.Text, u"A&b");
    EXPECT_EQ(plain.Underlined, -1);
    EXPECT_EQ(PlaceText(Face, u"A&", {0, 0, 200, 20}, DT_SINGLELINE)[0].Text, u"A&"); // it marks nothing
}

} // namespace

} // namespace tavo::shell
