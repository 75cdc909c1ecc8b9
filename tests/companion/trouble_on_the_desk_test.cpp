// A desktop and children that refuse, hang or answer late: reminders come at their times all the same.
#include "host/locale/utf.h"
#include "host/outlook/store_core.h"
#include "tests/companion/notification_service.h"
#include "tests/companion/patience.h"
#include "tests/companion/running_companion.h"

#include <gmock/gmock.h>

#include <chrono>
#include <cmath>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tavo::companion::test {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr double kSoon = 10; // seconds that a busy machine may take

// Its own window is a script here, which writes down what it is told.
constexpr const char* kWindow = "tab=$(printf '\\t')\n"
                                "while IFS=$tab read -r word number summary body; do\n"
                                "  echo \"$word $number $summary\" >> LOG\n"
                                "  [ $word = show ] && printf 'shown\\t%s\\n' $number\n"
                                "done\n";
constexpr const char* kHangs = "trap '' TERM\necho hangs >> LOG\nwhile :; do sleep 1; done\n";

class TroubleOnTheDesk : public CompanionTest {
  protected:
    TroubleOnTheDesk() {
        fs::create_directories(Folder.Path / "programs/bin");
        fs::create_directories(Folder.Path / "programs/lib/tavocalendar");
        fs::copy_file(Program, Folder.Path / "programs/bin/RSound");
        Program = (Folder.Path / "programs/bin/RSound").string();
        GivenHelper("tavo_reminder_window", kWindow);
    }

    void GivenHelper(const std::string& name, std::string script) const {
        for (std::size_t at = script.find("LOG"); at != std::string::npos; at = script.find("LOG", at + 1)) {
            script.replace(at, 3, "'" + Log(name).string() + "'");
        }
        const fs::path path = Folder.Path / "programs/lib/tavocalendar" / name;
        std::ofstream(path) << "#!/bin/sh\n" << script;
        fs::permissions(path, fs::perms::owner_all);
    }

    fs::path Log(const std::string& name) const { return Folder.Path / (name + ".log"); }

    std::string Logged(const std::string& name) const {
        std::stringstream text;
        text << std::ifstream(Log(name)).rdbuf();
        return text.str();
    }

    bool WaitForLog(const std::string& name, const std::string& words, double seconds) const {
        return WaitUntil([&] { return Logged(name).find(words) != std::string::npos; }, seconds);
    }

    // How long the process still lives after it was asked to end.
    double TimeToEnd() {
        const double before = TimeNow();
        Kill(SIGTERM);
        return TimeNow() - before;
    }

    SessionBus Bus;
};

constexpr std::int32_t kRinging = kReminderDialog | kReminderSound;
constexpr const char* kWindowName = "tavo_reminder_window";

TEST_F(TroubleOnTheDesk, OneThatTheDesktopRefusesComesInOurWindowAndTheNextOnTheDesktop) {
    NotificationService service(Bus);
    StartCompanion(Bus.Address());
    service.Serve(0.5);
    service.RefusesCards = true;
    AddReminder(u"Tea", 600, 30);
    service.Serve(0.5);
    ASSERT_TRUE(WaitForStates("2", kSoon));
    EXPECT_THAT(Logged(kWindowName), HasSubstr("Tea"));
    service.RefusesCards = false;
    AddReminder(u"Train", 600, 30);
    ASSERT_TRUE(service.WaitFor(1, kSoon));
    EXPECT_EQ(service.Came.back().Summary, "Train");
    EXPECT_TRUE(WaitForStates("2 2", kSoon));
    EXPECT_THAT(Logged(kWindowName), Not(HasSubstr("Train")));
}

TEST_F(TroubleOnTheDesk, WithoutAServiceOurWindowShowsThemUntilOneComes) {
    StartCompanion(Bus.Address());
    AddReminder(u"Tea", 600, 30);
    ASSERT_TRUE(WaitForStates("2", kSoon));
    EXPECT_THAT(Logged(kWindowName), HasSubstr("Tea"));
    NotificationService service(Bus);
    service.Serve(0.5);
    AddReminder(u"Train", 600, 30);
    ASSERT_TRUE(service.WaitFor(1, kSoon));
    EXPECT_EQ(service.Came.size(), 1U); // what our window shows stays there
    EXPECT_EQ(service.Came.back().Summary, "Train");
    EXPECT_TRUE(WaitForStates("2 2", kSoon));
}

TEST_F(TroubleOnTheDesk, AServiceThatNeverTellsWhatItCanHoldsNobodyUp) {
    NotificationService service(Bus);
    service.AnswersCapabilities = false;
    StartCompanion(Bus.Address());
    service.Serve(0.5);
    for (const char16_t* subject : {u"Tea", u"Train"}) {
        const double made = TimeNow();
        const std::size_t before = service.Came.size();
        AddReminder(subject, 600, 30);
        ASSERT_TRUE(service.WaitFor(before + 1, kSoon));
        EXPECT_LT(service.Came.back().Time - made, 2);
    }
    EXPECT_TRUE(WaitForStates("2 2", kSoon));
    EXPECT_LT(TimeToEnd(), 2);
}

