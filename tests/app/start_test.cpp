// Starting and ending the program.
#include "app/start.h"
#include "host/outlook/store.h"
#include "host/posix/file_descriptor.h"
#include "res/resource_ids.h"
#include "tests/support/running_program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include <sys/inotify.h>

namespace tavo::test {
namespace {

using headless::StartedProcess;

const StartedProcess kCompanion{u"\\Program Files\\Zorbex\\TavoCalendar\\RSound.exe", u""};

TEST(Start, OpensOnTheClockPage) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    EXPECT_EQ(program.Device.See.Caption(), u"Clock");
    EXPECT_EQ(program.State().CurrentPage, PageNumber::Clock);
}

TEST(Start, MakesSettingsThenScheduleThenCalendarThenClockAndShowsTheLast) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    const shell::WindowTree& tree = program.Device.Host().State.Tree;
    std::vector<std::u16string> titles; // in order of creation
    WindowHandle last = WindowHandle::None;
    for (const WindowHandle page : tree.ChildrenOf(program.State().MainView)) {
        EXPECT_LT(last, page);
        last = page;
        titles.push_back(tree.Find(page)->Text);
        EXPECT_EQ(tree.IsVisible(page), titles.back() == u"Clock");
    }
    EXPECT_EQ(titles, (std::vector<std::u16string>{u"Settings", u"Schedule", u"Calendar", u"Clock"}));
}

TEST(Start, TitlesTheMainWindow) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    EXPECT_NE(program.Device.Host().Windows().FindWindowW(u"WCE_TavoCalendar", u"Tavo Calendar"), WindowHandle::None);
}

// There may be ten thousand of them, and the first page shows none.
TEST(Start, DoesNotReadTheNamesOfTheMemos) {
    RunningProgram program;
    program.WriteFile("TavoCalendar.dat", std::string("\1\0\0\0\0\0\0\0;\0\0\0\0;\0\0\0\0;", 19));
    const posix::FileDescriptor watch(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    ASSERT_GE(inotify_add_watch(watch.Get(), program.DataFolder().c_str(), IN_ACCESS | IN_ONLYDIR), 0);
    // Whether some names were read since the last time; files in the folder are told with their names.
    const auto sawReading = [&] {
        alignas(inotify_event) std::array<char, 4096> bytes{};
        bool saw = false;
        ssize_t count = 0;
        while ((count = read(watch.Get(), bytes.data(), bytes.size())) > 0) {
            for (ssize_t at = 0; at < count;) {
                const auto* event = reinterpret_cast<const inotify_event*>(bytes.data() + at);
                saw = saw || event->len == 0;
                at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
            }
        }
        return saw;
    };
    ASSERT_TRUE(program.Start());
    EXPECT_FALSE(sawReading());
    program.ShowPage(PageNumber::Calendar); // marks the days that have memos
    EXPECT_TRUE(sawReading());
}

TEST(Start, AttemptsToStartTheCompanionOnce) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    EXPECT_EQ(program.Device.Host().ProcessCalls.Started, std::vector<StartedProcess>{kCompanion});
}

TEST(Start, TheCompanionIsStartedBeforeTheDataFileIsRead) {
    RunningProgram program;
    program.WriteFile("TavoCalendar.dat", std::string("\2\0\0\0\7\0\0\0", 8));
    std::vector<StartedProcess> started;
    program.Device.Do([&] { started = program.Device.Host().ProcessCalls.Started; }); // while it is said to be corrupt
    program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(program.Start());
    EXPECT_EQ(started, std::vector<StartedProcess>{kCompanion});
}

TEST(Start, AMissingCompanionIsSilent) {
    RunningProgram program;
    program.Device.Host().ProcessCalls.CanStart = false;
    ASSERT_TRUE(program.Start());
    EXPECT_TRUE(program.Device.Host().Seen.Boxes.empty());
    EXPECT_EQ(program.Device.See.Caption(), u"Clock");
}

