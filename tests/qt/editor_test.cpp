// Making and changing items on the desktop, by mouse and keyboard.
#include "host/outlook/store.h"
#include "host/qt/controls/month_popup.h"
#include "res/resource_ids.h"
#include "store/appointment_data.h"
#include "tests/qt/desktop_program.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>

namespace tavo::qt {
namespace {

constexpr int kToolsMenu = 0;
constexpr int kCalendarTab = 150; // x in the page bar
constexpr std::chrono::milliseconds kNoticePeriod(600);

// Number of the day's cell in its month: the first row begins with the Sunday on or before the first.
int CellOf(const SYSTEMTIME& day) {
    const int weekdayOfFirst = (day.DayOfWeek - (day.Day - 1) % 7 + 7) % 7;
    return weekdayOfFirst + day.Day - 1;
}

std::array<int, 5> MomentOf(const SYSTEMTIME& time) {
    return {time.Year, time.Month, time.Day, time.Hour, time.Minute};
}

class EditorOnTheDesktop : public testing::Test {
  protected:
    static constexpr int kNewAlarm = '1';
    static constexpr int kNewHoliday = '2';
    static constexpr int kNewAppointment = '4';

    void OpenByKey(int digit) {
        Program.Key(digit, kModifierControl);
        Program.Do([this] { ASSERT_TRUE(Program.IsDialogOpen()); });
    }

    // Taps the middle of the row; its control is then to be seen.
    void TapRow(int top, int row, int control, int x = 100) {
        Program.Tap(x, top + row * 26 + 13);
        Program.Do([this, control] { ASSERT_TRUE(Program.IsShown(control)) << control; });
    }

    void TypeSubject(int top, std::u16string_view subject) {
        TapRow(top, 0, kEditSubject);
        Program.Type(subject);
    }

    void Tab(int times, int modifiers = 0) {
        for (int i = 0; i < times; ++i) {
            Program.Key(VK_TAB, modifiers);
        }
    }

    // The widget with the keys is the control's, or inside it.
    void ExpectFocusOn(int control) {
        Program.Do([this, control] {
            const QWidget* focus = QApplication::focusWidget();
            const QWidget* widget = Program.Widget(control);
            ASSERT_NE(widget, nullptr);
            EXPECT_TRUE(widget->isVisible()) << control;
            EXPECT_TRUE(focus == widget || (focus != nullptr && widget->isAncestorOf(focus))) << control;
        });
    }

    // Types into the date picker with the focus: month, day and year, from its first part on.
    void TypeDate(std::u16string_view digits) {
        Program.Key(VK_HOME);
        Program.Type(digits);
    }

    int CountItems() { return Program.State().Store.CountAppointments(); }

    // The record of the item that was saved first, second, ..: OIDs count up from 1.
    AppointmentData Load(Oid oid) {
        AppointmentData record;
        EXPECT_EQ(Program.State().Store.LoadAppointment(oid, record), oid);
        return record;
    }

    std::u16string TextOf(int control) { return Program.Host.Controls().GetWindowTextW(Program.Control(control)); }

