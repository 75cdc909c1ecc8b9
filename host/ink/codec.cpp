// Header, strokes, checksum.
#include "host/ink/codec.h"

#include "host/ink/checksum.h"
#include "host/ink/point_packing.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tavo::ink {
namespace {

// The first byte is no letter, so that no text is taken for ink.
constexpr std::array<std::uint8_t, 4> kSignature{0xF7, 'T', 'I', 'K'};
constexpr std::uint8_t kVersion = 1;
constexpr std::size_t kHeaderSize = kSignature.size() + 1;
constexpr std::size_t kChecksumSize = 4;
constexpr unsigned kColorBits = 0x03;
constexpr unsigned kWidthShift = 2;
constexpr unsigned kWidthBits = 0x03;
constexpr unsigned kPressureBit = 0x10;
constexpr std::size_t kMaxNumberSize = 10;

class Writer {
  public:
    std::vector<std::uint8_t> Bytes;

    void Number(std::uint64_t value) {
        for (; value > 0x7F; value >>= 7) {
            Bytes.push_back(static_cast<std::uint8_t>(value | 0x80));
        }
        Bytes.push_back(static_cast<std::uint8_t>(value));
    }

    void Signed(std::int64_t value) {
        Number((static_cast<std::uint64_t>(value) << 1) ^ (value < 0 ? ~std::uint64_t{0} : 0));
    }
};

class Reader {
  public:
    explicit Reader(std::span<const std::uint8_t> bytes) : Rest(bytes) {}

    std::span<const std::uint8_t> Rest;
    bool Good = true;

    std::uint64_t Number() {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < kMaxNumberSize && i < Rest.size(); ++i) {
            value |= static_cast<std::uint64_t>(Rest[i] & 0x7F) << (7 * i);
            if ((Rest[i] & 0x80) == 0) {
                Rest = Rest.subspan(i + 1);
                return value;
            }
        }
        Good = false;
        return 0;
    }

    std::int64_t Signed() {
        const std::uint64_t folded = Number();
        return static_cast<std::int64_t>((folded >> 1) ^ (0 - (folded & 1)));
    }

    std::uint8_t Byte() {
        if (Rest.empty()) {
            Good = false;
            return 0;
        }
        const std::uint8_t byte = Rest.front();
        Rest = Rest.subspan(1);
        return byte;
    }
};

// What the next stroke's beginning is told by.
struct Before {
    std::uint64_t Started = 0;
    std::int64_t X = 0;
    std::int64_t Y = 0;
};

std::uint8_t StyleOf(const Pen& pen) {
    return static_cast<std::uint8_t>(static_cast<unsigned>(pen.Color) |
                                     static_cast<unsigned>(pen.Width) << kWidthShift |
                                     (pen.HasPressure ? kPressureBit : 0));
}

bool ReadStyle(unsigned style, Pen& pen) {
    const unsigned width = (style >> kWidthShift) & kWidthBits;
    pen.Color = static_cast<PenColor>(style & kColorBits);
    pen.Width = static_cast<PenWidth>(width);
    pen.HasPressure = (style & kPressureBit) != 0;
    return width < kPenWidths.size() && style < 2 * kPressureBit;
}

void WriteStroke(const PlacedStroke& placed, Before& before, std::vector<InkPoint>& moved, Writer& writer) {
    const Stroke& stroke = *placed.Body;
    std::span<const InkPoint> points = stroke.Points;
    if (placed.Right != 0 || placed.Down != 0) {
        moved.assign(points.begin(), points.end());
        for (InkPoint& point : moved) {
            point.X = std::clamp(point.X + placed.Right, 0, kMaxX);
            point.Y = std::clamp(point.Y + placed.Down, 0, kMaxY);
        }
        points = moved;
    }
    const InkPoint& first = points.front();
    writer.Bytes.push_back(StyleOf(stroke.Tool));
    writer.Number(points.size());
    const auto started = static_cast<std::uint64_t>(stroke.Started);
    writer.Signed(static_cast<std::int64_t>(started - before.Started));
    writer.Signed(first.X - before.X);
    writer.Signed(first.Y - before.Y);
    writer.Number(first.Pressure);
    before = {started, first.X, first.Y};
    PackPoints(points, writer.Bytes);
}

