// A hand draws loops while it moves on; it trembles a little, and presses harder on the way down.
#include "tests/ink/handwriting.h"

#include <cmath>
#include <numbers>
#include <random>
#include <utility>

namespace tavo::ink {
namespace {

constexpr int kSampleTime = 5;           // milliseconds
constexpr double kLoopTime = 240;        // milliseconds for one loop
constexpr double kLetterWidth = 11;      // pixels
constexpr double kLineHeight = 24;       // pixels
constexpr double kTremble = 0.06;        // pixels
constexpr double kDigitizerStep = 0.125; // pixels; what a pen device tells apart
constexpr int kLettersInALine = 19;

double Snap(double pixels) {
    return std::round(pixels / kDigitizerStep) * kDigitizerStep;
}

} // namespace

std::vector<PlacedStroke> WriteByHand(int strokes, int pointsEach) {
    std::mt19937 random(2004); // the same at every run
    std::normal_distribution<double> tremble(0, kTremble);
    std::uniform_real_distribution<double> vary(0.7, 1.3);
    std::uniform_int_distribution<int> jitter(-1, 1);
    std::vector<PlacedStroke> written;
    std::int64_t now = 1'100'000'000'000;
    for (int i = 0; i < strokes; ++i) {
        Stroke stroke;
        stroke.Tool = {static_cast<PenColor>(i / 40 % 4), PenWidth::Medium, true};
        stroke.Started = now;
        const double height = 5 * vary(random);
        const double width = 3.2 * vary(random);
        const double left = 6 + i % kLettersInALine * kLetterWidth;
        const auto line = i / kLettersInALine;
        const double top = 8 + line * kLineHeight;
        const double advance = kLetterWidth / pointsEach;
        std::uint32_t time = 0;
        for (int sample = 0; sample < pointsEach; ++sample) {
            const double turn = 2 * std::numbers::pi * sample * kSampleTime / kLoopTime;
            const double x = left + advance * sample + width * std::sin(turn) + tremble(random);
            const double y = top + height * (1 - std::cos(turn)) + tremble(random);
            const double pressure = 520 + 220 * std::sin(turn) + 4 * jitter(random);
            InkPoint point;
            point.X = static_cast<std::int32_t>(std::lround(Snap(x) * kTicksPerPixel));
            point.Y = static_cast<std::int32_t>(std::lround(Snap(y) * kTicksPerPixel));
            point.Time = time;
            point.Pressure = static_cast<std::uint16_t>(pressure);
            stroke.Points.push_back(point);
            time += static_cast<std::uint32_t>(kSampleTime + (sample % 9 == 0 ? jitter(random) : 0));
        }
        now += time + 180;
        written.push_back(Place(std::move(stroke)));
    }
    return written;
}

Stroke DrawLine(double fromX, double fromY, double toX, double toY, int points) {
    Stroke stroke;
    for (int i = 0; i < points; ++i) {
        const double part = points > 1 ? static_cast<double>(i) / (points - 1) : 0;
        InkPoint point;
        point.X = static_cast<std::int32_t>(std::lround((fromX + (toX - fromX) * part) * kTicksPerPixel));
        point.Y = static_cast<std::int32_t>(std::lround((fromY + (toY - fromY) * part) * kTicksPerPixel));
        point.Time = static_cast<std::uint32_t>(i * kSampleTime);
        stroke.Points.push_back(point);
    }
    return stroke;
}

} // namespace tavo::ink
