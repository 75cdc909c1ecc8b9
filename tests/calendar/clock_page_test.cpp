// The clock page: two faces, the header and the mode button.
#include "res/resource_ids.h"
#include "tests/support/running_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo::test {
namespace {

using headless::DrawCall;
using headless::DrawKind;

class ClockPage : public testing::Test {
  protected:
    void Start() { ASSERT_TRUE(Program.Start()); }

    bool IsAnalog() const { return Program.Device.See.ShowsBitmap(kBitmapDialFace); }

    bool IsDigital() const { return Program.Device.See.ShowsBitmap(kBitmapDigitalBackground); }

    DrawCall CallWithText(std::u16string_view text) const {
        for (const DrawCall& call : Program.Device.See.LastFrame()->Calls) {
            if (call.Kind == DrawKind::Text && call.Text == text) {
                return call;
            }
        }
        ADD_FAILURE() << "no such text";
        return {};
    }

    std::vector<DrawCall> Lines() const {
        std::vector<DrawCall> lines;
        for (const DrawCall& call : Program.Device.See.LastFrame()->Calls) {
            if (call.Kind == DrawKind::Line) {
                lines.push_back(call);
            }
        }
        return lines;
    }

    int ClockProgramsStarted() {
        int count = 0;
        for (const headless::StartedProcess& process : Program.Device.Host().ProcessCalls.Started) {
            count += process == headless::StartedProcess{u"\\Windows\\Clock.exe", u""} ? 1 : 0;
        }
        return count;
    }

    void Tap(int x, int y) {
        Program.Device.Tap(x, y);
        ASSERT_TRUE(Program.Settle());
    }

    RunningProgram Program{At(2004, 11, 3, 17, 10)};
};

TEST_F(ClockPage, BeginsWithTheDial) {
    Start();
    EXPECT_TRUE(IsAnalog());
    EXPECT_FALSE(IsDigital());
}

TEST_F(ClockPage, BeginsWithDigitsWhereTheProfileSaysSo) {
    Program.Device.Host().RegistryCalls.WriteProfileInt(u"clock", u"isAnalog", 0);
    Start();
    EXPECT_TRUE(IsDigital());
    EXPECT_FALSE(IsAnalog());
}

TEST_F(ClockPage, TheHeaderIsTheDateRightAligned) {
    Start();
    const DrawCall header = CallWithText(u"Wed, Nov, 03, 2004");
    EXPECT_EQ(header.Area, (Rect{20, 10, 190, 30}));
    EXPECT_EQ(header.Format, DT_RIGHT | DT_VCENTER | DT_SINGLELINE);
    EXPECT_EQ(header.Font, "Comic Sans MS -17 700");
    EXPECT_EQ(header.Ink, (Color{0}));
}

TEST_F(ClockPage, TheHandsAreDrawnInOrderWithTheirPens) {
    Start();
    Program.Device.SetClock(At(2004, 11, 3, 3, 0));
    Program.Device.AdvanceClock(100);
    ASSERT_TRUE(Program.Settle());
    const auto lines = Lines();
    ASSERT_EQ(lines.size(), 7U);
    const Color outline = Color::FromRgb(38, 120, 225);
    const Color inner = Color::FromRgb(38, 100, 180);
    const Color second = Color::FromRgb(38, 114, 205);
    const std::vector<Color> inks{outline, inner, inner, outline, inner, inner, second};
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i].Ink, inks[i]) << i;
        EXPECT_EQ(lines[i].PenWidth, 3) << i;
    }
    EXPECT_EQ(lines[0].From, (Point{122, 133})); // hour hand: first side point to the tip
    EXPECT_EQ(lines[0].To, (Point{164, 135}));
    EXPECT_EQ(lines[1].From, (Point{122, 135})); // its base
    EXPECT_EQ(lines[2].From, (Point{122, 137})); // second side point
    EXPECT_EQ(lines[3].To, (Point{120, 75}));    // minute hand
    EXPECT_EQ(lines[6].From, (Point{120, 132})); // second hand
    EXPECT_EQ(lines[6].To, (Point{120, 75}));
}

