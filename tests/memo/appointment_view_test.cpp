// Looking at an appointment: its lines, its drawn buttons and its note.
#include "memo/appointment_view_dlg.h"

#include "tests/memo/memo_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo::test {
namespace {

using testing::ElementsAre;

class AppointmentView : public testing::Test {
  protected:
    int Run(Oid oid) {
        Dialog.Oid = oid;
        Dialog.Appointment = Desk.Load(oid);
        return Desk.Run(Dialog);
    }

    // The texts under the subject, from above.
    std::vector<std::u16string> Lines() {
        std::vector<std::u16string> lines;
        int top = 25;
        for (const headless::DrawCall& call : Desk.Device.See.LastFrame()->Calls) {
            if (call.Kind == headless::DrawKind::Text && call.Area.Top >= top) {
                EXPECT_EQ(call.Area, (Rect{5, top, 215, top + 14}));
                EXPECT_EQ(call.Font, "Arial -13 400");
                EXPECT_EQ(call.Ink, Color{0});
                top += 14;
                lines.push_back(call.Text);
            }
        }
        std::vector<std::u16string> declared;
        for (const PaintedItem& item : Desk.Device.See.Items()) {
            if (item.Role == PaintedRole::Text) {
                declared.push_back(item.Name);
            }
        }
        EXPECT_EQ(declared, lines);
        return lines;
    }

    std::vector<std::u16string> LinesOf(Oid oid) {
        std::vector<std::u16string> lines;
        Desk.Check([&] { lines = Lines(); });
        Desk.Device.PressClose();
        EXPECT_EQ(Run(oid), IDCANCEL);
        return lines;
    }

    Oid GivenHour() { return Desk.GivenAppointment(u"Dentist", At(2004, 9, 15, 9), At(2004, 9, 15, 10)); }

    bool IsPressed(const std::u16string& name) {
        const auto button = Desk.Device.See.FindItem(PaintedRole::Button, name);
        EXPECT_TRUE(button.has_value());
        return button && button->Pressed;
    }

    // What lies at the place of a button: the part of its picture, from the left.
    int PicturePart(int bitmap) {
        for (const headless::Placed& placed : Desk.Device.See.Visible()) {
            if (placed.Bitmap == bitmap) {
                return placed.Source.Left;
            }
        }
        return -1;
    }

