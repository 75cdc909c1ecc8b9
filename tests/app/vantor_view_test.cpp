// The main view without the application around it: which page each index brings on show.
#include "app/main_frame.h"
#include "tests/support/test_device.h"

#include <gtest/gtest.h>

namespace tavo {
namespace {

class NoCommands final : public ICommandTarget {
  public:
    void TakeCommand(int) override {}

    void ImportFiles() override {}

    void WriteFile(WrittenFile /*what*/) override {}
};

class VantorView : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(Frame.Open());
        Frame.Show(ShowCommand::Maximize);
        State.Busy = true;
        State.RefreshSuppressed = true;
        Frame.View().UpdateFirst();
    }

    // The titles of all pages that are to be seen.
    std::u16string ShownPages() {
        const shell::WindowTree& tree = Device.Host.State.Tree;
        std::u16string titles;
        for (const WindowHandle page : tree.ChildrenOf(Frame.View().Handle())) {
            if (tree.IsVisible(page)) {
                titles += tree.Find(page)->Text + u' ';
            }
        }
        return titles;
    }

    test::TestDevice Device;
    CProgramState State{Device.Pump};
    NoCommands Commands;
    CMainFrame Frame{Device.Pump, State, Commands};
};

TEST_F(VantorView, EachIndexShowsItsPageAlone) {
    EXPECT_EQ(ShownPages(), u"Clock ");
    Frame.View().ShowPage(PageNumber::Calendar);
    EXPECT_EQ(ShownPages(), u"Calendar ");
    Frame.View().ShowPage(PageNumber::Schedule);
    EXPECT_EQ(ShownPages(), u"Schedule ");
    Frame.View().ShowPage(PageNumber::Settings);
    EXPECT_EQ(ShownPages(), u"Settings ");
    Frame.View().ShowPage(PageNumber::Clock);
    EXPECT_EQ(ShownPages(), u"Clock ");
}

TEST_F(VantorView, TheFirstUpdateEndsWithNothingBusyOrSuppressed) {
    EXPECT_FALSE(State.Busy);
    EXPECT_FALSE(State.RefreshSuppressed);
}

TEST_F(VantorView, IsBuiltForTheClockPageWithNothingSuppressed) {
    test::TestDevice device;
    CProgramState state{device.Pump};
    state.CurrentPage = PageNumber::Settings;
    state.RefreshSuppressed = true;
    const CMainFrame frame(device.Pump, state, Commands);
    EXPECT_EQ(state.CurrentPage, PageNumber::Clock);
    EXPECT_FALSE(state.RefreshSuppressed);
}

TEST_F(VantorView, IsWhiteBeneathThePages) {
    const shell::WindowTree& tree = Device.Host.State.Tree;
    EXPECT_EQ(tree.Find(Frame.Handle())->Bounds, (Rect{0, 0, 240, 320}));
    EXPECT_EQ(tree.Find(Frame.View().Handle())->Bounds, (Rect{0, 26, 240, 294}));
    bool done = false;
    Frame.View().ShowPage(static_cast<PageNumber>(5)); // none
    Device.Host.Queue().PostMessageW({Frame.View().Handle(), WM_PAINT, 0, 0, 0, {}});
    Device.Host.Queue().PostMessageW({Frame.View().Handle(), WM_CLOSE, 0, 0, 0, {}});
    static_cast<void>(Device.Pump.RunUntil(done));
    const headless::Frame* drawn = Device.Host.Drawn.LastFrame(Frame.View().Handle());
    ASSERT_NE(drawn, nullptr);
    EXPECT_EQ(ToText(drawn->Calls), "fill 0,0,240,268 #FFFFFF\n");
}

TEST_F(VantorView, FourIsTheSchedulePageAsWell) {
    Frame.View().ShowPage(PageNumber::ScheduleAgain);
    EXPECT_EQ(ShownPages(), u"Schedule ");
}

TEST_F(VantorView, AnyOtherIndexHidesThemAll) {
    for (const int index : {5, -1, 1000}) {
        Frame.View().ShowPage(PageNumber::Calendar);
        EXPECT_EQ(ShownPages(), u"Calendar ");
        Frame.View().ShowPage(static_cast<PageNumber>(index));
        EXPECT_EQ(ShownPages(), u"") << index;
    }
}

} // namespace
} // namespace tavo
