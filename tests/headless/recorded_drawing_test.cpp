// What is written down of drawing.
#include "host/headless/recorded_drawing.h"

#include "host/headless/recorded_surface.h"

#include <gtest/gtest.h>

namespace tavo::headless {

namespace {

constexpr WindowHandle kWindow{3};
constexpr Color kRed = Color::FromRgb(255, 0, 0);
constexpr Color kWhite = Color::FromRgb(255, 255, 255);

TEST(RecordedDrawing, TranscriptSaysEveryCall) {
    RecordedDrawing drawing;
    const FontHandle font = drawing.CreateFontIndirectW({u"Arial", -14, 0, 700});
    const auto surface = drawing.CreateCompatibleSurface({240, 267});
    surface->FillRect({0, 0, 240, 267}, kWhite);
    surface->DrawLine({1, 2}, {3, 4}, {Color::FromRgb(38, 120, 225), 3});
    surface->DrawTextW(u"Tag \u00DC", {20, 10, 190, 30}, {font, kRed, DT_RIGHT | DT_SINGLELINE});
    surface->DrawBitmap(139, {0, 241}, {0, 0, 240, 26});
    drawing.Present(kWindow, *surface, {});
    ASSERT_NE(drawing.LastFrame(kWindow), nullptr);
    EXPECT_EQ(ToText(drawing.LastFrame(kWindow)->Calls),
              "fill 0,0,240,267 #FFFFFF\n"
              "line 1,2 to 3,4 pen 3 #2678E1\n"
              "text 20,10,190,30 #FF0000 format 34 [Arial -14 700] \"Tag Ü\"\n"
              "bitmap 139 0,241,240,267 from 0,0,240,26\n");
}

TEST(RecordedDrawing, EachFrameHasItsOwnCallsAndTheWholePicture) {
    RecordedDrawing drawing;
    const auto surface = drawing.CreateCompatibleSurface({10, 10});
    surface->FillRect({0, 0, 5, 5}, kRed);
    drawing.Present(kWindow, *surface, {});
    surface->FillRect({5, 5, 6, 6}, kRed);
    drawing.Present(kWindow, *surface, {});
    const Frame* frame = drawing.LastFrame(kWindow);
    EXPECT_EQ(frame->Calls.size(), 1u);
    EXPECT_EQ(frame->Picture.At({0, 0}), kRed);
    EXPECT_EQ(frame->Picture.At({5, 5}), kRed);
    EXPECT_EQ(frame->Picture.At({6, 6}), std::nullopt);
    EXPECT_EQ(frame->Count, 2);
}

TEST(RecordedDrawing, TextsAndBitmapsStayUntilTheyAreCovered) {
    RecordedDrawing drawing;
    const auto surface = drawing.CreateCompatibleSurface({100, 100});
    surface->DrawTextW(u"old", {10, 10, 50, 20}, {});
    surface->DrawTextW(u"kept", {10, 30, 50, 40}, {});
    surface->DrawBitmap(145, {60, 60}, {0, 0, 20, 20});
    surface->FillRect({0, 0, 100, 25}, kWhite);
    surface->FillRect({0, 30, 30, 40}, kWhite); // half of it only
    surface->DrawBitmap(154, {55, 55}, {0, 0, 30, 30});
    drawing.Present(kWindow, *surface, {});
    const std::vector<Placed>& visible = drawing.LastFrame(kWindow)->Picture.Visible();
    ASSERT_EQ(visible.size(), 2u);
    EXPECT_EQ(visible[0].Text, u"kept");
    EXPECT_EQ(visible[1].Bitmap, 154);
    EXPECT_EQ(visible[1].Area, (Rect{55, 55, 85, 85}));
}

TEST(RecordedDrawing, FontsAreForgottenWhenDeleted) {
    RecordedDrawing drawing;
    const FontHandle font = drawing.CreateFontIndirectW({u"Comic Sans MS", -133, -33, 700});
    EXPECT_EQ(drawing.DescribeFont(font), "Comic Sans MS -133 700 -33");
    EXPECT_EQ(drawing.FontCount(), 1u);
    drawing.DeleteObject(font);
    EXPECT_EQ(drawing.FontCount(), 0u);
    EXPECT_EQ(drawing.DescribeFont(font), "");
}

TEST(RecordedDrawing, PicturesEndAtTheirEdges) {
    RecordedDrawing drawing;
    const auto surface = drawing.CreateCompatibleSurface({10, 10});
    surface->FillRect({-5, -5, 50, 50}, kRed);
    surface->DrawLine({-5, 3}, {50, 3}, {Color{}, 1});
    drawing.Present(kWindow, *surface, {});
    const PixelPicture& picture = drawing.LastFrame(kWindow)->Picture;
    EXPECT_EQ(picture.At({9, 9}), kRed);
    EXPECT_EQ(picture.At({9, 3}), Color{});
    EXPECT_EQ(picture.At({10, 9}), std::nullopt);
    EXPECT_EQ(picture.At({-1, 0}), std::nullopt);
}

TEST(RecordedDrawing, WideLinesLieAroundTheirPoints) {
    PixelPicture picture({20, 20});
    picture.Line({5, 10}, {10, 10}, {kRed, 3});
    EXPECT_EQ(picture.At({4, 9}), kRed);
    EXPECT_EQ(picture.At({11, 11}), kRed);
    EXPECT_EQ(picture.At({3, 10}), std::nullopt);
    EXPECT_EQ(picture.At({12, 10}), std::nullopt);
    EXPECT_EQ(picture.At({5, 8}), std::nullopt);
    picture.Line({2, 2}, {6, 6}, {Color{}, 1}); // slanted: left to the transcript
    EXPECT_EQ(picture.At({3, 3}), std::nullopt);
}

} // namespace

} // namespace tavo::headless