TEST_F(TroubleOnTheDesk, AServiceThatHangsLeavesItsCardsToOurWindowAndGetsThemBackWhenItAnswers) {
    NotificationService service(Bus);
    StartCompanion(Bus.Address());
    service.Serve(0.5);
    service.AnswersCards = false;
    service.AnswersCapabilities = false;
    AddReminder(u"Tea", 600, 30);
    ASSERT_TRUE(service.WaitFor(1, kSoon));
    service.Serve(1.2);
    ASSERT_TRUE(WaitForLog(kWindowName, "Tea", kSoon));
    ASSERT_TRUE(WaitForStates("2", kSoon));
    const double made = TimeNow();
    AddReminder(u"Train", 600, 30); // it is known by now that nobody answers
    ASSERT_TRUE(WaitForLog(kWindowName, "Train", kSoon));
    EXPECT_LT(TimeNow() - made, 2);
    ASSERT_TRUE(WaitForStates("2 2", kSoon));
    service.AnswerHeld();
    service.AnswersCards = true;
    service.AnswersCapabilities = true;
    EXPECT_TRUE(WaitForLog(kWindowName, "close 2147483649", kSoon)); // the tea's
    service.Choose(1, "dismiss");
    EXPECT_TRUE(WaitForStates("5 2", kSoon));
    AddReminder(u"Bus", 600, 30);
    ASSERT_TRUE(service.WaitFor(2, kSoon));
    EXPECT_EQ(service.Came.back().Summary, "Bus");
}

TEST_F(TroubleOnTheDesk, ARingerThatHangsHoldsNobodyUp) {
    GivenHelper("tavo_reminder_sound", kHangs);
    NotificationService service(Bus);
    StartCompanion(Bus.Address());
    AddReminder(u"Tea", 600, 30, kRinging);
    ASSERT_TRUE(service.WaitFor(1, kSoon));
    ASSERT_TRUE(WaitForLog("tavo_reminder_sound", "hangs", kSoon));
    const double made = TimeNow();
    AddReminder(u"Train", 600, 30, kRinging);
    ASSERT_TRUE(service.WaitFor(2, kSoon));
    EXPECT_LT(service.Came.back().Time - made, 2);
    ASSERT_TRUE(WaitForStates("2 2", kSoon)); // and rings: the one before is ended for it
    ASSERT_TRUE(WaitForLog("tavo_reminder_sound", "hangs\nhangs\n", kSoon)); // else this one ends before it hangs
    AddReminder(u"Bus", 600, 30, kRinging);
    ASSERT_TRUE(service.WaitFor(3, kSoon));
    EXPECT_TRUE(WaitForLog("tavo_reminder_sound", "hangs\nhangs\nhangs\n", kSoon));
    EXPECT_LT(TimeToEnd(), 2);
}

TEST_F(TroubleOnTheDesk, AWindowThatHangsHoldsNobodyUp) {
    GivenHelper(kWindowName, kHangs);
    NotificationService service(Bus);
    StartCompanion(Bus.Address());
    service.Serve(0.5);
    service.RefusesCards = true;
    AddReminder(std::u16string(200000, u'x'), 600, 30); // more than a pipe takes
    service.Serve(0.5);
    ASSERT_TRUE(WaitForLog(kWindowName, "hangs", kSoon));
    service.RefusesCards = false;
    const double made = TimeNow();
    AddReminder(u"Train", 600, 30);
    ASSERT_TRUE(service.WaitFor(1, kSoon));
    EXPECT_LT(service.Came.back().Time - made, 2);
    EXPECT_TRUE(WaitForState("Train", 2, kSoon));
    EXPECT_LT(TimeToEnd(), 2);
}

TEST_F(TroubleOnTheDesk, ACardForAWindowThatHangsComesInAnother) {
    GivenHelper(kWindowName, std::string("if [ ! -e LOG ]; then\n") + kHangs + "fi\n" + kWindow);
    StartCompanion("");
    AddReminder(u"Tea", 600, 30);
    EXPECT_TRUE(WaitForStates("2", 2 * kSoon));
    EXPECT_THAT(Logged(kWindowName), HasSubstr("Tea"));
}

// A socket of a bus whose process hangs: it takes whoever connects, and says nothing.
class HungBus {
  public:
    explicit HungBus(const std::string& path) : Path(path), Socket(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un place{};
        place.sun_family = AF_UNIX;
        EXPECT_LT(path.size(), sizeof place.sun_path);
        path.copy(place.sun_path, path.size());
        EXPECT_EQ(bind(Socket, reinterpret_cast<const sockaddr*>(&place), sizeof place), 0);
        EXPECT_EQ(listen(Socket, 5), 0);
    }

    ~HungBus() { close(Socket); }

    HungBus(const HungBus&) = delete;
    HungBus& operator=(const HungBus&) = delete;

    std::string Address() const { return "unix:path=" + Path; }

  private:
    std::string Path;
    int Socket;
};

TEST_F(TroubleOnTheDesk, ABusThatHangsHoldsNobodyUp) {
    const HungBus hung(Folder.Path / "bus");
    StartCompanion(hung.Address());
    ASSERT_TRUE(WaitUntil([this] { return LedgerStates().empty(); }, kSoon));
    std::this_thread::sleep_for(std::chrono::seconds(1)); // it has begun
    for (const char* subject : {"Tea", "Train"}) {
        const double made = TimeNow();
        AddReminder(locale::ToUtf16(subject), 600, 30);
        ASSERT_TRUE(WaitForLog(kWindowName, subject, kSoon)) << subject;
        EXPECT_LT(TimeNow() - made, 2) << subject; // of that up to a second until the change is noticed
    }
    EXPECT_TRUE(WaitForStates("2 2", kSoon));
    EXPECT_LT(TimeToEnd(), 2);
}

TEST_F(TroubleOnTheDesk, WhatWasDueBeforeAHungBusWasStartedOnComesAtOnce) {
    AddReminder(u"Tea", 600, 30);
    const HungBus hung(Folder.Path / "bus");
    const double started = TimeNow();
    StartCompanion(hung.Address());
    ASSERT_TRUE(WaitForLog(kWindowName, "Tea", kSoon));
    EXPECT_LT(TimeNow() - started, 2);
}

} // namespace
} // namespace tavo::companion::test
