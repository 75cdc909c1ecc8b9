// What the start does about an edit that the program's end or a crash cut short.
#include "res/resource_ids.h"
#include "tests/support/running_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace tavo::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

constexpr std::u16string_view kQuestion = u"Tavo Calendar|An alarm of 2004.11.03(Wed) was not saved. Go on with it?";

fs::path RecoveryOf(const RunningProgram& program) {
    return program.DataFolder().parent_path().parent_path() / "Recovery";
}

class DraftRecoveryAtStart : public testing::Test {
  protected:
    // An alarm is being made; its subject is typed.
    static void BeginAlarm(RunningProgram& program) {
        ASSERT_TRUE(program.Start());
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
        BeginAlarm(other);
        QuitAndInherit(other);
    }

    std::vector<std::u16string> Boxes() {
        std::vector<std::u16string> boxes;
        for (const MessageBoxDescription& box : Program.Device.Host().Seen.Boxes) {
            boxes.push_back(box.Caption + u"|" + box.Text);
        }
        return boxes;
    }

    void ExpectNothingAskedAgain() {
        const std::size_t asked = Boxes().size();
        Program.Stop();
        ASSERT_TRUE(Program.Start());
        EXPECT_EQ(Boxes().size(), asked);
    }

    RunningProgram Program{At(2004, 11, 3, 17, 10)};
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

// A kill leaves what lies in the folder a second after it was typed.
TEST_F(DraftRecoveryAtStart, WhatACrashLeftIsGoneOnWith) {
    RunningProgram dying(At(2004, 11, 3, 17, 10));
    BeginAlarm(dying);
    dying.Device.AdvanceClock(1000);
    dying.Device.Do([&] { fs::copy(RecoveryOf(dying), RecoveryOf(Program)); });
    dying.Device.TapControl(IDCANCEL);
    ASSERT_TRUE(dying.Settle());
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

} // namespace
} // namespace tavo::test
