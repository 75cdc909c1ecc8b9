// The program at its month calendar on a day of one's choice, worked by keys and taps.
#pragma once

#include "tests/support/running_program.h"

#include <gtest/gtest.h>

#include <optional>

namespace tavo::test {

inline constexpr Color kWhite = Color::FromRgb(255, 255, 255);
inline constexpr Color kGrey = Color::FromRgb(204, 204, 204);
inline constexpr Color kBlue = Color::FromRgb(70, 163, 250);
inline constexpr Color kRed = Color::FromRgb(255, 0, 0);
inline constexpr Color kBlack = Color::FromRgb(0, 0, 0);
inline constexpr Color kOtherMonth = Color::FromRgb(150, 150, 150);

class CalendarPage : public testing::Test {
  protected:
    void Open(const SYSTEMTIME& now) {
        Program.emplace(now);
        ASSERT_TRUE(Program->Start());
        Program->ShowPage(PageNumber::Calendar);
    }

    void Press(int key, int times = 1) {
        for (int i = 0; i < times; ++i) {
            Program->Device.Key(key);
        }
        ASSERT_TRUE(Program->Settle());
    }

    void Tap(int x, int y) {
        Program->TapAside(x, y);
        ASSERT_TRUE(Program->Settle());
    }

    std::optional<Color> Pixel(int x, int y) const { return Program->Device.See.PixelAt(x, y); }

    std::optional<RunningProgram> Program;
};

} // namespace tavo::test