TEST(Start, KeepsItsSettingsUnderItsCompanysWord) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    EXPECT_EQ(program.Device.Host().RegistryCalls.Company, u"Zorbex");
}

TEST(Start, MakesTheDataFileWhereThereIsNone) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    EXPECT_EQ(program.ReadFile("TavoCalendar.dat"), std::string("\0\0\0\0;\0\0\0\0;\0\0\0\0;", 15));
}

TEST(Start, ACorruptDataFileIsSaidOnceAndTheStartGoesOn) {
    RunningProgram program;
    program.WriteFile("TavoCalendar.dat", std::string("\2\0\0\0\7\0\0\0", 8));
    program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(program.Start());
    ASSERT_EQ(program.Device.Host().Seen.Boxes.size(), 1U);
    EXPECT_EQ(program.Device.Host().Seen.Boxes[0].Text, u"TavoCalendar.dat corrputed");
    EXPECT_EQ(program.Device.See.Caption(), u"Clock");
    EXPECT_TRUE(program.State().Categories.IsAlarm(7));
}

TEST(Start, AFailingStoreLeavesAnEmptyViewWithoutPagesCompanionAndDataFile) {
    headless::DeviceOptions options;
    options.Outlook = [](const std::filesystem::path&, ComPtr<IPOutlookApp>&) { return Status::Fail; };
    RunningProgram program(At(2004, 11, 3), options);
    program.Device.Host().LastError = ErrorCode::AccessDenied;
    program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(program.Start());
    ASSERT_EQ(program.Device.Host().Seen.Boxes.size(), 1U);
    EXPECT_EQ(program.Device.Host().Seen.Boxes[0].Text, u"Error occurred [001:5]");
    EXPECT_TRUE(program.Device.Host().ProcessCalls.Started.empty());
    EXPECT_FALSE(program.ReadFile("TavoCalendar.dat").has_value());
    EXPECT_EQ(program.Device.See.Caption(), u"Tavo Calendar");
    EXPECT_EQ(program.Device.See.MenuBar(), nullptr);
    for (const Point point : {Point{0, 0}, Point{239, 0}, Point{120, 130}, Point{0, 267}, Point{239, 267}}) {
        EXPECT_EQ(program.Device.See.PixelAt(point.X, point.Y), Color::FromRgb(255, 255, 255))
            << point.X << ", " << point.Y;
    }
}

TEST(Start, AFailingStoreLeavesADataFileThatIsThereAsItIsWhenItQuits) {
    headless::DeviceOptions options;
    options.Outlook = [](const std::filesystem::path&, ComPtr<IPOutlookApp>&) { return Status::Fail; };
    const std::string tags("\1\0\0\0\7\0\0\0;\0\0\0\0;\0\0\0\0;", 19);
    for (const bool byPerson : {true, false}) {
        RunningProgram program(At(2004, 11, 3), options);
        program.WriteFile("TavoCalendar.dat", tags);
        program.Device.AnswerBox(IDOK);
        ASSERT_TRUE(program.Start());
        byPerson ? program.Device.Quit() : program.Device.EndSession();
        EXPECT_FALSE(program.Settle());
        EXPECT_EQ(program.ReadFile("TavoCalendar.dat"), tags) << byPerson;
        EXPECT_EQ(program.Device.Host().Seen.Boxes.size(), 1U) << byPerson;
    }
}

TEST(Start, AChangeWhileTheFirstMessageIsThereIsShownByThePages) {
    RunningProgram program;
    program.WriteFile("TavoCalendar.dat", std::string("\2\0\0\0\7\0\0\0", 8));
    program.Device.Do([&] { program.GivenAppointment(u"New", At(2004, 11, 3, 9), At(2004, 11, 3, 10)); });
    program.Device.ChangeStore();
    program.Device.AdvanceClock(600); // the notice is due, and there is no page yet
    program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(program.Start());
    program.ShowPage(PageNumber::Calendar);
    EXPECT_EQ(program.CellName(0, 3), u"2004-11-03: appointment");
}

