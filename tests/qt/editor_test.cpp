// Making items on the desktop, by mouse and keyboard.
#include "res/resource_ids.h"
#include "tests/qt/desktop_program.h"

#include <gtest/gtest.h>

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

std::string ToNarrow(const std::u16string& text) {
    return QString::fromStdU16String(text).toStdString();
}

class EditorOnTheDesktop : public testing::Test {
  protected:
    int CountItems() { return Program.State().Store.CountAppointments(); }

    // The record of the item that was saved first, second, ..: OIDs count up from 1.
    AppointmentData Load(Oid oid) {
        AppointmentData record;
        EXPECT_EQ(Program.State().Store.LoadAppointment(oid, record), oid);
        return record;
    }

    DesktopProgram Program;
};

TEST_F(EditorOnTheDesktop, ANewAppointmentByMouseIsSeenInTheMonth) {
    Program.Tap(kCalendarTab, 250);
    Program.ChooseMenu(kToolsMenu, kCommandNewAppointment);
    Program.Do([&] { EXPECT_EQ(Program.Caption(), u"Tavo Calendar"); });
    Program.Tap(100, 20);
    Program.Do([&] { EXPECT_TRUE(Program.IsShown(kEditSubject)); });
    Program.TapControl(kEditSubject);
    Program.Type(u"Dentist");
    Program.TapControl(IDOK);
    Program.Pass(kNoticePeriod);
    ASSERT_TRUE(Program.Settle());
    EXPECT_FALSE(Program.IsDialogOpen());
    ASSERT_EQ(CountItems(), 1);
    EXPECT_EQ(Load(1).Subject, u"Dentist");
    const std::u16string cell = Program.NameOf(PaintedRole::Cell, CellOf(Load(1).Start));
    EXPECT_TRUE(cell.ends_with(u": appointment")) << ToNarrow(cell);
}

} // namespace
} // namespace tavo::qt
