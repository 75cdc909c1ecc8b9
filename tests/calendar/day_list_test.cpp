// The day schedule list: what it holds for a day, and what it shows.
#include "calendar/day_list.h"

#include "tests/support/folder_probe.h"
#include "tests/support/outlook_probe.h"
#include "tests/support/test_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::At;
using test::TestDevice;
using testing::ElementsAre;
using testing::IsEmpty;

class CountingOwner final : public IDayListOwner {
  public:
    explicit CountingOwner(const CDayList& list) : List(list) {}

    void OnDayListLoaded() override { Counts.push_back(List.Count()); }

    std::vector<int> Counts; // of rows, at each notice

  private:
    const CDayList& List;
};

// The list lies on a bare frame, hidden as on the calendar page.
class DayListTest : public testing::Test {
  protected:
    DayListTest() {
        WindowDescription frame;
        frame.Kind = WindowKind::Frame;
        frame.Bounds = Rect::FromSize(0, 0, 240, 320);
        frame.Visible = true;
        Frame = Device.Host.Windows().CreateWindowExW(frame);
        EXPECT_TRUE(State.Store.OpenStore());
        EXPECT_TRUE(List.CreateOn(Frame, Rect::FromSize(0, 30, 240, 210)));
    }

    void LoadDay(int year, int month, int day) {
        List.SetDate(year, month, day);
        List.Load(nullptr);
    }

    std::vector<std::u16string> Subjects() const {
        std::vector<std::u16string> subjects;
        for (const AppointmentData& record : List.Rows()) {
            subjects.push_back(record.Subject);
        }
        return subjects;
    }

    // Half an hour on 3 May 2004, which is a Monday.
    Oid GivenOnMonday(std::u16string_view subject, int hour) {
        return Device.GivenAppointment(subject, At(2004, 5, 3, hour, 0), At(2004, 5, 3, hour, 30));
    }

    void LetPaint() {
        bool done = false;
        Device.Host.State.Minimized = false;
        Device.Host.Time.Script.Add([&] {
            done = true;
            Device.Host.Queue().PostMessageW({}); // wakes the pump, which sees that it is done
        });
        EXPECT_TRUE(Device.Pump.RunUntil(done));
    }

    std::vector<std::u16string> TextsShown() const {
        std::vector<std::u16string> texts;
        if (const headless::Frame* frame = Device.Host.Drawn.LastFrame(List.Handle())) {
            for (const headless::DrawCall& call : frame->Calls) {
                if (call.Kind == headless::DrawKind::Text && !call.Text.empty()) {
                    texts.push_back(call.Text);
                }
            }
        }
        return texts;
    }

    int FirstRowShown() const {
        const headless::Frame* frame = Device.Host.Drawn.LastFrame(List.Handle());
        return frame == nullptr || frame->Items.empty() ? -1 : frame->Items.front().Id;
    }

    std::string Drawn() const {
        const headless::Frame* frame = Device.Host.Drawn.LastFrame(List.Handle());
        return frame == nullptr ? std::string() : ToText(frame->Calls);
    }

    TestDevice Device;
    CProgramState State{Device.Pump};
    CDayList List{Device.Pump, State};
    WindowHandle Frame = WindowHandle::None;
};

TEST_F(DayListTest, AsksForTheDayByItsDateTwice) {
    const test::AskedRestrictions asked(State.Store.CalendarFolder);
    LoadDay(2004, 5, 3);
    EXPECT_EQ(asked.Texts, std::vector<std::u16string>{u"[Start] <= 5/3/2004 and [End] >= 5/3/2004"});
}

TEST_F(DayListTest, IsMadeHidden) {
    EXPECT_FALSE(Device.Host.Windows().IsWindowVisible(List.Handle()));
    EXPECT_EQ(Device.Host.Windows().GetClientRect(List.Handle()), (Rect{0, 0, 240, 210}));
}

TEST_F(DayListTest, HoldsTheItemsThatTouchTheDayInTheOrderOfTheStore) {
    GivenOnMonday(u"Lunch", 12);
    GivenOnMonday(u"Dentist", 9);
    Device.GivenAppointment(u"Journey", At(2004, 4, 30, 8, 0), At(2004, 5, 4, 20, 0));
    Device.GivenAppointment(u"Sunday", At(2004, 5, 2, 9, 0), At(2004, 5, 2, 10, 0));
    Device.GivenAppointment(u"Tuesday", At(2004, 5, 4, 9, 0), At(2004, 5, 4, 10, 0));
    LoadDay(2004, 5, 3);
    EXPECT_THAT(Subjects(), ElementsAre(u"Journey", u"Dentist", u"Lunch"));
    EXPECT_EQ(List.Count(), 3);
}

