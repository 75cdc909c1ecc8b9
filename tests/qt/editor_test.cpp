// Making and changing items on the desktop, by mouse and keyboard.
#include "tests/qt/editor_desk.h"

#include <array>
#include <chrono>

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

} // namespace
} // namespace tavo::qt
