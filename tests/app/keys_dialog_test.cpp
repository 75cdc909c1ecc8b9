// The help page of the keys.
#include "res/resource_ids.h"
#include "tests/support/running_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo::test {
namespace {

TEST(KeysDialog, F1ShowsItOnEveryPageAndEscapeLeaves) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    for (int page = 0; page < 4; ++page) {
        program.ShowPage(page);
        program.Device.Key(VK_F1);
        program.Device.Do([&] {
            EXPECT_EQ(program.Device.See.Caption(), u"Keys");
            EXPECT_TRUE(program.Device.See.ShowsText(u"take the last step back"));
        });
        program.Device.Key(VK_ESCAPE);
        ASSERT_TRUE(program.Settle());
        EXPECT_FALSE(program.Device.See.IsDialogOpen());
    }
}

TEST(KeysDialog, WhatItShowsLiesOnTheScreen) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    program.Device.Key(VK_F1);
    program.Device.Do([&] {
        int lines = 0;
        for (const PaintedItem& item : program.Device.See.Items()) {
            lines += item.Role == PaintedRole::Text ? 1 : 0;
            EXPECT_LE(item.Bounds.Bottom, kClientArea.Height());
        }
        EXPECT_EQ(lines, 15);
    });
    program.Device.PressClose();
    ASSERT_TRUE(program.Settle());
}

} // namespace
} // namespace tavo::test
