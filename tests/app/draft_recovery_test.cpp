// What the start does about an edit that the program's end or a crash cut short.
#include "edit/draft_file.h"
#include "tests/app/recovery_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <iterator>

namespace tavo::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

constexpr std::u16string_view kQuestion = u"Tavo Calendar|An alarm of 2004.11.03(Wed) was not saved. Go on with it?";

class DraftRecoveryAtStart : public RecoveryAtStart {
  protected:
    // An alarm is being made; its subject is typed.
    static void BeginAlarm(RunningProgram& program) {
        program.Device.Key('1', kModifierControl);
        program.Device.Tap(100, 20);
        program.Device.TypeInto(kEditSubject, u"Wake up");
    }

    // What the other program's end leaves is on this device.
    void QuitAndInherit(RunningProgram& other) {
        other.Device.Quit();
        EXPECT_FALSE(other.Settle());
        other.Stop();
        fs::remove_all(RecoveryOf(Program));
        fs::copy(RecoveryOf(other), RecoveryOf(Program), fs::copy_options::recursive);
    }

    void GivenQuitDuringAlarm() {
        RunningProgram other(At(2004, 11, 3, 17, 10));
        ASSERT_TRUE(other.Start());
        BeginAlarm(other);
        QuitAndInherit(other);
    }
};

TEST_F(DraftRecoveryAtStart, WhatWasTypedWhenTheProgramQuitIsGoneOnWithAndSaved) {
    GivenQuitDuringAlarm();
    Program.Device.AnswerBox(IDYES);
    Program.Device.Do([this] { EXPECT_EQ(Program.Device.See.TextOf(kEditSubject), u"Wake up"); });
    Program.Device.TapControl(IDOK);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), ElementsAre(kQuestion));
    EXPECT_EQ(Program.State().Categories.AlarmList.Size(), 1U);
    EXPECT_EQ(Program.State().Store.CountAppointments(), 1);
    ExpectNothingAskedAgain();
}

TEST_F(DraftRecoveryAtStart, CancelLetsGoOfIt) {
    GivenQuitDuringAlarm();
    Program.Device.AnswerBox(IDYES);
    Program.Device.TapControl(IDCANCEL);
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(Program.State().Store.CountAppointments(), 0);
    ExpectNothingAskedAgain();
}

TEST_F(DraftRecoveryAtStart, WhatIsDeclinedLiesInAFolderAndIsNotAskedAboutAgain) {
    GivenQuitDuringAlarm();
    Program.Device.AnswerBox(IDNO);
    ASSERT_TRUE(Program.Start());
    EXPECT_FALSE(fs::is_empty(RecoveryOf(Program) / "Declined"));
    ExpectNothingAskedAgain();
}

TEST_F(DraftRecoveryAtStart, AProgramThatQuitsAtTheQuestionAsksAgain) {
    GivenQuitDuringAlarm();
    RunningProgram asking(At(2004, 11, 3, 17, 15));
    fs::copy(RecoveryOf(Program), RecoveryOf(asking));
    asking.Device.Quit();
    EXPECT_FALSE(asking.Start());
    asking.Stop();
    fs::remove_all(RecoveryOf(Program));
    fs::copy(RecoveryOf(asking), RecoveryOf(Program));
    Program.Device.AnswerBox(IDNO);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), ElementsAre(kQuestion));
}

TEST_F(DraftRecoveryAtStart, AProgramThatQuitsInTheEditorItOpenedAsksAgain) {
    GivenQuitDuringAlarm();
    RunningProgram second(At(2004, 11, 3, 17, 15));
    fs::copy(RecoveryOf(Program), RecoveryOf(second));
    second.Device.AnswerBox(IDYES);
    second.Device.Tap(100, 20);
    second.Device.TypeInto(kEditSubject, u"Wake up early");
    second.Device.Quit();
    EXPECT_FALSE(second.Start());
    second.Stop();
    fs::remove_all(RecoveryOf(Program));
    fs::copy(RecoveryOf(second), RecoveryOf(Program));
    Program.Device.AnswerBox(IDYES);
    Program.Device.Do([this] { EXPECT_EQ(Program.Device.See.TextOf(kEditSubject), u"Wake up early"); });
    Program.Device.TapControl(IDOK);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), ElementsAre(kQuestion));
    ExpectNothingAskedAgain();
}

TEST_F(DraftRecoveryAtStart, WhatAKillLeftIsGoneOnWith) {
    GivenKilled([this] {
        BeginAlarm(Program);
        Program.Device.AdvanceClock(1000);
    });
    Program.Device.AnswerBox(IDYES);
    Program.Device.Do([this] { EXPECT_EQ(Program.Device.See.TextOf(kEditSubject), u"Wake up"); });
    Program.Device.TapControl(IDOK);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), ElementsAre(kQuestion));
    EXPECT_EQ(Program.State().Categories.AlarmList.Size(), 1U);
}

