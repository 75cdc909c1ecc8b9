// Opening, closing, counting, querying and deleting.
#include "store/outlook_session.h"

#include "tests/support/folder_probe.h"
#include "tests/support/host_probe.h"
#include "tests/support/outlook_probe.h"
#include "tests/support/test_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::At;
using test::FolderFaults;
using test::FolderProbe;
using test::HostProbe;
using test::OutlookProbe;
using test::TestDevice;
using testing::ElementsAre;
using testing::IsEmpty;

// A session on a device whose store connection is watched.
class OutlookSessionTest : public testing::Test {
  protected:
    OutlookSessionTest() {
        Outlook.Calls = &Host.Calls;
        Host.MakeOutlook = [this](ComPtr<IPOutlookApp>& outlook) {
            outlook = Outlook.Share();
            return Status::Ok;
        };
    }

    std::vector<std::u16string> SubjectsOf(const ComPtr<IPOutlookItemCollection>& items) {
        std::vector<std::u16string> subjects;
        ComPtr<IAppointment> item;
        for (std::int32_t index = 1; items && Succeeded(items->Item(index, item)); ++index) {
            std::u16string subject;
            EXPECT_EQ(item->get_Subject(subject), Status::Ok);
            subjects.push_back(subject);
        }
        return subjects;
    }

    TestDevice Device;
    HostProbe Host{Device.Host};
    OutlookProbe Outlook{Device.NewConnection()};
    CMessagePump Pump{Host};
    OutlookSession Session{Pump};
};

TEST_F(OutlookSessionTest, OpeningLogsOnWithoutAWindowAndTakesTheCalendar) {
    EXPECT_TRUE(Session.OpenStore());
    EXPECT_THAT(Host.Calls, ElementsAre("CoCreateInstance", "Logon(no window)", "GetDefaultFolder 9"));
    EXPECT_TRUE(Session.OutlookApp);
    EXPECT_TRUE(Session.CalendarFolder);
    EXPECT_EQ(Session.LastStoreResult, Status::Ok);
    EXPECT_THAT(Device.MessagesShown(), IsEmpty());
}

TEST_F(OutlookSessionTest, ClosingLetsGoOfEverythingAndEndsCom) {
    ASSERT_TRUE(Session.OpenStore());
    FolderFaults faults;
    faults.Calls = &Host.Calls;
    Session.CalendarFolder = FolderProbe::Make(Session.CalendarFolder, faults);
    Host.Calls.clear();
    Session.CloseStore();
    EXPECT_THAT(Host.Calls, ElementsAre("folder released", "Logoff", "Release", "CoUninitialize"));
    EXPECT_FALSE(Session.CalendarFolder);
    EXPECT_FALSE(Session.OutlookApp);
    EXPECT_EQ(Outlook.References, 0);
    EXPECT_EQ(Session.Tags(), nullptr);
}

TEST_F(OutlookSessionTest, ClosingWhatNeverOpenedOnlyEndsCom) {
    Session.CloseStore();
    EXPECT_THAT(Host.Calls, ElementsAre("CoUninitialize"));
}

TEST_F(OutlookSessionTest, AStoreObjectThatCannotBeMadeIsReported) {
    Host.MakeOutlook = [](ComPtr<IPOutlookApp>&) { return Status::OutOfMemory; };
    Host.LastError = static_cast<ErrorCode>(14);
    Device.WillAnswer(IDOK);
    EXPECT_FALSE(Session.OpenStore());
    EXPECT_EQ(Session.LastStoreResult, Status::OutOfMemory);
    EXPECT_THAT(Device.MessagesShown(), ElementsAre(u"Tavo Calendar|Error occurred [001:14]|OK"));
}

TEST_F(OutlookSessionTest, AFailedLogonIsReported) {
    Outlook.LogonResult = Status::Locked;
    Host.LastError = ErrorCode::LockViolation;
    Device.WillAnswer(IDOK);
    EXPECT_FALSE(Session.OpenStore());
    EXPECT_EQ(Session.LastStoreResult, Status::Locked);
    EXPECT_THAT(Host.Calls, ElementsAre("CoCreateInstance", "Logon(no window)"));
    EXPECT_THAT(Device.MessagesShown(), ElementsAre(u"Tavo Calendar|Error occurred [001:33]|OK"));
}