TEST_F(ClockPage, TheDigitalFaceShowsTimeAndSecondsAtTheBottomOfTheirPlaces) {
    Start();
    Tap(215, 20);
    const DrawCall time = CallWithText(u"05:10");
    EXPECT_EQ(time.Area, (Rect{20, 65, 220, 195}));
    EXPECT_EQ(time.Format, DT_CENTER | DT_BOTTOM | DT_SINGLELINE);
    EXPECT_EQ(time.Ink, Color::FromRgb(20, 51, 150));
    EXPECT_EQ(time.Font, "Comic Sans MS -133 700 -33");
    const DrawCall seconds = CallWithText(u"00 PM");
    EXPECT_EQ(seconds.Area, (Rect{20, 175, 220, 210}));
    EXPECT_EQ(seconds.Format, DT_CENTER | DT_BOTTOM | DT_SINGLELINE);
    EXPECT_EQ(seconds.Ink, Color::FromRgb(20, 51, 150));
    EXPECT_EQ(seconds.Font, "Comic Sans MS -26 700 -26");
}

TEST_F(ClockPage, DialAndDigitalBackgroundLieInTheirPlaces) {
    Start();
    const auto pictures = [&] {
        headless::Transcript pictures;
        for (const DrawCall& call : Program.Device.See.LastFrame()->Calls) {
            if (call.Kind == DrawKind::Bitmap) {
                pictures.push_back(call);
            }
        }
        return ToText(pictures);
    };
    EXPECT_EQ(pictures(), "bitmap 139 0,241,240,267 from 0,0,240,26\n"
                          "bitmap 144 0,241,60,267 from 0,0,60,26\n"
                          "bitmap 145 20,35,220,235 from 0,0,200,200\n"
                          "bitmap 154 200,5,230,35 from 0,0,30,30\n");
    Tap(215, 20);
    EXPECT_EQ(pictures(), "bitmap 139 0,241,240,267 from 0,0,240,26\n"
                          "bitmap 144 0,241,60,267 from 0,0,60,26\n"
                          "bitmap 154 200,5,230,35 from 30,0,60,30\n"
                          "bitmap 153 10,45,230,265 from 0,0,220,220\n");
}

TEST_F(ClockPage, TellsItsDateItsFaceWithTheTimeItsButtonAndTheTabs) {
    Start();
    const PaintedItem date{{20, 10, 190, 30}, PaintedRole::Header, u"Wed, Nov, 03, 2004"};
    PaintedItem clock{{0, 241, 60, 267}, PaintedRole::Tab, u"Clock", 0};
    clock.Selected = true;
    const PaintedItem schedule{{60, 241, 120, 267}, PaintedRole::Tab, u"Schedule", 1};
    const PaintedItem calendar{{120, 241, 180, 267}, PaintedRole::Tab, u"Calendar", 2};
    const PaintedItem settings{{180, 241, 240, 267}, PaintedRole::Tab, u"Settings", 3};
    EXPECT_THAT(Program.Device.See.Items(),
                testing::ElementsAre(date, PaintedItem{{20, 35, 220, 235}, PaintedRole::Picture, u"PM 5:10"},
                                     PaintedItem{{200, 5, 230, 35}, PaintedRole::Button, u"Digital clock"}, clock,
                                     schedule, calendar, settings));
    Tap(215, 20);
    EXPECT_THAT(Program.Device.See.Items(),
                testing::ElementsAre(date, PaintedItem{{10, 45, 230, 265}, PaintedRole::Picture, u"PM 5:10"},
                                     PaintedItem{{200, 5, 230, 35}, PaintedRole::Button, u"Analog clock"}, clock,
                                     schedule, calendar, settings));
}

TEST_F(ClockPage, TheWholePageIsWhiteBeneath) {
    Start();
    const headless::Transcript& calls = Program.Device.See.LastFrame()->Calls;
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(ToText(calls.front()), "fill 0,0,240,267 #FFFFFF");
}

