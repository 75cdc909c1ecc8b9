// What an undo does with notes that no program of ours wrote.
#include "memo/memo_undo.h"
#include "tests/memo/memo_desk.h"

#include <gtest/gtest.h>

#include <string_view>

namespace tavo::test {
namespace {

constexpr std::u16string_view kMemo = u"\\My Documents\\TavoCalendar\\20040915_101500.pwi";
constexpr std::u16string_view kKept = u"\\My Documents\\TavoCalendar\\Deleted\\20040915_101500 (deleted 20040916).pwi";

class NotesOfMovedMemos : public testing::Test {
  protected:
    NotesOfMovedMemos() {
        IFiles& files = Desk.Device.Host().Files();
        for (const std::u16string_view folder :
             {u"\\My Documents", u"\\My Documents\\TavoCalendar", u"\\My Documents\\TavoCalendar\\Deleted"}) {
            static_cast<void>(files.CreateDirectoryW(folder));
        }
    }

    void Put(std::u16string_view path) {
        const std::vector<std::uint8_t> bytes{1};
        ASSERT_EQ(Desk.Device.Host().Files().WriteWholeFile(path, bytes), ErrorCode::Success);
    }

    bool IsThere(std::u16string_view path) {
        std::vector<std::uint8_t> bytes;
        return Desk.Device.Host().Files().ReadWholeFile(path, bytes) == ErrorCode::Success;
    }

    void ExpectRefused(std::u16string_view path, std::u16string_view kept) {
        Put(kept);
        MemoUndo undo(Desk.State);
        undo.BringBack(EncodeNote(MemoPutAway{std::u16string(path), std::u16string(kept)}));
        EXPECT_EQ(undo.Missing(), 1);
        EXPECT_TRUE(IsThere(kept));
        EXPECT_FALSE(IsThere(path));
    }

    MemoDesk Desk;
};

TEST_F(NotesOfMovedMemos, MoveAMemoBackFromTheDeletedOnes) {
    Put(kKept);
    MemoUndo undo(Desk.State);
    undo.BringBack(EncodeNote(MemoPutAway{std::u16string(kMemo), std::u16string(kKept)}));
    EXPECT_EQ(undo.Missing(), 0);
    EXPECT_TRUE(IsThere(kMemo));
    EXPECT_FALSE(IsThere(kKept));
}

TEST_F(NotesOfMovedMemos, AreTakenAwayAgainOneByOneTheLastFirst) {
    constexpr std::u16string_view kOther = u"\\My Documents\\TavoCalendar\\20040916_101500.pwi";
    constexpr std::u16string_view kOtherKept =
        u"\\My Documents\\TavoCalendar\\Deleted\\20040916_101500 (deleted 20040916).pwi";
    Put(kKept);
    Put(kOtherKept);
    MemoUndo undo(Desk.State);
    undo.BringBack(EncodeNote(MemoPutAway{std::u16string(kMemo), std::u16string(kKept)}));
    undo.BringBack(EncodeNote(MemoPutAway{std::u16string(kOther), std::u16string(kOtherKept)}));
    EXPECT_TRUE(undo.TakeAwayNext());
    EXPECT_TRUE(IsThere(kMemo));
    EXPECT_TRUE(IsThere(kOtherKept));
    EXPECT_FALSE(IsThere(kOther));
    EXPECT_TRUE(undo.TakeAwayNext());
    EXPECT_TRUE(IsThere(kKept));
    EXPECT_FALSE(IsThere(kMemo));
    EXPECT_FALSE(undo.TakeAwayNext());
}

TEST_F(NotesOfMovedMemos, OfAMemoThatIsBackAlreadyAreDoneAndCanBeTakenBack) {
    Put(kMemo); // brought by an undo that a kill cut short
    MemoUndo undo(Desk.State);
    undo.BringBack(EncodeNote(MemoPutAway{std::u16string(kMemo), std::u16string(kKept)}));
    EXPECT_EQ(undo.Missing(), 0);
    EXPECT_TRUE(undo.TakeAwayNext());
    EXPECT_FALSE(IsThere(kMemo));
    EXPECT_TRUE(IsThere(kKept));
}

TEST_F(NotesOfMovedMemos, OfAMemoThatIsNowhereCountItAsMissing) {
    MemoUndo undo(Desk.State);
    undo.BringBack(EncodeNote(MemoPutAway{std::u16string(kMemo), std::u16string(kKept)}));
    EXPECT_EQ(undo.Missing(), 1);
    EXPECT_FALSE(undo.TakeAwayNext());
}

TEST_F(NotesOfMovedMemos, OfAMemoThatNoMoveBringsCountItAsMissingWhateverTookItsPlace) {
    Put(kMemo);
    Put(kKept);
    Desk.Host.OwnFiles.MoveResult = ErrorCode::AccessDenied;
    MemoUndo undo(Desk.State);
    undo.BringBack(EncodeNote(MemoPutAway{std::u16string(kMemo), std::u16string(kKept)}));
    EXPECT_EQ(undo.Missing(), 1);
    EXPECT_FALSE(undo.TakeAwayNext());
}

TEST_F(NotesOfMovedMemos, AreFinalAtTheEnd) {
    Put(kKept);
    MemoUndo undo(Desk.State);
    undo.BringBack(EncodeNote(MemoPutAway{std::u16string(kMemo), std::u16string(kKept)}));
    undo.Settle();
    EXPECT_FALSE(undo.TakeAwayNext());
    EXPECT_TRUE(IsThere(kMemo));
}

TEST_F(NotesOfMovedMemos, MoveNoOtherFile) {
    ExpectRefused(kMemo, u"\\Planted.db");
    ExpectRefused(kMemo, u"\\My Documents\\TavoCalendar\\TavoCalendar.dat");
    ExpectRefused(kMemo, u"\\My Documents\\TavoCalendar\\Deleted\\notes.txt");
}

TEST_F(NotesOfMovedMemos, MoveNoMemoToAnotherPlace) {
    ExpectRefused(u"\\Planted.db", kKept);
    ExpectRefused(u"\\Windows\\x.pwi", kKept);
    ExpectRefused(u"\\My Documents\\TavoCalendar\\TavoCalendar.new", kKept);
}

} // namespace
} // namespace tavo::test
