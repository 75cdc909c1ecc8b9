// The bytes of a memo: what goes in comes out, and nothing else is believed.
#include "host/ink/codec.h"

#include "host/ink/checksum.h"
#include "tests/ink/handwriting.h"

#include <gmock/gmock.h>

#include <limits>
#include <string_view>
#include <utility>

namespace tavo::ink {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

using Bytes = std::vector<std::uint8_t>;

Bytes BytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

// With the checksum that belongs to them.
Bytes Sealed(Bytes bytes) {
    const std::uint32_t sum = Checksum(bytes);
    for (int shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<std::uint8_t>(sum >> shift));
    }
    return bytes;
}

Reading Read(const Bytes& bytes) {
    std::vector<PlacedStroke> strokes;
    const Reading reading = Decode(bytes, strokes);
    EXPECT_TRUE(reading == Reading::Whole || strokes.empty());
    return reading;
}

std::vector<Stroke> BodiesOf(const std::vector<PlacedStroke>& placed) {
    std::vector<Stroke> bodies;
    bodies.reserve(placed.size());
    for (const PlacedStroke& stroke : placed) {
        bodies.push_back(*stroke.Body);
    }
    return bodies;
}

TEST(InkChecksum, IsTheKnownOne) {
    EXPECT_EQ(Checksum(BytesOf("123456789")), 0xE3069283U);
    EXPECT_EQ(Checksum({}), 0U);
}

TEST(InkCodec, EmptyPaperHasNoBytes) {
    EXPECT_THAT(Encode({}), IsEmpty());
    EXPECT_EQ(Read({}), Reading::Whole);
}

TEST(InkCodec, OneLineIsExactlyTheseBytes) {
    Stroke stroke;
    stroke.Tool = {PenColor::Red, PenWidth::Broad, true};
    stroke.Started = 100;
    stroke.Points = {{10, 20, 0, 500}, {13, 19, 5, 500}, {16, 18, 10, 510}, {319, 17, 15, 510}};
    const Bytes expected = Sealed({0xF7, 'T',  'I', 'K', 1, // signature, version
                                   1,                       // one stroke
                                   0x1A, 4,                 // red, broad, with pressure; four points
                                   0xC8, 0x01, 20,  40,     // begun at 100, at 10, 20
                                   0xF4, 0x03,              // pressed 500
                                   0x15, 6,    1,   10,     // 3 right, 1 up, 5 later
                                   0x40, 20,                // just so again, pressed 10 more
                                   0x02, 0x58, 0x02});      // 300 further right than expected
    EXPECT_EQ(Encode(std::vector{Place(stroke)}), expected);
    std::vector<PlacedStroke> strokes;
    ASSERT_EQ(Decode(expected, strokes), Reading::Whole);
    ASSERT_THAT(strokes, SizeIs(1));
    EXPECT_EQ(*strokes[0].Body, stroke);
}

TEST(InkCodec, HandwritingComesBackAsItWas) {
    const std::vector<PlacedStroke> written = WriteByHand(300, 60);
    std::vector<PlacedStroke> read;
    ASSERT_EQ(Decode(Encode(written), read), Reading::Whole);
    EXPECT_EQ(BodiesOf(read), BodiesOf(written));
    EXPECT_EQ(read.back().Bounds, written.back().Bounds);
}

