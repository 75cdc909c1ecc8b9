// What becomes of an item's new ink at the end of its editor, and of ink that is taken up again.
#include "host/ink/codec.h"
#include "host/ink/recovery_file.h"
#include "host/posix/replace_file.h"
#include "memo/memo_files.h"
#include "tests/edit/laid_aside.h"
#include "tests/edit/memo_row.h"
#include "tests/support/appointment_probe.h"
#include "tests/support/outlook_probe.h"

namespace tavo::test {
namespace {

// One stroke.
Bytes Drawing() {
    ink::Stroke stroke;
    stroke.Points = {{100, 100}, {300, 200}};
    return ink::Encode(std::vector{ink::Place(stroke)});
}

class MemoRowEnd : public MemoRow {
  protected:
    void Draw(Bytes ink) {
        Desk.EditInk = [this, ink = std::move(ink)] {
            Desk.State.Memo.Fill(ink);
            return IDOK;
        };
        TapMemo();
    }

    bool HasMemo() { return MemoFiles(Desk.State).HasMemo(2026, 11, 23); }

    // What the next start would find.
    std::vector<Bytes> InkLeft() {
        std::vector<Bytes> left;
        for (const std::filesystem::path& file : RecoveryFiles()) {
            Bytes bytes;
            EXPECT_EQ(posix::ReadFile(file.string(), 1 << 20, bytes), ErrorCode::Success);
            if (const std::optional<ink::RecoveryContents> contents = ink::ReadRecovery(bytes)) {
                left.push_back(contents->Ink);
            }
        }
        return left;
    }
};

TEST_F(MemoRowEnd, ANewItemsInkBelongsToNoItemYet) {
    Desk.EditInk = [] { return IDCANCEL; };
    TapMemo();
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL);
    EXPECT_EQ(Desk.LastHome.Item, 0);
    EXPECT_EQ(Desk.LastHome.Day.Day, 21);
    EXPECT_EQ(Desk.LastHome.Before, 0U);
}

TEST_F(MemoRowEnd, NewInkIsLaidAsideAtOnceWithWhatWasTyped) {
    Desk.Subject(u"Wake");
    Draw(Drawing());
    Desk.Check([this] {
        const std::vector<FoundDraft> drafts = FindDrafts(Desk.Device.Host());
        ASSERT_EQ(drafts.size(), 1U);
        EXPECT_EQ(drafts[0].Draft.Now.Subject, u"Wake");
        EXPECT_NE(drafts[0].Draft.Ink, u"");
    });
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL);
}

TEST_F(MemoRowEnd, SavedInkIsNoLongerToRecoverWhenTheOwnerIsTold) {
    std::size_t files = 9;
    Desk.WhenTold = [&] { files = RecoveryFiles().size(); };
    Desk.Subject(u"Wake");
    Draw(Drawing());
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDOK);
    EXPECT_EQ(files, 0U);
    EXPECT_EQ(NoteOf(Desk.LastSaved()), Drawing());
}

TEST_F(MemoRowEnd, ToKeepInkAsAMemoIsAskedAgainWhereItCannotBe) {
    const Oid oid = GivenNote({1, 2, 3});
    BlockMemoFolder();
    DrawTooMuch();
    TapMemo();
    Desk.Device.AnswerBox(IDOK);
    Desk.Device.AnswerBox(IDYES);
    Desk.Device.AnswerBox(IDOK);
    Desk.Device.AnswerBox(IDNO);
    Desk.Check([this] {
        const std::u16string question = u"Tavo Calendar|Keep it as a memo of 2026.11.23(Mon) instead?";
        EXPECT_EQ(Desk.Messages(),
                  (std::vector<std::u16string>{u"Tavo Calendar|Cannot save. Memo exceeded memory limitation.!",
                                               question, u"Tavo Calendar|The memo could not be saved.!", question}));
        EXPECT_TRUE(RecoveryFiles().empty());
    });
    Desk.Cancel();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), IDCANCEL);
}

TEST_F(MemoRowEnd, InkThatBecameAMemoAtTheProgramsEndIsNotToRecover) {
    const Oid oid = GivenNote({1, 2, 3});
    Draw(Drawing());
    Desk.Check([this] { Desk.State.Memo.Fill({9}); });
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), kLeftOpen);
    MemoFiles files(Desk.State);
    ASSERT_EQ(files.FindMemos(2026, 11, 23).size(), 1U);
    ASSERT_TRUE(files.ReadMemo(files.MemoPath(files.FindMemos(2026, 11, 23)[0])));
    EXPECT_EQ(BufferNow(), Drawing());
    EXPECT_TRUE(InkLeft().empty());
}

TEST_F(MemoRowEnd, InkThatCannotBecomeAMemoAtTheProgramsEndIsLeftForTheNextStart) {
    const Oid oid = GivenNote({1, 2, 3});
    BlockMemoFolder();
    Draw(Drawing());
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), kLeftOpen);
    EXPECT_EQ(InkLeft(), std::vector<Bytes>(1, Drawing()));
}

TEST_F(MemoRowEnd, ANoteThatWasErasedLeavesNothingAtTheProgramsEnd) {
    const Oid oid = GivenNote({1, 2, 3});
    Draw({});
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), kLeftOpen);
    EXPECT_FALSE(HasMemo());
    EXPECT_TRUE(InkLeft().empty());
}

