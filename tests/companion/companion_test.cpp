// The real companion on a real session bus, with a service of notifications that writes down what it is asked.
#include "host/outlook/store_core.h"
#include "host/posix/instance_lock.h"
#include "host/posix/root_folder.h"
#include "tests/companion/notification_service.h"
#include "tests/companion/patience.h"
#include "tests/companion/running_companion.h"

#include <gmock/gmock.h>

#include <cmath>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace tavo::companion::test {
namespace {

namespace fs = std::filesystem;
using ::testing::AnyOf;
using ::testing::HasSubstr;
using ::testing::IsSupersetOf;

constexpr double kSoon = 10; // seconds that a busy machine may take

class OnABus : public CompanionTest {
  protected:
    OnABus() { StartCompanion(Bus.Address()); }

    const Notification& Last() const { return Service.Came.back(); }

    std::string RunFolder() const {
        posix::RootEnvironment environment;
        environment.TavoHome = Folder.Path.string();
        return posix::OpenDeviceRoot(environment).Root.value().RunFolder();
    }

    fs::path Found() const { return Folder.Path / "found"; }

    // Starts the companion anew, beside a script in place of the calendar.
    void StandInForTheCalendar(const std::string& script) {
        Service.Serve(0.5);
        Kill(SIGTERM);
        const fs::path programs = Folder.Path / "programs";
        fs::create_directories(programs);
        fs::copy_file(Program, programs / "RSound");
        Program = programs / "RSound";
        std::ofstream(programs / "tavocalendar") << "#!/bin/sh\n" << script;
        fs::permissions(programs / "tavocalendar", fs::perms::owner_all);
        StartCompanion(Bus.Address());
    }

