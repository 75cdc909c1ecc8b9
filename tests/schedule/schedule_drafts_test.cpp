// Items that are made, shown or gone on with from outside the Schedule page.
#include "edit/draft_file.h"
#include "tests/schedule/schedule_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::At;
using test::ScheduleDesk;
using testing::ElementsAre;

constexpr Oid kFirst = 1; // of the store's items

class FromOutside : public testing::Test {
  protected:
    FromOutside() { EXPECT_TRUE(Desk.Start()); }

    AppointmentData Saved(Oid oid) {
        AppointmentData record;
        EXPECT_EQ(Desk.State().Store.LoadAppointment(oid, record), oid);
        return record;
    }

    ScheduleDesk Desk;
};

TEST_F(FromOutside, AnItemThatIsAskedForIsShown) {
    ASSERT_EQ(Desk.GivenAppointment(u"Dentist", At(2004, 11, 4, 9), At(2004, 11, 4, 10)), kFirst);
    Desk.Device.RequestItem(kFirst);
    Desk.Device.Do([this] {
        EXPECT_TRUE(Desk.Device.See.IsDialogOpen());
        EXPECT_TRUE(Desk.Device.See.ShowsText(u"Dentist"));
    });
    Desk.Device.PressClose();
    ASSERT_TRUE(Desk.Settle());
}

TEST_F(FromOutside, AnItemThatIsGoneIsNotShown) {
    Desk.Device.RequestItem(4711);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_FALSE(Desk.Device.See.IsDialogOpen());
}

TEST_F(FromOutside, WhatIsMadeFromTheMonthBeginsOnItsSelectedDay) {
    Desk.ShowPage(PageNumber::Calendar);
    Desk.Device.Key(VK_RIGHT, kModifierControl); // 4 November
    Desk.Device.Key('4', kModifierControl);
    Desk.Device.Tap(70, 15);
    Desk.Device.TypeInto(kEditSubject, u"Party");
    Desk.Device.TapControl(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Saved(kFirst).Subject, u"Party");
    EXPECT_EQ(Saved(kFirst).Start.Day, 4);
}

// The program ended with an editor open, and starts again.
class ContinuedEdit : public FromOutside {
  protected:
    // What an editor leaves in which the subject is typed; it is cancelled.
    void TypeIntoTheEditor() {
        Desk.Device.Tap(100, 20);
        Desk.Device.TypeInto(kEditSubject, u"Call back");
        Desk.Device.AdvanceClock(1000);
        Desk.Device.Do([this] { Left = FindDrafts(Desk.Device.Host()).at(0); });
        Desk.Device.TapControl(IDCANCEL);
        ASSERT_TRUE(Desk.Settle());
    }

    // Of the first item, which is an alarm.
    void GivenAlarmBeingChanged() {
        ASSERT_EQ(Desk.GivenAlarms(1).front(), kFirst);
        Desk.Show(ItemKind::Alarm);
        Desk.ChooseInRow(0, kCommandModify);
        TypeIntoTheEditor();
    }

    // The draft lies there for the next start.
    void End() {
        Desk.Device.PressClose();
        EXPECT_TRUE(Desk.Settle());
        Desk.Stop();
        EXPECT_EQ(Desk.Device.Host().Files().WriteWholeFile(Left.Path, EncodeDraft(Left.Draft)), ErrorCode::Success);
    }

    FoundDraft Left;
};

constexpr std::u16string_view kQuestion = u"Tavo Calendar|An alarm of 2004.11.04(Thu) was not saved. Go on with it?";

TEST_F(ContinuedEdit, ANewItemIsMade) {
    Desk.Show(ItemKind::Alarm);
    Desk.Device.Tap(220, 20); // "new"
    TypeIntoTheEditor();
    End();
    Desk.Device.AnswerBox(IDYES);
    Desk.Device.TapControl(IDOK);
    ASSERT_TRUE(Desk.Start());
    EXPECT_EQ(Desk.Boxes().size(), 1U); // the question whether to go on
    EXPECT_EQ(Saved(kFirst).Subject, u"Call back");
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), ElementsAre(kFirst));
}

TEST_F(ContinuedEdit, AnItemThatIsThereIsChanged) {
    GivenAlarmBeingChanged();
    End();
    Desk.Device.AnswerBox(IDYES);
    Desk.Device.TapControl(IDOK);
    ASSERT_TRUE(Desk.Start());
    EXPECT_THAT(Desk.Boxes(), ElementsAre(kQuestion));
    EXPECT_EQ(Saved(kFirst).Subject, u"Call back");
    EXPECT_EQ(Desk.State().Store.CountAppointments(), 1);
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), ElementsAre(kFirst));
}

TEST_F(ContinuedEdit, AnItemThatIsGoneIsMadeAnew) {
    GivenAlarmBeingChanged();
    Desk.Delete(kFirst);
    End();
    Desk.Device.AnswerBox(IDYES);
    Desk.Device.TapControl(IDOK);
    ASSERT_TRUE(Desk.Start());
    EXPECT_THAT(Desk.Boxes(), ElementsAre(kQuestion));
    EXPECT_EQ(Saved(kFirst + 1).Subject, u"Call back");
    EXPECT_TRUE(Desk.State().Categories.IsAlarm(kFirst + 1));
}

TEST_F(ContinuedEdit, OfAnItemThatIsGoneItIsToldThatItsRuleIsLost) {
    GivenAlarmBeingChanged();
    Desk.Delete(kFirst);
    Left.Draft.Now.Recurrence = kChoiceCustom;
    End();
    Desk.Device.AnswerBox(IDYES);
    Desk.Device.AnswerBox(IDOK);
    Desk.Device.TapControl(IDCANCEL);
    ASSERT_TRUE(Desk.Start());
    EXPECT_THAT(Desk.Boxes(),
                ElementsAre(kQuestion, u"Tavo Calendar|The item is gone, and how it recurred could not be kept. "
                                       u"It is made anew without that."));
}

TEST_F(ContinuedEdit, OfAnItemThatIsThereNoRuleIsLost) {
    GivenAlarmBeingChanged();
    Left.Draft.Now.Recurrence = kChoiceCustom;
    End();
    Desk.Device.AnswerBox(IDYES);
    Desk.Device.TapControl(IDCANCEL);
    ASSERT_TRUE(Desk.Start());
    EXPECT_THAT(Desk.Boxes(), ElementsAre(kQuestion));
}

TEST_F(ContinuedEdit, AnItemThatCannotBeReadNowIsAskedAboutAgain) {
    GivenAlarmBeingChanged();
    End();
    Desk.Device.AnswerBox(IDYES);
    Desk.Device.AnswerBox(IDOK);
    Desk.RunWithItemsLocked();
    EXPECT_THAT(Desk.Boxes(),
                ElementsAre(kQuestion, u"Tavo Calendar|The item cannot be read now. You will be asked again."));
    EXPECT_EQ(FindDrafts(Desk.Device.Host()).size(), 1U);
}

} // namespace

} // namespace tavo
