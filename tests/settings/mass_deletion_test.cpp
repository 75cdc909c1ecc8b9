// A mass deletion, one thing at a time: its end, its way back, and what it leaves when it goes before its end.
#include "settings/mass_deletion.h"

#include "tests/support/outlook_probe.h"
#include "tests/support/test_device.h"

#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::At;

class MassDeletionSteps : public testing::Test {
  protected:
    MassDeletionSteps() {
        EXPECT_TRUE(State.Store.OpenStore());
        All.Alarms = true;
        All.Appointments = true;
        All.Memos = true;
    }

    Oid Given(std::u16string_view subject) {
        return Device.GivenAppointment(subject, At(2004, 11, 3, 9), At(2004, 11, 3, 10));
    }

    void GivenMemo() { Device.GivenFile(kMemo, {1, 2, 3}); }

    bool IsMemoThere() { return Device.FileBytes(kMemo).has_value(); }

    std::u16string UndoName() {
        std::u16string name;
        EXPECT_EQ(State.Store.OutlookApp->GetUndoName(name), Status::Ok);
        return name;
    }

    static void DoAll(MassDeletion& deletion) {
        while (deletion.DoNext()) {
        }
    }

    static constexpr std::u16string_view kMemo = u"\\My Documents\\TavoCalendar\\20041103_101500.pwi";
    test::TestDevice Device;
    CProgramState State{Device.Pump};
    DeletionClasses All;
};

TEST_F(MassDeletionSteps, ADoneThingIsOneStepAndTheEndIsNone) {
    State.Categories.AlarmList.Append(Given(u"Alarm"));
    Given(u"Plain");
    GivenMemo();
    MassDeletion deletion(State, All);
    EXPECT_EQ(deletion.Total(), 3);
    for (int done = 1; done <= 3; ++done) {
        EXPECT_TRUE(deletion.DoNext());
        EXPECT_EQ(deletion.Done(), done);
    }
    EXPECT_FALSE(deletion.DoNext());
    EXPECT_FALSE(deletion.IsRefused());
    EXPECT_EQ(UndoName(), u"delete of 1 alarm, 1 appointment, 1 memo");
}

TEST_F(MassDeletionSteps, ThePlanForTheMemosIsGoneWhenAllIsFinal) {
    GivenMemo();
    MassDeletion deletion(State, All);
    EXPECT_TRUE(deletion.DoNext());
    EXPECT_TRUE(Device.FileBytes(u"\\Recovery\\memos.moving").has_value());
    EXPECT_FALSE(deletion.DoNext());
    EXPECT_FALSE(Device.FileBytes(u"\\Recovery\\memos.moving").has_value());
}

TEST_F(MassDeletionSteps, OverIsOver) {
    Given(u"Plain");
    MassDeletion deletion(State, All);
    DoAll(deletion);
    EXPECT_FALSE(deletion.DoNext());
    EXPECT_FALSE(deletion.IsRefused());
    EXPECT_EQ(deletion.Done(), 1);
}

TEST_F(MassDeletionSteps, TheStepDoesNotNameClassesWithoutItems) {
    Given(u"One");
    Given(u"Two");
    MassDeletion deletion(State, All);
    DoAll(deletion);
    EXPECT_EQ(UndoName(), u"delete of 2 appointments");
}

TEST_F(MassDeletionSteps, TheFirstThingOnTheWayBackIsTheStore) {
    Given(u"Plain");
    GivenMemo();
    MassDeletion deletion(State, All);
    EXPECT_TRUE(deletion.DoNext());
    EXPECT_TRUE(deletion.DoNext());
    EXPECT_FALSE(IsMemoThere());
    EXPECT_TRUE(deletion.TakeBackNext());
    EXPECT_EQ(State.Store.CountAppointments(), 1);
    EXPECT_TRUE(IsMemoThere());
    EXPECT_EQ(deletion.Done(), 1);
    EXPECT_EQ(State.Store.OutlookApp->Begin(u"Another step"), Status::Ok);
    EXPECT_EQ(State.Store.OutlookApp->Abandon(), Status::Ok);
    EXPECT_FALSE(deletion.TakeBackNext());
    EXPECT_EQ(deletion.Missing(), 0);
}

TEST_F(MassDeletionSteps, OneThatGoesBeforeItsEndLeavesEverything) {
    Given(u"Plain");
    GivenMemo();
    {
        MassDeletion deletion(State, All);
        EXPECT_TRUE(deletion.DoNext());
        EXPECT_TRUE(deletion.DoNext());
        EXPECT_FALSE(IsMemoThere());
    }
    EXPECT_EQ(State.Store.CountAppointments(), 1);
    EXPECT_TRUE(IsMemoThere());
}

TEST_F(MassDeletionSteps, AMemoThatTheStepCannotKnowOfComesBackWithEverything) {
    Given(u"Plain");
    GivenMemo();
    test::OutlookProbe probe(State.Store.OutlookApp);
    probe.NoteResult = Status::DiskFull;
    State.Store.OutlookApp = probe.Share();
    {
        MassDeletion deletion(State, All);
        DoAll(deletion);
        EXPECT_TRUE(deletion.IsRefused());
        EXPECT_EQ(deletion.Missing(), 0);
    }
    EXPECT_EQ(State.Store.CountAppointments(), 1);
    EXPECT_TRUE(IsMemoThere());
    State.Store.OutlookApp.Reset();
}

TEST_F(MassDeletionSteps, CountsTheMemosThatCannotComeBack) {
    GivenMemo();
    MassDeletion deletion(State, All);
    EXPECT_TRUE(deletion.DoNext());
    const auto search = Device.Host.Files().FindFirstFileW(u"\\My Documents\\TavoCalendar\\Deleted\\*.pwi");
    ASSERT_NE(search, nullptr);
    ASSERT_EQ(Device.Host.Files().DeleteFileW(u"\\My Documents\\TavoCalendar\\Deleted\\" + search->FileName()),
              ErrorCode::Success);
    deletion.Abandon();
    EXPECT_EQ(deletion.Missing(), 1);
}

TEST_F(MassDeletionSteps, WithoutAFolderThereAreNoAppointmentsToDelete) {
    Given(u"Plain");
    State.Store.CalendarFolder.Reset();
    All.Alarms = false;
    MassDeletion deletion(State, All);
    EXPECT_EQ(deletion.Total(), 0);
    EXPECT_FALSE(deletion.DoNext());
    EXPECT_FALSE(deletion.IsRefused());
}

} // namespace

} // namespace tavo
