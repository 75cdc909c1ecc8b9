// What drawing leaves on the off-screen picture, pixel by pixel, at several scales.
#include "host/qt/surface.h"

#include "tests/support/contrast.h"

#include <gtest/gtest.h>

namespace tavo::qt {
namespace {

constexpr Color kBlack = Color::FromRgb(0, 0, 0);

class SurfaceAtScale : public testing::TestWithParam<double> {
  protected:
    Surface Make(int width, int height) { return Surface({width, height}, {GetParam()}, OwnFonts, OwnPictures); }

    Fonts OwnFonts;
    Pictures OwnPictures;
};

class SurfaceTest : public testing::Test {
  protected:
    Surface Make(int width, int height, double scale) {
        return Surface({width, height}, {scale}, OwnFonts, OwnPictures);
    }

    Fonts OwnFonts;
    Pictures OwnPictures;
};

int CountPixels(const QImage& image, const QRect& area, QRgb color) {
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            count += image.pixel(x, y) == color ? 1 : 0;
        }
    }
    return count;
}

int CountNeither(const QImage& image, QRgb one, QRgb other) {
    return image.width() * image.height() - CountPixels(image, image.rect(), one) -
           CountPixels(image, image.rect(), other);
}

constexpr QRgb kBlackPixel = 0xFF000000;
constexpr QRgb kWhitePixel = 0xFFFFFFFF;

Color ColorOf(QRgb pixel) {
    return Color::FromRgb(qRed(pixel), qGreen(pixel), qBlue(pixel));
}

} // namespace

TEST_P(SurfaceAtScale, IsWhiteWhereNothingWasDrawn) {
    Surface surface = Make(20, 10);
    surface.FillRect({0, 0, 20, 10}, Color::FromRgb(255, 255, 255));
    EXPECT_TRUE(surface.Image().isNull()); // it takes no memory yet
    surface.FillRect({0, 0, 10, 10}, kBlack);
    const QImage& image = surface.Image();
    EXPECT_EQ(image.size(), QSize(surface.GetScale().Edge(20), surface.GetScale().Edge(10)));
    const int black = surface.GetScale().Edge(10) * image.height();
    EXPECT_EQ(CountPixels(image, image.rect(), kBlackPixel), black);
    EXPECT_EQ(CountPixels(image, image.rect(), kWhitePixel), image.width() * image.height() - black);
}

TEST_P(SurfaceAtScale, AKeptPictureStaysAsItWas) {
    Surface surface = Make(20, 10);
    surface.DrawLine({0, 0}, {20, 10}, {kBlack, 2});
    const QImage kept = surface.Image();
    const QImage before = kept.copy();
    surface.DrawLine({20, 0}, {0, 10}, {kBlack, 2});
    surface.FillRect({0, 0, 20, 10}, kBlack);
    EXPECT_EQ(kept, before);
    EXPECT_EQ(CountPixels(surface.Image(), surface.Image().rect(), kWhitePixel), 0);
}

// A hand goes round over a picture and a text, as on a clock: what is drawn anew in part is what is drawn anew as a
// whole.
TEST_P(SurfaceAtScale, APartDrawnAnewLooksLikeTheWholeDrawnAnew) {
    const FontHandle font = OwnFonts.Make({u"Arial", -20, 0, 700});
    const auto draw = [&](Surface& surface, Point tip) {
        surface.FillRect({0, 0, 90, 90}, Color::FromRgb(200, 220, 240));
        surface.DrawBitmap(139, {3, 7}, {0, 0, 80, 60});
        surface.DrawTextW(u"Wednesday", {5, 30, 85, 60}, {font, kBlack, DT_CENTER | DT_VCENTER | DT_SINGLELINE});
        surface.DrawLine({45, 45}, tip, {Color::FromRgb(38, 114, 205), 3});
        surface.FillRect({40, 40, 50, 50}, kBlack);
    };
    Surface kept = Make(90, 90);
    for (const Point tip : {Point{80, 40}, Point{81, 47}, Point{60, 80}, Point{45, 85}, Point{12, 20}, Point{70, 13}}) {
        Surface fresh = Make(90, 90);
        draw(kept, tip);
        draw(fresh, tip);
        ASSERT_EQ(kept.Image(), fresh.Image()) << tip.X << ' ' << tip.Y;
    }
}

