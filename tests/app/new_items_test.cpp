// New items by command: from every page to the editor, and from the editor to the month.
#include "res/resource_ids.h"
#include "tests/support/running_program.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tavo::test {
namespace {

constexpr int kNoticePeriod = 500;
constexpr int kCommands[] = {kCommandNewAlarm, kCommandNewHoliday, kCommandNewAnniversary, kCommandNewAppointment};

class NewItems : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(Program.Start()); }

    // The editor is open when this is done.
    void Save(std::u16string_view subject) {
        Program.Device.Tap(100, 20);
        Program.Device.TypeInto(kEditSubject, subject);
        Program.Device.TapControl(IDOK);
        ASSERT_TRUE(Program.Settle());
        ASSERT_FALSE(Program.Device.See.IsDialogOpen());
        Program.Device.AdvanceClock(kNoticePeriod);
        ASSERT_TRUE(Program.Settle());
    }

    std::size_t CountTags() {
        const CategoryLists& lists = Program.State().Categories;
        return lists.AlarmList.Size() + lists.HolidayList.Size() + lists.AnniversaryList.Size();
    }

    RunningProgram Program; // 3 November 2004, a Wednesday in the first row of its month
};

TEST_F(NewItems, ControlAndADigitOpenTheEditorOnEveryPage) {
    for (int page = 0; page < 4; ++page) {
        Program.ShowPage(page);
        for (int kind = 0; kind < 4; ++kind) {
            Program.Device.Key('1' + kind, kModifierControl);
            Program.Device.Do([&] {
                EXPECT_EQ(Program.Device.See.Caption(), u"Tavo Calendar");
                const auto hasRow = [&](std::u16string_view label) {
                    return Program.Device.See.FindItem(PaintedRole::Row, label).has_value();
                };
                EXPECT_EQ(hasRow(u"Time :"), kind == 0) << kind; // an alarm's
                EXPECT_EQ(hasRow(u"End :"), kind == 3) << kind;  // an appointment's
            });
            Program.Device.Key(VK_ESCAPE);
            ASSERT_TRUE(Program.Settle());
            EXPECT_FALSE(Program.Device.See.IsDialogOpen());
        }
    }
    EXPECT_EQ(Program.State().Store.CountAppointments(), 0);
    EXPECT_EQ(CountTags(), 0U);
}

TEST_F(NewItems, TheMonthShowsASavedItemOfEveryKindByItsMark) {
    Program.ShowPage(PageNumber::Calendar);
    const std::u16string bare = Program.CellName(0, 3);
    for (const int command : kCommands) {
        Program.Device.ChooseMenu(u"Tools", command);
        Save(u"Thing");
    }
    EXPECT_EQ(Program.State().Store.CountAppointments(), 4);
    EXPECT_EQ(bare, u"2004-11-03");
    EXPECT_EQ(Program.CellName(0, 3), u"2004-11-03: alarm, holiday, anniversary, appointment");
}

TEST_F(NewItems, OnTheMonthTheyBeginOnTheSelectedDay) {
    Program.ShowPage(PageNumber::Calendar);
    Program.TapAside(119, 123); // Wednesday of the third week
    Program.Device.Key('4', kModifierControl);
    Save(u"Thing");
    AppointmentData record;
    ASSERT_EQ(Program.State().Store.LoadAppointment(1, record), 1);
    EXPECT_EQ(record.Start.Day, 17);
    EXPECT_EQ(record.Start.Hour, 17);
    EXPECT_EQ(record.End.Day, 17);
    Program.ShowPage(PageNumber::Clock);
    Program.Device.Key('4', kModifierControl);
    Save(u"Thing");
    ASSERT_EQ(Program.State().Store.LoadAppointment(2, record), 2);
    EXPECT_EQ(record.Start.Day, 3); // elsewhere today
}

