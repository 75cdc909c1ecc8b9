// The bytes in which notes about ink and memos are kept: an earlier or a later program reads them, too.
#include "memo/ink_home.h"
#include "memo/note_bytes.h"
#include "memo/undo_notes.h"

#include "tests/support/test_device.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes BytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

Bytes Joined(Bytes bytes, const Bytes& more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
    return bytes;
}

Bytes Shorter(Bytes bytes) {
    bytes.pop_back();
    return bytes;
}

InkHome GivenHome() {
    InkHome home;
    home.Memo = u"\\a\u6642";
    home.Item = 0x01020304;
    home.Day = At(2004, 9, 15);
    home.Before = 0x1122334455667788;
    return home;
}

const Bytes kHome{1,    4,    3,    2,    1, 0xD4, 7,    9, 15,  0x88, 0x77, 0x66, 0x55,
                  0x44, 0x33, 0x22, 0x11, 3, 0,    '\\', 0, 'a', 0,    0x42, 0x66};

TEST(InkHomeBytes, AreVersionItemDayFingerprintAndPath) {
    EXPECT_EQ(EncodeInkHome(GivenHome()), kHome);
    EXPECT_EQ(DecodeInkHome(kHome), GivenHome());
}

TEST(InkHomeBytes, OfALaterProgramAreNotUnderstood) {
    Bytes later = kHome;
    later[0] = 2;
    EXPECT_EQ(DecodeInkHome(later), std::nullopt);
}

TEST(InkHomeBytes, AreNeitherTooFewNorTooMany) {
    EXPECT_EQ(DecodeInkHome(Shorter(kHome)), std::nullopt);
    EXPECT_EQ(DecodeInkHome(Joined(kHome, {0})), std::nullopt);
    EXPECT_EQ(DecodeInkHome({}), std::nullopt);
}

TEST(InkHomeBytes, NameAnItemAsTheStoreNumbersThem) {
    Bytes last = kHome;
    last[1] = last[2] = last[3] = 0xFF;
    last[4] = 0x7F;
    ASSERT_TRUE(DecodeInkHome(last));
    EXPECT_EQ(DecodeInkHome(last)->Item, 0x7FFFFFFF);
    Bytes beyond = kHome;
    beyond[1] = beyond[2] = beyond[3] = 0;
    beyond[4] = 0x80;
    EXPECT_EQ(DecodeInkHome(beyond), std::nullopt);
}

// The values that the hash's authors give.
TEST(InkFingerprint, IsThatOfEveryProgramBefore) {
    EXPECT_EQ(FingerprintOf({}), 0U);
    EXPECT_EQ(FingerprintOf(BytesOf("a")), 0xAF63DC4C8601EC8CU);
    EXPECT_EQ(FingerprintOf(BytesOf("foobar")), 0x85944171F73967E8U);
}

TEST(NoteBytes, OfALongTextKeepItsBeginning) {
    NoteWriter writer;
    writer.PutText(std::u16string(0xFFFF, u'a') + u"b");
    const Bytes bytes = writer.Take();
    ASSERT_EQ(bytes.size(), 2U + 2U * 0xFFFF);
    NoteReader reader(bytes);
    EXPECT_EQ(reader.TakeText(), std::u16string(0xFFFF, u'a'));
    EXPECT_TRUE(reader.IsWhole());
    EXPECT_TRUE(reader.IsAtEnd());
}

TEST(NoteBytes, ThatAreTooFewGiveNothingFromThenOn) {
    const Bytes bytes{1, 2, 3};
    NoteReader reader(bytes);
    EXPECT_EQ(reader.TakeNumber(2), 0x0201U);
    EXPECT_EQ(reader.TakeNumber(2), 0U);
    EXPECT_FALSE(reader.IsWhole());
    EXPECT_EQ(reader.TakeNumber(1), 0U);
    EXPECT_EQ(reader.TakeText(), u"");
    EXPECT_FALSE(reader.IsWhole());
}

