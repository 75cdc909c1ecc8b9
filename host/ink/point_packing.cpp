// A tag with two bits for each of x, y, time and pressure says how many bytes their differences take: 0, 1, 2 or 4.
#include "host/ink/point_packing.h"

#include <array>
#include <cstring>

namespace tavo::ink {
namespace {

constexpr std::array<std::uint32_t, 4> kMasks{0, 0xFF, 0xFFFF, 0xFFFFFFFF};
constexpr std::array<std::uint8_t, 4> kLengths{0, 1, 2, 4};

// The sign goes to the lowest bit, so that small differences have small numbers.
constexpr std::uint32_t Fold(std::uint32_t difference) {
    return (difference << 1) ^ (0U - (difference >> 31));
}

constexpr std::uint32_t Unfold(std::uint32_t folded) {
    return (folded >> 1) ^ (0U - (folded & 1));
}

// Position and time are expected to go on as they last went, the pressure to stay. All wraps around at 32 bits.
struct Prediction {
    explicit Prediction(const InkPoint& first)
        : X(static_cast<std::uint32_t>(first.X)), Y(static_cast<std::uint32_t>(first.Y)), Time(first.Time),
          Pressure(first.Pressure) {}

    std::uint32_t X;
    std::uint32_t Y;
    std::uint32_t Time;
    std::uint32_t Pressure;
    std::uint32_t StepX = 0;
    std::uint32_t StepY = 0;
    std::uint32_t StepTime = 0;
};

constexpr unsigned LengthCode(std::uint32_t folded) {
    return folded == 0 ? 0 : folded <= 0xFF ? 1 : folded <= 0xFFFF ? 2 : 3;
}

std::uint32_t ReadWord(const std::uint8_t* bytes) {
    return static_cast<std::uint32_t>(bytes[0]) | static_cast<std::uint32_t>(bytes[1]) << 8 |
           static_cast<std::uint32_t>(bytes[2]) << 16 | static_cast<std::uint32_t>(bytes[3]) << 24;
}

void WriteWord(std::uint8_t* bytes, std::uint32_t word) {
    bytes[0] = static_cast<std::uint8_t>(word);
    bytes[1] = static_cast<std::uint8_t>(word >> 8);
    bytes[2] = static_cast<std::uint8_t>(word >> 16);
    bytes[3] = static_cast<std::uint8_t>(word >> 24);
}

// Reads one point; false when it lies outside of what points may be. There are kMaxPackedPoint bytes to look at.
bool UnpackPoint(const std::uint8_t*& next, Prediction& before, InkPoint& point) {
    const unsigned tag = *next++;
    const auto read = [&next](unsigned code) {
        const std::uint32_t value = Unfold(ReadWord(next) & kMasks[code]);
        next += kLengths[code];
        return value;
    };
    before.StepX += read(tag & 3);
    before.StepY += read((tag >> 2) & 3);
    before.StepTime += read((tag >> 4) & 3);
    before.Pressure += read(tag >> 6);
    before.X += before.StepX;
    before.Y += before.StepY;
    before.Time += before.StepTime;
    point.X = static_cast<std::int32_t>(before.X);
    point.Y = static_cast<std::int32_t>(before.Y);
    point.Time = before.Time;
    point.Pressure = static_cast<std::uint16_t>(before.Pressure);
    return before.X <= static_cast<std::uint32_t>(kMaxX) && before.Y <= static_cast<std::uint32_t>(kMaxY) &&
           before.Pressure <= kMaxPressure && before.StepTime <= kMaxStrokeTime && before.Time <= kMaxStrokeTime;
}

} // namespace

void PackPoints(std::span<const InkPoint> points, std::vector<std::uint8_t>& bytes) {
    const std::size_t begin = bytes.size();
    bytes.resize(begin + points.size() * kMaxPackedPoint);
    std::uint8_t* next = bytes.data() + begin;
    Prediction before(points.front());
    for (const InkPoint& point : points.subspan(1)) {
        const std::uint32_t stepX = static_cast<std::uint32_t>(point.X) - before.X;
        const std::uint32_t stepY = static_cast<std::uint32_t>(point.Y) - before.Y;
        const std::uint32_t stepTime = point.Time - before.Time;
        const std::array folded{Fold(stepX - before.StepX), Fold(stepY - before.StepY),
                                Fold(stepTime - before.StepTime), Fold(point.Pressure - before.Pressure)};
        std::uint8_t* const tag = next++;
        unsigned codes = 0;
        for (unsigned field = 0; field < folded.size(); ++field) {
            const unsigned code = LengthCode(folded[field]);
            codes |= code << (2 * field);
            WriteWord(next, folded[field]);
            next += kLengths[code];
        }
        *tag = static_cast<std::uint8_t>(codes);
        before = Prediction(point);
        before.StepX = stepX;
        before.StepY = stepY;
        before.StepTime = stepTime;
    }
    bytes.resize(static_cast<std::size_t>(next - bytes.data()));
}

std::size_t UnpackPoints(std::span<const std::uint8_t> bytes, std::span<InkPoint> points) {
    Prediction before(points.front());
    const std::uint8_t* next = bytes.data();
    const std::uint8_t* const end = next + bytes.size();
    std::size_t done = 1;
    for (; done < points.size() && static_cast<std::size_t>(end - next) >= kMaxPackedPoint; ++done) {
        if (!UnpackPoint(next, before, points[done])) {
            return 0;
        }
    }
    if (done < points.size()) { // the last bytes, with room behind them to look at
        std::array<std::uint8_t, 2 * kMaxPackedPoint> tail{};
        const auto rest = static_cast<std::size_t>(end - next);
        std::memcpy(tail.data(), next, rest);
        const std::uint8_t* nextInTail = tail.data();
        for (; done < points.size(); ++done) {
            if (nextInTail >= tail.data() + rest || !UnpackPoint(nextInTail, before, points[done])) {
                return 0;
            }
        }
        const auto taken = static_cast<std::size_t>(nextInTail - tail.data());
        if (taken > rest) {
            return 0;
        }
        next += taken;
    }
    return static_cast<std::size_t>(next - bytes.data());
}

} // namespace tavo::ink
