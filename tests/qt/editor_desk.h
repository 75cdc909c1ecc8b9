// The editor on the desktop, worked by mouse and keyboard: what its tests share.
#pragma once

#include "res/resource_ids.h"
#include "store/appointment_data.h"
#include "tests/qt/desktop_program.h"

#include <QApplication>
#include <QWidget>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tavo::qt {

inline constexpr int kTop = 15; // of the first row
inline constexpr int kAppointmentTop = 10;

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

} // namespace tavo::qt
