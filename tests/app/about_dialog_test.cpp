// The About dialog.
#include "res/resource_ids.h"
#include "tests/support/running_program.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

TEST(AboutDialog, NamesTheProgramAndItsVersion) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    program.Device.ChooseMenu(u"Tools", kCommandAbout);
    program.Device.Do([&] {
        EXPECT_TRUE(program.Device.See.IsDialogOpen());
        EXPECT_EQ(program.Device.See.Caption(), u"About Tavo Calendar");
        EXPECT_TRUE(program.Device.See.ShowsText(u"About Tavo Calendar"));
        EXPECT_TRUE(program.Device.See.ShowsBitmap(kBitmapProgram));
        EXPECT_EQ(program.Device.See.PixelAt(0, 25), (Color{0x000000}));
        EXPECT_EQ(program.Device.See.PixelAt(239, 25), (Color{0x000000}));
        EXPECT_EQ(program.Device.See.PixelAt(0, 24), (Color{0xFFFFFF}));
    });
    program.Device.PressOk();
    ASSERT_TRUE(program.Settle());
    EXPECT_FALSE(program.Device.See.IsDialogOpen());
}

TEST(AboutDialog, DrawsABlueTitleOverALineAndTheProgramsIcon) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    program.Device.ChooseMenu(u"Tools", kCommandAbout);
    program.Device.Do([&] {
        EXPECT_EQ(ToText(program.Device.See.LastFrame()->Calls),
                  "fill 0,0,240,268 #FFFFFF\n"
                  "text 5,0,240,25 #0000FF format 2084 [Arial -13 700] \"About Tavo Calendar\"\n"
                  "line 0,25 to 240,25 pen 1 #000000\n"
                  "bitmap 128 9,35,41,67 from 0,0,32,32\n");
    });
    program.Device.PressClose();
    ASSERT_TRUE(program.Settle());
}

TEST(AboutDialog, TellsItsTitleOnceHoweverOftenItIsDrawn) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    program.Device.ChooseMenu(u"Tools", kCommandAbout);
    program.Device.ChangeScale();
    program.Device.Do([&] {
        EXPECT_EQ(program.Device.See.LastFrame()->Count, 2);
        const std::vector<PaintedItem> items = program.Device.See.Items();
        ASSERT_EQ(items.size(), 1U);
        EXPECT_EQ(items[0].Role, PaintedRole::Header);
        EXPECT_EQ(items[0].Name, u"About Tavo Calendar");
        EXPECT_EQ(items[0].Bounds, (Rect{5, 0, 240, 25}));
    });
    program.Device.PressClose();
    ASSERT_TRUE(program.Settle());
}

TEST(AboutDialog, ItsTextsSayTheVersionAndWhereToWrite) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    program.Device.ChooseMenu(u"Tools", kCommandAbout);
    program.Device.Do([&] {
        const shell::WindowTree& tree = program.Device.Host().State.Tree;
        const auto textAt = [&](const Rect& place) -> std::u16string {
            for (const WindowHandle child : tree.ChildrenOf(program.Device.See.Top())) {
                if (tree.Find(child)->Bounds == place && tree.IsVisible(child)) {
                    return tree.Find(child)->Text;
                }
            }
            return u"(no control)";
        };
        EXPECT_EQ(textAt({46, 32, 201, 45}), u"Tavo Calendar Version 1.00");
        EXPECT_EQ(textAt({16, 139, 201, 198}), u"(If you find any problem, suggestion\n"
                                               u"  on this product, please send email\n"
                                               u"  to us.  Thank you.)");
    });
    program.Device.PressOk();
    ASSERT_TRUE(program.Settle());
}

TEST(AboutDialog, ThePagesBeneathTakeNoInput) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    program.Device.ChooseMenu(u"Tools", kCommandAbout);
    program.Device.Tap(150, 250); // where the Calendar tab lies beneath
    program.Device.Key(VK_LEFT);
    program.Device.Do([&] { EXPECT_TRUE(program.Device.See.IsDialogOpen()); });
    program.Device.PressClose();
    ASSERT_TRUE(program.Settle());
    EXPECT_EQ(program.Device.See.Caption(), u"Clock");
    EXPECT_TRUE(program.Device.See.ShowsBitmap(kBitmapDialFace));
}

TEST(AboutDialog, EnterAndEscapeCloseIt) {
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    for (const int key : {VK_RETURN, VK_ESCAPE}) {
        program.Device.ChooseMenu(u"Tools", kCommandAbout);
        program.Device.Do([&] { EXPECT_TRUE(program.Device.See.IsDialogOpen()); });
        program.Device.Key(key);
        ASSERT_TRUE(program.Settle());
        EXPECT_FALSE(program.Device.See.IsDialogOpen());
        EXPECT_FALSE(program.Device.Host().State.Minimized);
    }
}

} // namespace
} // namespace tavo::test
