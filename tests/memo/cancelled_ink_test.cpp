// What was drawn in an ink editor that was cancelled can be had back.
#include "tests/memo/ink_memo_view_desk.h"

#include "memo/memo_file_keeper.h"
#include "memo/memo_undo.h"
#include "tests/support/outlook_probe.h"

#include <filesystem>
#include <iterator>
#include <system_error>

namespace tavo::test {
namespace {

class CancelledInk : public InkMemoView {
  protected:
    // The name of the step that an undo would take back; empty when there is none.
    std::u16string Step() {
        std::u16string name;
        return Succeeded(Desk.State.Store.OutlookApp->GetUndoName(name)) ? name : std::u16string();
    }

    // As the program's own undo does it.
    int Undo() {
        MemoUndo memos(Desk.State);
        LongUndo undo(Desk.State, &memos);
        while (undo.DoNext()) {
        }
        EXPECT_TRUE(undo.IsDone());
        EXPECT_TRUE(Desk.State.Memo.IsEmpty());
        return memos.Missing();
    }

    std::vector<std::uint8_t> Read(std::u16string_view path) {
        EXPECT_TRUE(Desk.Files.ReadMemo(path));
        return Desk.Buffer();
    }

    void DrawAndClose() {
        Desk.Draw();
        Desk.Check([this] { Drawn = Desk.Paper().GetData(); });
        Desk.Device.PressClose();
        EXPECT_EQ(Run(), IDCANCEL);
    }

    // The pieces of ink that are safe from a crash.
    std::ptrdiff_t CountHeld() {
        const std::filesystem::path folder = std::filesystem::path(Desk.Device.Host().Root.Path()) / "Recovery";
        std::error_code none;
        return std::distance(std::filesystem::directory_iterator(folder, none), std::filesystem::directory_iterator());
    }

    std::vector<std::uint8_t> NoteOf(Oid oid) {
        ComPtr<IAppointment> item;
        std::vector<std::uint8_t> ink;
        EXPECT_EQ(Desk.Connect()->GetItemFromOid(oid, item), Status::Ok);
        EXPECT_EQ(item->get_BodyInk(ink), Status::Ok);
        return ink;
    }