bool ReadStroke(Reader& reader, Before& before, std::size_t& pointsLeft, Stroke& stroke) {
    if (!ReadStyle(reader.Byte(), stroke.Tool)) {
        return false;
    }
    const std::uint64_t count = reader.Number();
    before.Started += static_cast<std::uint64_t>(reader.Signed());
    const std::int64_t right = reader.Signed();
    const std::int64_t down = reader.Signed();
    const std::uint64_t pressure = reader.Number();
    const bool fits = right >= -kMaxX && right <= kMaxX && down >= -kMaxY && down <= kMaxY;
    // Every further point takes a byte at least.
    if (!reader.Good || count == 0 || count > pointsLeft || count - 1 > reader.Rest.size() || !fits ||
        pressure > kMaxPressure) {
        return false;
    }
    before.X += right;
    before.Y += down;
    if (before.X < 0 || before.X > kMaxX || before.Y < 0 || before.Y > kMaxY) {
        return false;
    }
    pointsLeft -= count;
    stroke.Started = static_cast<std::int64_t>(before.Started);
    stroke.Points.resize(count);
    stroke.Points[0] = {static_cast<std::int32_t>(before.X), static_cast<std::int32_t>(before.Y), 0,
                        static_cast<std::uint16_t>(pressure)};
    if (count > 1) {
        const std::size_t taken = UnpackPoints(reader.Rest, stroke.Points);
        reader.Rest = reader.Rest.subspan(taken);
        return taken > 0;
    }
    return true;
}

std::uint32_t ReadChecksum(std::span<const std::uint8_t> bytes) {
    std::uint32_t sum = 0;
    for (std::size_t i = kChecksumSize; i-- > 0;) {
        sum = sum << 8 | bytes[i];
    }
    return sum;
}

} // namespace

std::vector<std::uint8_t> Encode(std::span<const PlacedStroke> strokes) {
    if (strokes.empty()) {
        return {};
    }
    Writer writer;
    writer.Bytes.assign(kSignature.begin(), kSignature.end());
    writer.Bytes.push_back(kVersion);
    writer.Number(strokes.size());
    Before before;
    std::vector<InkPoint> moved;
    for (const PlacedStroke& stroke : strokes) {
        WriteStroke(stroke, before, moved, writer);
    }
    const std::uint32_t sum = Checksum(writer.Bytes);
    for (std::size_t i = 0; i < kChecksumSize; ++i) {
        writer.Bytes.push_back(static_cast<std::uint8_t>(sum >> (8 * i)));
    }
    return std::move(writer.Bytes);
}

Reading Decode(std::span<const std::uint8_t> bytes, std::vector<PlacedStroke>& strokes) {
    strokes.clear();
    if (bytes.empty()) {
        return Reading::Whole;
    }
    if (bytes.size() < kHeaderSize || !std::equal(kSignature.begin(), kSignature.end(), bytes.begin()) ||
        bytes[kSignature.size()] > kVersion) {
        return Reading::Foreign;
    }
    if (bytes.size() < kHeaderSize + kChecksumSize || bytes.size() > kMaxInkBytes ||
        bytes[kSignature.size()] != kVersion) {
        return Reading::Damaged;
    }
    const std::size_t end = bytes.size() - kChecksumSize;
    if (Checksum(bytes.first(end)) != ReadChecksum(bytes.subspan(end))) {
        return Reading::Damaged;
    }
    Reader reader(bytes.subspan(kHeaderSize, end - kHeaderSize));
    const std::uint64_t count = reader.Number();
    Before before;
    std::size_t pointsLeft = kMaxPoints;
    if (count > kMaxStrokes) {
        return Reading::Damaged;
    }
    for (std::uint64_t i = 0; i < count; ++i) {
        Stroke stroke;
        if (!ReadStroke(reader, before, pointsLeft, stroke)) {
            strokes.clear();
            return Reading::Damaged;
        }
        strokes.push_back(Place(std::move(stroke)));
    }
    if (count == 0 || !reader.Good || !reader.Rest.empty()) {
        strokes.clear();
        return Reading::Damaged;
    }
    return Reading::Whole;
}

} // namespace tavo::ink
