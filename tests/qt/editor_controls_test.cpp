// The editor's own controls on the desktop: pickers, lists, focus and the sound that is chosen.
#include "host/qt/controls/month_popup.h"
#include "tests/qt/editor_desk.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>

#include <fstream>

namespace tavo::qt {
namespace {

TEST_F(EditorOnTheDesktop, ATimeIsTypedFromItsHourOn) {
    OpenByKey(kNewAlarm);
    TypeSubject(kTop, u"Wake");
    TapRow(kTop, 2, kEditStartTime);
    Program.TapControl(kEditStartTime);
    Program.Key(VK_RIGHT);
    Program.Key(VK_HOME);
    Program.Type(u"1135ap");
    Program.TapControl(IDOK);
    ASSERT_TRUE(Program.Settle());
    ASSERT_EQ(CountItems(), 1);
    EXPECT_EQ(Load(1).Start.Hour, 23);
    EXPECT_EQ(Load(1).Start.Minute, 35);
}

TEST_F(EditorOnTheDesktop, AnAlarmIsTypedToTheSecond) {
    OpenByKey(kNewAlarm);
    TypeSubject(kTop, u"Egg");
    TapRow(kTop, 2, kEditStartTime);
    Program.TapControl(kEditStartTime);
    Program.Key(VK_HOME);
    Program.Type(u"113512p");
    Program.Do([this] {
        const auto* box = Program.Widget(kEditStartTime)->findChild<QLineEdit*>();
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->text(), QStringLiteral("11:35:12 PM"));
        EXPECT_LE(box->fontMetrics().horizontalAdvance(box->text()), box->width()); // whole
    });
    Program.Key(VK_END);
    Program.Key(VK_LEFT);
    Program.Key(VK_UP);
    Program.TapControl(IDOK);
    ASSERT_TRUE(Program.Settle());
    ASSERT_EQ(CountItems(), 1);
    EXPECT_EQ(Load(1).Start.Hour, 23);
    EXPECT_EQ(Load(1).Start.Minute, 35);
    EXPECT_EQ(Load(1).Start.Second, 13);
}

TEST_F(EditorOnTheDesktop, AnEndThatIsTypedMovesNoStartOnItsWay) {
    OpenByKey(kNewAppointment);
    TypeSubject(kAppointmentTop, u"Class");
    TapRow(kAppointmentTop, 1, kEditStartTime, 160);
    Program.TapControl(kEditStartTime);
    Program.Key(VK_HOME);
    Program.Type(u"1000a");
    TapRow(kAppointmentTop, 2, kEditEndTime, 160);
    Program.TapControl(kEditEndTime);
    Program.Key(VK_HOME);
    Program.Type(u"1000a");
    Program.Key(VK_HOME);
    Program.Type(u"11");
    Program.TapControl(IDOK);
    ASSERT_TRUE(Program.Settle());
    ASSERT_EQ(CountItems(), 1);
    EXPECT_EQ(Load(1).Start.Hour, 10);
    EXPECT_EQ(Load(1).End.Hour, 11);
}

TEST_F(EditorOnTheDesktop, TheWizardsEntryReachedByKeyOpensItWhenTheListIsLeft) {
    OpenByKey(kNewAlarm);
    TypeSubject(kTop, u"Wake");
    TapRow(kTop, 3, kEditRecurrence);
    Program.Key(VK_END);
    Program.Do([&] { EXPECT_EQ(Program.Caption(), u"Tavo Calendar"); });
    Program.Key(VK_TAB);
    Program.Do([&] { EXPECT_EQ(Program.Caption(), u"Recurrence"); });
    Program.Key(VK_ESCAPE);
    Program.Do([&] { EXPECT_EQ(TextOf(kEditRecurrence), u"Once"); });
    for (int entry = 0; entry < 8; ++entry) {
        Program.Key(VK_DOWN);
    }
    Program.Key(VK_RETURN);
    Program.Do([&] { EXPECT_EQ(Program.Caption(), u"Recurrence"); });
    Program.Key(VK_ESCAPE);
    Program.Key(VK_ESCAPE);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(CountItems(), 0);
}

TEST_F(EditorOnTheDesktop, TypingReplacesTheLeadThatTheFocusComesTo) {
    OpenByKey(kNewHoliday);
    TypeSubject(kTop, u"Fair");
    TapRow(kTop, 3, kEditReminder);
    Program.Choose(kEditReminder, 0);
    TapRow(kTop, 3, kEditReminderValue, 130);
    Program.Type(u"45");
    Program.Do([&] { EXPECT_EQ(TextOf(kEditReminderValue), u"45"); });
    Tab(1);
    Tab(1, kModifierShift);
    Program.Type(u"6");
    Program.Do([&] { EXPECT_EQ(TextOf(kEditReminderValue), u"6"); });
    Program.TapControl(IDOK);
    ASSERT_TRUE(Program.Settle());
    ASSERT_EQ(CountItems(), 1);
    EXPECT_EQ(Load(1).ReminderMinutes, 6 * 60);
}

TEST_F(EditorOnTheDesktop, AListOpensWithinTheScreen) {
    OpenByKey(kNewAppointment);
    const auto expectWithin = [this](int control) {
        Program.Key(VK_DOWN, kModifierAlt);
        Program.Do([this, control] {
            const QWidget* popup = QApplication::activePopupWidget();
            const auto* box = dynamic_cast<const QComboBox*>(Program.Widget(control));
            ASSERT_TRUE(popup != nullptr && box != nullptr);
            const QWidget* window = box->window();
            EXPECT_TRUE(QRect(window->mapToGlobal(QPoint()), window->size()).contains(popup->geometry()));
            const QRect place(box->mapToGlobal(QPoint()), box->size());
            EXPECT_FALSE(popup->geometry().intersects(place));
            EXPECT_GE(box->view()->viewport()->height(), std::min(box->count(), 7) * box->view()->sizeHintForRow(0));
        });
    };
    TapRow(kAppointmentTop, 4, kEditRecurrence);
    expectWithin(kEditRecurrence);
    Program.Key(VK_END); // beyond what is seen at first
    Program.Do([&] {
        const auto* box = dynamic_cast<const QComboBox*>(Program.Widget(kEditRecurrence));
        const QRect last = box->view()->visualRect(box->model()->index(kChoiceCustom, 0));
        EXPECT_TRUE(box->view()->viewport()->rect().contains(last));
    });
    Program.Key(VK_ESCAPE);
    TapRow(kAppointmentTop, 5, kEditReminder);
    Program.Choose(kEditReminder, 0);
    TapRow(kAppointmentTop, 6, kEditSound);
    expectWithin(kEditSound);
    Program.Key(VK_ESCAPE);
    Program.Key(VK_ESCAPE);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(CountItems(), 0);
}

TEST_F(EditorOnTheDesktop, ADayIsPickedInTheMonthCalendar) {
    OpenByKey(kNewAlarm);
    TypeSubject(kTop, u"Wake");
    Tab(1);
    TypeDate(u"06152027");
    Program.Key(VK_DOWN, kModifierAlt);
    Program.Do([&] {
        EXPECT_NE(dynamic_cast<MonthPopup*>(QApplication::activePopupWidget()), nullptr);
        EXPECT_EQ(Program.Host.Parts().State.OpenList, Program.Control(kEditStartDate));
    });
    Program.Key(VK_RIGHT);
    Program.Key(VK_RETURN);
    Program.Do([&] { EXPECT_EQ(QApplication::activePopupWidget(), nullptr); });
    Program.TapControl(IDOK);
    ASSERT_TRUE(Program.Settle());
    ASSERT_EQ(CountItems(), 1);
    EXPECT_EQ(Load(1).Start.Month, 6);
    EXPECT_EQ(Load(1).Start.Day, 16);
}

TEST_F(EditorOnTheDesktop, ASoundIsListenedToWhileItIsChosen) {
    std::ofstream(Program.Root->Path() / "Windows" / "Gong.wav") << "no sound at all";
    OpenByKey(kNewAlarm);
    TypeSubject(kTop, u"Wake");
    TapRow(kTop, 4, kEditSound);
    Program.Choose(kEditSound, 1);
    Program.Do([&] { EXPECT_EQ(TextOf(kEditSound), u"Gong.wav"); });
    Tab(1);
    ExpectFocusOn(kEditPreview);
    Program.Key(VK_SPACE);
    Program.Do([&] { EXPECT_EQ(TextOf(kEditPreview), u"[]"); });
    Program.TapControl(kEditPreview);
    Program.Do([&] { EXPECT_EQ(TextOf(kEditPreview), u">"); });
    Program.TapControl(IDOK);
    ASSERT_TRUE(Program.Settle());
    ASSERT_EQ(CountItems(), 1);
    EXPECT_EQ(Load(1).ReminderSound, u"Gong.wav");
}

TEST_F(EditorOnTheDesktop, ShiftAndTabGoBackAndAltAndDownOpenTheList) {
    OpenByKey(kNewAlarm);
    Tab(2, kModifierShift);
    ExpectFocusOn(IDOK);
    Tab(3, kModifierShift);
    ExpectFocusOn(kEditRecurrence);
    Program.Key(VK_DOWN, kModifierAlt);
    Program.Do([&] {
        const auto* box = qobject_cast<QComboBox*>(Program.Widget(kEditRecurrence));
        ASSERT_NE(box, nullptr);
        EXPECT_TRUE(box->view()->isVisible());
        EXPECT_EQ(box->count(), 9);
    });
    Program.Key(VK_ESCAPE);
    Program.Do([&] { EXPECT_TRUE(Program.IsDialogOpen()); });
    Program.Key(VK_ESCAPE);
    ASSERT_TRUE(Program.Settle());
    EXPECT_FALSE(Program.IsDialogOpen());
}

TEST_F(EditorOnTheDesktop, TypingAfterATapGoesIntoTheShownControl) {
    OpenByKey(kNewAlarm);
    TapRow(kTop, 0, kEditSubject);
    Program.Type(u"Tea");
    Program.Do([&] {
        EXPECT_EQ(TextOf(kEditSubject), u"Tea");
        const auto* edit = qobject_cast<QLineEdit*>(Program.Widget(kEditSubject));
        ASSERT_NE(edit, nullptr);
        EXPECT_EQ(edit->text().toStdU16String(), u"Tea");
    });
    Program.Key(VK_ESCAPE);
    ASSERT_TRUE(Program.Settle());
}

} // namespace
} // namespace tavo::qt
