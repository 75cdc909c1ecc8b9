// The kinds of items made before a kill, which the data file does not know yet.
#include "tests/app/recovery_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace tavo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class KilledTags : public RecoveryAtStart {
  protected:
    void MakeAlarm() {
        Program.Device.Key('1', kModifierControl);
        Program.Device.Tap(100, 20);
        Program.Device.TypeInto(kEditSubject, u"Wake up");
        Program.Device.TapControl(IDOK);
    }

    void TakeTagsBack() {
        Program.Device.Do([this] {
            Program.State().Categories.AlarmList.RemoveAll();
            Message notice;
            notice.Window = Program.State().MainView;
            notice.Number = kChangeNotice;
            Program.Device.Host().Queue().PostMessageW(notice);
        });
    }

    std::optional<std::string> DataFile() const { return Program.ReadFile("TavoCalendar.dat"); }

    const std::string NoTags{"\0\0\0\0;\0\0\0\0;\0\0\0\0;", 15};
};

TEST_F(KilledTags, AreOfferedAtTheNextStart) {
    GivenKilled([this] { MakeAlarm(); });
    ASSERT_EQ(DataFile(), NoTags); // it is written when a page is closed
    Program.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), ElementsAre(u"Tavo Calendar|The kind of 1 item(s) could not be saved last time. Keep it?"));
    EXPECT_THAT(Program.State().Categories.AlarmList.All(), ElementsAre(1));
    EXPECT_NE(DataFile(), NoTags);
    ExpectNothingAskedAgain();
}

TEST_F(KilledTags, ThatNobodyWantsAreNotOfferedAgain) {
    GivenKilled([this] { MakeAlarm(); });
    Program.Device.AnswerBox(IDNO);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Program.State().Categories.AlarmList.All(), IsEmpty());
    EXPECT_EQ(Program.State().Store.CountAppointments(), 1);
    ExpectNothingAskedAgain();
}

TEST_F(KilledTags, AreInTheDataFileOnceAPageWasClosed) {
    GivenKilled([this] {
        MakeAlarm();
        Program.Device.PressClose();
    });
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_THAT(Program.State().Categories.AlarmList.All(), ElementsAre(1));
}

TEST_F(KilledTags, ThatWereTakenBackAreNotAskedAbout) {
    GivenKilled([this] {
        MakeAlarm();
        TakeTagsBack();
    });
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(Program.State().Store.CountAppointments(), 1);
}

TEST_F(KilledTags, ThatWereTakenBackBeforeAnOrdinaryEndAreNotAskedAbout) {
    ASSERT_TRUE(Program.Start());
    MakeAlarm();
    TakeTagsBack();
    ASSERT_TRUE(Program.Settle());
    ExpectNothingAskedAgain();
    EXPECT_THAT(Program.State().Categories.AlarmList.All(), IsEmpty());
}

TEST_F(KilledTags, AreOfferedStillWhenTheQuestionIsQuit) {
    GivenKilled([this] { MakeAlarm(); });
    const outlook::test::ChildProcess quitting([this](auto&) {
        Program.Device.Quit();
        static_cast<void>(Program.Start());
        Program.Stop();
        _exit(Boxes().size() == 1 ? 0 : 1);
    });
    ASSERT_EQ(quitting.Wait(), 0);
    Program.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(Boxes().size(), 1U);
    EXPECT_THAT(Program.State().Categories.AlarmList.All(), ElementsAre(1));
}

TEST_F(KilledTags, OfAnItemThatIsGoneByThenAreNotAskedAbout) {
    GivenKilled([this] { MakeAlarm(); });
    Program.Delete(1);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), IsEmpty());
}

} // namespace
} // namespace tavo::test