    std::vector<std::uint8_t> Drawn;
};

TEST_F(CancelledInk, OfANewMemoComesBackAsAMemoOfItsDay) {
    Editor.Home.Day = At(2004, 9, 20);
    DrawAndClose();
    EXPECT_FALSE(Desk.Files.HasMemo(2004, 9, 20));
    EXPECT_EQ(Step(), u"cancel of a memo");
    EXPECT_EQ(Undo(), 0);
    EXPECT_EQ(Read(Desk.Files.MemoPath(u"20040920_101500.pwi")), Drawn);
    EXPECT_EQ(Step(), u"");
}

// The step is gone from the store before the ink is home.
TEST_F(CancelledInk, IsSafeFromAKillWhileItComesBack) {
    Editor.Home.Day = At(2004, 9, 20);
    DrawAndClose();
    ASSERT_EQ(CountHeld(), 0);
    {
        MemoUndo memos(Desk.State);
        LongUndo undo(Desk.State, &memos);
        ASSERT_TRUE(undo.DoNext());
        EXPECT_EQ(CountHeld(), 1);
    }
    EXPECT_EQ(CountHeld(), 0); // abandoned: the step has it
    EXPECT_EQ(Undo(), 0);
    EXPECT_EQ(CountHeld(), 0);
    EXPECT_EQ(Read(Desk.Files.MemoPath(u"20040920_101500.pwi")), Drawn);
}

TEST_F(CancelledInk, OfAMemoFileGoesBackToIt) {
    Desk.State.Memo.Fill(GivenInk());
    ASSERT_TRUE(Desk.Files.WriteMemo(kMemoName));
    const std::vector<std::uint8_t> before = Desk.Buffer();
    Editor.Home.Memo = kMemoName;
    Desk.Draw(90);
    DrawAndClose();
    EXPECT_EQ(Read(kMemoName), before);
    EXPECT_EQ(Undo(), 0);
    EXPECT_EQ(Read(kMemoName), Drawn);
    EXPECT_EQ(Desk.Files.FindMemos(2004, 9, 15).size(), 1U);
}

TEST_F(CancelledInk, OfAMemoFileThatChangedMeanwhileComesBesideIt) {
    Desk.State.Memo.Fill(GivenInk());
    ASSERT_TRUE(Desk.Files.WriteMemo(kMemoName));
    Editor.Home.Memo = kMemoName;
    DrawAndClose();
    const std::vector<std::uint8_t> other{1, 2, 3};
    Desk.State.Memo.Fill(other);
    ASSERT_TRUE(Desk.Files.WriteMemo(kMemoName));
    EXPECT_EQ(Undo(), 0);
    EXPECT_EQ(Read(kMemoName), other);
    EXPECT_EQ(Read(Desk.Files.MemoPath(u"20040915_101500 2.pwi")), Drawn);
}

TEST_F(CancelledInk, OfAnItemGoesBackToItsNote) {
    const Oid oid = Desk.GivenAppointment(u"Dentist", At(2004, 9, 20, 9), At(2004, 9, 20, 10));
    Editor.Home.Item = oid;
    Editor.Home.Day = At(2004, 9, 20);
    DrawAndClose();
    EXPECT_TRUE(NoteOf(oid).empty());
    EXPECT_EQ(Undo(), 0);
    EXPECT_EQ(NoteOf(oid), Drawn);
    EXPECT_FALSE(Desk.Files.HasMemo(2004, 9, 20));
}

TEST_F(CancelledInk, OfAnItemWhoseNoteWasAnotherBecomesAMemoOfItsDay) {
    const std::vector<std::uint8_t> other{1, 2, 3};
    const Oid oid = Desk.GivenAppointment(u"Dentist", At(2004, 9, 20, 9), At(2004, 9, 20, 10),
                                          [&](IAppointment& item) { EXPECT_EQ(item.put_BodyInk(other), Status::Ok); });
    Editor.Home.Item = oid; // its note was empty when the editor opened
    Editor.Home.Day = At(2004, 9, 20);
    DrawAndClose();
    EXPECT_EQ(Undo(), 0);
    EXPECT_EQ(NoteOf(oid), other);
    EXPECT_EQ(Read(Desk.Files.MemoPath(u"20040920_101500.pwi")), Drawn);
}

TEST_F(CancelledInk, OfAnItemThatIsGoneBecomesAMemoOfItsDay) {
    Editor.Home.Item = 4711;
    Editor.Home.Day = At(2004, 9, 20);
    DrawAndClose();
    EXPECT_EQ(Undo(), 0);
    EXPECT_EQ(Read(Desk.Files.MemoPath(u"20040920_101500.pwi")), Drawn);
}

TEST_F(CancelledInk, WithNothingDrawnThereIsNothingToHaveBack) {
    Desk.State.Memo.Fill(GivenInk());
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
    EXPECT_EQ(Step(), u"");
    EXPECT_TRUE(Desk.Host.Ink().FindRecovered().empty());
}

TEST_F(CancelledInk, OfPaperFromWhichAllWasClearedThereIsNothingToHaveBack) {
    Desk.State.Memo.Fill(GivenInk());
    Desk.Device.PressBarButton(kCommandInputMode);
    Choose(u"Edit", kCommandSelectAll);
    Choose(u"Edit", kCommandClear);
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
    EXPECT_EQ(Step(), u"");
    EXPECT_TRUE(Desk.Host.Ink().FindRecovered().empty());
}

TEST_F(CancelledInk, WhereTheStoreTakesNoStepTheNextStartAsks) {
    ASSERT_EQ(Desk.State.Store.OutlookApp->Begin(u"Under way"), Status::Ok); // groups do not nest
    DrawAndClose();
    ASSERT_EQ(Desk.State.Store.OutlookApp->Abandon(), Status::Ok);
    const std::vector<RecoveredInk> left = Desk.Host.Ink().FindRecovered();
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].Data, Drawn);
}

TEST_F(CancelledInk, WhereTheStoreCannotEndTheStepTheNextStartAsks) {
    const ComPtr<IPOutlookApp> real = Desk.State.Store.OutlookApp;
    OutlookProbe full(real);
    full.EndResult = Status::DiskFull;
    Desk.State.Store.OutlookApp = full.Share();
    DrawAndClose();
    Desk.State.Store.OutlookApp = real;
    ASSERT_EQ(Desk.Host.Ink().FindRecovered().size(), 1U);
    EXPECT_EQ(Step(), u"");
}

TEST_F(CancelledInk, ThatCanGoNowhereIsCountedAndTheNextStartAsks) {
    DrawAndClose();
    Desk.Host.OwnFiles.WriteResult = ErrorCode::DiskFull;
    EXPECT_EQ(Undo(), 1);
    EXPECT_EQ(CountHeld(), 1);
}

} // namespace
} // namespace tavo::test