TEST_F(DayListTest, RowsAreNumbered) {
    GivenOnMonday(u"Dentist", 9);
    GivenOnMonday(u"Lunch", 12);
    GivenOnMonday(u"Tea", 16);
    LoadDay(2004, 5, 3);
    ASSERT_EQ(List.Count(), 3);
    EXPECT_EQ(List.Rows()[0].Mark, 0);
    EXPECT_EQ(List.Rows()[1].Mark, 1);
    EXPECT_EQ(List.Rows()[2].Mark, 2);
}

TEST_F(DayListTest, TheWholeDayIsAskedForFromItsFirstToItsLastMinute) {
    Device.GivenAppointment(u"Midnight", At(2004, 5, 3, 0, 0), At(2004, 5, 3, 0, 15));
    Device.GivenAppointment(u"Late", At(2004, 5, 3, 23, 30), At(2004, 5, 3, 23, 59));
    Device.GivenAppointment(u"Evening before", At(2004, 5, 2, 22, 0), At(2004, 5, 3, 1, 0));
    LoadDay(2004, 5, 3);
    EXPECT_THAT(Subjects(), ElementsAre(u"Evening before", u"Midnight", u"Late"));
}

TEST_F(DayListTest, AnAllDayItemIsNotOnTheDayAtWhoseMidnightItEnds) {
    Device.GivenAllDay(u"Holiday", At(2004, 5, 3), 2);
    LoadDay(2004, 5, 4);
    EXPECT_THAT(Subjects(), ElementsAre(u"Holiday"));
    LoadDay(2004, 5, 5);
    EXPECT_THAT(Subjects(), IsEmpty());
}

TEST_F(DayListTest, ASeriesStandsOncePerOccurrenceOfTheDay) {
    // Thirty hours from the evening on: three occurrences touch each day.
    Device.GivenSeries(u"Watch", At(2004, 5, 1, 20, 0), At(2004, 5, 3, 2, 0), kRecursDaily,
                       [](IRecurrencePattern& pattern) { EXPECT_EQ(pattern.put_Duration(30 * 60), Status::Ok); });
    LoadDay(2004, 5, 10);
    EXPECT_THAT(Subjects(), ElementsAre(u"Watch", u"Watch", u"Watch"));
    LoadDay(2004, 4, 30);
    EXPECT_THAT(Subjects(), IsEmpty());
}

TEST_F(DayListTest, RecordsOfASeriesAreTheSeriesOwn) {
    const Oid standup = Device.GivenSeries(u"Standup", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 9, 15), kRecursDaily);
    LoadDay(2004, 6, 20);
    ASSERT_EQ(List.Count(), 1);
    EXPECT_EQ(List.Rows()[0].Oid, standup);
    EXPECT_EQ(List.Rows()[0].Start, (SYSTEMTIME{2004, 5, 1, 3, 9, 0, 0, 0}));
    EXPECT_EQ(List.Rows()[0].RecurChoice, kChoiceEveryday);
}

TEST_F(DayListTest, LoadingAgainForgetsTheDayBefore) {
    GivenOnMonday(u"Dentist", 9);
    LoadDay(2004, 5, 3);
    LoadDay(2004, 5, 4);
    EXPECT_THAT(Subjects(), IsEmpty());
}

TEST_F(DayListTest, AnImpossibleDateHasNoItems) {
    Device.GivenSeries(u"Standup", At(2004, 1, 1, 9, 0), At(2004, 1, 1, 9, 15), kRecursDaily);
    LoadDay(2005, 2, 31);
    EXPECT_THAT(Subjects(), IsEmpty());
}

TEST_F(DayListTest, WithoutAStoreThereAreNoItems) {
    GivenOnMonday(u"Dentist", 9);
    LoadDay(2004, 5, 3);
    State.Store.CalendarFolder.Reset();
    LoadDay(2004, 5, 3);
    EXPECT_THAT(Subjects(), IsEmpty());
    EXPECT_THAT(Device.MessagesShown(), IsEmpty());
}

