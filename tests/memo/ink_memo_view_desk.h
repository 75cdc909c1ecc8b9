// The ink editor on a scripted device.
#pragma once

#include "memo/ink_memo_view.h"
#include "tests/memo/memo_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace tavo::test {

constexpr std::array<int, 5> kZoomCommands{kCommandZoom75, kCommandZoom100, kCommandZoom150, kCommandZoom200,
                                           kCommandZoom300};
constexpr std::array<int, 5> kZooms{75, 100, 150, 200, 300};
constexpr std::u16string_view kMemoName = u"\\My Documents\\TavoCalendar\\20040915_101500.pwi";

class InkMemoView : public testing::Test {
  protected:
    int Run() { return Desk.Run(Editor); }

    void Choose(std::u16string menu, int command) { Desk.Device.ChooseMenu(std::move(menu), command); }

    // The zooms whose items are checked.
    std::vector<int> CheckedZooms() {
        std::vector<int> zooms;
        for (std::size_t index = 0; index < kZooms.size(); ++index) {
            if (Desk.IsChecked(kZoomCommands[index])) {
                zooms.push_back(kZooms[index]);
            }
        }
        return zooms;
    }

    int Ask(MessageNumber number) { return Desk.Paper().SendMessageW(number, 0, 0); }

    int Zoom() { return Desk.Paper().View().Zoom(); }

    // Ink as the control gives it: of a memo with so many strokes.
    std::vector<std::uint8_t> GivenInk(int strokes = 1) {
        MemoDesk other;
        CInkMemoView editor(other.Pump, other.State);
        for (int stroke = 0; stroke < strokes; ++stroke) {
            other.Draw(40 + 20 * stroke);
        }
        other.Device.PressOk();
        EXPECT_EQ(other.Run(editor), IDOK);
        EXPECT_THAT(other.Buffer(), testing::Not(testing::IsEmpty()));
        return other.Buffer();
    }

    MemoDesk Desk;
    CInkMemoView Editor{Desk.Pump, Desk.State};
};

} // namespace tavo::test