    DesktopProgram Program;
};

constexpr int kTop = 15; // of the first row
constexpr int kAppointmentTop = 10;

TEST_F(EditorOnTheDesktop, ANewAppointmentByMouseIsSeenInTheMonth) {
    Program.Tap(kCalendarTab, 250);
    Program.ChooseMenu(kToolsMenu, kCommandNewAppointment);
    Program.Do([&] { EXPECT_EQ(Program.Caption(), u"Tavo Calendar"); });
    TapRow(kAppointmentTop, 0, kEditSubject);
    Program.TapControl(kEditSubject);
    Program.Type(u"Dentist");
    Program.TapControl(IDOK);
    Program.Pass(kNoticePeriod);
    ASSERT_TRUE(Program.Settle());
    EXPECT_FALSE(Program.IsDialogOpen());
    ASSERT_EQ(CountItems(), 1);
    EXPECT_EQ(Load(1).Subject, u"Dentist");
    const std::u16string cell = Program.NameOf(PaintedRole::Cell, CellOf(Load(1).Start));
    EXPECT_TRUE(cell.ends_with(u": appointment")) << QString::fromStdU16String(cell).toStdString();
}

TEST_F(EditorOnTheDesktop, ANewAlarmByKeysAlone) {
    OpenByKey(kNewAlarm);
    Tab(1);
    ExpectFocusOn(kEditSubject);
    Program.Type(u"Wake");
    Tab(1);
    ExpectFocusOn(kEditStartDate);
    TypeDate(u"12152031");
    Tab(1);
    ExpectFocusOn(kEditStartTime);
    Tab(1);
    ExpectFocusOn(kEditRecurrence);
    Program.Key(VK_DOWN);
    Program.Key(VK_RETURN);
    ASSERT_TRUE(Program.Settle());
    ASSERT_EQ(CountItems(), 1);
    const AppointmentData saved = Load(1);
    EXPECT_EQ(saved.Subject, u"Wake");
    EXPECT_EQ(saved.Start.Year, 2031);
    EXPECT_EQ(saved.Start.Month, 12);
    EXPECT_EQ(saved.Start.Day, 15);
    EXPECT_EQ(saved.RecurChoice, kChoiceEveryday);
    EXPECT_TRUE(Program.State().Categories.IsAlarm(1));
}

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

TEST_F(EditorOnTheDesktop, AHolidayThatComesBackEveryYear) {
    OpenByKey(kNewHoliday);
    TypeSubject(kTop, u"Christmas");
    TapRow(kTop, 1, kEditStartDate);
    Program.TapControl(kEditStartDate);
    TypeDate(u"12252026");
    TapRow(kTop, 2, kEditRecurrence);
    Program.Choose(kEditRecurrence, kChoiceYearly);
    Program.Do([&] {
        EXPECT_EQ(TextOf(kEditRecurrence), u"Dec. 25 of every year");
        EXPECT_EQ(Program.NameOf(PaintedRole::Cell, kEditStartDate), u"2026.12.25 (Fri)");
    });
    Program.TapControl(IDOK);
    ASSERT_TRUE(Program.Settle());
    ASSERT_EQ(CountItems(), 1);
    EXPECT_EQ(Load(1).RecurChoice, kChoiceYearly);
    EXPECT_TRUE(Load(1).AllDay);
    EXPECT_EQ(MomentOf(Load(1).Start), (std::array{2026, 12, 25, 0, 0}));
    EXPECT_TRUE(Program.State().Categories.IsHoliday(1));
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

TEST_F(EditorOnTheDesktop, AnEndBeforeTheStartTakesTheStartWithIt) {
    OpenByKey(kNewAppointment);
    TypeSubject(kAppointmentTop, u"Trip");
    TapRow(kAppointmentTop, 2, kEditEndDate);
    Program.TapControl(kEditEndDate);
    TypeDate(u"03042025");
    Program.Do([&] {
        EXPECT_EQ(Program.NameOf(PaintedRole::Cell, kEditStartDate), u"2025.03.04");
        EXPECT_EQ(Program.NameOf(PaintedRole::Cell, kEditEndDate), u"2025.03.04");
    });
    Program.TapControl(IDOK);
    ASSERT_TRUE(Program.Settle());
    ASSERT_EQ(CountItems(), 1);
    EXPECT_EQ(Load(1).Start, Load(1).End);
    EXPECT_EQ(Load(1).Start.Year, 2025);
}

TEST_F(EditorOnTheDesktop, AnAllDayAppointmentHasAWideDate) {
    OpenByKey(kNewAppointment);
    TypeSubject(kAppointmentTop, u"Fair");
    TapRow(kAppointmentTop, 3, kEditAllDay);
    Program.Tap(72, kAppointmentTop + 3 * 26 + 13); // the box itself
    Program.Do([&] {
        EXPECT_FALSE(Program.IsShown(kEditAllDay));
        EXPECT_EQ(Program.NameOf(PaintedRole::Cell, kEditStartTime), u"All day recurring");
    });
    TapRow(kAppointmentTop, 1, kEditStartDate, 200);
    Program.Do([&] {
        const double scale = Program.Host.Parts().Geometry.Scale.Factor;
        EXPECT_NEAR(Program.Widget(kEditStartDate)->width(), 165 * scale, 1);
    });
    Program.Key(VK_RETURN);
    ASSERT_TRUE(Program.Settle());
    ASSERT_EQ(CountItems(), 1);
    EXPECT_TRUE(Load(1).AllDay);
}

TEST_F(EditorOnTheDesktop, ALeadOutOfRangeIsToldKeptAndMended) {
    OpenByKey(kNewHoliday);
    TypeSubject(kTop, u"Fair");
    TapRow(kTop, 3, kEditReminder);
    Program.Choose(kEditReminder, 0);
    TapRow(kTop, 3, kEditReminderValue, 130);
    Program.TapControl(kEditReminderValue);
    Program.Key('A', kModifierControl);
    Program.Type(u"1x0000");
    Program.TapControl(IDOK);
    Program.Do([&] { EXPECT_EQ(Program.BoxText(), u"Enter an integer between 0 and 9999."); });
    Program.AnswerBox(IDOK);
    ExpectFocusOn(kEditReminderValue);
    Program.Do([&] {
        EXPECT_EQ(TextOf(kEditReminderValue), u"10000");
        EXPECT_EQ(TextOf(kEditSubject), u"Fair");
    });
    Program.Key(VK_END);
    Program.Key(VK_BACK);
    Program.Key(VK_RETURN);
    ASSERT_TRUE(Program.Settle());
    ASSERT_EQ(CountItems(), 1);
    EXPECT_EQ(Load(1).ReminderMinutes, 1000 * 60);
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

TEST_F(EditorOnTheDesktop, AnEmptySubjectIsToldAndEscapeLeavesBoxAndDialog) {
    OpenByKey(kNewAppointment);
    Program.Key(VK_RETURN);
    Program.Do([&] { EXPECT_EQ(Program.BoxText(), u"Subject is empty..."); });
    Program.Key(VK_ESCAPE);
    Program.Do([&] {
        EXPECT_EQ(Program.BoxText(), u"");
        EXPECT_TRUE(Program.IsDialogOpen());
    });
    Program.Key(VK_ESCAPE);
    ASSERT_TRUE(Program.Settle());
    EXPECT_FALSE(Program.IsDialogOpen());
    EXPECT_EQ(CountItems(), 0);
}

TEST_F(EditorOnTheDesktop, ThePatternComesFromTheWizard) {
    OpenByKey(kNewAppointment);
    TypeSubject(kAppointmentTop, u"Course");
    TapRow(kAppointmentTop, 4, kEditRecurrence);
    Program.Choose(kEditRecurrence, kChoiceCustom);
    Program.Do([&] { EXPECT_EQ(Program.Caption(), u"Recurrence"); });
    Program.TapControl(kPatternWeekInterval);
    Program.Type(u"3");
    Program.TapControl(kWizardNext);
    Program.TapControl(kWizardNext);
    Program.Do([&] {
        EXPECT_EQ(Program.Caption(), u"Tavo Calendar");
        EXPECT_EQ(TextOf(kEditRecurrence), u"<Edit Pattern...>");
    });
    Program.TapControl(IDOK);
    ASSERT_TRUE(Program.Settle());
    ASSERT_EQ(CountItems(), 1);
    EXPECT_EQ(Load(1).RecurType, kRecursWeekly);
    EXPECT_EQ(Load(1).Interval, 3);
    EXPECT_EQ(Load(1).RecurChoice, kChoiceCustom);
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
