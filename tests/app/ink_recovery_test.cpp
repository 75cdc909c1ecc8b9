// What the start does about ink that a crash left.
#include "memo/memo_files.h"
#include "tests/app/recovery_fixture.h"
#include "tests/support/folder_probe.h"
#include "tests/support/host_probe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace tavo::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class InkRecoveryAtStart : public RecoveryAtStart {
  protected:
    // What a program that dies while somebody writes a memo leaves behind, on another device.
    void GivenUnsavedMemo(const std::string& name = "unsaved") {
        RunningProgram dying(At(2004, 9, 15, 10, 15));
        ASSERT_TRUE(dying.Start());
        dying.ShowPage(PageNumber::Calendar);
        dying.Device.Key(VK_RETURN);
        dying.Device.ChooseTracked(kCommandAddMemo);
        dying.Device.Do([&] {
            DrawOn(dying);
            fs::create_directories(RecoveryOf(Program));
            for (const auto& entry : fs::directory_iterator(RecoveryOf(dying))) {
                if (entry.is_regular_file()) {
                    fs::copy_file(entry, RecoveryOf(Program) / (name + entry.path().filename().string()));
                }
            }
        });
        dying.Device.PressClose();
        ASSERT_TRUE(dying.Settle());
    }

    std::vector<std::u16string> Memos() { return MemoFiles(Program.State()).FindMemos(2004, 9, 15); }

    // Whether the pages of the running program are asked to show what changed.
    bool LooksAgain(CTavoApp& app) {
        const AskedRestrictions asked(app.ProgramState().Store.CalendarFolder);
        Program.Device.AdvanceClock(600);
        EXPECT_TRUE(Program.Device.Finish(app.MessagePump()));
        return !asked.Texts.empty();
    }

    bool LooksAgain() { return LooksAgain(*Program.App); }

    // The program is killed while this memo of today is drawn on.
    void GivenKilledOverMemo() {
        Program.WriteFile(kMemo, "of another program");
        GivenKilled([&] {
            Program.ShowPage(PageNumber::Calendar);
            Program.Device.Key(VK_RETURN);
            Program.Device.ChooseTracked(kCommandFirstMemo);
            Program.Device.Do([this] { DrawOn(Program); });
        });
    }

    static constexpr const char* kMemo = "20041103_080000.pwi";
};

TEST_F(InkRecoveryAtStart, WhatIsKeptBecomesAMemoOfTheDayOnWhichItWasWritten) {
    GivenUnsavedMemo();
    Program.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), ElementsAre(u"Tavo Calendar|A memo of 2004.09.15(Wed) was not saved. Keep it?"));
    EXPECT_THAT(Memos(), ElementsAre(u"20040915_101500.pwi"));
    EXPECT_TRUE(Program.State().Memo.IsEmpty());
    EXPECT_TRUE(LooksAgain());
    ExpectNothingAskedAgain();
}

TEST_F(InkRecoveryAtStart, WhereNothingCanBeWrittenItIsToldAndAskedAboutAgain) {
    GivenUnsavedMemo();
    HostProbe full(Program.Device.Host());
    Program.Device.Do([&] { full.OwnFiles.WriteResult = ErrorCode::DiskFull; }); // while it is asked
    Program.Device.AnswerBox(IDYES);
    Program.Device.AnswerBox(IDOK);
    {
        CTavoApp app(full);
        ASSERT_EQ(app.InitInstance(), CTavoApp::Start::Running);
        ASSERT_TRUE(Program.Device.Finish(app.MessagePump()));
        EXPECT_FALSE(LooksAgain(app));
        app.ExitInstance();
    }
    EXPECT_THAT(Boxes(), ElementsAre(u"Tavo Calendar|A memo of 2004.09.15(Wed) was not saved. Keep it?",
                                     u"Tavo Calendar|The memo could not be saved. You will be asked again."));
    Program.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Memos(), ElementsAre(u"20040915_101500.pwi"));
}

TEST_F(InkRecoveryAtStart, WhatIsDeclinedIsNoMemoAndNotAskedAboutAgain) {
    GivenUnsavedMemo();
    Program.Device.AnswerBox(IDNO);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Memos(), IsEmpty());
    EXPECT_FALSE(LooksAgain());
    EXPECT_FALSE(fs::is_empty(RecoveryOf(Program) / "Declined"));
    ExpectNothingAskedAgain();
}