TEST_P(SurfaceAtScale, ATextOutlivesItsFont) {
    Surface surface = Make(90, 30);
    const FontHandle font = OwnFonts.Make({u"Arial", -20, 0, 700});
    surface.FillRect({0, 0, 90, 30}, Color::FromRgb(255, 255, 255));
    surface.DrawTextW(u"Text", {0, 0, 90, 30}, {font, kBlack, DT_SINGLELINE});
    OwnFonts.Delete(font);
    EXPECT_GT(CountPixels(surface.Image(), surface.Image().rect(), kBlackPixel), 10);
}

TEST_P(SurfaceAtScale, StraightEdgesAreNeverAntialiased) {
    Surface surface = Make(40, 40);
    surface.FillRect({3, 5, 17, 11}, kBlack);
    surface.DrawLine({0, 20}, {40, 20}, {kBlack, 1});
    surface.DrawLine({25, 0}, {25, 40}, {kBlack, 1});
    surface.DrawLine({31, 5}, {31, 30}, {kBlack, 3});
    EXPECT_EQ(CountNeither(surface.Image(), kBlackPixel, kWhitePixel), 0);
}

TEST_P(SurfaceAtScale, NeighbouringRectanglesMeet) {
    Surface surface = Make(33, 33);
    for (int i = 0; i < 33; ++i) {
        surface.FillRect({i, 0, i + 1, 33}, kBlack);
    }
    EXPECT_EQ(CountPixels(surface.Image(), surface.Image().rect(), kWhitePixel), 0);
}

INSTANTIATE_TEST_SUITE_P(Scales, SurfaceAtScale, testing::Values(1.0, 1.25, 1.5, 2.0, 2.375, 3.0));

TEST_F(SurfaceTest, EdgesLieAtTheRoundedProductOfPlaceAndScale) {
    Surface surface = Make(40, 40, 1.5);
    surface.FillRect({3, 5, 7, 9}, kBlack); // 4.5, 7.5, 10.5, 13.5 round up
    EXPECT_EQ(surface.Image().size(), QSize(60, 60));
    EXPECT_EQ(CountPixels(surface.Image(), QRect(QPoint(5, 8), QPoint(10, 13)), kBlackPixel), 36);
    EXPECT_EQ(CountPixels(surface.Image(), surface.Image().rect(), kBlackPixel), 36);
}

TEST_F(SurfaceTest, AllLinesOfAGridAreEquallyThick) {
    Surface surface = Make(40, 40, 1.5);
    for (const int x : {3, 10, 17, 24}) {
        surface.DrawLine({x, 0}, {x, 40}, {kBlack, 1});
    }
    for (const int left : {5, 15, 26, 36}) { // 4.5, 15, 25.5 and 36, rounded
        EXPECT_EQ(CountPixels(surface.Image(), QRect(left, 0, 2, 60), kBlackPixel), 120) << left;
    }
    EXPECT_EQ(CountPixels(surface.Image(), surface.Image().rect(), kBlackPixel), 4 * 120);
}

TEST_F(SurfaceTest, AThinLineLeavesItsEndOut) {
    Surface surface = Make(20, 20, 1.0);
    surface.DrawLine({2, 3}, {6, 3}, {kBlack, 1});
    EXPECT_EQ(surface.Image().pixel(2, 3), kBlackPixel);
    EXPECT_EQ(surface.Image().pixel(5, 3), kBlackPixel);
    EXPECT_EQ(surface.Image().pixel(6, 3), kWhitePixel);
    EXPECT_EQ(CountPixels(surface.Image(), surface.Image().rect(), kBlackPixel), 4);
}