TEST(Start, ASecondCopyBringsTheFirstForwardAndEnds) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    program.Device.Minimize();
    ASSERT_TRUE(program.Settle());
    const int before = program.Device.Host().Seen.BroughtForward;
    EXPECT_EQ(RunTavoCalendar(program.Device.Host()), 0);
    EXPECT_GT(program.Device.Host().Seen.BroughtForward, before);
    EXPECT_FALSE(program.Device.Host().State.Minimized);
    ASSERT_TRUE(program.Settle());
    EXPECT_EQ(program.Device.See.Caption(), u"Clock");
}

TEST(Start, WithoutComItEndsAtOnceWithAFailure) {
    headless::Device device;
    device.Host().ComStatus = Status::Fail;
    EXPECT_EQ(RunTavoCalendar(device.Host()), 1);
    EXPECT_EQ(device.Host().Windows().FindWindowW(u"WCE_TavoCalendar", u"Tavo Calendar"), WindowHandle::None);
    EXPECT_TRUE(device.Host().Seen.Boxes.empty());
}

TEST(End, ClosingThePageSavesTheCategoryFileAndStaysInMemory) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    program.State().Categories.HolidayList.Append(258);
    program.Device.PressClose();
    ASSERT_TRUE(program.Settle());
    EXPECT_EQ(program.ReadFile("TavoCalendar.dat"), std::string("\0\0\0\0;\1\0\0\0\2\1\0\0;\0\0\0\0;", 19));
    EXPECT_TRUE(program.Device.Host().State.Minimized);
}

TEST(End, EveryPageSavesTheCategoryFileAndMinimisesWhenItIsClosed) {
    for (int page = 0; page < 4; ++page) {
        RunningProgram program;
        ASSERT_TRUE(program.Start());
        program.ShowPage(page);
        program.State().Categories.HolidayList.Append(258);
        program.Device.PressClose();
        ASSERT_TRUE(program.Settle());
        EXPECT_EQ(program.ReadFile("TavoCalendar.dat"), std::string("\0\0\0\0;\1\0\0\0\2\1\0\0;\0\0\0\0;", 19)) << page;
        EXPECT_TRUE(program.Device.Host().State.Minimized) << page;
    }
}

TEST(End, QuittingSavesTheCategoryFileFirst) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    program.State().Categories.AlarmList.Append(9);
    program.Device.Quit();
    EXPECT_EQ(program.App->Run(), 0);
    EXPECT_EQ(program.ReadFile("TavoCalendar.dat"), std::string("\1\0\0\0\11\0\0\0;\0\0\0\0;\0\0\0\0;", 19));
}

TEST(End, ExitInTheToolsMenuSavesAndEndsTheProgram) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    program.State().Categories.AlarmList.Append(9);
    program.Device.ChooseMenu(u"Tools", kCommandExit);
    EXPECT_EQ(program.App->Run(), 0);
    EXPECT_EQ(program.ReadFile("TavoCalendar.dat"), std::string("\1\0\0\0\11\0\0\0;\0\0\0\0;\0\0\0\0;", 19));
}

TEST(End, TheViewsOwnCloseQuitsWithoutSaving) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    program.State().Categories.AlarmList.Append(9);
    program.Device.Do([&] {
        Message close;
        close.Window = program.State().MainView;
        close.Number = WM_CLOSE;
        program.Device.Host().Queue().PostMessageW(close);
    });
    EXPECT_EQ(program.App->Run(), 0);
    EXPECT_EQ(program.ReadFile("TavoCalendar.dat"), std::string("\0\0\0\0;\0\0\0\0;\0\0\0\0;", 15));
}

TEST(End, TheStoreIsClosedWithTheView) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    EXPECT_EQ(program.Device.Host().ComUses, 1);
    program.Stop();
    EXPECT_EQ(program.Device.Host().ComUses, 0);
}

} // namespace
} // namespace tavo::test
