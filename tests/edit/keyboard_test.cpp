// The editor without a stylus.
#include "tests/edit/edit_desk.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

class EditorKeys : public testing::Test {
  protected:
    // The control with the focus; 0 for the dialog or none.
    int Focused() {
        const shell::WindowTree& tree = Desk.Device.Host().State.Tree;
        const shell::ControlState* control = tree.FindControl(Desk.Device.Host().Windows().GetFocus());
        return control == nullptr ? 0 : control->Id;
    }

    // Each press of the key, what has the focus then and is shown alone.
    void ExpectWalk(int modifiers, const std::vector<int>& stops) {
        for (const int stop : stops) {
            Desk.Device.Key(VK_TAB, modifiers);
            Desk.Check([this, stop] {
                const bool isButton = stop == IDOK || stop == IDCANCEL;
                const bool isPainted = stop == kEditMemo;
                EXPECT_EQ(Focused(), isPainted ? 0 : stop);
                EXPECT_EQ(Desk.ShownEditingControls(), isButton || isPainted ? std::vector<int>{} : std::vector{stop});
                if (isPainted) {
                    EXPECT_TRUE(Desk.Device.See.FindItem(PaintedRole::Row, u"Memo :")->Selected);
                }
            });
        }
    }

    EditDesk Desk;
};

TEST_F(EditorKeys, TabWalksTheRowsOfAnAlarmAndRoundAgain) {
    ExpectWalk(0, {kEditSubject, kEditStartDate, kEditStartTime, kEditRecurrence, kEditSound, kEditMemo, IDOK, IDCANCEL,
                   kEditSubject});
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL);
}

TEST_F(EditorKeys, TabLeavesOutWhatIsDisabled) {
    ExpectWalk(0, {kEditSubject, kEditStartDate, kEditRecurrence, kEditReminder, kEditMemo, IDOK, IDCANCEL});
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewHoliday), IDCANCEL);
}

TEST_F(EditorKeys, TabWalksAllOfAnAppointmentThatReminds) {
    Desk.ChooseReminder(true);
    Desk.ChooseSound(u"bell.wav");
    Desk.ShowRow(7);
    ExpectWalk(0, {IDOK, IDCANCEL, kEditSubject, kEditStartDate, kEditStartTime, kEditEndDate, kEditEndTime,
                   kEditAllDay, kEditRecurrence, kEditReminder, kEditReminderValue, kEditReminderUnit, kEditSound,
                   kEditPreview, kEditMemo, IDOK});
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
}

TEST_F(EditorKeys, ShiftAndTabWalkBackwards) {
    ExpectWalk(kModifierShift, {IDCANCEL, IDOK, kEditMemo, kEditReminder, kEditRecurrence, kEditAllDay, kEditEndTime,
                                kEditEndDate, kEditStartTime, kEditStartDate, kEditSubject, IDCANCEL});
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
}

TEST_F(EditorKeys, TabGoesOnFromWhereTheStylusWas) {
    Desk.ShowRow(1);
    ExpectWalk(0, {kEditStartTime});
    Desk.Device.Tap(2, 2); // hides it
    ExpectWalk(0, {kEditRecurrence});
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL);
}

TEST_F(EditorKeys, AnAllDayAppointmentHasNoTimesToWalkTo) {
    Desk.TapAllDay();
    Desk.ShowRow(0);
    ExpectWalk(0, {kEditStartDate, kEditEndDate, kEditAllDay});
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
}

TEST_F(EditorKeys, EnterSavesFromEveryRow) {
    for (int steps = 1; steps <= 6; ++steps) {
        Desk.Subject(u"Thing");
        for (int step = 1; step < steps; ++step) {
            Desk.Device.Key(VK_TAB);
        }
        Desk.Device.Key(VK_RETURN);
        EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDOK) << steps;
    }
    EXPECT_EQ(Desk.CountItems(), 6);
}

TEST_F(EditorKeys, EnterOnCancelCancels) {
    Desk.Subject(u"Thing");
    Desk.Device.Key(VK_TAB, kModifierShift);
    Desk.Check([&] { EXPECT_EQ(Focused(), IDCANCEL); });
    Desk.Device.Key(VK_RETURN);
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL);
    EXPECT_EQ(Desk.CountItems(), 0);
}

TEST_F(EditorKeys, WhatIsTypedBeforeARowIsChosenIsTheSubject) {
    Desk.Device.Type(u"Tea");
    Desk.Check([&] {
        EXPECT_EQ(Focused(), kEditSubject);
        EXPECT_EQ(Desk.ShownEditingControls(), std::vector{kEditSubject});
        EXPECT_EQ(Desk.TextOf(kEditSubject), u"Tea");
    });
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
}

TEST_F(EditorKeys, WhatIsTypedLaterGoesBehindTheSubject) {
    const Oid oid = Desk.GivenAppointment(u"Call", At(2026, 11, 23, 9), At(2026, 11, 23, 10));
    Desk.Device.Type(u"s");
    Desk.Check([&] { EXPECT_EQ(Desk.TextOf(kEditSubject), u"Calls"); });
    Desk.Device.Type(u"!");
    Desk.Check([&] { EXPECT_EQ(Desk.TextOf(kEditSubject), u"Calls!"); });
    Desk.Cancel();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDCANCEL);
}