TEST_F(SurfaceTest, ALineDrawnBackwardsLeavesItsEndOutToo) {
    Surface surface = Make(20, 20, 1.0);
    surface.DrawLine({3, 6}, {3, 2}, {kBlack, 1});
    EXPECT_EQ(surface.Image().pixel(3, 6), kBlackPixel);
    EXPECT_EQ(surface.Image().pixel(3, 3), kBlackPixel);
    EXPECT_EQ(surface.Image().pixel(3, 2), kWhitePixel);
}

TEST_F(SurfaceTest, AThickStraightLineLiesAroundItsPoints) {
    Surface surface = Make(20, 20, 2.0);
    surface.DrawLine({10, 4}, {10, 14}, {kBlack, 3});
    // Columns 9 to 11, rows 3 to 15, each of them two real pixels.
    EXPECT_EQ(CountPixels(surface.Image(), QRect(QPoint(18, 6), QPoint(23, 31)), kBlackPixel), 6 * 26);
    EXPECT_EQ(CountPixels(surface.Image(), surface.Image().rect(), kBlackPixel), 6 * 26);
}

TEST_F(SurfaceTest, DiagonalsAreSmooth) {
    Surface surface = Make(40, 40, 2.0);
    surface.DrawLine({5, 5}, {30, 17}, {kBlack, 3});
    EXPECT_GT(CountNeither(surface.Image(), kBlackPixel, kWhitePixel), 20);
    EXPECT_EQ(surface.Image().pixel(11, 11), kBlackPixel);
}

TEST_F(SurfaceTest, DrawingBesideTheSurfaceLeavesItWhole) {
    Surface surface = Make(20, 20, 2.0);
    surface.FillRect({-10, -10, 5, 5}, kBlack);
    surface.FillRect({18, 18, 50, 50}, kBlack);
    surface.DrawLine({-5, 10}, {60, 10}, {kBlack, 1});
    EXPECT_EQ(CountPixels(surface.Image(), QRect(0, 0, 10, 10), kBlackPixel), 100);
    EXPECT_EQ(CountPixels(surface.Image(), QRect(36, 36, 4, 4), kBlackPixel), 16);
    EXPECT_EQ(CountPixels(surface.Image(), QRect(0, 20, 40, 2), kBlackPixel), 80);
}

TEST_F(SurfaceTest, APictureCoversItsEdgesExactlyAtEveryPlace) {
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
        Surface surface = Make(40, 40, scale);
        surface.FillRect({0, 0, 40, 40}, Color::FromRgb(255, 0, 255));
        surface.DrawBitmap(150, {5, 21}, {0, 0, 32, 5}); // the white mark eraser
        const QRect covered = surface.GetScale().Edges({5, 21, 37, 26});
        EXPECT_EQ(CountPixels(surface.Image(), covered, kWhitePixel), covered.width() * covered.height()) << scale;
        EXPECT_EQ(CountPixels(surface.Image(), surface.Image().rect(), 0xFFFF00FF),
                  surface.Image().width() * surface.Image().height() - covered.width() * covered.height())
            << scale;
    }
}

TEST_F(SurfaceTest, AnUnknownPictureDrawsNothing) {
    Surface surface = Make(40, 40, 1.0);
    surface.FillRect({0, 0, 1, 1}, kBlack);
    surface.DrawBitmap(9999, {0, 0}, {0, 0, 30, 30});
    EXPECT_EQ(CountPixels(surface.Image(), surface.Image().rect(), kWhitePixel), 1599);
}