TEST(InkCodec, HandwritingTakesAtMostFiveBytesAPoint) {
    const std::size_t bytes = Encode(WriteByHand(1000, 60)).size();
    EXPECT_LE(bytes, 5U * 60'000U);
    RecordProperty("BytesPerThousandPoints", static_cast<int>(bytes / 60));
}

TEST(InkCodec, AMovedStrokeIsWrittenWhereItLies) {
    const PlacedStroke moved = Place(DrawLine(10, 10, 20, 10, 3)).Moved(64, -32);
    std::vector<PlacedStroke> read;
    ASSERT_EQ(Decode(Encode(std::vector{moved}), read), Reading::Whole);
    EXPECT_EQ(read[0].Body->Points[0], (InkPoint{384, 288, 0, kMaxPressure}));
    EXPECT_EQ(read[0].Bounds, moved.Bounds);
}

TEST(InkCodec, TheEdgesOfThePaperAreKept) {
    Stroke stroke;
    stroke.Started = std::numeric_limits<std::int64_t>::min();
    stroke.Points = {{0, 0, 0, 0}, {kMaxX, kMaxY, kMaxStrokeTime, kMaxPressure}, {0, 0, kMaxStrokeTime, 0}};
    Stroke late = stroke;
    late.Started = std::numeric_limits<std::int64_t>::max();
    std::vector<PlacedStroke> read;
    ASSERT_EQ(Decode(Encode(std::vector{Place(stroke), Place(late)}), read), Reading::Whole);
    EXPECT_EQ(BodiesOf(read), (std::vector{stroke, late}));
}

TEST(InkCodec, AStrokeOfAMillionPointsIsReadWhole) {
    const std::vector<PlacedStroke> written = WriteByHand(1, 1'000'000);
    std::vector<PlacedStroke> read;
    ASSERT_TRUE(written[0].Body->Points.back().X <= kMaxX);
    ASSERT_EQ(Decode(Encode(written), read), Reading::Whole);
    EXPECT_EQ(*read[0].Body, *written[0].Body);
}

TEST(InkCodec, OtherBytesAreForeign) {
    EXPECT_EQ(Read(BytesOf("x")), Reading::Foreign);
    EXPECT_EQ(Read(BytesOf("a letter to somebody")), Reading::Foreign);
    EXPECT_EQ(Read(Bytes(1000, 0)), Reading::Foreign);
    EXPECT_EQ(Read({0xF7, 'T', 'I'}), Reading::Foreign);
}

TEST(InkCodec, ANewerVersionIsForeign) {
    EXPECT_EQ(Read(Sealed({0xF7, 'T', 'I', 'K', 2, 1, 2, 3})), Reading::Foreign);
}

TEST(InkCodec, EveryCutIsSeen) {
    const Bytes bytes = Encode(WriteByHand(3, 20));
    for (std::size_t length = 5; length < bytes.size(); ++length) {
        ASSERT_EQ(Read(Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length))), Reading::Damaged);
    }
}

TEST(InkCodec, EveryChangedBitIsSeen) {
    const Bytes bytes = Encode(WriteByHand(2, 10));
    for (std::size_t i = 5; i < bytes.size(); ++i) {
        for (int bit = 0; bit < 8; ++bit) {
            Bytes changed = bytes;
            changed[i] ^= static_cast<std::uint8_t>(1 << bit);
            ASSERT_EQ(Read(changed), Reading::Damaged) << i;
        }
    }
}

TEST(InkCodec, AddedBytesAreSeen) {
    Bytes bytes = Encode(WriteByHand(2, 10));
    bytes.resize(bytes.size() - 4);
    bytes.push_back(0);
    EXPECT_EQ(Read(Sealed(bytes)), Reading::Damaged);
}

// The checksum is right: it guards against accidents, not against malice.
TEST(InkCodec, SealedNonsenseIsRefused) {
    const Bytes header{0xF7, 'T', 'I', 'K', 1};
    const std::vector<Bytes> bodies{
        {},                                                     // no count
        {0},                                                    // no strokes at all
        {1},                                                    // a stroke announced that does not come
        {1, 0x10, 0, 0, 0, 0, 0},                               // without points
        {1, 0x10, 0xFF, 0xFF, 0xFF, 0xFF, 0x0F, 0, 0, 0, 0},    // of billions of points
        {0xFF, 0xFF, 0xFF, 0xFF, 0x0F, 0x10, 1, 0, 0, 0, 0},    // billions of strokes
        {1, 0x1C, 1, 0, 0, 0, 0},                               // of a width that there is not
        {1, 0x30, 1, 0, 0, 0, 0},                               // with a mark that there is not
        {1, 0x10, 1, 0, 1, 0, 0},                               // left of the paper
        {1, 0x10, 1, 0, 0, 1, 0},                               // above it
        {1, 0x10, 1, 0, 0xFE, 0xFF, 0xFF, 0xFF, 0x0F, 0, 0},    // far to the right
        {1, 0x10, 1, 0, 0, 0, 0x80, 0x08},                      // pressed with more than there is
        {1, 0x10, 2, 0, 0, 0, 0, 0x01, 1},                      // a second point left of the paper
        {1, 0x10, 2, 0, 0, 0, 0, 0x10, 1},                      // before the first
        {1, 0x10, 2, 0, 0, 0, 0, 0x40, 1},                      // pressed with less than nothing
        {1, 0x10, 2, 0, 0, 0, 0, 0x03, 0xFE, 0xFF, 0xFF, 0xFF}, // far away
        {1, 0x10, 2, 0, 0, 0, 0, 0x03, 0xFE},                   // cut within a point
        {1, 0x10, 1, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0, 0, 0}, // a number without end
    };
    for (std::size_t i = 0; i < bodies.size(); ++i) {
        Bytes bytes = header;
        bytes.insert(bytes.end(), bodies[i].begin(), bodies[i].end());
        EXPECT_EQ(Read(Sealed(bytes)), Reading::Damaged) << i;
    }
    Bytes good = header;
    good.insert(good.end(), {1, 0x10, 2, 0, 0, 0, 0, 0x01, 2});
    EXPECT_EQ(Read(Sealed(good)), Reading::Whole);
}

} // namespace
} // namespace tavo::ink
