// The input panel's place and state.
#include "host/shell/shell_input_panel.h"

#include "tests/shell/shell_fixture.h"

namespace tavo::shell {

namespace {

using InputPanelTest = ShellTest;

TEST_F(InputPanelTest, TakesTheEightyRowsAboveTheMenuBar) {
    ShellInputPanel panel(State);
    SipInfo info = panel.SipGetInfo();
    EXPECT_FALSE(info.Shown);
    EXPECT_EQ(info.VisibleDesktop, (Rect{0, 26, 240, 294}));
    info.Shown = true;
    panel.SipSetInfo(info);
    info = panel.SipGetInfo();
    EXPECT_TRUE(info.Shown);
    EXPECT_EQ(info.Panel, (Rect{0, 214, 240, 294}));
    EXPECT_EQ(info.VisibleDesktop, (Rect{0, 26, 240, 214}));
}

TEST_F(InputPanelTest, ChangeIsToldOnce) {
    ShellInputPanel panel(State);
    panel.SHSipPreference(Page, true);
    panel.SHSipPreference(Page, true);
    ASSERT_EQ(Observer.Changes.size(), 1u);
    EXPECT_EQ(Observer.Changes[0].first, Change::InputPanel);
    panel.SHSipPreference(Page, false);
    EXPECT_FALSE(panel.SipGetInfo().Shown);
}

} // namespace

} // namespace tavo::shell
