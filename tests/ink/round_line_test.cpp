// Lines row by row, beside the distance of every pixel.
#include "host/ink/coverage_mask.h"
#include "host/ink/round_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace tavo::ink {
namespace {

constexpr int kSide = 48;

// Of the pixel's middle from the line, against the width there.
int CoverPixel(const Nib& from, const Nib& to, int x, int y) {
    const double alongX = to.X - from.X;
    const double alongY = to.Y - from.Y;
    const double square = alongX * alongX + alongY * alongY;
    const double offsetX = x + 0.5 - from.X;
    const double offsetY = y + 0.5 - from.Y;
    const double part = square > 1e-6 ? std::clamp((offsetX * alongX + offsetY * alongY) / square, 0.0, 1.0) : 0.0;
    const double away = std::hypot(offsetX - part * alongX, offsetY - part * alongY);
    const double radius = from.Radius + part * (to.Radius - from.Radius);
    return static_cast<int>(std::lround(std::clamp(radius + 0.5 - away, 0.0, 1.0) * 255));
}

void ExpectAllPixels(const Nib& from, const Nib& to) {
    const PixelBox whole{0, 0, kSide, kSide};
    CoverageMask mask;
    mask.Resize(kSide, kSide);
    mask.AddLine(from, to, whole);
    const RoundLine line(from, to);
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            ASSERT_NEAR(mask.Row(y)[x], CoverPixel(from, to, x, y), 1)
                << x << ", " << y << " of " << from.X << ", " << from.Y << " - " << to.X << ", " << to.Y << ", "
                << from.Radius << " to " << to.Radius;
            const PixelBox row = line.CutRow(whole, y);
            if (x < row.Left || x >= row.Right) {
                ASSERT_EQ(mask.Row(y)[x], 0) << x << ", " << y << " was passed over";
            }
        }
    }
}

TEST(RoundLine, CoversWhatLiesWithinItsWidth) {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> place(-8, kSide + 8);
    std::uniform_real_distribution<float> radius(0.2F, 7);
    for (int i = 0; i < 400; ++i) {
        ExpectAllPixels({place(random), place(random), radius(random)}, {place(random), place(random), radius(random)});
    }
}

TEST(RoundLine, CoversLevelUprightAndTinyLines) {
    ExpectAllPixels({4, 20, 2}, {40, 20, 5});
    ExpectAllPixels({4, 20, 3}, {40, 20.0005F, 3});
    ExpectAllPixels({4, 20, 3}, {40, 20.01F, 3});
    ExpectAllPixels({20, 4, 2}, {20, 40, 2});
    ExpectAllPixels({20.3F, 20.6F, 4}, {20.3F, 20.6F, 4});
    ExpectAllPixels({20.3F, 20.6F, 4}, {20.31F, 20.62F, 4});
}

TEST(RoundLine, PassesOverWhatLiesFarFromIt) {
    const RoundLine line({2, 2, 2}, {46, 46, 2});
    int looked = 0;
    for (int y = line.Bounds().Top; y < line.Bounds().Bottom; ++y) {
        const PixelBox row = line.CutRow(line.Bounds(), y);
        looked += row.Right - row.Left;
    }
    EXPECT_GT(looked, 44 * 4);
    EXPECT_LT(looked, 44 * 12); // its box has 2,400
}

} // namespace
} // namespace tavo::ink
