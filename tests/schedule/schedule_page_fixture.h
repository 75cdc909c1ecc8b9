// For the tests of the Schedule page: its scroll bar, keys, taps and what its list drew.
#pragma once

#include "tests/schedule/schedule_desk.h"

#include <gtest/gtest.h>

#include <string>

namespace tavo::test {

class SchedulePage : public testing::Test {
  protected:
    SchedulePage() { EXPECT_TRUE(Desk.Start()); }

    // So many appointments today, an hour each on the hour.
    void GivenAppointmentsToday(int count) {
        for (int number = 0; number < count; ++number) {
            Desk.GivenAppointment(u"Item", At(2004, 11, 3, number), At(2004, 11, 3, number, 30));
        }
    }

    void Scroll(int request, int position = 0) {
        Desk.Device.Scroll(kScheduleScrollBar, request, position);
        ASSERT_TRUE(Desk.Settle());
    }

    void Key(int key) {
        Desk.Device.Key(key);
        ASSERT_TRUE(Desk.Settle());
    }

    void Tap(int x, int y) {
        Desk.Device.Tap(x, y);
        ASSERT_TRUE(Desk.Settle());
    }

    // Selects a row without acting on it.
    void Select(int row) {
        Desk.ChooseInRow(row, 0);
        ASSERT_TRUE(Desk.Settle());
    }

    bool PickersShown() {
        const bool start = Desk.Device.See.IsShown(kSchedulePeriodStart);
        EXPECT_EQ(start, Desk.Device.See.IsShown(kSchedulePeriodEnd));
        return start;
    }

    Rect PlaceOf(int control) {
        const shell::WindowTree& tree = Desk.Device.Host().State.Tree;
        const Rect bounds = tree.ScreenBounds(Desk.Device.See.Control(control));
        return {bounds.Left, bounds.Top - kClientArea.Top, bounds.Right, bounds.Bottom - kClientArea.Top};
    }

    // By the list on show, since it was last presented.
    std::string DrawnByTheList() { return DrawnByTheListOf(Desk); }

    static std::string DrawnByTheListOf(ScheduleDesk& desk) {
        headless::HeadlessHost& host = desk.Device.Host();
        for (const WindowHandle child : host.State.Tree.ChildrenOf(desk.Device.See.Top())) {
            if (host.State.Tree.IsVisible(child) && host.Drawn.LastFrame(child) != nullptr) {
                return ToText(host.Drawn.LastFrame(child)->Calls);
            }
        }
        return {};
    }

    ScheduleDesk Desk;
};

} // namespace tavo::test