TEST_F(DraftRecoveryAtStart, AnItemThatIsGoneMeanwhileIsMadeAnew) {
    {
        RunningProgram other(At(2004, 11, 3, 17, 10));
        const Oid oid = other.GivenAppointment(u"Call", At(2004, 11, 4, 9), At(2004, 11, 4, 10));
        ASSERT_TRUE(other.Start());
        other.Device.RequestItem(oid);
        other.Device.Tap(226, 26); // modify
        other.Device.Tap(100, 20);
        other.Device.TypeInto(kEditSubject, u"Call back");
        QuitAndInherit(other);
    }
    Program.Device.AnswerBox(IDYES);
    Program.Device.TapControl(IDOK);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), ElementsAre(u"Tavo Calendar|An appointment of 2004.11.04(Thu) was not saved. Go on with it?"));
    AppointmentData record;
    ASSERT_EQ(Program.State().Store.LoadAppointment(1, record), 1);
    EXPECT_EQ(record.Subject, u"Call back");
    EXPECT_EQ(record.Start.Hour, 9);
}

// An item of the store whose subject was being changed.
class DraftOfAnItem : public DraftRecoveryAtStart {
  protected:
    void GivenKilledWhileChanging(
        const std::function<Oid()>& give, const std::function<void()>& more = [] {}) {
        GivenKilled([&] {
            EXPECT_EQ(give(), kItem);
            Program.Device.RequestItem(kItem);
            Program.Device.Tap(226, 26); // modify
            Program.Device.Tap(100, 20);
            Program.Device.TypeInto(kEditSubject, u"Call back");
            Program.Device.AdvanceClock(1000);
            more();
        });
    }

    Oid GivenCall() { return Program.GivenAppointment(u"Call", At(2004, 11, 4, 9), At(2004, 11, 4, 10)); }

    Oid GivenCallEveryThreeWeeks() {
        return Program.GivenSeries(u"Call", At(2004, 11, 4, 9), At(2004, 11, 4, 10), kRecursWeekly,
                                   [](IRecurrencePattern& pattern) {
                                       EXPECT_EQ(pattern.put_Interval(3), Status::Ok);
                                       EXPECT_EQ(pattern.put_NoEndDate(false), Status::Ok);
                                       EXPECT_EQ(pattern.put_Occurrences(5), Status::Ok);
                                   });
    }

    ComPtr<IAppointment> Stored(Oid oid) {
        ComPtr<IAppointment> item;
        EXPECT_EQ(Program.Connect()->GetItemFromOid(oid, item), Status::Ok);
        return item;
    }

    ComPtr<IRecurrencePattern> PatternOf(IAppointment& item) {
        ComPtr<IRecurrencePattern> pattern;
        EXPECT_EQ(item.GetRecurrencePattern(pattern), Status::Ok);
        return pattern;
    }

    static constexpr Oid kItem = 1;

    AppointmentData Saved(Oid oid) {
        AppointmentData record;
        EXPECT_EQ(Program.State().Store.LoadAppointment(oid, record), oid);
        return record;
    }
};

TEST_F(DraftOfAnItem, AStoreThatCannotReadItNowIsToldAndTheDraftStays) {
    GivenKilledWhileChanging([this] { return GivenCall(); });
    Program.Device.AnswerBox(IDYES);
    Program.Device.AnswerBox(IDOK);
    Program.RunWithItemsLocked();
    EXPECT_EQ(Boxes().back(), u"Tavo Calendar|The item cannot be read now. You will be asked again.");
    Program.Device.AnswerBox(IDYES);
    Program.Device.TapControl(IDOK);
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(Saved(kItem).Subject, u"Call back");
    ExpectNothingAskedAgain();
}

TEST_F(DraftOfAnItem, OfASeriesThatIsGoneItsRuleIsKept) {
    GivenKilledWhileChanging([this] { return GivenCallEveryThreeWeeks(); });
    Program.Delete(kItem);
    Program.Device.AnswerBox(IDYES);
    Program.Device.TapControl(IDOK);
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(Boxes().size(), 1U);
    const AppointmentData saved = Saved(kItem + 1);
    EXPECT_EQ(saved.Subject, u"Call back");
    EXPECT_EQ(saved.RecurType, kRecursWeekly);
    EXPECT_EQ(saved.Interval, 3);
    std::int32_t count = 0;
    EXPECT_EQ(PatternOf(*Stored(kItem + 1))->get_Occurrences(count), Status::Ok);
    EXPECT_EQ(count, 5);
}