TEST_F(MemoRowEnd, ACancelledEraseIsNoStepToTakeBack) {
    const Oid oid = GivenNote({1, 2, 3});
    std::u16string before;
    ASSERT_EQ(Desk.State.Store.OutlookApp->GetUndoName(before), Status::Ok);
    Draw({});
    Desk.Cancel();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), IDCANCEL);
    std::u16string after;
    ASSERT_EQ(Desk.State.Store.OutlookApp->GetUndoName(after), Status::Ok);
    EXPECT_EQ(after, before);
    EXPECT_TRUE(InkLeft().empty());
}

TEST_F(MemoRowEnd, CancelledInkThatTheStoreDoesNotNoteIsLeftForTheNextStart) {
    const Oid oid = GivenNote({1, 2, 3});
    const AppointmentData record = Desk.Load(oid);
    const ComPtr<IPOutlookApp> real = Desk.State.Store.OutlookApp;
    OutlookProbe store(real);
    store.EndResult = Status::Fail;
    Desk.State.Store.OutlookApp = store.Share();
    Draw(Drawing());
    Desk.Cancel();
    EXPECT_EQ(Desk.Run(kModeAlarm, record), IDCANCEL);
    Desk.State.Store.OutlookApp = real;
    EXPECT_EQ(InkLeft(), std::vector<Bytes>(1, Drawing()));
}

// Ink that an earlier run of the program held for an item, and the draft that names it.
class InkTakenUp : public MemoRowEnd {
  protected:
    void GivenInk(const InkHome& home) {
        EditDesk earlier;
        Found.Draft.Ink = earlier.Device.Host().Ink().HoldInk(EncodeInkHome(home), Drawing());
        ASSERT_NE(Found.Draft.Ink, u"");
        std::filesystem::copy(std::filesystem::path(earlier.Device.Host().Root.Path()) / "Recovery",
                              std::filesystem::path(Desk.Device.Host().Root.Path()) / "Recovery");
        Desk.Continued = &Found;
    }

    InkHome HomeOf(Oid oid, const Bytes& note) {
        InkHome home;
        home.Item = oid;
        home.Day = At(2026, 11, 23);
        home.Before = FingerprintOf(note);
        return home;
    }

    FoundDraft Found{u"\\Recovery\\x.draft", {}};
};

TEST_F(InkTakenUp, OfANewItemIsSavedWithIt) {
    Found.Draft.Mode = kModeNewAlarm;
    Found.Draft.Now.Subject = u"Wake";
    Found.Draft.Now.Start = At(2026, 11, 23, 7);
    Found.Draft.Now.End = Found.Draft.Now.Start;
    GivenInk(HomeOf(0, {9}));
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDOK);
    EXPECT_EQ(NoteOf(Desk.LastSaved()), Drawing());
    EXPECT_TRUE(InkLeft().empty());
}

TEST_F(InkTakenUp, OfAnItemWhoseNoteIsAsItWasIsSavedWithIt) {
    const Oid oid = GivenNote({1, 2, 3});
    GivenInk(HomeOf(oid, {1, 2, 3}));
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), IDOK);
    EXPECT_EQ(NoteOf(oid), Drawing());
    EXPECT_TRUE(InkLeft().empty());
}

TEST_F(InkTakenUp, OfAnItemWhoseNoteChangedMeanwhileStaysToBeAskedAbout) {
    const Oid oid = GivenNote({1, 2, 3});
    GivenInk(HomeOf(oid, {1, 2}));
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), IDOK);
    EXPECT_EQ(NoteOf(oid), (Bytes{1, 2, 3}));
    EXPECT_EQ(InkLeft(), std::vector<Bytes>(1, Drawing()));
}

TEST_F(InkTakenUp, ThatIsNoLongerThereLeavesTheNoteAsItIs) {
    const Oid oid = GivenNote({1, 2, 3});
    GivenInk(HomeOf(oid, {1, 2, 3}));
    Found.Draft.Ink = u"another.ink";
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), IDOK);
    EXPECT_EQ(NoteOf(oid), (Bytes{1, 2, 3}));
    EXPECT_EQ(InkLeft(), std::vector<Bytes>(1, Drawing()));
}

TEST_F(InkTakenUp, OfAnItemWhoseNoteCannotBeReadStaysToBeAskedAbout) {
    const Oid oid = GivenNote({1, 2, 3});
    const AppointmentData record = Desk.Load(oid);
    const ComPtr<IPOutlookApp> real = Desk.State.Store.OutlookApp;
    ComPtr<IAppointment> item;
    ASSERT_EQ(real->GetItemFromOid(oid, item), Status::Ok);
    AppointmentProbe unreadable(*item);
    unreadable.InkResult = Status::Corrupt;
    OutlookProbe store(real);
    store.Item = &unreadable;
    Desk.State.Store.OutlookApp = store.Share();
    GivenInk(HomeOf(oid, {}));
    Desk.Ok();
    EXPECT_EQ(Desk.Run(kModeAlarm, record), IDOK);
    Desk.State.Store.OutlookApp = real;
    EXPECT_EQ(NoteOf(oid), (Bytes{1, 2, 3}));
    EXPECT_EQ(InkLeft(), std::vector<Bytes>(1, Drawing()));
}

} // namespace
} // namespace tavo::test
