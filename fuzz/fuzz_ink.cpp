// Feeds any bytes to the readers of ink: as they are, sealed with the checksum that belongs to them, and as what a
// crash left.
#include "host/ink/checksum.h"
#include "host/ink/codec.h"
#include "host/ink/ink_canvas.h"
#include "host/ink/recovery_file.h"

#include <algorithm>
#include <cstdlib>

namespace {

using namespace tavo;
using namespace tavo::ink;

constexpr std::size_t kMaxPaintedPoints = 2000;

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

bool AreSame(const std::vector<PlacedStroke>& one, const std::vector<PlacedStroke>& other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](const PlacedStroke& left, const PlacedStroke& right) {
                          return *left.Body == *right.Body && left.Bounds == right.Bounds;
                      });
}

void RequireOnPaper(const PlacedStroke& stroke) {
    Require(!stroke.Body->Points.empty());
    std::uint32_t before = 0;
    for (const InkPoint& point : stroke.Body->Points) {
        Require(point.X >= 0 && point.X <= kMaxX && point.Y >= 0 && point.Y <= kMaxY);
        Require(point.Pressure <= kMaxPressure && point.Time >= before && point.Time <= kMaxStrokeTime);
        before = point.Time;
    }
}

// What a person would see of it, and do to it.
void Show(std::span<const std::uint8_t> bytes) {
    InkShared shared;
    InkControl control(shared);
    control.Resize({60, 60});
    control.SetData(bytes);
    InkCanvas canvas;
    canvas.Resize(47, 60, 1);
    canvas.Update(control);
    control.PenDown(PenEnd::Eraser, {{10, 10}, kNoPressure, 0});
    control.PenUp({{40, 40}, kNoPressure, 5});
    canvas.Update(control);
}

void Read(std::span<const std::uint8_t> bytes) {
    std::vector<PlacedStroke> strokes;
    if (Decode(bytes, strokes) != Reading::Whole) {
        Require(strokes.empty());
        return;
    }
    std::size_t points = 0;
    for (const PlacedStroke& stroke : strokes) {
        RequireOnPaper(stroke);
        points += stroke.Body->Points.size();
    }
    Require(points <= bytes.size()); // every point takes a byte at least
    // What was read is written, and read again, as the same.
    const std::vector<std::uint8_t> written = Encode(strokes);
    std::vector<PlacedStroke> again;
    Require(Decode(written, again) == Reading::Whole && AreSame(strokes, again));
    if (points <= kMaxPaintedPoints) {
        Show(written);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span<const std::uint8_t> bytes(data, size);
    Read(bytes);
    if (size > 4) {
        std::vector<std::uint8_t> sealed(data, data + size - 4);
        const std::uint32_t sum = Checksum(sealed);
        for (int shift = 0; shift < 32; shift += 8) {
            sealed.push_back(static_cast<std::uint8_t>(sum >> shift));
        }
        Read(sealed);
    }
    if (const std::optional<RecoveryContents> left = ReadRecovery(bytes); left.has_value()) {
        std::vector<PlacedStroke> strokes;
        Require(Decode(left->Ink, strokes) == Reading::Whole);
    }
    return 0;
}