TEST_F(DayListTest, AnItemThatCannotBeLoadedIsListedWithWhatWasRead) {
    const Oid dentist = GivenOnMonday(u"Dentist", 9);
    test::OutlookProbe probe(State.Store.OutlookApp);
    probe.ItemResult = Status::NotFound;
    State.Store.OutlookApp = probe.Share();
    LoadDay(2004, 5, 3);
    ASSERT_EQ(List.Count(), 1);
    EXPECT_EQ(List.Rows()[0].Oid, dentist);
    EXPECT_EQ(List.Rows()[0].Subject, u"");
    EXPECT_EQ(List.Rows()[0].Mark, 0);
    EXPECT_THAT(Device.MessagesShown(), IsEmpty());
    State.Store.OutlookApp.Reset();
}

TEST_F(DayListTest, EndsWhereTheStoreGivesNoItem) {
    GivenOnMonday(u"Dentist", 9);
    GivenOnMonday(u"Lunch", 12);
    GivenOnMonday(u"Tea", 16);
    test::FolderFaults faults;
    State.Store.CalendarFolder = test::FolderProbe::Make(State.Store.CalendarFolder, faults);
    faults.MissingFrom = 3; // though it says that all went well
    LoadDay(2004, 5, 3);
    EXPECT_THAT(Subjects(), ElementsAre(u"Dentist", u"Lunch"));
    State.Store.CalendarFolder.Reset();
}

TEST_F(DayListTest, TheOwnerIsToldWhenTheRowsAreThere) {
    GivenOnMonday(u"Dentist", 9);
    CountingOwner owner(List);
    List.SetDate(2004, 5, 3);
    List.Load(&owner);
    List.SetDate(2004, 5, 4);
    List.Load(&owner);
    EXPECT_THAT(owner.Counts, ElementsAre(1, 0));
}

TEST_F(DayListTest, ScrollsUntilTheLastRowIsSeen) {
    for (int hour = 8; hour < 14; ++hour) {
        GivenOnMonday(u"Item", hour);
    }
    LoadDay(2004, 5, 3);
    EXPECT_EQ(List.Top(), 0);
    EXPECT_EQ(List.MaximumTop(), 2);
    List.SetTop(9);
    EXPECT_EQ(List.Top(), 2);
    List.SetTop(-1);
    EXPECT_EQ(List.Top(), 0);
    EXPECT_TRUE(List.TakeKey(VK_DOWN));
    EXPECT_EQ(List.Top(), 1);
    EXPECT_TRUE(List.TakeKey(VK_UP));
    EXPECT_TRUE(List.TakeKey(VK_UP));
    EXPECT_EQ(List.Top(), 0);
    EXPECT_FALSE(List.TakeKey(VK_LEFT));
}

TEST_F(DayListTest, AKeyScrollsByOneRowAndShowsIt) {
    for (int hour = 8; hour < 15; ++hour) {
        GivenOnMonday(u"Item", hour);
    }
    List.Show(ShowCommand::Show);
    LoadDay(2004, 5, 3);
    List.SetTop(3);
    EXPECT_TRUE(List.TakeKey(VK_UP));
    EXPECT_EQ(List.Top(), 2);
    LetPaint();
    EXPECT_EQ(FirstRowShown(), 2);
    EXPECT_TRUE(List.TakeKey(VK_DOWN));
    LetPaint();
    EXPECT_EQ(FirstRowShown(), 3);
}

TEST_F(DayListTest, AShortListDoesNotScroll) {
    for (int hour = 8; hour < 12; ++hour) {
        GivenOnMonday(u"Item", hour);
    }
    LoadDay(2004, 5, 3);
    EXPECT_EQ(List.MaximumTop(), 0);
}

TEST_F(DayListTest, AnotherDateBeginsAtTheTop) {
    for (int hour = 8; hour < 14; ++hour) {
        GivenOnMonday(u"Item", hour);
    }
    LoadDay(2004, 5, 3);
    List.SetTop(2);
    List.SetDate(2004, 5, 3);
    EXPECT_EQ(List.Top(), 0);
}

TEST_F(DayListTest, PaintsNothingWhileHidden) {
    GivenOnMonday(u"Dentist", 9);
    LoadDay(2004, 5, 3);
    EXPECT_EQ(Device.Host.Drawn.LastFrame(List.Handle()), nullptr);
}

