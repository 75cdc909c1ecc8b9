// Which control a tap shows, and where.
#include "tests/edit/edit_desk.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

struct Tapped {
    int X;
    int Y;
    int Control; // 0: none is shown
    Rect Place;
};

const Rect kNowhere{};

class EditorRows : public testing::Test {
  protected:
    // Taps one after the other on a new item of this kind.
    void Expect(std::int32_t mode, const std::vector<Tapped>& taps) {
        for (const Tapped& tap : taps) {
            Desk.Device.Tap(tap.X, tap.Y);
            Desk.Check([this, tap] {
                const std::vector<int> shown = Desk.ShownEditingControls();
                const std::vector<int> expected = tap.Control == 0 ? std::vector<int>{} : std::vector{tap.Control};
                EXPECT_EQ(shown, expected) << tap.X << ", " << tap.Y;
                if (tap.Control != 0) {
                    EXPECT_EQ(Desk.PlaceOf(tap.Control), tap.Place) << tap.X << ", " << tap.Y;
                }
            });
            Desk.Device.Tap(2, tap.Y); // the next tap meets the form again, not a control
        }
        Desk.Cancel();
        EXPECT_EQ(Desk.RunNew(mode), IDCANCEL);
    }

    EditDesk Desk;
};

const Rect kFirstRow = Rect::FromSize(65, 15, 165, 25);

TEST_F(EditorRows, OfAnAlarm) {
    Expect(kModeNewAlarm, {{70, 28, kEditSubject, kFirstRow},
                           {70, 54, kEditStartDate, Rect::FromSize(65, 41, 165, 25)},
                           {70, 80, kEditStartTime, Rect::FromSize(65, 67, 165, 25)},
                           {70, 106, kEditRecurrence, Rect::FromSize(65, 93, 165, 25)},
                           {70, 132, kEditSound, Rect::FromSize(65, 119, 125, 25)},
                           {70, 158, 0, kNowhere}, // the memo row opens no control
                           {70, 184, 0, kNowhere}});
}

TEST_F(EditorRows, OfAHolidayAndOfAnAnniversary) {
    for (const std::int32_t mode : {kModeNewHoliday, kModeNewAnniversary}) {
        Expect(mode, {{70, 28, kEditSubject, kFirstRow},
                      {70, 54, kEditStartDate, Rect::FromSize(65, 41, 165, 25)},
                      {70, 80, kEditRecurrence, Rect::FromSize(65, 67, 165, 25)},
                      {70, 106, kEditReminder, Rect::FromSize(65, 93, 50, 25)},
                      {114, 106, kEditReminder, Rect::FromSize(65, 93, 50, 25)},
                      {115, 106, kEditReminderValue, Rect::FromSize(118, 93, 35, 25)},
                      {152, 106, kEditReminderValue, Rect::FromSize(118, 93, 35, 25)},
                      {153, 106, kEditReminderUnit, Rect::FromSize(156, 93, 75, 25)},
                      {70, 132, kEditSound, Rect::FromSize(65, 119, 125, 25)},
                      {70, 158, 0, kNowhere},
                      {70, 184, 0, kNowhere}});
    }
}

TEST_F(EditorRows, OfAnAppointment) {
    Expect(kModeNewAppointment, {{70, 23, kEditSubject, Rect::FromSize(65, 10, 165, 25)},
                                 {147, 49, kEditStartDate, Rect::FromSize(65, 36, 83, 25)},
                                 {148, 49, kEditStartTime, Rect::FromSize(150, 36, 80, 25)},
                                 {147, 75, kEditEndDate, Rect::FromSize(65, 62, 83, 25)},
                                 {148, 75, kEditEndTime, Rect::FromSize(150, 62, 80, 25)},
                                 {70, 101, kEditAllDay, Rect::FromSize(65, 88, 165, 25)},
                                 {70, 127, kEditRecurrence, Rect::FromSize(65, 114, 165, 25)},
                                 {114, 153, kEditReminder, Rect::FromSize(65, 140, 50, 25)},
                                 {115, 153, kEditReminderValue, Rect::FromSize(118, 140, 35, 25)},
                                 {153, 153, kEditReminderUnit, Rect::FromSize(156, 140, 75, 25)},
                                 {195, 179, kEditSound, Rect::FromSize(65, 166, 125, 25)},
                                 {70, 205, 0, kNowhere},
                                 {70, 225, 0, kNowhere}});
}

