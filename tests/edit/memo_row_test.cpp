// The memo row: an item's ink note on its way to the ink editor and back.
#include "host/ink/recovery_file.h"
#include "host/posix/replace_file.h"
#include "memo/memo_files.h"
#include "memo/memo_undo.h"
#include "tests/edit/memo_row.h"
#include "tests/support/appointment_probe.h"
#include "tests/support/outlook_probe.h"

namespace tavo::test {
namespace {

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

TEST_F(MemoRow, TellsTheInkEditorWhatTheInkBelongsTo) {
    const Oid oid = GivenNote({1, 2, 3});
    Desk.EditInk = [] { return IDCANCEL; };
    TapMemo();
    Desk.Cancel();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), IDCANCEL);
    EXPECT_EQ(Desk.LastHome.Item, oid);
    EXPECT_EQ(Desk.LastHome.Day.Day, 23);
    EXPECT_EQ(Desk.LastHome.Before, FingerprintOf(Bytes{1, 2, 3}));
    EXPECT_EQ(Desk.LastHome.Memo, u"");
}

TEST_F(MemoRow, InkThatNobodyChangedIsNotKeptWhenTheProgramQuits) {
    const Oid oid = GivenNote({1, 2, 3});
    Desk.EditInk = [] { return IDOK; };
    TapMemo();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), kLeftOpen);
    EXPECT_FALSE(MemoFiles(Desk.State).HasMemo(2026, 11, 23));
}

TEST_F(MemoRow, InkThatWaitsForOkSurvivesAKillUntilTheItemIsSaved) {
    const Oid oid = GivenNote({1, 2, 3});
    Desk.EditInk = [&] {
        Desk.State.Memo.Fill({4, 5});
        return IDOK;
    };
    std::vector<std::filesystem::path> meanwhile;
    std::vector<std::uint8_t> bytes;
    TapMemo();
    Desk.Check([&] {
        meanwhile = RecoveryFiles();
        ASSERT_EQ(meanwhile.size(), 1U);
        EXPECT_EQ(posix::ReadFile(meanwhile[0].string(), 1 << 20, bytes), ErrorCode::Success);
    });
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), IDOK);
    const std::optional<ink::RecoveryContents> left = ink::ReadRecovery(bytes);
    ASSERT_TRUE(left);
    EXPECT_EQ(DecodeInkHome(left->Home)->Item, oid);
    EXPECT_EQ(DecodeInkHome(left->Home)->Before, FingerprintOf(Bytes{1, 2, 3}));
    EXPECT_TRUE(RecoveryFiles().empty());
}

TEST_F(MemoRow, ACancelledItemLeavesNoInkToRecoverButAStepThatBringsIt) {
    const Oid oid = GivenNote({1, 2, 3});
    Desk.EditInk = [&] {
        Desk.State.Memo.Fill({4, 5});
        return IDOK;
    };
    TapMemo();
    Desk.Cancel();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), IDCANCEL);
    EXPECT_TRUE(RecoveryFiles().empty());
    EXPECT_EQ(NoteOf(oid), (Bytes{1, 2, 3}));
    MemoUndo memos(Desk.State);
    LongUndo undo(Desk.State, &memos);
    while (undo.DoNext()) {
    }
    EXPECT_TRUE(undo.IsDone());
    EXPECT_EQ(NoteOf(oid), (Bytes{4, 5}));
}