TEST(UndoNoteBytes, OfAMemoAreItsTwoPaths) {
    const Bytes bytes{1, 2, 0, 'a', 0, 'b', 0, 1, 0, 'c', 0};
    EXPECT_EQ(EncodeNote(MemoPutAway{u"ab", u"c"}), bytes);
    const UndoNote note = DecodeNote(bytes);
    const auto* memo = std::get_if<MemoPutAway>(&note);
    ASSERT_NE(memo, nullptr);
    EXPECT_EQ(memo->Path, u"ab");
    EXPECT_EQ(memo->Kept, u"c");
    EXPECT_TRUE(std::holds_alternative<std::monostate>(DecodeNote(Shorter(bytes))));
    EXPECT_TRUE(std::holds_alternative<std::monostate>(DecodeNote(Joined(bytes, {0}))));
}

TEST(UndoNoteBytes, OfInkAreItsMomentItsHomeAndTheInk) {
    SYSTEMTIME begun = At(2004, 9, 15, 10, 20);
    begun.Second = 30;
    const Bytes head{2, 0xD4, 7, 9, 15, 10, 20, 30, 25, 0, 0, 0};
    const Bytes bytes = Joined(Joined(head, kHome), {7, 8});
    EXPECT_EQ(EncodeNote(InkCancelled{GivenHome(), begun, {7, 8}}), bytes);
    const UndoNote note = DecodeNote(bytes);
    const auto* ink = std::get_if<InkCancelled>(&note);
    ASSERT_NE(ink, nullptr);
    EXPECT_EQ(ink->Home, GivenHome());
    EXPECT_EQ(ink->Begun, begun);
    EXPECT_EQ(ink->Ink, (Bytes{7, 8}));
}

TEST(UndoNoteBytes, OfNoInkOrOfAHomeCutShortAreNone) {
    const Bytes head{2, 0xD4, 7, 9, 15, 10, 20, 30, 25, 0, 0, 0};
    EXPECT_TRUE(std::holds_alternative<std::monostate>(DecodeNote(Joined(head, kHome))));
    EXPECT_TRUE(std::holds_alternative<std::monostate>(DecodeNote(Joined(head, Shorter(kHome)))));
}

TEST(UndoNoteBytes, OfAnotherKindAreNone) {
    for (const std::uint8_t kind : Bytes{0, 3}) {
        EXPECT_TRUE(std::holds_alternative<std::monostate>(DecodeNote(Bytes{kind, 0, 0, 0, 0}))) << int{kind};
    }
    EXPECT_TRUE(std::holds_alternative<std::monostate>(DecodeNote({})));
}

TEST(MovedMemo, LiesInTheDeletedFolderBesideItsPlace) {
    const auto isFrom = [](std::u16string_view path, std::u16string_view kept) {
        return IsFromDeleted({std::u16string(path), std::u16string(kept)});
    };
    EXPECT_TRUE(isFrom(u"\\My\\a.pwi", u"\\My\\Deleted\\a.pwi"));
    EXPECT_TRUE(isFrom(u"\\My\\a.PwI", u"\\My\\Deleted\\a.PWI"));
    EXPECT_TRUE(isFrom(u"\\My\\\\a.pwi", u"\\My\\\\Deleted\\\\a.pwi")); // the doubled separator is intended
    EXPECT_FALSE(isFrom(u"\\My\\a.txt", u"\\My\\Deleted\\a.pwi"));
    EXPECT_FALSE(isFrom(u"\\My\\a.pwi", u"\\My\\Deleted\\a.pw"));
    EXPECT_FALSE(isFrom(u"\\My\\a.qwi", u"\\My\\Deleted\\a.pwi"));
    EXPECT_FALSE(isFrom(u"\\My\\pwi", u"\\My\\Deleted\\a.pwi"));
    EXPECT_FALSE(isFrom(u"\\My\\../a.pwi", u"\\My\\Deleted\\a.pwi"));
    EXPECT_FALSE(isFrom(u"\\My\\a.pwi", u"\\My\\Deleted\\../a.pwi"));
    EXPECT_FALSE(isFrom(u"\\My\\a.pwi", u"\\My\\Kept\\a.pwi"));
    EXPECT_FALSE(isFrom(u"\\Your\\a.pwi", u"\\My\\Deleted\\a.pwi"));
    EXPECT_FALSE(isFrom(u"", u""));
}

} // namespace
} // namespace tavo::test
