// Long texts of ideographs: measured from what the font file states, as wide as they are laid out.
#include "host/qt/font_preparation.h"
#include "host/qt/surface.h"
#include "tests/qt/ideograph_font.h"

#include <QFontDatabase>
#include <QTextLayout>

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <limits>

namespace tavo::qt {
namespace {

constexpr char16_t kFirst = 0x4E00;

std::u16string DifferentIdeographs(std::size_t count, char16_t first = kFirst) {
    std::u16string text;
    while (text.size() < count) {
        text += static_cast<char16_t>(first + text.size());
    }
    return text;
}

QFont ToolkitFont(int size) {
    QFont font(QFont::substitutes(QStringLiteral("Arial")).value(0, QStringLiteral("Arial")));
    font.setPixelSize(size);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(false);
    return font;
}

double LayOut(const QFont& font, char16_t character) {
    QTextLayout layout{QString(QChar(character)), font};
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setUseDesignMetrics(true);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(1000);
    layout.endLayout();
    return line.naturalTextWidth();
}

// The least of a few, each with a font in a size that nothing was measured in.
double MeasureTime(const std::u16string& text, int firstSize) {
    double least = std::numeric_limits<double>::max();
    for (int size = firstSize; size < firstSize + 3; ++size) {
        Font font({u"Arial", -size, 0, 400});
        static_cast<void>(font.Ends(text.substr(0, 1))); // finds the files
        const std::clock_t begin = std::clock();
        static_cast<void>(font.Ends(text));
        least = std::min(least, static_cast<double>(std::clock() - begin));
    }
    return least;
}

double TimeToLayOut(const std::u16string& text, int size) {
    QTextLayout layout(QString::fromStdU16String(text), ToolkitFont(size));
    const std::clock_t begin = std::clock();
    layout.beginLayout();
    static_cast<void>(layout.createLine());
    layout.endLayout();
    return static_cast<double>(std::clock() - begin);
}

// Some machines have one that the toolkit likes better than a test's.
bool MachineHasIdeographs() {
    const QList<QFontDatabase::WritingSystem> systems{QFontDatabase::SimplifiedChinese, QFontDatabase::Japanese};
    return std::any_of(systems.begin(), systems.end(),
                       [](auto system) { return !QFontDatabase::families(system).isEmpty(); });
}

class Ideographs : public testing::Test {
  protected:
    Ideographs()
        : IsOwnFontUsed(!MachineHasIdeographs()),
          Added(QFontDatabase::addApplicationFontFromData(MakeIdeographFont())) {
        EXPECT_TRUE(PrepareFonts());
        EXPECT_GE(Added, 0);
    }

    ~Ideographs() override { QFontDatabase::removeApplicationFont(Added); }

    bool IsOwnFontUsed;
    int Added;
};

} // namespace

TEST_F(Ideographs, AreAsWideAsTheToolkitLaysThemOutInALongText) {
    for (const int size : {13, 20}) {
        const QFont toolkit = ToolkitFont(size);
        Font font({u"Arial", -size, 0, 400});
        const std::u16string text = u"30 \u20AC " + DifferentIdeographs(2500) + u"\uAC00e\u0301\U00020000";
        const std::vector<double>& ends = font.Ends(text);
        ASSERT_EQ(ends.size(), text.size());
        int narrow = 0;
        for (std::size_t i = 5; i < 2505; ++i) {
            const double width = ends[i] - ends[i - 1];
            ASSERT_NEAR(width, LayOut(toolkit, text[i]), 0.001) << i << ", " << size;
            narrow += width < 0.7 * size ? 1 : 0;
        }
        EXPECT_GE(narrow, IsOwnFontUsed ? 25 : 0) << size;       // as the font for this test has them
        EXPECT_EQ(ends[text.size() - 2], ends[text.size() - 3]); // within a surrogate pair
        EXPECT_GT(ends[text.size() - 1], ends[text.size() - 2]);
    }
}

// Some fonts have the common ideographs and none of the rare ones, which come first here.
TEST_F(Ideographs, ThatNoFontHasAreAsWideAsTheToolkitsSignForThem) {
    const QFont toolkit = ToolkitFont(25);
    Font font({u"Arial", -25, 0, 400});
    const std::u16string text = DifferentIdeographs(150, 0x3400) + DifferentIdeographs(150) +
                                DifferentIdeographs(150, 0xAC00) + DifferentIdeographs(20, 0x3500);
    const std::vector<double>& ends = font.Ends(text);
    ASSERT_EQ(ends.size(), text.size());
    for (std::size_t i = 1; i < text.size(); ++i) {
        ASSERT_NEAR(ends[i] - ends[i - 1], LayOut(toolkit, text[i]), 0.001) << i;
    }
}

// A font may have a few of a kind: then most characters of a text come from another file, or from none.
TEST_F(Ideographs, OfWhichAFontHasAFewAreAsWideAsTheToolkitLaysThemOut) {
    const QFont toolkit = ToolkitFont(27);
    const std::u16string few = u"\u4E01\u4E07"; // wide and narrow
    for (const std::u16string& text : {few + DifferentIdeographs(300, 0x3400),
                                       DifferentIdeographs(3, 0x3400) + few + DifferentIdeographs(300, 0x3410)}) {
        Font font({u"Arial", -27, 0, 400});
        const std::vector<double>& ends = font.Ends(text);
        ASSERT_EQ(ends.size(), text.size());
        for (std::size_t i = 1; i < text.size(); ++i) {
            ASSERT_NEAR(ends[i] - ends[i - 1], LayOut(toolkit, text[i]), 0.001) << i;
        }
    }
}

TEST_F(Ideographs, AreDrawnAsWideAsTheyAreMeasured) {
    Fonts fonts;
    Pictures pictures;
    const FontHandle font = fonts.Make({u"Arial", -3, 0, 400});
    const std::u16string text = DifferentIdeographs(70);
    const double measured = fonts.Find(font)->Ends(text).back();
    EXPECT_GT(measured, 67 * 3); // one is narrow, one is missing
    for (const double scale : {1.0, 2.0}) {
        Surface surface({240, 12}, {scale}, fonts, pictures);
        surface.DrawTextW(text, {0, 0, 240, 12}, {font, Color::FromRgb(0, 0, 0), DT_SINGLELINE});
        const QImage image = surface.Image();
        int right = 0;
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                right = qGray(image.pixel(x, y)) < 200 ? x : right;
            }
        }
        EXPECT_NEAR((right + 1) / scale, measured, 1.5) << scale;
    }
}

TEST_F(Ideographs, ThatDifferTakeHardlyLongerThanOneThatRepeats) {
    const double different = MeasureTime(DifferentIdeographs(10'000), 31);
    const double same = MeasureTime(std::u16string(10'000, u'\u4E01'), 41);
    EXPECT_LT(different, 8 * same + CLOCKS_PER_SEC / 1000.0);
}

TEST_F(Ideographs, ThatNoFontHasTakeLessTimeThanLayingThemOut) {
    const std::u16string text = DifferentIdeographs(10'000, 0xAC00);
    const double measured = MeasureTime(text, 51);
    EXPECT_LT(measured, TimeToLayOut(text, 61));
}

TEST_F(Ideographs, OfWhichAFontHasOneTakeLessTimeThanLayingThemOut) {
    const std::u16string text = u"\u4E01" + DifferentIdeographs(6000, 0x3400);
    const double measured = MeasureTime(text, 51);
    EXPECT_LT(measured, TimeToLayOut(text, 61));
}

} // namespace tavo::qt