TEST_F(MemoRow, ANoteThatCannotBeReadIsToldAndStaysAsItIs) {
    const Oid oid = GivenNote({1, 2, 3});
    int opened = 0;
    Desk.EditInk = [&] {
        ++opened;
        Desk.State.Memo.Empty();
        return IDOK;
    };
    const ComPtr<IPOutlookApp> real = Desk.State.Store.OutlookApp;
    ComPtr<IAppointment> item;
    ASSERT_EQ(real->GetItemFromOid(oid, item), Status::Ok);
    AppointmentProbe unreadable(*item);
    unreadable.InkResult = Status::Corrupt;
    OutlookProbe store(real);
    store.Item = &unreadable;
    const AppointmentData record = Desk.Load(oid);
    Desk.State.Store.OutlookApp = store.Share();
    TapMemo();
    Desk.Device.AnswerBox(IDOK);
    Desk.Ok();
    EXPECT_EQ(Desk.Run(kModeAlarm, record), IDOK);
    Desk.State.Store.OutlookApp = real;
    EXPECT_EQ(opened, 0);
    EXPECT_EQ(Desk.Messages(), (std::vector<std::u16string>{u"Tavo Calendar|This memo could not be read.!"}));
    EXPECT_EQ(NoteOf(oid), (Bytes{1, 2, 3}));
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
    DrawTooMuch();
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

TEST_F(MemoRow, InkThatIsTooLargeSurvivesAKillUntilItIsAnswered) {
    const Oid oid = GivenNote({1, 2, 3});
    DrawTooMuch();
    TapMemo();
    Desk.Check([&] { EXPECT_EQ(RecoveryFiles().size(), 1U); });
    Desk.Device.AnswerBox(IDOK);
    Desk.Check([&] { EXPECT_EQ(RecoveryFiles().size(), 1U); });
    Desk.Device.AnswerBox(IDNO);
    Desk.Check([&] { EXPECT_TRUE(RecoveryFiles().empty()); });
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), IDOK);
}

TEST_F(MemoRow, InkThatIsTooLargeAndCannotBeAMemoEitherIsLeftForTheNextStart) {
    const Oid oid = GivenNote({1, 2, 3});
    BlockMemoFolder();
    DrawTooMuch();
    TapMemo();
    Desk.Device.AnswerBox(IDOK);
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), kLeftOpen); // at the question
    EXPECT_EQ(RecoveryFiles().size(), 1U);
}

// An item whose note can be written, and from `Break` on no longer be read.
class UnreadableNewInk : public MemoRow {
  protected:
    void DrawAndBreak() {
        Desk.EditInk = [this] {
            Desk.State.Memo.Fill({4, 5});
            return IDOK;
        };
        ASSERT_EQ(Real->GetItemFromOid(Oid, Item), Status::Ok);
        Probe.emplace(*Item);
        Store.Item = &*Probe;
        Desk.State.Store.OutlookApp = Store.Share();
        TapMemo();
        Desk.Check([this] { Probe->InkResult = Status::Corrupt; });
    }

    void ExpectInkLeft() {
        Desk.State.Store.OutlookApp = Real;
        ASSERT_EQ(RecoveryFiles().size(), 1U);
        Bytes bytes;
        EXPECT_EQ(posix::ReadFile(RecoveryFiles()[0].string(), 1 << 20, bytes), ErrorCode::Success);
        const std::optional<ink::RecoveryContents> left = ink::ReadRecovery(bytes);
        ASSERT_TRUE(left);
        EXPECT_EQ(DecodeInkHome(left->Home)->Item, Oid);
    }

    const tavo::Oid Oid = GivenNote({1, 2, 3});
    const AppointmentData Record = Desk.Load(Oid);
    const ComPtr<IPOutlookApp> Real = Desk.State.Store.OutlookApp;
    ComPtr<IAppointment> Item;
    std::optional<AppointmentProbe> Probe;
    OutlookProbe Store{Real};
};

TEST_F(UnreadableNewInk, IsLeftForTheNextStartWhenTheItemIsCancelled) {
    DrawAndBreak();
    Desk.Cancel();
    EXPECT_EQ(Desk.Run(kModeAlarm, Record), IDCANCEL);
    ExpectInkLeft();
}

TEST_F(UnreadableNewInk, IsLeftForTheNextStartWhenTheProgramQuits) {
    DrawAndBreak();
    EXPECT_EQ(Desk.Run(kModeAlarm, Record), kLeftOpen);
    ExpectInkLeft();
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

TEST_F(MemoRow, OpensByTheSpaceBarAlone) {
    int opened = 0;
    Desk.EditInk = [&] {
        ++opened;
        return IDCANCEL;
    };
    Desk.Device.Key(VK_SPACE); // no row is chosen yet
    for (int step = 0; step < 3; ++step) {
        Desk.Device.Key(VK_TAB, kModifierShift);
    }
    Desk.Device.Key(VK_LEFT);
    Desk.Check([&] { EXPECT_EQ(opened, 0); });
    Desk.Device.Key(VK_SPACE);
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL);
    EXPECT_EQ(opened, 1);
}

} // namespace
} // namespace tavo::test
