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
