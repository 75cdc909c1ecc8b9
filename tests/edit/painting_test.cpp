// What the painted form says.
#include "tests/edit/edit_desk.h"

#include <gtest/gtest.h>

#include <tuple>

namespace tavo::test {
namespace {

using Texts = std::vector<std::u16string>;

constexpr Color kRule = Color::FromRgb(153, 153, 153);

class EditorTexts : public testing::Test {
  protected:
    Texts RowNames() const {
        Texts names;
        for (const PaintedItem& item : Desk.Device.See.Items()) {
            if (item.Role == PaintedRole::Row) {
                names.push_back(item.Name);
            }
        }
        return names;
    }

    void RunNew(std::int32_t mode) {
        Desk.Cancel();
        EXPECT_EQ(Desk.RunNew(mode), IDCANCEL);
    }

    EditDesk Desk{At(2026, 11, 21, 14, 47)};
};

TEST_F(EditorTexts, LabelsOfAnAlarm) {
    Desk.Check([&] {
        EXPECT_EQ(RowNames(), (Texts{u"Subject :", u"Date :", u"Time :", u"Recur :", u"Alarm :", u"Memo :"}));
    });
    RunNew(kModeNewAlarm);
}

TEST_F(EditorTexts, LabelsOfAHoliday) {
    Desk.Check([&] {
        EXPECT_EQ(RowNames(), (Texts{u"Subject :", u"Date :", u"Recur :", u"Alarm :", u"", u"Memo :"}));
    });
    RunNew(kModeNewHoliday);
}

TEST_F(EditorTexts, LabelsOfAnAppointment) {
    Desk.Check([&] {
        EXPECT_EQ(RowNames(), (Texts{u"Subject :", u"Start :", u"End :", u"", u"Recur :", u"Alarm :", u"", u"Memo :"}));
    });
    Desk.ShowRow(0); // painted once more
    Desk.Check([&] { EXPECT_EQ(RowNames().size(), 8U); });
    RunNew(kModeNewAppointment);
}

TEST_F(EditorTexts, AnAlarmSaysItsTimeToTheSecond) {
    Desk.Check([&] {
        EXPECT_EQ(Desk.ValueOf(kEditStartDate), u"2026.11.21 (Sat)");
        EXPECT_EQ(Desk.ValueOf(kEditStartTime), u"02:30:00 PM");
        EXPECT_EQ(Desk.ValueOf(kEditRecurrence), u"Once");
        EXPECT_EQ(Desk.ValueOf(kEditSound), u"Sound off");
        EXPECT_EQ(Desk.ValueOf(kEditMemo), u"Edit memo...");
    });
    RunNew(kModeNewAlarm);
}

TEST_F(EditorTexts, AHolidaySaysItsDayAlone) {
    Desk.Check([&] {
        EXPECT_EQ(Desk.ValueOf(kEditStartDate), u"2026.11.21 (Sat)");
        EXPECT_EQ(Desk.ValueOf(kEditStartTime), u"(not painted)");
        EXPECT_EQ(Desk.ValueOf(kEditReminder), u"No");
        EXPECT_EQ(Desk.ValueOf(kEditReminderValue), u"12");
        EXPECT_EQ(Desk.ValueOf(kEditReminderUnit), u"Hour(s)");
    });
    RunNew(kModeNewHoliday);
}

TEST_F(EditorTexts, AnAppointmentSaysItsTimesToTheMinute) {
    Desk.Check([&] {
        EXPECT_EQ(Desk.ValueOf(kEditStartDate), u"2026.11.21");
        EXPECT_EQ(Desk.ValueOf(kEditStartTime), u"02:30 PM");
        EXPECT_EQ(Desk.ValueOf(kEditEndDate), u"2026.11.21");
        EXPECT_EQ(Desk.ValueOf(kEditEndTime), u"02:30 PM");
        EXPECT_EQ(Desk.ValueOf(kEditAllDay), u"All day");
    });
    RunNew(kModeNewAppointment);
}

TEST_F(EditorTexts, AnAllDayAppointmentSaysSoInPlaceOfItsTimes) {
    Desk.TapAllDay();
    Desk.Check([&] {
        EXPECT_EQ(Desk.ValueOf(kEditStartDate), u"2026.11.21");
        EXPECT_EQ(Desk.ValueOf(kEditStartTime), u"All day recurring");
        EXPECT_EQ(Desk.ValueOf(kEditEndTime), u"All day recurring");
        EXPECT_TRUE(Desk.Device.See.ShowsText(u"All day recurring"));
    });
    RunNew(kModeNewAppointment);
}

TEST_F(EditorTexts, AWideDateCoversTheWordsBesideItAndNothingRunsPastTheRule) {
    const auto countWords = [this](int expected) {
        Desk.Check([this, expected] {
            int count = 0;
            for (const headless::Placed& placed : Desk.Device.See.Visible()) {
                if (placed.Text == u"All day recurring") {
                    ++count;
                    EXPECT_LE(placed.Area.Right, 235);
                }
            }
            EXPECT_EQ(count, expected);
        });
    };
    Desk.TapAllDay();
    countWords(2);
    Desk.ShowRow(1);
    countWords(1);
    Desk.ShowRow(2);
    countWords(1);
    RunNew(kModeNewAppointment);
}

TEST_F(EditorTexts, AValueFollowsItsControlAtTheNextTap) {
    Desk.Subject(u"Dentist");
    Desk.PickStartDate(2027, 1, 2);
    Desk.Device.Tap(2, 2);
    Desk.Check([&] {
        EXPECT_TRUE(Desk.Device.See.ShowsText(u"Dentist"));
        EXPECT_TRUE(Desk.Device.See.ShowsText(u"2027.01.02 (Sat)"));
    });
    RunNew(kModeNewAlarm);
}

TEST_F(EditorTexts, ALongSubjectEndsInDotsWithinItsRow) {
    for (const char16_t wideOrNarrow : {u'm', u'W', u'i'}) {
        const std::u16string subject(100, wideOrNarrow);
        Desk.Subject(subject);
        Desk.Device.Tap(2, 2);
        Desk.Check([this, subject] {
            EXPECT_EQ(Desk.ValueOf(kEditSubject), subject);
            bool isShortened = false;
            for (const headless::Placed& placed : Desk.Device.See.Visible()) {
                if (placed.Text.starts_with(subject.substr(0, 3))) {
                    isShortened = placed.Text.ends_with(u"...");
                    EXPECT_GE(placed.Area.Left, 65);
                    EXPECT_LE(placed.Area.Right, 235);
                    EXPECT_LE(Desk.WidthOf(placed.Text), 235 - 68);
                }
            }
            EXPECT_TRUE(isShortened);
        });
    }
    RunNew(kModeNewAlarm);
}

TEST_F(EditorTexts, ALongSubjectKeepsAllThatLeavesRoomForTheDots) {
    const std::u16string beginning = std::u16string(36, u'i') + u"m";
    Desk.Subject(beginning + std::u16string(60, u'i'));
    Desk.Device.Tap(2, 2);
    Desk.Check([this, beginning] {
        EXPECT_EQ(Desk.WidthOf(beginning), 142); // one more letter, and the dots
        EXPECT_TRUE(Desk.Device.See.ShowsText(beginning + u"i..."));
    });
    RunNew(kModeNewAlarm);
}

TEST_F(EditorTexts, ALongSoundEndsInDotsBeforeTheIcons) {
    const std::u16string name = std::u16string(40, u'm') + u".wav";
    const std::vector<std::uint8_t> bytes{1};
    ASSERT_EQ(Desk.Device.Host().Files().WriteWholeFile(u"\\Windows\\" + name, bytes), ErrorCode::Success);
    Desk.ChooseSound(name);
    Desk.Device.Tap(2, 2);
    Desk.Check([this, name] {
        EXPECT_EQ(Desk.ValueOf(kEditSound), name);
        EXPECT_FALSE(Desk.Device.See.ShowsText(name));
        for (const headless::Placed& placed : Desk.Device.See.Visible()) {
            if (placed.Text.starts_with(u"mmm")) {
                EXPECT_TRUE(placed.Text.ends_with(u"m..."));
                EXPECT_LE(Desk.WidthOf(placed.Text), 187 - 68);
            }
        }
    });
    RunNew(kModeNewAlarm);
}

TEST_F(EditorTexts, NoRecurrenceTextIsShortened) {
    // The longest of them all, in the widest of months and weekdays.
    Desk.PickStartDate(2026, 11, 25);
    Desk.ChooseRecurrence(kChoiceMonthNth);
    Desk.Device.Tap(2, 2);
    Desk.Check([&] { EXPECT_TRUE(Desk.Device.See.ShowsText(u"The 4th Wed. of every month")); });
    RunNew(kModeNewAppointment);
}

TEST_F(EditorTexts, NoTextIsDrawnUnderTheControlThatIsShown) {
    Desk.Subject(u"Dentist");
    Desk.PickEndDate(2026, 11, 22);
    Desk.PickEndTime(15, 45);
    Desk.ChooseReminder(true);

    struct Field {
        int Row;
        int X;
        const char16_t* Text;
    };

    const Field fields[] = {{0, 70, u"Dentist"},    {1, 70, u"2026.11.21"}, {1, 160, u"02:30 PM"},
                            {2, 70, u"2026.11.22"}, {2, 160, u"03:45 PM"},  {3, 70, u"All day"},
                            {4, 70, u"Once"},       {5, 70, u"Yes"},        {5, 120, u"12"},
                            {5, 160, u"Hour(s)"},   {6, 70, u"Sound off"}};
    for (const Field& shown : fields) {
        Desk.ShowRow(shown.Row, shown.X);
        Desk.Check([this, &fields, &shown] {
            for (const Field& field : fields) {
                EXPECT_EQ(Desk.Device.See.ShowsText(field.Text), &field != &shown)
                    << shown.Row << ", " << shown.X << ": " << field.Row << ", " << field.X;
            }
        });
        Desk.Device.Tap(2, 2);
    }
    RunNew(kModeNewAppointment);
}

TEST_F(EditorTexts, TheSoundRowHasPlayAndStop) {
    Desk.Check([&] {
        for (const auto& [name, left] : {std::pair{u"Play", 196}, std::pair{u"Stop", 214}}) {
            const std::optional<PaintedItem> icon = Desk.Device.See.FindItem(PaintedRole::Button, name);
            ASSERT_TRUE(icon.has_value());
            EXPECT_EQ(icon->Bounds.Left, left);
            EXPECT_EQ(icon->Bounds.Width(), 16);
            EXPECT_EQ(icon->Bounds.Height(), 16);
            EXPECT_GE(icon->Bounds.Top, 119);
            EXPECT_LE(icon->Bounds.Bottom, 119 + 26);
        }
        EXPECT_TRUE(Desk.Device.See.ShowsBitmap(kBitmapPlay));
        EXPECT_TRUE(Desk.Device.See.ShowsBitmap(kBitmapStop));
    });
    RunNew(kModeNewAlarm);
}

TEST_F(EditorTexts, GreyRulesLieBetweenTheRowsOnWhite) {
    Desk.Check([&] {
        for (int row = 0; row <= 6; ++row) {
            EXPECT_EQ(Desk.Device.See.PixelAt(232, 14 + 26 * row), kRule) << row;
            EXPECT_EQ(Desk.Device.See.PixelAt(232, 14 + 26 * row + 13), Color::FromRgb(255, 255, 255)) << row;
        }
    });
    RunNew(kModeNewAlarm);
}

TEST_F(EditorTexts, TheValueOfTheShownControlIsSelected) {
    const std::tuple<int, int, int> shown[] = {
        {0, 70, kEditSubject},    {1, 160, kEditStartTime}, {2, 70, kEditEndDate},       {3, 70, kEditAllDay},
        {4, 70, kEditRecurrence}, {5, 70, kEditReminder},   {5, 160, kEditReminderUnit}, {6, 70, kEditSound}};
    Desk.ChooseReminder(true);
    for (const auto& [row, x, control] : shown) {
        Desk.Device.Tap(2, 2);
        Desk.ShowRow(row, x);
        Desk.Check([this, control = control] {
            for (const PaintedItem& item : Desk.Device.See.Items()) {
                if (item.Role == PaintedRole::Cell) {
                    EXPECT_EQ(item.Selected, item.Id == control) << control << ", " << item.Id;
                }
            }
        });
    }
    RunNew(kModeNewAppointment);
}

TEST_F(EditorTexts, TheRowOfTheShownControlIsSelected) {
    Desk.ShowRow(3);
    Desk.Check([&] {
        const std::optional<PaintedItem> row = Desk.Device.See.FindItem(PaintedRole::Row, u"Recur :");
        ASSERT_TRUE(row.has_value());
        EXPECT_TRUE(row->Selected);
        EXPECT_EQ(row->Bounds, Rect::FromSize(0, 93, 240, 26));
        EXPECT_FALSE(Desk.Device.See.FindItem(PaintedRole::Row, u"Date :")->Selected);
    });
    RunNew(kModeNewAlarm);
}

} // namespace
} // namespace tavo::test