TEST_F(InkRecoveryAtStart, NoMemoTakesThePlaceOfAnother) {
    GivenUnsavedMemo("a");
    GivenUnsavedMemo("b");
    Program.WriteFile("20040915_101500.pwi", "there before");
    Program.Device.AnswerBox(IDYES);
    Program.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Memos(), UnorderedElementsAre(u"20040915_101500.pwi", u"20040915_101501.pwi", u"20040915_101502.pwi"));
    EXPECT_EQ(Program.ReadFile("20040915_101500.pwi"), "there before");
}

TEST_F(InkRecoveryAtStart, WithNothingLeftNothingIsAsked) {
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(InkRecoveryAtStart, ANewMemoBecomesOneOfTheDayThatWasSelected) {
    GivenKilled([this] {
        Program.ShowPage(PageNumber::Calendar);
        Program.Device.Key(VK_RIGHT, kModifierControl); // the 4th
        Program.Device.Key(VK_RETURN);
        Program.Device.ChooseTracked(kCommandAddMemo);
        Program.Device.Do([this] { DrawOn(Program); });
    });
    Program.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), ElementsAre(u"Tavo Calendar|A memo of 2004.11.04(Thu) was not saved. Keep it?"));
    EXPECT_THAT(MemoFiles(Program.State()).FindMemos(2004, 11, 4), ElementsAre(u"20041104_171000.pwi"));
}

TEST_F(InkRecoveryAtStart, InkOfAMemoFileGoesBackToIt) {
    GivenKilledOverMemo();
    Program.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(Boxes().size(), 1U);
    EXPECT_NE(Program.ReadFile(kMemo), "of another program");
    EXPECT_THAT(MemoFiles(Program.State()).FindMemos(2004, 11, 3), ElementsAre(u"20041103_080000.pwi"));
    ExpectNothingAskedAgain();
}

TEST_F(InkRecoveryAtStart, InkOfAMemoFileThatChangedMeanwhileComesBesideIt) {
    GivenKilledOverMemo();
    Program.WriteFile(kMemo, "newer");
    Program.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(Program.ReadFile(kMemo), "newer");
    EXPECT_THAT(MemoFiles(Program.State()).FindMemos(2004, 11, 3),
                UnorderedElementsAre(u"20041103_080000.pwi", u"20041103_080000 2.pwi"));
}

// Killed between writing the memo and letting go of what was kept for a crash.
TEST_F(InkRecoveryAtStart, InkThatIsWhereItBelongsIsNotAskedAbout) {
    GivenKilledOverMemo();
    const std::vector<RecoveredInk> left = Program.Device.Host().Ink().FindRecovered();
    ASSERT_EQ(left.size(), 1U);
    Program.WriteFile(kMemo, std::string(left[0].Data.begin(), left[0].Data.end()));
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_THAT(Program.Device.Host().Ink().FindRecovered(), IsEmpty());
    ExpectNothingAskedAgain();
}

TEST_F(InkRecoveryAtStart, InkThatWaitedForItsItemGoesBackToTheItem) {
    const Oid oid = Program.GivenAppointment(u"Dentist", At(2004, 11, 3, 9), At(2004, 11, 3, 10));
    GivenKilled([this] {
        Program.ShowPage(PageNumber::Calendar);
        Program.Device.Key(VK_RETURN);
        Program.Device.ChooseTracked(kCommandFirstSchedule);
        Program.Device.Key(VK_F1 + 1); // modify
        OpenMemoRow(Program);
        Program.Device.Do([this] {
            ASSERT_EQ(Program.Device.See.Caption(), u"Memo");
            DrawOn(Program);
        });
        Program.Device.PressOk();
        Program.Device.Do([this] { EXPECT_NE(Program.Device.See.Caption(), u"Memo"); });
    });
    const std::vector<RecoveredInk> left = Program.Device.Host().Ink().FindRecovered();
    ASSERT_EQ(left.size(), 1U);
    Program.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(Boxes().size(), 1U);
    EXPECT_EQ(NoteOf(oid), left[0].Data);
    EXPECT_FALSE(MemoFiles(Program.State()).HasMemo(2004, 11, 3));
}

} // namespace
} // namespace tavo::test
