// What follows a command on an item: the pages read the store anew, and a store that gives nothing is told of.
#include "tests/schedule/schedule_desk.h"
#include "tests/support/folder_probe.h"
#include "tests/support/outlook_probe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::At;
using test::FolderFaults;
using test::FolderProbe;
using test::ScheduleDesk;
using testing::ElementsAre;
using testing::IsEmpty;

class Afterwards : public testing::Test {
  protected:
    Afterwards() { EXPECT_TRUE(Desk.Start()); }

    Oid GivenToday(std::u16string_view subject) {
        return Desk.GivenAppointment(subject, At(2004, 11, 3, 9), At(2004, 11, 3, 10));
    }

    ScheduleDesk Desk;
};

// What another process does in silence is seen when the pages read the store anew.
class RefreshNotices : public Afterwards {
  protected:
    RefreshNotices() : Alarms(Desk.GivenAlarms(3)) {
        Desk.Show(ItemKind::Alarm);
        EXPECT_EQ(Desk.Headings()[2], u"(12:00) Alarm 3");
    }

    // While a dialog or a question is open: no refresh may be on its way from before.
    void RenameThird() {
        Desk.Device.Do([this] {
            ComPtr<IAppointment> item;
            ASSERT_EQ(Desk.Connect()->GetItemFromOid(Alarms[2], item), Status::Ok);
            ASSERT_EQ(item->put_Subject(u"Renamed"), Status::Ok);
            ASSERT_EQ(item->Save(), Status::Ok);
        });
    }

    void ExpectRefreshedAfterHalfASecond() {
        ASSERT_TRUE(Desk.Settle());
        EXPECT_EQ(Desk.Headings().back(), u"(12:00) Alarm 3");
        Desk.Device.AdvanceClock(499);
        ASSERT_TRUE(Desk.Settle());
        EXPECT_EQ(Desk.Headings().back(), u"(12:00) Alarm 3");
        Desk.Device.AdvanceClock(1);
        ASSERT_TRUE(Desk.Settle());
        EXPECT_EQ(Desk.Headings().back(), u"(12:00) Renamed");
    }

    std::vector<Oid> Alarms;
};

TEST_F(RefreshNotices, FollowModifyEvenWhereItWasCancelled) {
    Desk.ChooseInRow(0, kCommandModify);
    RenameThird();
    Desk.Device.TapControl(IDCANCEL);
    ExpectRefreshedAfterHalfASecond();
}

TEST_F(RefreshNotices, FollowModifyFromTheView) {
    Desk.ChooseInRow(0, kCommandView);
    Desk.Device.Tap(226, 26);
    RenameThird();
    Desk.Device.TapControl(IDCANCEL);
    ExpectRefreshedAfterHalfASecond();
}

TEST_F(RefreshNotices, FollowDelete) {
    Desk.ChooseInRow(0, kCommandDelete);
    RenameThird();
    Desk.Device.AnswerBox(IDYES);
    ExpectRefreshedAfterHalfASecond();
}

TEST_F(RefreshNotices, FollowANewItem) {
    Desk.Device.Tap(220, 20); // "new"
    RenameThird();
    Desk.Device.TapControl(IDCANCEL);
    ExpectRefreshedAfterHalfASecond();
}

TEST_F(RefreshNotices, FollowACopy) {
    GivenToday(u"Party");
    Desk.Show(ItemKind::Appointment);
    RenameThird();
    Desk.Device.Tap(20, 80);
    Desk.Device.ChooseTracked(kCommandCopyToHoliday);
    ASSERT_TRUE(Desk.Settle());
    Desk.Device.AdvanceClock(500);
    Desk.Device.Key(VK_RIGHT); // to the alarms
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.Headings()[2], u"(12:00) Renamed");
}

TEST_F(RefreshNotices, DoNotFollowAViewThatOnlyShowed) {
    Desk.ChooseInRow(0, kCommandView);
    RenameThird();
    Desk.Device.PressClose();
    Desk.Device.AdvanceClock(2000);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.Headings().back(), u"(12:00) Alarm 3");
}

// The store takes items and gives none, from the next step of the script on.
class StoreThatGivesNothing {
  public:
    explicit StoreThatGivesNothing(ScheduleDesk& desk) : Desk(desk), Real(desk.State().Store.OutlookApp), Probe(Real) {
        Probe.ItemResult = Status::Locked;
        Desk.Device.Do([this] { Desk.State().Store.OutlookApp = Probe.Share(); });
    }

