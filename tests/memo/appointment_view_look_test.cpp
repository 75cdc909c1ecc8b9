// What the appointment view draws, and what it shows where something of its item is missing.
#include "memo/appointment_view_dlg.h"

#include "tests/memo/memo_desk.h"
#include "tests/support/appointment_probe.h"
#include "tests/support/outlook_probe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo::test {
namespace {

using testing::ElementsAre;

class AppointmentViewLook : public testing::Test {
  protected:
    void Give(Oid oid) {
        Dialog.Oid = oid;
        Dialog.Appointment = Desk.Load(oid);
    }

    void GiveHour(const std::u16string& subject = u"Dentist") {
        Give(Desk.GivenAppointment(subject, At(2004, 9, 15, 9), At(2004, 9, 15, 10)));
    }

    // All that is drawn, from first to last.
    std::vector<std::string> Drawn() {
        std::vector<std::string> drawn;
        Desk.Check([&] {
            for (const headless::DrawCall& call : Desk.Device.See.LastFrame()->Calls) {
                drawn.push_back(ToText(call));
            }
        });
        Close();
        return drawn;
    }

    // The texts alone.
    std::vector<std::u16string> Texts() {
        std::vector<std::u16string> texts;
        Desk.Check([&] {
            for (const headless::DrawCall& call : Desk.Device.See.LastFrame()->Calls) {
                if (call.Kind == headless::DrawKind::Text) {
                    texts.push_back(call.Text);
                }
            }
        });
        Close();
        return texts;
    }

    void Close() {
        Desk.Device.PressClose();
        EXPECT_EQ(Desk.Run(Dialog), IDCANCEL);
    }

    MemoDesk Desk;
    CAppointmentViewDlg Dialog{Desk.Pump, Desk.State};
};

TEST_F(AppointmentViewLook, IsButtonsSubjectLinesAndTheNotesBorder) {
    GiveHour();
    EXPECT_THAT(Drawn(),
                ElementsAre("fill 0,0,240,268 #FFFFFF", "bitmap 213 216,16,236,36 from 0,0,20,20",
                            "bitmap 212 216,39,236,59 from 0,0,20,20",
                            "text 5,0,215,20 #000000 format 2084 [Arial -13 700] \"Dentist\"",
                            "text 5,25,215,39 #000000 format 2084 [Arial -13 400] \"2004.09.15(Wed),AM 9:00\"",
                            "text 5,39,215,53 #000000 format 2084 [Arial -13 400] \"~ 2004.09.15(Wed),AM 10:00\"",
                            "line 0,74 to 240,74 pen 1 #000000", "line 0,244 to 240,244 pen 1 #000000"));
}

TEST_F(AppointmentViewLook, HasNoBorderWhereThereIsNoNote) {
    GiveHour();
    Desk.Delete(Dialog.Oid);
    EXPECT_THAT(Drawn(), testing::Each(testing::Not(testing::StartsWith("line"))));
}

TEST_F(AppointmentViewLook, CutsASubjectWhereItReaches190Pixels) {
    const std::u16string wide = std::u16string(42, u'l') + u"mA"; // of 190 pixels
    GiveHour(wide);
    EXPECT_EQ(Texts().front(), wide);
    GiveHour(wide + u"lll");
    EXPECT_EQ(Texts().front(), wide + u"...");
}

TEST_F(AppointmentViewLook, TellsTheWholeSubjectToThoseWhoHearIt) {
    const std::u16string subject(200, u'm');
    GiveHour(subject);
    Desk.Check([&] {
        EXPECT_TRUE(Desk.Device.See.FindItem(PaintedRole::Header, subject).has_value());
        EXPECT_FALSE(Desk.Device.See.ShowsText(subject));
    });
    Close();
}

// A new control has these states already, so only what it is told shows that the view does not rest on that.
TEST_F(AppointmentViewLook, TheNotesPaperIsToldEachOfItsStates) {
    GiveHour();
    Close();
    EXPECT_THAT(Desk.Host.OwnInk.Sent, ElementsAre(InkMessage{WM_USER + 287, 16, 0}, InkMessage{WM_USER + 290, 0, 100},
                                                   InkMessage{WM_USER + 329, 1, 0}, InkMessage{WM_USER + 284, 0, 0},
                                                   InkMessage{EM_SETREADONLY, 1, 0}));
    EXPECT_EQ(Desk.Host.OwnInk.SentBeforeData, 0U);
}

TEST_F(AppointmentViewLook, OfAnItemThatIsGoneHasNoDatesOfTheOneBefore) {
    GiveHour();
    EXPECT_THAT(Texts(), ElementsAre(u"Dentist", u"2004.09.15(Wed),AM 9:00", u"~ 2004.09.15(Wed),AM 10:00"));
    Desk.Delete(Dialog.Oid);
    EXPECT_THAT(Texts(), ElementsAre(u"Dentist", u",AM 9:00", u"~ ,AM 10:00"));
}

TEST_F(AppointmentViewLook, OfARowWhoseItemRecursNoMoreHasTheWordsOfTheRow) {
    Give(Desk.GivenSeries(u"Yoga", At(2004, 9, 13, 18), At(2004, 9, 13, 20), kRecursWeekly));
    ComPtr<IAppointment> item;
    ASSERT_EQ(Desk.Connect()->GetItemFromOid(Dialog.Oid, item), Status::Ok);
    ASSERT_EQ(item->ClearRecurrencePattern(), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_EQ(Texts().at(1), u"Every Mon.");
}

TEST_F(AppointmentViewLook, OfASeriesWhoseDatesAreNoneSaysNoHours) {
    Give(Desk.GivenSeries(u"Yoga", At(2004, 9, 13, 18), At(2004, 9, 13, 20), kRecursWeekly));
    const AppointmentData whole = Dialog.Appointment;
    Dialog.Appointment.End.Month = 13;
    EXPECT_EQ(Texts().back(), u"at PM 6:00");
    Dialog.Appointment = whole;
    Dialog.Appointment.Start.Month = 13;
    EXPECT_EQ(Texts().back(), u"at PM 6:00");
}

// An item of the store of which something cannot be read now.
class AppointmentViewOfAWornItem : public AppointmentViewLook {
  protected:
    void Give(Oid oid) {
        AppointmentViewLook::Give(oid);
        EXPECT_EQ(Real->GetItemFromOid(oid, Item), Status::Ok);
        Worn.emplace(*Item);
        Store.Item = &*Worn;
        Desk.State.Store.OutlookApp = Store.Share();
    }

    void TearDown() override { Desk.State.Store.OutlookApp = Real; }

    ComPtr<IPOutlookApp> Real = Desk.State.Store.OutlookApp;
    OutlookProbe Store{Real};
    ComPtr<IAppointment> Item;
    std::optional<AppointmentProbe> Worn;
};

TEST_F(AppointmentViewOfAWornItem, ShowsNoOtherNoteWhereItsOwnCannotBeRead) {
    Give(Desk.GivenAppointment(u"Dentist", At(2004, 9, 15, 9), At(2004, 9, 15, 10)));
    Worn->InkResult = Status::Corrupt;
    Desk.State.Memo.Fill({7}); // of what was edited before
    Desk.Check([this] { EXPECT_TRUE(Desk.Paper().GetData().empty()); });
    Close();
    EXPECT_TRUE(Desk.State.Memo.IsEmpty());
}

} // namespace
} // namespace tavo::test
