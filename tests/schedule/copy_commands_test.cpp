// Copying an appointment to a kind, and new items: what the lists and their bars show at once.
#include "platform/typing.h"
#include "tests/schedule/schedule_page_fixture.h"
#include "tests/support/outlook_probe.h"

#include <gmock/gmock.h>

namespace tavo::test {

using testing::ElementsAre;
using testing::IsEmpty;

class CopyCommands : public SchedulePage {
  protected:
    // As if an entry were chosen that is grey by now.
    void Post(int command) {
        Desk.Device.Do([this, command] {
            Desk.Device.Host().Queue().PostMessageW(
                {Desk.Device.See.Top(), WM_COMMAND, command, BN_CLICKED, kFromMenuOrKey, {}});
        });
        ASSERT_TRUE(Desk.Settle());
    }

    // The entries of the page's menu that copy, as OpenMenu says entries.
    std::vector<std::u16string> CopyEntries() {
        std::vector<std::u16string> entries;
        Desk.Device.OpenMenu(u"schedule");
        Desk.Device.Do([&] {
            for (const MenuItem& item : Desk.Device.See.MenuBar()->Menus.front().Children) {
                if (item.Text.starts_with(u"Copy")) {
                    entries.push_back(item.Enabled ? item.Text : u"(" + item.Text + u")");
                    EXPECT_FALSE(item.Checked);
                }
            }
        });
        Desk.Device.Key(VK_ESCAPE);
        EXPECT_TRUE(Desk.Settle());
        return entries;
    }

    Oid GivenPartyToday() { return Desk.GivenAppointment(u"Party", At(2004, 11, 3, 9), At(2004, 11, 3, 10)); }
};

TEST_F(CopyCommands, WithNothingSelectedNothingIsCopied) {
    GivenPartyToday();
    Desk.Show(ItemKind::Appointment);
    Post(kCommandCopyToAlarm);
    EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), IsEmpty());
}

TEST_F(CopyCommands, WhatIsCopiedAlreadyIsNotCopiedAgain) {
    const Oid party = GivenPartyToday();
    Desk.Show(ItemKind::Appointment);
    Key(VK_DOWN);
    Post(kCommandCopyToHoliday);
    Post(kCommandCopyToHoliday);
    EXPECT_THAT(Desk.ListOf(ItemKind::Holiday), ElementsAre(party));
    EXPECT_THAT(CopyEntries(), ElementsAre(u"Copy to Alarm", u"(Copy to Holiday)", u"Copy to Anniversary"));
}

TEST_F(CopyCommands, TheListOnShowGrowsAtOnce) {
    Desk.GivenAlarms(4);
    GivenPartyToday();
    Desk.Show(ItemKind::Appointment);
    Key(VK_DOWN);
    Key(VK_RIGHT); // to the alarms
    Key(VK_DOWN);
    Key(VK_DOWN);
    EXPECT_EQ(Desk.Bar(), (ScrollInfo{0, 0, 0}));
    Post(kCommandCopyToAlarm);
    EXPECT_EQ(Desk.Bar(), (ScrollInfo{0, 1, 0}));
    EXPECT_EQ(Desk.SelectedRow(), 0);
}

TEST_F(CopyCommands, ANewItemJoinsTheListOnShowAtOnce) {
    Desk.GivenAlarms(4);
    Desk.Show(ItemKind::Alarm);
    Desk.Device.Tap(220, 20); // "new"
    Desk.Device.Tap(100, 20);
    Desk.Device.TypeInto(kEditSubject, u"Wake up");
    Desk.Device.TapControl(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.Bar(), (ScrollInfo{0, 1, 0}));
    EXPECT_EQ(Desk.SelectedRow(), 0);
    Scroll(SB_LINEDOWN);
    EXPECT_EQ(Desk.Headings().back(), u"(17:00) Wake up");
}

TEST_F(CopyCommands, AnAppointmentOutsideThePeriodIsNotMissed) {
    Desk.Show(ItemKind::Appointment);
    Desk.PickPeriodDate(kSchedulePeriodEnd, 2004, 1, 1); // the start follows
    Desk.Device.Tap(220, 20);                            // "new", of today
    Desk.Device.Tap(70, 15);
    Desk.Device.TypeInto(kEditSubject, u"Party");
    Desk.Device.TapControl(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.State().Store.CountAppointments(), 1);
    EXPECT_THAT(Desk.Rows(), IsEmpty());
    EXPECT_THAT(Desk.Boxes(), IsEmpty());
}

TEST_F(CopyCommands, WhileTheStoreCannotAnswerNoEntryIsGrey) {
    GivenPartyToday();
    Desk.Show(ItemKind::Appointment);
    const ComPtr<IPOutlookApp> real = Desk.State().Store.OutlookApp;
    OutlookProbe probe(real);
    probe.ItemResult = Status::Locked;
    Desk.State().Store.OutlookApp = probe.Share();
    Desk.Device.Tap(20, 80);
    Desk.Device.Do([this] {
        EXPECT_THAT(Desk.OpenMenu(), ElementsAre(u"View...", u"Modify...", u"Delete...", u"-", u"Copy to Alarm",
                                                 u"Copy to Holiday", u"Copy to Anniversary"));
    });
    Desk.Device.ChooseTracked(0);
    ASSERT_TRUE(Desk.Settle());
    Desk.State().Store.OutlookApp = real;
}

} // namespace tavo::test
