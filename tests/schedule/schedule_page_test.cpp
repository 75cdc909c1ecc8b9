// The Schedule page: its kinds, its header, its rows and their menu.
#include "tests/schedule/schedule_page_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

namespace tavo {

namespace {

using test::At;
using test::ScheduleDesk;
using test::SchedulePage;
using testing::ElementsAre;

constexpr int kWhite = 0xFFFFFF;
constexpr int kBlue = 0xBF6000;

TEST_F(SchedulePage, EachKindHasItsTitleItsEmptyTextAndItsPlaces) {
    const std::u16string titles[] = {u"Alarm", u"Holiday", u"Anniversary", u"Appointment"};
    const std::u16string texts[] = {u"No registered alarm", u"No registered holiday", u"No registered anniversary",
                                    u"No schedule"};
    Desk.Show(ItemKind::Alarm);
    for (int kind = 0; kind < 4; ++kind) {
        EXPECT_EQ(Desk.Header(), titles[kind]);
        EXPECT_THAT(Desk.ListTexts(), ElementsAre(texts[kind]));
        EXPECT_EQ(PickersShown(), kind == 3);
        EXPECT_EQ(PlaceOf(kScheduleScrollBar),
                  kind == 3 ? Rect::FromSize(225, 71, 15, 170) : Rect::FromSize(225, 37, 15, 204));
        Tap(196, 20);
    }
    EXPECT_EQ(Desk.Header(), u"Alarm"); // after the last kind comes the first
}

TEST_F(SchedulePage, ThePickersOfThePeriodStandSideBySideAboveTheList) {
    Desk.Show(ItemKind::Appointment);
    EXPECT_EQ(PlaceOf(kSchedulePeriodStart), Rect::FromSize(4, 41, 114, 26));
    EXPECT_EQ(PlaceOf(kSchedulePeriodEnd), Rect::FromSize(122, 41, 114, 26));
    EXPECT_TRUE(Desk.Device.See.IsShown(kScheduleScrollBar));
}

TEST_F(SchedulePage, TheHeaderSaysWhatCanBeTapped) {
    Desk.Show(ItemKind::Holiday);
    const auto placeOf = [this](PaintedRole role, const char16_t* name) {
        const auto item = Desk.Device.See.FindItem(role, name);
        return item ? item->Bounds : Rect{};
    };
    EXPECT_EQ(placeOf(PaintedRole::Header, u"Holiday"), (Rect{40, 0, 220, 37}));
    EXPECT_EQ(placeOf(PaintedRole::Button, u"Previous kind"), Rect::FromSize(170, 12, 16, 16));
    EXPECT_EQ(placeOf(PaintedRole::Button, u"Next kind"), Rect::FromSize(188, 12, 16, 16));
    EXPECT_EQ(placeOf(PaintedRole::Button, u"New"), Rect::FromSize(210, 8, 26, 26));
    EXPECT_TRUE(Desk.Device.See.FindItem(PaintedRole::Tab, u"Clock").has_value());
}

// Everything that is drawn, with its place, font, colour and alignment.
TEST_F(SchedulePage, TheHeaderIsDrawnInItsPlaces) {
    Desk.Show(ItemKind::Alarm);
    EXPECT_EQ(ToText(Desk.Device.See.LastFrame()->Calls),
              "fill 0,0,240,267 #FFFFFF\n"
              "bitmap 151 10,6,35,31 from 0,0,25,25\n"
              "text 40,0,220,37 #000000 format 36 [Comic Sans MS -17 700] \"Alarm\"\n"
              "bitmap 155 170,12,186,28 from 0,0,16,16\n"
              "bitmap 155 188,12,204,28 from 16,0,32,16\n"
              "bitmap 152 210,8,236,34 from 0,0,26,26\n"
              "bitmap 139 0,241,240,267 from 0,0,240,26\n"
              "bitmap 140 60,241,120,267 from 0,0,60,26\n");
}

TEST_F(SchedulePage, RowsAreDrawnInTheirPlacesFontsAndColours) {
    Desk.GivenAlarms(2);
    Desk.Show(ItemKind::Alarm);
    Desk.Device.Key(VK_DOWN);
    ASSERT_TRUE(Desk.Settle());
    const std::string drawn = std::regex_replace(DrawnByTheList(), std::regex(" \".*\""), ""); // whatever it says
    EXPECT_EQ(drawn, "fill 0,0,240,204 #FFFFFF\n"
                     "fill 0,0,240,51 #0060BF\n" // selected
                     "line 0,0 to 240,0 pen 1 #000000\n"
                     "line 0,51 to 240,51 pen 1 #000000\n"
                     "text 5,0,220,17 #FFFFFF format 2084 [Arial -13 700]\n"
                     "text 5,17,220,34 #FFFFFF format 2084 [Arial -13 400]\n"
                     "text 5,34,220,51 #FFFFFF format 2084 [Arial -13 400]\n"
                     "fill 0,51,240,102 #FFFFFF\n"
                     "line 0,51 to 240,51 pen 1 #000000\n"
                     "line 0,102 to 240,102 pen 1 #000000\n"
                     "text 5,51,220,68 #000000 format 2084 [Arial -13 700]\n"
                     "text 5,68,220,85 #000000 format 2084 [Arial -13 400]\n"
                     "text 5,85,220,102 #000000 format 2084 [Arial -13 400]\n");
}

// A holiday or anniversary says below its subject how it repeats and when; a subject keeps to its 130 pixels.
TEST_F(SchedulePage, RowsOfHolidaysAndAnniversariesAreDrawnInTheirPlacesFontsAndColours) {
    for (const ItemKind kind : {ItemKind::Holiday, ItemKind::Anniversary}) {
        ScheduleDesk desk;
        ASSERT_TRUE(desk.Start());
        desk.Tag(kind, desk.GivenAllDay(u"Feast", At(2004, 11, 8)));
        desk.Tag(kind, desk.GivenSeries(std::u16string(30, u'W'), At(2004, 11, 9), At(2004, 11, 10), kRecursWeekly));
        desk.Show(kind);
        EXPECT_EQ(DrawnByTheListOf(desk), "fill 0,0,240,204 #FFFFFF\n"
                                          "fill 0,0,240,51 #FFFFFF\n"
                                          "line 0,0 to 240,0 pen 1 #000000\n"
                                          "line 0,51 to 240,51 pen 1 #000000\n"
                                          "text 5,0,220,17 #000000 format 2084 [Arial -13 700] \"Feast\"\n"
                                          "text 5,17,220,34 #000000 format 2084 [Arial -13 400] \"Once\"\n"
                                          "text 5,34,220,51 #000000 format 2084 [Arial -13 400] "
                                          "\"from 2004.11.08(Mon)\"\n"
                                          "fill 0,51,240,102 #FFFFFF\n"
                                          "line 0,51 to 240,51 pen 1 #000000\n"
                                          "line 0,102 to 240,102 pen 1 #000000\n"
                                          "text 5,51,220,68 #000000 format 2084 [Arial -13 700] \"WWWWWWWWWWW...\"\n"
                                          "text 5,68,220,85 #000000 format 2084 [Arial -13 400] \"Every Tue.\"\n"
                                          "text 5,85,220,102 #000000 format 2084 [Arial -13 400] "
                                          "\"from 2004.11.09(Tue)\"\n");
    }
}

TEST_F(SchedulePage, RowsOfAppointmentsAreDrawnInTheirPlacesFontsAndColours) {
    Desk.GivenAppointment(u"Dentist", At(2004, 11, 3, 18), At(2004, 11, 3, 19));
    Desk.GivenAppointment(u"Night shift", At(2004, 11, 4, 22), At(2004, 11, 5, 6));
    Desk.Show(ItemKind::Appointment);
    Desk.Device.Key(VK_DOWN);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(DrawnByTheList(), "fill 0,0,240,170 #FFFFFF\n"
                                "fill 0,0,240,34 #0060BF\n" // selected
                                "line 0,0 to 240,0 pen 1 #000000\n"
                                "line 0,34 to 240,34 pen 1 #000000\n"
                                "text 5,0,220,17 #FFFFFF format 2084 [Arial -13 700] \"Dentist\"\n"
                                "text 5,0,224,17 #FFFFFF format 2086 [Arial -9 400] \"2004.11.03(Wed)\"\n"
                                "text 5,17,220,34 #FFFFFF format 2084 [Arial -13 400] \"PM 6:00 - PM 7:00\"\n"
                                "fill 0,34,240,68 #FFFFFF\n"
                                "line 0,34 to 240,34 pen 1 #000000\n"
                                "line 0,68 to 240,68 pen 1 #000000\n"
                                "text 5,34,220,51 #000000 format 2084 [Arial -13 700] \"Night shift\"\n"
                                "text 5,34,224,51 #000000 format 2086 [Arial -9 400] \"2004.11.04(Thu)\"\n"
                                "text 5,51,224,68 #000000 format 2084 [Arial -9 400] "
                                "\"2004.11.04(Thu),PM 10:00 - 2004.11.05(Fri),AM 6:00\"\n");
}

// A heading where it reaches 130 pixels, which its 16th letter does exactly; a line that has no shorter words, in the
// small font where it reaches 203.
TEST_F(SchedulePage, WhatIsTooLongIsCutWithDots) {
    Desk.Tag(ItemKind::Holiday, Desk.GivenAllDay(u"aaaaaaaaaaaaaaaWbbbb", At(2004, 11, 4)));
    Desk.Tag(ItemKind::Alarm, Desk.GivenSeries(u"Yoga", At(2004, 11, 4, 18), At(2004, 11, 4, 18), kRecursWeekly,
                                               [](IRecurrencePattern& pattern) {
                                                   EXPECT_EQ(pattern.put_Interval(2), Status::Ok);
                                                   EXPECT_EQ(pattern.put_DayOfWeekMask(1 + 2 + 16), Status::Ok);
                                               }));
    Desk.Show(ItemKind::Alarm);
    const std::string drawn = DrawnByTheList();
    EXPECT_NE(drawn.find("text 5,34,224,51 #000000 format 2084 [Arial -9 400] "
                         "\"Every 2 week(s) onSun.,Mon.,Thu., from 2004.11....\"\n"),
              std::string::npos)
        << drawn;
    Key(VK_RIGHT);
    EXPECT_EQ(Desk.ListTexts().front(), u"aaaaaaaaaaaaaaaW...");
}

TEST_F(SchedulePage, TheEmptyTextIsGreyInTheMiddle) {
    Desk.Show(ItemKind::Holiday);
    EXPECT_EQ(DrawnByTheList(), "fill 0,0,240,204 #FFFFFF\n"
                                "text 0,0,240,204 #CCCCCC format 37 [Arial -13 400] \"No registered holiday\"\n");
}

TEST_F(SchedulePage, TheHeaderOfAppointmentsIsDrawnInItsPlaces) {
    Desk.Show(ItemKind::Appointment);
    const std::string drawn = ToText(Desk.Device.See.LastFrame()->Calls);
    EXPECT_NE(drawn.find("bitmap 151 10,6,35,31 from 75,0,100,25\n"
                         "text 40,0,220,37 #000000 format 36 [Comic Sans MS -17 700] \"Appointment\"\n"),
              std::string::npos)
        << drawn;
    Desk.Device.Press(220, 20);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_NE(ToText(Desk.Device.See.LastFrame()->Calls).find("bitmap 152 210,8,236,34 from 26,0,52,26\n"),
              std::string::npos);
}

TEST_F(SchedulePage, ThePreviousArrowGoesFromTheFirstKindToTheLast) {
    Desk.Show(ItemKind::Alarm);
    Tap(178, 20);
    EXPECT_EQ(Desk.Header(), u"Appointment");
    Tap(178, 20);
    EXPECT_EQ(Desk.Header(), u"Anniversary");
}

TEST_F(SchedulePage, LeftAndRightSwitchTheKind) {
    Desk.Show(ItemKind::Alarm);
    Key(VK_LEFT);
    EXPECT_EQ(Desk.Header(), u"Appointment");
    Key(VK_RIGHT);
    EXPECT_EQ(Desk.Header(), u"Alarm");
    Key(VK_RIGHT);
    EXPECT_EQ(Desk.Header(), u"Holiday");
}

TEST_F(SchedulePage, TheEdgesOfArrowsAndButtonDoNotCount) {
    Desk.Show(ItemKind::Alarm);
    for (const Point edge :
         {Point{170, 20}, Point{186, 20}, Point{188, 20}, Point{204, 20}, Point{178, 12}, Point{178, 28},
          Point{196, 12}, Point{196, 28}, Point{210, 20}, Point{236, 20}, Point{220, 8}, Point{220, 34}}) {
        Tap(edge.X, edge.Y);
        EXPECT_EQ(Desk.Header(), u"Alarm") << edge.X << ", " << edge.Y;
        EXPECT_FALSE(Desk.Device.See.IsDialogOpen()) << edge.X << ", " << edge.Y;
    }
    Tap(171, 13);
    EXPECT_EQ(Desk.Header(), u"Appointment");
    Tap(189, 27);
    EXPECT_EQ(Desk.Header(), u"Alarm");
}

TEST_F(SchedulePage, TheNewButtonOpensTheEditorForTheKindWhenItIsReleased) {
    Desk.Show(ItemKind::Holiday);
    Desk.Device.Press(211, 9);
    Desk.Device.Do([&] { EXPECT_TRUE(Desk.Device.See.FindItem(PaintedRole::Button, u"New")->Pressed); });
    Desk.Device.Release(235, 33);
    Desk.Device.Do([&] { EXPECT_TRUE(Desk.Device.See.IsDialogOpen()); });
    Desk.Device.Tap(100, 20);
    Desk.Device.TypeInto(kEditSubject, u"Easter");
    Desk.Device.TapControl(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.ListOf(ItemKind::Holiday).size(), 1U);
    EXPECT_EQ(Desk.Headings(), std::vector<std::u16string>{u"Easter"});
    EXPECT_EQ(Desk.SelectedRow(), 0);
}

TEST_F(SchedulePage, ReleasedBesideItTheNewButtonDoesNothing) {
    Desk.Show(ItemKind::Alarm);
    Desk.Device.Press(220, 20);
    Desk.Device.MoveTo(220, 100);
    Desk.Device.Release(220, 100);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_FALSE(Desk.Device.See.IsDialogOpen());
    EXPECT_FALSE(Desk.Device.See.FindItem(PaintedRole::Button, u"New")->Pressed);
}

TEST_F(SchedulePage, TheSelectedRowIsBlueAndTheOthersWhite) {
    Desk.GivenAlarms(2);
    Desk.Show(ItemKind::Alarm);
    Select(1);
    EXPECT_EQ(Desk.Device.See.PixelAt(200, 37 + 25), Color{kWhite});
    EXPECT_EQ(Desk.Device.See.PixelAt(200, 37 + 51 + 25), Color{kBlue});
}

TEST_F(SchedulePage, ATapBelowTheLastRowLeavesTheSelection) {
    Desk.GivenAlarms(2);
    Desk.Show(ItemKind::Alarm);
    Select(0);
    Tap(20, 37 + 2 * 51);
    EXPECT_EQ(Desk.SelectedRow(), 0);
    EXPECT_FALSE(Desk.Device.Host().State.Menus.IsMenuOpen());
}

TEST_F(SchedulePage, ATapHitsTheRowUnderIt) {
    Desk.GivenAlarms(2);
    GivenAppointmentsToday(5);
    Desk.Show(ItemKind::Alarm);
    Desk.Device.Tap(20, 37 + 50);
    Desk.Device.ChooseTracked(0);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.SelectedRow(), 0);
    Desk.Device.Tap(20, 37 + 51);
    Desk.Device.ChooseTracked(0);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.SelectedRow(), 1);
    Key(VK_LEFT);
    Desk.Device.Tap(20, 71 + 33);
    Desk.Device.ChooseTracked(0);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.SelectedRow(), 0);
    Desk.Device.Tap(20, 71 + 169);
    Desk.Device.ChooseTracked(0);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.SelectedRow(), 4);
}

