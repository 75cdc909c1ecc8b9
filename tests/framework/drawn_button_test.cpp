// A drawn button under the stylus.
#include "framework/drawn_button.h"

#include "host/headless/recorded_drawing.h"

#include <gtest/gtest.h>

namespace tavo {

namespace {

constexpr Point kInside{15, 15};
constexpr Point kOnTheEdge{10, 10}; // drawn, and not meant
constexpr Point kOutside{50, 15};

class DrawnButtons : public testing::Test {
  protected:
    bool Pressed = false;
    bool Tracking = false;
    DrawnButton Button{7, Rect{10, 10, 30, 30}, Rect{11, 11, 30, 30}, Pressed, Tracking};
};

TEST_F(DrawnButtons, IsPressedWhereTheStylusGoesDownAndChosenWhereItIsLifted) {
    EXPECT_FALSE(Pressed);
    EXPECT_TRUE(Button.TakeDown(kInside));
    EXPECT_TRUE(Pressed);
    EXPECT_TRUE(Button.TakeUp(kInside));
    EXPECT_FALSE(Pressed);
}

TEST_F(DrawnButtons, FollowsTheStylusAwayAndBack) {
    EXPECT_TRUE(Button.TakeDown(kInside));
    EXPECT_TRUE(Button.TakeMove(kOutside));
    EXPECT_FALSE(Pressed);
    EXPECT_TRUE(Button.TakeMove(kInside));
    EXPECT_TRUE(Pressed);
    EXPECT_FALSE(Button.TakeUp(kOutside));
    EXPECT_FALSE(Pressed);
}

TEST_F(DrawnButtons, WhatBeginsBesideItIsNotItsOwn) {
    EXPECT_FALSE(Button.TakeDown(kOutside));
    EXPECT_FALSE(Button.TakeDown(kOnTheEdge));
    EXPECT_FALSE(Button.TakeMove(kInside));
    EXPECT_FALSE(Pressed);
    EXPECT_FALSE(Button.TakeUp(kInside));
}

TEST_F(DrawnButtons, LetGoItIsNotChosen) {
    EXPECT_TRUE(Button.TakeDown(kInside));
    Button.Release();
    EXPECT_FALSE(Pressed);
    EXPECT_FALSE(Button.TakeMove(kInside));
    EXPECT_FALSE(Button.TakeUp(kInside));
}

TEST_F(DrawnButtons, IsDrawnFromTheLeftCellAndPressedFromTheRightOne) {
    headless::RecordedDrawing drawing;
    const std::unique_ptr<ISurface> surface = drawing.CreateCompatibleSurface({60, 60});
    Button.Draw(*surface);
    EXPECT_TRUE(Button.TakeDown(kInside));
    Button.Draw(*surface);
    drawing.Present(WindowHandle{1}, *surface, {});
    EXPECT_EQ(ToText(drawing.LastFrame(WindowHandle{1})->Calls), "bitmap 7 10,10,30,30 from 0,0,20,20\n"
                                                                 "bitmap 7 10,10,30,30 from 20,0,40,20\n");
}

TEST_F(DrawnButtons, SaysWhatItIs) {
    EXPECT_TRUE(Button.TakeDown(kInside));
    const PaintedItem item = Button.Describe(u"Today", 3);
    EXPECT_EQ(item.Bounds, (Rect{10, 10, 30, 30}));
    EXPECT_EQ(item.Role, PaintedRole::Button);
    EXPECT_EQ(item.Name, u"Today");
    EXPECT_EQ(item.Id, 3);
    EXPECT_TRUE(item.Pressed);
}

} // namespace

} // namespace tavo
