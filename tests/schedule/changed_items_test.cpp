// Items that another process changes between what was painted and what is done to it.
#include "tests/schedule/schedule_desk.h"

#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::At;
using test::ScheduleDesk;

class ChangedBetween : public testing::Test {
  protected:
    ChangedBetween() { EXPECT_TRUE(Desk.Start()); }

    Oid GivenToday(std::u16string_view subject) {
        return Desk.GivenAppointment(subject, At(2004, 11, 3, 9), At(2004, 11, 3, 10));
    }

    void Rename(Oid oid, std::u16string_view subject) {
        ComPtr<IAppointment> item;
        ASSERT_EQ(Desk.Connect()->GetItemFromOid(oid, item), Status::Ok);
        ASSERT_EQ(item->put_Subject(subject), Status::Ok);
        ASSERT_EQ(item->Save(), Status::Ok);
    }

    void MoveToNoonOf(Oid oid, int day) {
        ComPtr<IAppointment> item;
        ASSERT_EQ(Desk.Connect()->GetItemFromOid(oid, item), Status::Ok);
        DATE noon = 0;
        ASSERT_TRUE(Desk.Device.Host().Locale().SystemTimeToVariantTime(At(2004, 11, day, 12), noon));
        ASSERT_EQ(item->put_Start(noon), Status::Ok);
        ASSERT_EQ(item->Save(), Status::Ok);
    }

    std::u16string SubjectOf(Oid oid) {
        AppointmentData record;
        EXPECT_EQ(Desk.State().Store.LoadAppointment(oid, record), oid);
        return record.Subject;
    }

    ScheduleDesk Desk;
};

TEST_F(ChangedBetween, ViewShowsTheItemAsItIsNow) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(1);
    Desk.Show(ItemKind::Alarm);
    Desk.Device.Do([&] { Rename(alarms[0], u"Renamed"); });
    Desk.ChooseInRow(0, kCommandView);
    Desk.Device.Do([&] { EXPECT_TRUE(Desk.Device.See.ShowsText(u"Renamed")); });
    Desk.Device.PressClose();
    ASSERT_TRUE(Desk.Settle());
}