TEST_F(SurfaceTest, APictureLikeTheOneBeforeChangesNothing) {
    Surface surface = Make(40, 40, 2.0);
    const auto drawFace = [&] {
        surface.FillRect({0, 0, 40, 40}, Color::FromRgb(200, 220, 240));
        surface.DrawLine({5, 5}, {30, 17}, {kBlack, 3});
    };
    drawFace();
    static_cast<void>(surface.Image());
    static_cast<void>(surface.TakeChanged());
    drawFace();
    EXPECT_TRUE(surface.TakeChanged().isEmpty());
}

TEST_F(SurfaceTest, ANewPictureChangesOnlyWhereItDiffers) {
    Surface surface = Make(40, 40, 2.0);
    for (const int x : {4, 20}) {
        static_cast<void>(surface.TakeChanged());
        surface.FillRect({0, 0, 40, 40}, Color::FromRgb(255, 255, 255));
        surface.FillRect({x, 10, x + 4, 14}, kBlack);
        surface.FillRect({0, 30, 40, 34}, kBlack);
    }
    EXPECT_EQ(surface.TakeChanged(), QRect(8, 20, 40, 8));
    EXPECT_EQ(CountPixels(surface.Image(), QRect(40, 20, 8, 8), kBlackPixel), 64);
    EXPECT_EQ(CountPixels(surface.Image(), surface.Image().rect(), kBlackPixel), 64 + 80 * 8);
}

TEST_F(SurfaceTest, DrawingOnAShownPictureIsGoneWithTheNext) {
    Surface surface = Make(40, 40, 1.0);
    surface.FillRect({0, 0, 40, 40}, Color::FromRgb(255, 255, 255));
    static_cast<void>(surface.Image());
    surface.FillRect({3, 3, 9, 9}, kBlack);
    static_cast<void>(surface.Image());
    surface.FillRect({0, 0, 40, 40}, Color::FromRgb(255, 255, 255));
    EXPECT_EQ(CountPixels(surface.Image(), surface.Image().rect(), kWhitePixel), 1600);
}

TEST_F(SurfaceTest, TellsWhatWasDrawnOnSinceTheLastTime) {
    Surface surface = Make(40, 40, 2.0);
    EXPECT_EQ(surface.TakeChanged(), QRect(0, 0, 80, 80));
    EXPECT_TRUE(surface.TakeChanged().isEmpty());
    surface.FillRect({5, 6, 7, 8}, kBlack);
    EXPECT_EQ(surface.TakeChanged(), QRect(10, 12, 4, 4));
}

// The dial and the ground of the digits are pictures of ours; hands and digits are in the device's colours.
TEST_F(SurfaceTest, HandsAndDigitsAreSeenOnTheirGround) {
    constexpr int dial = 145;
    constexpr int ground = 153;
    constexpr Color secondHand = Color::FromRgb(38, 114, 205);
    constexpr Color digits = Color::FromRgb(20, 51, 150);
    constexpr int reach = 60; // of the longest hand
    constexpr int hub = 6;
    Surface surface = Make(220, 220, 1.0);
    surface.DrawBitmap(dial, {0, 0}, {0, 0, 200, 200});
    int seen = 0;
    for (int y = 100 - reach; y <= 100 + reach; ++y) {
        for (int x = 100 - reach; x <= 100 + reach; ++x) {
            const int distance = (x - 100) * (x - 100) + (y - 100) * (y - 100);
            if (distance <= reach * reach && distance > hub * hub) {
                ASSERT_GE(test::ContrastOf(secondHand, ColorOf(surface.Image().pixel(x, y))), 3.0) << x << ", " << y;
                ++seen;
            }
        }
    }
    EXPECT_GT(seen, 10'000);
    surface.DrawBitmap(ground, {0, 0}, {0, 0, 220, 220});
    for (int y = 20; y < 165; ++y) {
        for (int x = 10; x < 210; ++x) {
            ASSERT_GE(test::ContrastOf(digits, ColorOf(surface.Image().pixel(x, y))), 4.5) << x << ", " << y;
        }
    }
}

} // namespace tavo::qt