    ~StoreThatGivesNothing() { Desk.State().Store.OutlookApp = Real; }

    StoreThatGivesNothing(const StoreThatGivesNothing&) = delete;
    StoreThatGivesNothing& operator=(const StoreThatGivesNothing&) = delete;

  private:
    ScheduleDesk& Desk;
    ComPtr<IPOutlookApp> Real;
    test::OutlookProbe Probe;
};

TEST_F(Afterwards, WhatWasMadeOfAnotherKindIsShownWhereItIsListed) {
    Desk.Show(ItemKind::Alarm);
    Desk.Device.Key('2', kModifierControl); // a new holiday
    Desk.Device.Tap(70, 20);
    Desk.Device.TypeInto(kEditSubject, u"May Day");
    Desk.Device.TapControl(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.Header(), u"Holiday");
    EXPECT_EQ(Desk.Rows().size(), 1U);
    Desk.Device.Key('1', kModifierControl);
    Desk.Device.TapControl(IDCANCEL);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.Header(), u"Holiday"); // nothing was made
}

constexpr std::u16string_view kRowMissing = u"Tavo Calendar|The item was saved, but the list could not be read.";

TEST_F(Afterwards, ASavedItemThatTheStoreCannotGiveKeepsItsTagAndIsToldOf) {
    Desk.Show(ItemKind::Alarm);
    {
        const StoreThatGivesNothing store(Desk);
        Desk.Device.Tap(220, 20); // "new"
        Desk.Device.Tap(70, 20);
        Desk.Device.TypeInto(kEditSubject, u"Wake up");
        Desk.Device.TapControl(IDOK);
        Desk.Device.AnswerBox(IDOK);
        ASSERT_TRUE(Desk.Settle());
        EXPECT_THAT(Desk.Boxes(), ElementsAre(kRowMissing));
        EXPECT_EQ(Desk.ListOf(ItemKind::Alarm).size(), 1U);
        EXPECT_THAT(Desk.Rows(), IsEmpty());
    }
    Desk.LetNoticesArrive();
    EXPECT_EQ(Desk.Rows().size(), 1U);
    Desk.Device.Tap(220, 20);
    Desk.Device.TapControl(IDCANCEL);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.Boxes().size(), 1U); // told once
}

TEST_F(Afterwards, ACopyThatTheStoreCannotGiveIsTaggedAndToldOf) {
    const Oid party = GivenToday(u"Party");
    Desk.Show(ItemKind::Appointment);
    {
        Desk.Device.Tap(20, 80);
        const StoreThatGivesNothing store(Desk);
        Desk.Device.ChooseTracked(kCommandCopyToAlarm);
        Desk.Device.AnswerBox(IDOK);
        ASSERT_TRUE(Desk.Settle());
        EXPECT_THAT(Desk.Boxes(), ElementsAre(kRowMissing));
        EXPECT_THAT(Desk.ListOf(ItemKind::Alarm), ElementsAre(party));
    }
}

TEST_F(Afterwards, AnAppointmentThatTheStoreCannotListIsToldOf) {
    Desk.Show(ItemKind::Appointment);
    const StoreThatGivesNothing store(Desk);
    Desk.Device.Tap(220, 20); // "new"
    Desk.Device.Tap(70, 15);
    Desk.Device.TypeInto(kEditSubject, u"Party");
    Desk.Device.TapControl(IDOK);
    Desk.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.Boxes(), ElementsAre(kRowMissing));
    EXPECT_THAT(Desk.Rows(), IsEmpty());
}

TEST_F(Afterwards, AListThatBreaksOffIsToldOf) {
    GivenToday(u"Party");
    GivenToday(u"Concert");
    Desk.Show(ItemKind::Appointment);
    FolderFaults faults;
    faults.LockedFrom = 2;
    ComPtr<IFolder>& folder = Desk.State().Store.CalendarFolder;
    const ComPtr<IFolder> real = folder;
    folder = FolderProbe::Make(real, faults);
    Desk.Device.Tap(220, 20); // "new"
    Desk.Device.Tap(70, 15);
    Desk.Device.TypeInto(kEditSubject, u"Dinner");
    Desk.Device.TapControl(IDOK);
    Desk.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.Boxes(), ElementsAre(kRowMissing));
    EXPECT_EQ(Desk.Rows().size(), 1U);
    folder = real;
}

} // namespace

} // namespace tavo
