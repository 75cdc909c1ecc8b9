// Ink as a picture for programs that know nothing of ink.
#include "host/ink/codec.h"
#include "host/ink/ink_drawing.h"
#include "tests/ink/handwriting.h"

#include <gmock/gmock.h>

namespace tavo::ink {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(InkDrawing, IsASvgDocumentAsLargeAsTheInk) {
    const std::string picture = DrawAsSvg(Encode(WriteByHand(3, 10)));
    EXPECT_THAT(picture, AllOf(StartsWith("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\""), EndsWith("</g></svg>"),
                               HasSubstr("<path ")));
}

TEST(InkDrawing, ALineIsWhereItWasDrawnWithAMarginAround) {
    const std::string picture = DrawAsSvg(Encode(std::vector<PlacedStroke>{Place(DrawLine(10, 20, 30, 20, 2))}));
    EXPECT_EQ(picture, "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"24.00\" height=\"4.00\">"
                       "<g fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">"
                       "<path stroke=\"#000000\" stroke-width=\"1.80\" d=\"M2.00 2.00L22.00 2.00\"/></g></svg>");
}

TEST(InkDrawing, BytesThatAreNoInkAreNoPicture) {
    const std::vector<std::uint8_t> bytes{1, 2, 3};
    EXPECT_EQ(DrawAsSvg(std::span<const std::uint8_t>(bytes)), "");
}

} // namespace
} // namespace tavo::ink