TEST_F(SchedulePage, TheMenuStandsBesideTheTap) {
    Desk.GivenAlarms(1);
    GivenAppointmentsToday(1);
    Desk.Show(ItemKind::Alarm);
    const auto& tracked = Desk.Device.Host().State.Menus.Tracked;
    Desk.Device.Tap(119, 37 + 10);
    Desk.Device.Do([&] {
        EXPECT_EQ(tracked->At, (Point{124, 76}));
        EXPECT_EQ(tracked->Align, MenuAlign::Left);
    });
    Desk.Device.ChooseTracked(0);
    Desk.Device.Tap(120, 37 + 10);
    Desk.Device.Do([&] {
        EXPECT_EQ(tracked->At, (Point{115, 76}));
        EXPECT_EQ(tracked->Align, MenuAlign::Right);
    });
    Desk.Device.ChooseTracked(0);
    Desk.Device.Key(VK_LEFT);
    Desk.Device.Tap(20, 71 + 10);
    Desk.Device.Do([&] { EXPECT_EQ(tracked->At, (Point{25, 106})); });
    Desk.Device.ChooseTracked(0);
    ASSERT_TRUE(Desk.Settle());
}

TEST_F(SchedulePage, TheMenuIsCutDownForEachKind) {
    Desk.GivenAlarms(1);
    GivenAppointmentsToday(1);
    Desk.Show(ItemKind::Alarm);
    Desk.Device.Tap(20, 50);
    Desk.Device.Do([&] { EXPECT_THAT(Desk.OpenMenu(), ElementsAre(u"View...", u"Modify...", u"Delete...")); });
    Desk.Device.ChooseTracked(0);
    Desk.Device.Key(VK_LEFT);
    Desk.Device.Tap(20, 80);
    Desk.Device.Do([&] {
        EXPECT_THAT(Desk.OpenMenu(), ElementsAre(u"View...", u"Modify...", u"Delete...", u"-", u"Copy to Alarm",
                                                 u"Copy to Holiday", u"Copy to Anniversary"));
    });
    Desk.Device.ChooseTracked(0);
    ASSERT_TRUE(Desk.Settle());
}