TEST_F(EditorKeys, ABlankMayBeginTheSubjectAndASignWithoutAPictureMayNot) {
    const auto expect = [this](const std::u16string& subject) {
        Desk.Check([this, subject] {
            EXPECT_EQ(Desk.TextOf(kEditSubject), subject);
            EXPECT_FALSE(Desk.Device.See.IsChecked(kEditAllDay));
            EXPECT_EQ(Desk.ShownEditingControls(), subject.empty() ? std::vector<int>{} : std::vector{kEditSubject});
        });
    };
    Desk.Device.Type(u"\u0008\u001F");
    expect(u"");
    Desk.Device.Type(u" ");
    expect(u" ");
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
}

TEST_F(EditorKeys, NothingMoreIsTypedIntoAFullSubject) {
    const auto typeBehind = [this](std::size_t size, const std::vector<int>& shown) {
        Desk.Subject(std::u16string(size, u'x'));
        Desk.Device.Tap(2, 2);
        Desk.Device.Type(u"y");
        Desk.Check([this, shown] {
            EXPECT_EQ(Desk.TextOf(kEditSubject).size(), 259U);
            EXPECT_EQ(Desk.TextOf(kEditSubject).back(), shown.empty() ? u'x' : u'y');
            EXPECT_EQ(Desk.ShownEditingControls(), shown);
        });
    };
    typeBehind(258, {kEditSubject});
    typeBehind(259, {});
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
}

TEST_F(EditorKeys, WhatIsTypedWhileAnotherRowIsShownIsNoSubject) {
    for (const int row : {1, 3, 4}) {
        Desk.ShowRow(row);
        Desk.Device.Type(u"x");
        Desk.Device.Type(u"\u0008");
        Desk.Check([this] { EXPECT_EQ(Desk.TextOf(kEditSubject), u""); });
    }
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
}

TEST_F(EditorKeys, EscapeCancelsFromAnywhere) {
    Desk.Device.Key(VK_ESCAPE);
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL);
    for (int steps = 1; steps <= 8; ++steps) { // its six rows, OK and Cancel
        Desk.Subject(u"Thing");
        for (int step = 1; step < steps; ++step) {
            Desk.Device.Key(VK_TAB);
        }
        Desk.Device.Key(VK_ESCAPE);
        EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL) << steps;
    }
    EXPECT_EQ(Desk.CountItems(), 0);
}

TEST_F(EditorKeys, AltAndDownOpenTheListOfTheRow) {
    for (int step = 0; step < 4; ++step) {
        Desk.Device.Key(VK_TAB);
    }
    Desk.Device.Key(VK_DOWN, kModifierAlt);
    Desk.Check([&] { EXPECT_EQ(Desk.Device.Host().State.OpenList, Desk.Device.See.Control(kEditRecurrence)); });
    Desk.Device.CloseList(kEditRecurrence);
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL);
}

// The box hides itself at every change, and nothing has the focus then.
TEST_F(EditorKeys, ABlankAfterAllDayTurnsItOnceMoreAndIsNoSubject) {
    Desk.Device.Key(VK_TAB);
    Desk.Device.Type(u"Dinner");
    for (int step = 0; step < 5; ++step) {
        Desk.Device.Key(VK_TAB);
    }
    Desk.Device.Key(VK_SPACE);
    for (const bool isOn : {true, false, true}) {
        Desk.Check([this, isOn] {
            EXPECT_EQ(Desk.Device.See.IsChecked(kEditAllDay), isOn);
            EXPECT_EQ(Desk.Device.See.FindItem(PaintedRole::Cell, u"All day")->Pressed, isOn);
            EXPECT_EQ(Desk.Device.See.TextOf(kEditSubject), u"Dinner");
        });
        Desk.Device.Type(u" ");
    }
    Desk.Device.Key(VK_TAB); // goes on from there
    Desk.Check([&] { EXPECT_EQ(Focused(), kEditRecurrence); });
    Desk.Device.Type(u"x"); // a letter means no box
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
}

TEST_F(EditorKeys, AWholeAppointmentByKeysAlone) {
    Desk.Device.Key(VK_TAB);
    Desk.Device.Type(u"Dinner");
    for (int step = 0; step < 5; ++step) {
        Desk.Device.Key(VK_TAB);
    }
    Desk.Check([&] { EXPECT_EQ(Focused(), kEditAllDay); });
    Desk.Device.Key(VK_SPACE);
    Desk.Device.Key(VK_TAB);
    Desk.Check([&] { EXPECT_EQ(Focused(), kEditRecurrence); });
    Desk.Device.Key(VK_DOWN);
    Desk.Device.Key(VK_TAB);
    Desk.Device.Key(VK_UP); // from No to Yes
    Desk.Device.Key(VK_TAB);
    Desk.Check([&] { EXPECT_EQ(Focused(), kEditReminderValue); });
    Desk.Device.Key(VK_RETURN);
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDOK);
    const AppointmentData record = Desk.Load(Desk.LastSaved());
    EXPECT_EQ(record.Subject, u"Dinner");
    EXPECT_TRUE(record.AllDay);
    EXPECT_EQ(record.RecurChoice, kChoiceEveryday);
    EXPECT_TRUE(record.HasReminder);
    EXPECT_EQ(record.ReminderMinutes, 720);
}

TEST_F(EditorKeys, TheSubjectsFocusRaisesTheInputPanelAndItsLossLowersIt) {
    const auto isRaised = [&] { return Desk.Device.Host().InputPanel().SipGetInfo().Shown; };
    Desk.Check([&] { EXPECT_FALSE(isRaised()); });
    Desk.Device.Key(VK_TAB);
    Desk.Check([&] { EXPECT_TRUE(isRaised()); });
    Desk.Device.Key(VK_TAB);
    Desk.Check([&] { EXPECT_FALSE(isRaised()); });
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL);
}

} // namespace
} // namespace tavo::test
