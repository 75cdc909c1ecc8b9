// The bytes of the category file.
#include "store/category_codec.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Bytes = std::vector<std::uint8_t>;

TEST(CategoryCodec, ThreeEmptyLists) {
    const Bytes bytes{0, 0, 0, 0, ';', 0, 0, 0, 0, ';', 0, 0, 0, 0, ';'};
    CategoryFileLists lists;
    EXPECT_TRUE(DecodeCategoryFile(bytes, lists));
    EXPECT_THAT(lists, ElementsAre(IsEmpty(), IsEmpty(), IsEmpty()));
}

TEST(CategoryCodec, NumbersAreLittleEndianAndListsInOrder) {
    const Bytes bytes{2, 0, 0, 0, 0x01, 0x02, 0x03, 0x04, 7,   0, 0, 0, ';', // alarms
                      1, 0, 0, 0, 0x00, 0x01, 0,    0,    ';',               // holidays
                      1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0x7F, ';'};              // anniversaries
    CategoryFileLists lists;
    EXPECT_TRUE(DecodeCategoryFile(bytes, lists));
    EXPECT_THAT(lists, ElementsAre(ElementsAre(0x04030201, 7), ElementsAre(256), ElementsAre(2147483647)));
}

TEST(CategoryCodec, WhatFollowsTheThirdSeparatorIsNotLookedAt) {
    const Bytes bytes{0, 0, 0, 0, ';', 0, 0, 0, 0, ';', 1, 0, 0, 0, 9, 0, 0, 0, ';', 'j', 'u', 'n', 'k'};
    CategoryFileLists lists;
    EXPECT_TRUE(DecodeCategoryFile(bytes, lists));
    EXPECT_THAT(lists, ElementsAre(IsEmpty(), IsEmpty(), ElementsAre(9)));
}

TEST(CategoryCodec, ACutListKeepsWhatWasRead) {
    const Bytes bytes{2, 0, 0, 0, 5, 0, 0, 0};
    CategoryFileLists lists;
    EXPECT_FALSE(DecodeCategoryFile(bytes, lists));
    EXPECT_THAT(lists, ElementsAre(ElementsAre(5), IsEmpty(), IsEmpty()));
}

TEST(CategoryCodec, HalfAnOidIsNoOid) {
    const Bytes bytes{1, 0, 0, 0, 5, 0, 0};
    CategoryFileLists lists;
    EXPECT_FALSE(DecodeCategoryFile(bytes, lists));
    EXPECT_THAT(lists, ElementsAre(IsEmpty(), IsEmpty(), IsEmpty()));
}

TEST(CategoryCodec, ACutCountIsCorrupt) {
    CategoryFileLists lists;
    EXPECT_FALSE(DecodeCategoryFile(Bytes{}, lists));
    EXPECT_FALSE(DecodeCategoryFile(Bytes{0, 0, 0}, lists));
    EXPECT_FALSE(DecodeCategoryFile(Bytes{0, 0, 0, 0, ';', 1, 0}, lists));
}

TEST(CategoryCodec, AMissingOrWrongSeparatorIsCorrupt) {
    CategoryFileLists lists;
    EXPECT_FALSE(DecodeCategoryFile(Bytes{1, 0, 0, 0, 5, 0, 0, 0}, lists));
    EXPECT_THAT(lists, ElementsAre(ElementsAre(5), IsEmpty(), IsEmpty()));
    EXPECT_FALSE(DecodeCategoryFile(Bytes{1, 0, 0, 0, 5, 0, 0, 0, ',', 1, 0, 0, 0, 6, 0, 0, 0, ';'}, lists));
    EXPECT_THAT(lists, ElementsAre(ElementsAre(5), IsEmpty(), IsEmpty()));
}