TEST_F(SchedulePage, WhatWouldDoNothingIsGreyInTheMenuOfAnAppointment) {
    const Oid oid = Desk.GivenAppointment(u"Item", At(2004, 11, 3, 9), At(2004, 11, 3, 10));
    Desk.Tag(ItemKind::Holiday, oid);
    Desk.Show(ItemKind::Appointment);
    Desk.Device.Tap(20, 80);
    Desk.Device.Do([&] {
        EXPECT_THAT(Desk.OpenMenu(), ElementsAre(u"View...", u"Modify...", u"Delete...", u"-", u"Copy to Alarm",
                                                 u"(Copy to Holiday)", u"Copy to Anniversary"));
    });
    Desk.Device.ChooseTracked(0);
    Desk.Device.Do([&] {
        Desk.State().Categories.HolidayList.RemoveAll();
        Desk.Tag(ItemKind::Alarm, oid);
        Desk.Tag(ItemKind::Anniversary, oid);
    });
    Desk.Device.Tap(20, 80);
    Desk.Device.Do([&] {
        EXPECT_THAT(Desk.OpenMenu(), ElementsAre(u"View...", u"Modify...", u"Delete...", u"-", u"(Copy to Alarm)",
                                                 u"Copy to Holiday", u"(Copy to Anniversary)"));
    });
    Desk.Device.ChooseTracked(0);
    Desk.Device.Do([&] { Desk.Delete(oid); }); // by another program, and not yet heard of
    Desk.Device.Tap(20, 80);
    Desk.Device.Do([&] {
        EXPECT_THAT(Desk.OpenMenu(), ElementsAre(u"(View...)", u"(Modify...)", u"(Delete...)", u"-", u"(Copy to Alarm)",
                                                 u"(Copy to Holiday)", u"(Copy to Anniversary)"));
    });
    Desk.Device.ChooseTracked(0);
    ASSERT_TRUE(Desk.Settle());
}

TEST_F(SchedulePage, TheSelectedRowsMenuOpensAgain) {
    Desk.GivenAlarms(1);
    Desk.Show(ItemKind::Alarm);
    Select(0);
    Desk.Device.Tap(20, 50);
    Desk.Device.Do([&] { EXPECT_TRUE(Desk.Device.Host().State.Menus.Tracked.has_value()); });
    Desk.Device.ChooseTracked(0);
    ASSERT_TRUE(Desk.Settle());
}

} // namespace

} // namespace tavo
