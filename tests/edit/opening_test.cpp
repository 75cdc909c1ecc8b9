// What the dialog holds when it opens.
#include "tests/edit/edit_desk.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

const std::int32_t kNewModes[] = {kModeNewAlarm, kModeNewHoliday, kModeNewAnniversary, kModeNewAppointment};

SYSTEMTIME WithWeekday(SYSTEMTIME time, int dayOfWeek) {
    time.DayOfWeek = static_cast<std::uint16_t>(dayOfWeek);
    return time;
}

TEST(OpeningTheEditor, ANewItemStartsAtTheHalfHourBeforeNowInAllPickers) {
    for (const std::int32_t mode : kNewModes) {
        EditDesk desk(At(2026, 11, 21, 9, 47));
        desk.Check([&] {
            const SYSTEMTIME expected = WithWeekday(At(2026, 11, 21, 9, 30), 6);
            for (const int picker : {kEditStartDate, kEditStartTime, kEditEndDate, kEditEndTime}) {
                EXPECT_EQ(desk.PickerOf(picker), expected) << mode << ' ' << picker;
            }
            EXPECT_EQ(desk.TextOf(kEditSubject), u"");
            EXPECT_FALSE(desk.Device.See.IsChecked(kEditAllDay));
            EXPECT_EQ(desk.Device.See.SelectionOf(kEditRecurrence), 0);
            EXPECT_EQ(desk.Device.See.Caption(), u"Tavo Calendar");
            EXPECT_TRUE(desk.ShownEditingControls().empty());
        });
        desk.Cancel();
        EXPECT_EQ(desk.RunNew(mode), IDCANCEL);
    }
}

TEST(OpeningTheEditor, OkAndCancelLieSideBySideBelowTheForm) {
    EditDesk desk;
    desk.Check([&] {
        EXPECT_EQ(desk.PlaceOf(IDOK), Rect::FromSize(45, 232, 70, 24));
        EXPECT_EQ(desk.PlaceOf(IDCANCEL), Rect::FromSize(125, 232, 70, 24));
    });
    desk.Cancel();
    EXPECT_EQ(desk.RunNew(kModeNewAppointment), IDCANCEL);
}

TEST(OpeningTheEditor, TheWholeSubjectIsSelectedToBeTypedOver) {
    EditDesk desk;
    const Oid oid = desk.GivenAppointment(u"Call", At(2026, 11, 23, 9), At(2026, 11, 23, 10));
    desk.Device.Key(VK_TAB);
    desk.Device.Type(u"x");
    desk.Check([&] { EXPECT_EQ(desk.TextOf(kEditSubject), u"x"); });
    desk.Cancel();
    EXPECT_EQ(desk.RunExisting(kModeAppointment, oid), IDCANCEL);
}

TEST(OpeningTheEditor, ASeriesSaysItsRuleInTheWordsOfItsOwnDay) {
    EditDesk desk(At(2026, 11, 21, 9, 47)); // a Saturday
    const Oid oid = desk.GivenSeries(u"Class", At(2026, 11, 23, 9), At(2026, 11, 23, 10), kRecursWeekly);
    desk.Check([&] {
        EXPECT_EQ(desk.TextOf(kEditRecurrence), u"Every Monday");
        EXPECT_EQ(desk.ValueOf(kEditRecurrence), u"Every Monday");
    });
    desk.Cancel();
    EXPECT_EQ(desk.RunExisting(kModeAppointment, oid), IDCANCEL);
}

TEST(OpeningTheEditor, BeforeHalfPastItIsTheFullHour) {
    EditDesk desk(At(2026, 11, 21, 9, 29));
    desk.Check([&] { EXPECT_EQ(desk.PickerOf(kEditStartTime), WithWeekday(At(2026, 11, 21, 9, 0), 6)); });
    desk.Cancel();
    EXPECT_EQ(desk.RunNew(kModeNewAppointment), IDCANCEL);
}

TEST(OpeningTheEditor, ANewAlarmRemindsAfterFifteenMinutes) {
    EditDesk desk;
    desk.Check([&] {
        EXPECT_EQ(desk.TextOf(kEditReminder), u"Yes");
        EXPECT_EQ(desk.TextOf(kEditReminderValue), u"15");
        EXPECT_EQ(desk.TextOf(kEditReminderUnit), u"Minute(s)");
        EXPECT_EQ(desk.TextOf(kEditSound), u"Sound off");
    });
    desk.ShowRow(4);
    desk.Check([&] { EXPECT_TRUE(desk.Device.See.IsEnabled(kEditSound)); });
    desk.Cancel();
    EXPECT_EQ(desk.RunNew(kModeNewAlarm), IDCANCEL);
}

} // namespace
} // namespace tavo::test