TEST_F(ChangedBetween, ModifyDoesNotPutBackWhatAnotherProcessChanged) {
    const Oid oid = GivenToday(u"Party");
    Desk.Show(ItemKind::Appointment);
    Desk.Device.Do([&] {
        Rename(oid, u"Renamed");
        MoveToNoonOf(oid, 3);
    });
    Desk.Device.Tap(20, 80);
    Desk.Device.ChooseTracked(kCommandModify);
    Desk.Device.TapControl(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(SubjectOf(oid), u"Renamed");
    AppointmentData record;
    ASSERT_EQ(Desk.State().Store.LoadAppointment(oid, record), oid);
    EXPECT_EQ(record.Start.Hour, 12);
}

TEST_F(ChangedBetween, AnItemThatMovedWhileItsMenuWasOpenIsActedOnInItsNewPlace) {
    const Oid moved = GivenToday(u"Moved");
    const Oid other = GivenToday(u"Other");
    Desk.Show(ItemKind::Appointment);
    Desk.Device.Tap(20, 80);
    Desk.Device.Do([&] { MoveToNoonOf(moved, 5); }); // now the second row
    Desk.Device.ChangeStore();
    Desk.Device.AdvanceClock(500);
    Desk.Device.ChooseTracked(kCommandDelete);
    Desk.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_FALSE(Desk.Exists(moved));
    EXPECT_TRUE(Desk.Exists(other));
}

TEST_F(ChangedBetween, AnItemThatLeftThePeriodMeanwhileIsLeftAlone) {
    const Oid moved = GivenToday(u"Moved");
    const Oid other = GivenToday(u"Other");
    Desk.Show(ItemKind::Appointment);
    Desk.Device.Tap(20, 80);
    Desk.Device.ChooseTracked(kCommandDelete);
    Desk.Device.Do([&] { MoveToNoonOf(moved, 1); });
    Desk.Device.ChangeStore();
    Desk.Device.AdvanceClock(500);
    Desk.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_TRUE(Desk.Exists(moved));
    EXPECT_TRUE(Desk.Exists(other));
}

TEST_F(ChangedBetween, AnItemOfASeriesKeepsItsDayInTheViewThoughItWasRenamed) {
    const Oid series = Desk.GivenSeries(u"Series", At(2004, 11, 1, 9), At(2004, 11, 1, 10), kRecursDaily);
    Desk.Show(ItemKind::Appointment);
    Desk.Device.Do([&] { Rename(series, u"Renamed"); });
    Desk.Device.Tap(20, 80 + 34); // 4 November
    Desk.Device.ChooseTracked(kCommandView);
    Desk.Device.Do([&] { EXPECT_TRUE(Desk.Device.See.ShowsText(u"Renamed")); });
    Desk.Device.PressClose();
    ASSERT_TRUE(Desk.Settle());
}

// A row of the appointments stands for its day, one of the other lists for the whole series.
TEST_F(ChangedBetween, ViewShowsTheTimesOfTheRowOrOfTheSeriesAsItIsNow) {
    const Oid series = Desk.GivenSeries(u"Series", At(2004, 11, 1, 9), At(2004, 11, 1, 10), kRecursDaily);
    Desk.Tag(ItemKind::Alarm, series);
    Desk.Show(ItemKind::Appointment);
    Desk.Device.Do([&] { MoveToNoonOf(series, 1); });
    const auto expectView = [this](const char* times) {
        Desk.Device.Do([this, times] {
            const std::string drawn = ToText(Desk.Device.See.LastFrame()->Calls);
            EXPECT_NE(drawn.find(times), std::string::npos) << drawn;
        });
        Desk.Device.PressClose();
    };
    Desk.Device.Tap(20, 80 + 34); // 4 November
    Desk.Device.ChooseTracked(kCommandView);
    expectView("AM 9:00");
    Desk.Device.Key(VK_RIGHT); // to the alarms
    Desk.ChooseInRow(0, kCommandView);
    expectView("PM 12:00");
    ASSERT_TRUE(Desk.Settle());
}

TEST_F(ChangedBetween, ModifyFromTheViewBeginsWithTheItemAsItIsThen) {
    const Oid oid = GivenToday(u"Party");
    Desk.Show(ItemKind::Appointment);
    Desk.Device.Tap(20, 80);
    Desk.Device.ChooseTracked(kCommandView);
    Desk.Device.Do([&] {
        EXPECT_TRUE(Desk.Device.See.ShowsText(u"Party"));
        Rename(oid, u"Renamed");
        MoveToNoonOf(oid, 3);
    });
    Desk.Device.Tap(226, 26); // modify
    Desk.Device.Do([&] { EXPECT_EQ(Desk.Device.See.TextOf(kEditSubject), u"Renamed"); });
    Desk.Device.TapControl(IDOK);
    ASSERT_TRUE(Desk.Settle());
    AppointmentData record;
    ASSERT_EQ(Desk.State().Store.LoadAppointment(oid, record), oid);
    EXPECT_EQ(record.Subject, u"Renamed");
    EXPECT_EQ(record.Start.Hour, 12);
}

TEST_F(ChangedBetween, DeleteFromTheViewNamesTheItemAsItIsThen) {
    const Oid oid = GivenToday(u"Party");
    Desk.Show(ItemKind::Appointment);
    Desk.Device.Tap(20, 80);
    Desk.Device.ChooseTracked(kCommandView);
    Desk.Device.Do([&] { Rename(oid, u"Renamed"); });
    Desk.Device.Tap(226, 49); // delete
    Desk.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_FALSE(Desk.Exists(oid));
    std::u16string step;
    ASSERT_EQ(Desk.State().Store.OutlookApp->GetUndoName(step), Status::Ok);
    EXPECT_EQ(step, u"delete of appointment Renamed");
}

} // namespace

} // namespace tavo
