// Undo in the Tools menu: what it says, and what it brings back.
#include "tests/schedule/schedule_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::At;
using test::ScheduleDesk;
using testing::ElementsAre;
using testing::IsEmpty;

class UndoMenu : public testing::Test {
  protected:
    UndoMenu() { EXPECT_TRUE(Desk.Start()); }

    // As the menu says it when it opens; in brackets where it cannot be chosen.
    std::u16string Entry() {
        std::u16string text;
        Desk.Device.OpenMenu(u"Tools");
        Desk.Device.Do([&] {
            for (const MenuItem& item : Desk.Device.See.MenuBar()->Menus.back().Children) {
                if (item.Id == kCommandUndoStep) {
                    text = item.Enabled ? item.Text : u"(" + item.Text + u")";
                }
            }
        });
        Desk.Device.Key(VK_ESCAPE);
        EXPECT_TRUE(Desk.Settle());
        return text;
    }

    void Undo() {
        Desk.Device.Key('Z', kModifierControl);
        EXPECT_TRUE(Desk.Settle());
        Desk.LetNoticesArrive();
    }

    void DeleteRow(int row) {
        Desk.ChooseInRow(row, kCommandDelete);
        Desk.Device.AnswerBox(IDYES);
        EXPECT_TRUE(Desk.Settle());
        Desk.LetNoticesArrive();
    }

    ScheduleDesk Desk;
};

TEST_F(UndoMenu, IsGreyWhereNothingWasDone) {
    EXPECT_EQ(Entry(), u"(Undo)");
}

TEST_F(UndoMenu, NamesTheDeletedItemAndBringsItBackWithItsPlaceInTheList) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(3);
    Desk.Show(ItemKind::Alarm);
    DeleteRow(1);
    EXPECT_EQ(Entry(), u"Undo delete of alarm Alarm 2");
    Undo();
    EXPECT_THAT(Desk.Headings(), ElementsAre(u"(12:00) Alarm 1", u"(12:00) Alarm 2", u"(12:00) Alarm 3"));
    EXPECT_EQ(Desk.ListOf(ItemKind::Alarm), alarms);
    EXPECT_TRUE(Desk.Exists(alarms[1]));
}

TEST_F(UndoMenu, NamesASeriesAsSuch) {
    const Oid yoga = Desk.GivenSeries(u"Yoga", At(2004, 11, 2, 18), At(2004, 11, 2, 19), kRecursWeekly);
    Desk.Tag(ItemKind::Holiday, yoga);
    Desk.Show(ItemKind::Holiday);
    DeleteRow(0);
    EXPECT_EQ(Entry(), u"Undo delete of series Yoga");
    Undo();
    EXPECT_THAT(Desk.Rows(), ElementsAre(u"Yoga, Every Tue., from 2004.11.02(Tue)"));
}

TEST_F(UndoMenu, BringsBackTheInkAsItWas) {
    const std::vector<std::uint8_t> ink{1, 2, 3, 4};
    const Oid oid = Desk.GivenAppointment(u"With ink", At(2004, 11, 3, 9), At(2004, 11, 3, 10),
                                          [&](IAppointment& item) { EXPECT_EQ(item.put_BodyInk(ink), Status::Ok); });
    Desk.Tag(ItemKind::Anniversary, oid);
    Desk.Show(ItemKind::Anniversary);
    DeleteRow(0);
    ASSERT_FALSE(Desk.Exists(oid));
    Undo();
    ComPtr<IAppointment> item;
    ASSERT_EQ(Desk.Connect()->GetItemFromOid(oid, item), Status::Ok);
    std::vector<std::uint8_t> restored;
    EXPECT_EQ(item->get_BodyInk(restored), Status::Ok);
    EXPECT_EQ(restored, ink);
}

TEST_F(UndoMenu, TakesBackStepsNewestFirst) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(3);
    Desk.Show(ItemKind::Alarm);
    DeleteRow(0);
    DeleteRow(0);
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), ElementsAre(alarms[2]));
    Undo();
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), ElementsAre(alarms[1], alarms[2]));
    EXPECT_EQ(Entry(), u"Undo delete of alarm Alarm 1");
    Undo();
    EXPECT_EQ(Desk.ListOf(ItemKind::Alarm), alarms);
}

TEST_F(UndoMenu, ANextRunTakesBackWhatTheLastOneDeleted) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(2);
    Desk.Show(ItemKind::Alarm);
    DeleteRow(0);
    Desk.Device.PressClose();
    ASSERT_TRUE(Desk.Settle());
    Desk.Stop();
    ASSERT_TRUE(Desk.Start());
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), ElementsAre(alarms[1]));
    EXPECT_EQ(Entry(), u"Undo delete of alarm Alarm 1");
    Undo();
    EXPECT_EQ(Desk.ListOf(ItemKind::Alarm), alarms);
}

TEST_F(UndoMenu, TakesBackACopyToACategory) {
    const Oid oid = Desk.GivenAppointment(u"Party", At(2004, 11, 3, 20), At(2004, 11, 3, 23));
    Desk.Show(ItemKind::Appointment);
    Desk.Device.Tap(20, 80);
    Desk.Device.ChooseTracked(kCommandCopyToHoliday);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.ListOf(ItemKind::Holiday), ElementsAre(oid));
    EXPECT_EQ(Entry(), u"Undo copy of Party to holidays");
    Undo();
    EXPECT_THAT(Desk.ListOf(ItemKind::Holiday), IsEmpty());
    EXPECT_TRUE(Desk.Exists(oid));
}

TEST_F(UndoMenu, WhatTheStoreRefusesIsToldAndStaysOnOffer) {
    const std::vector<Oid> alarms = Desk.GivenAlarms(2);
    Desk.Show(ItemKind::Alarm);
    DeleteRow(0);
    const ComPtr<IPOutlookApp> store = Desk.State().Store.OutlookApp;
    ASSERT_EQ(store->Begin(u"Under way"), Status::Ok);
    Desk.Device.Key('Z', kModifierControl);
    Desk.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Desk.Settle());
    ASSERT_EQ(store->Abandon(), Status::Ok);
    EXPECT_EQ(Desk.Boxes().back(), u"Tavo Calendar|The last step could not be undone.");
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), ElementsAre(alarms[1]));
    Undo();
    EXPECT_EQ(Desk.ListOf(ItemKind::Alarm), alarms);
}

TEST_F(UndoMenu, ALongSubjectIsShortenedAndItsLineBreaksBecomeBlanks) {
    Desk.Tag(ItemKind::Alarm, Desk.GivenAppointment(u"One\r\ntwo\tthree " + std::u16string(4000, u'x'),
                                                    At(2004, 11, 3, 9), At(2004, 11, 3, 9)));
    Desk.Show(ItemKind::Alarm);
    DeleteRow(0);
    EXPECT_EQ(Entry(), u"Undo delete of alarm One  two three xxxxxxxxxxxxxxx...");
}

} // namespace

} // namespace tavo