TEST_F(OutlookSessionTest, AMissingCalendarFolderIsReported) {
    Outlook.FolderResult = Status::Fail;
    Host.LastError = ErrorCode::CannotComplete;
    Device.WillAnswer(IDOK);
    EXPECT_FALSE(Session.OpenStore());
    EXPECT_EQ(Session.LastStoreResult, Status::Fail);
    EXPECT_THAT(Device.MessagesShown(), ElementsAre(u"Tavo Calendar|Error occurred [001:1003]|OK"));
}

TEST_F(OutlookSessionTest, ReadingBeginsAndEnds) {
    ASSERT_TRUE(Session.OpenStore());
    Host.Calls.clear();
    { const StoreReading reading(Session); }
    EXPECT_THAT(Host.Calls, ElementsAre("BeginReading", "EndReading"));
}

TEST_F(OutlookSessionTest, ReadingThatDidNotBeginDoesNotEnd) {
    { const StoreReading withoutAStore(Session); }
    EXPECT_THAT(Host.Calls, IsEmpty());
    ASSERT_TRUE(Session.OpenStore());
    Host.Calls.clear();
    Outlook.ReadingResult = Status::Locked;
    { const StoreReading refused(Session); }
    EXPECT_THAT(Host.Calls, ElementsAre("BeginReading"));
}

TEST_F(OutlookSessionTest, CountsASeriesOnce) {
    ASSERT_TRUE(Session.OpenStore());
    EXPECT_EQ(Session.CountAppointments(), 0);
    Device.GivenAppointment(u"Dentist", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 10, 0));
    Device.GivenSeries(u"Standup", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 9, 15), kRecursDaily);
    EXPECT_EQ(Session.CountAppointments(), 2);
}

TEST_F(OutlookSessionTest, CountsNothingWhileTheStoreIsNotOpen) {
    EXPECT_EQ(Session.CountAppointments(), 0);
    EXPECT_EQ(Session.LastStoreResult, Status::Unexpected);
}

TEST_F(OutlookSessionTest, CountsNothingWhereTheItemsCannotBeHad) {
    ASSERT_TRUE(Session.OpenStore());
    Device.GivenAppointment(u"Dentist", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 10, 0));
    FolderFaults faults;
    Session.CalendarFolder = FolderProbe::Make(Session.CalendarFolder, faults);
    EXPECT_EQ(Session.CountAppointments(), 1);
    faults.ItemsResult = Status::Locked;
    EXPECT_EQ(Session.CountAppointments(), 0);
    EXPECT_EQ(Session.LastStoreResult, Status::Locked);
    Session.CalendarFolder.Reset(); // before the faults go
    EXPECT_THAT(Device.MessagesShown(), IsEmpty());
}

TEST_F(OutlookSessionTest, CountsNothingWhereTheCountCannotBeHad) {
    ASSERT_TRUE(Session.OpenStore());
    FolderFaults faults;
    faults.CountResult = Status::OutOfMemory;
    Session.CalendarFolder = FolderProbe::Make(Session.CalendarFolder, faults);
    EXPECT_EQ(Session.CountAppointments(), 0);
    EXPECT_EQ(Session.LastStoreResult, Status::OutOfMemory);
    Session.CalendarFolder.Reset();
}

TEST_F(OutlookSessionTest, QueriesNothingWhereTheItemsCannotBeHad) {
    ASSERT_TRUE(Session.OpenStore());
    Device.GivenAppointment(u"Dentist", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 10, 0));
    FolderFaults faults;
    faults.ItemsResult = Status::Locked;
    Session.CalendarFolder = FolderProbe::Make(Session.CalendarFolder, faults);
    EXPECT_FALSE(Session.QueryAppointments(u"[Start] <= 5/3/2004 and [End] >= 5/3/2004"));
    EXPECT_EQ(Session.LastStoreResult, Status::Locked);
    Session.CalendarFolder.Reset();
}

TEST_F(OutlookSessionTest, DeletesAnAppointment) {
    ASSERT_TRUE(Session.OpenStore());
    const Oid dentist = Device.GivenAppointment(u"Dentist", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 10, 0));
    Device.GivenAppointment(u"Lunch", At(2004, 5, 3, 12, 0), At(2004, 5, 3, 13, 0));
    Session.DeleteAppointment(dentist);
    EXPECT_EQ(Session.CountAppointments(), 1);
    AppointmentData record;
    EXPECT_EQ(Session.LoadAppointment(dentist, record), 0);
}