TEST_F(DayListTest, WhatWasLoadedWhileHiddenShowsWhenTheWindowDoes) {
    List.Show(ShowCommand::Show);
    LoadDay(2004, 5, 3);
    LetPaint();
    Device.Host.Windows().ShowWindow(Frame, ShowCommand::Hide);
    GivenOnMonday(u"Dentist", 9);
    LoadDay(2004, 5, 3);
    Device.Host.Windows().ShowWindow(Frame, ShowCommand::Show);
    LetPaint();
    EXPECT_THAT(TextsShown(), ElementsAre(u"Dentist", u"AM 9:00 - AM 9:30"));
}

TEST_F(DayListTest, OnShowItRepaintsAtOnceWhenLoaded) {
    GivenOnMonday(u"Dentist", 9);
    List.Show(ShowCommand::Show);
    LoadDay(2004, 5, 3);
    EXPECT_THAT(TextsShown(), ElementsAre(u"Dentist", u"AM 9:00 - AM 9:30"));
}

TEST_F(DayListTest, AnEmptyDaySaysSo) {
    List.Show(ShowCommand::Show);
    LoadDay(2004, 5, 3);
    EXPECT_THAT(TextsShown(), ElementsAre(u"No schedule"));
}

TEST_F(DayListTest, RowsAreDrawnInTheirPlacesFontsAndColours) {
    GivenOnMonday(u"Dentist", 9);
    Device.GivenSeries(std::u16string(40, u'W'), At(2004, 5, 3, 12), At(2004, 5, 3, 13), kRecursWeekly);
    List.Show(ShowCommand::Show);
    LoadDay(2004, 5, 3);
    EXPECT_EQ(Drawn(), "fill 0,0,240,210 #FFFFFF\n"
                       "line 0,0 to 240,0 pen 1 #000000\n"
                       "line 0,51 to 240,51 pen 1 #000000\n"
                       "text 5,0,220,17 #000000 format 2084 [Arial -13 700] \"Dentist\"\n"
                       "text 5,17,220,34 #000000 format 2084 [Arial -13 400] \"AM 9:00 - AM 9:30\"\n"
                       "text 5,34,220,51 #000000 format 2084 [Arial -13 400] \"\"\n"
                       "line 0,51 to 240,51 pen 1 #000000\n"
                       "line 0,102 to 240,102 pen 1 #000000\n"
                       "text 5,51,220,68 #000000 format 2084 [Arial -13 700] \"WWWWWWWWWWWWWWWWWW...\"\n"
                       "text 5,68,220,85 #000000 format 2084 [Arial -13 400] \"PM 12:00 - PM 1:00\"\n"
                       "text 5,85,220,102 #000000 format 2084 [Arial -13 400] \"Every Mon.\"\n");
}

TEST_F(DayListTest, TheTextOfAnEmptyDayIsGreyInTheMiddle) {
    List.Show(ShowCommand::Show);
    LoadDay(2004, 5, 3);
    EXPECT_EQ(Drawn(), "fill 0,0,240,210 #FFFFFF\n"
                       "text 0,0,240,210 #767676 format 37 [Arial -13 400] \"No schedule\"\n");
}

TEST_F(DayListTest, ShowsFourRowsFromTheTopAndDeclaresThem) {
    for (int hour = 8; hour < 14; ++hour) {
        GivenOnMonday(u"Item " + std::u16string(1, static_cast<char16_t>(u'0' + hour - 8)), hour);
    }
    List.Show(ShowCommand::Show);
    LoadDay(2004, 5, 3);
    List.SetTop(1);
    List.Invalidate();
    LetPaint();
    const headless::Frame* frame = Device.Host.Drawn.LastFrame(List.Handle());
    ASSERT_NE(frame, nullptr);
    ASSERT_EQ(frame->Items.size(), 4U);
    EXPECT_EQ(frame->Items[0], (PaintedItem{{0, 0, 240, 51}, PaintedRole::Row, u"Item 1", 1}));
    EXPECT_EQ(frame->Items[3], (PaintedItem{{0, 153, 240, 204}, PaintedRole::Row, u"Item 4", 4}));
}

TEST_F(DayListTest, ShowsHowAnItemRepeats) {
    Device.GivenSeries(u"Standup", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 9, 15), kRecursWeekly);
    List.Show(ShowCommand::Show);
    LoadDay(2004, 5, 10);
    EXPECT_THAT(TextsShown(), ElementsAre(u"Standup", u"AM 9:00 - AM 9:15", u"Every Mon."));
}

} // namespace

} // namespace tavo