TEST_F(ClockPage, TheModeButtonTogglesAndShowsTheOtherImage) {
    Start();
    const auto source = [&] {
        for (const headless::Placed& placed : Program.Device.See.Visible()) {
            if (placed.Bitmap == kBitmapModeButton) {
                EXPECT_EQ(placed.Area, (Rect{200, 5, 230, 35}));
                return placed.Source.Left;
            }
        }
        return -1;
    };
    EXPECT_EQ(source(), 0);
    Tap(201, 6);
    EXPECT_TRUE(IsDigital());
    EXPECT_EQ(source(), 30);
    Tap(229, 34);
    EXPECT_TRUE(IsAnalog());
    EXPECT_EQ(source(), 0);
}

TEST_F(ClockPage, BesideTheModeButtonNothingHappens) {
    Start();
    for (const Point point : {Point{200, 20}, Point{230, 20}, Point{215, 5}, Point{215, 35}}) {
        Tap(point.X, point.Y);
        EXPECT_TRUE(IsAnalog()) << point.X << ", " << point.Y;
    }
}

TEST_F(ClockPage, AnArrowKeyTogglesTheFaceWhenItComesUp) {
    Start();
    for (const int key : {VK_LEFT, VK_UP, VK_RIGHT, VK_DOWN}) {
        const bool before = IsAnalog();
        Program.Device.KeyDown(key);
        ASSERT_TRUE(Program.Settle());
        EXPECT_EQ(IsAnalog(), before) << key;
        Program.Device.KeyUp(key);
        ASSERT_TRUE(Program.Settle());
        EXPECT_EQ(IsAnalog(), !before) << key;
    }
    Program.Device.Key(VK_HOME);
    ASSERT_TRUE(Program.Settle());
    EXPECT_TRUE(IsAnalog());
}

TEST_F(ClockPage, TheToggledFaceIsNotWrittenBack) {
    Start();
    Tap(215, 20);
    EXPECT_FALSE(Program.Device.Host().RegistryCalls.ProfileInt(u"clock", u"isAnalog").has_value());
}

TEST_F(ClockPage, ATapOnTheHeaderStartsTheClockProgram) {
    Start();
    Tap(21, 6);
    EXPECT_EQ(ClockProgramsStarted(), 1);
    Tap(189, 34);
    EXPECT_EQ(ClockProgramsStarted(), 2);
}

TEST_F(ClockPage, BesideTheHeaderNothingStarts) {
    Start();
    for (const Point point : {Point{20, 20}, Point{190, 20}, Point{195, 20}, Point{100, 5}, Point{100, 35}}) {
        Tap(point.X, point.Y);
    }
    EXPECT_EQ(ClockProgramsStarted(), 0);
}

TEST_F(ClockPage, RedrawsPromptlyOnceAndThenEvery471Milliseconds) {
    Start();
    const int first = Program.Device.See.LastFrame()->Count;
    Program.Device.AdvanceClock(99);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.Device.See.LastFrame()->Count, first);
    Program.Device.AdvanceClock(1);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.Device.See.LastFrame()->Count, first + 1);
    Program.Device.AdvanceClock(370);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.Device.See.LastFrame()->Count, first + 1);
    Program.Device.AdvanceClock(1);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.Device.See.LastFrame()->Count, first + 2);
    Program.Device.AdvanceClock(471);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.Device.See.LastFrame()->Count, first + 3);
}

TEST_F(ClockPage, TheTimeFollowsTheDevicesClock) {
    Start();
    Tap(215, 20);
    Program.Device.SetClock(At(2004, 11, 4, 0, 3));
    Program.Device.AdvanceClock(471);
    ASSERT_TRUE(Program.Settle());
    EXPECT_TRUE(Program.Device.See.ShowsText(u"12:03"));
    EXPECT_TRUE(Program.Device.See.ShowsText(u"Thu, Nov, 04, 2004"));
}

} // namespace
} // namespace tavo::test
