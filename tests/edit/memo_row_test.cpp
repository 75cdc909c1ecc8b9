// The memo row: an item's ink note on its way to the ink editor and back.
#include "memo/memo_files.h"
#include "tests/edit/edit_desk.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

class MemoRow : public testing::Test {
  protected:
    void TapMemo() { Desk.ShowRow(5); }

    Oid GivenNote(const Bytes& ink) {
        return Desk.GivenAppointment(u"Wake", At(2026, 11, 23, 7, 0), At(2026, 11, 23, 7, 0),
                                     [&](IAppointment& item) { EXPECT_EQ(item.put_BodyInk(ink), Status::Ok); });
    }

    Bytes NoteOf(Oid oid) {
        ComPtr<IAppointment> item;
        Bytes ink;
        EXPECT_EQ(Desk.Connect()->GetItemFromOid(oid, item), Status::Ok);
        EXPECT_EQ(item->get_BodyInk(ink), Status::Ok);
        return ink;
    }

    Bytes BufferNow() {
        const auto bytes = Desk.State.Memo.Bytes();
        return {bytes.begin(), bytes.end()};
    }

    EditDesk Desk;
};

TEST_F(MemoRow, WaitsWhileThereIsNoInkEditor) {
    TapMemo();
    Desk.Check([&] { EXPECT_TRUE(Desk.ShownEditingControls().empty()); });
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL);
}

TEST_F(MemoRow, HandsOverTheItemsInkAndNothingOfAnotherOne) {
    const Oid oid = GivenNote({1, 2, 3});
    Bytes seen;
    Desk.EditInk = [&] {
        seen = BufferNow();
        return IDCANCEL;
    };
    Desk.State.Memo.Fill({9, 9});
    TapMemo();
    Desk.Cancel();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), IDCANCEL);
    EXPECT_EQ(seen, (Bytes{1, 2, 3}));
    Desk.State.Memo.Fill({9, 9});
    TapMemo();
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL);
    EXPECT_TRUE(seen.empty());
}

TEST_F(MemoRow, NewInkReachesTheStoreWithTheItem) {
    const Oid oid = GivenNote({1, 2, 3});
    Desk.EditInk = [&] {
        Desk.State.Memo.Fill({4, 5});
        return IDOK;
    };
    TapMemo();
    Desk.Check([&] { EXPECT_EQ(NoteOf(oid), (Bytes{1, 2, 3})); });
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), IDOK);
    EXPECT_EQ(NoteOf(oid), (Bytes{4, 5}));
}

TEST_F(MemoRow, CancelKeepsTheOldInk) {
    const Oid oid = GivenNote({1, 2, 3});
    Desk.EditInk = [&] {
        Desk.State.Memo.Fill({4, 5});
        return IDOK;
    };
    TapMemo();
    Desk.Cancel();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), IDCANCEL);
    EXPECT_EQ(NoteOf(oid), (Bytes{1, 2, 3}));
}

TEST_F(MemoRow, ACancelledInkEditorChangesNothing) {
    const Oid oid = GivenNote({1, 2, 3});
    Desk.EditInk = [&] {
        Desk.State.Memo.Fill({4, 5});
        return IDCANCEL;
    };
    TapMemo();
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), IDOK);
    EXPECT_EQ(NoteOf(oid), (Bytes{1, 2, 3}));
}

TEST_F(MemoRow, InkThatIsTooLargeIsToldAndTheDialogStays) {
    const Oid oid = GivenNote({1, 2, 3});
    Desk.EditInk = [&] {
        Desk.State.Memo.Fill(Bytes(std::size_t{5} * 1024 * 1024, 7));
        return IDOK;
    };
    TapMemo();
    Desk.Device.AnswerBox(IDOK);
    Desk.Device.AnswerBox(IDNO);
    Desk.Check([&] {
        EXPECT_TRUE(Desk.Device.See.IsDialogOpen());
        EXPECT_EQ(Desk.Messages(),
                  (std::vector<std::u16string>{u"Tavo Calendar|Cannot save. Memo exceeded memory limitation.!",
                                               u"Tavo Calendar|Keep it as a memo of 2026.11.23(Mon) instead?"}));
        EXPECT_EQ(Desk.Device.Host().Seen.Boxes.back().Buttons, MessageBoxButtons::YesNo);
    });
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), IDOK);
    EXPECT_EQ(NoteOf(oid), (Bytes{1, 2, 3}));
    EXPECT_FALSE(MemoFiles(Desk.State).HasMemo(2026, 11, 23));
}

TEST_F(MemoRow, InkThatIsTooLargeCanBecomeAMemoOfTheItemsDay) {
    const Oid oid = GivenNote({1, 2, 3});
    const Bytes ink(std::size_t{5} * 1024 * 1024, 7);
    Desk.EditInk = [&] {
        Desk.State.Memo.Fill(Bytes(ink));
        return IDOK;
    };
    TapMemo();
    Desk.Device.AnswerBox(IDOK);
    Desk.Device.AnswerBox(IDYES);
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), IDOK);
    MemoFiles files(Desk.State);
    ASSERT_EQ(files.FindMemos(2026, 11, 23), std::vector<std::u16string>{u"20261123_094700.pwi"});
    ASSERT_TRUE(files.ReadMemo(files.MemoPath(u"20261123_094700.pwi")));
    EXPECT_EQ(BufferNow(), ink);
}

TEST_F(MemoRow, InkThatWaitsForOkBecomesAMemoWhenTheProgramQuits) {
    const Oid oid = GivenNote({1, 2, 3});
    Desk.EditInk = [&] {
        Desk.State.Memo.Fill({4, 5});
        return IDOK;
    };
    TapMemo();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), kLeftOpen);
    EXPECT_EQ(NoteOf(oid), (Bytes{1, 2, 3}));
    MemoFiles files(Desk.State);
    ASSERT_TRUE(files.ReadMemo(files.MemoPath(u"20261123_094700.pwi")));
    EXPECT_EQ(BufferNow(), (Bytes{4, 5}));
}

TEST_F(MemoRow, ANoteThatWasOnlyThereIsNotKeptWhenTheProgramQuits) {
    const Oid oid = GivenNote({1, 2, 3});
    Desk.EditInk = [] { return IDCANCEL; };
    TapMemo();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), kLeftOpen);
    EXPECT_FALSE(MemoFiles(Desk.State).HasMemo(2026, 11, 23));
}

TEST_F(MemoRow, NewInkOutlivesACancelledWizard) {
    const Oid oid = GivenNote({1, 2, 3});
    Desk.EditInk = [&] {
        Desk.State.Memo.Fill({4, 5});
        return IDOK;
    };
    TapMemo();
    Desk.ChooseRecurrence(kChoiceCustom);
    Desk.TapShown(IDCANCEL);
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), IDOK);
    EXPECT_EQ(NoteOf(oid), (Bytes{4, 5}));
}

TEST_F(MemoRow, OpensByTheSpaceBar) {
    int opened = 0;
    Desk.EditInk = [&] {
        ++opened;
        return IDCANCEL;
    };
    Desk.Device.Key(VK_TAB, kModifierShift);
    Desk.Device.Key(VK_TAB, kModifierShift);
    Desk.Device.Key(VK_TAB, kModifierShift);
    Desk.Device.Key(VK_SPACE);
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL);
    EXPECT_EQ(opened, 1);
}

} // namespace
} // namespace tavo::test