TEST_F(DraftOfAnItem, ARuleThatWasNotChangedStaysAsItIsStored) {
    GivenKilledWhileChanging([this] { return GivenCallEveryThreeWeeks(); });
    const ComPtr<IAppointment> item = Stored(kItem);
    ASSERT_EQ(PatternOf(*item)->put_Interval(4), Status::Ok); // newer than the draft
    ASSERT_EQ(item->Save(), Status::Ok);
    Program.Device.AnswerBox(IDYES);
    Program.Device.TapControl(IDOK);
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(Saved(kItem).Subject, u"Call back");
    EXPECT_EQ(Saved(kItem).Interval, 4);
}

// What a draft cannot say.
TEST_F(DraftOfAnItem, OfASeriesByAnotherCalendarsRuleThatIsGoneItIsToldThatTheRuleIsLost) {
    GivenKilledWhileChanging([this] { return GivenCallEveryThreeWeeks(); });
    Program.Delete(kItem);
    FoundDraft draft = FindDrafts(Program.Device.Host()).at(0);
    draft.Draft.Opened.Rule.reset();
    draft.Draft.Now.Rule.reset();
    ASSERT_EQ(Program.Device.Host().Files().WriteWholeFile(draft.Path, EncodeDraft(draft.Draft)), ErrorCode::Success);
    Program.Device.AnswerBox(IDYES);
    Program.Device.AnswerBox(IDOK);
    Program.Device.TapControl(IDOK);
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(Boxes().back(), u"Tavo Calendar|The item is gone, and how it recurred could not be kept. "
                              u"It is made anew without that.");
    EXPECT_EQ(Saved(kItem + 1).Subject, u"Call back");
    EXPECT_EQ(Saved(kItem + 1).RecurType, kRecursOnce);
}

// What was typed and drawn for one item when the program was killed.
class DraftWithInk : public DraftOfAnItem {
  protected:
    void Draw() {
        OpenMemoRow(Program);
        Program.Device.Do([this] { DrawOn(Program); });
        Program.Device.PressOk();
    }

    void GivenKilledDuringNewAlarm() {
        GivenKilled([this] {
            BeginAlarm(Program);
            Draw();
        });
    }
};

TEST_F(DraftWithInk, IsOneQuestionAndTheNewItemHasBoth) {
    GivenKilledDuringNewAlarm();
    Program.Device.AnswerBox(IDYES);
    Program.Device.TapControl(IDOK);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), ElementsAre(kQuestion));
    EXPECT_EQ(Saved(1).Subject, u"Wake up");
    EXPECT_FALSE(NoteOf(1).empty());
    EXPECT_FALSE(fs::exists(Program.DataFolder() / "20041103_171000.pwi"));
    ExpectNothingAskedAgain();
}

TEST_F(DraftWithInk, DeclinedBothLieInTheFolderOfDeclinedOnes) {
    GivenKilledDuringNewAlarm();
    Program.Device.AnswerBox(IDNO);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), ElementsAre(kQuestion));
    EXPECT_EQ(std::distance(fs::directory_iterator(RecoveryOf(Program) / "Declined"), {}), 2);
    ExpectNothingAskedAgain();
}

TEST_F(DraftWithInk, KilledAgainInTheEditorBothAreStillThere) {
    GivenKilledDuringNewAlarm();
    const outlook::test::ChildProcess second([this](auto&) {
        Program.Device.AnswerBox(IDYES);
        Program.Device.AdvanceClock(1000);
        Program.Device.Do(Die);
        static_cast<void>(Program.Start());
    });
    ASSERT_EQ(second.Wait(), 128 + SIGKILL);
    Program.Device.AnswerBox(IDYES);
    Program.Device.TapControl(IDOK);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), ElementsAre(kQuestion));
    EXPECT_FALSE(NoteOf(1).empty());
    ExpectNothingAskedAgain();
}

TEST_F(DraftWithInk, OfAnItemWhoseNoteChangedMeanwhileTheInkIsAskedAboutByItself) {
    GivenKilledWhileChanging([this] { return GivenCall(); }, [this] { Draw(); });
    const std::vector<std::uint8_t> newer{1, 2, 3};
    const ComPtr<IAppointment> item = Stored(kItem);
    ASSERT_EQ(item->put_BodyInk(newer), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    Program.Device.AnswerBox(IDYES);
    Program.Device.TapControl(IDOK);
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(NoteOf(kItem), newer);
    EXPECT_EQ(Saved(kItem).Subject, u"Call back");
    Program.Stop();
    Program.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(Boxes().back(), u"Tavo Calendar|A memo of 2004.11.04(Thu) was not saved. Keep it?");
    EXPECT_EQ(NoteOf(kItem), newer);
    ExpectNothingAskedAgain();
}

} // namespace
} // namespace tavo::test