    SessionBus Bus;
    NotificationService Service{Bus};
};

TEST_F(OnABus, AReminderIsShownWithItsChoicesAndStays) {
    AddReminder(u"Train", 600, 30);
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    EXPECT_EQ(Last().Summary, "Train");
    EXPECT_THAT(Last().Body, AnyOf(HasSubstr("Today"), HasSubstr("Tomorrow"))); // shortly before midnight
    EXPECT_THAT(Last().Actions, IsSupersetOf({"dismiss", "open", "snooze-5", "snooze-10", "snooze-30", "snooze-60"}));
    EXPECT_EQ(Last().Timeout, 0);
    EXPECT_TRUE(WaitForStates("2", kSoon));
}

TEST_F(OnABus, WhatLooksLikeMarkupIsShownAsItIsWritten) {
    Service.Serve(0.5);
    Kill(SIGTERM);
    for (int number = 0; number < 4; ++number) { // more than come as cards of their own
        AddReminder(u"<b>Tea</b> & cake", 600, 30);
    }
    StartCompanion(Bus.Address());
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    EXPECT_EQ(Last().Summary, "4 reminders");
    EXPECT_THAT(Last().Body, HasSubstr("&lt;b&gt;Tea&lt;/b&gt; &amp; cake"));
}

TEST_F(OnABus, WhatABusRefusesIsShownHarmless) {
    AddReminder(u"Tea\uFFFF\uFDD0\u0001\u009B\u202E\n\tcake", 600, 30);
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    EXPECT_EQ(Last().Summary, "Tea\uFFFD\uFFFD␁\uFFFD  cake");
    AddReminder(u"Train", 600, 30);
    ASSERT_TRUE(Service.WaitFor(2, kSoon));
    EXPECT_EQ(Last().Summary, "Train");
    EXPECT_TRUE(WaitForStates("2 2", kSoon));
}

TEST_F(OnABus, IsShownAtItsTime) {
    Service.Serve(0.5);
    AddReminder(u"Soon", 3);
    const double due = std::floor(TimeNow()) + 3;
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    EXPECT_GE(Last().Time, due - 1); // the item was made in that second or the one before
    EXPECT_LE(Last().Time, due + 2);
}

TEST_F(OnABus, ADismissedOneIsAnswered) {
    AddReminder(u"Train", 600, 30);
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    ASSERT_TRUE(WaitForStates("2", kSoon));
    Service.Choose(Last().Number, "dismiss");
    EXPECT_TRUE(WaitForStates("5", kSoon));
    EXPECT_TRUE(Service.WaitForTakenBack(Last().Number, kSoon)); // some leave up what was answered
}

TEST_F(OnABus, OneThatIsClosedByHandIsAnswered) {
    AddReminder(u"Train", 600, 30);
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    ASSERT_TRUE(WaitForStates("2", kSoon));
    Service.CloseByHand(Last().Number);
    EXPECT_TRUE(WaitForStates("5", kSoon));
    Service.Serve(0.3);
    EXPECT_TRUE(Service.TakenBack.empty());
}

TEST_F(OnABus, ASnoozedOneWaits) {
    AddReminder(u"Train", 600, 30);
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    ASSERT_TRUE(WaitForStates("2", kSoon));
    Service.Choose(Last().Number, "snooze-10");
    EXPECT_TRUE(WaitForStates("3", kSoon));
}

// And starts another, which knows what to do where the one that runs is about to end.
TEST_F(OnABus, OpenAsksTheProgramThatRunsForTheItem) {
    StandInForTheCalendar("touch '" + Found().string() + "'\n");
    posix::InstanceLock program(RunFolder());
    ASSERT_EQ(program.Acquire(posix::InstanceRole::Program, {}), posix::LockOutcome::Held);
    ASSERT_EQ(program.WatchActivation(), ErrorCode::Success);
    AddReminder(u"Bus", 86400);
    const Oid item = AddReminder(u"Train", 600, 30);
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    ASSERT_TRUE(WaitForStates("2", kSoon));
    Service.GiveToken(Last().Number, "token-7");
    Service.Choose(Last().Number, "open");

    struct pollfd asked {
        program.ActivationFd(), POLLIN, 0
    };

    ASSERT_EQ(poll(&asked, 1, static_cast<int>(kSoon * 1000)), 1);
    const std::optional<posix::ActivationRequest> request = program.TakeActivation();
    ASSERT_TRUE(request.has_value());
    EXPECT_EQ(request->Item, item);
    EXPECT_EQ(request->Token, "token-7");
    EXPECT_TRUE(WaitForStates("5", kSoon));
    EXPECT_TRUE(WaitUntil([&] { return fs::exists(Found()); }, kSoon));
}

TEST_F(OnABus, OpenStartsAProgramThatFindsTheItem) {
    const std::string request = RunFolder() + "/OpenItem";
    const std::string kept = Found().string();
    // It keeps what it finds.
    StandInForTheCalendar("printf '\\nenvironment %s' \"$XDG_ACTIVATION_TOKEN\" >> '" + request + "'\ncp '" + request +
                          "' '" + kept + ".part'\nmv '" + kept + ".part' '" + kept + "'\n");
    const Oid item = AddReminder(u"Train", 600, 30);
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    ASSERT_TRUE(WaitForStates("2", kSoon));
    Service.GiveToken(Last().Number + 1, "token-8"); // of another card
    Service.GiveToken(Last().Number, "token-9");
    Service.Choose(Last().Number, "open");
    EXPECT_TRUE(WaitForStates("5", kSoon));
    ASSERT_TRUE(WaitUntil([&] { return fs::exists(Found()); }, kSoon));
    std::stringstream found;
    found << std::ifstream(Found()).rdbuf();
    EXPECT_EQ(found.str(), std::to_string(item) + "\ntoken-9\nenvironment token-9");
}

TEST_F(OnABus, ADeletedItemsReminderIsTakenBack) {
    const Oid item = AddReminder(u"Train", 600, 30);
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    ASSERT_TRUE(WaitForStates("2", kSoon));
    ASSERT_EQ(Get(item)->Delete(), Status::Ok);
    EXPECT_TRUE(Service.WaitForTakenBack(Last().Number, kSoon));
}

TEST_F(OnABus, AMovedItemRemindsAtItsNewTimeOnly) {
    const Oid item = AddReminder(u"Train", 600, 30);
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    ASSERT_TRUE(WaitForStates("2", kSoon));
    const ComPtr<IAppointment> moved = Get(item);
    DATE start = 0;
    ASSERT_EQ(moved->get_Start(start), Status::Ok);
    ASSERT_EQ(moved->put_Start(start + 1), Status::Ok);
    ASSERT_EQ(moved->Save(), Status::Ok);
    EXPECT_TRUE(Service.WaitForTakenBack(Last().Number, kSoon));
    Service.Serve(0.5);
    EXPECT_EQ(Service.Came.size(), 1U);
}

TEST_F(OnABus, TenThousandAtOnceAreOneNotification) {
    ASSERT_EQ(App->Begin(u"Many"), Status::Ok);
    for (int index = 0; index < 10000; ++index) {
        AddReminder(u"Item " + std::u16string(1, static_cast<char16_t>(u'A' + index % 26)), 600, 30);
    }
    ASSERT_EQ(App->End(), Status::Ok);
    ASSERT_TRUE(Service.WaitFor(1, 6 * kSoon));
    Service.Serve(1);
    EXPECT_EQ(Service.Came.size(), 1U);
    EXPECT_EQ(Last().Summary, "10000 reminders");
    EXPECT_THAT(Last().Body, HasSubstr("and 9992 more"));
}

TEST_F(OnABus, WhatWasMissedWhileItWasOffIsOneList) {
    Service.Serve(0.5);
    Kill(SIGTERM);
    AddReminder(u"First", 2);
    AddReminder(u"Second", 3);
    BeOffForADay();
    StartCompanion(Bus.Address());
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    EXPECT_EQ(Last().Summary, "2 missed reminders");
    EXPECT_THAT(Last().Body, HasSubstr("First"));
    EXPECT_THAT(Last().Body, HasSubstr("Second"));
    EXPECT_TRUE(WaitForStates("4 4", kSoon));
}

TEST_F(OnABus, AKilledOneDoesNotShowAgainWhatTheDesktopStillHolds) {
    AddReminder(u"Train", 600, 30);
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    ASSERT_TRUE(WaitForStates("2", kSoon));
    Kill(SIGKILL);
    StartCompanion(Bus.Address());
    Service.Serve(1);
    EXPECT_EQ(Service.Came.size(), 1U);
    Service.Choose(Last().Number, "dismiss");
    EXPECT_TRUE(WaitForStates("5", kSoon));
}

TEST_F(OnABus, OneKilledBeforeItCouldWriteSaysAgain) {
    AddReminder(u"Train", 600, 30);
    ASSERT_TRUE(Service.WaitFor(1, kSoon));
    ASSERT_TRUE(WaitForStates("2", kSoon));
    Kill(SIGKILL);
    // As it stands between the desktop's acceptance and the commit.
    ASSERT_EQ(CoreOf(*Store).Db.Run("UPDATE ledger SET state = 1, shows = 0, card = 0, service = ''"), Status::Ok);
    StartCompanion(Bus.Address());
    ASSERT_TRUE(Service.WaitFor(2, kSoon));
    EXPECT_EQ(Last().Summary, "Again: Train");
}

TEST_F(OnABus, ASecondCompanionEndsAtOnce) {
    Service.Serve(0.5);
    const pid_t first = Process;
    StartCompanion(Bus.Address());
    int status = -1;
    ASSERT_EQ(waitpid(Process, &status, 0), Process);
    EXPECT_EQ(status, 0);
    Process = first;
    AddReminder(u"Train", 600, 30);
    EXPECT_TRUE(Service.WaitFor(1, kSoon));
}

} // namespace
} // namespace tavo::companion::test