    MemoDesk Desk;
    CAppointmentViewDlg Dialog{Desk.Pump, Desk.State};
};

TEST_F(AppointmentView, AnHourShowsItsStartAndBecauseTheTimesDifferItsEnd) {
    EXPECT_THAT(LinesOf(GivenHour()), ElementsAre(u"2004.09.15(Wed),AM 9:00", u"~ 2004.09.15(Wed),AM 10:00"));
}

TEST_F(AppointmentView, AMomentShowsItsStartAlone) {
    const Oid oid = Desk.GivenAppointment(u"Call", At(2004, 9, 15, 13, 5), At(2004, 9, 15, 13, 5));
    EXPECT_THAT(LinesOf(oid), ElementsAre(u"2004.09.15(Wed),PM 1:05"));
}

TEST_F(AppointmentView, TheSameTimeOfAnotherDayShowsBothDates) {
    const Oid oid = Desk.GivenAppointment(u"Trip", At(2004, 9, 15, 8), At(2004, 9, 17, 8));
    EXPECT_THAT(LinesOf(oid), ElementsAre(u"2004.09.15(Wed),AM 8:00", u"~ 2004.09.17(Fri),AM 8:00"));
}

TEST_F(AppointmentView, AllDayOfOneDay) {
    EXPECT_THAT(LinesOf(Desk.GivenAllDay(u"Fair", At(2004, 5, 3))), ElementsAre(u"2004.05.03(Mon)", u"All Day Event"));
}

TEST_F(AppointmentView, AllDayFromOneDateToAnotherShowsBothOnOneLine) {
    const Oid oid = Desk.GivenAppointment(u"Fair", At(2004, 5, 3), At(2004, 5, 4), [](IAppointment& item) {
        ASSERT_EQ(item.put_AllDayEvent(true), Status::Ok);
    });
    EXPECT_THAT(LinesOf(oid), ElementsAre(u"2004.05.03(Mon) ~ 2004.05.04(Tue)", u"All Day Event"));
}

TEST_F(AppointmentView, ASeriesOf90MinutesIsSaidInWholeHours) {
    const Oid oid = Desk.GivenSeries(u"Yoga", At(2004, 9, 13, 18), At(2004, 9, 13, 19, 30), kRecursWeekly);
    EXPECT_THAT(LinesOf(oid), ElementsAre(u"Every Mon.", u"from 2004.09.13", u"at PM 6:00 for 1 hour(s)"));
}

TEST_F(AppointmentView, ASeriesOfLessThanAnHourIsSaidByItsStart) {
    for (const int minutes : {30, 59}) {
        const Oid oid = Desk.GivenSeries(u"News", At(2004, 9, 13, 7), At(2004, 9, 13, 7, minutes), kRecursDaily);
        EXPECT_THAT(LinesOf(oid), ElementsAre(u"Everyday", u"from 2004.09.13", u"at AM 7:00")) << minutes;
    }
}

TEST_F(AppointmentView, ExactHoursAreNotLostToRounding) {
    for (int hours = 1; hours <= 23; ++hours) {
        const Oid oid = Desk.GivenSeries(u"Watch", At(2004, 9, 13), At(2004, 9, 13, hours), kRecursDaily);
        const std::string number = std::to_string(hours);
        const std::u16string expected =
            u"at AM 12:00 for " + std::u16string(number.begin(), number.end()) + u" hour(s)";
        EXPECT_EQ(LinesOf(oid).back(), expected);
    }
}

TEST_F(AppointmentView, ASeriesWithAnEndSaysUntilWhen) {
    const Oid oid = Desk.GivenSeries(u"Yoga", At(2004, 9, 13, 18), At(2004, 9, 13, 20), kRecursDaily,
                                     [](IRecurrencePattern& pattern) {
                                         ASSERT_EQ(pattern.put_NoEndDate(false), Status::Ok);
                                         ASSERT_EQ(pattern.put_Occurrences(10), Status::Ok);
                                     });
    EXPECT_THAT(LinesOf(oid),
                ElementsAre(u"Everyday", u"from 2004.09.13 until 2004.09.22", u"at PM 6:00 for 2 hour(s)"));
}

TEST_F(AppointmentView, ARowOnAnotherDayIsWordedByItsSeries) {
    const Oid oid = Desk.GivenSeries(u"Leap day", At(2004, 2, 29, 18), At(2004, 2, 29, 20), kRecursYearly);
    Dialog.Oid = oid;
    Dialog.Appointment = Desk.Load(oid);
    Dialog.Appointment.Start = At(2005, 2, 28, 19); // an occurrence that was moved by an hour
    Dialog.Appointment.End = At(2005, 2, 28, 20);
    Desk.Check([&] {
        EXPECT_THAT(Lines(), ElementsAre(u"Feb. 29 of every year", u"from 2004.02.29", u"at PM 7:00 for 1 hour(s)"));
    });
    Desk.Device.PressClose();
    EXPECT_EQ(Desk.Run(Dialog), IDCANCEL);
}

TEST_F(AppointmentView, AnAllDaySeriesHasNoTimes) {
    const Oid oid = Desk.GivenAppointment(u"Name day", At(2004, 9, 15), At(2004, 9, 15), [](IAppointment& item) {
        ASSERT_EQ(item.put_AllDayEvent(true), Status::Ok);
        ComPtr<IRecurrencePattern> pattern;
        ASSERT_EQ(item.GetRecurrencePattern(pattern), Status::Ok);
        ASSERT_EQ(pattern->put_RecurrenceType(kRecursYearly), Status::Ok);
        ASSERT_EQ(pattern->put_MonthOfYear(9), Status::Ok);
        ASSERT_EQ(pattern->put_DayOfMonth(15), Status::Ok);
        ASSERT_EQ(pattern->put_NoEndDate(true), Status::Ok);
    });
    EXPECT_THAT(LinesOf(oid), ElementsAre(u"Sep. 15 of every year", u"from 2004.09.15", u"All Day Event"));
}

TEST_F(AppointmentView, OkClosesItLikeACancel) {
    Desk.Device.PressOk();
    EXPECT_EQ(Run(GivenHour()), IDCANCEL);
}

TEST_F(AppointmentView, TheButtonsEndItWithTheirResults) {
    const Oid oid = GivenHour();
    Desk.Device.Tap(226, 26);
    EXPECT_EQ(Run(oid), 10);
    Desk.Device.Tap(226, 49);
    EXPECT_EQ(Run(oid), 11);
    Desk.Device.Key(VK_F1 + 1);
    EXPECT_EQ(Run(oid), 10);
    Desk.Device.Key(VK_DELETE);
    EXPECT_EQ(Run(oid), 11);
}

TEST_F(AppointmentView, TheTemplatesButtonsLieHiddenUnderTheDrawnOnes) {
    Desk.Check([this] {
        const shell::WindowTree& tree = Desk.Device.Host().State.Tree;
        EXPECT_EQ(tree.Find(Desk.Device.See.Control(1000))->Bounds, (Rect{216, 16, 236, 36}));
        EXPECT_EQ(tree.Find(Desk.Device.See.Control(1001))->Bounds, (Rect{216, 39, 236, 59}));
        EXPECT_FALSE(Desk.Device.See.IsShown(1000));
        EXPECT_FALSE(Desk.Device.See.IsShown(1001));
        Desk.Device.Host().Queue().PostMessageW({Dialog.Handle(), WM_COMMAND, 1001, BN_CLICKED, 0, {}});
    });
    EXPECT_EQ(Run(GivenHour()), 11);
    Desk.Check([this] {
        Desk.Device.Host().Queue().PostMessageW({Dialog.Handle(), WM_COMMAND, 1000, BN_CLICKED, 0, {}});
    });
    EXPECT_EQ(Run(GivenHour()), 10);
}

TEST_F(AppointmentView, TheEdgesOfTheButtonsAreAPixelInside) {
    const Oid oid = GivenHour();
    for (const Point inside : {Point{217, 17}, Point{235, 17}, Point{217, 35}, Point{235, 35}}) {
        Desk.Device.Tap(inside.X, inside.Y);
        EXPECT_EQ(Run(oid), 10);
    }
    for (const Point inside : {Point{217, 40}, Point{235, 58}}) {
        Desk.Device.Tap(inside.X, inside.Y);
        EXPECT_EQ(Run(oid), 11);
    }
    for (const Point outside :
         {Point{216, 26}, Point{236, 26}, Point{226, 16}, Point{226, 36}, Point{226, 39}, Point{226, 59}}) {
        Desk.Device.Tap(outside.X, outside.Y);
    }
    Desk.Device.PressClose();
    EXPECT_EQ(Run(oid), IDCANCEL);
}

TEST_F(AppointmentView, ReleasedOffTheButtonItStaysOpen) {
    Desk.Check([this] { EXPECT_EQ(PicturePart(kBitmapModifyButton), 0); });
    Desk.Device.Press(226, 26);
    Desk.Check([this] {
        EXPECT_TRUE(IsPressed(u"Modify"));
        EXPECT_FALSE(IsPressed(u"Delete"));
        EXPECT_EQ(PicturePart(kBitmapModifyButton), 20);
        EXPECT_EQ(PicturePart(kBitmapDeleteButton), 0);
    });
    Desk.Device.MoveTo(226, 49);
    Desk.Check([this] {
        EXPECT_FALSE(IsPressed(u"Modify"));
        EXPECT_FALSE(IsPressed(u"Delete"));
    });
    Desk.Device.MoveTo(226, 26);
    Desk.Check([this] { EXPECT_TRUE(IsPressed(u"Modify")); });
    Desk.Device.MoveTo(100, 150);
    Desk.Device.Release(100, 150);
    Desk.Check([this] { EXPECT_FALSE(IsPressed(u"Modify")); });
    Desk.Device.Press(226, 49);
    Desk.Check([this] {
        EXPECT_TRUE(IsPressed(u"Delete"));
        EXPECT_EQ(PicturePart(kBitmapDeleteButton), 20);
    });
    Desk.Device.Release(226, 26);
    Desk.Device.PressClose();
    EXPECT_EQ(Run(GivenHour()), IDCANCEL);
}

TEST_F(AppointmentView, EnterAndEscapeCloseItLikeACancel) {
    const Oid oid = GivenHour();
    for (const int key : {VK_RETURN, VK_ESCAPE}) {
        Desk.Device.Key(key);
        EXPECT_EQ(Run(oid), IDCANCEL);
    }
}

TEST_F(AppointmentView, AButtonThatTheStylusStillPressedWhenItClosedIsUpWhenItOpensAgain) {
    const Oid oid = GivenHour();
    for (const int y : {26, 49}) {
        Desk.Device.Press(226, y);
        Desk.Device.Key(VK_RETURN);
        EXPECT_EQ(Run(oid), IDCANCEL);
        Desk.Check([this] {
            EXPECT_FALSE(IsPressed(u"Modify"));
            EXPECT_FALSE(IsPressed(u"Delete"));
        });
        Desk.Device.Release(226, y);
        Desk.Device.PressClose();
        EXPECT_EQ(Run(oid), IDCANCEL);
    }
}

TEST_F(AppointmentView, APressBesideTheButtonsLetsGoOfThem) {
    for (const int y : {26, 49}) {
        Desk.Device.Press(226, y);
        Desk.Device.Press(100, 60);
        Desk.Device.Release(226, y);
    }
    Desk.Device.PressClose();
    EXPECT_EQ(Run(GivenHour()), IDCANCEL);
}

TEST_F(AppointmentView, AButtonThatIsReleasedFarAwayIsDrawnUpAtOnce) {
    for (const int y : {26, 49}) {
        const std::u16string name = y == 26 ? u"Modify" : u"Delete";
        Desk.Device.Press(226, y);
        Desk.Check([this, name] { EXPECT_TRUE(IsPressed(name)); });
        Desk.Device.Release(100, 60);
        Desk.Check([this, name] { EXPECT_FALSE(IsPressed(name)); });
    }
    Desk.Device.PressClose();
    EXPECT_EQ(Run(GivenHour()), IDCANCEL);
}

TEST_F(AppointmentView, TheNoteIsShownForReadingUnderTheLines) {
    const Oid oid = Desk.GivenAppointment(u"Dentist", At(2004, 9, 15, 9), At(2004, 9, 15, 10), [](IAppointment& item) {
        const std::vector<std::uint8_t> note{1, 2, 3};
        ASSERT_EQ(item.put_BodyInk(note), Status::Ok);
    });
    Desk.Check([this] {
        const shell::WindowTree& tree = Desk.Device.Host().State.Tree;
        EXPECT_EQ(tree.Find(Desk.Device.See.Control(kInkPaper))->Bounds, (Rect{0, 75, 240, 244}));
        EXPECT_EQ(Desk.Paper().SendMessageW(kInkGetPageStyle, 0, 0), 16);
        EXPECT_EQ(Desk.Paper().SendMessageW(kInkGetView, 0, 0), 0);
        EXPECT_EQ(Desk.Paper().View().Zoom(), 100);
        EXPECT_TRUE(Desk.Paper().IsReadOnly());
        EXPECT_EQ(Desk.Paper().GetData(), (std::vector<std::uint8_t>{1, 2, 3}));
        EXPECT_EQ(Desk.Buffer(), (std::vector<std::uint8_t>{1, 2, 3}));
        EXPECT_FALSE(Desk.Device.See.IsShown(kViewModify));
        EXPECT_FALSE(Desk.Device.See.IsShown(kViewDelete));
    });
    Desk.Device.PressClose();
    EXPECT_EQ(Run(oid), IDCANCEL);
}

TEST_F(AppointmentView, NothingThatIsDoneToItsNoteChangesIt) {
    ink::InkShared shared;
    ink::InkControl other(shared);
    other.Resize({240, 169});
    other.SendMessageW(kInkSetPenMode, kInkPenDraws, 0);
    other.PenDown(ink::PenEnd::Tip, {{20, 60}, ink::kNoPressure, 1000});
    other.PenUp({{120, 60}, ink::kNoPressure, 1060});
    const std::vector<std::uint8_t> note = other.GetData();
    const Oid oid = Desk.GivenAppointment(u"Dentist", At(2004, 9, 15, 9), At(2004, 9, 15, 10),
                                          [&](IAppointment& item) { ASSERT_EQ(item.put_BodyInk(note), Status::Ok); });
    Desk.Check([&] {
        ink::InkControl& paper = Desk.Paper();
        const auto drag = [&](ink::PenEnd end, int x, int y, int toX, int toY) {
            paper.PenDown(end, {{static_cast<double>(x), static_cast<double>(y)}, ink::kNoPressure, 1000});
            paper.PenUp({{static_cast<double>(toX), static_cast<double>(toY)}, ink::kNoPressure, 1060});
        };
        drag(ink::PenEnd::Eraser, 60, 40, 60, 80);
        drag(ink::PenEnd::Tip, 10, 50, 130, 70);
        EXPECT_EQ(paper.SendMessageW(EM_GETSEL, 0, 0), 1);
        EXPECT_TRUE(paper.Key('X', kModifierControl));
        EXPECT_TRUE(paper.Key(VK_DELETE, 0));
        EXPECT_EQ(Desk.Paper().GetData(), note);
        paper.SendMessageW(EM_SETREADONLY, 0, 0); // the pen's own state is to select, too
        drag(ink::PenEnd::Tip, 10, 50, 130, 70);
        EXPECT_EQ(paper.GetData(), note);
    });
    Desk.Device.PressClose();
    EXPECT_EQ(Run(oid), IDCANCEL);
}

TEST_F(AppointmentView, AnItemThatIsGoneShowsItsRecordWithoutANote) {
    const Oid oid = GivenHour();
    Dialog.Oid = oid;
    Dialog.Appointment = Desk.Load(oid);
    Desk.Delete(oid);
    Desk.State.Memo.Fill({7});
    Desk.Check([this] {
        EXPECT_TRUE(Desk.Device.See.FindItem(PaintedRole::Header, u"Dentist").has_value());
        EXPECT_THAT(Lines(), ElementsAre(u",AM 9:00", u"~ ,AM 10:00"));
        EXPECT_EQ(Desk.Device.See.Control(kInkPaper), WindowHandle::None);
    });
    Desk.Device.Tap(226, 49);
    EXPECT_EQ(Desk.Run(Dialog), 11);
}

} // namespace
} // namespace tavo::test