TEST(CategoryCodec, AMissingOrWrongSeparatorIsCorruptAfterTheLaterListsToo) {
    const Bytes alarms{1, 0, 0, 0, 5, 0, 0, 0, ';'};
    const Bytes holidays{1, 0, 0, 0, 6, 0, 0, 0};
    for (const Bytes& separator : {Bytes{}, Bytes{','}}) {
        Bytes bytes = alarms;
        bytes.insert(bytes.end(), holidays.begin(), holidays.end());
        bytes.insert(bytes.end(), separator.begin(), separator.end());
        CategoryFileLists lists;
        EXPECT_FALSE(DecodeCategoryFile(bytes, lists));
        EXPECT_THAT(lists, ElementsAre(ElementsAre(5), ElementsAre(6), IsEmpty()));
        bytes = {0, 0, 0, 0, ';', 0, 0, 0, 0, ';', 1, 0, 0, 0, 7, 0, 0, 0};
        bytes.insert(bytes.end(), separator.begin(), separator.end());
        EXPECT_FALSE(DecodeCategoryFile(bytes, lists));
        EXPECT_THAT(lists, ElementsAre(IsEmpty(), IsEmpty(), ElementsAre(7)));
    }
}

TEST(CategoryCodec, EarlierSectionsStayWhenALaterOneIsCut) {
    const Bytes bytes{1, 0, 0, 0, 5, 0, 0, 0, ';', 2, 0, 0, 0, 6, 0, 0, 0, 7, 0, 0, 0, ';', 3, 0, 0, 0, 8, 0, 0, 0};
    CategoryFileLists lists;
    EXPECT_FALSE(DecodeCategoryFile(bytes, lists));
    EXPECT_THAT(lists, ElementsAre(ElementsAre(5), ElementsAre(6, 7), ElementsAre(8)));
}

TEST(CategoryCodec, AFileThatClaimsFourThousandMillionEntriesTakesNoMemoryForThem) {
    const Bytes bytes{0xFF, 0xFF, 0xFF, 0xFF, 5, 0, 0, 0, 6, 0, 0, 0};
    CategoryFileLists lists;
    EXPECT_FALSE(DecodeCategoryFile(bytes, lists));
    EXPECT_THAT(lists[0], ElementsAre(5, 6));
    EXPECT_LE(lists[0].capacity(), 1000U);
}

TEST(CategoryCodec, WritesCountsAndOidsLittleEndianEachListClosedByASemicolon) {
    const std::vector<Oid> alarms{0x01020304};
    const std::vector<Oid> anniversaries{8, 2147483647};
    const Bytes expected{1, 0, 0, 0, 4, 3, 2, 1, ';',  0,    0,    0,    0,  ';',
                         2, 0, 0, 0, 8, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0x7F, ';'};
    EXPECT_EQ(EncodeCategoryFile(alarms, {}, anniversaries), expected);
}

TEST(CategoryCodec, ThreeEmptyListsTakeFifteenBytes) {
    const Bytes expected{0, 0, 0, 0, 0x3B, 0, 0, 0, 0, 0x3B, 0, 0, 0, 0, 0x3B};
    EXPECT_EQ(EncodeCategoryFile({}, {}, {}), expected);
}

TEST(CategoryCodec, ACountOf300TakesTwoOfItsFourBytes) {
    const std::vector<Oid> many(300, 5);
    const Bytes bytes = EncodeCategoryFile({}, many, {});
    ASSERT_EQ(bytes.size(), 5U + 4 + 1200 + 1 + 5);
    EXPECT_EQ(bytes[5], 44);
    EXPECT_EQ(bytes[6], 1);
    EXPECT_EQ(bytes[7], 0);
}

TEST(CategoryCodec, WhatTheListsHeldBeforeIsGone) {
    CategoryFileLists lists{std::vector<Oid>{1}, std::vector<Oid>{2}, std::vector<Oid>{3}};
    EXPECT_FALSE(DecodeCategoryFile(Bytes{}, lists));
    EXPECT_THAT(lists, ElementsAre(IsEmpty(), IsEmpty(), IsEmpty()));
}

} // namespace

} // namespace tavo