TEST_F(EditorRows, TheyAreTwentySixPixelsHigh) {
    Expect(kModeNewAlarm, {{70, 40, kEditSubject, kFirstRow},
                           {70, 41, kEditStartDate, Rect::FromSize(65, 41, 165, 25)},
                           {70, 66, kEditStartDate, Rect::FromSize(65, 41, 165, 25)},
                           {70, 67, kEditStartTime, Rect::FromSize(65, 67, 165, 25)}});
    Expect(kModeNewAppointment, {{70, 35, kEditSubject, Rect::FromSize(65, 10, 165, 25)},
                                 {70, 36, kEditStartDate, Rect::FromSize(65, 36, 83, 25)}});
}

TEST_F(EditorRows, ATapAboveTheFirstOneIsStillOnIt) {
    for (const std::int32_t mode : {kModeNewAlarm, kModeNewHoliday}) {
        Expect(mode, {{70, 0, kEditSubject, kFirstRow}, {70, 14, kEditSubject, kFirstRow}});
    }
    Expect(kModeNewAppointment, {{70, 0, kEditSubject, Rect::FromSize(65, 10, 165, 25)}});
}

TEST_F(EditorRows, TheLabelsShowNothing) {
    Expect(kModeNewAlarm, {{64, 28, 0, kNowhere}, {65, 28, kEditSubject, kFirstRow}, {0, 54, 0, kNowhere}});
}

TEST_F(EditorRows, AnyLaterTapHidesWhatIsShown) {
    for (const Point elsewhere : {Point{10, 60}, Point{100, 220}, Point{100, 158}}) {
        Desk.ShowRow(0);
        Desk.Check([&] { EXPECT_EQ(Desk.ShownEditingControls(), std::vector{kEditSubject}); });
        Desk.Device.Tap(elsewhere.X, elsewhere.Y);
        Desk.Check([&] { EXPECT_TRUE(Desk.ShownEditingControls().empty()); });
    }
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL);
}

TEST_F(EditorRows, AShownControlHasNotTheFocusButTakesWhatIsTyped) {
    Desk.ShowRow(0);
    Desk.Check([&] { EXPECT_EQ(Desk.Device.Host().Windows().GetFocus(), WindowHandle::None); });
    Desk.Device.Type(u"Tea");
    Desk.Check([&] { EXPECT_EQ(Desk.TextOf(kEditSubject), u"Tea"); });
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL);
}

TEST_F(EditorRows, AnAllDayAppointmentHasDatesOverTheWholeRow) {
    Desk.TapAllDay();
    const Rect start = Rect::FromSize(65, 36, 165, 25);
    const Rect end = Rect::FromSize(65, 62, 165, 25);
    Expect(kModeNewAppointment, {{70, 49, kEditStartDate, start},
                                 {200, 49, kEditStartDate, start},
                                 {70, 75, kEditEndDate, end},
                                 {200, 75, kEditEndDate, end}});
}

TEST_F(EditorRows, TheDateIsNarrowAgainWhenItIsNoLongerAllDay) {
    Desk.TapAllDay();
    Desk.ShowRow(1);
    Desk.TapAllDay();
    Expect(kModeNewAppointment, {{70, 49, kEditStartDate, Rect::FromSize(65, 36, 83, 25)},
                                 {200, 49, kEditStartTime, Rect::FromSize(150, 36, 80, 25)}});
}

TEST_F(EditorRows, AClickOnAllDayHidesTheBox) {
    Desk.ShowRow(3);
    Desk.Check([&] { EXPECT_EQ(Desk.ShownEditingControls(), std::vector{kEditAllDay}); });
    Desk.Device.TapControl(kEditAllDay);
    Desk.Check([&] {
        EXPECT_TRUE(Desk.Device.See.IsChecked(kEditAllDay));
        EXPECT_TRUE(Desk.ShownEditingControls().empty());
    });
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
}

TEST_F(EditorRows, TheTemplatesLabelsAndMemoButtonStayHidden) {
    Desk.Check([&] {
        for (const int label : {kEditSubjectLabel, kEditStartLabel, kEditEndLabel, kEditRecurLabel, kEditAlarmLabel,
                                kEditCategoryLabel, kEditMemoLabel, kEditMemo}) {
            EXPECT_FALSE(Desk.Device.See.IsShown(label)) << label;
        }
        EXPECT_TRUE(Desk.Device.See.IsShown(IDOK));
        EXPECT_TRUE(Desk.Device.See.IsShown(IDCANCEL));
    });
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
}

} // namespace
} // namespace tavo::test
