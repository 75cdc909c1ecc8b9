// The file in which another process asks for an item, and the program on the desktop that shows it.
#include "host/outlook/store.h"
#include "host/posix/instance_lock.h"
#include "host/posix/store_machine.h"
#include "res/resource_ids.h"
#include "tests/qt/desktop_program.h"

#include <gtest/gtest.h>

namespace tavo::qt {
namespace {

constexpr std::chrono::milliseconds kNoticeTime(200); // a file is noticed, and what it opens painted, by then

class ItemRequestOnTheDesktop : public testing::Test {
  protected:
    ItemRequestOnTheDesktop() : RunFolder(Root->Open().RunFolder()) {
        const ComPtr<IPOutlookApp> store =
            outlook::CreateOutlookApp(posix::SystemMachine(), Root->Open().StorePath(), {});
        EXPECT_EQ(store->Logon(WindowHandle::None), Status::Ok);
        ComPtr<IAppointment> item;
        EXPECT_EQ(store->CreateItem(kItemAppointment, item), Status::Ok);
        EXPECT_EQ(item->put_Subject(u"Dentist"), Status::Ok);
        EXPECT_EQ(item->put_Start(40000.5), Status::Ok);
        EXPECT_EQ(item->put_End(40000.75), Status::Ok);
        EXPECT_EQ(item->Save(), Status::Ok);
        EXPECT_EQ(item->get_Oid(Dentist), Status::Ok);
    }

    void RequestDentist(std::string_view token = "") {
        EXPECT_EQ(posix::InstanceLock::RequestItem(RunFolder, Dentist, token), ErrorCode::Success);
    }

    // The next steps see the view and close it.
    static void ExpectView(DesktopProgram& program) {
        program.Pass(kNoticeTime);
        program.Do([&program] {
            EXPECT_NE(program.Control(kViewModify), WindowHandle::None);
            EXPECT_EQ(program.NameOf(PaintedRole::Header, 0), u"Dentist");
        });
        program.Key(VK_ESCAPE);
        program.Do([&program] { EXPECT_FALSE(program.IsDialogOpen()); });
    }

    std::filesystem::path File() const { return std::filesystem::path(RunFolder) / "OpenItem"; }

    std::shared_ptr<TemporaryRoot> Root = std::make_shared<TemporaryRoot>();
    std::string RunFolder;
    Oid Dentist = 0;
};

TEST_F(ItemRequestOnTheDesktop, TheRunningProgramComesForwardAndOpensTheView) {
    DesktopProgram program(Root);
    program.Do([&] {
        program.Host.Parts().State.SetMinimized(true);
        RequestDentist();
    });
    ExpectView(program);
    ASSERT_TRUE(program.Settle());
    EXPECT_FALSE(program.Host.Parts().State.Minimized);
    EXPECT_FALSE(program.Host.Desktop().isMinimized());
    EXPECT_FALSE(std::filesystem::exists(File()));
}

// Where the platform finds it when it asks the desktop for the focus.
TEST_F(ItemRequestOnTheDesktop, TheNotificationsTokenReachesThePlatform) {
    qunsetenv("XDG_ACTIVATION_TOKEN");
    DesktopProgram program(Root);
    program.Do([&] {
        program.Host.Parts().State.SetMinimized(true);
        RequestDentist("token-5");
    });
    ExpectView(program);
    ASSERT_TRUE(program.Settle());
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "token-5");
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

TEST_F(ItemRequestOnTheDesktop, AMenuThatIsOpenGivesWay) {
    DesktopProgram program(Root);
    program.Key(VK_F1 + 9);
    program.Do([&] {
        EXPECT_NE(program.Host.OpenMenu().Current(), nullptr);
        RequestDentist();
    });
    ExpectView(program);
    ASSERT_TRUE(program.Settle());
}

TEST_F(ItemRequestOnTheDesktop, TheEditorStaysOnTopAndNothingFollowsIt) {
    DesktopProgram program(Root);
    program.Key('4', kModifierControl);
    program.Do([&] { RequestDentist(); });
    program.Pass(kNoticeTime);
    program.Do([&] {
        EXPECT_NE(program.Control(kEditSubject), WindowHandle::None);
        EXPECT_EQ(program.Control(kViewModify), WindowHandle::None);
    });
    program.Key(VK_ESCAPE);
    ASSERT_TRUE(program.Settle());
    EXPECT_FALSE(program.IsDialogOpen());
    EXPECT_FALSE(std::filesystem::exists(File()));
}

TEST_F(ItemRequestOnTheDesktop, AStartOpensWhatItWasStartedFor) {
    RequestDentist();
    DesktopProgram program(Root, [](DesktopProgram& starting) { ExpectView(starting); });
    EXPECT_EQ(program.Caption(), u"Clock");
    EXPECT_FALSE(std::filesystem::exists(File()));
}

TEST_F(ItemRequestOnTheDesktop, AStartIgnoresAnOldRequest) {
    RequestDentist();
    std::filesystem::last_write_time(File(), std::filesystem::file_time_type::clock::now() - std::chrono::minutes(2));
    DesktopProgram program(Root, [](DesktopProgram& starting) {
        starting.Pass(kNoticeTime);
        starting.Do([&starting] { EXPECT_FALSE(starting.IsDialogOpen()); });
    });
    EXPECT_EQ(program.Caption(), u"Clock");
    EXPECT_FALSE(std::filesystem::exists(File()));
}

} // namespace
} // namespace tavo::qt