TEST_F(NewItems, TheSchedulePageShowsTheKindThatWasSaved) {
    Program.ShowPage(PageNumber::Schedule);
    for (int kind = 3; kind >= 0; --kind) {
        Program.Device.Key('1' + kind, kModifierControl);
        Save(u"Thing");
        constexpr std::u16string_view titles[] = {u"Alarm", u"Holiday", u"Anniversary", u"Appointment"};
        EXPECT_TRUE(Program.Device.See.FindItem(PaintedRole::Header, titles[kind]).has_value()) << kind;
    }
    Program.Device.Key('4', kModifierControl);
    Program.Device.TapControl(IDCANCEL);
    ASSERT_TRUE(Program.Settle());
    EXPECT_TRUE(Program.Device.See.FindItem(PaintedRole::Header, u"Alarm").has_value()); // nothing was saved
    Program.ShowPage(PageNumber::Clock);
    Program.Device.Key('2', kModifierControl);
    Save(u"Thing");
    Program.ShowPage(PageNumber::Schedule);
    EXPECT_TRUE(Program.Device.See.FindItem(PaintedRole::Header, u"Holiday").has_value());
}

TEST_F(NewItems, ASavedItemGoesToTheEndOfItsKindsList) {
    const CategoryLists& lists = Program.State().Categories;
    const CategoryList* const listOf[] = {&lists.AlarmList, &lists.HolidayList, &lists.AnniversaryList};
    for (int kind = 0; kind < 3; ++kind) {
        for (int count = 1; count <= 2; ++count) {
            Program.Device.Key('1' + kind, kModifierControl);
            Save(u"Thing");
            const CategoryList& list = *listOf[kind];
            ASSERT_EQ(list.Size(), static_cast<std::size_t>(count)) << kind;
            AppointmentData record;
            EXPECT_EQ(Program.State().Store.LoadAppointment(list.At(list.Size() - 1), record),
                      Program.State().Store.CountAppointments()); // OIDs count up from 1
        }
    }
    EXPECT_EQ(CountTags(), 6U);
}

TEST_F(NewItems, TheEditorIsNotGreyAfterItsMemo) {
    Program.Device.Key('4', kModifierControl);
    Program.Device.Tap(100, 205); // the memo's row
    Program.Device.Do([&] { EXPECT_NE(Program.Device.See.Control(kInkPaper), WindowHandle::None); });
    Program.Device.PressOk();
    Program.Device.Do([&] {
        const headless::Frame* frame = Program.Device.Host().Drawn.LastFrame(Program.Device.See.Top());
        ASSERT_NE(frame, nullptr);
        const auto once = std::find_if(frame->Calls.begin(), frame->Calls.end(),
                                       [](const headless::DrawCall& call) { return call.Text == u"Once"; });
        ASSERT_NE(once, frame->Calls.end());
        EXPECT_EQ(once->Ink, Color::FromRgb(0, 0, 0));
        for (const PaintedItem& item : Program.Device.See.Items()) {
            if (item.Id == kEditSubject || item.Id == kEditStartDate || item.Id == kEditRecurrence) {
                EXPECT_TRUE(item.Enabled) << item.Id;
            }
        }
    });
    Program.Device.TapControl(IDCANCEL);
    ASSERT_TRUE(Program.Settle());
}

TEST_F(NewItems, AnOrdinaryAppointmentGoesToNoList) {
    Program.Device.Key('4', kModifierControl);
    Save(u"Thing");
    EXPECT_EQ(Program.State().Store.CountAppointments(), 1);
    EXPECT_EQ(CountTags(), 0U);
}

TEST_F(NewItems, TheDataFileWaitsForThePageToBeClosed) {
    const std::optional<std::string> before = Program.ReadFile("TavoCalendar.dat");
    Program.Device.Key('1', kModifierControl);
    Save(u"Thing");
    EXPECT_EQ(Program.ReadFile("TavoCalendar.dat"), before);
    Program.Device.PressClose();
    ASSERT_TRUE(Program.Settle());
    ASSERT_TRUE(Program.ReadFile("TavoCalendar.dat").has_value());
    EXPECT_EQ(Program.ReadFile("TavoCalendar.dat")->size(), 19U); // one OID more than three empty lists
}

} // namespace
} // namespace tavo::test
