// Paints and timers, and what drawing leaves on the screen.
#include "tests/conformance/conformance_test.h"

namespace tavo::conformance {

namespace {

constexpr Color kRed = Color::FromRgb(255, 0, 0);
constexpr Color kBlue = Color::FromRgb(0, 0, 255);
constexpr Color kWhite = Color::FromRgb(255, 255, 255);
constexpr int kTimer = 1003;

class PaintConformance : public ConformanceTest {
  protected:
    Color PixelAt(int x, int y) { return Driver->PixelAt({x, y + kClientArea.Top}); }

    std::vector<int> Widths(FontHandle font, std::u16string_view text) {
        std::vector<int> widths;
        Host.Drawing().GetTextExtentExPointW(font, text, widths);
        return widths;
    }
};

TEST_F(PaintConformance, ManyInvalidationsMakeOnePaintAfterThePostedMessages) {
    Steps.Do([&] {
        Page.Log.All.clear();
        Page.Invalidate();
        Page.Invalidate({10, 10, 20, 20});
        Page.Post(WM_USER);
        Page.Invalidate();
    });
    ASSERT_TRUE(Steps.Finish(Pump));
    ASSERT_EQ(Page.Log.All.size(), 2u);
    EXPECT_EQ(Page.Log.All[0].Number, WM_USER);
    EXPECT_EQ(Page.Log.All[1].Number, WM_PAINT);
}

TEST_F(PaintConformance, ParentsPaintBeforeWhatLiesInThem) {
    ScratchWindow child(Pump);
    WindowDescription description;
    description.Parent = Page.Handle();
    description.Bounds = Rect::FromSize(0, 30, 240, 210);
    description.Visible = true;
    ASSERT_TRUE(child.Make(description));
    std::vector<WindowHandle> order;
    const auto note = [&](const Message& message) {
        if (message.Number == WM_PAINT) {
            order.push_back(message.Window);
        }
    };
    Steps.Do([&] {
        child.Log.Hook = note;
        Page.Log.Hook = note;
        child.Invalidate();
        Page.Invalidate();
    });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(order, (std::vector<WindowHandle>{Page.Handle(), child.Handle()}));
}

TEST_F(PaintConformance, HiddenWindowsPaintWhenTheyAreShown) {
    ScratchPage other(Pump);
    ASSERT_TRUE(other.Make(View.Handle()));
    Steps.Do([&] { other.Invalidate(); });
    Steps.Do([&] {
        EXPECT_EQ(other.Log.Count(WM_PAINT), 0);
        other.Show(ShowCommand::Maximize);
    });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(other.Log.Count(WM_PAINT), 1);
}

TEST_F(PaintConformance, TimerRepeatsUntilItIsKilled) {
    Steps.Do([&] { Host.Windows().SetTimer(View.Handle(), kTimer, 40); });
    Steps.Wait(200);
    int count = 0;
    Steps.Do([&] {
        count = View.Log.Count(WM_TIMER);
        EXPECT_GE(count, 2);
        EXPECT_LE(count, 5);
        Host.Windows().KillTimer(View.Handle(), kTimer);
    });
    Steps.Wait(120);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(View.Log.Count(WM_TIMER), count);
}

TEST_F(PaintConformance, SettingATimerAgainStartsItsPeriodAnew) {
    Steps.Do([&] { Host.Windows().SetTimer(View.Handle(), kTimer, 150); });
    for (int time = 0; time < 4; ++time) {
        Steps.Wait(60);
        Steps.Do([&] {
            EXPECT_EQ(View.Log.Count(WM_TIMER), 0);
            Host.Windows().SetTimer(View.Handle(), kTimer, 150);
        });
    }
    Steps.Wait(200);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(View.Log.Count(WM_TIMER), 1);
}

TEST_F(PaintConformance, MinimisedNothingPaintsAndPagesTimersWait) {
    Steps.Do([&] {
        Host.Windows().SetTimer(Page.Handle(), kTimer, 150);
        Host.Windows().SetTimer(View.Handle(), kTimer, 50);
    });
    Steps.Do([&] { Driver->Minimize(true); });
    int paints = 0;
    Steps.Do([&] {
        paints = Page.Log.Count(WM_PAINT);
        Page.Invalidate();
    });
    Steps.Wait(500);
    Steps.Do([&] {
        EXPECT_EQ(Page.Log.Count(WM_PAINT), paints);
        EXPECT_EQ(Page.Log.Count(WM_TIMER), 0);
        EXPECT_GE(View.Log.Count(WM_TIMER), 3);
        Driver->Minimize(false);
    });
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_GE(Page.Log.Count(WM_PAINT), paints + 1);
    EXPECT_EQ(Page.Log.Count(WM_TIMER), 1); // the missed ones are not made up
}

TEST_F(PaintConformance, FillsHaveSharpEdges) {
    Page.Draw = [](ISurface& surface) { surface.FillRect({10, 10, 20, 21}, kRed); };
    Steps.Do([&] { Page.Invalidate(); });
    Steps.Do([&] {
        EXPECT_EQ(PixelAt(10, 10), kRed);
        EXPECT_EQ(PixelAt(19, 20), kRed);
        EXPECT_EQ(PixelAt(9, 10), kWhite);
        EXPECT_EQ(PixelAt(10, 9), kWhite);
        EXPECT_EQ(PixelAt(20, 20), kWhite);
        EXPECT_EQ(PixelAt(19, 21), kWhite);
    });
    ASSERT_TRUE(Steps.Finish(Pump));
}

TEST_F(PaintConformance, LinesLeaveOutTheirLastPoint) {
    Page.Draw = [](ISurface& surface) {
        surface.DrawLine({30, 50}, {40, 50}, {kBlue, 1});
        surface.DrawLine({40, 60}, {30, 60}, {kBlue, 1});
        surface.DrawLine({50, 70}, {50, 80}, {kBlue, 1});
        surface.DrawLine({100, 100}, {120, 100}, {kRed, 3});
    };
    Steps.Do([&] { Page.Invalidate(); });
    Steps.Do([&] {
        EXPECT_EQ(PixelAt(30, 50), kBlue);
        EXPECT_EQ(PixelAt(39, 50), kBlue);
        EXPECT_EQ(PixelAt(40, 50), kWhite);
        EXPECT_EQ(PixelAt(30, 51), kWhite);
        EXPECT_EQ(PixelAt(40, 60), kBlue);
        EXPECT_EQ(PixelAt(31, 60), kBlue);
        EXPECT_EQ(PixelAt(30, 60), kWhite);
        EXPECT_EQ(PixelAt(50, 79), kBlue);
        EXPECT_EQ(PixelAt(50, 80), kWhite);
        EXPECT_EQ(PixelAt(110, 98), kWhite);
        EXPECT_EQ(PixelAt(110, 99), kRed);
        EXPECT_EQ(PixelAt(110, 101), kRed);
        EXPECT_EQ(PixelAt(110, 102), kWhite);
    });
    ASSERT_TRUE(Steps.Finish(Pump));
}

TEST_F(PaintConformance, RowBelowThePagesSurfaceStaysWhite) {
    Page.Draw = [](ISurface& surface) { surface.FillRect({0, 0, 240, 300}, kRed); };
    Steps.Do([&] { Page.Invalidate(); });
    Steps.Do([&] {
        EXPECT_EQ(PixelAt(120, 266), kRed);
        EXPECT_EQ(PixelAt(120, 267), kWhite);
    });
    ASSERT_TRUE(Steps.Finish(Pump));
}

TEST_F(PaintConformance, ShownFrameIsACopy) {
    std::unique_ptr<ISurface> surface = Host.Drawing().CreateCompatibleSurface({240, 267});
    Steps.Do([&] {
        surface->FillRect({0, 0, 240, 267}, kRed);
        Host.Drawing().Present(Page.Handle(), *surface, {});
        surface->FillRect({0, 0, 240, 267}, kBlue); // not presented
    });
    Steps.Do([&] {
        EXPECT_EQ(PixelAt(5, 5), kRed);
        surface.reset();
        EXPECT_EQ(PixelAt(5, 5), kRed);
    });
    ASSERT_TRUE(Steps.Finish(Pump));
}

TEST_F(PaintConformance, ChangeOfScaleRemakesSurfacesOfHiddenPagesToo) {
    ScratchPage other(Pump);
    ASSERT_TRUE(other.Make(View.Handle()));
    Page.Draw = [](ISurface& surface) { surface.FillRect({10, 10, 20, 21}, kRed); };
    Steps.Do([&] { Driver->ChangeScale(); });
    Steps.Wait(200);
    Steps.Do([&] {
        EXPECT_EQ(Page.RepaintRequests, 1);
        EXPECT_EQ(other.RepaintRequests, 1);
        EXPECT_EQ(PixelAt(10, 10), kRed);
        EXPECT_EQ(PixelAt(9, 10), kWhite);
        EXPECT_EQ(PixelAt(19, 20), kRed);
        EXPECT_EQ(PixelAt(20, 20), kWhite);
    });
    ASSERT_TRUE(Steps.Finish(Pump));
}

TEST_F(PaintConformance, TextIsMeasuredAlikeAtEveryScale) {
    const FontHandle font = Host.Drawing().CreateFontIndirectW({u"Arial", -13, 0, 400});
    ASSERT_NE(font, FontHandle::None);
    const std::vector<int> before = Widths(font, u"Dentist, Main Street 12");
    Steps.Do([&] { Driver->ChangeScale(); });
    Steps.Wait(200);
    ASSERT_TRUE(Steps.Finish(Pump));
    EXPECT_EQ(Widths(font, u"Dentist, Main Street 12"), before);
    Host.Drawing().DeleteObject(font);
}

TEST_F(PaintConformance, ExtentsGrowCharacterByCharacter) {
    const FontHandle font = Host.Drawing().CreateFontIndirectW({u"Arial", -13, 0, 400});
    const std::vector<int> widths = Widths(font, u"Wide");
    ASSERT_EQ(widths.size(), 4u);
    EXPECT_GT(widths[0], 0);
    for (std::size_t index = 1; index < widths.size(); ++index) {
        EXPECT_GT(widths[index], widths[index - 1]);
    }
    EXPECT_TRUE(Widths(font, u"").empty());
    EXPECT_LT(Widths(font, u"iiii")[3], Widths(font, u"WWWW")[3]);
    Host.Drawing().DeleteObject(font);
}

TEST_F(PaintConformance, FontsOwnWidthIsReachedByStretching) {
    const FontHandle natural = Host.Drawing().CreateFontIndirectW({u"Comic Sans MS", -133, 0, 700});
    const FontHandle narrow = Host.Drawing().CreateFontIndirectW({u"Comic Sans MS", -133, -33, 700});
    EXPECT_LT(Widths(narrow, u"12:59")[4], Widths(natural, u"12:59")[4]);
    EXPECT_LE(Widths(narrow, u"12:59")[4], 200); // it fits the clock's face
    Host.Drawing().DeleteObject(natural);
    Host.Drawing().DeleteObject(narrow);
}

} // namespace

} // namespace tavo::conformance