TEST_F(OutlookSessionTest, DeletingWhatIsNotThereIsSilent) {
    ASSERT_TRUE(Session.OpenStore());
    Device.GivenAppointment(u"Dentist", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 10, 0));
    Session.DeleteAppointment(0);
    EXPECT_EQ(Session.LastStoreResult, Status::Ok);
    Session.DeleteAppointment(4711);
    EXPECT_EQ(Session.LastStoreResult, Status::NotFound);
    EXPECT_EQ(Session.CountAppointments(), 1);
    EXPECT_THAT(Device.MessagesShown(), IsEmpty());
}

TEST_F(OutlookSessionTest, QueriesByTheDayWithBothBoundsInside) {
    ASSERT_TRUE(Session.OpenStore());
    Device.GivenAppointment(u"Day before", At(2004, 5, 2, 23, 0), At(2004, 5, 2, 23, 30));
    Device.GivenAppointment(u"Dentist", At(2004, 5, 3, 23, 30), At(2004, 5, 3, 23, 45));
    Device.GivenAppointment(u"Day after", At(2004, 5, 4, 0, 0), At(2004, 5, 4, 1, 0));
    EXPECT_THAT(SubjectsOf(Session.QueryAppointments(u"[Start] <= 5/3/2004 and [End] >= 5/3/2004")),
                ElementsAre(u"Dentist"));
}

TEST_F(OutlookSessionTest, AQueryWithALineFeedAtItsEndWorksToo) {
    ASSERT_TRUE(Session.OpenStore());
    Device.GivenAppointment(u"Dentist", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 10, 0));
    EXPECT_THAT(SubjectsOf(Session.QueryAppointments(u"[Start] >= 5/3/2004 and [Start] <= 5/4/2004\n")),
                ElementsAre(u"Dentist"));
}

TEST_F(OutlookSessionTest, AQueryLooksBackAsFarAsItsStart) {
    ASSERT_TRUE(Session.OpenStore());
    Device.GivenAppointment(u"Journey", At(2004, 4, 20, 9, 0), At(2004, 5, 5, 10, 0));
    Device.GivenAppointment(u"Earlier", At(2004, 4, 20, 9, 0), At(2004, 4, 21, 10, 0));
    EXPECT_THAT(
        SubjectsOf(Session.QueryAppointments(u"[Start] >= 4/1/2004 and [Start] <= 5/31/2004 and [End] >= 5/1/2004")),
        ElementsAre(u"Journey"));
}

TEST_F(OutlookSessionTest, AQueryYieldsEachOccurrence) {
    ASSERT_TRUE(Session.OpenStore());
    Device.GivenSeries(u"Standup", At(2004, 5, 3, 9, 0), At(2004, 5, 3, 9, 15), kRecursDaily);
    EXPECT_THAT(SubjectsOf(Session.QueryAppointments(u"[Start] >= 5/1/2004 and [Start] <= 5/5/2004")),
                ElementsAre(u"Standup", u"Standup", u"Standup"));
}

TEST_F(OutlookSessionTest, AQueryWithoutAMatchGivesNothing) {
    ASSERT_TRUE(Session.OpenStore());
    EXPECT_FALSE(Session.QueryAppointments(u"[Start] <= 5/3/2004 and [End] >= 5/3/2004"));
    EXPECT_FALSE(Failed(Session.LastStoreResult));
}

TEST_F(OutlookSessionTest, ABadQueryGivesNothingAndLeavesItsCode) {
    ASSERT_TRUE(Session.OpenStore());
    EXPECT_FALSE(Session.QueryAppointments(u"[Start] <=  and [End] >= "));
    EXPECT_EQ(Session.LastStoreResult, Status::InvalidArgument);
}

TEST_F(OutlookSessionTest, AQueryWhileTheStoreIsNotOpenGivesNothing) {
    EXPECT_FALSE(Session.QueryAppointments(u"[Start] <= 5/3/2004 and [End] >= 5/3/2004"));
    EXPECT_EQ(Session.LastStoreResult, Status::Unexpected);
}

} // namespace

} // namespace tavo
